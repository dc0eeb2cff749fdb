#ifndef REPORTTOOL_GOODREPORT_H
#define REPORTTOOL_GOODREPORT_H

#include <reportcore/reportfile.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace ReportTool {

class Console;

/// Reads a report for commands that have no use for one with problems: of such a report these are complained about, and
/// there is none. Throws `UnusableFile` for a file that cannot be read.
std::optional<ReportCore::ReportFile> ReadGoodReport(const QString& name, Console& console);

/// The same of what has been read from it.
std::optional<ReportCore::ReportFile> GoodReportIn(const QByteArray& bytes, const QString& name,
                                                   Console& console);

} // namespace ReportTool

#endif
