#ifndef REPORTCORE_REPORTFILE_H
#define REPORTCORE_REPORTFILE_H

#include <reportcore/form.h>
#include <reportcore/problem.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ReportCore {

/// A report as it was read from a file.
struct ReportFile
{
    FileForm form;
    qint64 size = 0;

    /// Name of the object that was written, or of the XML's root element; empty where there is none.
    QString objectName;

    /// The report, as far as it could be read.
    REPORTGENERATOR::ReportBase report;

    /// All that is wrong with it.
    Problems problems;

    /// Whether it is good and the library's fast path has read all of its element or body, which then says nothing that
    /// isn't in the report: all elements and attributes are known, each comes once, and what reads as a number is one.
    bool wasReadWhole = false;

    bool IsGood() const { return problems.empty(); }
};

/// Reads a report in whichever form it is. Nothing that is wrong with it is an error here: it is listed among
/// the problems, each once and with its place, and what could be read stands in the report.
///
/// A good report costs little more than the library's own reading. Only where there is a problem is the report read
/// once more, to find out where.
ReportFile ReadReport(const QByteArray& bytes);

/// The same of a report that stands in these bytes already, as `WriteUnchecked` has written it. What the library's check
/// says of it are its problems: some of what isn't set looks in a file as though it were.
ReportFile CheckReport(const REPORTGENERATOR::ReportBase& report, const QByteArray& bytes);

} // namespace ReportCore

#endif
