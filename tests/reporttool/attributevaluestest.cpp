// Where values of attributes are said to stand.

#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::RunTool;
using ToolTest::ToolRun;

TEST(ToolAttributeValues, NumberIsToldWhereItBegins)
{
    const ToolRun run = RunTool(
        {"check", "--strict", "-"},
        {"<ReportBase>\n<Frequency Min = 'a' Use=\"true\"\n Max=\"b\">0</Frequency></ReportBase>", {}, {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "-:2:19: NotANumber: min is no number and reads as 0 (frequency.min = \"a\")\n"
                              "-:3:7: NotANumber: max is no number and reads as 0 (frequency.max = \"b\")\n");
}

} // namespace
