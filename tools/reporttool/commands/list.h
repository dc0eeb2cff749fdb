#ifndef REPORTTOOL_COMMANDS_LIST_H
#define REPORTTOOL_COMMANDS_LIST_H

#include <reporttool/command.h>

namespace ReportTool {

// A line for each command, here and in the table.

extern const Command SHOW_COMMAND;
extern const Command LIST_COMMAND;
extern const Command CONVERT_COMMAND;
extern const Command CHECK_COMMAND;
extern const Command EXPORT_COMMAND;
extern const Command IMPORT_COMMAND;
extern const Command DIFF_COMMAND;
extern const Command GREP_COMMAND;
extern const Command SET_COMMAND;
extern const Command MERGE_COMMAND;
extern const Command SETTINGS_COMMAND;
extern const Command HELP_COMMAND;

/// In the order in which the help names them.
constexpr const Command* COMMANDS[] = {&SHOW_COMMAND,   &LIST_COMMAND,   &CONVERT_COMMAND,  &CHECK_COMMAND,
                                       &EXPORT_COMMAND, &IMPORT_COMMAND, &DIFF_COMMAND,     &GREP_COMMAND,
                                       &SET_COMMAND,    &MERGE_COMMAND,  &SETTINGS_COMMAND, &HELP_COMMAND};

} // namespace ReportTool

#endif
