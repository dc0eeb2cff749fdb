#include <reportcore/exporting/geometry.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <numeric>
#include <utility>

namespace ReportCore {

namespace {

constexpr double HALF_TURN = 180.0;
constexpr double TURN = 360.0;
constexpr double POLE = 90.0;

/// An outline that winds around the earth oftener than this is left as it is.
constexpr double WIDEST = 2.0 * TURN;

constexpr std::size_t LEAST_OF_RING = 3;

/// A tenth of a millimetre: numbers that come out of a calculation get no digits beyond.
constexpr double DIGITS = 1e9;

double Rounded(double degrees)
{
    return std::round(degrees * DIGITS) / DIGITS;
}

Points WithoutRepeated(Points points)
{
    points.erase(std::unique(points.begin(), points.end()), points.end());
    return points;
}

/// A ring without the point that closes it.
Points Opened(Points points)
{
    while (points.size() > 1 && points.back() == points.front())
        points.pop_back();
    return points;
}

/// Twice the area that a ring encloses, positive when it runs counterclockwise.
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

/// The longitude, moved by whole turns, that is nearest to another one.
double Near(double longitude, double other)
{
    if (std::abs(longitude - other) <= HALF_TURN)
        return longitude;
    return longitude + TURN * std::round((other - longitude) / TURN);
}

/// The points with longitudes beyond 180 degrees where they go across the antimeridian.
Points Unwrapped(Points points)
{
    for (std::size_t i = 1; i < points.size(); ++i)
        points[i].longitude = Near(points[i].longitude, points[i - 1].longitude);
    return WithoutRepeated(std::move(points));
}

/// West and east ends.
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

/// The antimeridians within a span.
std::vector<double> Antimeridians(const Points& points)
{
    const auto [west, east] = SpanOf(points);
    std::vector<double> meridians;
    for (double meridian = HALF_TURN + TURN * std::floor((west - HALF_TURN) / TURN); meridian < east;
         meridian += TURN) {
        if (meridian > west)
            meridians.push_back(meridian);
    }
    return meridians;
}

/// Where the way between two points meets a meridian.
Point Crossing(const Point& from, const Point& to, double meridian)
{
    const double part = (meridian - from.longitude) / (to.longitude - from.longitude);
    return {meridian, Rounded(from.latitude + part * (to.latitude - from.latitude))};
}

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
    Points turned{Crossing(*before, *(before + 1), meridian)};
    turned.insert(turned.end(), before + 1, way.end());
    const double shift = way.back().longitude - way.front().longitude;
    std::transform(way.begin() + 1, before + 1, std::back_inserter(turned), [shift](const Point& point) {
        return Point{point.longitude + shift, point.latitude};
    });
    turned.push_back({turned.front().longitude + shift, turned.front().latitude});
    return turned;
}

/// The ring of an outline that goes around the earth once: along a pole back to where it began.
Points AroundPole(const Points& outline, double end)
{
    Points way = outline;
    way.push_back({end, outline.front().latitude});
    Points ring = FromAntimeridian(WithoutRepeated(std::move(way)));
    const double pole = MeanLatitude(ring) < 0.0 ? -POLE : POLE;
    ring.push_back({ring.back().longitude, pole});
    ring.push_back({ring.front().longitude, pole});
    return Opened(WithoutRepeated(std::move(ring)));
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

/// Cuts one ring along one meridian. What stands on the meridian counts as west of it.
///
/// The crossings, in the order of their latitudes, bound in pairs what of the meridian lies within the ring. So each
/// crossing is the end of one chain of points on either side, and of one of these pieces of the meridian: following
/// them in turn leads around each part.
class Cut
{
public:
    Cut(const Points& ring, double meridian) : m_meridian(meridian)
    {
        const auto first =
            std::adjacent_find(ring.begin(), ring.end(), [this](const Point& left, const Point& right) {
                return IsEast(left) != IsEast(right);
            });
        if (first == ring.end()) {
            m_parts.push_back(ring);
            return;
        }
        Points turned(first + 1, ring.end());
        turned.insert(turned.end(), ring.begin(), first + 1);
        MakeChains(turned);
        PairCrossings();
        Join(true);
        Join(false);
    }

    const std::vector<Points>& Parts() const { return m_parts; }

private:
    /// From one crossing to the next.
    struct Chain
    {
        bool isEast = false;
        Points points;
        std::size_t start = 0;
        std::size_t end = 0;
    };

    bool IsEast(const Point& point) const { return point.longitude > m_meridian; }

    /// The first point stands on the other side than the last.
    void MakeChains(const Points& ring)
    {
        const Point* before = &ring.back();
        for (const Point& point : ring) {
            if (IsEast(point) != IsEast(*before)) {
                const Point crossing = Crossing(*before, point, m_meridian);
                if (!m_chains.empty())
                    End(m_chains.back(), crossing, m_crossings.size());
                m_chains.push_back({IsEast(point), {crossing}, m_crossings.size(), 0});
                m_crossings.push_back(crossing);
            }
            m_chains.back().points.push_back(point);
            before = &point;
        }
        End(m_chains.back(), m_crossings.front(), 0);
    }

    static void End(Chain& chain, const Point& crossing, std::size_t number)
    {
        chain.points.push_back(crossing);
        chain.end = number;
    }

    void PairCrossings()
    {
        std::vector<std::size_t> order(m_crossings.size());
        std::iota(order.begin(), order.end(), std::size_t(0));
        std::stable_sort(order.begin(), order.end(), [this](std::size_t left, std::size_t right) {
            return m_crossings[left].latitude < m_crossings[right].latitude;
        });
        m_partners.resize(order.size());
        for (std::size_t i = 0; i + 1 < order.size(); i += 2) {
            m_partners[order[i]] = order[i + 1];
            m_partners[order[i + 1]] = order[i];
        }
    }

    /// Chain i begins at crossing i and ends at the next one, so that of the chains at a crossing every other one is on
    /// the east side.
    std::size_t ChainAt(std::size_t crossing, bool isEast) const
    {
        const std::size_t count = m_chains.size();
        return m_chains[crossing].isEast == isEast ? crossing : (crossing + count - 1) % count;
    }

    void Join(bool isEast)
    {
        std::vector<bool> isDone(m_chains.size());
        for (std::size_t first = 0; first < m_chains.size(); ++first) {
            if (m_chains[first].isEast != isEast || isDone[first])
                continue;
            Points part;
            std::size_t crossing = m_chains[first].start;
            for (std::size_t i = first; !isDone[i]; i = ChainAt(crossing, isEast)) {
                const Chain& chain = m_chains[i];
                isDone[i] = true;
                if (crossing == chain.start)
                    part.insert(part.end(), chain.points.begin(), chain.points.end());
                else
                    part.insert(part.end(), chain.points.rbegin(), chain.points.rend());
                crossing = m_partners[crossing == chain.start ? chain.end : chain.start];
            }
            m_parts.push_back(Opened(WithoutRepeated(std::move(part))));
        }
    }

    double m_meridian;
    Points m_crossings;
    std::vector<Chain> m_chains;
    std::vector<std::size_t> m_partners;
    std::vector<Points> m_parts;
};

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
            const std::vector<Points> pieces = Cut(part, meridian).Parts();
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

Points Closed(Points points)
{
    if (points.size() > 1 && points.back() != points.front())
        points.push_back(points.front());
    return points;
}

} // namespace ReportCore
