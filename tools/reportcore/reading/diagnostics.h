#ifndef REPORTCORE_READING_DIAGNOSTICS_H
#define REPORTCORE_READING_DIAGNOSTICS_H

#include <reportcore/inspect/sourcemap.h>
#include <reportcore/problem.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>

#include <cstddef>
#include <functional>

namespace ReportCore {

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

    bool HasFindings() const { return !m_findings.empty(); }

    /// All of it, with its places in the bytes that were read.
    Problems Find(const QByteArray& bytes, const FileForm& form);

private:
    Findings m_findings;              ///< of the reader, then of the check
    std::size_t m_countOfReading = 0; ///< those of the reader
    bool m_isRead = false;
};

} // namespace ReportCore

#endif
