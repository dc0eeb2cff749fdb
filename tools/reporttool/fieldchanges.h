#ifndef REPORTTOOL_FIELDCHANGES_H
#define REPORTTOOL_FIELDCHANGES_H

#include <reportcore/problem.h>

#include <reportgenerator/reflection/fieldpath.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <vector>

namespace ReportTool {

class Console;

/// Fields of reports that are to be set and unset.
class FieldChanges
{
public:
    /// "area.name=Lake", and the paths of what is to be unset. Throws `UsageError`.
    FieldChanges(const QStringList& assignments, const QStringList& unset);

    /// Whether they do away with the problem, as far as one can tell beforehand. A file whose bytes are damaged may have
    /// lost more than the field.
    bool Mend(const ReportCore::Problem& problem) const;

    /// First all are set, then unset. Returns false where something is refused, which is complained about; the report
    /// is of no use then.
    bool MakeIn(REPORTGENERATOR::ReportBase& report, const QString& file, Console& console) const;

private:
    struct Assignment
    {
        ReportCore::FieldPath path;
        QVariant value;
    };

    static Assignment AssignmentOf(const QString& argument);

    std::vector<Assignment> m_assignments;
    std::vector<ReportCore::FieldPath> m_unset;
};

} // namespace ReportTool

#endif
