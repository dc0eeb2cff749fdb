#include <reportcore/exporting/cut.h>

#include <reportcore/exporting/outline.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace ReportCore {

namespace {

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

} // namespace

std::vector<Points> CutRing(const Points& ring, double meridian)
{
    return Cut(ring, meridian).Parts();
}

} // namespace ReportCore
