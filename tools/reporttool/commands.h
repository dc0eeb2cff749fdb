#ifndef REPORTTOOL_COMMANDS_H
#define REPORTTOOL_COMMANDS_H

#include <reporttool/exitcodes.h>
#include <reporttool/parser.h>

#include <QtCore/QStringList>

namespace ReportTool {

class TextOutput;
struct Command;

/// Does what the command line asks for and returns the exit code. Results go to `output`, what went wrong
/// goes to `errors`.
int Run(const QStringList& arguments, TextOutput& output, TextOutput& errors);

/// Null where there is none.
const Command* FindCommand(const QString& name);

/// What to say then.
UsageError NoCommand(const QString& name);

/// Of a command line without a command in front.
class GeneralParser : public Parser
{
public:
    GeneralParser();
};

/// What `--help` without a command writes.
QString GeneralHelp();

} // namespace ReportTool

#endif
