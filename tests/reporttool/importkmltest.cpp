#include "toolrun.h"

#include <gtest/gtest.h>

// Geometries of KML that no area can hold.

namespace {

using ToolTest::PlainLocale;
using ToolTest::RunTool;
using ToolTest::ToolRun;

QByteArray Kml(const char* placemarks)
{
    return QByteArray("<kml xmlns=\"http://www.opengis.net/kml/2.2\" "
                      "xmlns:gx=\"http://www.google.com/kml/ext/2.2\">") +
           placemarks + "</kml>";
}

TEST(ToolImportKml, TrackOrModelAloneIsRefused)
{
    struct
    {
        const char* geometry;
        const char* name;
    } const rows[] = {{"<gx:Track><gx:coord>1 2 3</gx:coord></gx:Track>", "Track"},
                      {"<gx:MultiTrack><gx:Track/></gx:MultiTrack>", "MultiTrack"},
                      {"<MultiGeometry><Model><Location/></Model></MultiGeometry>", "Model"}};
    for (const auto& row : rows) {
        const QByteArray placemark = QByteArray("<Placemark><name>n</name>") + row.geometry + "</Placemark>";
        const ToolRun run =
            RunTool({"import", "-", "-", "--from", "kml"}, PlainLocale(Kml(placemark.constData())));
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_TEXT(run.Output(), "");
        EXPECT_TEXT(run.Errors(),
                    QStringLiteral("reporttool: -: feature 1: an area is one outline, not a %1\n")
                        .arg(QLatin1String(row.name)));
    }
}

TEST(ToolImportKml, PlacemarkWithoutGeometryIsAReportWithoutArea)
{
    const ToolRun run = RunTool({"import", "-", "-", "--from", "kml"},
                                PlainLocale(Kml("<Placemark><name>n</name><Style/></Placemark>")));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TEXT(run.Output(), "\n<ReportBase/>");
    EXPECT_TEXT(run.Errors(),
                "reporttool: warning: -: feature 1: without a geometry there is no area, and its "
                "name \"n\" is not kept\n");
}

} // namespace
