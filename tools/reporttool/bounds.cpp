#include <reporttool/bounds.h>

#include <algorithm>

namespace ReportTool {

using REPORTGENERATOR::Coordinate;

bool IsValidPoint(const Coordinate& point)
{
    return point.HasData() && point.IsValidLongitude(point.GetLongitude()) &&
           point.IsValidLatitude(point.GetLatitude());
}

Bounds BoundsOf(const QVector<Coordinate>& points)
{
    Bounds bounds;
    for (const Coordinate& point : points) {
        if (!IsValidPoint(point))
            continue;
        const double longitude = point.GetLongitude();
        const double latitude = point.GetLatitude();
        if (bounds.isEmpty)
            bounds = {false, longitude, longitude, latitude, latitude};
        bounds.west = std::min(bounds.west, longitude);
        bounds.east = std::max(bounds.east, longitude);
        bounds.south = std::min(bounds.south, latitude);
        bounds.north = std::max(bounds.north, latitude);
    }
    return bounds;
}

} // namespace ReportTool
