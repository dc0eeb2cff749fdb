// Takes reports through every form and back: XML, plain representation, compressed representation, binary
// file, and XML again. Each stop writes what came out of the one before and reads it into a new report; all
// of them have to equal the report that was loaded.
//
//     roundtrip REPORT.xml...
//
// Ends with 0 when all agree, 1 when one does not or cannot be read, 2 when no report is named.

#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <cstdio>

using REPORTGENERATOR::ReportBase;

namespace {

constexpr int ALL_AGREE = 0;
constexpr int FAILED = 1;
constexpr int USAGE = 2;

/// What came out at the end of a stop, and how many bytes it took on the way.
struct Arrival
{
    ReportBase report;
    qint64 bytes = 0;
};

void Require(bool condition, const char* what)
{
    if (!condition)
        throw RGException(QString::fromUtf8(what));
}

Arrival ThroughPlain(const ReportBase& report, const QString& /*folder*/)
{
    QByteArray bytes = report.GetBinaryRepresentationAsQByteArray();

    Arrival arrival;
    arrival.bytes = bytes.size();
    Require(arrival.report.SetBinaryRepresentation(bytes), "the plain representation is not recognised");
    return arrival;
}

Arrival ThroughCompressed(const ReportBase& report, const QString& /*folder*/)
{
    const int zlibDefaultLevel = -1;
    QByteArray bytes = report.GetCompressedBinaryRepresentationAsQByteArray(zlibDefaultLevel);

    Arrival arrival;
    arrival.bytes = bytes.size();
    Require(arrival.report.SetBinaryRepresentation(bytes), "the compressed representation is not recognised");
    return arrival;
}

/// A binary file is a representation, here the plain one, written as one byte array to a stream of
/// version 12.
Arrival ThroughBinaryFile(const ReportBase& report, const QString& folder)
{
    QFile file(folder + QStringLiteral("/report.bin"));
    Require(file.open(QIODevice::WriteOnly), "the binary file cannot be written");
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_4_6);
    stream << report.GetBinaryRepresentationAsQByteArray();
    file.close();
    Require(file.error() == QFile::NoError, "the binary file cannot be written");

    Arrival arrival;
    arrival.bytes = file.size();
    Require(file.open(QIODevice::ReadOnly), "the binary file cannot be read");
    arrival.report.LoadBinary(&file);
    return arrival;
}

Arrival ThroughXml(const ReportBase& report, const QString& folder)
{
    const QString path = folder + QStringLiteral("/report.xml");
    Require(report.SaveXml(path), "the XML file cannot be written");

    Arrival arrival;
    arrival.bytes = QFileInfo(path).size();
    Require(arrival.report.LoadXml(path), "the XML file holds no report");
    return arrival;
}

struct Stop
{
    const char* form;
    Arrival (*travel)(const ReportBase& report, const QString& folder);
};

constexpr Stop FORMS[] = {{"plain", ThroughPlain},
                          {"compressed", ThroughCompressed},
                          {"binary file", ThroughBinaryFile},
                          {"XML", ThroughXml}};

void PrintRow(int nameWidth, const QString& name, const char* form, const char* bytes, const char* equal)
{
    std::printf("%-*s  %-11s  %8s  %s\n", nameWidth, name.toUtf8().constData(), form, bytes, equal);
}

/// Travels with one report and prints a row for each stop. Returns whether all of them gave it back.
bool Travel(const QString& path, int nameWidth)
{
    const QTemporaryDir folder;
    Require(folder.isValid(), "there is no room for temporary files");

    // A report that is incomplete or out of range is refused here: validation is on unless it is turned off.
    ReportBase original;
    Require(original.LoadXml(path), "there is no report in it");
    const QString name = QFileInfo(path).fileName();
    PrintRow(nameWidth, name, "XML, loaded", QByteArray::number(QFileInfo(path).size()).constData(), "-");

    bool allAgree = true;
    ReportBase traveller = original;
    for (const Stop& stop : FORMS) {
        const Arrival arrival = stop.travel(traveller, folder.path());
        const bool isEqual = arrival.report == original;
        PrintRow(nameWidth, name, stop.form, QByteArray::number(arrival.bytes).constData(),
                 isEqual ? "yes" : "NO");
        allAgree = allAgree && isEqual;
        traveller = arrival.report;
    }
    return allAgree;
}

/// As `Travel`; a report that gets stuck is told on standard error.
bool TravelOrTell(const QString& path, int nameWidth)
{
    try {
        return Travel(path, nameWidth);
    } catch (const ReportException& exception) {
        std::fflush(stdout);
        std::fprintf(stderr, "roundtrip: %s: %s: %s\n", path.toUtf8().constData(),
                     exception.GetErrorName().toUtf8().constData(),
                     exception.GetErrorText().toUtf8().constData());
    }
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    // Qt knows the arguments in whatever characters the system has them.
    const QCoreApplication application(argc, argv);
    const QStringList paths = QCoreApplication::arguments().mid(1);
    if (paths.isEmpty()) {
        std::fprintf(stderr, "Usage: roundtrip REPORT.xml...\n");
        return USAGE;
    }

    const QString heading = QStringLiteral("report");
    auto nameWidth = static_cast<int>(heading.size());
    for (const QString& path : paths)
        nameWidth = std::max(nameWidth, static_cast<int>(QFileInfo(path).fileName().size()));

    PrintRow(nameWidth, heading, "form", "bytes", "equal");
    bool allAgree = true;
    for (const QString& path : paths)
        allAgree = TravelOrTell(path, nameWidth) && allAgree;
    return allAgree ? ALL_AGREE : FAILED;
}
