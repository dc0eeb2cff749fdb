#include "samples.h"
#include "toolrun.h"

#include "support/records.h"

#include <gtest/gtest.h>

namespace {

using Support::ByteArray;
using Support::Element;
using ToolTest::Plain;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;
namespace Tag = Support::Tag;

QByteArray Point(const char* longitude, const char* latitude)
{
    return QByteArray("<Coordinate><Longitude>") + longitude + "</Longitude><Latitude>" + latitude +
           "</Latitude></Coordinate>";
}

QByteArray Area(const QByteArray& points)
{
    return "<ReportBase><Area Version=\"1.0\"><Name>A</Name>" + points + "</Area></ReportBase>";
}

QByteArray Report(const QByteArray& members)
{
    return "<ReportBase>" + members + "</ReportBase>";
}

/// Expects these problems of a strict check, each "Place: Name: text", and the same as warnings of another one.
void ExpectLint(const QByteArray& input, std::initializer_list<const char*> lint)
{
    QByteArray problems;
    QByteArray warnings;
    for (const char* warning : lint) {
        problems += QByteArray("-:") + warning + "\n";
        warnings += QByteArray("reporttool: warning: -:") + warning + "\n";
    }
    const ToolRun strict = RunTool({"check", "--strict", "-"}, {input, {}, {}});
    EXPECT_EQ(strict.exitCode, lint.size() == 0 ? 0 : 1);
    EXPECT_TEXT(strict.Output(), QString::fromUtf8(problems));
    EXPECT_TEXT(strict.Errors(), "");
    const ToolRun lenient = RunTool({"check", "-"}, {input, {}, {}});
    EXPECT_EQ(lenient.exitCode, 0);
    EXPECT_TEXT(lenient.Output(), "");
    EXPECT_TEXT(lenient.Errors(), QString::fromUtf8(warnings));
}

// --- Numbers

TEST(ToolStrict, TextsThatAreNoNumbers)
{
    ExpectLint(Report("<Frequency Min=\"abc\">121,5</Frequency>"),
               {"1:29: NotANumber: min is no number and reads as 0 (frequency.min = \"abc\")",
                "1:34: NotANumber: value is no number and reads as 0 (frequency.value = \"121,5\")"});
    ExpectLint(Report("<Frequency>inf</Frequency>"),
               {"1:24: NotANumber: value is no finite number (frequency.value = \"inf\")"});
    ExpectLint(Report("<Frequency>nan</Frequency>"),
               {"1:24: NotANumber: value is no finite number (frequency.value = \"nan\")"});
    ExpectLint(
        Area(Point("1", "1") + Point("2", "x") + Point("1", "2")),
        {"1:164: NotANumber: latitude is no number and reads as 0 (area.coordinate[2].latitude = \"x\")"});
}

TEST(ToolStrict, ZerosAreNumbers)
{
    ExpectLint(Report("<Frequency Min=\"0\">0.00</Frequency>"), {});
    ExpectLint(Area(Point("0", "0") + Point("2", "0") + Point("-0.000000", "2")), {});
}

TEST(ToolStrict, TextsThatAreNoNumbersInBinaryForms)
{
    ExpectLint(Plain(Element(Tag::REPORT_FREQUENCY, Element(Tag::FREQUENCY_VALUE, ByteArray("121,5")))),
               {"0x4a: NotANumber: value is no number and reads as 0 (frequency.value = \"121,5\")"});
}

TEST(ToolStrict, WhatTheCheckTellsIsNotToldAgain)
{
    const QByteArray input = Area(Point("nan", "1") + Point("0", "0") + Point("2", "0") + Point("1", "2"));
    const ToolRun run = RunTool({"check", "--strict", "-"}, {input, {}, {}});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output.count("(area.coordinate[1].longitude = \"nan\")"), 1) << run.output.toStdString();
    EXPECT_FALSE(run.output.contains("NotANumber")) << run.output.toStdString();
}

// --- Names and elements

TEST(ToolStrict, NamesThatAreNearlyKnown)
{
    ExpectLint(
        Report("<Frequancy>5</Frequancy>"),
        {"1:13: MisspeltName: there is no element 'Frequancy', did you mean 'Frequency'? (\"Frequancy\")"});
    ExpectLint(Report("<ifbandwith>5</ifbandwith>"),
               {"1:13: MisspeltName: there is no element 'ifbandwith', did you mean 'IFBandwidth'? "
                "(\"ifbandwith\")"});
    ExpectLint(
        Report("<Frequency max=\"5\">1</Frequency>"),
        {"1:13: MisspeltName: there is no attribute 'max', did you mean 'Max'? (frequency = \"max\")"});
    ExpectLint(
        Report("<Frequency Mni=\"5\">1</Frequency>"),
        {"1:13: MisspeltName: there is no attribute 'Mni', did you mean 'Min'? (frequency = \"Mni\")"});
    ExpectLint(Report("<Antenna>5</Antenna><Frequency Unit=\"Hz\">1</Frequency>"), {});
}

TEST(ToolStrict, ElementsThatComeTwice)
{
    ExpectLint(Report("<Frequency>1</Frequency><Frequency>2</Frequency>"),
               {"1:37: RepeatedElement: element 'Frequency' comes a second time (frequency)"});
    ExpectLint(Plain(Element(Tag::REPORT_FREQUENCY, Element(Tag::FREQUENCY_VALUE, ByteArray("1")) +
                                                        Element(Tag::FREQUENCY_VALUE, ByteArray("2")))),
               {"0x4b: RepeatedElement: value comes a second time (frequency.value)"});
}

TEST(ToolStrict, SecondReport)
{
    ExpectLint("<Tasks><ReportBase/><ReportBase/></Tasks>",
               {"1:21: SecondReport: only the first report of a document is read (\"ReportBase\")"});
}

TEST(ToolStrict, EntitiesThatNothingIsKnownOf)
{
    ExpectLint("<!DOCTYPE ReportBase SYSTEM \"r.dtd\">" + Report("<Frequency>1&more;</Frequency>"),
               {"1:61: UnresolvedEntity: the entity is not known and left out (frequency = \"&more;\")"});
    ExpectLint(Report("<Area Version=\"1.0\"><Name>&lt;&#65;&gt;</Name>" + Point("0", "0") + Point("2", "0") +
                      Point("0", "2") + "</Area>"),
               {});
}

// --- Bounds

TEST(ToolStrict, BoundsThatContradictEachOtherOrTheValue)
{
    ExpectLint(Report("<Frequency Min=\"9\" Max=\"5\">7</Frequency>"),
               {"1:29: MinAboveMax: min 9 is above max 5 (frequency.min = \"9\")"});
    ExpectLint(Report("<Frequency Min=\"9\">7</Frequency>"),
               {"1:32: OutsideBounds: value 7 is below min 9 (frequency.value = \"7\")"});
    ExpectLint(Report("<IFBandwidth Max=\"5\">7</IFBandwidth>"),
               {"1:34: OutsideBounds: value 7 is above max 5 (ifBandwidth.value = \"7\")"});
    ExpectLint(Report("<Frequency Min=\"7\" Max=\"7\">7</Frequency>"), {});
}

// --- Areas

TEST(ToolStrict, AreasOfFewerThanThreePoints)
{
    ExpectLint(Area(Point("1", "1") + Point("2", "2")),
               {"1:13: TooFewPoints: 2 different points surround nothing (area.coordinate)"});
    ExpectLint(Area(Point("1", "1") + Point("2", "2") + Point("1", "1")),
               {"1:13: TooFewPoints: 2 different points surround nothing (area.coordinate)"});
    ExpectLint(Area(Point("1", "1") + Point("2", "2") + Point("1", "2")), {});
}

TEST(ToolStrict, AreasThatCrossThemselves)
{
    ExpectLint(Area(Point("0", "0") + Point("2", "2") + Point("2", "0") + Point("0", "2")),
               {"1:47: CrossingEdges: the edges behind coordinate 1 and 3 meet (area.coordinate[1])"});
    // The way there and back: in the west the first and the last edge begin, one on the other.
    ExpectLint(Area(Point("0", "0") + Point("2", "0") + Point("1", "0")),
               {"1:47: CrossingEdges: the edges behind coordinate 1 and 3 meet (area.coordinate[1])"});
    // Across the antimeridian and closed.
    ExpectLint(Area(Point("179", "0") + Point("-179", "0") + Point("-179", "1") + Point("179", "1") +
                    Point("179", "0")),
               {});
}

TEST(ToolStrict, LargeAreasAreLookedAtByTheStrictCheckOnly)
{
    // A zigzag of 1200 points, and back below it through one of its valleys.
    QByteArray points;
    for (int i = 0; i < 1200; ++i)
        points += Point(QByteArray::number(i / 10.0).constData(), i % 2 == 0 ? "1" : "2");
    points += Point("60", "1.5");
    const Scratch scratch;
    const QString path = scratch.Write("large", Area(points));
    const ToolRun strict = RunTool({"check", "--strict", path});
    EXPECT_EQ(strict.exitCode, 1);
    EXPECT_TRUE(strict.output.contains("CrossingEdges")) << strict.output.toStdString();
    const ToolRun lenient = RunTool({"check", path});
    EXPECT_EQ(lenient.exitCode, 0);
    EXPECT_TEXT(lenient.Errors(), "");
}

// --- Options

TEST(ToolStrict, ExamplesAreGood)
{
    const QString folder = QStringLiteral(REPORTGENERATOR_TEST_EXAMPLES "/reports");
    const ToolRun run = RunTool({"check", "--strict", "-r", folder});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "");
}

TEST(ToolStrict, JsonAndQuietGoWithIt)
{
    const QByteArray input = Report("<Frequency>x</Frequency>");
    const ToolRun json = RunTool({"check", "--strict", "--json", "-"}, {input, {}, {}});
    EXPECT_EQ(json.exitCode, 1);
    EXPECT_TEXT(json.Output(),
                "{\"column\":24,\"error\":null,\"file\":\"-\",\"line\":1,\"name\":\"NotANumber\","
                "\"offset\":null,\"path\":\"frequency.value\",\"text\":\"value is no number and "
                "reads as 0\",\"uncompressed\":null,\"value\":\"x\"}\n");
    const ToolRun quiet = RunTool({"check", "--strict", "--quiet", "-"}, {input, {}, {}});
    EXPECT_EQ(quiet.exitCode, 1);
    EXPECT_TEXT(quiet.Output(), "");
    EXPECT_TEXT(quiet.Errors(), "");
}

TEST(ToolStrict, WarningsCanBeLeftOut)
{
    const QByteArray input = Report("<Frequency>x</Frequency>");
    for (const char* option : {"--no-warnings", "--quiet"}) {
        const ToolRun run = RunTool({"check", option, "-"}, {input, {}, {}});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_TEXT(run.Errors(), "");
    }
}

} // namespace
