#ifndef REPORTCORE_READING_READING_H
#define REPORTCORE_READING_READING_H

#include <reportcore/problemlogger.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>

#include <memory>

namespace ReportCore {

struct ReportFile;

// The ways in which `ReadReport` reads, by form and by whether there is something to tell.

/// A report that takes what is wrong and tells it to the logger.
void Prepare(const REPORTGENERATOR::ReportBase& report, const std::shared_ptr<ProblemLogger>& logger);

/// What the library's check says of a report that tells it to this logger.
LogRecords LogRecordsOfCheck(const REPORTGENERATOR::ReportBase& report, ProblemLogger& logger);

/// Takes a report over that the fast path has read whole, if it is good.
bool TakeIfGood(const REPORTGENERATOR::ReportBase& report, ReportFile& file);

/// Reads a good report that is the only one in its document on the fast path. Returns whether that has read it whole;
/// otherwise nothing is known of it.
bool ReadXmlWhole(const QByteArray& bytes, ReportFile& file);

/// Reads any XML, and finds the place of all that is wrong.
void ReadXmlDiagnosing(const QByteArray& bytes, ReportFile& file);

/// The same of a binary form.
bool ReadBinaryWhole(const QByteArray& bytes, ReportFile& file);

/// Reads any binary form, and finds the place of all that is wrong.
void ReadBinaryDiagnosing(const QByteArray& bytes, ReportFile& file);

} // namespace ReportCore

#endif
