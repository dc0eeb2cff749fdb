#include <reportcore/exporting/cut.h>

#include <reportcore/exporting/outline.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace ReportCore {

namespace {

enum class Side
{
    West,
    On,
    East
};

/// Cuts one ring along one meridian.
///
/// On either side there are chains of points with their ends on the meridian. These ends, in the order in which a line
/// just beside the meridian meets their chains, bound in pairs what of it lies within the ring. So following chains and
/// pairs in turn leads around each part. What of the ring runs along the meridian bounds no part by itself.
class Cut
{
public:
    Cut(const Points& ring, double meridian) : m_meridian(meridian)
    {
        const auto isOn = [this, &ring](Side side) {
            return std::any_of(ring.begin(), ring.end(),
                               [this, side](const Point& point) { return SideOf(point) == side; });
        };
        if (!isOn(Side::West) || !isOn(Side::East)) {
            m_parts.push_back(ring);
            return;
        }
        const auto before =
            std::adjacent_find(ring.begin(), ring.end(), [this](const Point& left, const Point& right) {
                return SideOf(right) != Side::On && SideOf(left) != SideOf(right);
            });
        Points turned(before + 1, ring.end());
        turned.insert(turned.end(), ring.begin(), before + 1);
        MakeChains(turned);
        PairEnds(Side::East);
        PairEnds(Side::West);
        Join(Side::East);
        Join(Side::West);
    }

    const std::vector<Points>& Parts() const { return m_parts; }

private:
    /// From the meridian to the meridian.
    struct Chain
    {
        Side side = Side::On;
        Points points;
    };

    Side SideOf(const Point& point) const
    {
        if (point.longitude == m_meridian)
            return Side::On;
        return point.longitude > m_meridian ? Side::East : Side::West;
    }

    /// A chain begins with the first point.
    void MakeChains(const Points& ring)
    {
        const Point* before = &ring.back();
        for (const Point& point : ring) {
            if (SideOf(point) != SideOf(*before)) {
                const Point end = EndBetween(*before, point);
                if (SideOf(*before) != Side::On && !m_chains.empty())
                    m_chains.back().points.push_back(end);
                if (SideOf(point) != Side::On)
                    m_chains.push_back({SideOf(point), {end}});
            }
            if (SideOf(point) != Side::On)
                m_chains.back().points.push_back(point);
            before = &point;
        }
        if (SideOf(*before) != Side::On)
            m_chains.back().points.push_back(m_chains.front().points.front());
        m_partners.resize(2 * m_chains.size());
    }

    Point EndBetween(const Point& before, const Point& point) const
    {
        if (SideOf(before) == Side::On)
            return before;
        return SideOf(point) == Side::On ? point : Crossing(before, point, m_meridian);
    }

    // Chain i has the ends 2 i, where it begins, and 2 i + 1.

    static bool IsBegin(std::size_t end) { return end % 2 == 0; }
    static std::size_t OtherEnd(std::size_t end) { return IsBegin(end) ? end + 1 : end - 1; }

    const Point& PointAt(std::size_t end) const
    {
        const Points& points = m_chains[end / 2].points;
        return IsBegin(end) ? points.front() : points.back();
    }

    /// How steeply a chain leaves the meridian.
    double SlopeAt(std::size_t end) const
    {
        const Points& points = m_chains[end / 2].points;
        const Point& next = IsBegin(end) ? points[1] : points[points.size() - 2];
        return (next.latitude - PointAt(end).latitude) / std::abs(next.longitude - m_meridian);
    }

    void PairEnds(Side side)
    {
        std::vector<std::size_t> ends;
        for (std::size_t end = 0; end < m_partners.size(); ++end) {
            if (m_chains[end / 2].side == side)
                ends.push_back(end);
        }
        std::stable_sort(ends.begin(), ends.end(), [this](std::size_t left, std::size_t right) {
            return std::make_pair(PointAt(left).latitude, SlopeAt(left)) <
                   std::make_pair(PointAt(right).latitude, SlopeAt(right));
        });
        for (std::size_t i = 0; i + 1 < ends.size(); i += 2) {
            m_partners[ends[i]] = ends[i + 1];
            m_partners[ends[i + 1]] = ends[i];
        }
    }

    void Join(Side side)
    {
        std::vector<bool> isDone(m_chains.size());
        for (std::size_t first = 0; first < m_chains.size(); ++first) {
            if (m_chains[first].side != side || isDone[first])
                continue;
            Points part;
            for (std::size_t end = 2 * first; !isDone[end / 2]; end = m_partners[OtherEnd(end)]) {
                const Points& points = m_chains[end / 2].points;
                isDone[end / 2] = true;
                if (IsBegin(end))
                    part.insert(part.end(), points.begin(), points.end());
                else
                    part.insert(part.end(), points.rbegin(), points.rend());
            }
            m_parts.push_back(Opened(WithoutRepeated(std::move(part))));
        }
    }

    double m_meridian;
    std::vector<Chain> m_chains;
    std::vector<std::size_t> m_partners;
    std::vector<Points> m_parts;
};

} // namespace

std::vector<Points> CutRing(const Points& ring, double meridian)
{
    return Cut(ring, meridian).Parts();
}

} // namespace ReportCore
