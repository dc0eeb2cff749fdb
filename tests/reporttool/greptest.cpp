#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char TRY_HELP[] = "\nTry 'reporttool --help'.";

/// A frequency of 121.5 MHz from 118 MHz on, in use, and the square from (8, 47) to (10, 48), called "Upper Lake".
constexpr char AIR[] =
    "<ReportBase><Frequency Min=\"118000000\" Use=\"true\">121500000</Frequency>"
    "<Area Version=\"1.0\"><Name>Upper Lake</Name>"
    "<Coordinate><Longitude>8</Longitude><Latitude>47</Latitude></Coordinate>"
    "<Coordinate><Longitude>10</Longitude><Latitude>47</Latitude></Coordinate>"
    "<Coordinate><Longitude>10</Longitude><Latitude>48</Latitude></Coordinate>"
    "<Coordinate><Longitude>8</Longitude><Latitude>48</Latitude></Coordinate></Area></ReportBase>";

/// A square from 179 degrees east to 179 degrees west on the equator.
constexpr char DATE_LINE[] =
    "<ReportBase><Area Version=\"1.0\"><Name>Line</Name>"
    "<Coordinate><Longitude>179</Longitude><Latitude>-1</Latitude></Coordinate>"
    "<Coordinate><Longitude>-179</Longitude><Latitude>-1</Latitude></Coordinate>"
    "<Coordinate><Longitude>-179</Longitude><Latitude>1</Latitude></Coordinate>"
    "<Coordinate><Longitude>179</Longitude><Latitude>1</Latitude></Coordinate></Area></ReportBase>";

ToolRun GrepInput(const QString& condition, const QByteArray& report)
{
    return RunTool({"grep", condition, "-"}, {report, {}, {}});
}

void ExpectFulfils(const char* condition, bool isFulfilled, const QByteArray& report = AIR)
{
    const ToolRun run = GrepInput(QString::fromUtf8(condition), report);
    EXPECT_EQ(run.exitCode, isFulfilled ? 0 : 1) << condition;
    EXPECT_TEXT(run.Output(), isFulfilled ? "-\n" : "");
    EXPECT_TEXT(run.Errors(), "");
}

TEST(ToolGrep, NumbersAreCompared)
{
    ExpectFulfils("frequency.value in 118e6..137e6", true);
    ExpectFulfils("frequency.value in 121500000..121500000", true);
    ExpectFulfils("frequency.value in 121500000.5..137e6", false);
    ExpectFulfils("frequency.value = 121.5e6", true);
    ExpectFulfils("frequency.value != 121.5e6", false);
    ExpectFulfils("frequency.value < 121500000", false);
    ExpectFulfils("frequency.value <= 121500000", true);
    ExpectFulfils("frequency.value>121500000", false);
    ExpectFulfils("frequency.value>=121500000", true);
    ExpectFulfils("area.coordinate[2].longitude = 10", true);
    ExpectFulfils("area.coordinate[2].longitude > -1.5", true);
}

TEST(ToolGrep, TextsAndSwitchesAreCompared)
{
    ExpectFulfils("area.name = \"Upper Lake\"", true);
    ExpectFulfils("area.name = 'Upper'", false);
    ExpectFulfils("area.name != 'Upper'", true);
    ExpectFulfils("area.name ~ \"Lake$\"", true);
    ExpectFulfils("area.name ~ \"lake\"", false);
    ExpectFulfils("area.name ~ \"(?i)lake\"", true);
    ExpectFulfils("area.name ~ '\\s[KL]'", true);
    ExpectFulfils("frequency.use = true", true);
    ExpectFulfils("frequency.use != false", true);
    ExpectFulfils("frequency.use = false", false);
}

TEST(ToolGrep, WhatIsNotSetFulfilsNothingButUnset)
{
    ExpectFulfils("frequency.max set", false);
    ExpectFulfils("frequency.max unset", true);
    ExpectFulfils("frequency.min set", true);
    ExpectFulfils("frequency set", true);
    ExpectFulfils("ifBandwidth set", false);
    ExpectFulfils("ifBandwidth.value unset", true);
    ExpectFulfils("frequency.max = 1", false);
    ExpectFulfils("frequency.max != 1", false);
    ExpectFulfils("not frequency.max = 1", true);
    ExpectFulfils("area.coordinate[4] set", true);
    ExpectFulfils("area.coordinate[5] set", false);
}

TEST(ToolGrep, AreaContainsItsPointsAndItsEdge)
{
    ExpectFulfils("area contains 9.5,47.5", true);
    ExpectFulfils("area.coordinates contains 9.5,47.5", true);
    ExpectFulfils("area contains 8,47", true);
    ExpectFulfils("area contains 9,48", true);
    ExpectFulfils("area contains 10,47.5", true);
    ExpectFulfils("area contains 10.5,47.5", false);
    ExpectFulfils("area contains 9,46.999", false);
    ExpectFulfils("area contains 7,47.5", false);
    ExpectFulfils("area contains 9,47.5", false, "<ReportBase/>");
}

TEST(ToolGrep, AreaMayLieAcrossTheAntimeridian)
{
    ExpectFulfils("area contains 180,0", true, DATE_LINE);
    ExpectFulfils("area contains -180,0", true, DATE_LINE);
    ExpectFulfils("area contains -179.5,0.5", true, DATE_LINE);
    ExpectFulfils("area contains 179.5,-0.5", true, DATE_LINE);
    ExpectFulfils("area contains 0,0", false, DATE_LINE);
    ExpectFulfils("area contains -178.5,0", false, DATE_LINE);
}

TEST(ToolGrep, NotBindsMoreThanAndThanOr)
{
    const char* yes = "frequency set";
    const char* no = "frequency unset";
    const struct
    {
        const char* shape;
        bool isFulfilled;
    } rows[] = {{"Y and N", false},      {"Y or N", true},          {"N or Y and N", false},
                {"Y or N and N", true},  {"(Y or N) and N", false}, {"not N and Y", true},
                {"not (N or Y)", false}, {"not not Y", true},       {"not Y or Y", true},
                {"((Y)) and (Y)", true}};
    for (const auto& row : rows) {
        const QString condition = QString::fromLatin1(row.shape)
                                      .replace(QLatin1Char('Y'), QLatin1String(yes))
                                      .replace(QLatin1Char('N'), QLatin1String(no));
        EXPECT_EQ(GrepInput(condition, AIR).exitCode, row.isFulfilled ? 0 : 1) << row.shape;
    }
}

TEST(ToolGrep, PrintsTheNamesInTheirOrder)
{
    const Scratch scratch;
    scratch.Write("b.xml", AIR);
    scratch.Write("a.xml", AIR);
    scratch.Write("c.xml", "<ReportBase/>");
    scratch.Write("d.xml", "no report");
    const ToolRun run =
        RunTool({"grep", "frequency set", "c.xml", "b.xml", "d.xml", "a.xml"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "b.xml\na.xml\n");
    EXPECT_TEXT(run.Errors(), "");
    const ToolRun below = RunTool({"grep", "frequency unset", "-r", "."}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(below.exitCode, 0);
    EXPECT_TEXT(below.Output(), "./c.xml\n");
    EXPECT_EQ(RunTool({"grep", "ifBandwidth set", "-r", "."}, {{}, scratch.Folder(), {}}).exitCode, 1);
}

TEST(ToolGrep, FileThatCannotBeReadEndsWithTwo)
{
    const Scratch scratch;
    scratch.Write("a.xml", AIR);
    const ToolRun run = RunTool({"grep", "frequency set", "missing", "a.xml"}, {{}, scratch.Folder(), {}});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), "a.xml\n");
    EXPECT_TEXT(run.Errors(), "reporttool: missing: no such file\n");
}

TEST(ToolGrep, ReportWithProblemsCountsAsFarAsItCanBeRead)
{
    ExpectFulfils("frequency.value = 5", true, "<ReportBase><Frequency>5</Frequency><Area/></ReportBase>");
}

TEST(ToolGrep, FrequenciesMayHaveUnits)
{
    ExpectFulfils("frequency.value = 121.5MHz", true);
    ExpectFulfils("frequency.value = 121.5 MHz", true);
    ExpectFulfils("frequency.value in 118 MHz..137 MHz and area set", true);
    ExpectFulfils("frequency.value in 118MHz..0.137GHz", true);
    ExpectFulfils("frequency.value in 0..121500 kHz", true);
    ExpectFulfils("(frequency.min < 118000001 Hz)", true);
    ExpectFulfils("frequency.min > 118 MHz or frequency.value < 121.4 MHz", false);
}

TEST(ToolGrep, WhatCannotBeUnderstoodIsToldWithItsColumn)
{
    const struct
    {
        const char* condition;
        const char* text;
    } rows[] = {{"", "1: the path of a field is expected, nothing follows"},
                {"frequency.value", "16: a comparison is expected, nothing follows"},
                {"frequency.valu = 5", "1: frequency.valu: no field is called \"valu\", did you mean "
                                       "'value'? There are min, max, use, value"},
                {"frequency set and frequency.value = high", "37: a number is expected, not \"high\""},
                {"frequency.value = 5Mhz",
                 "19: no unit is called 'Mhz', did you mean 'MHz'? There are Hz, kHz, MHz, GHz"},
                {"frequency.value = 5 mhz",
                 "19: no unit is called 'mhz', did you mean 'MHz'? There are Hz, kHz, MHz, GHz"},
                {"frequency.value = 5 high", "21: 'and', 'or' or the end is expected, not \"high\""},
                {"frequency.value in 118..137 MHz", "20: a unit is expected here, too"},
                {"frequency.value in 118MHz..137", "28: a unit is expected here, too"},
                {"area.coordinate[1].latitude > 5 MHz", "31: latitude is in degrees, not in MHz"},
                {"area contains 5 MHz,6", "17: ',' is expected, not \"MHz\""},
                {"frequency.value in 5", "21: '..' is expected, nothing follows"},
                {"frequency.value in 5..", "23: a number is expected, nothing follows"},
                {"frequency = 5", "1: frequency is no value: 'set', 'unset' and 'contains' can be asked"},
                {"area.name < \"a\"", "11: area.name is no number"},
                {"area.name in 5..6", "11: area.name is no number"},
                {"area.name = Lake", "13: a text in quotes is expected, not \"Lake\""},
                {"area.name = \"Lake", "13: the text that begins here has no end"},
                {"frequency.value ~ \"5\"", "17: frequency.value is no text"},
                {"area.name ~ Lake", "13: a regular expression in quotes is expected, not \"Lake\""},
                {"frequency.use = 1", "17: true or false is expected, not \"1\""},
                {"frequency contains 1,2", "1: frequency holds no points"},
                {"area contains 1", "16: ',' is expected, nothing follows"},
                {"(area set", "10: ')' is expected, nothing follows"},
                {"area set)", "9: 'and', 'or' or the end is expected, not \")\""},
                {"area set area set", "10: 'and', 'or' or the end is expected, not \"area\""}};
    for (const auto& row : rows)
        EXPECT_UNUSABLE(GrepInput(QString::fromUtf8(row.condition), AIR),
                        QStringLiteral("condition, column %1").arg(QString::fromUtf8(row.text)) +
                            QLatin1String(TRY_HELP));
    EXPECT_EQ(GrepInput(QStringLiteral("area.name ~ \"(\""), AIR).exitCode, 2);
    EXPECT_UNUSABLE(RunTool({"grep"}), QStringLiteral("no condition is given") + QLatin1String(TRY_HELP));
    EXPECT_UNUSABLE(RunTool({"grep", "area set"}),
                    QStringLiteral("no file is given") + QLatin1String(TRY_HELP));
}

TEST(ToolGrep, DeepNestingIsRefused)
{
    ExpectFulfils((std::string(100, '(') + "area set" + std::string(100, ')')).c_str(), true);
    const ToolRun run = GrepInput(QString(100000, QLatin1Char('(')) + QStringLiteral("area set"), AIR);
    EXPECT_UNUSABLE(run, QStringLiteral("condition, column 201: too much within each other") +
                             QLatin1String(TRY_HELP));
}

} // namespace
