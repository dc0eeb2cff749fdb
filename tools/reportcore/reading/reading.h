#ifndef REPORTCORE_READING_READING_H
#define REPORTCORE_READING_READING_H

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>

namespace ReportCore {

struct ReportFile;

// The ways in which `ReadReport` reads. A good report that is the only one in its file is read on the fast path; whenever
// that has not read it whole, nothing is known of it, and it is read diagnosing: along the stream path, and with a search
// for the place of all that is wrong.

void ReadXml(const QByteArray& bytes, ReportFile& file);
void ReadXmlDiagnosing(const QByteArray& bytes, ReportFile& file);

void ReadBinary(const QByteArray& bytes, ReportFile& file);

/// Reads a report by one of the functions of the library's `envelope/wholereading.h`. Returns whether it was read whole and
/// is good; else the file is as it was.
bool ReadOnFastPath(bool (*read)(REPORTGENERATOR::IRGObject& object, const QByteArray& bytes),
                    const QByteArray& bytes, ReportFile& file);

} // namespace ReportCore

#endif
