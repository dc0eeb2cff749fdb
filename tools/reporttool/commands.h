#ifndef REPORTTOOL_COMMANDS_H
#define REPORTTOOL_COMMANDS_H

#include <QtCore/QStringList>

namespace ReportTool {

class TextOutput;

// Exit codes. Of several files the greatest counts.

constexpr int EXIT_GOOD = 0;
constexpr int EXIT_INVALID = 1;
constexpr int EXIT_UNUSABLE = 2;

/// Does what the command line asks for and returns the exit code. Results go to `output`, what went wrong
/// goes to `errors`.
int Run(const QStringList& arguments, TextOutput& output, TextOutput& errors);

} // namespace ReportTool

#endif
