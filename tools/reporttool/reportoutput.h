#ifndef REPORTTOOL_REPORTOUTPUT_H
#define REPORTTOOL_REPORTOUTPUT_H

#include <reportcore/files.h>
#include <reportcore/form.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QString>

namespace ReportTool {

class Console;
class Parser;

/// Puts a report in place of a file, as safely as `ReportCore::WriteOutput`, and returns the exit code. A report that is
/// invalid or doesn't fit into the form is not written, which is complained about. Of the forms the binary ones may be
/// refused to terminals. Throws `UnusableFile`.
int PutReport(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form, int level,
              const QString& file, ReportCore::Terminals terminals, Console& console);

/// --force: for commands that write bytes, which a terminal doesn't get without it.
void AddForce(Parser& parser);
ReportCore::Terminals TerminalsOf(const Parser& parser);

} // namespace ReportTool

#endif
