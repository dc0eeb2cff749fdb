#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/fieldchanges.h>
#include <reporttool/manyfiles.h>
#include <reporttool/outputfolder.h>
#include <reporttool/parser.h>
#include <reporttool/reportchoice.h>
#include <reporttool/reportoutput.h>

#include <reportcore/differences.h>
#include <reportcore/files.h>

#include <reportgenerator/reflection/reportfields.h>

#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QSet>

#include <algorithm>

namespace ReportTool {

using ReportCore::Differences;
using ReportCore::Problem;
using REPORTGENERATOR::ReportBase;

namespace {

constexpr char DESCRIPTION[] =
    "Sets and unsets fields of reports, in the form that they have. Fields are named by their\n"
    "paths, as in frequency.value=121.5MHz, area.name=Lake and area.coordinate[17].latitude=47.5.\n"
    "What the field's own setter refuses is refused here. First all values are set, then fields are\n"
    "unset; items keep their numbers until then.\n"
    "\n"
    "One report is written to OUT. Several, those of folders and lists among them, are changed in\n"
    "place with --in-place, or written under their names into the folder OUT. In place a file that\n"
    "has the values already stays as it is. A file behind the first one whose name holds an equals\n"
    "sign is written with its folder, as in ./a=b.xml.\n"
    "\n"
    "A report in which 'check' finds a problem is not changed, unless the problem is about a field\n"
    "that is set or unset. What else the file holds, and values that read as others, are dropped\n"
    "only with --discard.\n"
    "\n"
    "Exit codes: 0 all is set, 1 a report is invalid, a value is refused or something would be\n"
    "discarded, 2 a file cannot be read or written or the command line is wrong.";

struct Request
{
    FieldChanges changes;
    QStringList inputs = {};
    QString output = {};                  ///< of a single one
    QHash<QString, QString> outputs = {}; ///< of those that go into a folder
    bool isInPlace = false;
    bool isDryRun = false;
    ReportChoice choice = {};
    ReportCore::Terminals terminals = ReportCore::Terminals::Refused;

    QString OutputOf(const QString& input) const { return isInPlace ? input : outputs.value(input, output); }

    /// A single file that is written is written in any case.
    bool AsksForDifferences() const { return isInPlace || isDryRun || inputs.size() > 1; }
};

// --- What is asked for

/// A field's path holds no slash.
bool IsAssignment(const QString& argument)
{
    return argument.section(QLatin1Char('='), 0, 0).size() < argument.size() &&
           !argument.section(QLatin1Char('='), 0, 0).contains(QLatin1Char('/'));
}

/// The path of a field, and no file: an assignment that lacks its value.
bool IsPath(const QString& argument)
{
    try {
        ReportCore::FieldPath::Parse(ReportCore::ReportInfo(), argument);
        return !QFileInfo::exists(argument);
    } catch (const ReportCore::PathError&) {
        return false;
    }
}

/// How many arguments name files. The first one does, unless a list names others.
int CountOfFiles(const QStringList& arguments, bool hasList)
{
    const auto first = arguments.begin() + (hasList || arguments.isEmpty() ? 0 : 1);
    const auto end = std::find_if(first, arguments.end(), [](const QString& argument) {
        return IsAssignment(argument) || IsPath(argument);
    });
    return static_cast<int>(end - arguments.begin());
}

/// Without those that lead to the same file as one before.
QStringList EachOnce(const QStringList& names)
{
    QStringList once;
    QSet<QString> seen;
    for (const QString& name : names) {
        const QString file = QFileInfo(name).canonicalFilePath();
        if (file.isEmpty() || !seen.contains(file))
            once << name;
        seen.insert(file);
    }
    return once;
}

Request RequestOf(const Parser& parser)
{
    const QStringList arguments = parser.Arguments();
    const int count = CountOfFiles(arguments, parser.Has("files-from"));
    const QStringList files = arguments.mid(0, count);
    const QStringList inputs = parser.FilesAmong(files);
    const QString output = parser.Value("o");
    const bool areMany = parser.NamesMoreFiles() || count > 1 || output.endsWith(QLatin1Char('/'));
    const bool hasOutput = parser.Has("o");
    if (hasOutput && parser.Has("in-place"))
        throw UsageError{QStringLiteral("-o and --in-place do not go together")};
    if (!hasOutput && !parser.Has("in-place") && !parser.Has("dry-run"))
        throw UsageError{areMany ? QStringLiteral("-o or --in-place is missing")
                                 : QStringLiteral("-o is missing")};
    Request request = {FieldChanges(arguments.mid(count), parser.Values("unset"))};
    request.isInPlace = !hasOutput;
    request.isDryRun = parser.Has("dry-run");
    request.choice = ChoiceOf(parser);
    request.terminals = TerminalsOf(parser);
    request.inputs = request.isInPlace ? EachOnce(inputs) : inputs;
    if (request.isInPlace && !request.isDryRun &&
        std::any_of(inputs.begin(), inputs.end(), ReportCore::IsStandardStream))
        throw UsageError{QStringLiteral("standard input cannot be changed in place")};
    if (hasOutput && areMany)
        request.outputs =
            OutputsIn(output, inputs, [](const QString& input) { return QFileInfo(input).fileName(); });
    else
        request.output = output;
    return request;
}

// --- Doing it

/// Complains about problems that are still there afterwards.
bool IsUsable(const ChosenReport& report, const QString& input, const Request& request, Console& console)
{
    bool isUsable = true;
    for (const Problem& problem : report.file.problems) {
        if (request.changes.Mend(problem))
            continue;
        console.Complain(input, problem);
        isUsable = false;
    }
    return isUsable;
}

/// Whether the file would say the same as before. One that says something else than what was read from it doesn't, nor
/// does one of which that isn't known.
bool StaysAsItIs(const ChosenReport& report, const Differences& differences, const Request& request)
{
    if (!differences.empty() || !report.file.IsGood())
        return false;
    if (request.choice.discards)
        return report.losses.empty();
    return std::none_of(report.losses.begin(), report.losses.end(),
                        [&request](const Problem& loss) { return request.changes.Mend(loss); });
}

/// Its result is whether there is something to change.
FileResult SetFile(const QString& input, const Request& request, Console& console)
{
    const QString output = request.OutputOf(input);
    std::vector<ChosenReport> reports = ReadForWriting(input, output, request.choice, console);
    if (reports.empty() || !IsUsable(reports.front(), input, request, console))
        return {EXIT_INVALID};
    ChosenReport& report = reports.front();
    const ReportBase before(report.file.report);
    ReportBase& after = report.file.report;
    if (!request.changes.MakeIn(after, input, console))
        return {EXIT_INVALID};
    const Differences differences = request.AsksForDifferences()
                                        ? ReportCore::FindDifferences(before, after, ReportCore::ReportInfo())
                                        : Differences();
    const bool isChanged = !StaysAsItIs(report, differences, request);
    if (!isChanged && request.isInPlace)
        return {EXIT_GOOD, false};
    ReportCore::Problems& losses = report.losses;
    losses.erase(std::remove_if(losses.begin(), losses.end(),
                                [&request](const Problem& loss) {
                                    return request.choice.discards || request.changes.Mend(loss);
                                }),
                 losses.end());
    if (!IsWhole(input, report, console))
        return {EXIT_INVALID};
    const auto bytes = BytesOf(after, report.file.form, -1, output, console);
    if (!bytes)
        return {EXIT_INVALID};
    if (!request.isDryRun)
        PutBytes(*bytes, report.file.form, output, request.terminals);
    else
        for (const QString& line : ReportCore::DifferenceLines(differences))
            console.Tell(input, line);
    return {EXIT_GOOD, isChanged};
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddArgument("FILE", "Reports; - stands for standard input.", "FILE...");
    parser.AddArgument("PATH=VALUE", "Field and its new value.", "PATH=VALUE...", Candidates::Assignments());
    parser.AddRepeatedOption("unset", "Unset this field; may be given several times.", "path",
                             Candidates::FieldPaths());
    parser.AddOption("o", "File to write, - for standard output; or the folder to write to.", "out",
                     Candidates::Files());
    parser.AddSwitch("in-place", "Change the files themselves.");
    AddDryRun(parser);
    parser.AddFileOptions();
    AddReportNumber(parser);
    AddDiscard(parser);
    AddForce(parser);
    parser.AddExample("set lake.xml frequency.value=121.5e6 -o lake.xml", "Change a field.");
    parser.AddExample("set lake.xml --unset area.scriptId -o out.xml", "Take a field out.");
    parser.AddExample("set -r reports frequency.use=true --dry-run",
                      "Tell what would change in a folder of reports.");
}

int Set(const Parser& parser, Console& console)
{
    const Request request = RequestOf(parser);
    const int count = static_cast<int>(request.inputs.size());
    qint64 changed = 0;
    const std::vector<int> exitCodes =
        DoForEach(count, console, Complaining([&request](int number, Console& fileConsole) {
                      return SetFile(request.inputs.at(number), request, fileConsole);
                  }),
                  [&changed](std::any& result) {
                      const auto* const isChanged = std::any_cast<bool>(&result);
                      changed += isChanged && *isChanged ? 1 : 0;
                  });
    if (count > 1)
        Summarise(exitCodes,
                  {{request.isDryRun ? "would be changed" : "changed", changed},
                   {"unchanged", CountOf(exitCodes, EXIT_GOOD) - changed},
                   {"refused", CountOf(exitCodes, EXIT_INVALID)},
                   {"unusable", CountOf(exitCodes, EXIT_UNUSABLE)}},
                  console);
    return ExitCodeOf(exitCodes, count);
}

} // namespace

const Command SET_COMMAND = {"set", "FILE... PATH=VALUE...", "set and unset fields of reports", Declare, Set};

} // namespace ReportTool
