#ifndef REPORTGDAL_IDENTIFYING_H
#define REPORTGDAL_IDENTIFYING_H

#include <QtCore/QByteArray>

#include <string>

namespace ReportGdal {

/// Whether a file that begins so is meant for this driver: it has the marker of a binary form, or is XML in which the
/// element of a report begins here. What XML has it further down is asked for by the driver's prefix.
bool BeginsAsReport(const QByteArray& beginning);

/// Whether at least half of the files of a folder, as far as a few of them show it, begin so. Any folder may hold one.
bool HoldsReports(const std::string& folder, bool isRecursive);

} // namespace ReportGdal

#endif
