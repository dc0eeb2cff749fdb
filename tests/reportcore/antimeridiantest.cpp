
// Outlines with points on the antimeridian: what is cut there is valid for databases, which refuse rings that meet
// themselves.

#include "pointprinter.h"

#include <reportcore/exporting/geometry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace {

using ReportCore::Geometry;
using ReportCore::GeometryOf;
using ReportCore::Point;
using ReportCore::Points;
using Parts = std::vector<Points>;

/// Larger than what rounding moves a point by, smaller than any distance between points and edges here.
constexpr double NEAR = 1e-6;

double DistanceOf(const Point& point, const Point& from, const Point& to)
{
    const double x = to.longitude - from.longitude;
    const double y = to.latitude - from.latitude;
    const double along =
        ((point.longitude - from.longitude) * x + (point.latitude - from.latitude) * y) / (x * x + y * y);
    const double nearest = std::min(std::max(along, 0.0), 1.0);
    return std::hypot(point.longitude - from.longitude - nearest * x,
                      point.latitude - from.latitude - nearest * y);
}

double Turn(const Point& a, const Point& b, const Point& c)
{
    return (b.longitude - a.longitude) * (c.latitude - a.latitude) -
           (c.longitude - a.longitude) * (b.latitude - a.latitude);
}

bool Cross(const Point& a, const Point& b, const Point& c, const Point& d)
{
    return Turn(a, b, c) * Turn(a, b, d) < 0.0 && Turn(c, d, a) * Turn(c, d, b) < 0.0;
}

/// Whether no edge of a closed ring crosses another one, and no point lies on an edge that is not its own.
bool IsSimple(const Points& ring)
{
    const std::size_t count = ring.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = 0; j < count; ++j) {
            if (i != j && Cross(ring[i], ring[i + 1], ring[j], ring[j + 1]))
                return false;
            const bool isOwn = i == j || i == (j + 1) % count;
            if (!isOwn && DistanceOf(ring[i], ring[j], ring[j + 1]) < NEAR)
                return false;
        }
    }
    return true;
}

/// Of a closed ring.
double AreaOf(const Points& ring)
{
    double twice = 0.0;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i)
        twice += Turn(ring[0], ring[i], ring[i + 1]);
    return twice / 2.0;
}

void ExpectParts(const Points& outline, const Parts& parts)
{
    const Geometry geometry = GeometryOf(outline);
    EXPECT_EQ(geometry.shape, Geometry::Shape::Area);
    EXPECT_EQ(geometry.parts, parts);
    for (const Points& part : geometry.parts)
        EXPECT_TRUE(IsSimple(part)) << testing::PrintToString(part);
}

TEST(ExportOnAntimeridian, EdgeAlongTheMeridianBelongsToOneSideOnly)
{
    ExpectParts({{170, 0}, {-170, 0}, {-170, 20}, {180, 20}, {180, 10}, {170, 10}},
                {{{-180, 0}, {-170, 0}, {-170, 20}, {-180, 20}, {-180, 0}},
                 {{180, 10}, {170, 10}, {170, 0}, {180, 0}, {180, 10}}});
    // The same on the other side.
    ExpectParts({{-170, 0}, {170, 0}, {170, 20}, {-180, 20}, {-180, 10}, {-170, 10}},
                {{{-180, 10}, {-180, 0}, {-170, 0}, {-170, 10}, {-180, 10}},
                 {{180, 0}, {180, 20}, {170, 20}, {170, 0}, {180, 0}}});
}

TEST(ExportOnAntimeridian, NotchThatReachesTheMeridianMakesTwoParts)
{
    ExpectParts({{170, -10}, {-170, -10}, {-170, 10}, {170, 10}, {180, 0}},
                {{{-180, -10}, {-170, -10}, {-170, 10}, {-180, 10}, {-180, -10}},
                 {{180, 10}, {170, 10}, {180, 0}, {180, 10}},
                 {{180, 0}, {170, -10}, {180, -10}, {180, 0}}});
}

TEST(ExportOnAntimeridian, CornerThatTouchesTheMeridianStaysInItsPart)
{
    // The way crosses at 10 degrees and goes back through a point on the meridian.
    ExpectParts({{170, 10}, {-170, 10}, {180, 0}}, {{{-180, 10}, {-180, 0}, {-170, 10}, {-180, 10}},
                                                    {{180, 0}, {180, 10}, {170, 10}, {180, 0}}});
}

TEST(ExportOnAntimeridian, CapThatIsDrawnAsABoxKeepsItsCorners)
{
    const Parts cap = {{{-180, 80}, {0, 80}, {180, 80}, {180, 90}, {-180, 90}, {-180, 80}}};
    ExpectParts({{-180, 80}, {0, 80}, {180, 80}, {180, 90}, {-180, 90}}, cap);
    // A further point on the edge that leads to the pole.
    ExpectParts({{-180, 80}, {0, 80}, {180, 80}, {180, 85}, {180, 90}, {-180, 90}}, cap);
}

/// The corners of a polygon around a centre, each in another direction from there, at whole degrees: counterclockwise.
Points StarAround(const Point& centre, std::uint32_t& state)
{
    const auto next = [&state](std::uint32_t count) {
        state = state * 1664525U + 1013904223U;
        return (state >> 16U) % count;
    };
    std::map<double, Point> corners;
    for (int i = 0; i < 14; ++i) {
        const double x = static_cast<double>(next(11)) - 5.0;
        const double y = static_cast<double>(next(11)) - 5.0;
        if (x != 0.0 || y != 0.0)
            corners.emplace(std::atan2(y, x), Point{centre.longitude + x, centre.latitude + y});
    }
    Points star;
    for (const auto& corner : corners)
        star.push_back(corner.second);
    return star;
}

bool IsOnBothSides(const Points& ring)
{
    const auto isWest = [](const Point& point) { return point.longitude < 180.0; };
    const auto isEast = [](const Point& point) { return point.longitude > 180.0; };
    return std::any_of(ring.begin(), ring.end(), isWest) && std::any_of(ring.begin(), ring.end(), isEast);
}

TEST(ExportOnAntimeridian, AnyStarIsCutIntoValidPartsOfTheSameArea)
{
    std::uint32_t state = 1;
    int count = 0;
    for (int i = 0; i < 5000; ++i) {
        const Points star = StarAround({178.0 + i % 5, 0.0}, state);
        const Points ring = ReportCore::Closed(star);
        if (star.size() < 3 || !IsSimple(ring) || !IsOnBothSides(ring))
            continue;
        ++count;
        Points outline = star;
        for (Point& point : outline)
            point.longitude = ReportCore::Within(point.longitude);
        double area = 0.0;
        for (const Points& part : GeometryOf(outline).parts) {
            ASSERT_TRUE(IsSimple(part)) << testing::PrintToString(star) << testing::PrintToString(part);
            ASSERT_GT(AreaOf(part), 0.0) << testing::PrintToString(star);
            area += AreaOf(part);
        }
        ASSERT_NEAR(area, AreaOf(ring), NEAR) << testing::PrintToString(star);
    }
    EXPECT_GT(count, 2000);
}

} // namespace
