// Uses the opt-in headers as another project does.

#include <reportgenerator/qt/everything.h>

#include <QCoreApplication>
#include <QSet>
#include <QTemporaryDir>
#include <QThread>
#include <QVariant>

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <unordered_set>

using namespace REPORTGENERATOR;

namespace {

bool Expect(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "failed: %s\n", what);
    }
    return condition;
}

ReportBase MakeReport()
{
    ReportBase report;
    SetOptionalArea(report, MakeArea(QString::fromLatin1("Lake"), {{9.1234567, 47.5}, {9.5, 47.25}}));
    return report;
}

bool PrintsAndHashes(const ReportBase& report)
{
    const char* const expected =
        "ReportBase(Area(name: \"Lake\", coordinates: 2 [(9.1234567, 47.5), (9.5, 47.25)]))";
    std::ostringstream stream;
    stream << report;
    QString debugged;
    QDebug(&debugged).nospace() << report;
    const QSet<ReportBase> set = {report, ReportBase(report)};
    const std::unordered_set<ReportBase> standardSet = {report, ReportBase(report)};
    return Expect(stream.str() == expected, "the report in a standard stream") &&
           Expect(debugged == QString::fromLatin1(expected), "the report in a QDebug") &&
           Expect(set.size() == 1 && standardSet.size() == 1, "the report as a key");
}

bool StandsInVariants(const ReportBase& report)
{
    const QVariant variant = QVariant::fromValue(report);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << variant;
    QVariant read;
    QDataStream in(bytes);
    in >> read;
    return Expect(variant == QVariant::fromValue(ReportBase(report)), "variants compare reports") &&
           Expect(read.value<ReportBase>() == report, "variants stream reports");
}

bool GoesThroughFiles(const ReportBase& report)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QString::fromLatin1("report"));
    SaveFile(report, path, FileForm::Binary);
    const ReportBase read = LoadReport(path);
    bool isTold = false;
    try {
        WithStandardExceptions([&] { return LoadReport(path + path); });
    } catch (const std::exception& error) {
        isTold = std::string(error.what()).find("RGException: Can't open file") == 0;
    }
    double sum = 0.0;
    for (const Coordinate& point : Points(read))
        sum += point.GetLatitude();
    return Expect(!(read == report), "the file keeps six decimals") &&
           Expect(EqualAsWritten(read, report), "the report is equal as written") &&
           Expect(isTold, "the error is a standard one") &&
           Expect(sum == 94.75, "the points are walked through");
}

} // namespace

/// The first argument is the version of Qt that the program should have been built with.
int main(int argc, char** argv)
{
    const int qtMajor = argc == 2 ? std::atoi(argv[1]) : 0;
    const ReportBase report = MakeReport();
    const bool good = Expect(qtMajor == QT_VERSION_MAJOR, "the headers of this Qt are used") &&
                      PrintsAndHashes(report) && StandsInVariants(report) && GoesThroughFiles(report);
    return good ? 0 : 1;
}
