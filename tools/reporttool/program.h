#ifndef REPORTTOOL_PROGRAM_H
#define REPORTTOOL_PROGRAM_H

namespace ReportTool {

/// Qt's own remarks, on damaged compressed data for example, are not meant for our users: they are dropped from now on.
void DropMessagesOfQt();

/// What the program does between the making of its application object and its end: the command line on the standard
/// streams. Returns the exit code.
int RunProgram();

} // namespace ReportTool

#endif
