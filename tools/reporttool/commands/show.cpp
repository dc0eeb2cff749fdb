#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/dump.h>
#include <reporttool/exitcodes.h>
#include <reporttool/manyfiles.h>
#include <reporttool/parser.h>
#include <reporttool/reportchoice.h>
#include <reporttool/showjson.h>
#include <reporttool/showmap.h>
#include <reporttool/showtext.h>

#include <reportcore/areapoints.h>
#include <reportcore/jsonwriting.h>
#include <reportcore/reportfile.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace ReportTool {

using ReportCore::ReportFile;

namespace {

constexpr char DESCRIPTION[] =
    "Tells what reports hold. What is incomplete or invalid is shown as far as it can be read. Of a\n"
    "document with several reports the first one is shown, or those that --report or --all-reports\n"
    "asks for.\n"
    "\n"
    "Exit codes: 0 all reports are good, 1 a report is invalid, 2 a file cannot be read or the\n"
    "command line is wrong.";

struct Options
{
    QStringList files;
    bool withAllPoints = false;
    bool withDump = false;
    bool withMap = false;
    ReportCore::JsonPoints points = ReportCore::JsonPoints::All;
    ReportChoice choice = {};
};

/// The area as far as its points are good.
void ShowMap(const ReportFile& file, Console& console)
{
    const QStringList lines = MapLines(ReportCore::ValidPoints(file.report));
    if (lines.isEmpty())
        return;
    console.Output().Line(QString());
    for (const QString& line : lines)
        console.Output().Line(QStringLiteral("    ") + line);
}

int CodeOf(const std::vector<ChosenReport>& reports)
{
    const bool areGood = std::all_of(reports.begin(), reports.end(),
                                     [](const ChosenReport& report) { return report.file.IsGood(); });
    return areGood && !reports.empty() ? EXIT_GOOD : EXIT_INVALID;
}

/// The name of the file; of several reports in it also which one it is.
QString TitleOf(const QString& name, const ChosenReport& report)
{
    return report.count == 1
               ? name
               : QStringLiteral("%1 (report %2 of %3)").arg(name).arg(report.number).arg(report.count);
}

int ShowFile(const QString& name, const Options& options, Console& console)
{
    QByteArray bytes;
    QString error;
    if (!console.Read(name, bytes, error))
        return EXIT_UNUSABLE;
    const std::vector<ChosenReport> reports = ReadChosen(name, bytes, options.choice, console);
    for (const ChosenReport& report : reports) {
        const ReportFile& file = report.file;
        if (report.number > reports.front().number)
            console.Output().Line(QString());
        ShowText(TitleOf(name, report), file, options.withAllPoints, console.Output());
        if (options.withMap)
            ShowMap(file, console);
        if (options.withDump && file.form.IsBinary()) {
            console.Output().Line(QString());
            Dump(bytes, file.form.isBinaryFile, console.Output());
        }
    }
    return CodeOf(reports);
}

int ShowAsText(const Options& options, Console& console)
{
    const int count = static_cast<int>(options.files.size());
    const std::vector<int> exitCodes =
        DoForEach(count, console, [&options](int number, Console& fileConsole) {
            if (number > 0)
                fileConsole.Output().Line(QString());
            return ShowFile(options.files.at(number), options, fileConsole);
        });
    return ExitCodeOf(exitCodes, count);
}

/// The chosen reports of the file; one that isn't there as what is wrong with it.
QJsonArray ItemsOf(const QString& name, const QByteArray& bytes, const Options& options, int& exitCode,
                   Console& console)
{
    QJsonArray items;
    const std::vector<ChosenReport> reports = ReadChosen(name, bytes, options.choice, console);
    for (const ChosenReport& report : reports) {
        QJsonObject json = ToJson(name, report.file, options.points);
        if (options.choice.IsMade())
            json.insert(QLatin1String(REPORT_KEY), report.number);
        items.append(json);
    }
    if (reports.empty())
        items.append(ToJson(name, QStringLiteral("there is no report %1").arg(options.choice.number)));
    exitCode = CodeOf(reports);
    return items;
}

/// The file as it stands in an array.
int ShowItem(const QString& name, const Options& options, Console& console)
{
    QByteArray bytes;
    QString error;
    int exitCode = EXIT_UNUSABLE;
    QJsonArray items;
    if (console.Read(name, bytes, error))
        items = ItemsOf(name, bytes, options, exitCode, console);
    else
        items = {ToJson(name, error)};
    const QByteArray array = ReportCore::JsonBytes(QJsonDocument(items));
    constexpr int BEGIN = 2; // "[\n"
    constexpr int END = 3;   // "\n]\n"
    console.Output().Bytes(array.mid(BEGIN, array.size() - BEGIN - END));
    return exitCode;
}

/// One array. No more than a few files of it are in memory.
int ShowAsJson(const Options& options, Console& console)
{
    console.Output().Bytes("[\n");
    const int count = static_cast<int>(options.files.size());
    const std::vector<int> exitCodes =
        DoForEach(count, console, [&options](int number, Console& fileConsole) {
            if (number > 0)
                fileConsole.Output().Bytes(",\n");
            return ShowItem(options.files.at(number), options, fileConsole);
        });
    console.Output().Bytes(exitCodes.empty() ? "]\n" : "\n]\n");
    return ExitCodeOf(exitCodes, count);
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddFiles();
    parser.AddSwitch("json", "Write one JSON array with an object for each file, all coordinates included.");
    parser.AddSwitch("no-coordinates", "In JSON, tell how many coordinates there are, not which.");
    parser.AddSwitch("all", "Show all coordinates, not just the first ones.");
    parser.AddSwitch("map", "Draw the area in characters.");
    parser.AddSwitch("dump", "Add the bytes of binary forms, field by field with their meaning.");
    AddReportNumber(parser);
    AddAllReports(parser);
    parser.AddExample("show lake.xml", "Tell what a report holds.");
    parser.AddExample("show --map lake.xml", "Draw its area too.");
    parser.AddExample("show --json lake.xml", "Tell it to another program.");
}

int Show(const Parser& parser, Console& console)
{
    if (parser.Has("json") && parser.Has("dump"))
        throw UsageError{QStringLiteral("--json and --dump do not go together")};
    if (parser.Has("json") && parser.Has("map"))
        throw UsageError{QStringLiteral("--json and --map do not go together")};
    if (parser.Has("no-coordinates") && !parser.Has("json"))
        throw UsageError{QStringLiteral("--no-coordinates is for --json")};
    const auto points =
        parser.Has("no-coordinates") ? ReportCore::JsonPoints::Count : ReportCore::JsonPoints::All;
    const Options options = {parser.Files(), parser.Has("all"), parser.Has("dump"), parser.Has("map"),
                             points,         ChoiceOf(parser)};
    return parser.Has("json") ? ShowAsJson(options, console) : ShowAsText(options, console);
}

} // namespace

const Command SHOW_COMMAND = {"show", "FILE...", "tell what reports hold", Declare, Show};

} // namespace ReportTool
