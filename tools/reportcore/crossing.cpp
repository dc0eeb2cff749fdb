#include <reportcore/ring.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <set>
#include <tuple>
#include <utility>

namespace ReportCore {

namespace {

constexpr double UNITS_PER_DEGREE = 1e6;

/// A ring that goes round the earth again and again is none, and its numbers become too large.
constexpr double FARTHEST = 720.0;

/// That none of so few edges meet, as it mostly is, a look at each pair shows before they have been put in order.
constexpr std::size_t FEW_EDGES = 40;

/// A point in millionths of degrees: with whole numbers it is certain on which side of an edge a point lies.
struct GridPoint
{
    qint64 x = 0;
    qint64 y = 0;
    int index = 0;

    bool operator==(const GridPoint& other) const { return x == other.x && y == other.y; }
    bool operator<(const GridPoint& other) const { return std::tie(x, y) < std::tie(other.x, other.y); }
};

struct Edge
{
    GridPoint begin; ///< the one on the left, or below where it is upright
    GridPoint end;
    std::size_t number = 0;
};

/// 1 when `c` lies on the left of the way from `a` to `b`, -1 on the right, 0 on the line.
int SideOf(const GridPoint& a, const GridPoint& b, const GridPoint& c)
{
    const qint64 cross = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
    return cross > 0 ? 1 : cross < 0 ? -1 : 0;
}

bool IsOn(const GridPoint& point, const Edge& edge)
{
    const bool isBeside = edge.begin.x <= point.x && point.x <= edge.end.x &&
                          std::min(edge.begin.y, edge.end.y) <= point.y &&
                          point.y <= std::max(edge.begin.y, edge.end.y);
    return isBeside && SideOf(edge.begin, edge.end, point) == 0;
}

/// The order of the edges from below to above, where a line from south to north goes over both of them.
struct IsBelow
{
    bool operator()(const Edge& left, const Edge& right) const
    {
        if (right.begin < left.begin)
            return Side(right, left) < 0;
        return Side(left, right) > 0;
    }

    /// On which side of the one that begins first the other one lies.
    static int Side(const Edge& first, const Edge& second)
    {
        const int side = SideOf(first.begin, first.end, second.begin);
        return side != 0 ? side : SideOf(first.begin, first.end, second.end);
    }
};

/// Goes over the ring from west to east and looks at edges that become neighbours: the first two that meet do.
class Sweep
{
public:
    explicit Sweep(const std::vector<GridPoint>& ring) : m_ring(ring)
    {
        m_edges.reserve(ring.size());
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const GridPoint& a = ring[i];
            const GridPoint& b = ring[(i + 1) % ring.size()];
            m_edges.push_back({std::min(a, b), std::max(a, b), i});
        }
    }

    /// Whether any two meet, by a look at each pair.
    bool HasMeeting() const
    {
        for (auto left = m_edges.begin(); left != m_edges.end(); ++left) {
            for (auto right = std::next(left); right != m_edges.end(); ++right) {
                if (AreNear(*left, *right) && Meet(*left, *right))
                    return true;
            }
        }
        return false;
    }

    std::optional<EdgePair> Find()
    {
        for (const Event& event : Events()) {
            const std::optional<EdgePair> pair = event.isBegin ? Begin(event.edge) : End(event.edge);
            if (pair)
                return pair;
        }
        return std::nullopt;
    }

private:
    struct Event
    {
        GridPoint point;
        bool isBegin;
        std::size_t edge;
    };

    using Order = std::set<Edge, IsBelow>;

    /// Where several are at one point, edges end before others begin.
    std::vector<Event> Events() const
    {
        std::vector<Event> events;
        for (const Edge& edge : m_edges) {
            events.push_back({edge.begin, true, edge.number});
            events.push_back({edge.end, false, edge.number});
        }
        std::sort(events.begin(), events.end(), [](const Event& left, const Event& right) {
            if (!(left.point == right.point))
                return left.point < right.point;
            return left.isBegin != right.isBegin ? right.isBegin : left.edge < right.edge;
        });
        return events;
    }

    std::optional<EdgePair> Begin(std::size_t number)
    {
        const auto [place, isNew] = m_order.insert(m_edges[number]);
        m_places.resize(m_edges.size());
        m_places[number] = place;
        // Only an edge that lies on it takes the same place.
        if (!isNew)
            return PairOf(place->number, number);
        if (place != m_order.begin() && Meet(*std::prev(place), *place))
            return PairOf(std::prev(place)->number, number);
        if (std::next(place) != m_order.end() && Meet(*place, *std::next(place)))
            return PairOf(number, std::next(place)->number);
        return std::nullopt;
    }

    std::optional<EdgePair> End(std::size_t number)
    {
        const auto place = m_places[number];
        const auto next = std::next(place);
        std::optional<EdgePair> pair;
        if (place != m_order.begin() && next != m_order.end() && Meet(*std::prev(place), *next))
            pair = PairOf(std::prev(place)->number, next->number);
        m_order.erase(place);
        return pair;
    }

    EdgePair PairOf(std::size_t left, std::size_t right) const
    {
        const auto [first, second] = std::minmax(m_ring[left].index, m_ring[right].index);
        return {first, second};
    }

    /// Whether what is between their western and eastern, northern and southern ends has something in common.
    static bool AreNear(const Edge& left, const Edge& right)
    {
        const auto [leftSouth, leftNorth] = std::minmax(left.begin.y, left.end.y);
        const auto [rightSouth, rightNorth] = std::minmax(right.begin.y, right.end.y);
        return left.begin.x <= right.end.x && right.begin.x <= left.end.x && leftSouth <= rightNorth &&
               rightSouth <= leftNorth;
    }

    /// Whether they have more in common than the point between neighbours.
    bool Meet(const Edge& left, const Edge& right) const
    {
        if ((left.number + 1) % m_edges.size() == right.number)
            return MeetBeyondCorner(left, right);
        if ((right.number + 1) % m_edges.size() == left.number)
            return MeetBeyondCorner(right, left);
        if (IsOn(left.begin, right) || IsOn(left.end, right) || IsOn(right.begin, left) ||
            IsOn(right.end, left))
            return true;
        return SideOf(left.begin, left.end, right.begin) * SideOf(left.begin, left.end, right.end) < 0 &&
               SideOf(right.begin, right.end, left.begin) * SideOf(right.begin, right.end, left.end) < 0;
    }

    bool MeetBeyondCorner(const Edge& before, const Edge& after) const
    {
        return IsOn(m_ring[before.number], after) || IsOn(m_ring[(after.number + 1) % m_ring.size()], before);
    }

    const std::vector<GridPoint>& m_ring;
    std::vector<Edge> m_edges;
    Order m_order;
    std::vector<Order::iterator> m_places;
};

std::vector<GridPoint> OnGrid(const Points& ring)
{
    std::vector<GridPoint> grid;
    for (const Point& point : ring) {
        const GridPoint next = {std::llround(point.longitude * UNITS_PER_DEGREE),
                                std::llround(point.latitude * UNITS_PER_DEGREE), point.index};
        if (grid.empty() || !(grid.back() == next))
            grid.push_back(next);
    }
    while (grid.size() > 1 && grid.back() == grid.front())
        grid.pop_back();
    return grid;
}

/// Two visits to the same point.
std::optional<EdgePair> FindSamePoint(std::vector<GridPoint> points)
{
    std::sort(points.begin(), points.end(), [](const GridPoint& left, const GridPoint& right) {
        return left == right ? left.index < right.index : left < right;
    });
    const auto found = std::adjacent_find(points.begin(), points.end());
    if (found == points.end())
        return std::nullopt;
    return EdgePair{found->index, std::next(found)->index};
}

} // namespace

std::optional<EdgePair> FindCrossing(const Points& ring)
{
    const bool isTooFar = std::any_of(
        ring.begin(), ring.end(), [](const Point& point) { return std::abs(point.longitude) > FARTHEST; });
    const std::vector<GridPoint> grid = OnGrid(ring);
    if (isTooFar || grid.size() < 3)
        return std::nullopt;
    Sweep sweep(grid);
    if (grid.size() <= FEW_EDGES && !sweep.HasMeeting())
        return std::nullopt;
    const std::optional<EdgePair> same = FindSamePoint(grid);
    return same ? same : sweep.Find();
}

} // namespace ReportCore
