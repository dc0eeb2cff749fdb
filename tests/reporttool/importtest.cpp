#include "samples.h"
#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::FullXml;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char OLD_CONTENT[] = "what was there before";

/// The report that most inputs stand for.
constexpr char LAKE[] = R"(
<ReportBase>
    <Frequency Use="true">121500000.00</Frequency>
    <Area Version="1.0">
        <Name>Lake</Name>
        <Coordinate>
            <Longitude>9.000000</Longitude>
            <Latitude>47.500000</Latitude>
        </Coordinate>
        <Coordinate>
            <Longitude>10.000000</Longitude>
            <Latitude>47.500000</Latitude>
        </Coordinate>
        <Coordinate>
            <Longitude>9.500000</Longitude>
            <Latitude>48.000000</Latitude>
        </Coordinate>
        <Coordinate>
            <Longitude>9.000000</Longitude>
            <Latitude>47.500000</Latitude>
        </Coordinate>
    </Area>
</ReportBase>)";

/// An area of one point without a frequency.
QString PointReport(const char* name)
{
    return QStringLiteral(R"(
<ReportBase>
    <Area Version="1.0">
        <Name>%1</Name>
        <Coordinate>
            <Longitude>8.500000</Longitude>
            <Latitude>47.250000</Latitude>
        </Coordinate>
    </Area>
</ReportBase>)")
        .arg(QString::fromUtf8(name));
}

#define LAKE_RING "[[9,47.5],[10,47.5,396],[9.5,48],[9,47.5]]"

ToolRun Import(const QByteArray& input, const char* format)
{
    return RunTool({"import", "-", "-", "--from", format}, ToolTest::PlainLocale(input));
}

void ExpectReport(const QByteArray& input, const char* format, const QString& report)
{
    const ToolRun run = Import(input, format);
    EXPECT_EQ(run.exitCode, 0) << input.constData();
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_TEXT(run.Output(), report);
}

void ExpectRefusal(const QByteArray& input, const char* format, const char* words)
{
    const ToolRun run = Import(input, format);
    EXPECT_EQ(run.exitCode, 1) << input.constData();
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), QStringLiteral("reporttool: -: %1\n").arg(QString::fromUtf8(words)));
}

// --- GeoJSON

TEST(ToolImport, GeoJsonFeatureBecomesAReport)
{
    const QByteArray feature =
        R"({"type":"Feature","properties":{"frequency_value":121500000,"frequency_use":true,)"
        R"("area_name":"Lake","frequency_min":null,"colour":"blue","area_version":"9.9"},)"
        R"("geometry":{"type":"Polygon","coordinates":[)" LAKE_RING "]}}";
    const QString report = QString::fromUtf8(LAKE);
    ExpectReport(feature, "geojson", report);
    ExpectReport("{\"type\":\"FeatureCollection\",\"features\":[\n" + feature + "\n]}\n", "geojson", report);
    ExpectReport(feature + '\n', "geojson", report);
}

TEST(ToolImport, NamesOfPropertiesMayDifferInCaseAndValuesBeTexts)
{
    ExpectReport(
        R"({"type":"Feature","properties":{"FREQUENCY_VALUE":"121.5e6","frequency_use":1,"NAME":"Lake"},)"
        R"("geometry":{"type":"MultiPolygon","coordinates":[[)" LAKE_RING "]]}}",
        "geojson", QString::fromUtf8(LAKE));
}

TEST(ToolImport, GeoJsonWithoutGeometryIsAReportWithoutArea)
{
    ExpectReport(R"({"type":"Feature","properties":{"colour":"red"},"geometry":null})", "geojson",
                 QStringLiteral("\n<ReportBase/>"));
}

TEST(ToolImport, AreaNeedsAName)
{
    ExpectRefusal(R"({"type":"Point","coordinates":[8.5,47.25]})", "geojson",
                  "feature 1: the area has no name");
}

TEST(ToolImport, GeoJsonThatIsNoneIsRefused)
{
    ExpectRefusal("{\n \"type\": \"Feature\",\n", "geojson", "not JSON: line 3: unterminated object");
    ExpectRefusal("[]", "geojson", "not GeoJSON: no feature, feature collection or geometry");
    ExpectRefusal("{}", "geojson", "not GeoJSON: no feature, feature collection or geometry");
    ExpectRefusal(R"({"type":"FeatureCollection","features":[]})", "geojson", "there is no feature");
    ExpectRefusal(R"({"type":"Point","coordinates":[8.5]})", "geojson",
                  "feature 1: a position is an array of longitude and latitude");
    ExpectRefusal(R"({"type":"Circle","coordinates":[8.5,47]})", "geojson",
                  "feature 1: 'Circle' is no type of a geometry");
}

TEST(ToolImport, WhatAnAreaCannotHoldIsRefused)
{
    ExpectRefusal(R"({"type":"Feature","properties":{"name":"n"},"geometry":{"type":"Polygon",)"
                  R"("coordinates":[)" LAKE_RING "," LAKE_RING "]}}",
                  "geojson", "feature 1: an area has no holes");
    ExpectRefusal(R"({"type":"Feature","properties":{"name":"n"},"geometry":)"
                  R"({"type":"GeometryCollection","geometries":[]}})",
                  "geojson", "feature 1: an area is one outline, not a collection of geometries");
    ExpectRefusal(R"({"type":"Feature","properties":{"name":"n"},"geometry":)"
                  R"({"type":"MultiPoint","coordinates":[[1,2],[3,4]]}})",
                  "geojson", "feature 1: an area is one outline, not 2; --parts makes a report of each");
}

TEST(ToolImport, WhatASetterRefusesIsToldInItsWords)
{
    ExpectRefusal(
        R"({"type":"Feature","properties":{"name":"n"},"geometry":)"
        R"({"type":"Point","coordinates":[181,2]}})",
        "geojson",
        "feature 1: point 1 is at longitude 181 and latitude 2: longitudes go from -180 to 180 degrees");
    ExpectRefusal(
        "name,lon,lat\na,nan,2\n", "csv",
        "feature 1: Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'.");
    ExpectRefusal(R"({"type":"Feature","properties":{"frequency_value":"much"},"geometry":null})", "geojson",
                  "feature 1: frequency_value: value is a number, not \"much\"");
    ExpectRefusal(R"({"type":"Feature","properties":{"frequency_min":1},"geometry":null})", "geojson",
                  "feature 1: Frequency: Please set Value properly.");
}

// --- CSV

TEST(ToolImport, CsvWithWkt)
{
    const QString report = QString::fromUtf8(LAKE);
    ExpectReport("area_name,frequency_value,frequency_use,WKT\r\n"
                 "Lake,121500000,true,\"POLYGON ((9 47.5, 10 47.5, 9.5 48, 9 47.5))\"\r\n",
                 "csv", report);
    // With a byte order mark; an empty cell in quotes holds no geometry either.
    ExpectReport("\xEF\xBB\xBFWKT,colour\r\n\"\",red\r\n", "csv", QStringLiteral("\n<ReportBase/>"));
    // With bare line feeds, heights, an empty cell, and no line end at the end.
    ExpectReport("name,frequency_value,frequency_use,wkt,frequency_min\n"
                 "Lake,121500000,1,\"polygon z((9 47.5 1,10 47.5 1,9.5 48 1,9 47.5 1))\",",
                 "csv", report);
}

TEST(ToolImport, CsvLinesMayEndWithCarriageReturns)
{
    ExpectReport("name,WKT\rHill,POINT (8.5 47.25)\r", "csv", PointReport("Hill"));
    ExpectReport("name,WKT\r\r\n\n\"Hill\",\"POINT (8.5 47.25)\"", "csv", PointReport("Hill"));
    // Two in quotes, one empty line.
    ExpectRefusal("name,WKT\r\"a\rb\r\nc\",\r\r\"d\"e,\r", "csv", "line 6: text behind a closing quote");
}

TEST(ToolImport, CsvTextsKeepWhatIsQuoted)
{
    ExpectReport("area_name,WKT\r\n\"a, \"\"b\"\"\nc\",POINT (8.5 47.25)\r\n", "csv",
                 PointReport("a, &quot;b&quot;\nc"));
}

TEST(ToolImport, TextThatXmlCannotHoldIsRefused)
{
    // Readers of XML take a carriage return and a line feed for one line end.
    ExpectRefusal("area_name,WKT\n\"a\r\nb\",POINT (8.5 47.25)\n", "csv",
                  "feature 1: XML would not keep the name of the area");
}

TEST(ToolImport, CsvWithALineForEachPoint)
{
    const QString report = QString::fromUtf8(LAKE);
    ExpectReport("name,frequency_value,frequency_use,longitude,latitude\n"
                 "Lake,121500000,true,9,47.5\nx,,,10,47.5\n,,,9.5,48\n,,,9,47.5\n",
                 "csv", report);
    const Scratch scratch;
    scratch.Write("in.csv", "name,point,lat,lon\na,1,47.25,8.5\nb,1,47.25,8.5\n,,,\n");
    EXPECT_EQ(RunTool({"import", "in.csv", ".", "--from", "csv"}, {{}, scratch.Folder(), {}}).exitCode, 0);
    EXPECT_TEXT(QString::fromUtf8(scratch.Read("in-1.xml")), PointReport("a"));
    EXPECT_TEXT(QString::fromUtf8(scratch.Read("in-2.xml")), PointReport("b"));
    EXPECT_TEXT(QString::fromUtf8(scratch.Read("in-3.xml")), "\n<ReportBase/>");
}

TEST(ToolImport, CsvThatIsNoneIsRefused)
{
    ExpectRefusal("", "csv", "there is no header");
    ExpectRefusal("name,x,z\na,1,2\n", "csv",
                  "the header has no column with geometries: WKT, or longitude and latitude");
    ExpectRefusal("name,WKT\n", "csv", "there is no feature");
    ExpectRefusal("name,WKT\n\na,\"POINT (1\n", "csv", "line 3: a quote is never closed");
    ExpectRefusal("name,WKT\n\"a\"b,\n", "csv", "line 2: text behind a closing quote");
    ExpectRefusal("name,lon,lat\na,east,47\n", "csv",
                  "feature 1: line 2: 'east' is no longitude or latitude");
    for (const char* wkt : {"POINT (8.5)", "POINT 8.5 47.25", "POINT (8.5 47.25", "POINT (8.5 47.25) x",
                            "CURVE (1 2)", "POINT A (8.5 47.25)"})
        ExpectRefusal(QByteArray("name,WKT\na,") + wkt + '\n', "csv",
                      (QByteArray("feature 1: line 2: not well-known text: \"") + wkt + '"').constData());
}

// --- KML

TEST(ToolImport, KmlPlacemarkBecomesAReport)
{
    ExpectReport(
        R"(<?xml version="1.0"?><kml xmlns="http://www.opengis.net/kml/2.2"><Document><Folder><Placemark>
<name> Lake </name><description>deep</description><Style><LineStyle><width>2</width></LineStyle></Style>
<ExtendedData><Data name="frequency_value"><displayName>f</displayName><value>121500000</value></Data>
<SchemaData schemaUrl="#s"><SimpleData name="frequency_use">true</SimpleData>
<SimpleData name="frequency_min"></SimpleData></SchemaData></ExtendedData>
<MultiGeometry><Polygon><extrude>1</extrude><outerBoundaryIs><LinearRing><coordinates>
9,47.5,396 10,47.5,396
9.5,48,396 9,47.5,396 </coordinates></LinearRing></outerBoundaryIs></Polygon></MultiGeometry>
</Placemark></Folder></Document></kml>)",
        "kml", QString::fromUtf8(LAKE));
}

TEST(ToolImport, KmlThatIsNoneIsRefused)
{
    ExpectRefusal("<a/>", "kml", "not KML: neither a kml element nor a placemark");
    ExpectRefusal("<kml/>", "kml", "there is no feature");
    ExpectRefusal("<Placemark><Point><coordinates>8.5;47</coordinates></Point></Placemark>", "kml",
                  "feature 1: a position is longitude,latitude and not \"8.5;47\"");
    ExpectRefusal("<Placemark><name>n</name><Polygon><innerBoundaryIs/></Polygon></Placemark>", "kml",
                  "feature 1: an area has no holes");
    const ToolRun run = Import("<kml>\n<Placemark>", "kml");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.Errors().startsWith(QStringLiteral("reporttool: -: not XML: line 2: ")));
}

TEST(ToolImport, KmlOfGeometriesWithoutEndIsRefused)
{
    ExpectRefusal("<Placemark>" + QByteArray("<MultiGeometry>").repeated(100000), "kml",
                  "geometries within geometries without end");
}

TEST(ToolImport, KmlOfDataWithinDataWithoutEndIsPassedOver)
{
    const int depth = 200000;
    ExpectReport("<Placemark><name>Hill</name><ExtendedData>" + QByteArray("<SchemaData>").repeated(depth) +
                     "<SimpleData name=\"frequency_value\">1</SimpleData>" +
                     QByteArray("</SchemaData>").repeated(depth) +
                     "</ExtendedData><Point><coordinates>8.5,47.25</coordinates></Point></Placemark>",
                 "kml", PointReport("Hill"));
}

// --- What export has written

TEST(ToolImport, ReadsWhatExportWrites)
{
    struct
    {
        const char* to;
        const char* from;
    } const rows[] = {{"geojson", "geojson"},
                      {"geojsonl", "geojson"},
                      {"csv", "csv"},
                      {"csv-points", "csv"},
                      {"kml", "kml"}};
    for (const auto& row : rows) {
        const ToolRun run = RunTool({"export", "-", "--to", row.to}, {FullXml(), {}, {}});
        EXPECT_EQ(run.exitCode, 0) << row.to;
        ExpectReport(run.output, row.from, QString::fromUtf8(FullXml()));
    }
}

// --- Files

class ToolImportFiles : public testing::Test
{
protected:
    ToolImportFiles()
    {
        m_scratch.Write("two.json", "{\"type\":\"Feature\",\"properties\":{\"name\":\"a\"},"
                                    "\"geometry\":{\"type\":\"Point\",\"coordinates\":[8.5,47.25]}}\n"
                                    "\n"
                                    "{\"type\":\"Feature\",\"properties\":{},"
                                    "\"geometry\":{\"type\":\"Point\",\"coordinates\":[8.5,47.25]}}\n");
        m_scratch.Write("parts.json",
                        R"({"type":"Feature","properties":{"name":"p"},"geometry":{"type":"MultiPoint",)"
                        R"("coordinates":[[8.5,47.25],[8.5,47.25]]}})");
        m_scratch.Write("out", OLD_CONTENT);
    }

    ToolRun Run(ToolTest::Arguments arguments) const
    {
        return RunTool(arguments, ToolTest::PlainLocale({}, m_scratch.Folder()));
    }

    const Scratch m_scratch;
};

TEST_F(ToolImportFiles, FolderTakesSeveralFeatures)
{
    const ToolRun run = Run({"import", "two.json", ".", "--from", "geojson"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(run.Errors(), "reporttool: two.json: feature 2: the area has no name\n");
    EXPECT_TEXT(QString::fromUtf8(m_scratch.Read("two-1.xml")), PointReport("a"));
    EXPECT_EQ(m_scratch.Names().size(), 4);
}

TEST_F(ToolImportFiles, FileTakesOneFeature)
{
    EXPECT_UNUSABLE(Run({"import", "two.json", "out", "--from", "geojson"}),
                    "out: 2 features need a folder that is there");
    EXPECT_UNUSABLE(Run({"import", "two.json", "-", "--from", "geojson"}),
                    "-: 2 features need a folder that is there");
    EXPECT_UNUSABLE(Run({"import", "two.json", "missing", "--from", "geojson"}),
                    "missing: 2 features need a folder that is there");
    EXPECT_BYTES(m_scratch.Read("out"), QByteArray(OLD_CONTENT));
}

TEST_F(ToolImportFiles, PartsBecomeReportsOfTheirOwn)
{
    EXPECT_EQ(Run({"import", "parts.json", ".", "--from", "geojson", "--parts"}).exitCode, 0);
    EXPECT_TEXT(QString::fromUtf8(m_scratch.Read("parts-1.xml")), PointReport("p"));
    EXPECT_TEXT(QString::fromUtf8(m_scratch.Read("parts-2.xml")), PointReport("p"));
}

TEST_F(ToolImportFiles, RefusedFeatureLeavesTheOldFile)
{
    EXPECT_EQ(Run({"import", "parts.json", "out", "--from", "geojson"}).exitCode, 1);
    EXPECT_BYTES(m_scratch.Read("out"), QByteArray(OLD_CONTENT));
}

TEST_F(ToolImportFiles, FileThatCannotBeReadOrWrittenEndsWithTwo)
{
    m_scratch.Write("one.csv", "name,WKT\na,POINT (8.5 47.25)\n");
    EXPECT_UNUSABLE(Run({"import", "missing.csv", "out", "--from", "csv"}), "missing.csv: no such file");
    EXPECT_UNUSABLE(Run({"import", ".", "out", "--from", "csv"}), ".: is a directory");
    const ToolRun run = Run({"import", "one.csv", "missing/out", "--from", "csv"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.Errors().startsWith(QStringLiteral("reporttool: missing/out: ")));
#ifdef Q_OS_LINUX
    EXPECT_UNUSABLE(Run({"import", "one.csv", "/dev/full", "--from", "csv"}),
                    "/dev/full: No space left on device");
#endif
    EXPECT_BYTES(m_scratch.Read("out"), QByteArray(OLD_CONTENT));
}

TEST_F(ToolImportFiles, HelpNamesTheFormats)
{
    const ToolRun run = Run({"import", "--help"});
    EXPECT_EQ(run.exitCode, 0);
    for (const char* part : {"import IN OUT", "--from <format>", "--parts", "geojson ", "csv ", "kml ",
                             "gpx ", "--separator <character>", "Exit codes"})
        EXPECT_TRUE(run.output.contains(part)) << part;
}

TEST_F(ToolImportFiles, WrongCommandLineEndsWithTwo)
{
    const QString hint = QStringLiteral("\nTry 'reporttool --help'.");
    EXPECT_UNUSABLE(Run({"import", "two.json", "--from", "csv"}),
                    QStringLiteral("import takes IN and OUT") + hint);
    EXPECT_UNUSABLE(Run({"import", "two.json", "out"}), QStringLiteral("--from is missing") + hint);
    EXPECT_UNUSABLE(Run({"import", "two.json", "out", "--from", "shp"}),
                    QStringLiteral("no format is called 'shp'") + hint);
}

} // namespace
