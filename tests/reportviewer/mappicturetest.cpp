#include "viewerwindow.h"

#include <reportviewer/mapview.h>

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtTest/QTest>

#include <functional>
#include <vector>

namespace {

using ReportViewer::ContentsPointer;
using ReportViewer::MapView;

ContentsPointer Lake(const char* north)
{
    const QByteArray xml = "<ReportBase><Area Version=\"1.0\"><Name>Lake</Name>"
                           "<Coordinate><Longitude>9</Longitude><Latitude>47</Latitude></Coordinate>"
                           "<Coordinate><Longitude>10</Longitude><Latitude>47</Latitude></Coordinate>"
                           "<Coordinate><Longitude>10</Longitude><Latitude>" +
                           QByteArray(north) + "</Latitude></Coordinate></Area></ReportBase>";
    return ReportViewer::ReadContents(xml, [](const QString& /*step*/, int /*percent*/) {});
}

/// Something that changes what is seen.
struct Step
{
    const char* name;
    std::function<void(MapView& map)> run;
};

const std::vector<Step>& Steps()
{
    static const std::vector<Step> steps = {
        {"contents", [](MapView& map) { map.SetContents(Lake("48")); }},
        {"mark", [](MapView& map) { map.MarkPoint(0); }},
        {"another mark", [](MapView& map) { map.MarkPoint(2); }},
        {"enlarged", [](MapView& map) { map.Enlarge(2.0); }},
        {"moved", [](MapView& map) { QTest::keyClick(&map, Qt::Key_Left); }},
        {"mark out of sight", [](MapView& map) { map.MarkPoint(1); }},
        {"another size", [](MapView& map) { map.resize(400, 360); }},
        {"all of it", [](MapView& map) { map.FitArea(); }},
        {"a change of the report", [](MapView& map) { map.Renew(Lake("47.5")); }},
        {"another font",
         [](MapView& map) {
             QFont font = map.font();
             font.setPointSize(font.pointSize() + 4);
             map.setFont(font);
         }},
        {"no mark", [](MapView& map) { map.MarkPoint(-1); }},
        {"no report", [](MapView& map) { map.SetContents(std::make_shared<ReportViewer::Contents>()); }},
    };
    return steps;
}

/// The last one has been seen by nobody before.
TEST(ViewerMapPicture, ShowsTheSameHoweverOftenItWasShownBefore)
{
    MapView seen;
    seen.resize(500, 400);
    // Only what is shown keeps its picture; who has the keyboard is of no matter here.
    seen.setFocusPolicy(Qt::NoFocus);
    seen.show();
    ASSERT_TRUE(ViewerTest::WaitFor([&seen] { return seen.isVisible(); }));
    QImage last;
    for (std::size_t count = 1; count <= Steps().size(); ++count) {
        const Step& step = Steps()[count - 1];
        step.run(seen);
        const QImage image = seen.grab().toImage();
        EXPECT_NE(image, last) << step.name;
        last = image;

        MapView fresh;
        fresh.resize(500, 400);
        for (std::size_t i = 0; i < count; ++i)
            Steps()[i].run(fresh);
        EXPECT_EQ(image, fresh.grab().toImage()) << step.name;
    }
}

} // namespace
