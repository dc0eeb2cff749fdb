#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

QByteArray GeoFeature(const char* name, const char* geometry)
{
    return QByteArray(R"({"type":"Feature","properties":{"name":")") + name + R"("},"geometry":)" + geometry +
           "}\n";
}

QByteArray PointFeature(const char* name)
{
    return GeoFeature(name, R"({"type":"Point","coordinates":[1,2]})");
}

QByteArray Placemark(const char* name, const QByteArray& geometry)
{
    return QByteArray("<Placemark><name>") + name + "</name>" + geometry + "</Placemark>";
}

/// Into a folder of its own.
class ToolImportRefusal : public testing::Test
{
protected:
    /// The names of the areas in the files that are written, in their order.
    void ExpectImport(const QByteArray& input, ToolTest::Arguments arguments, const char* names,
                      const QString& errors)
    {
        const Scratch scratch;
        const ToolRun run = RunTool(arguments, ToolTest::PlainLocale(input, scratch.Folder()));
        EXPECT_EQ(run.exitCode, errors.isEmpty() ? 0 : 1) << input.constData();
        EXPECT_TEXT(run.Errors(), errors);
        QStringList written;
        for (const QString& file : scratch.Names()) {
            const QString report = QString::fromUtf8(scratch.Read(file.toUtf8().constData()));
            written << report.section(QStringLiteral("<Name>"), 1).section(QStringLiteral("</Name>"), 0, 0);
        }
        EXPECT_TEXT(written.join(QLatin1Char(' ')), names);
    }
};

TEST_F(ToolImportRefusal, GeoJsonFeatureThatIsWrongLeavesTheOthers)
{
    const QString position =
        QStringLiteral("reporttool: -: feature 2: a position is an array of longitude and latitude\n");
    const QByteArray point = GeoFeature("b", R"({"type":"Point","coordinates":[1]})");
    const QByteArray line = GeoFeature("b", R"({"type":"LineString","coordinates":[[1,2],[3]]})");
    const QByteArray ring = GeoFeature("b", R"({"type":"Polygon","coordinates":[[[1,2],[3,4],"x"]]})");
    for (const QByteArray& bad : {point, line, ring}) {
        ExpectImport(PointFeature("a") + bad + PointFeature("c"), {"import", "-", ".", "--from", "geojson"},
                     "a c", position);
        ExpectImport(R"({"type":"FeatureCollection","features":[)" + PointFeature("a") + ',' + bad + ',' +
                         PointFeature("c") + "]}",
                     {"import", "-", ".", "--from", "geojson"}, "a c", position);
    }
    ExpectImport(PointFeature("a") + GeoFeature("b", R"({"type":"Circle","coordinates":[1,2]})"),
                 {"import", "-", ".", "--from", "geojson"}, "a",
                 QStringLiteral("reporttool: -: feature 2: 'Circle' is no type of a geometry\n"));
}

TEST_F(ToolImportRefusal, GeoJsonLineThatIsNoneLeavesTheOthers)
{
    ExpectImport(PointFeature("a") + "\n{\"type\": \"Feature\",\n{}\n" + PointFeature("d"),
                 {"import", "-", ".", "--from", "geojson"}, "a d",
                 QStringLiteral(
                     "reporttool: -: feature 2: not JSON: line 3: unterminated object\n"
                     "reporttool: -: feature 3: not GeoJSON: no feature, feature collection or geometry\n"));
}

TEST_F(ToolImportRefusal, CsvLineThatIsWrongLeavesTheOthers)
{
    ExpectImport("name,WKT\na,POINT (1 2)\nb,POINT(1)\nc,POINT (3 4)\n",
                 {"import", "-", ".", "--from", "csv"}, "a c",
                 QStringLiteral("reporttool: -: feature 2: line 3: not well-known text: \"POINT(1)\"\n"));
    // The report that a wrong point belongs to has more points, before it and behind it.
    ExpectImport("name,point,lon,lat\na,1,1,2\nb,1,3,4\nb,2,abc,2\nb,3,5,south\nc,1,5,6\n",
                 {"import", "-", ".", "--from", "csv"}, "a c",
                 QStringLiteral("reporttool: -: feature 2: line 4: 'abc' is no longitude or latitude\n"));
}

TEST_F(ToolImportRefusal, KmlPlacemarkThatIsWrongLeavesTheOthers)
{
    const QByteArray good = "<Point><coordinates>1,2</coordinates></Point>";
    ExpectImport(
        "<kml>" + Placemark("a", good) + Placemark("b", "<Point><coordinates>1 , 2</coordinates></Point>") +
            Placemark("c", good) + "</kml>",
        {"import", "-", ".", "--from", "kml"}, "a c",
        QStringLiteral("reporttool: -: feature 2: a position is longitude,latitude and not \"1\"\n"));
}

TEST_F(ToolImportRefusal, PartsAreToldWithTheNumberOfTheirFeature)
{
    const QByteArray parts = PointFeature("a") +
                             GeoFeature("b", R"({"type":"MultiPoint","coordinates":[[1,2],[3],[5,6]]})") +
                             GeoFeature("c", R"({"type":"Point","coordinates":[1,200]})") + PointFeature("d");
    ExpectImport(
        parts, {"import", "-", ".", "--from", "geojson", "--parts"}, "a b b d",
        QStringLiteral("reporttool: -: feature 2, part 2: a position is an array of longitude and latitude\n"
                       "reporttool: -: feature 3: point 1 is at longitude 1 and latitude 200: these are no "
                       "longitudes and "
                       "latitudes\n"));
}

TEST_F(ToolImportRefusal, OnlyThePartWithAHoleIsRefused)
{
    const QString hole = QStringLiteral("reporttool: -: feature 1, part 2: an area has no holes\n");
    ExpectImport(GeoFeature("p", R"({"type":"MultiPolygon","coordinates":[[[[0,0],[1,0],[0,1]]],)"
                                 R"([[[0,0],[9,0],[0,9]],[[1,1],[2,1],[1,2]]],[[[5,5],[6,5],[5,6]]]]})"),
                 {"import", "-", ".", "--from", "geojson", "--parts"}, "p p", hole);
    ExpectImport("name,WKT\n"
                 "p,\"MULTIPOLYGON (((0 0, 1 0, 0 1)), ((0 0, 9 0, 0 9), (1 1, 2 1, 1 2)), "
                 "((5 5, 6 5, 5 6)))\"\n",
                 {"import", "-", ".", "--from", "csv", "--parts"}, "p p", hole);
    const QByteArray outer = "<outerBoundaryIs><LinearRing><coordinates>0,0 9,0 0,9</coordinates>"
                             "</LinearRing></outerBoundaryIs>";
    ExpectImport("<kml>" +
                     Placemark("p", "<MultiGeometry><Polygon>" + outer +
                                        "</Polygon><Polygon><innerBoundaryIs/>" + outer +
                                        "</Polygon><Polygon>" + outer + "</Polygon></MultiGeometry>") +
                     "</kml>",
                 {"import", "-", ".", "--from", "kml", "--parts"}, "p p", hole);
}

} // namespace
