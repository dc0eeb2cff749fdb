// What files of other programs hold beside features, and in what they are packed.

#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::PlainLocale;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

constexpr char RS[] = "\x1E";

QByteArray Feature(const char* name)
{
    return QByteArray(R"({"type":"Feature","properties":{"name":")") + name +
           R"("},"geometry":{"type":"Point","coordinates":[8.5,47.25]}})";
}

/// Into a folder: the names of the areas in the order of the files, and what is told.
void ExpectImport(const QByteArray& input, const char* format, const char* names, const char* errors)
{
    const Scratch scratch;
    const ToolRun run = RunTool({"import", "-", ".", "--from", format}, PlainLocale(input, scratch.Folder()));
    EXPECT_EQ(run.exitCode, *errors == '\0' ? 0 : 1) << input.constData();
    EXPECT_TEXT(run.Errors(), errors);
    QStringList written;
    for (const QString& file : scratch.Names())
        written << QString::fromUtf8(scratch.Read(file.toUtf8().constData()))
                       .section(QStringLiteral("<Name>"), 1)
                       .section(QStringLiteral("</Name>"), 0, 0);
    EXPECT_TEXT(written.join(QLatin1Char(' ')), names) << input.constData();
}

// --- Sequences of JSON texts

TEST(ToolImportInput, JsonTextSequenceHoldsAFeatureInEachText)
{
    ExpectImport(RS + Feature("a") + '\n' + RS + Feature("b") + '\n', "geojson", "a b", "");
    ExpectImport(RS + Feature("a") + '\n', "geojson", "a", "");
    // Over several lines, without a line end, and nothing in one.
    ExpectImport(RS + Feature("a").replace(",", ",\n") + "\n\n" + RS + RS + "\n" + RS + Feature("b"),
                 "geojson", "a b", "");
    ExpectImport(RS + ("{\"type\":\"FeatureCollection\",\"features\":[" + Feature("a") + "]}\n") + RS +
                     Feature("b"),
                 "geojson", "a b", "");
}

TEST(ToolImportInput, JsonTextThatIsCutOffLeavesTheOthers)
{
    ExpectImport(RS + Feature("a") + '\n' + RS + "{\n\"type\": \"Feature\",\n" + RS + Feature("c") + '\n' +
                     RS + "{}",
                 "geojson", "a c",
                 "reporttool: -: feature 2: not JSON: line 4: unterminated object\n"
                 "reporttool: -: feature 4: not GeoJSON: no feature, feature collection or geometry\n");
}

// --- Packed files

TEST(ToolImportInput, PackedFilesAreNamedAsWhatTheyAre)
{
    const QByteArray version("\x14\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 22);
    const auto archive = [&version](const QByteArray& name) {
        return "PK\x03\x04" + version + char(name.size()) + '\0' + QByteArray(2, '\0') + name + "content";
    };
    const QByteArray gzip("\x1F\x8B\x08\0\0\0\0\0\0\x03", 10);
    for (const char* format : {"geojson", "csv", "kml", "gpx"}) {
        ExpectImport(gzip, format, "", "reporttool: -: this is a gzip file, which gunzip unpacks\n");
        ExpectImport(archive("doc.kml"), format, "",
                     "reporttool: -: this is a kmz file, KML in a zip archive, which unzip unpacks\n");
        ExpectImport(archive("DOC.KML"), format, "",
                     "reporttool: -: this is a kmz file, KML in a zip archive, which unzip unpacks\n");
        ExpectImport(archive("lakes.shp"), format, "",
                     "reporttool: -: this is a zip archive, which unzip unpacks\n");
        ExpectImport("PK\x03\x04", format, "", "reporttool: -: this is a zip archive, which unzip unpacks\n");
    }
    ExpectImport("PK,WKT,name\n,POINT (1 2),a\n", "csv", "a", "");
}

// --- Features without a geometry

TEST(ToolImportInput, NameWithoutAGeometryIsToldWhenItIsNotKept)
{
    struct
    {
        const char* format;
        const char* input;
    } const rows[] = {
        {"geojson", R"({"type":"Feature","properties":{"name":"Hill"},"geometry":null})"},
        {"geojson",
         R"({"type":"Feature","properties":{"name":"Hill"},"geometry":{"type":"Polygon","coordinates":[]}})"},
        {"csv", "Name,WKT\nHill,\n"},
        {"csv", "name,WKT\nHill,POINT EMPTY\n"},
        {"csv", "name,lon,lat\nHill,,\n"},
        {"kml", "<kml><Placemark><name>Hill</name></Placemark></kml>"},
        {"gpx", "<gpx><trk><name>Hill</name><trkseg/></trk></gpx>"},
        {"gpx", "<gpx><rte><name>Hill</name></rte></gpx>"},
    };
    for (const auto& row : rows) {
        const ToolRun run = RunTool({"import", "-", "-", "--from", row.format}, PlainLocale(row.input));
        EXPECT_EQ(run.exitCode, 0) << row.input;
        EXPECT_TEXT(run.Output(), "\n<ReportBase/>");
        EXPECT_TEXT(run.Errors(),
                    "reporttool: warning: -: feature 1: without a geometry there is no area, and its "
                    "name \"Hill\" is not kept\n");
    }
}

TEST(ToolImportInput, OtherFieldsOfAnAreaWithoutAGeometryRefuseTheFeature)
{
    for (const char* property : {"area_name", "area_scriptId"}) {
        const ToolRun run = RunTool({"import", "-", "-", "--from", "csv"},
                                    PlainLocale(QByteArray(property) + ",WKT\nHill,\n"));
        EXPECT_EQ(run.exitCode, 1) << property;
        EXPECT_TEXT(run.Output(), "");
    }
}

} // namespace
