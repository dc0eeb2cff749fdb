#include <reportviewer/problemmarks.h>

#include <reportviewer/problemlooks.h>

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace ReportViewer {

namespace {

/// Of a field.
constexpr int MOST_TEXTS = 5;

/// The path of what holds a field: "area.coordinate" holds "area.coordinate[17]", which holds its latitude.
QString HolderOf(const QString& path)
{
    const auto end = std::max(path.lastIndexOf(QLatin1Char('.')), path.lastIndexOf(QLatin1Char('[')));
    return end < 0 ? QString() : path.left(end);
}

} // namespace

QString ProblemMarks::Mark::Text() const
{
    QStringList parts = texts;
    const int left = problems + warnings - static_cast<int>(texts.size());
    if (left > 0)
        parts << QCoreApplication::translate("ReportViewer::ProblemMarks", "and %1 more").arg(left);
    if (problemsBelow + warningsBelow > 0)
        parts << QCoreApplication::translate("ReportViewer::ProblemMarks", "Below: %1")
                     .arg(CountText(problemsBelow, warningsBelow));
    return parts.join(QStringLiteral("\n\n"));
}

void ProblemMarks::Take(const ReportCore::Problem& problem, bool isWarning)
{
    if (problem.path.isEmpty())
        return;
    Mark& mark = m_marks[problem.path];
    ++(isWarning ? mark.warnings : mark.problems);
    if (mark.texts.size() < MOST_TEXTS)
        mark.texts << TextFirst(problem);
    for (QString path = HolderOf(problem.path); !path.isEmpty(); path = HolderOf(path)) {
        Mark& above = m_marks[path];
        ++(isWarning ? above.warningsBelow : above.problemsBelow);
    }
}

const ProblemMarks::Mark* ProblemMarks::At(const QString& path) const
{
    const auto found = m_marks.constFind(path);
    return found == m_marks.constEnd() ? nullptr : &*found;
}

} // namespace ReportViewer
