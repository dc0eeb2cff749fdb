#ifndef REPORTCORE_REPORTWRITING_H
#define REPORTCORE_REPORTWRITING_H

#include <reportcore/form.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ReportCore {

/// Writes a good report, or another object, in the given form. `level` is for compressed forms: zlib's, 0 to 9, or -1 for its
/// default. Throws `RGException`.
QByteArray WriteReport(const REPORTGENERATOR::IRGObject& object, const FileForm& form, int level);

/// Writes any, good or not. Throws `RGException` where the form has no way to say it.
QByteArray WriteUnchecked(const REPORTGENERATOR::IRGObject& object, const FileForm& form, int level);

/// A report that a form doesn't take; the text is for people.
struct NotWritten
{
    QString text;
};

/// The same of any report. Throws `NotWritten` for one that is invalid, of which something
/// would be lost, or which would be too large to be read again.
QByteArray WriteWhole(const REPORTGENERATOR::ReportBase& report, const FileForm& form, int level);

/// That there are more bytes than `Ceiling()`, as they are or when uncompressed, so that nobody could read them again:
/// empty, or a text for people.
QString FindExcess(const QByteArray& bytes);

/// What of a report would be lost in a form: nothing, or a text that names it. Numbers may have been rounded,
/// as every form rounds them; but not every text fits into every form.
QString FindLoss(const REPORTGENERATOR::ReportBase& written, const QByteArray& bytes);

/// The same of one that has been read back already.
QString FindLossBetween(const REPORTGENERATOR::ReportBase& written, const REPORTGENERATOR::ReportBase& read);

} // namespace ReportCore

#endif
