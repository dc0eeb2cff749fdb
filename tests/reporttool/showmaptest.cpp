#include "samples.h"
#include "toolrun.h"

#include <reporttool/showmap.h>

#include <gtest/gtest.h>

namespace {

using ReportTool::MapLines;
using ToolTest::RunTool;
using ToolTest::ToolRun;

constexpr int COLUMNS = 64;

QString Repeated(const char* text, int count)
{
    return QString::fromLatin1(text).repeated(count);
}

/// Two degrees by one on the equator, so that no degree is shortened. 63 steps for two degrees are 31.5 for one, and as
/// many half as high rows, 15.75: there are 17 rows.
void ExpectBox(const QStringList& lines, const char* west, const char* east)
{
    ASSERT_EQ(lines.size(), 20);
    const QString border = QLatin1Char('+') + Repeated("-", COLUMNS) + QLatin1Char('+');
    EXPECT_TEXT(lines.at(0), border);
    EXPECT_TEXT(lines.at(1), QLatin1Char('|') + Repeated("*", COLUMNS) + QStringLiteral("| 0.5"));
    for (int row = 2; row < 17; ++row)
        EXPECT_TEXT(lines.at(row), QStringLiteral("|*") + Repeated(".", COLUMNS - 2) + QStringLiteral("*|"));
    EXPECT_TEXT(lines.at(17), QLatin1Char('|') + Repeated("*", COLUMNS) + QStringLiteral("| -0.5"));
    EXPECT_TEXT(lines.at(18), border);
    const QByteArray ends(west);
    EXPECT_TEXT(lines.at(19),
                QLatin1Char(' ') + QString::fromLatin1(ends) +
                    Repeated(" ", COLUMNS - static_cast<int>(ends.size() + QByteArray(east).size())) +
                    QString::fromLatin1(east));
}

TEST(ToolMap, BoxFillsTheFrame)
{
    ExpectBox(MapLines({{0, -0.5}, {2, -0.5}, {2, 0.5}, {0, 0.5}}), "0", "2");
}

TEST(ToolMap, BoxAcrossTheAntimeridianIsInOnePiece)
{
    ExpectBox(MapLines({{179, -0.5}, {-179, -0.5}, {-179, 0.5}, {179, 0.5}}), "179", "-179");
}

TEST(ToolMap, PointIsOneCharacter)
{
    EXPECT_EQ(MapLines({{8.5, 47.25}}), QStringList({QStringLiteral("+-+"), QStringLiteral("|*| 47.25"),
                                                     QStringLiteral("+-+"), QStringLiteral(" 8.5")}));
}

TEST(ToolMap, LineRunsFromEndToEnd)
{
    const QStringList lines = MapLines({{0, 0}, {2, 0}});
    ASSERT_EQ(lines.size(), 4);
    EXPECT_TEXT(lines.at(1), QLatin1Char('|') + Repeated("*", COLUMNS) + QStringLiteral("| 0"));
}

TEST(ToolMap, NoPointsAreNoMap)
{
    EXPECT_EQ(MapLines({}), QStringList());
}

TEST(ToolMap, ShowAddsTheMap)
{
    const ToolRun plain = RunTool({"show", "-"}, {ToolTest::NamedAreaXml("n"), {}, {}});
    const ToolRun run = RunTool({"show", "--map", "-"}, {ToolTest::NamedAreaXml("n"), {}, {}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_TEXT(run.Output(),
                plain.Output() + QStringLiteral("\n    +-+\n    |*| 47.25\n    +-+\n     8.5\n"));
}

TEST(ToolMap, ReportWithoutAreaHasNoMap)
{
    const ToolRun run = RunTool({"show", "--map", "-"}, {"<ReportBase/>", {}, {}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), RunTool({"show", "-"}, {"<ReportBase/>", {}, {}}).Output());
}

TEST(ToolMap, PointsThatAreNotGoodAreLeftOut)
{
    const ToolRun run = RunTool({"show", "--map", "-"},
                                {"<ReportBase><Area><Name>n</Name><Coordinate><Longitude>500</Longitude>"
                                 "<Latitude>1</Latitude></Coordinate></Area></ReportBase>",
                                 {},
                                 {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_FALSE(run.output.contains("+-"));
}

TEST(ToolMap, JsonHasNoMap)
{
    EXPECT_UNUSABLE(RunTool({"show", "--json", "--map", "a"}),
                    "--json and --map do not go together\nTry 'reporttool --help'.");
}

} // namespace
