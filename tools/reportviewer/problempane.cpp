#include <reportviewer/problempane.h>

#include <reportviewer/problemlooks.h>
#include <reportviewer/problemmodel.h>

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QTreeView>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace ReportViewer {

namespace {

/// Shows places as briefly as a narrow column needs it.
class BriefPlaces : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = index.data(ProblemModel::BRIEF_ROLE).toString();
    }
};

} // namespace

ProblemPane::ProblemPane(QWidget* parent)
    : QWidget(parent), m_model(new ProblemModel(this)), m_summary(new QLabel(this)),
      m_list(new QTreeView(this))
{
    m_summary->setObjectName(QStringLiteral("problemSummary"));
    m_list->setObjectName(QStringLiteral("problems"));
    m_list->setAccessibleName(tr("Problems of the report"));
    m_list->setModel(m_model);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    // What tells one problem from another comes first; the text is long, and much the same for problems of a kind.
    m_list->header()->moveSection(ProblemModel::TextColumn, ProblemModel::ColumnCount - 1);
    m_list->header()->setStretchLastSection(false);
    m_list->setItemDelegateForColumn(ProblemModel::PlaceColumn, new BriefPlaces(m_list));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_summary);
    layout->addWidget(m_list);
    setFocusProxy(m_list);
    connect(m_list, &QTreeView::activated, this, &ProblemPane::Choose);
    // Some styles activate by a click.
    if (!m_list->style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick, nullptr, m_list))
        connect(m_list, &QTreeView::clicked, this, &ProblemPane::Choose);
    SetContents(std::make_shared<Contents>());
}

void ProblemPane::SetContents(const ContentsPointer& contents)
{
    m_model->SetContents(contents);
    m_chosen = -1;
    m_summary->setText(Summary());
    FitColumns();
}

/// So that kind, field, value and place are seen beside each other.
void ProblemPane::FitColumns()
{
    constexpr int FEWEST_CHARACTERS = 20;
    for (int column = 0; column < ProblemModel::ColumnCount; ++column)
        m_list->resizeColumnToContents(column);
    const int beside =
        m_list->columnWidth(ProblemModel::KindColumn) + m_list->columnWidth(ProblemModel::PlaceColumn);
    const int room = std::max(m_list->viewport()->width() - beside,
                              FEWEST_CHARACTERS * m_list->fontMetrics().averageCharWidth());
    m_list->setColumnWidth(ProblemModel::FieldColumn,
                           std::min(m_list->columnWidth(ProblemModel::FieldColumn), room));
}

void ProblemPane::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // The list has its new size already.
    layout()->activate();
    FitColumns();
}

void ProblemPane::ChooseNext(int direction)
{
    const int count = m_model->rowCount();
    if (count == 0)
        return;
    // The list makes its first row the current one when it gets the keyboard, and nobody has chosen that.
    const int row = m_chosen < 0 ? (direction > 0 ? 0 : count - 1) : (m_chosen + direction + count) % count;
    const QModelIndex index = m_model->index(row, 0);
    m_list->setCurrentIndex(index);
    Choose(index);
}

QString ProblemPane::Summary() const
{
    const QString text = CountText(m_model->Problems(), m_model->Warnings(), m_model->Losses());
    return text.isEmpty() ? tr("No problems") : text;
}

void ProblemPane::Choose(const QModelIndex& index)
{
    if (!index.isValid())
        return;
    m_chosen = index.row();
    Q_EMIT Chosen(m_model->At(m_chosen));
}

} // namespace ReportViewer
