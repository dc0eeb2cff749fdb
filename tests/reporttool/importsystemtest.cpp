// Coordinates that are no longitudes and latitudes in WGS 84.

#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::PlainLocale;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char POINT[] = R"({"type":"Point","coordinates":[8.5,47.25]})";

QByteArray Feature(const QByteArray& further = {})
{
    return R"({"type":"Feature","properties":{"name":"a"},"geometry":)" + QByteArray(POINT) + further + '}';
}

QByteArray Collection(const QByteArray& system)
{
    return R"({"type":"FeatureCollection","crs":)" + system + R"(,"features":[)" + Feature() + "]}";
}

QByteArray Named(const QByteArray& name)
{
    return R"({"type":"name","properties":{"name":")" + name + R"("}})";
}

ToolRun Import(const QByteArray& input, const char* format = "geojson")
{
    return RunTool({"import", "-", "-", "--from", format}, PlainLocale(input));
}

void ExpectTaken(const QByteArray& input, const char* format = "geojson")
{
    const ToolRun run = Import(input, format);
    EXPECT_EQ(run.exitCode, 0) << input.constData();
    EXPECT_TEXT(run.Errors(), "");
    EXPECT_TRUE(run.output.contains("<Longitude>8.500000</Longitude>")) << input.constData();
}

/// `shown` is the system's name in the words, `word` as a shell takes it.
void ExpectRefused(const QByteArray& input, const char* shown, const char* word)
{
    const ToolRun run = Import(input);
    EXPECT_EQ(run.exitCode, 1) << input.constData();
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(
        run.Errors(),
        QStringLiteral("reporttool: -: the coordinate system is %1, not WGS 84 (EPSG:4326); this converts "
                       "it: ogr2ogr -s_srs %2 -t_srs EPSG:4326 wgs84.geojson IN\n")
            .arg(QLatin1String(shown), QLatin1String(word)));
}

// --- Named by the file

TEST(ToolImportSystem, Wgs84IsTakenHoweverItIsSpelt)
{
    for (const char* name : {"urn:ogc:def:crs:OGC:1.3:CRS84",
                             "urn:ogc:def:crs:OGC::CRS84",
                             "urn:ogc:def:crs:OGC:1.3:CRS84h",
                             "http://www.opengis.net/def/crs/OGC/1.3/CRS84",
                             "https://www.opengis.net/def/crs/OGC/0/CRS84h",
                             "OGC:CRS84",
                             "CRS84",
                             "CRS:84",
                             "EPSG:4326",
                             "epsg:4326",
                             " EPSG:4326 ",
                             "EPSG::4326",
                             "urn:ogc:def:crs:EPSG::4326",
                             "urn:ogc:def:crs:EPSG:6.6:4326",
                             "urn:x-ogc:def:crs:EPSG:4326",
                             "urn:ogc:def:crs:EPSG::4979",
                             "http://www.opengis.net/def/crs/EPSG/0/4326",
                             "http://www.opengis.net/gml/srs/epsg.xml#4326",
                             "4326",
                             "WGS84",
                             "WGS 84",
                             "wgs_84",
                             "WGS-84",
                             "GCS_WGS_1984"})
        ExpectTaken(Collection(Named(name)));
    for (const char* system :
         {"null", R"("EPSG:4326")", R"({"type":"EPSG","properties":{"code":4326}})",
          R"({"type":"EPSG","properties":{"code":"4326"}})", R"({"properties":{"name":"CRS84"}})",
          R"({"type":"OGC","properties":{"urn":"urn:ogc:def:crs:OGC:1.3:CRS84"}})",
          R"({"type":"link","properties":{"href":"http://spatialreference.org/ref/epsg/4326/proj4/"}})",
          R"({"type":"url","properties":{"url":"https://epsg.io/4326"}})"})
        ExpectTaken(Collection(system));
}

TEST(ToolImportSystem, OtherSystemsAreRefusedWithWhatConvertsThem)
{
    const auto expectCode = [](const QByteArray& system, const char* code) {
        ExpectRefused(Collection(system), code, code);
    };
    for (const char* name : {"urn:ogc:def:crs:EPSG::3857", "urn:ogc:def:crs:EPSG:9.8.15:3857", "EPSG:3857",
                             "epsg:3857", "http://www.opengis.net/def/crs/EPSG/0/3857", "3857"})
        expectCode(Named(name), "EPSG:3857");
    expectCode(R"("EPSG:25832")", "EPSG:25832");
    expectCode(R"({"type":"EPSG","properties":{"code":25832}})", "EPSG:25832");
    expectCode(
        R"({"type":"link","properties":{"href":"https://spatialreference.org/ref/epsg/31467/","type":"x"}})",
        "EPSG:31467");
    // Longitudes and latitudes too, but of other places.
    expectCode(Named("EPSG:4314"), "EPSG:4314");
    expectCode(Named("EPSG:43260"), "EPSG:43260");
    expectCode(Named("EPSG:14326"), "EPSG:14326");
    // As a shell takes it for one word.
    ExpectRefused(Collection(Named("ESRI:102100")), "ESRI:102100", "ESRI:102100");
#ifndef Q_OS_WIN
    ExpectRefused(Collection(Named("WGS 84 / UTM zone 32N")), "WGS 84 / UTM zone 32N",
                  "'WGS 84 / UTM zone 32N'");
    ExpectRefused(Collection(Named("-it's `x`")), "-it's `x`", "'-it'\\''s `x`'");
    ExpectRefused(Collection(R"({"type":"link","properties":{"href":"http://example.org/crs?a&b"}})"),
                  "http://example.org/crs?a&b", "'http://example.org/crs?a&b'");
#endif
}

TEST(ToolImportSystem, AnyObjectOfGeoJsonMayNameIt)
{
    const char* const code = "EPSG:25832";
    const QByteArray system = R"(,"crs":)" + Named("EPSG:25832");
    ExpectRefused(Feature(system), code, code);
    ExpectRefused(R"({"type":"Point","coordinates":[8.5,47.25])" + system + '}', code, code);
    // One that has another one refuses the whole file.
    ExpectRefused(Feature() + '\n' + Feature(system) + '\n', code, code);
    ExpectRefused(R"({"type":"FeatureCollection","features":[)" + Feature() + ',' + Feature(system) + "]}",
                  code, code);
    ExpectTaken(Feature(R"(,"crs":)" + Named("EPSG:4326")));
}

TEST(ToolImportSystem, MemberThatNamesNoneIsRefused)
{
    for (const char* system :
         {"{}", "25832", "[]", "true", R"({"type":"name"})", R"({"type":"name","properties":{}})",
          R"({"type":"name","properties":{"name":null}})", R"("")"}) {
        const ToolRun run = Import(Collection(system));
        EXPECT_EQ(run.exitCode, 1) << system;
        EXPECT_TEXT(run.Errors(), "reporttool: -: the member 'crs' names no coordinate system\n");
    }
}

TEST(ToolImportSystem, CommandNamesTheFile)
{
    const Scratch scratch;
    scratch.Write("lakes.geojson", Collection(Named("EPSG:25832")));
    scratch.Write("the lakes.geojson", Collection(Named("EPSG:25832")));
    const auto errors = [&scratch](const char* name) {
        return RunTool({"import", name, "out.xml", "--from", "geojson"}, PlainLocale({}, scratch.Folder()))
            .Errors();
    };
    EXPECT_TRUE(errors("lakes.geojson").endsWith(QLatin1String(" wgs84.geojson lakes.geojson\n")));
#ifndef Q_OS_WIN
    EXPECT_TRUE(errors("the lakes.geojson").endsWith(QLatin1String(" wgs84.geojson 'the lakes.geojson'\n")));
#endif
    EXPECT_EQ(scratch.Names().size(), 2);
}

TEST(ToolImportSystem, WellKnownTextMayNameIt)
{
    for (const char* prefix : {"SRID=4326;", "srid=4326;", " SRID=4326; ", "SRID=0;", "SRID=4979;", ""})
        ExpectTaken(QByteArray("name,geom\na,") + prefix + "POINT (8.5 47.25)\n", "csv");
    const ToolRun run =
        Import("name,geom\na,POINT (8.5 47.25)\nb,SRID=25832;POINT (691875 5335437)\n", "csv");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Output(), "");
    EXPECT_TEXT(
        run.Errors(),
        "reporttool: -: the coordinate system is EPSG:25832, not WGS 84 (EPSG:4326); this converts it: sed "
        "'s/SRID=[0-9]*;//' IN | ogr2ogr -s_srs EPSG:25832 -t_srs EPSG:4326 -oo GEOM_POSSIBLE_NAMES=geom "
        "wgs84.geojson CSV:/vsistdin/\n");
    for (const char* wkt :
         {"SRID=;POINT (8.5 47.25)", "SRID=WGS84;POINT (8.5 47.25)", "SRID=4326 POINT (8.5 47.25)"})
        EXPECT_TEXT(Import(QByteArray("name,geom\na,") + wkt + '\n', "csv").Errors(),
                    QStringLiteral("reporttool: -: feature 1: line 2: not well-known text: \"%1\"\n")
                        .arg(QLatin1String(wkt)));
}

// --- Told by the numbers

TEST(ToolImportSystem, NumbersOutOfRangeNameTheLikelyCause)
{
    struct
    {
        const char* longitude;
        const char* latitude;
        const char* cause;
    } const rows[] = {
        {"691875.25", "5335437",
         "these are no degrees but may be metres, which ogr2ogr -s_srs SYSTEM -t_srs "
         "EPSG:4326 converts"},
        {"360.5", "47",
         "these are no degrees but may be metres, which ogr2ogr -s_srs SYSTEM -t_srs EPSG:4326 converts"},
        {"47.25", "100", "latitude and longitude may be swapped"},
        {"-90", "-180", "latitude and longitude may be swapped"},
        {"180.5", "47.25", "longitudes go from -180 to 180 degrees"},
        {"360", "-90", "longitudes go from -180 to 180 degrees"},
        {"90.5", "90.5", "these are no longitudes and latitudes"},
        {"8.5", "180.5", "these are no longitudes and latitudes"},
    };
    for (const auto& row : rows) {
        // The first point could be in any of them.
        const ToolRun run = Import(
            QByteArray("name,lon,lat\na,8.5,47.25\na,") + row.longitude + ',' + row.latitude + '\n', "csv");
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_TEXT(
            run.Errors(),
            QStringLiteral("reporttool: -: feature 1: point 2 is at longitude %1 and latitude %2: %3\n")
                .arg(QLatin1String(row.longitude), QLatin1String(row.latitude), QLatin1String(row.cause)));
    }
    // Further points tell what it is.
    const ToolRun run = Import("name,lon,lat\na,200,47\na,8,100\n", "csv");
    EXPECT_TEXT(run.Errors(),
                "reporttool: -: feature 1: point 1 is at longitude 200 and latitude 47: these are no "
                "longitudes and latitudes\n");
}

TEST(ToolImportSystem, EndsOfTheRangesAreTaken)
{
    const ToolRun run = Import("name,lon,lat\na,180,90\na,-180,-90\n", "csv");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Errors(), "");
}

} // namespace
