#include <reportviewer/treepane.h>

#include <reportviewer/paths.h>

#include <reportgenerator/reflection/reportfields.h>

#include <reportgenerator/reportbase/rgexception.h>

#include <QAction>
#include <QtCore/QItemSelectionModel>
#include <QtCore/QSet>
#include <QtGui/QClipboard>
#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>
#include <QtWidgets/QAbstractItemDelegate>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>

#include <algorithm>
#include <functional>
#include <map>
#include <vector>

namespace ReportViewer {

using ReportCore::FieldKind;
using ReportCore::FieldPath;
using REPORTGENERATOR::ReportModel;

namespace {

/// What has more rows below it is opened by the user only.
constexpr int MOST_ROWS_OPENED = 100;

/// For names of fields and what they are indented by.
constexpr int CHARACTERS_OF_NAMES = 28;

/// The numbers of the rows that lead to the row, and its own; rows further down have greater ones.
std::vector<int> PositionOf(const QModelIndex& row)
{
    std::vector<int> numbers;
    for (QModelIndex next = row; next.isValid(); next = next.parent())
        numbers.push_back(next.row());
    std::reverse(numbers.begin(), numbers.end());
    return numbers;
}

} // namespace

TreePane::TreePane(ReportModel& model, QWidget* parent)
    : QTreeView(parent), m_model(model),
      m_edit(MakeAction(tr("&Edit Value"), QKeySequence(Qt::Key_F2), [this] { Edit(); })),
      m_add(MakeAction(tr("&Add Item"), QKeySequence(Qt::Key_Insert), [this] { Add(); })),
      m_unset(MakeAction(tr("U&nset or Remove"), QKeySequence(Qt::Key_Delete), [this] { Unset(); })),
      m_copyPath(
          MakeAction(tr("Copy &Path"), QKeySequence(QStringLiteral("Ctrl+Shift+C")), [this] { CopyPath(); }))
{
    setObjectName(QStringLiteral("tree"));
    setAccessibleName(tr("Report"));
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    setModel(&model);
    header()->resizeSection(ReportModel::NameColumn, CHARACTERS_OF_NAMES * fontMetrics().averageCharWidth());
    connect(&model, &ReportModel::ReportChanged, this, &TreePane::UpdateActions);
    connect(&model, &ReportModel::modelReset, this, &TreePane::UpdateActions);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &TreePane::UpdateActions);
    UpdateActions();
}

QAction* TreePane::MakeAction(const QString& text, const QKeySequence& shortcut,
                              const std::function<void()>& function)
{
    auto* const action = new QAction(text, this);
    action->setShortcut(shortcut);
    // Elsewhere the same keys do something else.
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, function);
    addAction(action);
    return action;
}

void TreePane::ExpandAll()
{
    QVector<QModelIndex> parents{QModelIndex()};
    while (!parents.isEmpty()) {
        const QModelIndex above = parents.takeLast();
        const int count = m_model.rowCount(above);
        if (count > MOST_ROWS_OPENED)
            continue;
        const bool isItem = IsItem(above);
        if (above.isValid() && count > 0 && !isItem)
            expand(above);
        for (int row = 0; row < count && !isItem; ++row)
            parents << m_model.index(row, ReportModel::NameColumn, above);
    }
}

void TreePane::ShowPath(const QString& path)
{
    FieldPath next = ParsedPath(path);
    QModelIndex index = m_model.IndexOf(next.Text(), ReportModel::ValueColumn);
    while (!index.isValid() && !next.IsEmpty()) {
        next = next.Parent();
        index = m_model.IndexOf(next.Text(), ReportModel::ValueColumn);
    }
    m_isQuiet = true;
    setCurrentIndex(index);
    if (index.isValid())
        scrollTo(index);
    m_isQuiet = false;
}

QString TreePane::CurrentPath() const
{
    return m_model.PathOf(currentIndex());
}

bool TreePane::TakeTyped()
{
    QWidget* const editor =
        state() == QAbstractItemView::EditingState ? indexWidget(currentIndex()) : nullptr;
    if (!editor)
        return true;
    bool isTaken = true;
    const auto refused = connect(&m_model, &ReportModel::Refused, this, [&isTaken] { isTaken = false; });
    commitData(editor);
    disconnect(refused);
    if (isTaken)
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    return isTaken;
}

/// Enter leads into the value, as F2 does.
void TreePane::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && m_edit->isEnabled() && state() != QAbstractItemView::EditingState)
        Edit();
    else
        QTreeView::keyPressEvent(event);
}

void TreePane::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    UpdateActions();
    if (!m_isQuiet && current.isValid() &&
        current.sibling(current.row(), 0) != previous.sibling(previous.row(), 0))
        Q_EMIT PathChosen(m_model.PathOf(current));
}

bool TreePane::IsList(const QModelIndex& index) const
{
    const FieldPath path = ParsedPath(m_model.PathOf(index));
    return !path.IsEmpty() && path.Last().field->Kind() == FieldKind::List && !path.IsItem();
}

bool TreePane::IsItem(const QModelIndex& index) const
{
    return ParsedPath(m_model.PathOf(index)).IsItem();
}

void TreePane::UpdateActions()
{
    const QModelIndex current = currentIndex();
    const QModelIndex value = current.sibling(current.row(), ReportModel::ValueColumn);
    m_edit->setEnabled((m_model.flags(value) & Qt::ItemIsEditable) != 0);
    const QModelIndexList rows = ChosenRows();
    m_unset->setEnabled(!m_model.IsReadOnly() &&
                        std::any_of(rows.begin(), rows.end(), [](const QModelIndex& row) {
                            return row.data(ReportModel::IsSetRole).toBool();
                        }));
    m_add->setEnabled(!m_model.IsReadOnly() &&
                      (IsList(current) || IsItem(current) || IsItem(current.parent())));
}

void TreePane::Edit()
{
    const QModelIndex current = currentIndex();
    const QModelIndex value = current.sibling(current.row(), ReportModel::ValueColumn);
    setCurrentIndex(value);
    edit(value);
}

/// Those that are selected, or else the current one. What stands below a row goes with it.
QModelIndexList TreePane::ChosenRows() const
{
    const QModelIndexList selected = selectionModel()->selectedRows();
    if (selected.isEmpty())
        return {currentIndex()};
    const QSet<QModelIndex> all(selected.begin(), selected.end());
    QModelIndexList rows;
    for (const QModelIndex& row : selected) {
        QModelIndex above = row.parent();
        while (above.isValid() && !all.contains(above))
            above = above.parent();
        if (!above.isValid())
            rows << row;
    }
    return rows;
}

void TreePane::Unset()
{
    const QModelIndexList rows = ChosenRows();
    if (rows.size() == 1)
        m_model.Unset(rows.constFirst());
    else
        UnsetAll(rows);
}

/// As one change, or not at all. From the last one to the first, so that the items that are left keep their numbers.
void TreePane::UnsetAll(const QModelIndexList& rows)
{
    std::map<std::vector<int>, QModelIndex, std::greater<>> falling;
    for (const QModelIndex& row : rows)
        falling.emplace(PositionOf(row), row);
    REPORTGENERATOR::ReportBase changed = m_model.Report();
    for (auto next = falling.begin(); next != falling.end();) {
        const QModelIndex last = next->second;
        int first = last.row();
        ++next;
        const FieldPath path = ParsedPath(m_model.PathOf(last));
        while (path.IsItem() && next != falling.end() &&
               next->second == last.sibling(first - 1, ReportModel::NameColumn)) {
            --first;
            ++next;
        }
        try {
            if (path.IsItem())
                ReportCore::ChangeParent(changed, path, [&](REPORTGENERATOR::IRGObject& parent) {
                    path.Last().field->RemoveIn(parent, first, last.row() - first + 1);
                });
            else
                ReportCore::Unset(changed, path);
        } catch (const ReportException& refusal) {
            Q_EMIT m_model.Refused(last, refusal.GetErrorText());
            return;
        }
    }
    m_model.ChangeReport(changed);
}

/// Behind the current item, or at the end of the list.
void TreePane::Add()
{
    QModelIndex index = currentIndex();
    index = index.sibling(index.row(), ReportModel::NameColumn);
    if (!IsList(index) && !IsItem(index))
        index = index.parent();
    const bool isList = IsList(index);
    const QModelIndex list = isList ? index : index.parent();
    const int row = isList ? m_model.rowCount(list) : index.row() + 1;
    if (m_model.AddItem(list, row))
        setCurrentIndex(m_model.index(row, ReportModel::ValueColumn, list));
}

void TreePane::CopyPath() const
{
    QApplication::clipboard()->setText(CurrentPath());
}

} // namespace ReportViewer
