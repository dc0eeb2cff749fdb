#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

// Byte order marks within JSON: as a character of a text each stays there.

namespace {

using ToolTest::PlainLocale;
using ToolTest::RunTool;
using ToolTest::ToolRun;

#define MARK "\xEF\xBB\xBF"

QByteArray LakeNamed(const char* name)
{
    return QByteArray("\n<ReportBase>\n"
                      "    <Area Version=\"1.0\">\n"
                      "        <Name>") +
           name +
           "</Name>\n"
           "        <Coordinate>\n"
           "            <Longitude>8.500000</Longitude>\n"
           "            <Latitude>47.250000</Latitude>\n"
           "        </Coordinate>\n"
           "    </Area>\n"
           "</ReportBase>";
}

QByteArray JsonNamed(const char* name)
{
    return QByteArray(R"({"area": {"name": ")") + name +
           R"(", "coordinates": [{"longitude": 8.5, "latitude": 47.25}]}})";
}

TEST(ToolJsonMarks, StayAtTheStartOfTexts)
{
    for (const char* name : {MARK "Lake", MARK MARK "L\xC3\xBC", "La" MARK "ke" MARK, MARK}) {
        const ToolRun run = RunTool({"convert", "--from", "json", "-", "-"}, PlainLocale(JsonNamed(name)));
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_BYTES(run.output, LakeNamed(name));
    }
    const ToolRun run =
        RunTool({"convert", "--from", "json", "-", "-"}, PlainLocale(JsonNamed("\\ufeffLake")));
    EXPECT_BYTES(run.output, LakeNamed(MARK "Lake"));
}

TEST(ToolJsonMarks, WhatIsShownIsWrittenAgainWithTheSameBytes)
{
    const QByteArray xml = LakeNamed(MARK "Lake");
    const ToolRun shown = RunTool({"show", "--json", "-"}, PlainLocale(xml));
    EXPECT_EQ(shown.exitCode, 0);
    EXPECT_BYTES(RunTool({"convert", "--from", "json", "-", "-"}, PlainLocale(shown.output)).output, xml);
}

TEST(ToolJsonMarks, DocumentMayBeginWithOne)
{
    const ToolRun run =
        RunTool({"convert", "--from", "json", "-", "-"}, PlainLocale(MARK + JsonNamed(MARK "Lake")));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_BYTES(run.output, LakeNamed(MARK "Lake"));
}

TEST(ToolJsonMarks, OffsetsOfErrorsCountBytes)
{
    // In the other text three letters take the place of the mark.
    const ToolRun without =
        RunTool({"convert", "--from", "json", "-", "-"}, PlainLocale("{\"a\": \"xxxL\", \"b\": }"));
    const ToolRun run =
        RunTool({"convert", "--from", "json", "-", "-"}, PlainLocale("{\"a\": \"" MARK "L\", \"b\": }"));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.Errors().contains(QStringLiteral("offset")));
    EXPECT_TEXT(run.Errors(), without.Errors());
}

TEST(ToolJsonMarks, StayInNamesThatAreImported)
{
    const ToolRun run =
        RunTool({"import", "-", "-", "--from", "geojson"},
                PlainLocale("{\"type\":\"Feature\",\"properties\":{\"name\":\"" MARK "Lake\"},"
                            "\"geometry\":{\"type\":\"Point\",\"coordinates\":[8.5,47.25]}}"));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_BYTES(run.output, LakeNamed(MARK "Lake"));
}

} // namespace
