#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/goodreport.h>
#include <reporttool/parser.h>

#include <reportcore/differences.h>
#include <reportcore/files.h>
#include <reportcore/reportfields.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace ReportTool {

using ReportCore::Change;
using ReportCore::Difference;
using ReportCore::Differences;

namespace {

constexpr char DESCRIPTION[] =
    "Tells in which fields and coordinates two reports differ, whatever their forms. A line begins\n"
    "with - for what only A has, + for what only B has, and ! for what is another in B. Numbers\n"
    "count as they are written, with two or six decimals.\n"
    "\n"
    "Exit codes: 0 the reports are the same, 1 they differ, 2 a report cannot be read or is\n"
    "invalid, or the command line is wrong.";

QLatin1String NameOf(Change change)
{
    switch (change) {
    case Change::Removed:
        return QLatin1String("removed");
    case Change::Added:
        return QLatin1String("added");
    case Change::Changed:
        break;
    }
    return QLatin1String("changed");
}

QJsonValue PathOrNull(const ReportCore::FieldPath& path)
{
    return path.IsEmpty() ? QJsonValue() : QJsonValue(path.Text());
}

QJsonObject ToJson(const Difference& difference)
{
    return {{QStringLiteral("change"), NameOf(difference.change)},
            {QStringLiteral("pathInA"), PathOrNull(difference.left)},
            {QStringLiteral("pathInB"), PathOrNull(difference.right)},
            {QStringLiteral("valueInA"), difference.leftJson},
            {QStringLiteral("valueInB"), difference.rightJson}};
}

void WriteJson(const QStringList& files, const Differences& differences, Console& console)
{
    QJsonArray json;
    for (const Difference& difference : differences)
        json.append(ToJson(difference));
    const QJsonObject whole = {{QStringLiteral("a"), files.at(0)},
                               {QStringLiteral("b"), files.at(1)},
                               {QStringLiteral("same"), differences.empty()},
                               {QStringLiteral("differences"), json}};
    console.Output().Bytes(QJsonDocument(whole).toJson());
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddArgument("A", "Report; - stands for standard input.", "A");
    parser.AddArgument("B", "Report; - stands for standard input.", "B");
    parser.AddSwitch("json", "Write a JSON object with all differences.");
    parser.AddExample("diff lake.xml lake.bin", "Tell in what two reports differ.");
}

int Diff(const Parser& parser, Console& console)
{
    const QStringList files = parser.Arguments();
    if (files.size() != 2)
        throw UsageError{QStringLiteral("diff takes A and B")};
    if (ReportCore::IsStandardStream(files.at(0)) && ReportCore::IsStandardStream(files.at(1)))
        throw UsageError{QStringLiteral("standard input can be read only once")};
    const auto left = ReadGoodReport(files.at(0), console);
    const auto right = ReadGoodReport(files.at(1), console);
    if (!left || !right)
        return EXIT_UNUSABLE;
    const Differences differences =
        ReportCore::FindDifferences(left->report, right->report, ReportCore::ReportInfo());
    if (parser.Has("json")) {
        WriteJson(files, differences, console);
    } else {
        for (const Difference& difference : differences)
            console.Output().Line(ReportCore::DifferenceLine(difference));
    }
    return differences.empty() ? EXIT_GOOD : EXIT_INVALID;
}

} // namespace

const Command DIFF_COMMAND = {"diff", "A B", "tell in what two reports differ", Declare, Diff};

} // namespace ReportTool
