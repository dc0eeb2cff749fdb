#ifndef REPORTCORE_LOSING_LOSING_H
#define REPORTCORE_LOSING_LOSING_H

#include <reportcore/losses.h>

namespace ReportCore {

// The places where `FindLosses` looks.

/// What XML holds beside what its report has taken.
Problems FindXmlLosses(const QByteArray& bytes, const ReportFile& file);

/// The same of the body of a binary form.
Problems FindBinaryLosses(const QByteArray& bytes, const ReportFile& file);

} // namespace ReportCore

#endif
