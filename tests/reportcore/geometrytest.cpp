#include "pointprinter.h"

#include <reportcore/exporting/geometry.h>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using ReportCore::Geometry;
using ReportCore::GeometryOf;
using ReportCore::Points;
using Shape = Geometry::Shape;
using Parts = std::vector<Points>;

void ExpectGeometry(const Points& outline, Shape shape, const Parts& parts)
{
    const Geometry geometry = GeometryOf(outline);
    EXPECT_EQ(geometry.shape, shape);
    EXPECT_EQ(geometry.parts, parts);
}

TEST(ExportGeometry, FewPointsAreNothingAPointOrALine)
{
    ExpectGeometry({}, Shape::None, {});
    ExpectGeometry({{8.5, 47.25}}, Shape::Point, {{{8.5, 47.25}}});
    ExpectGeometry({{8.5, 47.25}, {9.5, 47.5}}, Shape::Line, {{{8.5, 47.25}, {9.5, 47.5}}});
}

TEST(ExportGeometry, RepeatedPointsDoNotCount)
{
    ExpectGeometry({{1, 2}, {1, 2}, {1, 2}}, Shape::Point, {{{1, 2}}});
    ExpectGeometry({{1, 2}, {3, 4}, {3, 4}, {1, 2}}, Shape::Line, {{{1, 2}, {3, 4}}});
    ExpectGeometry({{0, 0}, {1, 0}, {1, 0}, {0, 1}}, Shape::Area, {{{0, 0}, {1, 0}, {0, 1}, {0, 0}}});
}

TEST(ExportGeometry, RingIsClosedAndCounterclockwise)
{
    const Parts expected = {{{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}}};
    ExpectGeometry({{0, 0}, {1, 0}, {1, 1}, {0, 1}}, Shape::Area, expected);
    ExpectGeometry({{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}}, Shape::Area, expected);
    // Clockwise, open and closed: it is turned round, and begins where it began.
    ExpectGeometry({{0, 0}, {0, 1}, {1, 1}, {1, 0}}, Shape::Area, expected);
    ExpectGeometry({{0, 0}, {0, 1}, {1, 1}, {1, 0}, {0, 0}}, Shape::Area, expected);
}

TEST(ExportGeometry, AreaOnTheAntimeridianIsNotCut)
{
    ExpectGeometry({{170, 0}, {180, 0}, {180, 5}, {170, 5}}, Shape::Area,
                   {{{170, 0}, {180, 0}, {180, 5}, {170, 5}, {170, 0}}});
    ExpectGeometry({{-180, 0}, {-170, 0}, {-170, 5}, {-180, 5}}, Shape::Area,
                   {{{-180, 0}, {-170, 0}, {-170, 5}, {-180, 5}, {-180, 0}}});
    // The other name of the same meridian.
    ExpectGeometry({{170, 0}, {-180, 0}, {-180, 5}, {170, 5}}, Shape::Area,
                   {{{170, 0}, {180, 0}, {180, 5}, {170, 5}, {170, 0}}});
}

TEST(ExportGeometry, AreaAcrossTheAntimeridianIsCut)
{
    ExpectGeometry({{170, -10}, {-170, -10}, {-170, 10}, {170, 10}}, Shape::Area,
                   {{{-180, -10}, {-170, -10}, {-170, 10}, {-180, 10}, {-180, -10}},
                    {{180, 10}, {170, 10}, {170, -10}, {180, -10}, {180, 10}}});
}

TEST(ExportGeometry, CutThatMeetsAnAreaSeveralTimesMakesAPartOfEachPiece)
{
    // A bracket that is open towards the west, with its back beyond the antimeridian.
    ExpectGeometry(
        {{175, 0}, {-175, 0}, {-175, 6}, {175, 6}, {175, 4}, {-177, 4}, {-177, 2}, {175, 2}}, Shape::Area,
        {{{-180, 0}, {-175, 0}, {-175, 6}, {-180, 6}, {-180, 4}, {-177, 4}, {-177, 2}, {-180, 2}, {-180, 0}},
         {{180, 6}, {175, 6}, {175, 4}, {180, 4}, {180, 6}},
         {{180, 2}, {175, 2}, {175, 0}, {180, 0}, {180, 2}}});
}

TEST(ExportGeometry, CutBetweenTwoPointsKeepsTheSlope)
{
    // From 179 to 181 degrees, up by 10 degrees.
    ExpectGeometry({{179, 10}, {-179, 20}}, Shape::Line, {{{179, 10}, {180, 15}}, {{-180, 15}, {-179, 20}}});
    // A number that comes out of the calculation ends after nine digits, the others stay as they are.
    ExpectGeometry({{179, 0}, {-178.123456, 0}, {179, 1}}, Shape::Area,
                   {{{-180, 0}, {-178.123456, 0}, {-180, 0.652360611}, {-180, 0}},
                    {{180, 0.652360611}, {179, 1}, {179, 0}, {180, 0}, {180, 0.652360611}}});
}

TEST(ExportGeometry, OutlineAroundTheEarthEnclosesTheNearerPole)
{
    ExpectGeometry(
        {{0, 80}, {90, 80}, {180, 80}, {-90, 80}}, Shape::Area,
        {{{-180, 80}, {-90, 80}, {0, 80}, {90, 80}, {180, 80}, {180, 90}, {-180, 90}, {-180, 80}}});
    // In the south the outline runs westwards to be counterclockwise.
    ExpectGeometry(
        {{0, -70}, {120, -70}, {-120, -70}}, Shape::Area,
        {{{-180, -70}, {-180, -90}, {180, -90}, {180, -70}, {120, -70}, {0, -70}, {-120, -70}, {-180, -70}}});
}

TEST(ExportGeometry, TheWholeWorldStaysWhole)
{
    ExpectGeometry({{-180, -90}, {180, -90}, {180, 90}, {-180, 90}}, Shape::Area,
                   {{{-180, -90}, {180, -90}, {180, 90}, {-180, 90}, {-180, -90}}});
}

TEST(ExportGeometry, OutlineThatWindsAroundTheEarthOftenStaysAsItIs)
{
    // Three times eastwards around the earth and back.
    Points outline;
    for (int i = 0; i < 9; ++i)
        outline.push_back({i % 3 * 120.0 - 120.0, i * 1.0});
    for (int i = 8; i >= 0; --i)
        outline.push_back({i % 3 * 120.0 - 120.0, i + 20.0});
    const Geometry geometry = GeometryOf(outline);
    EXPECT_EQ(geometry.shape, Shape::Area);
    ASSERT_EQ(geometry.parts.size(), 1U);
    EXPECT_EQ(geometry.parts.front().size(), outline.size() + 1);
}

TEST(ExportGeometry, AreaThatCrossesItselfOnTheAntimeridianIsCutAllTheSame)
{
    // A bow tie whose knot lies on the antimeridian.
    const Geometry geometry = GeometryOf({{170, 0}, {-170, 10}, {-170, 0}, {170, 10}});
    EXPECT_EQ(geometry.shape, Shape::Area);
    for (const Points& part : geometry.parts) {
        EXPECT_EQ(part.front(), part.back());
        for (const ReportCore::Point& point : part)
            EXPECT_LE(std::abs(point.longitude), 180.0);
    }
}

} // namespace
