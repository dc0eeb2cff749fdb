#ifndef REPORTVIEWER_FIELDMAP_H
#define REPORTVIEWER_FIELDMAP_H

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QVarLengthArray>
#include <QtCore/QtGlobal>

#include <optional>
#include <vector>

namespace ReportViewer {

/// A part of what a file holds, in bytes or, of XML, in units of its text.
struct Span
{
    qint64 begin = 0;
    qint64 end = 0;

    bool IsEmpty() const { return begin >= end; }
    bool Holds(qint64 place) const { return place >= begin && place < end; }
};

/// Which part of a file belongs to which field of its report.
class FieldMap
{
public:
    /// Takes the next piece. Pieces come in the order in which they stand; those of a field and of what it holds follow one
    /// another.
    void Take(const ReportCore::FieldPath& path, const Span& piece);

    /// The field, object or list; nothing when it doesn't stand there. Of several the last one, which counts, and of
    /// objects that come several times, the last one that has it.
    std::optional<Span> Find(const ReportCore::FieldPath& path) const;

    /// The innermost field or object around the place; nothing outside of the report.
    std::optional<ReportCore::FieldPath> PathAt(qint64 place) const;

    /// All that belongs to it there, not to others of the same path.
    std::optional<Span> SpanAt(qint64 place) const;

private:
    /// A list is a level of its own, with its items below.
    struct Level
    {
        const ReportCore::Field* field = nullptr;
        int index = ReportCore::FieldPath::WHOLE;

        bool Is(const Level& other) const { return field == other.field && index == other.index; }
    };

    using Levels = QVarLengthArray<Level, 8>;

    struct Node
    {
        int parent = NOTHING;
        Level level;
        Span span;
    };

    static constexpr int NOTHING = -1;

    static Levels LevelsOf(const ReportCore::FieldPath& path);
    bool IsAt(const Node& node, const Levels& levels) const;
    int NodeAt(qint64 place) const;
    void Open(const Level& level, const Span& piece);
    const Node& At(int node) const { return m_nodes[static_cast<std::size_t>(node)]; }
    Node& At(int node) { return m_nodes[static_cast<std::size_t>(node)]; }

    std::vector<Node> m_nodes; ///< by their beginnings
    std::vector<int> m_open;   ///< the last one and what is around it
};

} // namespace ReportViewer

#endif
