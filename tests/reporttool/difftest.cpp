#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::FullCompressed;
using ToolTest::FullPlain;
using ToolTest::FullXml;
using ToolTest::InFile;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

QByteArray Point(const char* longitude, const char* latitude)
{
    return QByteArray("<Coordinate><Longitude>") + longitude + "</Longitude><Latitude>" + latitude +
           "</Latitude></Coordinate>";
}

QByteArray WithArea(const QByteArray& points)
{
    return "<ReportBase><Area Version=\"1.0\"><Name>A</Name>" + points + "</Area></ReportBase>";
}

/// Expects these lines of the comparison of two reports.
void ExpectDifferences(const QByteArray& left, const QByteArray& right, const char* lines)
{
    const Scratch scratch;
    const ToolRun run = RunTool({"diff", scratch.Write("a", left), scratch.Write("b", right)});
    EXPECT_EQ(run.exitCode, *lines == '\0' ? 0 : 1);
    EXPECT_TEXT(run.Output(), lines);
    EXPECT_TEXT(run.Errors(), "");
}

TEST(ToolDiff, FormsOfTheSameReportAreTheSame)
{
    ExpectDifferences(FullXml(), FullPlain(), "");
    ExpectDifferences(FullPlain(), FullCompressed(), "");
    ExpectDifferences(InFile(FullCompressed()), FullXml(), "");
}

TEST(ToolDiff, NumbersCountAsTheyAreWritten)
{
    ExpectDifferences("<ReportBase><Frequency Min=\"1.004\">100</Frequency></ReportBase>",
                      "<ReportBase><Frequency Min=\"1\">1e2</Frequency></ReportBase>", "");
    ExpectDifferences("<ReportBase><Frequency Min=\"1.006\">100</Frequency></ReportBase>",
                      "<ReportBase><Frequency Min=\"1\">100</Frequency></ReportBase>",
                      "! frequency.min: 1.006 -> 1\n");
    ExpectDifferences(WithArea(Point("8.0000004", "47")), WithArea(Point("8", "47.00")), "");
}

TEST(ToolDiff, TellsWhatIsMissingAddedAndChanged)
{
    ExpectDifferences("<ReportBase><Frequency Min=\"1\" Use=\"true\">5</Frequency></ReportBase>",
                      "<ReportBase><Frequency Max=\"9\" Use=\"false\">6.5</Frequency></ReportBase>",
                      "! frequency.value: 5 -> 6.5\n"
                      "- frequency.min: 1\n"
                      "+ frequency.max: 9\n"
                      "! frequency.use: true -> false\n");
}

TEST(ToolDiff, MemberThatOneHasIsToldByItsValues)
{
    ExpectDifferences("<ReportBase><IFBandwidth>5</IFBandwidth></ReportBase>",
                      WithArea(Point("8.5", "47.25")),
                      "- ifBandwidth.value: 5\n"
                      "+ area.name: \"A\"\n"
                      "+ area.coordinate[1]: 8.5 47.25\n");
}

TEST(ToolDiff, InsertedPointIsOneLine)
{
    const QByteArray before = Point("1", "1") + Point("2", "2") + Point("3", "3") + Point("4", "4");
    const QByteArray after =
        Point("1", "1") + Point("1.5", "1.5") + Point("2", "2") + Point("3", "3") + Point("4", "4");
    ExpectDifferences(WithArea(before), WithArea(after), "+ area.coordinate[2]: 1.5 1.5\n");
    ExpectDifferences(WithArea(after), WithArea(before), "- area.coordinate[2]: 1.5 1.5\n");
}

TEST(ToolDiff, ChangedPointIsToldByWhatChanged)
{
    ExpectDifferences(WithArea(Point("1", "1") + Point("2", "2") + Point("3", "3")),
                      WithArea(Point("0", "0") + Point("1", "1") + Point("2", "-2.5") + Point("3", "3")),
                      "+ area.coordinate[1]: 0 0\n"
                      "! area.coordinate[2].latitude: 2 -> -2.5\n");
}

TEST(ToolDiff, JsonHasBothPathsAndValues)
{
    const Scratch scratch;
    scratch.Write("a", WithArea(Point("1", "1") + Point("2", "2")));
    scratch.Write("b", WithArea(Point("0", "0") + Point("1", "1") + Point("2", "2.5")));
    const ToolRun run = RunTool({"diff", "--json", "a", "b"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "{\n"
                              "    \"a\": \"a\",\n"
                              "    \"b\": \"b\",\n"
                              "    \"differences\": [\n"
                              "        {\n"
                              "            \"change\": \"added\",\n"
                              "            \"pathInA\": null,\n"
                              "            \"pathInB\": \"area.coordinate[1]\",\n"
                              "            \"valueInA\": null,\n"
                              "            \"valueInB\": {\n"
                              "                \"latitude\": 0,\n"
                              "                \"longitude\": 0\n"
                              "            }\n"
                              "        },\n"
                              "        {\n"
                              "            \"change\": \"changed\",\n"
                              "            \"pathInA\": \"area.coordinate[2].latitude\",\n"
                              "            \"pathInB\": \"area.coordinate[3].latitude\",\n"
                              "            \"valueInA\": 2,\n"
                              "            \"valueInB\": 2.5\n"
                              "        }\n"
                              "    ],\n"
                              "    \"same\": false\n"
                              "}\n");
}

TEST(ToolDiff, InvalidReportCannotBeCompared)
{
    const Scratch scratch;
    scratch.Write("a", "<ReportBase/>");
    scratch.Write("b", "<ReportBase><Area/></ReportBase>");
    EXPECT_UNUSABLE(
        RunTool({"diff", "a", "b"}, {{}, scratch.Folder(), {}}),
        "b:1:13: OutOfRangeException: Area: Please set Name properly. (area.name)\n"
        "reporttool: b:1:13: OutOfRangeException: Area: Please set Coordinate properly. (area.coordinate)");
}

TEST(ToolDiff, FileThatCannotBeReadEndsWithTwo)
{
    const Scratch scratch;
    scratch.Write("a", "<ReportBase/>");
    EXPECT_UNUSABLE(RunTool({"diff", "a", "b"}, {{}, scratch.Folder(), {}}), "b: no such file");
    EXPECT_UNUSABLE(RunTool({"diff", "a"}), "diff takes A and B\nTry 'reporttool --help'.");
    EXPECT_UNUSABLE(RunTool({"diff", "-", "-"}),
                    "standard input can be read only once\nTry 'reporttool --help'.");
}

} // namespace
