#include <reportviewer/problemmarks.h>

#include <reportviewer/paths.h>
#include <reportviewer/problemlooks.h>

#include <QtCore/QCoreApplication>

namespace ReportViewer {

namespace {

/// Of a field.
constexpr int MOST_TEXTS = 5;

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
    for (QString path = ParentPath(problem.path); !path.isEmpty(); path = ParentPath(path)) {
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
