#include <reportcore/exporting/geometry.h>

#include <reportcore/exporting/cut.h>
#include <reportcore/exporting/outline.h>

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <utility>

namespace ReportCore {

namespace {

/// An outline that winds around the earth oftener than this is left as it is.
constexpr double WIDEST = 2.0 * TURN;

constexpr std::size_t LEAST_OF_RING = 3;

/// The way around the earth that begins and ends at an antimeridian.
Points FromAntimeridian(const Points& way)
{
    const std::vector<double> meridians = Antimeridians(way);
    if (meridians.empty())
        return way;
    const double meridian = meridians.front();
    const auto before =
        std::adjacent_find(way.begin(), way.end(), [meridian](const Point& left, const Point& right) {
            return (left.longitude < meridian) != (right.longitude < meridian);
        });
    Points turned;
    if ((before + 1)->longitude != meridian)
        turned.push_back(Crossing(*before, *(before + 1), meridian));
    turned.insert(turned.end(), before + 1, way.end());
    const double shift = way.back().longitude - way.front().longitude;
    std::transform(way.begin() + 1, before + 1, std::back_inserter(turned), [shift](const Point& point) {
        return Point{point.longitude + shift, point.latitude, point.index};
    });
    turned.push_back({turned.front().longitude + shift, turned.front().latitude, turned.back().index});
    return turned;
}

/// The ring of an outline that goes around the earth once: along a pole back to where it began.
Points AroundPole(const Points& outline, double end)
{
    Points way = outline;
    way.push_back({end, outline.front().latitude, outline.front().index});
    Points ring = FromAntimeridian(WithoutRepeated(std::move(way)));
    const double pole = MeanLatitude(ring) < 0.0 ? -POLE : POLE;
    const int last = ring.back().index;
    ring.push_back({ring.back().longitude, pole, last});
    ring.push_back({ring.front().longitude, pole, last});
    // The way may have been at the pole already.
    return Opened(WithoutReturns(ring));
}

/// The open ring of an outline across the antimeridian; empty where there is none to be made.
Points UnwrappedRing(const Points& outline)
{
    Points ring = Unwrapped(outline);
    const double end = Near(ring.front().longitude, ring.back().longitude);
    const double turns = std::round((end - ring.front().longitude) / TURN);
    if (std::abs(turns) == 1.0)
        ring = AroundPole(ring, end);
    else
        ring = Opened(std::move(ring));
    const auto [west, east] = SpanOf(ring);
    if (std::abs(turns) > 1.0 || east - west > WIDEST || SignedArea(ring) == 0.0)
        return {};
    return ring;
}

/// Moves points that lie between two antimeridians to between -180 and 180 degrees.
Points Home(Points points)
{
    const auto [west, east] = SpanOf(points);
    const double turns = std::round((west + east) / 2.0 / TURN);
    if (turns != 0.0) {
        for (Point& point : points)
            point.longitude = Rounded(point.longitude - turns * TURN);
    }
    return points;
}

/// It begins with the same point, whichever way it runs.
Points Ring(Points open)
{
    if (SignedArea(open) < 0.0)
        std::reverse(open.begin() + 1, open.end());
    return Closed(std::move(open));
}

bool IsRing(const Points& open)
{
    return open.size() >= LEAST_OF_RING && SignedArea(open) != 0.0;
}

std::vector<Points> CutArea(const Points& ring)
{
    std::vector<Points> parts{ring};
    for (const double meridian : Antimeridians(ring)) {
        std::vector<Points> cut;
        for (const Points& part : parts) {
            const std::vector<Points> pieces = CutRing(part, meridian);
            std::copy_if(pieces.begin(), pieces.end(), std::back_inserter(cut), IsRing);
        }
        parts = std::move(cut);
    }
    std::transform(parts.begin(), parts.end(), parts.begin(),
                   [](const Points& part) { return Ring(Home(part)); });
    return parts;
}

/// A line is too short for more than one cut.
std::vector<Points> CutLine(const Points& line)
{
    const std::vector<double> meridians = Antimeridians(line);
    if (meridians.empty())
        return {Home(line)};
    const Point crossing = Crossing(line[0], line[1], meridians.front());
    return {Home({line[0], crossing}), Home({crossing, line[1]})};
}

/// What cuts is called with points whose longitudes go on beyond 180 degrees.
template <class CutOfArea, class CutOfLine>
Geometry MakeGeometry(const Points& outline, CutOfArea&& cutArea, CutOfLine&& cutLine)
{
    const Points points = Opened(WithoutRepeated(outline));
    if (points.empty())
        return {};
    if (points.size() >= LEAST_OF_RING) {
        const Points ring = UnwrappedRing(points);
        return {Geometry::Shape::Area, ring.empty() ? std::vector<Points>{Ring(points)} : cutArea(ring)};
    }
    const Points line = Unwrapped(points);
    if (line.size() == 1)
        return {Geometry::Shape::Point, {line}};
    return {Geometry::Shape::Line, cutLine(line)};
}

} // namespace

Geometry GeometryOf(const Points& outline)
{
    return MakeGeometry(outline, CutArea, CutLine);
}

Geometry UncutGeometryOf(const Points& outline)
{
    return MakeGeometry(
        outline, [](const Points& ring) { return std::vector<Points>{Ring(ring)}; },
        [](const Points& line) { return std::vector<Points>{line}; });
}

Points OpenRingOf(const Points& outline)
{
    const Points points = Opened(WithoutRepeated(outline));
    if (points.size() < LEAST_OF_RING)
        return Unwrapped(points);
    Points ring = UnwrappedRing(points);
    if (!ring.empty())
        return ring;
    return SignedArea(points) == 0.0 ? Opened(Unwrapped(points)) : points;
}

double Within(double longitude)
{
    if (std::abs(longitude) <= HALF_TURN)
        return longitude;
    return Rounded(longitude - TURN * std::round(longitude / TURN));
}

double Narrowing(double latitude)
{
    constexpr double NARROWEST = 0.05;
    return std::max(std::cos(qDegreesToRadians(latitude)), NARROWEST);
}

Points Closed(Points points)
{
    if (points.size() > 1 && points.back() != points.front())
        points.push_back(points.front());
    return points;
}

} // namespace ReportCore
