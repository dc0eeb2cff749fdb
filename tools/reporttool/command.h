#ifndef REPORTTOOL_COMMAND_H
#define REPORTTOOL_COMMAND_H

namespace ReportTool {

class Console;
class Parser;

/// One thing that the program does, with all that the others need to know of it.
struct Command
{
    const char* name;
    const char* syntax;  ///< of the arguments, as the list of commands shows it
    const char* summary; ///< one line

    /// Tells the parser what there is to say about it: description, arguments, options, examples.
    void (*declare)(Parser& parser);

    /// Does what the parsed command line asks for and returns the exit code. Throws `UsageError` for a wrong one and
    /// `UnusableFile` for a file without which it cannot go on.
    int (*run)(const Parser& parser, Console& console);
};

} // namespace ReportTool

#endif
