#ifndef REPORTTOOL_COMMAND_H
#define REPORTTOOL_COMMAND_H

#include <QtCore/QStringList>

namespace ReportTool {

class Console;

/// One thing that the program does, with all that the others need to know of it.
struct Command
{
    const char* name;
    const char* syntax;  ///< of the arguments, as the list of commands shows it
    const char* summary; ///< one line

    /// Does it and returns the exit code. The arguments are the program's: its name, the command, and what comes after
    /// it. Throws `UsageError` for a wrong command line and `UnusableFile` for a file without which it cannot go on.
    int (*run)(const QStringList& arguments, Console& console);
};

} // namespace ReportTool

#endif
