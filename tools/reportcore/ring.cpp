#include <reportcore/ring.h>

#include <reportcore/bounds.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace ReportCore {

using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::IRGObject;

namespace {

constexpr double FULL_CIRCLE = 360.0;

/// The same longitude, half a circle away from the other one at most.
double Beside(double longitude, double other)
{
    return longitude + FULL_CIRCLE * std::round((other - longitude) / FULL_CIRCLE);
}

bool AreSame(const RingPoint& left, const RingPoint& right)
{
    return left.longitude == right.longitude && left.latitude == right.latitude;
}

/// How far to the left of the way from `a` to `b` the point lies.
double Left(const RingPoint& a, const RingPoint& b, double longitude, double latitude)
{
    return (b.longitude - a.longitude) * (latitude - a.latitude) -
           (longitude - a.longitude) * (b.latitude - a.latitude);
}

bool IsBetween(double low, double value, double high)
{
    return std::min(low, high) <= value && value <= std::max(low, high);
}

bool SurroundsAt(const std::vector<RingPoint>& ring, double longitude, double latitude)
{
    bool isInside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const RingPoint& a = ring[i];
        const RingPoint& b = ring[(i + 1) % ring.size()];
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

std::vector<RingPoint> RingOf(const IRGObject& holder, const Field& list)
{
    std::vector<RingPoint> ring;
    const int count = list.CountIn(holder);
    for (int i = 0; i < count; ++i) {
        const auto& point = static_cast<const Coordinate&>(list.ItemIn(holder, i));
        if (!IsValidPoint(point))
            continue;
        const double longitude =
            ring.empty() ? point.GetLongitude() : Beside(point.GetLongitude(), ring.back().longitude);
        const RingPoint next = {longitude, point.GetLatitude(), i};
        if (ring.empty() || !AreSame(ring.back(), next))
            ring.push_back(next);
    }
    while (ring.size() > 1 && AreSame(ring.front(), ring.back()))
        ring.pop_back();
    return ring;
}

bool Surrounds(const IRGObject& holder, const Field& list, double longitude, double latitude)
{
    const std::vector<RingPoint> ring = RingOf(holder, list);
    if (ring.empty())
        return false;
    const auto [west, east] =
        std::minmax_element(ring.begin(), ring.end(), [](const RingPoint& left, const RingPoint& right) {
            return left.longitude < right.longitude;
        });
    double turned = longitude + FULL_CIRCLE * std::ceil((west->longitude - longitude) / FULL_CIRCLE);
    while (turned <= east->longitude) {
        if (SurroundsAt(ring, turned, latitude))
            return true;
        turned += FULL_CIRCLE;
    }
    return false;
}

} // namespace ReportCore
