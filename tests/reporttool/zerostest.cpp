// Zeros in comparisons: as they are written there is one of them.

#include "samples.h"
#include "toolrun.h"

#include "support/recordelements.h"

#include <gtest/gtest.h>

namespace {

using Support::Element;
using ToolTest::Plain;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;
namespace Tag = Support::Tag;

void ExpectSame(const QByteArray& left, const QByteArray& right)
{
    const Scratch scratch;
    const ToolRun run = RunTool({"diff", scratch.Write("a", left), scratch.Write("b", right)});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "");
}

QByteArray FrequencyXml(const QByteArray& value)
{
    return "<ReportBase><Frequency>" + value + "</Frequency></ReportBase>";
}

QByteArray AreaXml(const QByteArray& longitude)
{
    return "<ReportBase><Area Version=\"1.0\"><Name>A</Name><Coordinate><Longitude>" + longitude +
           "</Longitude><Latitude>1</Latitude></Coordinate></Area></ReportBase>";
}

TEST(ToolZeros, HaveNoSignInComparisons)
{
    ExpectSame(FrequencyXml("-0.001"), FrequencyXml("0.00"));
    ExpectSame(FrequencyXml("0"), FrequencyXml("-0"));
    ExpectSame(FrequencyXml("-0.001"), Plain(Element(Tag::REPORT_FREQUENCY, Support::Value("0.00"))));
    ExpectSame(FrequencyXml("-0.001"), Plain(Element(Tag::REPORT_FREQUENCY, Support::Value("-0.00"))));
    ExpectSame(AreaXml("-0.0000001"), AreaXml("0.000000"));
    ExpectSame(AreaXml("-0.0000001"), AreaXml("-0.000000"));
}

TEST(ToolZeros, NumberIsTheSameAsItsConversion)
{
    for (const QByteArray& xml : {FrequencyXml("-0.001"), AreaXml("-0.0000001")}) {
        for (const char* form : {"xml", "plain"}) {
            const Scratch scratch;
            const QString path = scratch.Write("a.xml", xml);
            ASSERT_EQ(RunTool({"convert", path, scratch.Path("b"), "--to", form}).exitCode, 0);
            ExpectSame(xml, scratch.Read("b"));
        }
    }
}

TEST(ToolZeros, OtherNumbersKeepTheirSign)
{
    const Scratch scratch;
    const ToolRun run = RunTool(
        {"diff", scratch.Write("a", FrequencyXml("-0.01")), scratch.Write("b", FrequencyXml("0.01"))});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "! frequency.value: -0.01 -> 0.01\n");
}

} // namespace
