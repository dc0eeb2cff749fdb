// Bytes behind the zlib data, but within the array that holds them.

#include "samples.h"
#include "toolrun.h"

#include "support/recordelements.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Support::Bytes;
using Support::Element;
using ToolTest::InFile;
using ToolTest::RunTool;
using ToolTest::ToolRun;
namespace Tag = Support::Tag;

/// A frequency in stored blocks, with something behind them.
QByteArray CompressedBefore(const std::string& behind)
{
    const Bytes body = Element(1, Element(Tag::REPORT_FREQUENCY, Support::Value("1.00")));
    return (Support::String(u"IRGObjectQCompress") + Support::String(u"ReportBase") +
            Support::ByteArrayOf(Support::Stored(body) + Support::Raw(behind)))
        .Data();
}

ToolRun Check(const QByteArray& bytes)
{
    return RunTool({"check", "--strict", "-"}, {bytes, {}, {}});
}

TEST(ToolDataBehind, CompressedDataThatAreFollowedByNothingAreGood)
{
    EXPECT_TEXT(Check(CompressedBefore("")).Output(), "");
    EXPECT_FALSE(Check(ToolTest::FullCompressed()).output.contains("TrailingData"));
}

TEST(ToolDataBehind, IsToldWhereItBegins)
{
    // Marker 4 + 36, name 4 + 20, size 4: the data begin at 68. Prefix 4, header 2, block 5, body 32 bytes (8 + 8 + 8 +
    // 4 + 4), checksum 4: they end at 115.
    EXPECT_TEXT(Check(CompressedBefore("x")).Output(),
                "-:0x73: TrailingData: 1 bytes behind the end of the zlib data\n");
    EXPECT_TEXT(Check(CompressedBefore("abcd")).Output(),
                "-:0x73: TrailingData: 4 bytes behind the end of the zlib data\n");
    EXPECT_TEXT(Check(InFile(CompressedBefore("abcde"))).Output(),
                "-:0x77: TrailingData: 5 bytes behind the end of the zlib data\n");
}

TEST(ToolDataBehind, IsAWarning)
{
    const ToolRun run = RunTool({"check", "-"}, {CompressedBefore("abcd"), {}, {}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(),
                "reporttool: warning: -:0x73: TrailingData: 4 bytes behind the end of the zlib data\n");
}

TEST(ToolDataBehind, SecondStreamIsDataBehind)
{
    const Bytes body = Element(1, Element(Tag::REPORT_FREQUENCY, Support::Value("1.00")));
    const std::string stream = Support::Stored(body).Data().mid(4).toStdString();
    EXPECT_TEXT(Check(CompressedBefore(stream)).Output(),
                "-:0x73: TrailingData: 43 bytes behind the end of the zlib data\n");
}

} // namespace
