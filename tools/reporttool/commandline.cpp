#include <reporttool/commandline.h>

#include <reporttool/files.h>

#include <QtCore/QCommandLineParser>

#include <algorithm>
#include <iterator>

namespace ReportTool {

namespace {

constexpr int LOWEST_LEVEL = -1;
constexpr int HIGHEST_LEVEL = 9;

constexpr char GENERAL_DESCRIPTION[] =
    "Looks into radio-monitoring reports, checks them and writes them in another form.\n"
    "\n"
    "A report is XML, a plain or compressed binary representation, or a binary file that holds\n"
    "one of these two. The form of a file is recognised by its content, never by its name.\n"
    "\n"
    "Commands, each with a --help of its own:\n"
    "  show FILE...           tell what reports hold\n"
    "  convert IN OUT --to F  write a report in another form\n"
    "  check FILE...          tell what is wrong with reports\n"
    "\n"
    "Exit codes of all commands: 0 all is good, 1 a report is invalid, 2 a file cannot be read\n"
    "or written or the command line is wrong. Of several files the greatest code counts.";

constexpr char SHOW_DESCRIPTION[] =
    "Tells what reports hold. What is incomplete or invalid is shown as far as it can be read.\n"
    "\n"
    "Exit codes: 0 all reports are good, 1 a report is invalid, 2 a file cannot be read or the\n"
    "command line is wrong.";

constexpr char CONVERT_DESCRIPTION[] =
    "Writes a report in another form. OUT is replaced only when the new content is complete.\n"
    "\n"
    "Forms:\n"
    "  xml         the report's XML element in UTF-8\n"
    "  plain       plain representation\n"
    "  compressed  compressed representation, at zlib's default level unless --level is given\n"
    "  file        binary file; it holds a plain representation, or a compressed one if --level\n"
    "              is given\n"
    "\n"
    "A report in which 'check' finds a problem is not converted.\n"
    "\n"
    "Exit codes: 0 OUT is written, 1 the report is invalid or does not fit into the form, 2 a\n"
    "file cannot be read or written or the command line is wrong.";

constexpr char CHECK_DESCRIPTION[] =
    "Tells what is wrong with reports, one line for each problem: file, name of the error, text.\n"
    "Prints nothing for a good report.\n"
    "\n"
    "Exit codes: 0 all reports are good, 1 a report is invalid, 2 a file cannot be read or the\n"
    "command line is wrong.";

constexpr char FILES_DESCRIPTION[] = "Reports; - stands for standard input.";

/// A form by its name on the command line.
struct NamedForm
{
    const char* name;
    FileForm form;
};

constexpr NamedForm FORMS[] = {{"xml", {Form::Xml, false}},
                               {"plain", {Form::Plain, false}},
                               {"compressed", {Form::Compressed, false}},
                               {"file", {Form::Plain, true}}};

/// What the parsers of all commands have in common: a description and an option for help.
class Parser : public QCommandLineParser
{
public:
    Parser(const char* description, const char* command, const char* commandDescription)
        : m_help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."))
    {
        setApplicationDescription(QLatin1String(description));
        addPositionalArgument(QLatin1String(command), QLatin1String(commandDescription));
        addOption(m_help);
    }

    void AddArgument(const char* name, const char* description, const char* syntax)
    {
        addPositionalArgument(QLatin1String(name), QLatin1String(description), QLatin1String(syntax));
    }

    void AddSwitch(const char* name, const char* description)
    {
        addOption({QLatin1String(name), QLatin1String(description)});
    }

    void AddOption(const char* name, const char* description, const char* valueName)
    {
        addOption({QLatin1String(name), QLatin1String(description), QLatin1String(valueName)});
    }

    void ParseOrThrow(const QStringList& arguments)
    {
        if (!parse(arguments))
            throw UsageError{errorText()};
    }

    bool AsksForHelp() const { return isSet(m_help); }
    bool Has(const char* option) const { return isSet(QLatin1String(option)); }
    QString Value(const char* option) const { return value(QLatin1String(option)); }

    /// The arguments behind the command.
    QStringList Arguments() const { return positionalArguments().mid(1); }

private:
    QCommandLineOption m_help;
};

QStringList FilesOf(const Parser& parser)
{
    QStringList files = parser.Arguments();
    if (files.isEmpty())
        throw UsageError{QStringLiteral("no file is given")};
    if (std::count_if(files.begin(), files.end(), IsStandardStream) > 1)
        throw UsageError{QStringLiteral("standard input can be read only once")};
    return files;
}

Request ParseShow(const QStringList& arguments)
{
    Parser parser(SHOW_DESCRIPTION, "show", "This command.");
    parser.AddArgument("FILE", FILES_DESCRIPTION, "FILE...");
    parser.AddSwitch("json", "Write one JSON array with an object for each file, all coordinates included.");
    parser.AddSwitch("all", "Show all coordinates, not just the first ones.");
    parser.AddSwitch("dump", "Add the bytes of binary forms, field by field with their meaning.");
    parser.ParseOrThrow(arguments);
    if (parser.AsksForHelp())
        return TextRequest{parser.helpText()};
    if (parser.Has("json") && parser.Has("dump"))
        throw UsageError{QStringLiteral("--json and --dump do not go together")};
    return ShowRequest{FilesOf(parser), parser.Has("json"), parser.Has("all"), parser.Has("dump")};
}

Request ParseCheck(const QStringList& arguments)
{
    Parser parser(CHECK_DESCRIPTION, "check", "This command.");
    parser.AddArgument("FILE", FILES_DESCRIPTION, "FILE...");
    parser.ParseOrThrow(arguments);
    if (parser.AsksForHelp())
        return TextRequest{parser.helpText()};
    return CheckRequest{FilesOf(parser)};
}

FileForm FormOf(const Parser& parser)
{
    if (!parser.Has("to"))
        throw UsageError{QStringLiteral("--to is missing")};
    const QString name = parser.Value("to");
    const auto* const found =
        std::find_if(std::begin(FORMS), std::end(FORMS),
                     [&name](const NamedForm& form) { return name == QLatin1String(form.name); });
    if (found == std::end(FORMS))
        throw UsageError{QStringLiteral("no form is called '%1'").arg(name)};
    return found->form;
}

int LevelOf(const Parser& parser)
{
    if (!parser.Has("level"))
        return LOWEST_LEVEL;
    bool isNumber = false;
    const int level = parser.Value("level").toInt(&isNumber);
    if (!isNumber || level < LOWEST_LEVEL || level > HIGHEST_LEVEL)
        throw UsageError{
            QStringLiteral("a level is a number from %1 to %2, not '%3'")
                .arg(QString::number(LOWEST_LEVEL), QString::number(HIGHEST_LEVEL), parser.Value("level"))};
    return level;
}

/// The form with the level taken into account: it turns a binary file's content into a compressed one.
FileForm WithLevel(FileForm form, bool hasLevel)
{
    if (!hasLevel)
        return form;
    if (!form.isBinaryFile && form.form != Form::Compressed)
        throw UsageError{QStringLiteral("--level is for compressed forms")};
    return {Form::Compressed, form.isBinaryFile};
}

Request ParseConvert(const QStringList& arguments)
{
    Parser parser(CONVERT_DESCRIPTION, "convert", "This command.");
    parser.AddArgument("IN", "Report; - stands for standard input.", "IN");
    parser.AddArgument("OUT", "File to write; - stands for standard output.", "OUT");
    parser.AddOption("to", "Form to write: xml, plain, compressed or file.", "form");
    parser.AddOption("level", "Level of compression: 0 to 9, or -1 for zlib's default.", "level");
    parser.ParseOrThrow(arguments);
    if (parser.AsksForHelp())
        return TextRequest{parser.helpText()};
    const QStringList files = parser.Arguments();
    if (files.size() != 2)
        throw UsageError{QStringLiteral("convert takes IN and OUT")};
    return ConvertRequest{files.at(0), files.at(1), WithLevel(FormOf(parser), parser.Has("level")),
                          LevelOf(parser)};
}

/// A command line without a command in front.
Request ParseGeneral(const QStringList& arguments)
{
    Parser parser(GENERAL_DESCRIPTION, "COMMAND", "What to do: show, convert or check.");
    parser.AddArgument("ARGUMENT", "Files and options of the command.", "[ARGUMENT...]");
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Show the version of this program."));
    parser.addOption(version);
    parser.ParseOrThrow(arguments);
    if (parser.AsksForHelp())
        return TextRequest{parser.helpText()};
    if (parser.isSet(version))
        return TextRequest{QStringLiteral("reporttool " REPORTTOOL_VERSION "\n")};
    if (parser.positionalArguments().isEmpty())
        throw UsageError{QStringLiteral("no command is given")};
    throw UsageError{QStringLiteral("no command is called '%1'").arg(parser.positionalArguments().at(0))};
}

} // namespace

Request ParseCommandLine(const QStringList& arguments)
{
    // "--" in front of the command changes nothing: a command is no option.
    const int place = arguments.value(1) == QLatin1String("--") ? 2 : 1;
    const QString command = arguments.value(place);
    if (command == QLatin1String("show"))
        return ParseShow(arguments);
    if (command == QLatin1String("convert"))
        return ParseConvert(arguments);
    if (command == QLatin1String("check"))
        return ParseCheck(arguments);
    return ParseGeneral(arguments);
}

} // namespace ReportTool
