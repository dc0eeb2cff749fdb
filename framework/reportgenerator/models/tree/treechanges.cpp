#include <reportgenerator/models/tree/treechanges.h>

#include <algorithm>
#include <cstring>

namespace ReportModels {

using ReportCore::Field;
using ReportCore::FieldKind;
using ReportCore::ObjectInfo;
using REPORTGENERATOR::IRGObject;

namespace {

/// What is no number equals itself by its bits, and negative zero, which is another text, doesn't equal zero.
quint64 BitsOf(double number)
{
    quint64 bits = 0;
    static_assert(sizeof(bits) == sizeof(number));
    std::memcpy(&bits, &number, sizeof(bits));
    return bits;
}

} // namespace

bool AreSame(const QVariant& before, const QVariant& after)
{
    if (before.userType() != after.userType())
        return false;
    if (before.userType() == QMetaType::QString)
        return before.toString() == after.toString() &&
               before.toString().isNull() == after.toString().isNull();
    if (before.userType() != QMetaType::Double)
        return before == after;
    return BitsOf(before.toDouble()) == BitsOf(after.toDouble());
}

namespace {

bool AreEqual(const IRGObject& before, const IRGObject& after, const ObjectInfo& info);

/// The field, with what stands below it.
bool IsEqual(const Field& field, const IRGObject& before, const IRGObject& after)
{
    if (field.IsSetIn(before) != field.IsSetIn(after))
        return false;
    if (!field.HasObjects())
        return AreSame(field.ValueIn(before), field.ValueIn(after));
    const int count = field.CountIn(before);
    if (field.CountIn(after) != count)
        return false;
    for (int i = 0; i < count; ++i) {
        if (!AreEqual(field.ItemIn(before, i), field.ItemIn(after, i), field.Object()))
            return false;
    }
    return true;
}

bool AreEqual(const IRGObject& before, const IRGObject& after, const ObjectInfo& info)
{
    if (&before == &after)
        return true;
    return std::all_of(info.All().begin(), info.All().end(),
                       [&](const auto& field) { return IsEqual(*field, before, after); });
}

/// The items of a list in an object that may not be there.
class Items
{
public:
    Items(const Field& list, const IRGObject* holder)
        : m_list(list), m_holder(holder), m_count(holder ? list.CountIn(*holder) : 0)
    {
    }

    int Count() const { return m_count; }
    const IRGObject& At(int index) const { return m_list.ItemIn(*m_holder, index); }

    /// Whether these are the very same objects.
    bool AreThoseOf(const Items& other) const
    {
        return m_count == other.m_count && (m_count == 0 || &At(0) == &other.At(0));
    }

private:
    const Field& m_list;
    const IRGObject* const m_holder;
    const int m_count;
};

/// Walks two objects side by side.
class Comparison
{
public:
    Comparison(FieldTree& tree, const ListChange& known) : m_tree(tree), m_known(known) {}

    /// The rows below the node of an object, which may not be there.
    void CompareObjects(Node& node, const IRGObject* before, const IRGObject* after)
    {
        if (before == after)
            return;
        const auto& fields = m_tree.InfoOf(node).InReadingOrder();
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const Row row = {&node, static_cast<int>(i)};
            if (LooksDifferent(*fields[i], before, after))
                Note(node, row.number, row.number);
            if (fields[i]->Kind() == FieldKind::Object)
                CompareObjects(m_tree.NodeAt(row), MemberIn(*fields[i], before), MemberIn(*fields[i], after));
            else if (fields[i]->Kind() == FieldKind::List)
                CompareLists(m_tree.NodeAt(row), before, after);
        }
    }

    TreeChanges changes;

private:
    static const IRGObject* MemberIn(const Field& field, const IRGObject* holder)
    {
        return holder && field.IsSetIn(*holder) ? &field.ItemIn(*holder, 0) : nullptr;
    }

    /// The row itself. Nothing is complained of below an object that isn't there.
    static bool LooksDifferent(const Field& field, const IRGObject* before, const IRGObject* after)
    {
        if (!before || !after)
            return true;
        return field.IsSetIn(*before) != field.IsSetIn(*after) ||
               (field.Kind() == FieldKind::List && field.CountIn(*before) != field.CountIn(*after)) ||
               !AreSame(field.ValueIn(*before), field.ValueIn(*after));
    }

    void CompareLists(Node& list, const IRGObject* holderBefore, const IRGObject* holderAfter)
    {
        const Items before(*list.field, holderBefore);
        const Items after(*list.field, holderAfter);
        if (before.AreThoseOf(after))
            return;
        if (m_known.list == &list) {
            NoteChange(m_known, after.Count());
            return;
        }

        const auto isSame = [&](int left, int right) {
            return AreEqual(before.At(left), after.At(right), list.field->Object());
        };
        const int common = std::min(before.Count(), after.Count());
        int first = 0;
        while (first < common && isSame(first, first))
            ++first;
        int behind = 0;
        while (behind < common - first && isSame(before.Count() - 1 - behind, after.Count() - 1 - behind))
            ++behind;

        const int changed = common - first - behind;
        for (int i = first; i < first + changed; ++i) {
            Node* const item = FieldTree::FindNode({&list, i});
            if (item)
                CompareObjects(*item, &before.At(i), &after.At(i));
        }
        if (changed > 0)
            Note(list, first, first + changed - 1);
        if (before.Count() != after.Count())
            NoteChange({&list, first + changed, before.Count() - common, after.Count() - common},
                       after.Count());
    }

    /// The items behind get other numbers, by which they are named.
    void NoteChange(const ListChange& change, int count)
    {
        changes.lists.push_back(change);
        if (change.first + change.inserted < count)
            Note(*change.list, change.first + change.inserted, count - 1);
    }

    void Note(Node& node, int first, int last)
    {
        RowRange* const previous = changes.rows.empty() ? nullptr : &changes.rows.back();
        if (previous && previous->below == &node && previous->last + 1 == first)
            previous->last = last;
        else
            changes.rows.push_back({&node, first, last});
    }

    FieldTree& m_tree;
    const ListChange& m_known;
};

} // namespace

TreeChanges ChangesTo(FieldTree& tree, const IRGObject& object, const ListChange& known)
{
    Comparison comparison(tree, known);
    comparison.CompareObjects(tree.Root(), tree.ObjectOf(tree.Root()), &object);
    return comparison.changes;
}

} // namespace ReportModels
