#include <reportcore/bounds.h>

#include <reportcore/areapoints.h>

#include <algorithm>

namespace ReportCore {

using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::IRGObject;

void Bounds::Take(const Coordinate& point)
{
    if (!IsValidPoint(point))
        return;
    const double longitude = point.GetLongitude();
    const double latitude = point.GetLatitude();
    if (isEmpty)
        *this = {false, longitude, longitude, latitude, latitude};
    west = std::min(west, longitude);
    east = std::max(east, longitude);
    south = std::min(south, latitude);
    north = std::max(north, latitude);
}

Bounds BoundsOf(const IRGObject& parent, const Field& list)
{
    Bounds bounds;
    const int count = list.CountIn(parent);
    for (int i = 0; i < count; ++i)
        bounds.Take(static_cast<const Coordinate&>(list.ItemIn(parent, i)));
    return bounds;
}

} // namespace ReportCore
