#include <reportviewer/problemmodel.h>

#include <reportviewer/problemlooks.h>

namespace ReportViewer {

using ReportCore::Problem;

ProblemModel::ProblemModel(QObject* parent)
    : QAbstractTableModel(parent), m_contents(std::make_shared<Contents>())
{
}

void ProblemModel::SetContents(const ContentsPointer& contents)
{
    beginResetModel();
    m_contents = contents;
    endResetModel();
}

/// Problems, lint, losses.
const Problem& ProblemModel::At(int row) const
{
    auto index = static_cast<std::size_t>(row);
    for (const ReportCore::Problems* const part : {&m_contents->file.problems, &m_contents->lint}) {
        if (index < part->size())
            return (*part)[index];
        index -= part->size();
    }
    return m_contents->listedLosses[index];
}

/// With its name, for whom icons say nothing.
QString ProblemModel::KindOf(int row) const
{
    const QString kind = row < Problems()                ? tr("Problem: %1")
                         : row < Problems() + Warnings() ? tr("Warning: %1")
                                                         : tr("Loss: %1");
    return kind.arg(At(row).name);
}

int ProblemModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Problems() + Warnings() + Losses();
}

int ProblemModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString ProblemModel::TextOf(const QModelIndex& index) const
{
    const Problem& problem = At(index.row());
    switch (index.column()) {
    case KindColumn:
        return problem.name;
    case TextColumn:
        return problem.text;
    case FieldColumn:
        return ReportCore::FieldText(problem);
    default:
        return ReportCore::PlaceText(problem.place);
    }
}

QVariant ProblemModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return TextOf(index);
    case BRIEF_ROLE:
        return index.column() == PlaceColumn ? ReportCore::PlaceCode(At(index.row()).place) : TextOf(index);
    case Qt::ToolTipRole:
        return ToolTipOf(TextFirst(At(index.row())));
    case Qt::AccessibleTextRole:
        return index.column() == KindColumn ? QVariant(KindOf(index.row())) : QVariant();
    case Qt::DecorationRole:
        return index.column() == KindColumn ? QVariant(IconOf(index.row() >= Problems())) : QVariant();
    default:
        return QVariant();
    }
}

QVariant ProblemModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case KindColumn:
        return tr("Kind");
    case TextColumn:
        return tr("What is wrong");
    case FieldColumn:
        return tr("Field");
    default:
        return tr("Place");
    }
}

} // namespace ReportViewer
