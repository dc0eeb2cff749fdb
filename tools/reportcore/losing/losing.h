#ifndef REPORTCORE_LOSING_LOSING_H
#define REPORTCORE_LOSING_LOSING_H

#include <reportcore/losses.h>

namespace ReportCore {

/// What the bytes hold beside what their report has taken; in binary forms, what their body holds. `FindLosses` looks there.
Problems FindDocumentLosses(const QByteArray& bytes, const ReportFile& file);

} // namespace ReportCore

#endif
