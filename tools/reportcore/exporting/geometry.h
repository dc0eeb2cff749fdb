#ifndef REPORTCORE_EXPORTING_GEOMETRY_H
#define REPORTCORE_EXPORTING_GEOMETRY_H

#include <vector>

namespace ReportCore {

// In degrees

constexpr double TURN = 360.0;
constexpr double HALF_TURN = 180.0;
constexpr double POLE = 90.0;

/// In decimal degrees, east and north. Points are the same when they are at the same place.
struct Point
{
    double longitude = 0.0;
    double latitude = 0.0;

    /// In the list that it comes from; of a point that was added on the way, that of the one before it.
    int index = 0;

    friend bool operator==(const Point& left, const Point& right)
    {
        return left.longitude == right.longitude && left.latitude == right.latitude;
    }
    friend bool operator!=(const Point& left, const Point& right) { return !(left == right); }
};

using Points = std::vector<Point>;

/// What the outline of an area is to programs that draw maps: nothing, a point, a line or an area.
///
/// An area is a closed ring, counterclockwise, whose last point is its first. What crosses the antimeridian is cut
/// there into several parts, each between -180 and 180 degrees.
struct Geometry
{
    enum class Shape
    {
        None,
        Point,
        Line,
        Area
    };

    Shape shape = Shape::None;
    std::vector<Points> parts;
};

/// The geometry of an outline, closed or not. Points that repeat the one before them don't count: of two that are left
/// becomes a line, of one a point.
///
/// Between two points whose longitudes differ by more than 180 degrees the outline takes the short way, across the
/// antimeridian, unless it then encloses nothing, as that of the whole world from -180 to 180 degrees. An outline that
/// goes around the earth encloses the pole that is nearer.
Geometry GeometryOf(const Points& outline);

/// The same without cuts: beyond the antimeridian longitudes go on beyond 180 degrees.
Geometry UncutGeometryOf(const Points& outline);

/// The ring of an outline without cuts, in the outline's own direction and without the point that closes it. Of an outline
/// that encloses nothing what is left when points that repeat the one before them don't count.
Points OpenRingOf(const Points& outline);

/// The same longitude, from -180 to 180 degrees.
double Within(double longitude);

/// How long a degree of longitude is beside one of latitude. On maps it keeps some length near the poles, too.
double Narrowing(double latitude);

/// The points, and the first once more behind them where that isn't so yet. A single point stays alone.
Points Closed(Points points);

} // namespace ReportCore

#endif
