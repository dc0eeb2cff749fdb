#ifndef REPORTTOOL_COMMANDS_H
#define REPORTTOOL_COMMANDS_H

#include <reporttool/exitcodes.h>

#include <QtCore/QStringList>

namespace ReportTool {

class TextOutput;

/// Does what the command line asks for and returns the exit code. Results go to `output`, what went wrong
/// goes to `errors`.
int Run(const QStringList& arguments, TextOutput& output, TextOutput& errors);

} // namespace ReportTool

#endif
