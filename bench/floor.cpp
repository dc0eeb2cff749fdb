#include "floor.h"

#include "contenders.h"
#include "files.h"
#include "suite.h"
#include "workload.h"

#include <cstring>

namespace Bench {

namespace {

const Contender<PlainReport> FLOOR{"floor", Itself, Itself};

void AddLoops(Suite& suite)
{
    suite.AddForm("xml", FLOOR, Floor::XmlText, [](const QString& text) { return Floor::FromXml(text); });
    suite.AddForm("plain", FLOOR, Floor::Plain, Floor::FromPlain);
    suite.AddForm("tagged", FLOOR, Floor::Tagged, Floor::FromTagged);
    suite.AddForm("raw", FLOOR, Floor::Raw, Floor::FromRaw);

    suite.AddForm(
        "file", FLOOR,
        [](const PlainReport& report) {
            const WrittenFile file{PathFor(FLOOR.name, report.points.size())};
            WriteFile(file.path, Floor::XmlBytes(report));
            return file;
        },
        [](const WrittenFile& file) { return Floor::FromXml(ReadFile(file.path)); });
}

/// The same bytes to and from a file, whatever they hold.
void AddFileAlone(Suite& suite)
{
    const Contender<QByteArray> bytes{"bytes", Floor::XmlBytes,
                                      [](const QByteArray& xml) { return Floor::FromXml(xml); }};
    suite.AddForm(
        "file", bytes,
        [name = bytes.name](const QByteArray& xml) {
            const WrittenFile file{PathFor(name, xml.size())};
            WriteFile(file.path, xml);
            return file;
        },
        [](const WrittenFile& file) { return ReadFile(file.path); });
}

void AddCompressed(Suite& suite)
{
    const Contender<QByteArray> zlib{"zlib", Floor::Tagged, Floor::FromTagged};
    for (const CompressedForm& form : COMPRESSED_FORMS) {
        suite.AddForm(
            form.name, FLOOR,
            [level = form.level](const PlainReport& report) {
                return Floor::Packed(Floor::Tagged(report), level);
            },
            [](const QByteArray& bytes) { return Floor::FromTagged(Floor::Unpacked(bytes)); }, form.largest);

        suite.AddForm(
            form.name, zlib,
            [level = form.level](const QByteArray& body) { return Floor::Packed(body, level); },
            Floor::Unpacked, form.largest);
    }
}

/// How fast the bytes of a text can be looked at.
void AddMemchr(Suite& suite)
{
    for (const int size : REFUSED_SIZES) {
        suite.AddTask("refuse", "memchr", size, [xml = OtherSettings(size)] {
            const auto bytes = static_cast<std::size_t>(xml.size()) * sizeof(QChar);
            return std::memchr(xml.constData(), 1, bytes) == nullptr;
        });
    }
}

} // namespace

void AddFloor(Suite& suite)
{
    AddLoops(suite);
    AddFileAlone(suite);
    AddCompressed(suite);
    AddMemchr(suite);
}

} // namespace Bench
