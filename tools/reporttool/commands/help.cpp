#include <reporttool/commands.h>
#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/parser.h>

namespace ReportTool {

namespace {

constexpr char DESCRIPTION[] =
    "Tells more about a command, as its --help does, or about the program.\n"
    "\n"
    "Exit codes: 0 it is told, 2 there is no such command or the command line is wrong.";

void Declare(Parser& parser)
{
    QStringList names;
    for (const Command* command : COMMANDS)
        names << QLatin1String(command->name);
    parser.SetDescription(DESCRIPTION);
    parser.AddArgument("COMMAND", "What to tell about.", "[COMMAND]", Candidates::OneOf(names));
    parser.AddExample("help check", "Tell about 'check'.");
}

int Help(const Parser& parser, Console& console)
{
    const QStringList names = parser.Arguments();
    if (names.size() > 1)
        throw UsageError{QStringLiteral("help takes one COMMAND")};
    if (names.isEmpty()) {
        console.Output().Text(GeneralHelp());
        return EXIT_GOOD;
    }
    const Command* const command = FindCommand(names.first());
    if (!command)
        throw NoCommand(names.first());
    console.Output().Text(Parser(*command).HelpText());
    return EXIT_GOOD;
}

} // namespace

const Command HELP_COMMAND = {"help", "[COMMAND]", "tell more about a command", Declare, Help};

} // namespace ReportTool
