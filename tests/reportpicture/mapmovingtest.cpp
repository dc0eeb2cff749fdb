#include <reportpicture/mapscale.h>

#include <gtest/gtest.h>

namespace {

using ReportPicture::MapScale;

/// On the equator, with 20 pixels a degree: -5 to 15 degrees east, -5 to 5 degrees north.
MapScale Equator()
{
    return {QRectF(0.0, -5.0, 10.0, 10.0), QRectF(100.0, 50.0, 400.0, 200.0)};
}

TEST(MapScale, TellsThePointAtAPlace)
{
    const ReportCore::Point point = Equator().PointAt({300.0, 70.0});
    EXPECT_DOUBLE_EQ(point.longitude, 5.0);
    EXPECT_DOUBLE_EQ(point.latitude, 4.0);
}

TEST(MapScale, MovesByPixels)
{
    // What is shown goes 40 pixels to the right and 20 down: what is seen lies further west and north.
    const MapScale moved = Equator().MovedBy({40.0, 20.0});
    EXPECT_DOUBLE_EQ(moved.West(), -7.0);
    EXPECT_DOUBLE_EQ(moved.East(), 13.0);
    EXPECT_DOUBLE_EQ(moved.North(), 6.0);
    EXPECT_DOUBLE_EQ(moved.South(), -4.0);
}

TEST(MapScale, MiddleStaysOnTheEarth)
{
    const MapScale moved = Equator().MovedBy({0.0, 1e6});
    EXPECT_DOUBLE_EQ(moved.North(), 95.0);
    EXPECT_DOUBLE_EQ(moved.South(), 85.0);
}

TEST(MapScale, EnlargesAroundAPlace)
{
    // The place shows 10 degrees east and 3 degrees north; half as much is seen around it.
    const MapScale enlarged = Equator().Enlarged(2.0, {400.0, 90.0});
    EXPECT_DOUBLE_EQ(enlarged.PointAt({400.0, 90.0}).longitude, 10.0);
    EXPECT_DOUBLE_EQ(enlarged.PointAt({400.0, 90.0}).latitude, 3.0);
    EXPECT_DOUBLE_EQ(enlarged.East() - enlarged.West(), 10.0);
    EXPECT_DOUBLE_EQ(enlarged.North() - enlarged.South(), 5.0);
}

TEST(MapScale, MiddleStaysOnTheEarthWhenEnlarged)
{
    // Around a place that shows 95 degrees north, which no place on the earth does.
    const MapScale moved = Equator().MovedBy({0.0, 1e6});
    const MapScale enlarged = moved.Enlarged(2.0, {300.0, 50.0});
    EXPECT_DOUBLE_EQ(enlarged.North(), 92.5);
    EXPECT_DOUBLE_EQ(enlarged.South(), 87.5);
}

TEST(MapScale, KeepsTheMiddleInAnotherFrame)
{
    const MapScale scale = Equator().WithFrame(QRectF(0.0, 0.0, 200.0, 400.0));
    EXPECT_EQ(scale.At({5.0, 0.0}), QPointF(100.0, 200.0));
    EXPECT_DOUBLE_EQ(scale.East() - scale.West(), 10.0);
}

} // namespace
