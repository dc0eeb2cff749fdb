#include <reportgenerator/models/reportmodel.h>

#include <reportgenerator/models/tree/treechanges.h>

#include <reportgenerator/reportbase/rgexception.h>

#include <reportgenerator/reflection/reportfields.h>
#include <reportgenerator/reflection/texts.h>

#include <QtCore/QPersistentModelIndex>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace REPORTGENERATOR {

using ReportCore::FieldKind;
using ReportCore::FieldPath;
using ReportModels::ListChange;
using ReportModels::Node;
using ReportModels::Row;

namespace {

bool IsText(const QVariant& value)
{
    return value.userType() == QMetaType::QString;
}

/// What an editor's value stands for; invalid for "not set". Throws `RGException` for a text that is no value.
QVariant EditedValue(const ReportCore::Field& field, const QVariant& value)
{
    if (!IsText(value) || field.Kind() == FieldKind::Text)
        return value;
    const QString text = value.toString().trimmed();
    const bool isUnset = text.isEmpty() && !field.HasObjects() && field.Kind() != FieldKind::Version;
    return isUnset ? QVariant() : field.ValueOf(text);
}

/// An item that a list takes: its mandatory values are 0, or next to it.
std::unique_ptr<IRGObject> FirstItem(const ReportCore::Field& list)
{
    std::unique_ptr<IRGObject> item = list.NewItem();
    for (const auto& field : list.Object().All()) {
        if (!field->Facts().isMandatory)
            continue;
        if (field->Kind() == FieldKind::Number)
            field->SetIn(*item, std::clamp(0.0, field->Facts().range.low, field->Facts().range.high));
        else if (field->Kind() == FieldKind::Switch)
            field->SetIn(*item, false);
        else if (field->Kind() == FieldKind::Text)
            field->SetIn(*item, QStringLiteral(""));
    }
    return item;
}

/// A copy of the item beside the place.
std::unique_ptr<IRGObject> NeighbourOf(const ReportCore::Field& list, const IRGObject& holder, int row)
{
    if (list.CountIn(holder) == 0)
        return FirstItem(list);
    return list.CopyOf(holder, std::max(row - 1, 0));
}

std::unique_ptr<IRGObject> ItemOf(const ReportCore::Field& list, const QVariantMap& values)
{
    std::unique_ptr<IRGObject> item = list.NewItem();
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const ReportCore::Field* const field = list.Object().FindName(value.key());
        if (!field)
            throw RGException(QStringLiteral("%1 has no field %2")
                                  .arg(list.Object().Label(), ReportCore::Quoted(value.key())));
        const QVariant edited = EditedValue(*field, value.value());
        if (edited.isValid())
            field->SetIn(*item, edited);
    }
    return item;
}

} // namespace

struct ReportModel::State
{
    explicit State(ReportModel& owner)
        : model(owner), report(std::make_unique<ReportBase>()), tree(ReportCore::ReportInfo())
    {
        tree.Show(*report);
    }

    // Places

    static Row RowOf(const QModelIndex& index)
    {
        return {static_cast<Node*>(index.internalPointer()), index.row()};
    }

    QModelIndex IndexOf(const Row& row, int column = NameColumn) const
    {
        return model.createIndex(row.number, column, row.below);
    }

    /// Of the row that the node stands for; invalid for that of the report.
    QModelIndex IndexOf(const Node& node) const
    {
        return node.above ? IndexOf(Row{node.above, node.row}) : QModelIndex();
    }

    bool IsOwn(const QModelIndex& index) const { return index.isValid() && model.checkIndex(index); }

    /// Null, and refused, when the index is that of no list.
    const ReportCore::Field* ListAt(const QModelIndex& index)
    {
        if (!IsOwn(index)) {
            Refuse(index, QStringLiteral("the report itself is no list"));
            return nullptr;
        }
        const Row row = RowOf(index);
        if (tree.FieldAt(row).Kind() == FieldKind::List && !ReportModels::FieldTree::IsItem(row))
            return &tree.FieldAt(row);
        Refuse(index, QStringLiteral("%1 is no list").arg(tree.PathOf(row).Text()));
        return nullptr;
    }

    // Changes

    bool Refuse(const QModelIndex& index, const QString& text)
    {
        Q_EMIT model.Refused(index, text);
        return false;
    }

    /// Refuses what a list does not have.
    bool RefuseRow(const QModelIndex& list)
    {
        const Row row = RowOf(list);
        const QString count = ReportModels::CountText(tree.FieldAt(row), tree.CountBelow(row));
        return Refuse(list, QStringLiteral("%1 has %2").arg(tree.PathOf(row).Text(), count));
    }

    bool RefuseWhenReadOnly(const QModelIndex& index)
    {
        if (isReadOnly)
            Refuse(index, QStringLiteral("the report is read-only"));
        return isReadOnly;
    }

    /// Has `change` change a copy of the report, which takes its place unless that throws.
    bool Change(const QModelIndex& index, const std::function<void(ReportBase& report)>& change,
                const ListChange& known = ListChange())
    {
        auto changed = std::make_unique<ReportBase>(*report);
        try {
            change(*changed);
        } catch (const ReportException& refusal) {
            return Refuse(index, refusal.GetErrorText());
        }
        Take(std::move(changed), known);
        return true;
    }

    /// Inserts what `make` makes of the list's holder.
    bool Insert(const QModelIndex& index, int row, int count,
                const std::function<std::unique_ptr<IRGObject>(const ReportCore::Field& list,
                                                               const IRGObject& holder)>& make)
    {
        if (RefuseWhenReadOnly(index))
            return false;
        const ReportCore::Field* const list = ListAt(index);
        if (!list)
            return false;
        if (row < 0 || row > tree.CountBelow(RowOf(index)) || count < 1)
            return RefuseRow(index);
        const FieldPath path = tree.PathOf(RowOf(index));
        return Change(index,
                      [&](ReportBase& changed) {
                          ReportCore::ChangeParent(changed, path, [&](IRGObject& holder) {
                              const std::unique_ptr<IRGObject> item = make(*list, holder);
                              for (int i = 0; i < count; ++i)
                                  list->InsertIn(holder, row, *item);
                          });
                      },
                      {&tree.NodeAt(RowOf(index)), row, 0, count});
    }

    bool Remove(const QModelIndex& index, int row, int count)
    {
        const FieldPath path = tree.PathOf(RowOf(index));
        return Change(index,
                      [&](ReportBase& changed) {
                          ReportCore::ChangeParent(changed, path, [&](IRGObject& holder) {
                              path.Last().field->RemoveIn(holder, row, count);
                          });
                      },
                      {&tree.NodeAt(RowOf(index)), row, count, 0});
    }

    /// Replaces the report, and tells views what differs.
    void Take(std::unique_ptr<ReportBase> changed, const ListChange& known = ListChange())
    {
        ++changesUnderWay;
        const ReportModels::TreeChanges changes = ReportModels::ChangesTo(tree, *changed, known);
        if (changes.lists.size() > 1) {
            // The rows of one list cannot change without those of the others.
            Reset(std::move(changed));
        } else {
            if (changes.lists.empty())
                Show(std::move(changed));
            else
                TakeItems(std::move(changed), changes.lists.front());
            TellRows(changes.rows);
        }
        if (!changes.IsEmpty())
            Q_EMIT model.ReportChanged();
        --changesUnderWay;
        Forget({});
    }

    void Reset(std::unique_ptr<ReportBase> shown)
    {
        model.beginResetModel();
        ReportModels::Nodes removed = tree.Clear();
        Show(std::move(shown));
        model.endResetModel();
        Forget(std::move(removed));
    }

    /// Deletes nodes when no change needs them any longer: whoever is told of one may make another.
    void Forget(ReportModels::Nodes removed)
    {
        std::move(removed.begin(), removed.end(), std::back_inserter(forgotten));
        if (changesUnderWay == 0)
            forgotten.clear();
    }

    void TakeItems(std::unique_ptr<ReportBase> changed, const ListChange& change)
    {
        const QModelIndex list = IndexOf(*change.list);
        if (change.removed > 0) {
            model.beginRemoveRows(list, change.first, change.first + change.removed - 1);
            Show(std::move(changed));
            ReportModels::Nodes removed = tree.RemoveRows(*change.list, change.first, change.removed);
            model.endRemoveRows();
            Forget(std::move(removed));
        } else {
            model.beginInsertRows(list, change.first, change.first + change.inserted - 1);
            Show(std::move(changed));
            tree.InsertRows(*change.list, change.first, change.inserted);
            model.endInsertRows();
        }
        tree.Renumber();
    }

    void TellRows(const std::vector<ReportModels::RowRange>& rows)
    {
        // Whoever is told may change the report again, and may have done so already.
        QVector<QPair<QPersistentModelIndex, QPersistentModelIndex>> ranges;
        for (const ReportModels::RowRange& range : rows) {
            if (tree.Has(*range.below) && range.last < tree.CountBelow(*range.below))
                ranges.append({IndexOf(Row{range.below, range.first}),
                               IndexOf(Row{range.below, range.last}, ValueColumn)});
        }
        for (const auto& range : std::as_const(ranges)) {
            if (range.first.isValid() && range.second.isValid())
                Q_EMIT model.dataChanged(range.first, range.second);
        }
    }

    void Show(std::unique_ptr<ReportBase> shown)
    {
        tree.Show(*shown);
        report = std::move(shown);
    }

    ReportModel& model;
    std::unique_ptr<ReportBase> report;
    ReportModels::FieldTree tree;
    bool isReadOnly = true;

    int changesUnderWay = 0;
    ReportModels::Nodes forgotten;
};

// --- The report

ReportModel::ReportModel(QObject* parent)
    : QAbstractItemModel(parent), m_state(std::make_unique<State>(*this))
{
}

ReportModel::~ReportModel() = default;

void ReportModel::SetReport(const ReportBase& report)
{
    m_state->Reset(std::make_unique<ReportBase>(report));
}

const ReportBase& ReportModel::Report() const
{
    return *m_state->report;
}

void ReportModel::ChangeReport(const ReportBase& report)
{
    m_state->Take(std::make_unique<ReportBase>(report));
}

bool ReportModel::IsReadOnly() const
{
    return m_state->isReadOnly;
}

void ReportModel::SetReadOnly(bool isReadOnly)
{
    m_state->isReadOnly = isReadOnly;
}

// --- Paths

QModelIndex ReportModel::IndexOf(const QString& path, int column) const
{
    if (column < 0 || column >= ColumnCount)
        return QModelIndex();
    try {
        const auto row = m_state->tree.Find(FieldPath::Parse(ReportCore::ReportInfo(), path));
        return row ? m_state->IndexOf(*row, column) : QModelIndex();
    } catch (const ReportCore::PathError&) {
        return QModelIndex();
    }
}

QString ReportModel::PathOf(const QModelIndex& index) const
{
    return m_state->IsOwn(index) ? m_state->tree.PathOf(State::RowOf(index)).Text() : QString();
}

// --- Changes

bool ReportModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if ((role != Qt::EditRole && role != ValueRole) || !m_state->IsOwn(index) ||
        m_state->RefuseWhenReadOnly(index))
        return false;
    if (index.column() != ValueColumn)
        return m_state->Refuse(index, QStringLiteral("the name of a field cannot be changed"));
    const Row row = State::RowOf(index);
    const ReportCore::Field& field = m_state->tree.FieldAt(row);
    if (role == Qt::EditRole && IsText(value) && field.Kind() == FieldKind::Text &&
        value.toString() == m_state->tree.ValueAt(row).toString())
        return true;
    QVariant taken = value;
    if (role == Qt::EditRole) {
        try {
            taken = EditedValue(field, value);
        } catch (const ReportException& refusal) {
            return m_state->Refuse(index, refusal.GetErrorText());
        }
    }
    if (!taken.isValid())
        return Unset(index);
    if (m_state->tree.IsSet(row) && ReportModels::AreSame(taken, m_state->tree.ValueAt(row)))
        return true;
    const FieldPath path = m_state->tree.PathOf(row);
    return m_state->Change(index, [&](ReportBase& report) { ReportCore::SetValue(report, path, taken); });
}

bool ReportModel::Unset(const QModelIndex& index)
{
    if (!m_state->IsOwn(index) || m_state->RefuseWhenReadOnly(index))
        return false;
    const Row row = State::RowOf(index);
    if (!m_state->tree.IsSet(row))
        return true;
    if (ReportModels::FieldTree::IsItem(row))
        return m_state->Remove(index.parent(), row.number, 1);
    const FieldPath path = m_state->tree.PathOf(row);
    return m_state->Change(index, [&](ReportBase& report) { ReportCore::Unset(report, path); });
}

bool ReportModel::AddItem(const QModelIndex& list, int row)
{
    return insertRows(row, 1, list);
}

bool ReportModel::InsertItem(const QModelIndex& list, int row, const QVariantMap& values)
{
    return m_state->Insert(list, row, 1,
                           [&values](const ReportCore::Field& field, const IRGObject& /*holder*/) {
                               return ItemOf(field, values);
                           });
}

bool ReportModel::insertRows(int row, int count, const QModelIndex& parent)
{
    return m_state->Insert(parent, row, count,
                           [row](const ReportCore::Field& field, const IRGObject& holder) {
                               return NeighbourOf(field, holder, row);
                           });
}

bool ReportModel::removeRows(int row, int count, const QModelIndex& parent)
{
    if (m_state->RefuseWhenReadOnly(parent) || !m_state->ListAt(parent))
        return false;
    if (row < 0 || count < 1 || count > m_state->tree.CountBelow(State::RowOf(parent)) - row)
        return m_state->RefuseRow(parent);
    return m_state->Remove(parent, row, count);
}

// --- What views ask

QModelIndex ReportModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return QModelIndex();
    Node& node = parent.isValid() ? m_state->tree.NodeAt(State::RowOf(parent)) : m_state->tree.Root();
    return createIndex(row, column, &node);
}

QModelIndex ReportModel::parent(const QModelIndex& index) const
{
    return index.isValid() ? m_state->IndexOf(*State::RowOf(index).below) : QModelIndex();
}

int ReportModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return m_state->tree.CountBelow(m_state->tree.Root());
    return parent.column() == NameColumn ? m_state->tree.CountBelow(State::RowOf(parent)) : 0;
}

int ReportModel::columnCount(const QModelIndex& /*parent*/) const
{
    return ColumnCount;
}

QVariant ReportModel::data(const QModelIndex& index, int role) const
{
    if (!m_state->IsOwn(index))
        return QVariant();
    const ReportModels::FieldTree& tree = m_state->tree;
    const Row row = State::RowOf(index);
    const bool isName = index.column() == NameColumn;
    switch (role) {
    case Qt::DisplayRole:
        return isName ? tree.NameAt(row) : tree.TextAt(row);
    case Qt::EditRole: {
        if (isName)
            return tree.NameAt(row);
        const QVariant value = tree.ValueAt(row);
        return value.userType() == QMetaType::Double ? ReportCore::NumberText(value.toDouble()) : value;
    }
    case Qt::ToolTipRole: {
        const QString complaint = tree.ComplaintAt(row);
        return complaint.isEmpty() ? QVariant() : complaint;
    }
    case PathRole:
        return tree.PathOf(row).Text();
    case IsSetRole:
        return tree.IsSet(row);
    case ComplaintRole:
        return tree.ComplaintAt(row);
    case IsObjectRole:
        return tree.IsObject(row);
    case ValueRole:
        return tree.ValueAt(row);
    default:
        return QVariant();
    }
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractItemModel::headerData(section, orientation, role);
    if (section < 0 || section >= ColumnCount)
        return QVariant();
    return section == NameColumn ? QStringLiteral("Field") : QStringLiteral("Value");
}

Qt::ItemFlags ReportModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (!m_state->IsOwn(index))
        return flags;
    const ReportCore::Field& field = m_state->tree.FieldAt(State::RowOf(index));
    if (field.HasObjects())
        return flags;
    flags |= Qt::ItemNeverHasChildren;
    if (index.column() == ValueColumn && !m_state->isReadOnly && field.Kind() != FieldKind::Version)
        flags |= Qt::ItemIsEditable;
    return flags;
}

QHash<int, QByteArray> ReportModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractItemModel::roleNames();
    names.insert(PathRole, QByteArrayLiteral("path"));
    names.insert(IsSetRole, QByteArrayLiteral("isSet"));
    names.insert(ComplaintRole, QByteArrayLiteral("complaint"));
    names.insert(IsObjectRole, QByteArrayLiteral("isObject"));
    names.insert(ValueRole, QByteArrayLiteral("value"));
    return names;
}

} // namespace REPORTGENERATOR
