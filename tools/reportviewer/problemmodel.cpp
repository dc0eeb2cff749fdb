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

bool ProblemModel::IsDoubt(int row) const
{
    return row >= Problems();
}

const Problem& ProblemModel::At(int row) const
{
    const auto index = static_cast<std::size_t>(row);
    const auto problems = m_contents->file.problems.size();
    return index < problems ? m_contents->file.problems[index] : m_contents->doubts[index - problems];
}

int ProblemModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Problems() + Doubts();
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
    const bool isDoubt = IsDoubt(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return TextOf(index);
    case BriefRole:
        return index.column() == PlaceColumn ? ReportCore::PlaceCode(At(index.row()).place) : TextOf(index);
    case Qt::ToolTipRole:
        return ToolTipOf(TextFirst(At(index.row())));
    case Qt::AccessibleTextRole:
        if (index.column() == KindColumn)
            return (isDoubt ? tr("Warning: %1") : tr("Problem: %1")).arg(TextOf(index));
        return QVariant();
    case Qt::DecorationRole:
        if (index.column() == KindColumn)
            return IconOf(isDoubt);
        return QVariant();
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
