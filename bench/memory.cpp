// Measures the memory that reading a report takes, and prints it as JSON.

#include "bareqt.h"
#include "files.h"
#include "floor.h"
#include "heap.h"
#include "libraryobjects.h"
#include "streams.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <cstdio>
#include <exception>

namespace Bench {

namespace {

using REPORTGENERATOR::ReportBase;

constexpr int COORDINATES = 200'000;

/// What `read` holds when it has read, and at most while reading. The input is left out of the latter: it is
/// in memory before, but for `inputToCome` bytes of it.
template <class Read>
QJsonObject Usage(Read read, qint64 inputToCome)
{
    const std::size_t before = Heap::Held();
    Heap::StartPeak();
    const auto object = read();
    const auto result = static_cast<double>(Heap::Held() - before);
    const double peak = static_cast<double>(Heap::Peak() - before) - static_cast<double>(inputToCome);
    return {{QStringLiteral("bytesPerCoordinate"), result / COORDINATES},
            {QStringLiteral("peakBeyondInput"), std::max(peak, 0.0) / result}};
}

template <class LibraryRead, class BareQtRead>
QJsonObject Form(const char* title, LibraryRead libraryRead, BareQtRead bareQtRead, qint64 inputToCome = 0)
{
    return {{QStringLiteral("title"), QLatin1String(title)},
            {QStringLiteral("library"), Usage(libraryRead, inputToCome)},
            {QStringLiteral("bareqt"), Usage(bareQtRead, inputToCome)}};
}

QJsonObject XmlString(const QString& xml)
{
    return Form(
        "XML from string",
        [&] {
            ReportBase report;
            report.SetXmlString(xml, false);
            return report;
        },
        [&] {
            QXmlStreamReader reader(xml);
            return BareQt::ReadXml(reader);
        });
}

QJsonObject XmlFile(const QString& path)
{
    return Form(
        "XML file, load",
        [&] {
            ReportBase report;
            report.LoadXml(path);
            return report;
        },
        [&] {
            QFile file(path);
            file.open(QIODevice::ReadOnly | QIODevice::Text);
            QXmlStreamReader reader(&file);
            return BareQt::ReadXml(reader);
        },
        QFile(path).size());
}

ReportBase ReadBinary(QByteArray bytes)
{
    ReportBase report;
    report.SetBinaryRepresentation(bytes);
    return report;
}

QJsonObject Plain(const QByteArray& bytes)
{
    return Form(
        "plain binary array, read", [&] { return ReadBinary(bytes); },
        [&] { return ReadFromStream(BareQt::ReadPlain)(bytes); });
}

/// The input is what the data unpack to, which is unpacked whole.
QJsonObject Compressed(const QByteArray& bytes, qint64 unpacked)
{
    return Form(
        "compressed, read", [&] { return ReadBinary(bytes); },
        [&] { return ReadFromStream(BareQt::ReadCompressed)(bytes); }, unpacked);
}

QJsonObject Raw(const QByteArray& bytes)
{
    const auto readLibrary = ReadFromStream([](QDataStream& stream) {
        ReportBase report;
        report.SetVersionSpecificBinaryWithoutValidation(stream);
        return report;
    });
    return Form(
        "raw form, read", [&] { return readLibrary(bytes); },
        [&] { return ReadFromStream(BareQt::ReadRaw)(bytes); });
}

QByteArray Measure()
{
    const PlainReport report = MakePlainReport(COORDINATES);
    const QString path = PathFor("memory", COORDINATES);
    WriteFile(path, Floor::XmlBytes(report));
    const QByteArray tagged = Floor::Tagged(report);
    const int zlibDefaultLevel = -1;

    const QJsonArray forms{XmlString(Floor::XmlText(report)), XmlFile(path), Plain(Floor::Plain(report)),
                           Compressed(Floor::Packed(tagged, zlibDefaultLevel), tagged.size()),
                           Raw(Floor::Raw(report))};
    return QJsonDocument(QJsonObject{{QStringLiteral("forms"), forms}}).toJson();
}

} // namespace

} // namespace Bench

int main()
{
    try {
        std::fputs(Bench::Measure().constData(), stdout);
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "memory: %s\n", exception.what());
        return 1;
    }
    return 0;
}
