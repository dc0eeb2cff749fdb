#ifndef REPORTCORE_READING_DIAGNOSTICS_H
#define REPORTCORE_READING_DIAGNOSTICS_H

#include <reportcore/inspect/sourcemap.h>
#include <reportcore/problem.h>
#include <reportcore/problemlogger.h>

#include <reportgenerator/reflection/fieldpath.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QString>

#include <vector>

namespace ReportCore {

/// A field that the library's check complains about.
struct Complaint
{
    FieldPath path;
    QString text;
};

using Complaints = std::vector<Complaint>;

/// What the reader has refused, and what the check says of the outcome, becomes one list in which nothing is told
/// twice.
class Diagnostics
{
public:
    /// The records must outlive this. The report is not checked where its reading was given up.
    Diagnostics(const REPORTGENERATOR::ReportBase& report, const LogRecords& read, const LogRecords& checked,
                bool isChecked);

    /// Know what is to be looked for in the bytes, before `Tell`.
    SourceMap& Places() { return m_map; }

    Problems Tell() const;

private:
    const LogRecords& m_read;
    const LogRecords& m_checked;
    Complaints m_complaints;
    SourceMap m_map;
};

} // namespace ReportCore

#endif
