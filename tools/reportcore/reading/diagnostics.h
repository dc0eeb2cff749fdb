#ifndef REPORTCORE_READING_DIAGNOSTICS_H
#define REPORTCORE_READING_DIAGNOSTICS_H

#include <reportcore/inspect/sourcemap.h>
#include <reportcore/problem.h>
#include <reportcore/problemlogger.h>

#include <reportgenerator/reflection/fieldpath.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
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
    /// Reads the report, which takes what is wrong, and checks it. `read` returns whether there is one; `position` tells how
    /// far the input has been read, and is not asked later.
    Diagnostics(const REPORTGENERATOR::ReportBase& report, const std::function<bool()>& read,
                std::function<qint64()> position);

    /// Whether the reading came to its end, and there is a report.
    bool IsRead() const { return m_isRead; }

    bool HasFindings() const { return !m_read.empty() || !m_checked.empty(); }

    /// All of it, with its places in the bytes that were read, which must outlive this.
    Problems Find(const QByteArray& bytes, const FileForm& form);

    /// Knows these bytes after `Find`.
    const SourceMap& Places() const { return m_map; }

private:
    LogRecords m_read;
    LogRecords m_checked;
    bool m_isRead = false;
    Complaints m_complaints; ///< one for each record of the check, or none where that isn't certain
    SourceMap m_map;
};

} // namespace ReportCore

#endif
