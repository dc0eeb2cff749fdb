#ifndef REPORTVIEWER_PROBLEMMARKS_H
#define REPORTVIEWER_PROBLEMMARKS_H

#include <reportcore/problem.h>

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ReportViewer {

/// Which fields of a report have problems, and which have some below them.
class ProblemMarks
{
public:
    struct Mark
    {
        /// Own ones, for people, the first ones of many.
        QStringList texts;

        // Own ones

        int problems = 0;
        int warnings = 0;

        // Of what the field holds

        int problemsBelow = 0;
        int warningsBelow = 0;

        bool IsOwn() const { return problems + warnings > 0; }
        bool HasProblems() const { return problems + problemsBelow > 0; }

        /// Own ones first, each with its text first; then how many there are below.
        QString Text() const;
    };

    void Take(const ReportCore::Problem& problem, bool isWarning);

    /// Null for a field without problems.
    const Mark* At(const QString& path) const;
    bool IsEmpty() const { return m_marks.isEmpty(); }

private:
    QHash<QString, Mark> m_marks;
};

} // namespace ReportViewer

#endif
