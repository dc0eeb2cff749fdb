#include <reportcore/inspect/itemcounts.h>

#include <iterator>

namespace ReportCore {

void ItemCounts::TakeVersion(const FieldPath& object, const Field& version, const QString& text)
{
    if (version.Empties(text))
        Empty(object);
}

void ItemCounts::Empty(const FieldPath& object)
{
    for (auto count = m_counts.begin(); count != m_counts.end();)
        count = object.IsAbove(count->first) ? m_counts.erase(count) : std::next(count);
}

} // namespace ReportCore
