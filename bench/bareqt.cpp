#include "bareqt.h"

#include "contenders.h"
#include "files.h"
#include "streams.h"
#include "suite.h"
#include "workload.h"

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <algorithm>
#include <utility>

namespace Bench {

namespace {

const Contender<PlainReport> BARE_QT{"bareqt", Itself, Itself};

void AddXml(Suite& suite)
{
    suite.AddForm(
        "xml", BARE_QT,
        [](const PlainReport& report) {
            QString text;
            QXmlStreamWriter writer(&text);
            BareQt::WriteXml(writer, report);
            return text;
        },
        [](const QString& xml) {
            QXmlStreamReader reader(xml);
            return BareQt::ReadXml(reader);
        });
}

void AddFile(Suite& suite)
{
    suite.AddForm(
        "file", BARE_QT,
        [](const PlainReport& report) {
            const WrittenFile written{PathFor(BARE_QT.name, report.points.size())};
            QFile file(written.path);
            file.open(QIODevice::WriteOnly | QIODevice::Text);
            QXmlStreamWriter writer(&file);
            BareQt::WriteXml(writer, report);
            return written;
        },
        [](const WrittenFile& written) {
            QFile file(written.path);
            file.open(QIODevice::ReadOnly | QIODevice::Text);
            QXmlStreamReader reader(&file);
            return BareQt::ReadXml(reader);
        });
}

void AddBinaryForms(Suite& suite)
{
    suite.AddForm("plain", BARE_QT, WriteToStream(BareQt::WritePlain), ReadFromStream(BareQt::ReadPlain));
    suite.AddForm("tagged", BARE_QT, WriteToStream(BareQt::WriteTagged), ReadFromStream(BareQt::ReadTagged));
    suite.AddForm("raw", BARE_QT, WriteToStream(BareQt::WriteRaw), ReadFromStream(BareQt::ReadRaw));
    for (const CompressedForm& form : COMPRESSED_FORMS) {
        const auto write = [level = form.level](QDataStream& stream, const PlainReport& report) {
            BareQt::WriteCompressed(stream, report, level);
        };
        suite.AddForm(form.name, BARE_QT, WriteToStream(write), ReadFromStream(BareQt::ReadCompressed),
                      form.largest);
    }
}

bool InRange(const Point& point)
{
    return point.longitude >= -180.0 && point.longitude <= 180.0 && point.latitude >= -90.0 &&
           point.latitude <= 90.0;
}

void AddJobs(Suite& suite)
{
    suite.AddJob(
        "build", BARE_QT.name, Itself,
        [](const PlainReport& report) {
            QVector<Point> points;
            for (const Point& point : report.points)
                points.append(point);
            return points;
        },
        [](const QVector<Point>& points, const PlainReport& report) { return points == report.points; });

    suite.AddJob(
        "check", BARE_QT.name, Itself,
        [](const PlainReport& report) {
            return std::all_of(report.points.begin(), report.points.end(), InRange);
        },
        [](bool good, const PlainReport&) { return good; });

    suite.AddJob(
        "compare", BARE_QT.name,
        [](const PlainReport& report) {
            PlainReport other = report;
            other.points.detach();
            return std::make_pair(report, other);
        },
        [](const std::pair<PlainReport, PlainReport>& reports) { return reports.first == reports.second; },
        [](bool equal, const PlainReport&) { return equal; });

    suite.AddJob("copy", BARE_QT.name, Itself, Itself,
                 [](const PlainReport& copy, const PlainReport& report) { return copy == report; });

    suite.AddJob(
        "copy_and_change", BARE_QT.name, Itself, ChangedCopy,
        [](const PlainReport& copy, const PlainReport& report) { return copy == ChangedCopy(report); });
}

} // namespace

void AddBareQt(Suite& suite)
{
    AddXml(suite);
    AddFile(suite);
    AddBinaryForms(suite);
    AddJobs(suite);
}

} // namespace Bench
