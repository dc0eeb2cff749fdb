#include <reportcore/ring.h>

#include <reportcore/areapoints.h>
#include <reportcore/exporting/outline.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;

namespace {

/// How far to the left of the way from `a` to `b` the point lies.
double Left(const Point& a, const Point& b, double longitude, double latitude)
{
    return (b.longitude - a.longitude) * (latitude - a.latitude) -
           (longitude - a.longitude) * (b.latitude - a.latitude);
}

bool IsBetween(double low, double value, double high)
{
    return std::min(low, high) <= value && value <= std::max(low, high);
}

bool SurroundsAt(const Points& ring, double longitude, double latitude)
{
    bool isInside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point& a = ring[i];
        const Point& b = ring[(i + 1) % ring.size()];
        const double left = Left(a, b, longitude, latitude);
        if (left == 0.0 && IsBetween(a.longitude, longitude, b.longitude) &&
            IsBetween(a.latitude, latitude, b.latitude))
            return true;
        // An edge that goes upwards is passed where the point is on its left, one that goes down on its right.
        if ((a.latitude <= latitude) != (b.latitude <= latitude) && (left > 0.0) == (b.latitude > a.latitude))
            isInside = !isInside;
    }
    return isInside;
}

} // namespace

Points RingOf(const IRGObject& parent, const Field& list)
{
    return OpenRingOf(ValidPoints(parent, list));
}

bool Surrounds(const IRGObject& parent, const Field& list, double longitude, double latitude)
{
    const Points ring = RingOf(parent, list);
    if (ring.empty())
        return false;
    const auto [west, east] = SpanOf(ring);
    double turned = longitude + TURN * std::ceil((west - longitude) / TURN);
    while (turned <= east) {
        if (SurroundsAt(ring, turned, latitude))
            return true;
        turned += TURN;
    }
    return false;
}

} // namespace ReportCore
