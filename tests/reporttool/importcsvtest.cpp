#include "toolrun.h"

#include <QtCore/QStringList>

#include <gtest/gtest.h>

// Tables as other programs write them, and what is wrong in some.

namespace {

using ToolTest::PlainLocale;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

/// Into a folder; the files that are written, and what is told.
void ExpectImport(const QByteArray& input, const char* files, const char* errors)
{
    const Scratch scratch;
    const ToolRun run = RunTool({"import", "-", ".", "--from", "csv"}, PlainLocale(input, scratch.Folder()));
    EXPECT_EQ(run.exitCode, *errors == '\0' ? 0 : 1) << input.constData();
    EXPECT_TEXT(scratch.Names().join(QLatin1Char(' ')), files);
    EXPECT_TEXT(run.Errors(), errors);
}

/// The longitudes and latitudes of the only report: "9 47.5, 10 47.5".
void ExpectPoints(const QByteArray& input, const char* points, ToolTest::Arguments arguments)
{
    const Scratch scratch;
    const ToolRun run = RunTool(arguments, PlainLocale(input, scratch.Folder()));
    EXPECT_EQ(run.exitCode, 0) << input.constData();
    EXPECT_TEXT(run.Errors(), "");
    QStringList found;
    const QStringList coordinates = run.Output().split(QStringLiteral("<Coordinate>")).mid(1);
    for (const QString& coordinate : coordinates)
        found << coordinate.section(QStringLiteral("<Longitude>"), 1).section(QLatin1Char('<'), 0, 0) +
                     QLatin1Char(' ') +
                     coordinate.section(QStringLiteral("<Latitude>"), 1).section(QLatin1Char('<'), 0, 0);
    EXPECT_TEXT(found.join(QStringLiteral(", ")), points) << input.constData();
}

void ExpectPoints(const QByteArray& input, const char* points)
{
    ExpectPoints(input, points, {"import", "-", "-", "--from", "csv"});
}

// --- As others write them

TEST(ToolImportCsv, SeparatorIsFoundOutInTheHeader)
{
    const char* const point = "8.500000 47.250000";
    ExpectPoints("name;WKT\nHill;POINT (8.5 47.25)\n", point);
    ExpectPoints("WKT\tname\nPOINT (8.5 47.25)\tHill, \"the\"; high\n", point);
    ExpectPoints("\"name, of it\";name;lon;lat\r\n;a;8.5;47.25\r\n", point);
    ExpectPoints("\"a\nb\"\tname\tlongitude\tlatitude\n\th\t8.5\t47.25\n", point);
    ExpectPoints("\xEF\xBB\xBFlon;lat;name\n8.5;47.25;a\n", point);
    // With a comma the header has no column of them.
    ExpectPoints("lat;name;lon, or else;lon\n47.25;a;b,c;8.5\n", point);
}

TEST(ToolImportCsv, SeparatorMayBeNamed)
{
    const char* const point = "8.500000 47.250000";
    const QByteArray semicolons = "name;WKT\nHill;POINT (8.5 47.25)\n";
    ExpectPoints(semicolons, point, {"import", "-", "-", "--from", "csv", "--separator", "semicolon"});
    ExpectPoints(semicolons, point, {"import", "-", "-", "--from", "csv", "--separator", ";"});
    ExpectPoints("name\tX\tY\na\t8.5\t47.25\n", point,
                 {"import", "-", "-", "--from", "csv", "--separator", "tab"});
    ExpectPoints("name|X|Y\na|8.5|47.25\n", point, {"import", "-", "-", "--from", "csv", "--separator", "|"});
    // All columns of it are found with another one.
    const ToolRun run =
        RunTool({"import", "-", "-", "--from", "csv", "--separator", "comma"}, PlainLocale(semicolons));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TEXT(run.Errors(),
                "reporttool: -: the header has no column with geometries: WKT, or longitude and "
                "latitude\n");
}

TEST(ToolImportCsv, SeparatorThatIsNoneIsRefused)
{
    const QString hint = QStringLiteral("\nTry 'reporttool --help'.");
    for (const char* separator : {"", "a", "7", "\"", "\n", "::", "commas"}) {
        const QString shown = QLatin1String(separator) == QLatin1String("\"")   ? QStringLiteral("\\\"")
                              : QLatin1String(separator) == QLatin1String("\n") ? QStringLiteral("\\n")
                                                                                : QLatin1String(separator);
        EXPECT_UNUSABLE(
            RunTool({"import", "-", "-", "--from", "csv", "--separator", separator}),
            QStringLiteral("--separator is comma, semicolon, tab or a character, not \"%1\"").arg(shown) +
                hint);
    }
    EXPECT_UNUSABLE(RunTool({"import", "-", "-", "--from", "kml", "--separator", "tab"}),
                    QStringLiteral("--separator is for csv") + hint);
}

TEST(ToolImportCsv, ColumnsOfGeometriesHaveManyNames)
{
    const char* const point = "8.500000 47.250000";
    for (const char* column : {"WKT", "wkt_geom", "geom", "the_geom", "geometry", " Geom "})
        ExpectPoints(QByteArray("name,") + column + "\na,Point (8.5 47.25)\n", point);
    for (const char* columns :
         {"longitude,latitude", "LON,LAT", "long,lat", "lng,lat", "X,Y", "x,y", "Longitude, Latitude"})
        ExpectPoints(QByteArray("name,") + columns + "\na,8.5,47.25\n", point);
    // In degrees beside metres; a geometry beside a point that marks it.
    ExpectPoints("x,y,lon,lat,name\n688000,5237000,8.5,47.25,a\n", point);
    ExpectPoints("lon,lat,name,geom\n9,48,a,POINT (8.5 47.25)\n", point);
}

TEST(ToolImportCsv, TypesOfWktMayEndWithTheirDimensions)
{
    ExpectPoints("wkt_geom\tname\nLineStringZ (8.5 47.25 400, 9 48 500)\tHill\n",
                 "8.500000 47.250000, 9.000000 48.000000");
    ExpectPoints("name,WKT\na,\"MULTIPOINTZM((8.5 47.25 1 2))\"\n", "8.500000 47.250000");
    ExpectPoints("name,WKT\na,POINTM(8.5 47.25 1)\n", "8.500000 47.250000");
    ExpectImport("name,WKT\na,POINTZZ (1 2 3)\n", "",
                 "reporttool: -: feature 1: line 2: not well-known text: \"POINTZZ (1 2 3)\"\n");
}

TEST(ToolImportCsv, WellKnownBinaryIsNamedAsWhatItIs)
{
    ExpectImport(
        "name,geom\na,0101000020E610000000000000000021400000000000A04740\n", "",
        "reporttool: -: feature 1: line 2: well-known binary; ST_AsText makes well-known text of it\n");
}

TEST(ToolImportCsv, DecimalCommasAreTakenWhereTheyAreNothingElse)
{
    const char* const point = "8.500000 47.250000";
    ExpectPoints("name;lon;lat\na;8,5;47,25\n", point);
    ExpectPoints("name,lon,lat\na,\"8,5\",\"47,25\"\n", point);
    // No degree is 47250.
    ExpectPoints("name;lon;lat\na;8,5;47,250\n", point);
    ExpectImport("name;lon;lat\na;8,500,0;47\nb;8.500,5;47\n", "",
                 "reporttool: -: feature 1: line 2: '8,500,0' is no longitude or latitude\n");
}

TEST(ToolImportCsv, CommasOfOtherNumbersMayStandForTwoThings)
{
    const QByteArray header = "name;lon;lat;frequency_value\n";
    const auto run = [&header](const char* number) {
        return RunTool({"import", "-", "-", "--from", "csv"},
                       PlainLocale(header + "a;8,5;47;" + number + "\n"));
    };
    const auto expect = [&run](const char* number, const char* taken) {
        EXPECT_TRUE(run(number).output.contains(QByteArray("<Frequency>") + taken + "</Frequency>"))
            << number;
    };
    expect("98300000,5", "98300000.50");
    expect("0,125", "0.13");
    expect("1000,250", "1000.25");
    for (const char* number : {"98,300", "8,414", "-1,000", "121,500 "}) {
        EXPECT_EQ(run(number).exitCode, 1) << number;
        EXPECT_TEXT(run(number).Errors(),
                    QStringLiteral("reporttool: -: feature 1: frequency_value: the comma of \"%1\" may stand "
                                   "before decimals or between thousands\n")
                        .arg(QLatin1String(number)));
    }
    EXPECT_TEXT(run("98,300,000").Errors(),
                "reporttool: -: feature 1: frequency_value: value is a number, not \"98,300,000\"\n");
}

// --- What is wrong in them

TEST(ToolImportCsv, LineWithMoreCellsThanTheHeaderIsRefused)
{
    ExpectImport("name,point,lon,lat\na,1,1,2\nb,1,3,4\nb,2,9,5,47,5\nc,1,5,6\n", "report-1.xml report-3.xml",
                 "reporttool: -: feature 2: line 4: 6 cells under a header of 4\n");
    ExpectImport("name,WKT\na,POINT (1 2)\nb,POINT (1 2),\nc,POINT (1,5 2,5)\n", "report-1.xml",
                 "reporttool: -: feature 2: line 3: 3 cells under a header of 2\n"
                 "reporttool: -: feature 3: line 4: 4 cells under a header of 2\n");
}

TEST(ToolImportCsv, LineWithFewerCellsThanTheHeaderIsTaken)
{
    ExpectImport("name,WKT,frequency_value\na,POINT (1 2)\n", "report-1.xml", "");
}

TEST(ToolImportCsv, BytesThatAreNoUtf8AreRefused)
{
    ExpectImport("name,WKT\na,POINT (1 2)\nZ\xFCrich,POINT (1 2)\n", "",
                 "reporttool: -: line 3: not UTF-8\n");
    ExpectImport("\xEF\xBB\xBFname,WKT\nZ\xC3", "", "reporttool: -: line 2: not UTF-8\n");
    // Behind the mark at the start another one is a character.
    ExpectImport("\xEF\xBB\xBF\xEF\xBB\xBFname,WKT,area_name\n,POINT (1 2),a\n", "report-1.xml", "");
    // The character that stands for what cannot be read may be meant.
    ExpectImport("\xEF\xBB\xBFname,WKT\nZ\xEF\xBF\xBD\xC3\xBC,POINT (1 2)\n", "report-1.xml", "");
}

} // namespace
