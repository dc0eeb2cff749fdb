#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/manyfiles.h>
#include <reporttool/parser.h>

#include <reportcore/jsonwriting.h>
#include <reportcore/lint.h>
#include <reportcore/reportfile.h>
#include <reportcore/reportjson.h>

#include <QtCore/QJsonDocument>

namespace ReportTool {

using ReportCore::Look;
using ReportCore::Problem;
using ReportCore::Problems;

namespace {

constexpr char DESCRIPTION[] =
    "Tells what is wrong with reports, one line for each problem: file, place, name of the error,\n"
    "text, and the field with the value that was found. The place is line and column in XML, and\n"
    "an offset in binary forms. Prints nothing for a good report. Of several files, a summary\n"
    "goes to standard error.\n"
    "\n"
    "What can be read, but what hardly anybody means, is a warning on standard error: a text that\n"
    "is no number, a name that differs a little from a known one, elements that come twice, a\n"
    "second report, bounds that contradict each other or their value, unknown entities, areas of\n"
    "fewer than three points and edges that meet.\n"
    "\n"
    "Exit codes: 0 all reports are good, 1 a report is invalid, 2 a file cannot be read or the\n"
    "command line is wrong.";

struct Options
{
    bool asJson = false;
    bool isQuiet = false;
    bool isStrict = false;
    bool hasWarnings = true;
};

/// One line for programs. All keys are always there.
void JsonLine(const QString& name, QJsonObject json, const QJsonValue& error, Console& console)
{
    ReportCore::InsertFileName(json, QStringLiteral("file"), name);
    json.insert(QStringLiteral("error"), error);
    console.Output().Bytes(ReportCore::JsonBytes(QJsonDocument(json), QJsonDocument::Compact) + '\n');
}

/// The same keys without a problem.
QJsonObject NoProblem()
{
    QJsonObject json = ReportCore::ProblemToJson({});
    for (const QString& key : json.keys())
        json[key] = QJsonValue();
    return json;
}

int CheckFile(const QString& name, const Options& options, Console& console)
{
    QByteArray bytes;
    QString error;
    if (!console.Read(name, bytes, error)) {
        if (options.asJson)
            JsonLine(name, NoProblem(), error, console);
        return EXIT_UNUSABLE;
    }
    const ReportCore::ReportFile file = ReportCore::ReadReport(bytes);
    Problems problems = file.problems;
    if (options.isStrict) {
        const Problems lint = ReportCore::FindLint(bytes, file, Look::Thorough);
        problems.insert(problems.end(), lint.begin(), lint.end());
    }
    for (const Problem& problem : problems) {
        if (options.asJson)
            JsonLine(name, ReportCore::ProblemToJson(problem), QJsonValue(), console);
        else if (!options.isQuiet)
            console.Tell(name, problem);
    }
    if (!options.isStrict && !options.isQuiet && options.hasWarnings) {
        for (const Problem& warning : ReportCore::FindLint(bytes, file, Look::Quick))
            console.Complain(QStringLiteral("warning: ") + FileLine(name, warning));
    }
    return problems.empty() ? EXIT_GOOD : EXIT_INVALID;
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddFiles();
    parser.AddSwitch("json", "Write a JSON object for each problem, one a line.");
    parser.AddSwitch("quiet", "Write nothing, but why a file cannot be read; the exit code tells the rest.");
    parser.AddSwitch("strict",
                     "What would be warnings are problems, and are looked for in large reports too.");
    parser.AddSwitch("no-warnings", "Write no warnings.");
    parser.AddExample("check lake.xml", "Tell what is wrong with one report.");
    parser.AddExample("check --strict -r reports", "Look through a folder, for what is hardly meant too.");
}

int Check(const Parser& parser, Console& console)
{
    if (parser.Has("json") && parser.Has("quiet"))
        throw UsageError{QStringLiteral("--json and --quiet do not go together")};
    if (parser.Has("strict") && parser.Has("no-warnings"))
        throw UsageError{QStringLiteral("--strict and --no-warnings do not go together")};
    const Options options = {parser.Has("json"), parser.Has("quiet"), parser.Has("strict"),
                             !parser.Has("no-warnings")};
    const QStringList names = parser.Files();
    const std::vector<int> exitCodes =
        DoForEach(static_cast<int>(names.size()), console, [&](int number, Console& toConsole) {
            return CheckFile(names.at(number), options, toConsole);
        });
    if (names.size() > 1 && !options.isQuiet)
        Summarise(exitCodes,
                  {{"good", CountOf(exitCodes, EXIT_GOOD)},
                   {"invalid", CountOf(exitCodes, EXIT_INVALID)},
                   {"unreadable", CountOf(exitCodes, EXIT_UNUSABLE)}},
                  console);
    return ExitCodeOf(exitCodes, static_cast<int>(names.size()));
}

} // namespace

const Command CHECK_COMMAND = {"check", "FILE...", "tell what is wrong with reports", Declare, Check};

} // namespace ReportTool
