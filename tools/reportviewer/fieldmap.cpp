#include <reportviewer/fieldmap.h>

#include <algorithm>

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

std::optional<Span> FieldMap::Find(const FieldPath& path) const
{
    const Levels levels = LevelsOf(path);
    const auto found =
        std::find_if(m_nodes.rbegin(), m_nodes.rend(), [&](const Node& node) { return IsAt(node, levels); });
    return found == m_nodes.rend() ? std::nullopt : std::make_optional(found->span);
}

/// Whether the levels lead to the node.
bool FieldMap::IsAt(const Node& node, const Levels& levels) const
{
    const Node* each = &node;
    for (auto level = levels.crbegin(); level != levels.crend(); ++level) {
        if (each->parent == NOTHING || !each->level.Is(*level))
            return false;
        each = &At(each->parent);
    }
    return each->parent == NOTHING;
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
