#include <reportcore/exporting/outline.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace ReportCore {

namespace {

/// A tenth of a millimetre: numbers that come out of a calculation get no digits beyond.
constexpr double DIGITS = 1e9;

} // namespace

double Rounded(double degrees)
{
    return std::round(degrees * DIGITS) / DIGITS;
}

Points WithoutRepeated(Points points)
{
    points.erase(std::unique(points.begin(), points.end()), points.end());
    return points;
}

Points WithoutReturns(const Points& points)
{
    const auto leadsBack = [](const Point& a, const Point& b, const Point& c) {
        return a.longitude == b.longitude && b.longitude == c.longitude &&
               (a.latitude < b.latitude) == (c.latitude < b.latitude);
    };
    Points direct;
    for (const Point& point : points) {
        while (direct.size() > 1 && leadsBack(direct[direct.size() - 2], direct.back(), point))
            direct.pop_back();
        if (direct.empty() || direct.back() != point)
            direct.push_back(point);
    }
    return direct;
}

Points Opened(Points points)
{
    while (points.size() > 1 && points.back() == points.front())
        points.pop_back();
    return points;
}

double SignedArea(const Points& ring)
{
    // Seen from one of its points, so that small areas keep their digits.
    double area = 0.0;
    for (std::size_t i = 1; i + 1 < ring.size(); ++i) {
        const Point& a = ring[i];
        const Point& b = ring[i + 1];
        area += (a.longitude - ring[0].longitude) * (b.latitude - ring[0].latitude) -
                (b.longitude - ring[0].longitude) * (a.latitude - ring[0].latitude);
    }
    return area;
}

double Near(double longitude, double other)
{
    if (std::abs(longitude - other) <= HALF_TURN)
        return longitude;
    return longitude + TURN * std::round((other - longitude) / TURN);
}

Points Unwrapped(Points points)
{
    for (std::size_t i = 1; i < points.size(); ++i)
        points[i].longitude = Near(points[i].longitude, points[i - 1].longitude);
    return WithoutRepeated(std::move(points));
}

std::pair<double, double> SpanOf(const Points& points)
{
    const auto ends =
        std::minmax_element(points.begin(), points.end(), [](const Point& left, const Point& right) {
            return left.longitude < right.longitude;
        });
    return {ends.first->longitude, ends.second->longitude};
}

double MeanLatitude(const Points& points)
{
    const double sum =
        std::accumulate(points.begin(), points.end(), 0.0,
                        [](double total, const Point& point) { return total + point.latitude; });
    return sum / static_cast<double>(points.size());
}

std::vector<double> Antimeridians(const Points& points)
{
    const auto [west, east] = SpanOf(points);
    std::vector<double> meridians;
    double meridian = HALF_TURN + TURN * std::floor((west - HALF_TURN) / TURN);
    while (meridian < east) {
        if (meridian > west)
            meridians.push_back(meridian);
        meridian += TURN;
    }
    return meridians;
}

Point Crossing(const Point& from, const Point& to, double meridian)
{
    const double part = (meridian - from.longitude) / (to.longitude - from.longitude);
    return {meridian, Rounded(from.latitude + part * (to.latitude - from.latitude)), from.index};
}

} // namespace ReportCore
