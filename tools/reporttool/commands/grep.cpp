#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/manyfiles.h>
#include <reporttool/parser.h>

#include <reportcore/condition.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reflection/reportfields.h>

#include <algorithm>

namespace ReportTool {

using ReportCore::Condition;

namespace {

constexpr char DESCRIPTION[] =
    "Prints the names of the files whose reports fulfil a condition:\n"
    "\n"
    "  frequency.value in 118e6..137e6       both ends belong to it\n"
    "  ifBandwidth.value <= 25 kHz           also =, !=, <, >, >=; Hz, kHz, MHz, GHz\n"
    "  area.name = \"Lake\"                    texts stand in quotes\n"
    "  area.name ~ \"(?i)lake\"                regular expression\n"
    "  frequency.use = true\n"
    "  area contains 9.5,47.5                longitude,latitude: within the area or on its edge\n"
    "  area.scriptId set, area unset\n"
    "\n"
    "They are joined by 'not', 'and' and 'or', which bind in this order, and by parentheses. What\n"
    "is not set fulfils nothing but 'unset'. A report with problems counts as far as it can be\n"
    "read, and a file that is no report at all fulfils nothing.\n"
    "\n"
    "Exit codes: 0 a report fulfils it, 1 none does, 2 a file cannot be read or the command line\n"
    "is wrong.";

Condition ConditionOf(const QString& text)
{
    try {
        return Condition::Parse(ReportCore::ReportInfo(), text);
    } catch (const ReportCore::ConditionError& error) {
        throw UsageError{QStringLiteral("condition, column %1: %2").arg(error.column).arg(error.text)};
    }
}

int Look(const QString& name, const Condition& condition, bool hasNuls, Console& console)
{
    QByteArray bytes;
    QString error;
    if (!console.Read(name, bytes, error))
        return EXIT_UNUSABLE;
    const ReportCore::ReportFile file = ReportCore::ReadReport(bytes);
    if (file.form.form == ReportCore::Form::Unknown || !condition.IsTrueOf(file.report))
        return EXIT_INVALID;
    console.Output().FileName(name);
    console.Output().Bytes(hasNuls ? QByteArray(1, '\0') : QByteArrayLiteral("\n"));
    return EXIT_GOOD;
}

void Declare(Parser& parser)
{
    parser.SetDescription(DESCRIPTION);
    parser.AddArgument("CONDITION", "What the reports are to fulfil.", "CONDITION", Candidates::FieldPaths());
    parser.AddFilesToName();
    parser.AddExample("grep 'frequency.value in 118e6..137e6' -r reports", "Find the reports of a band.");
    parser.AddExample("grep -0 'frequency set' -r reports | xargs -0 ls -l",
                      "Hand what is found to another program, whatever its name.");
    parser.AddExample("grep 'area contains 9.5,47.6' -r reports", "Find the reports of a place.");
}

int Grep(const Parser& parser, Console& console)
{
    QStringList files = parser.Arguments();
    if (files.isEmpty())
        throw UsageError{QStringLiteral("no condition is given")};
    const Condition condition = ConditionOf(files.takeFirst());
    const QStringList names = parser.FilesAmong(files);
    const bool hasNuls = parser.HasNuls();
    const std::vector<int> exitCodes =
        DoForEach(static_cast<int>(names.size()), console, [&](int number, Console& fileConsole) {
            return Look(names.at(number), condition, hasNuls, fileConsole);
        });
    const int greatest = ExitCodeOf(exitCodes, static_cast<int>(names.size()));
    if (greatest == EXIT_UNUSABLE)
        return EXIT_UNUSABLE;
    const bool isFound = std::find(exitCodes.begin(), exitCodes.end(), EXIT_GOOD) != exitCodes.end();
    return isFound ? EXIT_GOOD : EXIT_INVALID;
}

} // namespace

const Command GREP_COMMAND = {"grep", "CONDITION FILE...", "find reports that fulfil a condition", Declare,
                              Grep};

} // namespace ReportTool
