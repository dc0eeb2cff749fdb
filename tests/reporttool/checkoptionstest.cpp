#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::FullPlain;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

/// An area whose only latitude is refused, and then missing.
constexpr char NORTH_OF_THE_POLE[] =
    "<ReportBase><Area Version=\"1.0\"><Name>A</Name>"
    "<Coordinate><Longitude>8</Longitude><Latitude>91</Latitude></Coordinate></Area></ReportBase>";

TEST(ToolCheckOptions, JsonIsAnObjectForEachProblemOnALineOfItsOwn)
{
    const Scratch scratch;
    scratch.Write("a.xml", NORTH_OF_THE_POLE);
    scratch.Write("b.bin", FullPlain() + "x");
    scratch.Write("c.bin", FullPlain());
    const ToolRun run =
        RunTool({"check", "--json", "--no-warnings", "a.xml", "b.bin", "c.bin"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(
        run.Output(),
        "{\"column\":93,\"error\":null,\"file\":\"a.xml\",\"line\":1,\"name\":\"OutOfRangeException\","
        "\"offset\":null,\"path\":\"area.coordinate[1].latitude\",\"text\":\"Parameters for m_latitude "
        "are not set within range (-90, 90) in 'Coordinate'.\",\"uncompressed\":null,\"value\":\"91\"}\n"
        "{\"column\":null,\"error\":null,\"file\":\"b.bin\",\"line\":null,\"name\":\"TrailingData\","
        "\"offset\":340,\"path\":null,\"text\":\"1 bytes behind the end\",\"uncompressed\":false,"
        "\"value\":null}\n");
    EXPECT_TEXT(run.Errors(), "3 files: 1 good, 2 invalid, 0 unreadable\n");
}

TEST(ToolCheckOptions, JsonOfAFileThatCannotBeReadSaysWhy)
{
    const Scratch scratch;
    const ToolRun run = RunTool({"check", "--json", "missing"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(
        run.Output(),
        "{\"column\":null,\"error\":\"no such file\",\"file\":\"missing\",\"line\":null,\"name\":null,"
        "\"offset\":null,\"path\":null,\"text\":null,\"uncompressed\":null,\"value\":null}\n");
    EXPECT_TEXT(run.Errors(), "reporttool: missing: no such file\n");
}

TEST(ToolCheckOptions, QuietLeavesTheExitCode)
{
    const Scratch scratch;
    const QString bad = scratch.Write("bad", NORTH_OF_THE_POLE);
    const QString good = scratch.Write("good", FullPlain());
    const ToolRun run = RunTool({"check", "--quiet", bad, good});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_EQ(RunTool({"check", "--quiet", good}).exitCode, 0);
    EXPECT_UNUSABLE(RunTool({"check", "--quiet", scratch.Path("missing"), bad}),
                    scratch.Path("missing") + QStringLiteral(": no such file"));
}

TEST(ToolCheckOptions, OneFileHasNoSummary)
{
    const Scratch scratch;
    const ToolRun run = RunTool({"check", scratch.Write("bad", {})});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), "");
}

} // namespace
