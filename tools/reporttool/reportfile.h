#ifndef REPORTTOOL_REPORTFILE_H
#define REPORTTOOL_REPORTFILE_H

#include <reporttool/problem.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ReportTool {

/// How a report is written down.
enum class Form
{
    Unknown,
    Xml,
    Plain,
    Compressed
};

/// What the bytes of a file look like.
struct FileForm
{
    Form form = Form::Unknown;

    /// Whether the representation stands in a binary file, behind its size.
    bool isBinaryFile = false;
};

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

    bool IsGood() const { return problems.empty(); }
};

/// Recognises the form by the content alone.
FileForm Recognise(const QByteArray& bytes);

/// Reads a report in whichever form it is. Nothing that is wrong with it is an error here: it is listed among
/// the problems, and what could be read stands in the report.
ReportFile ReadReport(const QByteArray& bytes);

/// Writes a good report in the given form. `level` is for compressed forms: zlib's, 0 to 9, or -1 for its
/// default. Throws `RGException`.
QByteArray WriteReport(const REPORTGENERATOR::ReportBase& report, const FileForm& form, int level);

/// What of a report would be lost in a form: nothing, or a text that names it. Numbers may have been rounded,
/// as every form rounds them; but not every text fits into every form.
QString FindLoss(const REPORTGENERATOR::ReportBase& written, const QByteArray& bytes);

} // namespace ReportTool

#endif
