// The way of one report: a writer fills it and packs it, a reader unpacks it and shows it as XML, and both
// keep a log of what they did.

#include <reportgenerator/reportbase/listlogger.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QTextStream>

using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ListLogger;
using REPORTGENERATOR::ReportBase;

static Coordinate Point(double longitude, double latitude)
{
    Coordinate point;
    point.SetLongitude(longitude);
    point.SetLatitude(latitude);
    return point;
}

/// The writer's side: what comes out goes into a file or over a network.
static QByteArray WriteReport(const std::shared_ptr<ListLogger>& logger)
{
    ReportBase report;
    report.SetLogger(logger);
    report.GetFrequency().SetValue(121500000.0);
    report.GetIFBandwidth().SetValue(8333.33);
    report.GetArea().SetName(QStringLiteral("Lake region"));
    report.GetArea().AppendCoordinate(Point(9.5, 47.5));
    report.GetArea().AppendCoordinate(Point(9.75, 47.625));

    const int zlibDefaultLevel = -1;
    return report.GetCompressedBinaryRepresentationAsQByteArray(zlibDefaultLevel);
}

/// The reader's side.
static QString ReadReport(QByteArray bytes, const std::shared_ptr<ListLogger>& logger)
{
    ReportBase report;
    report.SetLogger(logger);
    if (!report.SetBinaryRepresentation(bytes))
        throw RGException(QStringLiteral("These bytes hold no report."));
    return report.GetXmlString();
}

/// A line begins with the time; what was said stands behind the first " - ".
static void PrintLog(QTextStream& out, const char* title, ListLogger& logger)
{
    const QString separator = QStringLiteral(" - ");
    out << "\n" << title << "\n";
    for (const QString& line : logger.GetLogEntryList())
        out << "    " << line.mid(line.indexOf(separator) + separator.size()) << "\n";
}

int main()
{
    QTextStream out(stdout);
    const auto writerLog = std::make_shared<ListLogger>(REPORTGENERATOR::INFO);
    const auto readerLog = std::make_shared<ListLogger>(REPORTGENERATOR::INFO);
    int result = 0;
    try {
        out << ReadReport(WriteReport(writerLog), readerLog).trimmed() << "\n";
    } catch (const RGException& exception) {
        out << exception.GetErrorName() << ": " << exception.GetErrorText() << "\n";
        result = 1;
    }
    PrintLog(out, "The writer's log", *writerLog);
    PrintLog(out, "The reader's log", *readerLog);
    return result;
}
