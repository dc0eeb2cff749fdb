#ifndef REPORTTOOL_REPORTOUTPUT_H
#define REPORTTOOL_REPORTOUTPUT_H

#include <reportcore/form.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QString>

namespace ReportTool {

class Console;

/// Puts a report in place of a file, as safely as `ReportCore::WriteOutput`, and returns the exit code. A report that is
/// invalid or doesn't fit into the form is not written, which is complained about. Throws `UnusableFile`.
int PutReport(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form, int level,
              const QString& file, Console& console);

} // namespace ReportTool

#endif
