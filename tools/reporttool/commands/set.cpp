#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/parser.h>
#include <reporttool/reportchoice.h>
#include <reporttool/reportoutput.h>

#include <reportcore/files.h>
#include <reportcore/reportfields.h>
#include <reportcore/reportfile.h>
#include <reportcore/texts.h>

#include <reportgenerator/reportbase/reportexception.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace ReportTool {

using ReportCore::FieldPath;
using ReportCore::Problem;
using ReportCore::ReportFile;

namespace {

constexpr char DESCRIPTION[] =
    "Sets and unsets fields of a report and writes it to OUT, in the form that it had. Fields are\n"
    "named by their paths, as in frequency.value=121.5MHz, area.name=Lake and\n"
    "area.coordinate[17].latitude=47.5. What the field's own setter refuses is refused here. First\n"
    "all values are set, then fields are unset; items keep their numbers until then.\n"
    "\n"
    "A report in which 'check' finds a problem is not changed, unless the problem is about a field\n"
    "that is set or unset. What else the file holds, and values that read as others, are dropped\n"
    "only with --discard.\n"
    "\n"
    "Exit codes: 0 OUT is written, 1 the report is invalid, a value is refused or something would be\n"
    "discarded, 2 a file cannot be read or written or the command line is wrong.";

struct Assignment
{
    FieldPath path;
    QVariant value;
};

struct Request
{
    QString input;
    QString output;
    std::vector<Assignment> assignments;
    std::vector<FieldPath> unset;
};

FieldPath PathOf(const QString& text)
{
    try {
        return FieldPath::Parse(ReportCore::ReportInfo(), text);
    } catch (const ReportCore::PathError& error) {
        throw UsageError{error.text};
    }
}

Assignment AssignmentOf(const QString& argument)
{
    const auto sign = argument.indexOf(QLatin1Char('='));
    if (sign < 0)
        throw UsageError{QStringLiteral("'%1' is no assignment: PATH=VALUE").arg(argument)};
    const FieldPath path = PathOf(argument.left(sign));
    const QString text = argument.mid(sign + 1);
    const ReportCore::Field& field = *path.Last().field;
    try {
        const QVariant value = field.ValueOf(text);
        if (value.userType() == QMetaType::Double && !std::isfinite(value.toDouble()))
            throw UsageError{QStringLiteral("%1: %2 is a number, not %3")
                                 .arg(path.Text(), field.Name(), ReportCore::Quoted(text))};
        return {path, value};
    } catch (const ReportException& refused) {
        throw UsageError{QStringLiteral("%1: %2").arg(path.Text(), refused.GetErrorText())};
    }
}

/// In the order in which they can be unset by these paths, each of them once. What is unset within an item goes before
/// items are removed; of several items the last one goes first, so that the others keep their numbers.
std::vector<FieldPath> InOrderOfUnsetting(const std::vector<FieldPath>& paths)
{
    std::vector<FieldPath> ordered;
    for (const FieldPath& path : paths) {
        if (std::find(ordered.begin(), ordered.end(), path) == ordered.end())
            ordered.push_back(path);
    }
    const auto items = std::stable_partition(ordered.begin(), ordered.end(),
                                             [](const FieldPath& path) { return !path.IsItem(); });
    std::stable_sort(items, ordered.end(), [](const FieldPath& left, const FieldPath& right) {
        return left.Last().index > right.Last().index;
    });
    return ordered;
}

Request RequestOf(const Parser& parser)
{
    QStringList arguments = parser.Arguments();
    if (arguments.isEmpty())
        throw UsageError{QStringLiteral("no file is given")};
    if (!parser.Has("o"))
        throw UsageError{QStringLiteral("-o is missing")};
    Request request;
    request.input = arguments.takeFirst();
    request.output = parser.Value("o");
    for (const QString& argument : arguments)
        request.assignments.push_back(AssignmentOf(argument));
    std::vector<FieldPath> unset;
    for (const QString& path : parser.Values("unset"))
        unset.push_back(PathOf(path));
    request.unset = InOrderOfUnsetting(unset);
    if (request.assignments.empty() && request.unset.empty())
        throw UsageError{QStringLiteral("there is nothing to set")};
    return request;
}

/// Whether the change does away with the problem, as far as one can tell beforehand. A file whose bytes are damaged may
/// have lost more than the field.
bool IsMended(const Problem& problem, const Request& request)
{
    if (problem.path.isEmpty() || problem.name == QLatin1String(ReportCore::LENGTH_MISMATCH))
        return false;
    const FieldPath path = FieldPath::Parse(ReportCore::ReportInfo(), problem.path);
    return std::any_of(request.assignments.begin(), request.assignments.end(),
                       [&path](const Assignment& assignment) { return assignment.path == path; }) ||
           std::any_of(request.unset.begin(), request.unset.end(),
                       [&path](const FieldPath& unset) { return unset.IsAbove(path); });
}

bool IsUsable(ChosenReport& report, const Request& request, Console& console)
{
    bool isUsable = true;
    for (const Problem& problem : report.file.problems) {
        if (IsMended(problem, request))
            continue;
        console.Complain(request.input, problem);
        isUsable = false;
    }
    ReportCore::Problems& losses = report.losses;
    losses.erase(std::remove_if(losses.begin(), losses.end(),
                                [&request](const Problem& loss) { return IsMended(loss, request); }),
                 losses.end());
    return isUsable && IsWhole(request.input, report, console);
}

/// What isn't set can be unset all the same; but whoever names an item means one that is there.
void RequireItems(const REPORTGENERATOR::ReportBase& report, const FieldPath& path)
{
    FieldPath way;
    for (int i = 0; i < path.Size(); ++i) {
        way.Enter(*path.At(i).field, path.At(i).index);
        if (way.IsItem() && !ReportCore::IsSet(report, way))
            throw RGException(QStringLiteral("there is no %1").arg(path.Text()));
    }
}

bool Change(ReportFile& file, const Request& request, Console& console)
{
    QString path;
    try {
        for (const Assignment& assignment : request.assignments) {
            path = assignment.path.Text();
            ReportCore::SetValue(file.report, assignment.path, assignment.value);
        }
        for (const FieldPath& unset : request.unset) {
            path = unset.Text();
            RequireItems(file.report, unset);
        }
        for (const FieldPath& unset : request.unset) {
            path = unset.Text();
            ReportCore::Unset(file.report, unset);
        }
    } catch (const ReportException& refused) {
        console.Complain(
            request.input,
            QStringLiteral("%1: %2: %3").arg(path, refused.GetErrorName(), refused.GetErrorText()));
        return false;
    }
    return true;
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddArgument("FILE", "Report; - stands for standard input.", "FILE");
    parser.AddArgument("PATH=VALUE", "Field and its new value.", "PATH=VALUE...", Candidates::Assignments());
    parser.AddRepeatedOption("unset", "Unset this field; may be given several times.", "path",
                             Candidates::FieldPaths());
    parser.AddOption("o", "File to write; - stands for standard output.", "out", Candidates::Files());
    AddReportNumber(parser);
    AddDiscard(parser);
    AddForce(parser);
    parser.AddExample("set lake.xml frequency.value=121.5e6 -o lake.xml", "Change a field.");
    parser.AddExample("set lake.xml --unset area.scriptId -o out.xml", "Take a field out.");
}

int Set(const Parser& parser, Console& console)
{
    const Request request = RequestOf(parser);
    std::vector<ChosenReport> reports =
        ReadForWriting(request.input, request.output, ChoiceOf(parser), console);
    if (reports.empty() || !IsUsable(reports.front(), request, console))
        return EXIT_INVALID;
    ReportFile& file = reports.front().file;
    if (!Change(file, request, console))
        return EXIT_INVALID;
    return PutReport(file.report, file.form, -1, request.output, TerminalsOf(parser), console);
}

} // namespace

const Command SET_COMMAND = {"set", "FILE PATH=VALUE...", "set and unset fields of a report", Declare, Set};

} // namespace ReportTool
