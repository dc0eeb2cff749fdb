#include <reportgenerator/models/tree/fieldtree.h>

#include <reportgenerator/reflection/fieldtexts.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace ReportModels {

using ReportCore::Field;
using ReportCore::FieldKind;
using ReportCore::FieldPath;
using ReportCore::ObjectInfo;
using REPORTGENERATOR::IRGObject;

namespace {

/// Moves the nodes of the rows from `first` on by `distance`.
void Shift(Node& list, int first, int distance)
{
    std::map<int, std::unique_ptr<Node>> moved;
    const auto begin = list.below.lower_bound(first);
    for (auto node = begin; node != list.below.end(); ++node) {
        node->second->row += distance;
        moved.emplace_hint(moved.end(), node->second->row, std::move(node->second));
    }
    list.below.erase(begin, list.below.end());
    list.below.merge(moved);
}

} // namespace

int RowOf(const ObjectInfo& info, const Field& field)
{
    const auto& fields = info.InReadingOrder();
    return static_cast<int>(std::distance(fields.begin(), std::find(fields.begin(), fields.end(), &field)));
}

QString CountText(const Field& list, int count)
{
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? list.Object().Label() : list.Label());
}

// --- Rows

int FieldTree::CountBelow(const Node& node) const
{
    if (!node.IsList())
        return static_cast<int>(InfoOf(node).InReadingOrder().size());
    const IRGObject* const holder = ObjectOf(node);
    return holder ? node.field->CountIn(*holder) : 0;
}

int FieldTree::CountBelow(const Row& row) const
{
    const Field& field = FieldAt(row);
    if (!field.HasObjects())
        return 0;
    if (field.Kind() == FieldKind::Object || IsItem(row))
        return static_cast<int>(field.Object().InReadingOrder().size());
    const IRGObject* const holder = ObjectOf(*row.below);
    return holder ? field.CountIn(*holder) : 0;
}

Node& FieldTree::NodeAt(const Row& row) const
{
    std::unique_ptr<Node>& node = row.below->below[row.number];
    if (!node) {
        node = std::make_unique<Node>();
        node->above = row.below;
        node->row = row.number;
        node->field = &FieldAt(row);
        node->isItem = IsItem(row);
    }
    return *node;
}

bool FieldTree::Has(const Node& node) const
{
    if (!node.above)
        return &node == &m_root;
    return FindNode({node.above, node.row}) == &node && Has(*node.above);
}

Node* FieldTree::FindNode(const Row& row)
{
    const auto found = row.below->below.find(row.number);
    return found == row.below->below.end() ? nullptr : found->second.get();
}

const Field& FieldTree::FieldAt(const Row& row) const
{
    if (IsItem(row))
        return *row.below->field;
    return *InfoOf(*row.below).InReadingOrder()[static_cast<std::size_t>(row.number)];
}

FieldPath FieldTree::PathOf(const Row& row) const
{
    std::vector<FieldPath::Step> steps = {{&FieldAt(row), IsItem(row) ? row.number : FieldPath::WHOLE}};
    for (const Node* node = row.below; node->above; node = node->above) {
        // The step of an item is that of its list.
        if (!node->IsList())
            steps.push_back({node->field, node->isItem ? node->row : FieldPath::WHOLE});
    }
    FieldPath path;
    for (auto step = steps.crbegin(); step != steps.crend(); ++step)
        path.Enter(*step->field, step->index);
    return path;
}

std::optional<Row> FieldTree::Find(const FieldPath& path)
{
    std::optional<Row> found;
    Node* node = &m_root;
    for (int i = 0; i < path.Size(); ++i) {
        if (found)
            node = &NodeAt(*found);
        const FieldPath::Step& step = path.At(i);
        found = Row{node, RowOf(InfoOf(*node), *step.field)};
        if (step.index == FieldPath::WHOLE)
            continue;
        if (step.index >= CountBelow(*found))
            return std::nullopt;
        found = Row{&NodeAt(*found), step.index};
    }
    return found;
}

const ObjectInfo& FieldTree::InfoOf(const Node& node) const
{
    return node.field ? node.field->Object() : m_info;
}

// --- What stands there

const IRGObject* FieldTree::ObjectOf(const Node& node) const
{
    if (!node.above)
        return m_object;
    const IRGObject* const holder = ObjectOf(*node.above);
    if (!holder || node.IsList())
        return holder;
    const int index = node.isItem ? node.row : 0;
    return index < node.field->CountIn(*holder) ? &node.field->ItemIn(*holder, index) : nullptr;
}

bool FieldTree::IsSet(const Row& row) const
{
    const IRGObject* const holder = ObjectOf(*row.below);
    if (!holder)
        return false;
    const Field& field = FieldAt(row);
    return IsItem(row) ? row.number < field.CountIn(*holder) : field.IsSetIn(*holder);
}

QVariant FieldTree::ValueAt(const Row& row) const
{
    const IRGObject* const holder = ObjectOf(*row.below);
    return holder ? FieldAt(row).ValueIn(*holder) : QVariant();
}

QString FieldTree::NameAt(const Row& row) const
{
    const Field& field = FieldAt(row);
    if (!IsItem(row))
        return field.Label();
    const bool isMoved = row.below == m_moved.list && row.number >= m_moved.first;
    const int place = isMoved ? row.number - m_moved.distance : row.number;
    return QStringLiteral("%1 %2").arg(field.Object().Label()).arg(place + 1);
}

QString FieldTree::TextAt(const Row& row) const
{
    const Field& field = FieldAt(row);
    if (!field.HasObjects() || !IsSet(row))
        return ReportCore::ValueText(ValueAt(row));
    const IRGObject& holder = *ObjectOf(*row.below);
    if (IsItem(row))
        return ReportCore::ItemText(field.ItemIn(holder, row.number), field.Object());
    if (field.Kind() == FieldKind::Object)
        return QString();
    return CountText(field, field.CountIn(holder));
}

QString FieldTree::ComplaintAt(const Row& row) const
{
    const IRGObject* const holder = ObjectOf(*row.below);
    const Field& field = FieldAt(row);
    return !holder || IsItem(row) || field.IsGoodIn(*holder) ? QString() : field.Complaint(*holder);
}

// --- Items come and go

Nodes FieldTree::Clear()
{
    Nodes removed;
    for (auto& node : m_root.below)
        removed.push_back(std::move(node.second));
    m_root.below.clear();
    m_moved = Moved();
    return removed;
}

void FieldTree::InsertRows(Node& list, int first, int count)
{
    Shift(list, first, count);
    m_moved = {&list, first + count, count};
}

Nodes FieldTree::RemoveRows(Node& list, int first, int count)
{
    Nodes removed;
    const auto begin = list.below.lower_bound(first);
    const auto end = list.below.lower_bound(first + count);
    for (auto node = begin; node != end; ++node)
        removed.push_back(std::move(node->second));
    list.below.erase(begin, end);
    Shift(list, first + count, -count);
    m_moved = {&list, first, -count};
    return removed;
}

} // namespace ReportModels
