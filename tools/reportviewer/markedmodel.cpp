#include <reportviewer/markedmodel.h>

#include <reportviewer/problemlooks.h>

namespace ReportViewer {

MarkedModel::MarkedModel() : m_contents(std::make_shared<Contents>()) {}

QVariant MarkedModel::data(const QModelIndex& index, int role) const
{
    const bool isMarked = role == Qt::DecorationRole || role == Qt::ForegroundRole ||
                          role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole;
    const ProblemMarks::Mark* const mark =
        isMarked && !m_contents->marks.IsEmpty() ? m_contents->marks.At(PathOf(index)) : nullptr;
    if (!mark)
        return ReportModel::data(index, role);
    switch (role) {
    case Qt::DecorationRole:
        return index.column() == NameColumn ? QVariant(IconOf(!mark->HasProblems())) : QVariant();
    case Qt::ForegroundRole:
        return mark->IsOwn() ? QVariant(ColourOf(mark->problems == 0)) : QVariant();
    case Qt::ToolTipRole:
        return ToolTipOf(mark->Text());
    default:
        return mark->Text();
    }
}

} // namespace ReportViewer
