// Names that are nearly known, where the library doesn't take them.

#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::RunTool;
using ToolTest::ToolRun;

void ExpectStrict(const QByteArray& input, const char* lines)
{
    const ToolRun run = RunTool({"check", "--strict", "-"}, {input, {}, {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), QString::fromUtf8(lines));
    EXPECT_TEXT(run.Errors(), "");
}

TEST(ToolMisspelt, ChildOfAnAreaHasTheLibrarysWordsAndASuggestion)
{
    ExpectStrict("<ReportBase>\n<Area Version=\"1.0\">\n<Name>A</Name>\n <Cordinate/>\n</Area></ReportBase>",
                 "-:4:2: InvalidXmlException: Unknown Tag 'Cordinate' in 'Area'. (area)\n"
                 "-:2:1: OutOfRangeException: Area: Please set Coordinate properly. (area.coordinate)\n"
                 "-:4:2: MisspeltName: there is no element 'Cordinate', did you mean 'Coordinate'? (area = "
                 "\"Cordinate\")\n");
}

TEST(ToolMisspelt, SuggestionIsAWarningBesideTheProblem)
{
    const ToolRun run = RunTool({"check", "-"}, {"<Reportbase/>", {}, {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "-:1:1: NoReport: there is no element 'ReportBase' (\"Reportbase\")\n");
    EXPECT_TEXT(run.Errors(),
                "reporttool: warning: -:1:1: MisspeltName: there is no element 'Reportbase', did "
                "you mean 'ReportBase'? (\"Reportbase\")\n");
}

TEST(ToolMisspelt, ElementOfTheReportWithinOthers)
{
    ExpectStrict("<Mission>\n <ReportsBase/></Mission>",
                 "-:1:1: NoReport: there is no element 'ReportBase' (\"Mission\")\n"
                 "-:2:2: MisspeltName: there is no element 'ReportsBase', did you mean 'ReportBase'? "
                 "(\"ReportsBase\")\n");
}

TEST(ToolMisspelt, NobodyMissesAReportThatIsThere)
{
    const ToolRun run =
        RunTool({"check", "--strict", "-"}, {"<x><Reportbase/><ReportBase/><Reportbase/></x>", {}, {}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
}

} // namespace
