#ifndef REPORTTOOL_REPORTOUTPUT_H
#define REPORTTOOL_REPORTOUTPUT_H

#include <reportcore/files.h>
#include <reportcore/form.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace ReportTool {

class Console;
class Parser;

/// The report as it is written in a form. One that is invalid or doesn't fit is complained about, by the name of the file
/// that it was to become.
std::optional<QByteArray> BytesOf(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form,
                                  int level, const QString& file, Console& console);

/// Puts what is written in a form in place of a file, as safely as `ReportCore::WriteOutput`. Of the forms the binary ones
/// may be refused to terminals. Throws `UnusableFile`.
void PutBytes(const QByteArray& bytes, const ReportCore::FileForm& form, const QString& file,
              ReportCore::Terminals terminals);

/// Puts a report in place of a file by both, and returns the exit code.
int PutReport(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form, int level,
              const QString& file, ReportCore::Terminals terminals, Console& console);

/// --dry-run: for commands that tell what they would write.
void AddDryRun(Parser& parser);

/// --force: for commands that write bytes, which a terminal doesn't get without it.
void AddForce(Parser& parser);
ReportCore::Terminals TerminalsOf(const Parser& parser);

} // namespace ReportTool

#endif
