#include <reporttool/commands.h>

#include <reporttool/commands/list.h>
#include <reporttool/console.h>
#include <reporttool/parser.h>

#include <reportcore/files.h>

#include <reportgenerator/reflection/nearname.h>

#include <algorithm>
#include <iterator>
#include <new>

namespace ReportTool {

namespace {

constexpr int SUMMARY_COLUMN = 30;

constexpr char GENERAL_DESCRIPTION[] =
    "Looks into radio-monitoring reports, checks them and writes them in another form.\n"
    "\n"
    "A report is XML, a plain or compressed binary representation, or a binary file that holds\n"
    "one of these two. The form of a file is recognised by its content, never by its name.\n"
    "\n"
    "Commands, each with a --help of its own:\n"
    "%1"
    "\n"
    "Exit codes of all commands: 0 all is good, 1 a report is invalid or the answer is no, 2 a\n"
    "file cannot be read or written or the command line is wrong. Of several files the greatest\n"
    "code counts.\n"
    "\n"
    "Environment: LC_ALL, LC_MESSAGES and LANG choose the language of what the operating system\n"
    "says about a file. What is written is UTF-8 and has decimal points in every locale.";

QString Lines()
{
    QString lines;
    for (const Command* command : COMMANDS) {
        const QString line =
            QStringLiteral("  %1 %2").arg(QLatin1String(command->name), QLatin1String(command->syntax));
        lines += line.leftJustified(SUMMARY_COLUMN) + QLatin1String(command->summary) + QLatin1Char('\n');
    }
    return lines;
}

QStringList Names()
{
    QStringList names;
    for (const Command* command : COMMANDS)
        names << QLatin1String(command->name);
    return names;
}

/// "show, convert or check"
QString Choice()
{
    QStringList names = Names();
    const QString last = names.takeLast();
    return names.join(QLatin1String(", ")) + QLatin1String(" or ") + last;
}

int RunGeneral(const QStringList& arguments, Console& console)
{
    GeneralParser parser;
    parser.ParseOrThrow(arguments);
    if (parser.AsksForHelp())
        console.Output().Text(parser.HelpText());
    else if (parser.Has("version"))
        console.Output().Text(QStringLiteral("reporttool " REPORTTOOL_VERSION "\n"));
    else if (parser.positionalArguments().isEmpty())
        throw UsageError{QStringLiteral("no command is given")};
    else
        throw NoCommand(parser.positionalArguments().at(0));
    return EXIT_GOOD;
}

int RunCommand(const QStringList& arguments, Console& console)
{
    // "--" in front of the command changes nothing: a command is no option.
    const int place = arguments.value(1) == QLatin1String("--") ? 2 : 1;
    const Command* const command = FindCommand(arguments.value(place));
    if (!command)
        return RunGeneral(arguments, console);
    Parser parser(*command);
    parser.ParseOrThrow(arguments);
    if (!parser.AsksForHelp()) {
        ReportCore::SetCeiling(parser.Ceiling());
        return command->run(parser, console);
    }
    console.Output().Text(parser.HelpText());
    return EXIT_GOOD;
}

} // namespace

const Command* FindCommand(const QString& name)
{
    const auto* const found =
        std::find_if(std::begin(COMMANDS), std::end(COMMANDS),
                     [&name](const Command* command) { return name == QLatin1String(command->name); });
    return found == std::end(COMMANDS) ? nullptr : *found;
}

UsageError NoCommand(const QString& name)
{
    return {QStringLiteral("no command is called '%1'").arg(name) + ReportCore::Suggestion(Names(), name)};
}

GeneralParser::GeneralParser()
    : Parser(QStringLiteral("COMMAND"), QStringLiteral("What to do: %1.").arg(Choice()))
{
    SetDescription(QString(QLatin1String(GENERAL_DESCRIPTION)).arg(Lines()));
    AddArgument("ARGUMENT", "Files and options of the command.", "[ARGUMENT...]");
    AddSwitch(QStringList{QStringLiteral("v"), QStringLiteral("version")},
              "Show the version of this program.");
    AddExample("check -r reports", "Tell what is wrong in a folder of reports.");
    AddExample("help show", "Tell more about 'show'.");
}

QString GeneralHelp()
{
    return GeneralParser().HelpText();
}

int Run(const QStringList& arguments, TextOutput& output, TextOutput& errors)
{
    Console console(output, errors);
    try {
        const int exitCode = RunCommand(arguments, console);
        output.Flush();
        return exitCode;
    } catch (const UsageError& error) {
        console.Complain(error.text);
        console.ErrorLine(QStringLiteral("Try 'reporttool --help'."));
    } catch (const ReportCore::UnusableFile& unusable) {
        console.Complain(unusable.file, unusable.text);
    } catch (const std::bad_alloc&) {
        console.Complain(QStringLiteral("out of memory"));
    }
    return EXIT_UNUSABLE;
}

} // namespace ReportTool
