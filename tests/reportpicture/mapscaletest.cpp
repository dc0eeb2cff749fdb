#include "support/expect.h"

#include <reportpicture/mapscale.h>

#include <gtest/gtest.h>

namespace {

using ReportPicture::GraticuleStep;
using ReportPicture::LatitudeText;
using ReportPicture::LengthText;
using ReportPicture::LongitudeText;
using ReportPicture::MapScale;
using ReportPicture::RoundStep;

TEST(MapScale, PutsTheBoxIntoTheMiddleOfTheFrame)
{
    // On the equator both degrees are equally long. The box of 10 by 10 degrees fills the height.
    const MapScale scale(QRectF(0.0, -5.0, 10.0, 10.0), QRectF(100.0, 50.0, 400.0, 200.0));
    EXPECT_EQ(scale.At({5.0, 0.0}), QPointF(300.0, 150.0));
    EXPECT_EQ(scale.At({0.0, 5.0}), QPointF(200.0, 50.0));
    EXPECT_EQ(scale.At({10.0, -5.0}), QPointF(400.0, 250.0));
    EXPECT_DOUBLE_EQ(scale.West(), -5.0);
    EXPECT_DOUBLE_EQ(scale.East(), 15.0);
    EXPECT_DOUBLE_EQ(scale.South(), -5.0);
    EXPECT_DOUBLE_EQ(scale.North(), 5.0);
    EXPECT_DOUBLE_EQ(scale.PixelsOfKilometre(), 20.0 / 111.195);
}

TEST(MapScale, DegreesOfLongitudeAreShorterInTheNorth)
{
    // At 60 degrees they have half the length.
    const MapScale scale(QRectF(0.0, 55.0, 10.0, 10.0), QRectF(0.0, 0.0, 100.0, 100.0));
    EXPECT_DOUBLE_EQ(scale.North() - scale.South(), 10.0);
    EXPECT_NEAR(scale.East() - scale.West(), 20.0, 1e-9);
}

TEST(MapScale, StepsAreRound)
{
    EXPECT_DOUBLE_EQ(RoundStep(1.0), 1.0);
    EXPECT_DOUBLE_EQ(RoundStep(1.99), 1.0);
    EXPECT_DOUBLE_EQ(RoundStep(2.0), 2.0);
    EXPECT_DOUBLE_EQ(RoundStep(49.0), 20.0);
    EXPECT_DOUBLE_EQ(RoundStep(0.07), 0.05);
    EXPECT_DOUBLE_EQ(GraticuleStep(360.0), 45.0);
    EXPECT_DOUBLE_EQ(GraticuleStep(200.0), 30.0);
    EXPECT_DOUBLE_EQ(GraticuleStep(100.0), 15.0);
    EXPECT_DOUBLE_EQ(GraticuleStep(60.0), 10.0);
    EXPECT_DOUBLE_EQ(GraticuleStep(42.0), 5.0);
    EXPECT_DOUBLE_EQ(GraticuleStep(1.5), 0.2);
}

TEST(MapScale, TextsHaveTheirUnits)
{
    EXPECT_TEXT(LongitudeText(9.5), "9.5° E");
    EXPECT_TEXT(LongitudeText(-0.25), "0.25° W");
    EXPECT_TEXT(LongitudeText(0.0), "0°");
    EXPECT_TEXT(LongitudeText(180.0), "180°");
    EXPECT_TEXT(LongitudeText(185.0), "175° W");
    EXPECT_TEXT(LongitudeText(-190.0), "170° E");
    EXPECT_TEXT(LatitudeText(47.5), "47.5° N");
    EXPECT_TEXT(LatitudeText(-10.0), "10° S");
    EXPECT_TEXT(LengthText(50.0), "50 km");
    EXPECT_TEXT(LengthText(0.2), "200 m");
}

} // namespace
