#include <reporttool/parser.h>

#include <reporttool/command.h>
#include <reporttool/filelist.h>

#include <reportcore/files.h>

#include <reportgenerator/reflection/nearname.h>
#include <reportgenerator/reflection/texts.h>

#include <QtCore/QFileInfo>

#include <algorithm>

namespace ReportTool {

namespace {

QStringList NamesInList(const QString& list, bool hasNuls)
{
    const QByteArray bytes = ReportCore::ReadInput(list);
    if (!hasNuls && bytes.contains('\0'))
        throw ReportCore::UnusableFile{
            list, QStringLiteral("there is a NUL in a name; with -0 each name has one behind it")};
    return NamesIn(bytes, hasNuls);
}

} // namespace

Parser::Parser(const QString& firstArgument, const QString& description)
{
    addPositionalArgument(firstArgument, description);
    AddSwitch(QStringList{QStringLiteral("h"), QStringLiteral("help")}, "Show this help.");
}

Parser::Parser(const Command& command) : Parser(QLatin1String(command.name), QStringLiteral("This command."))
{
    command.declare(*this);
    const bool takesFiles =
        std::any_of(m_allArguments.begin(), m_allArguments.end(), [](const Argument& argument) {
            return argument.candidates.kind == Candidates::Kind::Files;
        });
    if (takesFiles)
        AddOption("ceiling",
                  "Most that a file may hold, read or written: 1 to 1023 MiB; 256 where it is missing.",
                  "MiB");
}

void Parser::AddArgument(const char* name, const char* description, const char* syntax,
                         const Candidates& candidates)
{
    addPositionalArgument(QLatin1String(name), QLatin1String(description), QLatin1String(syntax));
    m_allArguments.push_back(
        {QLatin1String(name), QLatin1String(syntax).contains(QLatin1String("...")), candidates});
}

void Parser::Add(const QCommandLineOption& option, const Candidates& candidates)
{
    addOption(option);
    m_allOptions.push_back({option.names(), option.description(), option.valueName(), candidates, false});
}

void Parser::AddSwitch(const QStringList& names, const char* description)
{
    Add({names, QLatin1String(description)}, {});
}

void Parser::AddSwitch(const char* name, const char* description)
{
    AddSwitch(QStringList(QLatin1String(name)), description);
}

void Parser::AddOption(const char* name, const char* description, const char* valueName,
                       const Candidates& candidates)
{
    Add({QLatin1String(name), QLatin1String(description), QLatin1String(valueName)}, candidates);
}

void Parser::AddRepeatedOption(const char* name, const char* description, const char* valueName,
                               const Candidates& candidates)
{
    AddOption(name, description, valueName, candidates);
    m_allOptions.back().isRepeated = true;
}

void Parser::AddExample(const char* commandLine, const char* purpose)
{
    m_examples.push_back({QLatin1String(commandLine), QLatin1String(purpose)});
}

void Parser::AddOutput()
{
    Add({{QStringLiteral("o"), QStringLiteral("output")},
         QStringLiteral("File to write; standard output where it is missing."),
         QStringLiteral("file"),
         QStringLiteral("-")},
        Candidates::Files());
}

QString Parser::Output() const
{
    return Value("output");
}

void Parser::AddFiles()
{
    AddArgument("FILE", "Reports; - stands for standard input.", "FILE...");
    AddFileOptions();
}

void Parser::AddFilesToName()
{
    AddArgument("FILE", "Reports; - stands for standard input.", "FILE...");
    m_namesFiles = true;
    AddLists("Behind each name that is printed stands a NUL, not a line break, and so in the list.");
}

void Parser::AddFolderOptions()
{
    AddSwitch(QStringList{QStringLiteral("r"), QStringLiteral("recursive")},
              "Of a folder take all files, and those of the folders in it.");
    AddOption("pattern", "Of folders take only files whose names fit, such as \"*.xml\".", "pattern");
}

void Parser::AddFileOptions()
{
    AddLists("In the list a NUL stands behind each name, not a line break.");
}

void Parser::AddLists(const char* descriptionOfNuls)
{
    AddFolderOptions();
    AddOption("files-from", "Take the files whose names stand in this file, one a line; - is standard input.",
              "list", Candidates::Files());
    AddSwitch(QStringList{QStringLiteral("0"), QStringLiteral("null")}, descriptionOfNuls);
}

QString Parser::HelpText() const
{
    QString text = helpText();
    if (!m_examples.empty())
        text += QLatin1String("\nExamples:\n");
    for (const Example& example : m_examples)
        text += QStringLiteral("  " REPORTTOOL_PROGRAM " %1\n      %2\n")
                    .arg(example.commandLine, example.purpose);
    return text;
}

void Parser::ParseOrThrow(const QStringList& arguments)
{
    m_commandLine = arguments;
    if (!parse(arguments))
        throw UsageError{errorText() + HintAtUnknownOption()};
    RequireOneValueEach();
}

/// What was meant by an option that isn't known, as far as one can tell.
QString Parser::HintAtUnknownOption() const
{
    if (unknownOptionNames().isEmpty())
        return QString();
    const QString file = FileAmongOptions();
    if (!file.isEmpty())
        return QStringLiteral(" There is a file of that name: write './%1', or '--' before it.")
            .arg(ReportCore::Printable(file));
    const QString option = NearestOption();
    return option.isEmpty() ? QString() : QStringLiteral(" Did you mean '--%1'?").arg(option);
}

/// The name of a file that looks like an option.
QString Parser::FileAmongOptions() const
{
    const auto end = std::find(m_commandLine.begin() + 1, m_commandLine.end(), QLatin1String("--"));
    const auto file = std::find_if(m_commandLine.begin() + 1, end, [](const QString& argument) {
        return argument.startsWith(QLatin1Char('-')) && argument != QLatin1String("-") &&
               QFileInfo::exists(argument);
    });
    return file == end ? QString() : *file;
}

/// The long name that one which isn't known is near to, be it with a single dash.
QString Parser::NearestOption() const
{
    QStringList known;
    for (const Option& option : m_allOptions) {
        if (option.names.last().size() > 1)
            known << option.names.last();
    }
    QStringList names = unknownOptionNames();
    for (const QString& argument : m_commandLine.mid(1)) {
        const QString name = argument.mid(1).section(QLatin1Char('='), 0, 0);
        if (argument.startsWith(QLatin1Char('-')) && !name.startsWith(QLatin1Char('-')) && name.size() > 1)
            names << name;
    }
    for (const QString& name : names) {
        QString nearest = ReportCore::NearestOf(known, name);
        if (!nearest.isNull())
            return nearest;
    }
    return QString();
}

void Parser::RequireOneValueEach() const
{
    for (const Option& option : m_allOptions) {
        const QString& name = option.names.last();
        if (!option.valueName.isEmpty() && !option.isRepeated && isSet(name) && values(name).size() > 1)
            throw UsageError{QStringLiteral("%1%2 is given more than once")
                                 .arg(name.size() > 1 ? QStringLiteral("--") : QStringLiteral("-"), name)};
    }
}

bool Parser::Offers(const char* option) const
{
    return std::any_of(m_allOptions.begin(), m_allOptions.end(), [option](const Option& offered) {
        return offered.names.contains(QLatin1String(option));
    });
}

qint64 Parser::Ceiling() const
{
    if (!Has("ceiling"))
        return ReportCore::USUAL_CEILING;
    bool isNumber = false;
    const qint64 ceiling = Value("ceiling").toUShort(&isNumber) * ReportCore::BYTES_IN_MIB;
    if (!isNumber || ceiling == 0 || ceiling > ReportCore::HIGHEST_CEILING)
        throw UsageError{QStringLiteral("a ceiling is a number of MiB from 1 to %1, not '%2'")
                             .arg(ReportCore::HIGHEST_CEILING / ReportCore::BYTES_IN_MIB)
                             .arg(Value("ceiling"))};
    return ceiling;
}

QString Parser::Pattern() const
{
    if (Has("pattern") && !Has("recursive"))
        throw UsageError{QStringLiteral("--pattern is for folders, with -r")};
    return Has("pattern") ? Value("pattern") : QString();
}

QStringList Parser::FilesAmong(const QStringList& arguments) const
{
    const QString pattern = Pattern();
    if (HasNuls() && !m_namesFiles && !Has("files-from"))
        throw UsageError{QStringLiteral("-0 is for --files-from")};
    if (arguments.isEmpty() && !Has("files-from"))
        throw UsageError{QStringLiteral("no file is given")};
    const QString list = Value("files-from");
    QStringList named = arguments;
    if (Has("files-from"))
        named << list;
    if (std::count_if(named.begin(), named.end(), ReportCore::IsStandardStream) > 1)
        throw UsageError{QStringLiteral("standard input can be read only once")};
    QStringList files = arguments;
    if (Has("files-from"))
        files << NamesInList(list, HasNuls());
    if (std::count_if(files.begin(), files.end(), ReportCore::IsStandardStream) > 1 ||
        (ReportCore::IsStandardStream(list) && files.contains(QStringLiteral("-"))))
        throw UsageError{QStringLiteral("standard input can be read only once")};
    return Has("recursive") ? WithoutFolders(files, pattern) : files;
}

} // namespace ReportTool
