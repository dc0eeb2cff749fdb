#include <reportviewer/folderpane.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QStringListModel>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

namespace ReportViewer {

namespace {

/// Names whose last part fits, whichever folders are in front of it.
class FittingNames : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& above) const override
    {
        const QString name = sourceModel()->index(row, 0, above).data().toString();
        return filterRegularExpression().match(QFileInfo(name).fileName()).hasMatch();
    }
};

} // namespace

FolderPane::FolderPane(QWidget* parent)
    : QWidget(parent), m_names(new QStringListModel(this)), m_filtered(new FittingNames(this)),
      m_count(new QLabel(this)), m_filter(new QLineEdit(this)), m_list(new QListView(this))
{
    m_filter->setObjectName(QStringLiteral("filter"));
    m_filter->setPlaceholderText(tr("Pattern of names, such as *.xml"));
    m_filter->setAccessibleName(tr("Pattern of file names"));
    m_filter->setClearButtonEnabled(true);
    m_list->setObjectName(QStringLiteral("files"));
    m_list->setAccessibleName(tr("Files of the folder"));
    m_list->setUniformItemSizes(true);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_filtered->setSourceModel(m_names);
    m_list->setModel(m_filtered);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_count);
    layout->addWidget(m_filter);
    layout->addWidget(m_list);
    setFocusProxy(m_list);
    connect(m_filter, &QLineEdit::textChanged, this, &FolderPane::ApplyPattern);
    connect(m_filter, &QLineEdit::returnPressed, m_list, [this] { m_list->setFocus(); });
    connect(m_list, &QListView::activated, this, &FolderPane::Choose);
    // Some styles activate by a click.
    if (!m_list->style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick, nullptr, m_list))
        connect(m_list, &QListView::clicked, this, &FolderPane::Choose);
}

void FolderPane::Open(const QString& folder)
{
    m_listing.Start(
        [this, folder](const Background::Steps& /*steps*/) -> Background::Outcome {
            const QDir dir(folder);
            const QStringList names = dir.entryList(QDir::Files | QDir::Hidden, QDir::Name);
            const bool isReadable = dir.isReadable();
            return [this, folder, names, isReadable] { Take(folder, names, isReadable); };
        },
        [this, folder](const QString& /*text*/) { Take(folder, {}, false); });
}

void FolderPane::ShowFiles(const QStringList& names)
{
    m_listing.Cancel();
    m_folder = QDir::currentPath();
    m_title = tr("Files");
    m_names->setStringList(names);
    Count();
}

void FolderPane::Take(const QString& folder, const QStringList& names, bool isReadable)
{
    m_folder = folder;
    m_title = isReadable ? QDir(folder).dirName() : tr("%1 cannot be read").arg(folder);
    m_names->setStringList(names);
    Count();
    Q_EMIT Listed();
}

void FolderPane::ApplyPattern(const QString& pattern)
{
    // A part of the name is enough where there is no pattern.
    const bool isPattern = pattern.contains(QRegularExpression(QStringLiteral("[*?\\[]")));
    const QString whole = isPattern || pattern.isEmpty() ? pattern : QStringLiteral("*%1*").arg(pattern);
    const QString expression =
        whole.isEmpty() ? QString() : QRegularExpression::wildcardToRegularExpression(whole);
    m_filtered->setFilterRegularExpression(
        QRegularExpression(expression, QRegularExpression::CaseInsensitiveOption));
    Count();
}

void FolderPane::Count()
{
    const int shown = m_filtered->rowCount();
    const int all = m_names->rowCount();
    m_count->setText(shown == all ? tr("%1: %2 files").arg(m_title).arg(all)
                                  : tr("%1: %2 of %3 files").arg(m_title).arg(shown).arg(all));
}

void FolderPane::ChooseNext(int direction)
{
    const int count = m_filtered->rowCount();
    if (count == 0)
        return;
    const QModelIndex current = m_list->currentIndex();
    const int row = current.isValid() ? current.row() + direction : (direction > 0 ? 0 : count - 1);
    if (row < 0 || row >= count)
        return;
    const QModelIndex index = m_filtered->index(row, 0);
    m_list->setCurrentIndex(index);
    Choose(index);
}

void FolderPane::SetCurrentFile(const QString& name)
{
    const QFileInfo info(name);
    const QDir dir(m_folder);
    const QStringList names = m_names->stringList();
    for (const QString& each : {info.fileName(), info.filePath(), dir.relativeFilePath(name)}) {
        const int row = static_cast<int>(names.indexOf(each));
        if (row >= 0 && dir.absoluteFilePath(each) == info.absoluteFilePath()) {
            m_list->setCurrentIndex(m_filtered->mapFromSource(m_names->index(row)));
            return;
        }
    }
    m_list->setCurrentIndex(QModelIndex());
}

void FolderPane::Choose(const QModelIndex& index)
{
    if (index.isValid())
        Q_EMIT Chosen(QDir(m_folder).filePath(index.data().toString()));
}

} // namespace ReportViewer
