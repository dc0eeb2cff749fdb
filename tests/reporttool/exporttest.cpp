#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

#include <QtCore/QFileInfo>

namespace {

using ToolTest::FullXml;
using ToolTest::NamedArea;
using ToolTest::NamedAreaXml;
using ToolTest::Plain;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char OLD_CONTENT[] = "what was there before";

/// Clockwise and open, with a frequency; its name needs quotes.
constexpr char LAKE[] =
    R"(<ReportBase><Frequency Use="false">8414500.00</Frequency><Area Version="1.0"><Name>Lake, "deep"</Name>)"
    "<Coordinate><Longitude>9</Longitude><Latitude>47.5</Latitude></Coordinate>"
    "<Coordinate><Longitude>9.5</Longitude><Latitude>48</Latitude></Coordinate>"
    "<Coordinate><Longitude>10</Longitude><Latitude>47.5</Latitude></Coordinate></Area></ReportBase>";

constexpr char INVALID[] = "<ReportBase><Area><Name>a</Name></Area></ReportBase>";
constexpr char WORDS_ON_INVALID[] = "reporttool: bad.xml:1:13: OutOfRangeException: Area: Please set "
                                    "Coordinate properly. (area.coordinate)\n";

/// A folder with three reports: a line, an area and none; and an invalid one.
class ToolExport : public testing::Test
{
protected:
    ToolExport()
    {
        m_scratch.Write("full.xml", FullXml());
        m_scratch.Write("lake.xml", LAKE);
        m_scratch.Write("empty.xml", "<ReportBase/>");
        m_scratch.Write("bad.xml", INVALID);
    }

    ToolRun Run(ToolTest::Arguments arguments) const
    {
        return RunTool(arguments, ToolTest::PlainLocale({}, m_scratch.Folder()));
    }

    /// What comes out of the three good reports.
    void ExpectExport(const char* format, const char* output) const
    {
        const ToolRun run = Run({"export", "--to", format, "full.xml", "lake.xml", "empty.xml"});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_TEXT(run.Errors(), "");
        EXPECT_TEXT(run.Output(), output);
    }

    const Scratch m_scratch;
};

#define FULL_FEATURE                                                                                         \
    R"({"type":"Feature","properties":{"file":"full.xml","frequency_value":121500000.0,)"                    \
    R"("frequency_min":117975000.0,"frequency_max":137000000.0,"frequency_use":true,)"                       \
    R"("ifBandwidth_value":8333.33,"ifBandwidth_min":null,"ifBandwidth_max":null,"area_name":"Zürichsee",)" \
    R"("area_version":"1.0","area_scriptId":"VHF-1215"},"geometry":{"type":"LineString",)"                   \
    R"("coordinates":[[8.54,47.36],[8.685,47.258]]}})"
#define LAKE_FEATURE                                                                                         \
    R"({"type":"Feature","properties":{"file":"lake.xml","frequency_value":8414500.0,)"                      \
    R"("frequency_min":null,"frequency_max":null,"frequency_use":false,)"                                    \
    R"("ifBandwidth_value":null,"ifBandwidth_min":null,"ifBandwidth_max":null,)"                             \
    R"("area_name":"Lake, \"deep\"","area_version":"1.0","area_scriptId":null},)"                            \
    R"("geometry":{"type":"Polygon","coordinates":[[[9,47.5],[10,47.5],[9.5,48],[9,47.5]]]}})"
#define EMPTY_FEATURE                                                                                        \
    R"({"type":"Feature","properties":{"file":"empty.xml","frequency_value":null,"frequency_min":null,)"     \
    R"("frequency_max":null,"frequency_use":null,"ifBandwidth_value":null,"ifBandwidth_min":null,)"          \
    R"("ifBandwidth_max":null,"area_name":null,"area_version":null,"area_scriptId":null},)"                  \
    R"("geometry":null})"

TEST_F(ToolExport, GeoJsonIsOneFeatureCollection)
{
    ExpectExport("geojson", "{\"type\":\"FeatureCollection\",\"features\":[\n" FULL_FEATURE ",\n" LAKE_FEATURE
                            ",\n" EMPTY_FEATURE "\n]}\n");
}

TEST_F(ToolExport, GeoJsonLinesHoldAFeatureEach)
{
    ExpectExport("geojsonl", FULL_FEATURE "\n" LAKE_FEATURE "\n" EMPTY_FEATURE "\n");
}

TEST_F(ToolExport, GeoJsonOfAPointAndOfAnAreaAcrossTheAntimeridian)
{
    m_scratch.Write("point.xml", NamedAreaXml("p"));
    m_scratch.Write(
        "fiji.xml",
        "<ReportBase><Area><Name>f</Name>"
        "<Coordinate><Longitude>177</Longitude><Latitude>-19</Latitude></Coordinate>"
        "<Coordinate><Longitude>-178</Longitude><Latitude>-19</Latitude></Coordinate>"
        "<Coordinate><Longitude>-178</Longitude><Latitude>-16</Latitude></Coordinate>"
        "<Coordinate><Longitude>177</Longitude><Latitude>-16</Latitude></Coordinate></Area></ReportBase>");
    const QStringList lines =
        Run({"export", "point.xml", "fiji.xml", "--to", "geojsonl"}).Output().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(
        lines.at(0).endsWith(QLatin1String(R"("geometry":{"type":"Point","coordinates":[8.5,47.25]}})")));
    EXPECT_TRUE(
        lines.at(1).endsWith(QLatin1String(R"("geometry":{"type":"MultiPolygon","coordinates":[)"
                                           R"([[[-180,-19],[-178,-19],[-178,-16],[-180,-16],[-180,-19]]],)"
                                           R"([[[180,-16],[177,-16],[177,-19],[180,-19],[180,-16]]]]}})")))
        << lines.at(1).toStdString();
}

TEST_F(ToolExport, GeoJsonHasNullForNumbersThatAreNone)
{
    m_scratch.Write("nan.xml", "<ReportBase><Frequency>nan</Frequency></ReportBase>");
    const ToolRun run = Run({"export", "nan.xml", "--to", "geojsonl"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.output.contains(R"("frequency_value":null)"));
}

TEST_F(ToolExport, CsvHasALineForEachReport)
{
    ExpectExport("csv", "file,frequency_value,frequency_min,frequency_max,frequency_use,ifBandwidth_value,"
                        "ifBandwidth_min,ifBandwidth_max,area_name,area_version,area_scriptId,WKT\r\n"
                        "full.xml,121500000.0,117975000.0,137000000.0,true,8333.33,,,Zürichsee,1.0,VHF-1215,"
                        "\"LINESTRING (8.54 47.36, 8.685 47.258)\"\r\n"
                        "lake.xml,8414500.0,,,false,,,,\"Lake, \"\"deep\"\"\",1.0,,"
                        "\"POLYGON ((9 47.5, 10 47.5, 9.5 48, 9 47.5))\"\r\n"
                        "empty.xml,,,,,,,,,,,\r\n");
}

TEST_F(ToolExport, CsvPointsHaveALineForEachPoint)
{
    ExpectExport(
        "csv-points",
        "file,frequency_value,frequency_min,frequency_max,frequency_use,ifBandwidth_value,"
        "ifBandwidth_min,ifBandwidth_max,area_name,area_version,area_scriptId,"
        "point,longitude,latitude\r\n"
        "full.xml,121500000.0,117975000.0,137000000.0,true,8333.33,,,Zürichsee,1.0,VHF-1215,1,8.54,47.36\r\n"
        "full.xml,121500000.0,117975000.0,137000000.0,true,8333.33,,,Zürichsee,1.0,VHF-1215,2,8.685,47."
        "258\r\n"
        "lake.xml,8414500.0,,,false,,,,\"Lake, \"\"deep\"\"\",1.0,,1,9.0,47.5\r\n"
        "lake.xml,8414500.0,,,false,,,,\"Lake, \"\"deep\"\"\",1.0,,2,9.5,48.0\r\n"
        "lake.xml,8414500.0,,,false,,,,\"Lake, \"\"deep\"\"\",1.0,,3,10.0,47.5\r\n"
        "empty.xml,,,,,,,,,,,,,\r\n");
}

TEST_F(ToolExport, WktStandsOnALineEach)
{
    ExpectExport("wkt", "LINESTRING (8.54 47.36, 8.685 47.258)\n"
                        "POLYGON ((9 47.5, 10 47.5, 9.5 48, 9 47.5))\n"
                        "GEOMETRYCOLLECTION EMPTY\n");
}

TEST_F(ToolExport, KmlHasAPlacemarkForEachReport)
{
    ExpectExport("kml", R"(<?xml version="1.0" encoding="UTF-8"?>
<kml xmlns="http://www.opengis.net/kml/2.2">
 <Document>
  <Schema name="Report" id="Report">
   <SimpleField type="string" name="file"/>
   <SimpleField type="double" name="frequency_value"/>
   <SimpleField type="double" name="frequency_min"/>
   <SimpleField type="double" name="frequency_max"/>
   <SimpleField type="bool" name="frequency_use"/>
   <SimpleField type="double" name="ifBandwidth_value"/>
   <SimpleField type="double" name="ifBandwidth_min"/>
   <SimpleField type="double" name="ifBandwidth_max"/>
   <SimpleField type="string" name="area_name"/>
   <SimpleField type="string" name="area_version"/>
   <SimpleField type="string" name="area_scriptId"/>
  </Schema>
  <Placemark>
   <name>Zürichsee</name>
   <ExtendedData>
    <SchemaData schemaUrl="#Report">
     <SimpleData name="file">full.xml</SimpleData>
     <SimpleData name="frequency_value">121500000</SimpleData>
     <SimpleData name="frequency_min">117975000</SimpleData>
     <SimpleData name="frequency_max">137000000</SimpleData>
     <SimpleData name="frequency_use">1</SimpleData>
     <SimpleData name="ifBandwidth_value">8333.33</SimpleData>
     <SimpleData name="area_name">Zürichsee</SimpleData>
     <SimpleData name="area_version">1.0</SimpleData>
     <SimpleData name="area_scriptId">VHF-1215</SimpleData>
    </SchemaData>
   </ExtendedData>
   <LineString>
    <coordinates>8.54,47.36 8.685,47.258</coordinates>
   </LineString>
  </Placemark>
  <Placemark>
   <name>Lake, &quot;deep&quot;</name>
   <ExtendedData>
    <SchemaData schemaUrl="#Report">
     <SimpleData name="file">lake.xml</SimpleData>
     <SimpleData name="frequency_value">8414500</SimpleData>
     <SimpleData name="frequency_use">0</SimpleData>
     <SimpleData name="area_name">Lake, &quot;deep&quot;</SimpleData>
     <SimpleData name="area_version">1.0</SimpleData>
    </SchemaData>
   </ExtendedData>
   <Polygon>
    <outerBoundaryIs>
     <LinearRing>
      <coordinates>9,47.5 10,47.5 9.5,48 9,47.5</coordinates>
     </LinearRing>
    </outerBoundaryIs>
   </Polygon>
  </Placemark>
  <Placemark>
   <name>empty.xml</name>
   <ExtendedData>
    <SchemaData schemaUrl="#Report">
     <SimpleData name="file">empty.xml</SimpleData>
    </SchemaData>
   </ExtendedData>
  </Placemark>
 </Document>
</kml>
)");
}

TEST_F(ToolExport, KmlOfAnAreaAcrossTheAntimeridianHasTwoPolygons)
{
    m_scratch.Write(
        "line.xml",
        "<ReportBase><Area><Name>l</Name>"
        "<Coordinate><Longitude>179</Longitude><Latitude>10</Latitude></Coordinate>"
        "<Coordinate><Longitude>-179</Longitude><Latitude>20</Latitude></Coordinate></Area></ReportBase>");
    EXPECT_TRUE(Run({"export", "line.xml", "--to", "kml"}).output.contains(R"(
   <MultiGeometry>
    <LineString>
     <coordinates>179,10 180,15</coordinates>
    </LineString>
    <LineString>
     <coordinates>-180,15 -179,20</coordinates>
    </LineString>
   </MultiGeometry>
)"));
}

TEST_F(ToolExport, CharactersThatXmlCannotHoldAreReplaced)
{
    m_scratch.Write("control.bin", Plain(NamedArea("a\x01z")));
    const QByteArray kml = Run({"export", "control.bin", "--to", "kml"}).output;
    EXPECT_TRUE(kml.contains("<name>a\xEF\xBF\xBDz</name>"));
    // JSON has a way to write them.
    EXPECT_TRUE(
        Run({"export", "control.bin", "--to", "geojson"}).output.contains(R"("area_name":"a\u0001z")"));
}

TEST_F(ToolExport, GpxHasATrackForEachAreaBehindTheWaypoints)
{
    m_scratch.Write("point.xml", NamedAreaXml("p"));
    const ToolRun run = Run({"export", "lake.xml", "empty.xml", "point.xml", "--to", "gpx"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), R"(<?xml version="1.0" encoding="UTF-8"?>
<gpx xmlns="http://www.topografix.com/GPX/1/1" version="1.1" creator="reporttool">
 <wpt lat="47.25" lon="8.5">
  <name>p</name>
  <desc>area_name=p; area_version=1.0</desc>
  <src>point.xml</src>
 </wpt>
 <trk>
  <name>Lake, &quot;deep&quot;</name>
  <desc>frequency_value=8414500; frequency_use=false; area_name=Lake, &quot;deep&quot;; area_version=1.0</desc>
  <src>lake.xml</src>
  <trkseg>
   <trkpt lat="47.5" lon="9"/>
   <trkpt lat="48" lon="9.5"/>
   <trkpt lat="47.5" lon="10"/>
   <trkpt lat="47.5" lon="9"/>
  </trkseg>
 </trk>
</gpx>
)");
}

TEST_F(ToolExport, GpxCallsTheAntimeridianByItsWesternNumber)
{
    m_scratch.Write("point.xml", "<ReportBase><Area><Name>p</Name><Coordinate><Longitude>180</Longitude>"
                                 "<Latitude>1</Latitude></Coordinate></Area></ReportBase>");
    EXPECT_TRUE(Run({"export", "point.xml", "--to", "gpx"}).output.contains(R"(<wpt lat="1" lon="-180">)"));
}

TEST_F(ToolExport, OutputGoesToAFile)
{
    m_scratch.Write("out", OLD_CONTENT);
    for (const char* option : {"-o", "--output"}) {
        const ToolRun run = Run({"export", "lake.xml", "--to", "wkt", option, "out"});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_TEXT(run.Output(), "");
        EXPECT_TEXT(run.Errors(), "");
        EXPECT_BYTES(m_scratch.Read("out"), QByteArray("POLYGON ((9 47.5, 10 47.5, 9.5 48, 9 47.5))\n"));
    }
}

TEST_F(ToolExport, StandardInputIsAFileToo)
{
    const ToolRun run = RunTool({"export", "-", "--to", "csv"}, {LAKE, {}, {}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.output.contains("\n-,8414500.0,"));
}

// --- What doesn't work

TEST_F(ToolExport, InvalidReportIsLeftOut)
{
    const ToolRun run = Run({"export", "bad.xml", "lake.xml", "--to", "wkt"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "POLYGON ((9 47.5, 10 47.5, 9.5 48, 9 47.5))\n");
    EXPECT_TEXT(run.Errors(), WORDS_ON_INVALID);
}

TEST_F(ToolExport, FileThatCannotBeReadIsLeftOut)
{
    const ToolRun run = Run({"export", "bad.xml", "missing.xml", "lake.xml", "--to", "wkt"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TEXT(run.Output(), "POLYGON ((9 47.5, 10 47.5, 9.5 48, 9 47.5))\n");
    EXPECT_TEXT(run.Errors(),
                QLatin1String(WORDS_ON_INVALID) + QStringLiteral("reporttool: missing.xml: no such file\n"));
}

TEST_F(ToolExport, NothingIsWrittenWithoutAGoodReport)
{
    m_scratch.Write("out", OLD_CONTENT);
    const ToolRun run = Run({"export", "bad.xml", "--to", "geojson", "-o", "out"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(), WORDS_ON_INVALID);
    EXPECT_BYTES(m_scratch.Read("out"), QByteArray(OLD_CONTENT));

    const ToolRun toOutput = Run({"export", "bad.xml", "--to", "geojson"});
    EXPECT_EQ(toOutput.exitCode, 1);
    EXPECT_TEXT(toOutput.Output(), "");
}

TEST_F(ToolExport, FileThatCannotBeWrittenEndsWithTwo)
{
    EXPECT_UNUSABLE(Run({"export", "lake.xml", "--to", "kml", "-o", m_scratch.Folder()}),
                    m_scratch.Folder() + QStringLiteral(": is a directory"));
    const ToolRun run = Run({"export", "lake.xml", "--to", "kml", "-o", "missing/out"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.Errors().startsWith(QStringLiteral("reporttool: missing/out: ")));
}

#ifdef Q_OS_LINUX
ToolRun RunInShell(const char* script, const QString& folder)
{
    return ToolTest::RunProgram(
        QStringLiteral("/bin/sh"),
        {QStringLiteral("-c"), QLatin1String(script), QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)},
        ToolTest::PlainLocale({}, folder));
}

TEST_F(ToolExport, WriteThatFailsHalfwayLeavesTheOldFile)
{
    m_scratch.Write("out", OLD_CONTENT);
    // No file may grow beyond a block of 512 bytes. An instrumented program can't write its profile either.
    const ToolRun run = RunInShell("export GCOV_ERROR_FILE=/dev/null; trap '' XFSZ; ulimit -f 1; "
                                   "exec \"$0\" export full.xml lake.xml --to kml -o out",
                                   m_scratch.Folder());
    EXPECT_UNUSABLE(run, "out: File too large");
    EXPECT_BYTES(m_scratch.Read("out"), QByteArray(OLD_CONTENT));
    EXPECT_EQ(m_scratch.Names().size(), 5);
}

TEST_F(ToolExport, FullDeviceEndsWithTwo)
{
    EXPECT_UNUSABLE(Run({"export", "lake.xml", "--to", "csv", "-o", "/dev/full"}),
                    "/dev/full: No space left on device");
    EXPECT_UNUSABLE(RunInShell("exec \"$0\" export lake.xml --to csv >/dev/full", m_scratch.Folder()),
                    "-: No space left on device");
    EXPECT_TRUE(QFileInfo::exists(QStringLiteral("/dev/full")));
}

TEST_F(ToolExport, ClosedPipeEndsWithTwo)
{
    const ToolRun run = ToolTest::RunOnBrokenPipe(
        QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL),
        {QStringLiteral("export"), QStringLiteral("lake.xml"), QStringLiteral("--to"), QStringLiteral("csv")},
        ToolTest::PlainLocale({}, m_scratch.Folder()), ToolTest::BrokenPipe::Error);
    EXPECT_TEXT(run.Errors(), "reporttool: -: Broken pipe\n");
    EXPECT_EQ(run.exitCode, 2);
}

#    ifdef REPORTGENERATOR_TEST_DRAWS
TEST_F(ToolExport, PictureEndsInAClosedPipeAsOthersDo)
{
    const QStringList arguments = {QStringLiteral("-c"),
                                   QStringLiteral("\"$0\" export lake.xml --to png; echo $? >code"),
                                   QStringLiteral(REPORTGENERATOR_TEST_REPORTTOOL)};
    const ToolTest::Surroundings surroundings = ToolTest::PlainLocale({}, m_scratch.Folder());
    ToolTest::RunOnBrokenPipe(QStringLiteral("/bin/sh"), arguments, surroundings,
                              ToolTest::BrokenPipe::Signal);
    // 128 and the number of the signal.
    EXPECT_BYTES(m_scratch.Read("code"), QByteArray("141\n"));
    const ToolRun run = ToolTest::RunOnBrokenPipe(QStringLiteral("/bin/sh"), arguments, surroundings,
                                                  ToolTest::BrokenPipe::Error);
    EXPECT_BYTES(m_scratch.Read("code"), QByteArray("2\n"));
    EXPECT_TEXT(run.Errors(), "reporttool: -: Broken pipe\n");
}
#    endif
#endif

TEST_F(ToolExport, HelpNamesTheFormats)
{
    const ToolRun run = Run({"export", "--help"});
    EXPECT_EQ(run.exitCode, 0);
    for (const char* part : {"export FILE...", "--to <format>", "-o, --output <file>", "geojson ",
                             "geojsonl ", "csv ", "csv-points ", "wkt ", "kml ", "gpx ", "Exit codes"})
        EXPECT_TRUE(run.output.contains(part)) << part;
}

TEST_F(ToolExport, WrongCommandLineEndsWithTwo)
{
    const QString hint = QStringLiteral("\nTry 'reporttool --help'.");
    EXPECT_UNUSABLE(Run({"export", "lake.xml"}), QStringLiteral("--to is missing") + hint);
    EXPECT_UNUSABLE(Run({"export", "lake.xml", "--to", "xyz"}),
                    QStringLiteral("no format is called 'xyz'") + hint);
    EXPECT_UNUSABLE(Run({"export", "--to", "wkt"}), QStringLiteral("no file is given") + hint);
    EXPECT_UNUSABLE(Run({"export", "-", "-", "--to", "wkt"}),
                    QStringLiteral("standard input can be read only once") + hint);
    EXPECT_UNUSABLE(Run({"export", "lake.xml", "--to", "wkt", "-o"}),
                    QStringLiteral("Missing value after '-o'.") + hint);
}

} // namespace
