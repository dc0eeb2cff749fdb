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
Remarks RemarksOfCheck(const REPORTGENERATOR::ReportBase& report, ProblemLogger& logger);

/// Reads a good report that is the only one in its document without looking at each tag twice. Returns whether it is
/// one; otherwise nothing is known of it.
bool ReadXmlAtOnce(const QByteArray& bytes, ReportFile& file);

/// Reads any XML, and finds the place of all that is wrong.
void ReadXmlWithPlaces(const QByteArray& bytes, ReportFile& file);

/// Reads a good report. Returns whether it is one; otherwise nothing is known of it.
bool ReadBinaryAtOnce(const QByteArray& bytes, ReportFile& file);

/// Reads any binary form, and finds the place of all that is wrong.
void ReadBinaryWithPlaces(const QByteArray& bytes, ReportFile& file);

} // namespace ReportCore

#endif
