#ifndef REPORTCORE_LOSING_LOSTVALUES_H
#define REPORTCORE_LOSING_LOSTVALUES_H

#include <reportcore/inspect/inspector.h>
#include <reportcore/inspect/sourcemap.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reflection/fieldpath.h>

namespace ReportCore {

/// Holds the values of a file against the report that was read from it.
class LostValues
{
public:
    explicit LostValues(const ReportFile& file) : m_file(file) {}

    /// One that an inspector has come to.
    void Take(const Event& event);

    /// Those that are not in the report, or as others. What an object held that isn't there is one of them, and so are
    /// items that follow each other. The bytes are searched for where objects begin.
    Problems Find(const QByteArray& bytes);

private:
    bool IsParentLost(const FieldPath& path);
    void Lose(const FieldPath& object);

    const ReportFile& m_file;
    Findings m_lost;  ///< objects with their paths
    FieldPath m_last; ///< the last of them
};

} // namespace ReportCore

#endif
