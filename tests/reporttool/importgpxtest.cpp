#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::PlainLocale;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

QByteArray Gpx(const QByteArray& content)
{
    return QByteArray(
               "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" xmlns=\"http://www.topografix.com/GPX/1/1\">") +
           content + "</gpx>";
}

/// An area with these coordinates, in the order in which XML has them.
QString Report(const char* name, std::initializer_list<std::pair<const char*, const char*>> points)
{
    QString text = QStringLiteral("\n<ReportBase>\n    <Area Version=\"1.0\">\n        <Name>%1</Name>\n")
                       .arg(QString::fromUtf8(name));
    for (const auto& [longitude, latitude] : points)
        text += QStringLiteral("        <Coordinate>\n            <Longitude>%1</Longitude>\n"
                               "            <Latitude>%2</Latitude>\n        </Coordinate>\n")
                    .arg(QLatin1String(longitude), QLatin1String(latitude));
    return text + QStringLiteral("    </Area>\n</ReportBase>");
}

ToolRun Import(const QByteArray& input)
{
    return RunTool({"import", "-", "-", "--from", "gpx"}, PlainLocale(input));
}

void ExpectReport(const char* content, const QString& report)
{
    const ToolRun run = Import(Gpx(content));
    EXPECT_EQ(run.exitCode, 0) << content;
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_TEXT(run.Output(), report);
}

void ExpectRefusal(const QByteArray& input, const char* words)
{
    const ToolRun run = Import(input);
    EXPECT_EQ(run.exitCode, 1) << input.constData();
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), QStringLiteral("reporttool: -: %1\n").arg(QLatin1String(words)));
}

TEST(ToolImportGpx, WaypointIsAPoint)
{
    ExpectReport("<metadata><name>all of it</name></metadata>"
                 "<wpt lat=\"47.25\" lon=\"8.5\"><ele>400</ele><name> Hill </name><link "
                 "href=\"x\"><text>y</text></link>"
                 "</wpt>",
                 Report("Hill", {{"8.500000", "47.250000"}}));
}

TEST(ToolImportGpx, RouteAndTrackAreLines)
{
    const QString line = Report("Way", {{"8.500000", "47.250000"}, {"-9.000000", "48.000000"}});
    ExpectReport(
        "<rte><name>Way</name><number>1</number><rtept lat=\"47.25\" lon=\"8.5\"><name>begin</name></rtept>"
        "<rtept lon=\"-9\" lat=\"48\"/></rte>",
        line);
    ExpectReport(
        "<trk><name>Way</name><trkseg/><trkseg><trkpt lat=\"47.25\" lon=\"8.5\"><time>2026-01-01T00:00:00Z"
        "</time></trkpt><extensions><trkpt lat=\"1\" lon=\"2\"/></extensions><trkpt lat=\"48\" lon=\"-9\"/>"
        "</trkseg></trk>",
        line);
}

TEST(ToolImportGpx, SegmentsOfATrackAreParts)
{
    const QByteArray gpx = Gpx("<trk><name>Way</name><trkseg><trkpt lat=\"47.25\" lon=\"8.5\"/></trkseg>"
                               "<trkseg><trkpt lat=\"48\" lon=\"-9\"/></trkseg></trk>");
    ExpectRefusal(gpx, "feature 1: an area is one outline, not 2; --parts makes a report of each");
    const Scratch scratch;
    EXPECT_EQ(RunTool({"import", "-", ".", "--from", "gpx", "--parts"}, PlainLocale(gpx, scratch.Folder()))
                  .exitCode,
              0);
    EXPECT_TEXT(QString::fromUtf8(scratch.Read("report-1.xml")), Report("Way", {{"8.500000", "47.250000"}}));
    EXPECT_TEXT(QString::fromUtf8(scratch.Read("report-2.xml")), Report("Way", {{"-9.000000", "48.000000"}}));
}

TEST(ToolImportGpx, PointThatIsWrongLeavesTheOthers)
{
    const Scratch scratch;
    const QByteArray gpx = Gpx("<wpt lat=\"47.25\" lon=\"8.5\"><name>a</name></wpt>\n"
                               "<wpt lat=\"north\" lon=\"8.5\"><name>b</name></wpt>\n"
                               "<rte><name>c</name><rtept lat=\"47.25\"/></rte>\n"
                               "<wpt lat=\"8.5\" lon=\"47.25\"/>");
    const ToolRun run = RunTool({"import", "-", ".", "--from", "gpx"}, PlainLocale(gpx, scratch.Folder()));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(),
                "reporttool: -: feature 2: line 3: a point has lon and lat and not \"8.5\" and \"north\"\n"
                "reporttool: -: feature 3: line 4: a point has lon and lat and not \"\" and \"47.25\"\n"
                "reporttool: -: feature 4: the area has no name\n");
    EXPECT_TEXT(scratch.Names().join(QLatin1Char(' ')), "report-1.xml");
}

TEST(ToolImportGpx, WhatIsNoneIsRefused)
{
    ExpectRefusal("<kml/>", "not GPX: no gpx element");
    ExpectRefusal("<a><gpx/></a>", "not GPX: no gpx element");
    ExpectRefusal("<gpx/>", "there is no feature");
    for (const char* broken : {"", "{}", "<gpx>\n<wpt lat=\"1\" lon=\"2\">", "<gpx/><gpx/>"}) {
        const ToolRun run = Import(broken);
        EXPECT_EQ(run.exitCode, 1) << broken;
        EXPECT_TRUE(run.Errors().startsWith(QStringLiteral("reporttool: -: not XML: line "))) << broken;
    }
}

TEST(ToolImportGpx, ElementsWithinElementsWithoutEndArePassedOver)
{
    const int depth = 200000;
    const ToolRun run = Import(Gpx("<wpt lat=\"47.25\" lon=\"8.5\"><name>Hill</name>" +
                                   QByteArray("<extensions>").repeated(depth) +
                                   QByteArray("</extensions>").repeated(depth) + "</wpt>"));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), Report("Hill", {{"8.500000", "47.250000"}}));
}

TEST(ToolImportGpx, ReadsWhatExportWrites)
{
    const QString report =
        Report("Lake", {{"9.000000", "47.500000"}, {"10.000000", "47.500000"}, {"9.500000", "48.000000"}});
    const ToolRun exported = RunTool({"export", "-", "--to", "gpx"}, PlainLocale(report.toUtf8()));
    EXPECT_EQ(exported.exitCode, 0);
    const ToolRun run = Import(exported.output);
    EXPECT_EQ(run.exitCode, 0);
    // An area ends where it begins there.
    EXPECT_TEXT(run.Output(), Report("Lake", {{"9.000000", "47.500000"},
                                              {"10.000000", "47.500000"},
                                              {"9.500000", "48.000000"},
                                              {"9.000000", "47.500000"}}));
}

} // namespace
