#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::Scratch;
using ToolTest::ToolRun;

ToolRun RunRoundTrip(const QStringList& paths)
{
    return ToolTest::RunProgram(QStringLiteral(REPORTGENERATOR_TEST_ROUNDTRIP), paths, {});
}

TEST(RoundTripExample, TakesAReportDownTheWholeRoad)
{
    // Plain: 46 bytes of marker and object name, and 8 each of root, frequency and value in front of a size
    // and "1.00". XML: three lines, each behind a line feed.
    const Scratch scratch;
    const QString path = scratch.Write("a.xml", "<ReportBase><Frequency>1</Frequency></ReportBase>");
    const ToolRun run = RunRoundTrip({path});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
    const QStringList lines = run.Output().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 7);
    EXPECT_TEXT(lines.at(0), "report  form            bytes  equal");
    EXPECT_TEXT(lines.at(1), "a.xml   XML, loaded        49  -");
    EXPECT_TEXT(lines.at(2), "a.xml   plain              78  yes");
    EXPECT_TRUE(lines.at(3).startsWith(QStringLiteral("a.xml   compressed  ")));
    EXPECT_TRUE(lines.at(3).endsWith(QStringLiteral("  yes")));
    EXPECT_TEXT(lines.at(4), "a.xml   binary file        82  yes");
    EXPECT_TEXT(lines.at(5), "a.xml   XML                59  yes");
}

TEST(RoundTripExample, TellsWhenAFormChangesTheReport)
{
    // All forms round to hundredths.
    const Scratch scratch;
    const QString path = scratch.Write("a.xml", "<ReportBase><Frequency>1.234</Frequency></ReportBase>");
    const ToolRun run = RunRoundTrip({path});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.output.contains("a.xml   plain              78  NO\n"));
}

TEST(RoundTripExample, TellsWhatCannotBeReadAndGoesOn)
{
    const Scratch scratch;
    const QString empty = scratch.Write("empty.xml", {});
    const QString other = scratch.Write("other.xml", "<Task/>");
    const QString invalid = scratch.Write("invalid.xml", "<ReportBase><Area/></ReportBase>");
    const QString good = scratch.Write("good.xml", "<ReportBase/>");
    const QString missing = scratch.Path("missing.xml");
    const ToolRun run = RunRoundTrip({empty, other, invalid, missing, good});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(),
                QStringLiteral("roundtrip: %1: RGException: Premature end of document.\n"
                               "roundtrip: %2: RGException: there is no report in it\n"
                               "roundtrip: %3: OutOfRangeException: Area: Please set Name properly.\n"
                               "roundtrip: %4: RGException: Can't open file for reading: '%4'\n")
                    .arg(empty, other, invalid, missing));
    EXPECT_TRUE(run.output.contains("good.xml     XML                14  yes\n")) << run.output.toStdString();
}

TEST(RoundTripExample, AsksForReportsWhenThereAreNone)
{
    const ToolRun run = RunRoundTrip({});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "Usage: roundtrip REPORT.xml...\n");
}

} // namespace
