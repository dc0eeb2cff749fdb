#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/parser.h>
#include <reporttool/reportchoice.h>
#include <reporttool/reportoutput.h>

#include <reportcore/differences.h>
#include <reportcore/files.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <algorithm>

namespace ReportTool {

using REPORTGENERATOR::ReportBase;

namespace {

constexpr char DESCRIPTION[] =
    "Lays one report after the other over BASE and writes the outcome to OUT, in the form of BASE:\n"
    "fields that a report has replace those that were there, coordinates are appended. What was\n"
    "replaced (!) and added (+) is told on standard error, a line each. What else the files hold, and\n"
    "values that read as others, are dropped only with --discard.\n"
    "\n"
    "Exit codes: 0 OUT is written, 1 a report is invalid or something would be discarded, 2 a file\n"
    "cannot be read or written or the command line is wrong.";

bool Merge(ReportBase& base, const ReportBase& other, const QString& file, Console& console)
{
    const ReportBase before(base);
    try {
        if (!base.MergeRGObject(other)) {
            console.Complain(file, QStringLiteral("cannot be merged"));
            return false;
        }
    } catch (const ReportException& refused) {
        console.Complain(file, QStringLiteral("%1: %2").arg(refused.GetErrorName(), refused.GetErrorText()));
        return false;
    }
    const auto differences = ReportCore::FindDifferences(before, base, ReportCore::ReportInfo());
    for (const QString& line : ReportCore::DifferenceLines(differences))
        console.ErrorLine(FileLine(file, line));
    return true;
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddArgument("BASE", "Report; - stands for standard input.", "BASE");
    parser.AddArgument("OTHER", "Reports to lay over it; - stands for standard input.", "OTHER...");
    parser.AddOption("o", "File to write; - stands for standard output.", "out", Candidates::Files());
    AddDiscard(parser);
    AddForce(parser);
    parser.AddExample("merge base.xml other.xml -o out.xml", "Lay a report over another one.");
}

int RunMerge(const Parser& parser, Console& console)
{
    const QStringList files = parser.Arguments();
    if (files.size() < 2)
        throw UsageError{QStringLiteral("merge takes BASE and OTHER")};
    if (!parser.Has("o"))
        throw UsageError{QStringLiteral("-o is missing")};
    if (std::count_if(files.begin(), files.end(), ReportCore::IsStandardStream) > 1)
        throw UsageError{QStringLiteral("standard input can be read only once")};
    const QString output = parser.Value("o");
    const ReportChoice choice = ChoiceOf(parser);
    GoodReports base = ReadGoodReports(files.first(), output, choice, console);
    bool isMerged = base.areAll;
    for (const QString& file : files.mid(1)) {
        const GoodReports other = ReadGoodReports(file, output, choice, console);
        isMerged = other.areAll && isMerged &&
                   Merge(base.reports.front().file.report, other.reports.front().file.report, file, console);
    }
    if (!isMerged)
        return EXIT_INVALID;
    const ReportCore::ReportFile& merged = base.reports.front().file;
    return PutReport(merged.report, merged.form, -1, output, TerminalsOf(parser), console);
}

} // namespace

const Command MERGE_COMMAND = {"merge", "BASE OTHER...", "lay reports over another", Declare, RunMerge};

} // namespace ReportTool
