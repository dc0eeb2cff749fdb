#ifndef REPORTCORE_READING_TELLING_H
#define REPORTCORE_READING_TELLING_H

#include <reportcore/problem.h>
#include <reportcore/problemlogger.h>
#include <reportcore/spots.h>

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
class Telling
{
public:
    /// The remarks must outlive this. The report is not checked where its reading was given up.
    Telling(const REPORTGENERATOR::ReportBase& report, const Remarks& read, const Remarks& checked,
            bool isChecked);

    /// Know what is to be looked for in the bytes, before `Tell`.
    Spots& Places() { return m_spots; }

    Problems Tell() const;

private:
    const Remarks& m_read;
    const Remarks& m_checked;
    Complaints m_complaints;
    Spots m_spots;
};

} // namespace ReportCore

#endif
