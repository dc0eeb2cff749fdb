#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char TRY_HELP[] = "\nTry 'reporttool --help'.";

ToolRun DryRun(const QByteArray& fragment)
{
    return RunTool({"settings", "--dry-run", "-"}, {fragment, {}, {}});
}

TEST(ToolSettings, TellsWhatAnObjectWouldHold)
{
    const ToolRun run = DryRun("<Ellipse>\n<MinRadius>100</MinRadius><MaxRadius>250.5</MaxRadius>"
                               "<Rotation>30</Rotation></Ellipse>");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "Ellipse takes 1:1 and holds:\n"
                              "    <Ellipse>\n"
                              "        <MinRadius>100.00</MinRadius>\n"
                              "        <MaxRadius>250.50</MaxRadius>\n"
                              "        <Rotation>30.00</Rotation>\n"
                              "    </Ellipse>\n");
    EXPECT_TEXT(run.Errors(), "");
}

TEST(ToolSettings, TellsWhatNobodyTakes)
{
    const ToolRun run = DryRun("<Ellipse Color=\"red\">\n"
                               "<MinRadius>100</MinRadius><MaxRadius>250.5</MaxRadius>\n"
                               "<Rotation>30</Rotation></Ellipse>\n"
                               "  <Antenna><Height>2</Height></Antenna>");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "Ellipse takes 1:1 and holds:\n"
                              "    <Ellipse>\n"
                              "        <MinRadius>100.00</MinRadius>\n"
                              "        <MaxRadius>250.50</MaxRadius>\n"
                              "        <Rotation>30.00</Rotation>\n"
                              "    </Ellipse>\n"
                              "Nobody takes:\n"
                              "    1:1: Ellipse@Color\n"
                              "    4:3: Antenna\n");
    EXPECT_TEXT(run.Errors(), "");
}

TEST(ToolSettings, ObjectsWithinObjectsAreTakenByBoth)
{
    const ToolRun run = DryRun("<ReportBase><Frequency Use=\"true\">5</Frequency></ReportBase>");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "ReportBase takes 1:1 and holds:\n"
                              "    <ReportBase>\n"
                              "        <Frequency Use=\"true\">5.00</Frequency>\n"
                              "    </ReportBase>\n"
                              "Frequency takes 1:13 and holds:\n"
                              "    <Frequency Use=\"true\">5.00</Frequency>\n");
}

TEST(ToolSettings, TellsWhatIsRefused)
{
    const ToolRun run = DryRun("<Ellipse><Tilt>5</Tilt></Ellipse>");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "Ellipse refuses 1:1: RGException: Unknown Tag 'Tilt' in 'Ellipse'.\n"
                              "Nobody takes:\n"
                              "    1:1: Ellipse\n");
}

TEST(ToolSettings, JsonHasWhatIsTakenAndRefusedAndLeft)
{
    const ToolRun run = RunTool({"settings", "--dry-run", "--json", "-"},
                                {"<Frequency Colour=\"red\">5</Frequency>\n"
                                 "<ChannelSpacing/><Ellipse><Tilt>5</Tilt></Ellipse>",
                                 {},
                                 {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), R"({
    "file": "-",
    "left": [
        {
            "column": 1,
            "line": 1,
            "path": "Frequency@Colour"
        },
        {
            "column": 18,
            "line": 2,
            "path": "Ellipse"
        }
    ],
    "refused": [
        {
            "column": 18,
            "line": 2,
            "name": "RGException",
            "object": "Ellipse",
            "text": "Unknown Tag 'Tilt' in 'Ellipse'."
        }
    ],
    "taken": [
        {
            "column": 1,
            "line": 2,
            "object": "ChannelSpacing",
            "xml": null
        },
        {
            "column": 1,
            "line": 1,
            "object": "Frequency",
            "xml": "<Frequency>5.00</Frequency>"
        }
    ]
}
)");
    EXPECT_TEXT(run.Errors(), "");
}

TEST(ToolSettings, NothingThatAnybodyTakes)
{
    const ToolRun run = DryRun("<Antenna/>");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "Nobody takes:\n    1:1: Antenna\n");
}

TEST(ToolSettings, TextThatIsNoXmlIsRefused)
{
    const ToolRun run = DryRun("<Ellipse>");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "reporttool: -: line 1: Opening and ending tag mismatch.\n");
}

TEST(ToolSettings, WrongUseEndsWithTwo)
{
    const Scratch scratch;
    EXPECT_UNUSABLE(RunTool({"settings", "a"}),
                    QStringLiteral("settings can only be tried: --dry-run is missing") +
                        QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunTool({"settings", "--dry-run"}),
                    QStringLiteral("settings takes one FRAGMENT") + QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunTool({"settings", "--dry-run", scratch.Path("missing")}),
                    scratch.Path("missing") + QStringLiteral(": no such file"));
}

} // namespace
