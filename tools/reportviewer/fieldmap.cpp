#include <reportviewer/fieldmap.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <tuple>

namespace ReportViewer {

using ReportCore::FieldPath;

FieldMap::Levels FieldMap::LevelsOf(const FieldPath& path)
{
    Levels levels;
    for (int i = 0; i < path.Size(); ++i) {
        const FieldPath::Step& step = path.At(i);
        levels.append({step.field, FieldPath::WHOLE});
        if (step.index != FieldPath::WHOLE)
            levels.append({step.field, step.index});
    }
    return levels;
}

void FieldMap::Take(const FieldPath& path, const Span& piece)
{
    // What begins in front of something that was there before is no part of the order.
    if (!m_nodes.empty() && piece.begin < m_nodes.back().span.begin)
        return;
    if (m_open.empty())
        Open({}, piece);
    const Levels levels = LevelsOf(path);
    int depth = 0;
    while (depth < levels.size() && depth + 1 < static_cast<int>(m_open.size()) &&
           At(m_open[static_cast<std::size_t>(depth) + 1]).level.Is(levels[depth]))
        ++depth;
    m_open.resize(static_cast<std::size_t>(depth) + 1);
    for (; depth < levels.size(); ++depth)
        Open(levels[depth], piece);
    for (const int node : m_open)
        At(node).span.end = std::max(At(node).span.end, piece.end);
}

void FieldMap::Open(const Level& level, const Span& piece)
{
    const int parent = m_open.empty() ? NOTHING : m_open.back();
    m_open.push_back(static_cast<int>(m_nodes.size()));
    m_nodes.push_back({parent, level, piece});
}

void FieldMap::Finish()
{
    m_open.clear();
    // By what is around them first. Within it they mostly stand in their order already, as the items of lists do.
    std::vector<std::size_t> begins(m_nodes.size() + 2, 0);
    const auto placeOf = [](int parent) { return static_cast<std::size_t>(parent - NOTHING); };
    for (const Node& node : m_nodes)
        ++begins[placeOf(node.parent) + 1];
    std::partial_sum(begins.begin(), begins.end(), begins.begin());
    std::vector<std::size_t> next = begins;
    m_sorted.resize(m_nodes.size());
    for (std::size_t node = 0; node < m_nodes.size(); ++node)
        m_sorted[next[placeOf(m_nodes[node].parent)]++] = static_cast<int>(node);
    const auto comesBefore = [this](int left, int right) { return ComesBefore(left, right); };
    for (std::size_t each = 0; each + 1 < begins.size(); ++each) {
        const auto begin = m_sorted.begin() + static_cast<std::ptrdiff_t>(begins[each]);
        const auto end = m_sorted.begin() + static_cast<std::ptrdiff_t>(begins[each + 1]);
        if (!std::is_sorted(begin, end, comesBefore))
            std::sort(begin, end, comesBefore);
    }
}

bool FieldMap::ComesBefore(int left, int right) const
{
    const Node& a = At(left);
    const Node& b = At(right);
    if (a.parent != b.parent || a.level.field == b.level.field)
        return std::tie(a.parent, a.level.index, left) < std::tie(b.parent, b.level.index, right);
    return std::less<>()(a.level.field, b.level.field);
}

std::optional<Span> FieldMap::Find(const FieldPath& path) const
{
    const int node = m_nodes.empty() ? NOTHING : FindBelow(0, LevelsOf(path), 0);
    return node == NOTHING ? std::nullopt : std::make_optional(At(node).span);
}

/// The last node that the levels from `depth` on lead to.
int FieldMap::FindBelow(int parent, const Levels& levels, int depth) const
{
    if (depth == levels.size())
        return parent;
    const Level& level = levels[depth];
    const auto isBehind = [this](const Node& wanted, int node) {
        const Node& each = At(node);
        if (wanted.parent != each.parent)
            return wanted.parent < each.parent;
        if (wanted.level.field != each.level.field)
            return std::less<>()(wanted.level.field, each.level.field);
        return wanted.level.index < each.level.index;
    };
    auto behind = std::upper_bound(m_sorted.begin(), m_sorted.end(), Node{parent, level, {}}, isBehind);
    while (behind != m_sorted.begin()) {
        const int child = *--behind;
        if (At(child).parent != parent || !At(child).level.Is(level))
            break;
        const int found = FindBelow(child, levels, depth + 1);
        if (found != NOTHING)
            return found;
    }
    return NOTHING;
}

int FieldMap::NodeAt(qint64 place) const
{
    const auto behind =
        std::upper_bound(m_nodes.begin(), m_nodes.end(), place,
                         [](qint64 wanted, const Node& node) { return wanted < node.span.begin; });
    int node = static_cast<int>(behind - m_nodes.begin()) - 1;
    while (node != NOTHING && !At(node).span.Holds(place))
        node = At(node).parent;
    return node;
}

std::optional<Span> FieldMap::SpanAt(qint64 place) const
{
    const int node = NodeAt(place);
    return node == NOTHING ? std::nullopt : std::make_optional(At(node).span);
}

std::optional<FieldPath> FieldMap::PathAt(qint64 place) const
{
    int node = NodeAt(place);
    if (node == NOTHING)
        return std::nullopt;
    std::vector<Level> levels;
    for (; At(node).parent != NOTHING; node = At(node).parent) {
        levels.push_back(At(node).level);
        if (At(node).level.index != FieldPath::WHOLE)
            node = At(node).parent;
    }
    FieldPath path;
    for (auto level = levels.rbegin(); level != levels.rend(); ++level)
        path.Enter(*level->field, level->index);
    return path;
}

} // namespace ReportViewer
