#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace {

using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char TRY_HELP[] = "\nTry 'reporttool --help'.";

TEST(ToolCommandLine, HelpNamesTheCommandsAndTheExitCodes)
{
    const ToolRun run = RunTool({"--help"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
    for (const char* part : {"show FILE...", "list FILE...", "convert IN... OUT --to F", "check FILE...",
                             "diff A B", "grep CONDITION FILE...", "set FILE... PATH=VALUE...",
                             "merge BASE OTHER...", "settings FRAGMENT --dry-run", "Exit codes", "--version"})
        EXPECT_TRUE(run.output.contains(part)) << part;
}

TEST(ToolCommandLine, EveryCommandHasItsOwnHelp)
{
    struct
    {
        const char* command;
        std::initializer_list<const char*> parts;
    } const rows[] = {{"show", {"show FILE...", "--json", "--all", "--dump", "Exit codes"}},
                      {"convert",
                       {"convert IN... OUT", "--to <form>", "--level <level>", "--from <json>", "--recursive",
                        "xml", "plain", "compressed", "json",
                        "it holds a plain representation, or a compressed one if --level", "Exit codes"}},
                      {"check",
                       {"check FILE...", "--json", "--quiet", "--strict", "--no-warnings", "--recursive",
                        "--pattern <pattern>", "--files-from <list>", "--null", "Exit codes"}},
                      {"list", {"list FILE...", "--json", "--csv", "--recursive", "Exit codes"}},
                      {"diff", {"diff A B", "--json", "--recursive", "Exit codes"}},
                      {"grep", {"grep CONDITION FILE...", "contains", "--recursive", "Exit codes"}},
                      {"set",
                       {"set FILE... PATH=VALUE...", "--unset <path>", "-o <out>", "--in-place", "--dry-run",
                        "--recursive", "Exit codes"}},
                      {"merge", {"merge BASE OTHER...", "-o <out>", "Exit codes"}},
                      {"settings", {"settings FRAGMENT", "--dry-run", "Exit codes"}}};
    for (const auto& row : rows) {
        const ToolRun run = RunTool({row.command, "--help"});
        EXPECT_EQ(run.exitCode, 0) << row.command;
        EXPECT_TEXT(run.Errors(), "");
        for (const char* part : row.parts)
            EXPECT_TRUE(run.output.contains(part)) << row.command << ": " << part;
    }
}

TEST(ToolCommandLine, VersionIsThatOfTheProject)
{
    const ToolRun run = RunTool({"--version"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "reporttool " REPORTGENERATOR_TEST_VERSION "\n");
    EXPECT_TEXT(run.Errors(), "");
}

struct WrongUse
{
    const char* name;
    std::vector<const char*> arguments;
    const char* text;
};

void PrintTo(const WrongUse& row, std::ostream* stream)
{
    *stream << row.name;
}

std::string NameOf(const testing::TestParamInfo<WrongUse>& row)
{
    return row.param.name;
}

class ToolUsage : public testing::TestWithParam<WrongUse>
{
};

TEST_P(ToolUsage, IsToldAndEndsWithTwo)
{
    QStringList arguments;
    for (const char* argument : GetParam().arguments)
        arguments << QString::fromUtf8(argument);
    const ToolRun run = ToolTest::RunProgram(QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL), arguments, {});
    EXPECT_UNUSABLE(run, QString::fromUtf8(GetParam().text) + QLatin1String(TRY_HELP));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ToolUsage,
    testing::Values(
        WrongUse{"NoCommand", {}, "no command is given"},
        WrongUse{"UnknownCommand", {"print"}, "no command is called 'print'"},
        WrongUse{"OptionBeforeCommand", {"--json", "show", "a"}, "Unknown option 'json'."},
        WrongUse{"UnknownOption", {"show", "--jsn", "a"}, "Unknown option 'jsn'. Did you mean '--json'?"},
        WrongUse{"OptionOfAnotherCommand", {"check", "--dump", "a"}, "Unknown option 'dump'."},
        WrongUse{"ShowWithoutFile", {"show"}, "no file is given"},
        WrongUse{"CheckWithoutFile", {"check"}, "no file is given"},
        WrongUse{"CheckOfInputTwice", {"check", "-", "-"}, "standard input can be read only once"},
        WrongUse{"CheckOfInputAsFileAndList",
                 {"check", "-", "--files-from", "-"},
                 "standard input can be read only once"},
        WrongUse{
            "PatternWithoutFolders", {"check", "--pattern", "*", "a"}, "--pattern is for folders, with -r"},
        WrongUse{"PatternTwice",
                 {"check", "-r", "--pattern", "*.a", "--pattern", "*.b", "a"},
                 "--pattern is given more than once"},
        WrongUse{"ListTwice",
                 {"check", "--files-from", "a", "--files-from", "b"},
                 "--files-from is given more than once"},
        WrongUse{
            "FormTwice", {"convert", "a", "b", "--to", "xml", "--to=plain"}, "--to is given more than once"},
        WrongUse{"OutputTwice",
                 {"export", "a", "--to", "wkt", "-o", "b", "--output", "c"},
                 "--output is given more than once"},
        WrongUse{"OutputOfSetTwice",
                 {"set", "a", "area.name=b", "-o", "c", "-o", "d"},
                 "-o is given more than once"},
        WrongUse{"NulsWithoutList", {"check", "-0", "a"}, "-0 is for --files-from"},
        WrongUse{
            "JsonAndQuiet", {"check", "--json", "--quiet", "a"}, "--json and --quiet do not go together"},
        WrongUse{"StrictWithoutWarnings",
                 {"check", "--strict", "--no-warnings", "a"},
                 "--strict and --no-warnings do not go together"},
        WrongUse{"JsonAndDump", {"show", "--json", "--dump", "a"}, "--json and --dump do not go together"},
        WrongUse{"ConvertWithoutOut", {"convert", "a", "--to", "xml"}, "convert takes IN and OUT"},
        WrongUse{"ConvertFromKnownForm",
                 {"convert", "a", "b", "--from", "xml"},
                 "--from is for json; other forms are recognised"},
        WrongUse{"LevelWithoutForm",
                 {"convert", "--from", "json", "a", "b", "--level", "1"},
                 "--level goes with --to"},
        WrongUse{"LevelForJson",
                 {"convert", "a", "b", "--to", "json", "--level", "1"},
                 "--level is for compressed forms"},
        WrongUse{"ConvertWithoutForm", {"convert", "a", "b"}, "--to is missing"},
        WrongUse{"FormMissing", {"convert", "a", "b", "--to"}, "Missing value after '--to'."},
        WrongUse{"FormUnknown", {"convert", "a", "b", "--to", "pdf"}, "no form is called 'pdf'"},
        WrongUse{"LevelForXml",
                 {"convert", "a", "b", "--to", "xml", "--level", "1"},
                 "--level is for compressed forms"},
        WrongUse{"LevelForPlain",
                 {"convert", "a", "b", "--to", "plain", "--level", "1"},
                 "--level is for compressed forms"},
        WrongUse{"LevelTooHigh",
                 {"convert", "a", "b", "--to", "file", "--level", "10"},
                 "a level is a number from -1 to 9, not '10'"},
        WrongUse{"LevelTooLow",
                 {"convert", "a", "b", "--to", "file", "--level", "-2"},
                 "a level is a number from -1 to 9, not '-2'"},
        WrongUse{"LevelNoNumber",
                 {"convert", "a", "b", "--to", "file", "--level", "best"},
                 "a level is a number from -1 to 9, not 'best'"}),
    NameOf);

TEST(ToolCommandLine, DoubleDashEndsTheOptions)
{
    const Scratch scratch;
    scratch.Write("--json", "<ReportBase/>");
    const ToolRun run = RunTool({"check", "--", "--json"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");

    const ToolRun inFront = RunTool({"--", "check", "--json"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(inFront.exitCode, 0);
    EXPECT_TEXT(inFront.Errors(), "");
}

TEST(ToolCommandLine, FileWithADashInFrontIsHintedAt)
{
    const Scratch scratch;
    scratch.Write("-n.xml", "<ReportBase/>");
    EXPECT_UNUSABLE(RunTool({"check", "-n.xml"}, {{}, scratch.Folder(), {}}),
                    QStringLiteral("Unknown options: n, ., x, m, l. There is a file of that name: write "
                                   "'./-n.xml', or '--' before it.") +
                        QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunTool({"check", "-m", "--", "-n.xml"}, {{}, scratch.Folder(), {}}),
                    QStringLiteral("Unknown option 'm'.") + QLatin1String(TRY_HELP));
    EXPECT_EQ(RunTool({"check", "./-n.xml"}, {{}, scratch.Folder(), {}}).exitCode, 0);
}

TEST(ToolCommandLine, FileNamesBeyondAsciiWorkInThePlainLocale)
{
    const Scratch scratch;
    const QString path = scratch.Write("Zürich.xml", "<ReportBase><Area/></ReportBase>");
    const ToolRun run = RunTool({"check", path}, {{}, {}, QStringLiteral("C")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(
        run.Output(),
        path + QStringLiteral(":1:13: OutOfRangeException: Area: Please set Name properly. (area.name)\n") +
            path +
            QStringLiteral(
                ":1:13: OutOfRangeException: Area: Please set Coordinate properly. (area.coordinate)\n"));
    EXPECT_TEXT(run.Errors(), "");
}

} // namespace
