#ifndef REPORTCORE_INSPECT_ITEMCOUNTS_H
#define REPORTCORE_INSPECT_ITEMCOUNTS_H

#include <reportgenerator/reflection/fieldpath.h>

#include <QtCore/QString>

#include <unordered_map>

namespace ReportCore {

/// Which item of a list comes next. A list may come several times: its items go on where they had got to, unless the
/// object that holds it is emptied in between.
class ItemCounts
{
public:
    /// The index of the next item of the list at the path.
    int Next(const FieldPath& list) { return m_counts[list]++; }

    /// The object at the path holds no items any more.
    void Empty(const FieldPath& object);

    /// The object at the path has read this version of the format: one older than its own empties it.
    void TakeVersion(const FieldPath& object, const Field& version, const QString& text);

private:
    std::unordered_map<FieldPath, int, FieldPathHash> m_counts;
};

} // namespace ReportCore

#endif
