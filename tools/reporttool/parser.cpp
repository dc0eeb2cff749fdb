#include <reporttool/parser.h>

#include <reporttool/filelist.h>

#include <reportcore/files.h>

#include <algorithm>

namespace ReportTool {

Parser::Parser(const QString& description, const QString& command, const QString& commandDescription)
    : m_help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")),
      m_output({QStringLiteral("o"), QStringLiteral("output")},
               QStringLiteral("File to write; standard output where it is missing."), QStringLiteral("file"),
               QStringLiteral("-"))
{
    setApplicationDescription(description);
    addPositionalArgument(command, commandDescription);
    addOption(m_help);
}

Parser::Parser(const char* description, const char* command)
    : Parser(QLatin1String(description), QLatin1String(command), QStringLiteral("This command."))
{
}

void Parser::AddArgument(const char* name, const char* description, const char* syntax)
{
    addPositionalArgument(QLatin1String(name), QLatin1String(description), QLatin1String(syntax));
}

void Parser::AddSwitch(const char* name, const char* description)
{
    addOption({QLatin1String(name), QLatin1String(description)});
}

void Parser::AddOption(const char* name, const char* description, const char* valueName)
{
    addOption({QLatin1String(name), QLatin1String(description), QLatin1String(valueName)});
}

void Parser::AddOutput()
{
    addOption(m_output);
}

QString Parser::Output() const
{
    return value(m_output);
}

void Parser::AddFiles()
{
    AddArgument("FILE", "Reports; - stands for standard input.", "FILE...");
    AddFileOptions();
}

void Parser::AddFileOptions()
{
    addOption({{QStringLiteral("r"), QStringLiteral("recursive")},
               QStringLiteral("Of a folder take all files, and those of the folders in it.")});
    AddOption("pattern", "Of folders take only files whose names fit, such as \"*.xml\".", "pattern");
    AddOption("files-from", "Take the files whose names stand in this file, one a line; - is standard input.",
              "list");
    addOption({{QStringLiteral("0"), QStringLiteral("null")},
               QStringLiteral("In the list a NUL stands behind each name, not a line break.")});
}

void Parser::ParseOrThrow(const QStringList& arguments)
{
    if (!parse(arguments))
        throw UsageError{errorText()};
}

QStringList Parser::FilesAmong(const QStringList& arguments) const
{
    const bool isRecursive = isSet(QStringLiteral("recursive"));
    if (Has("pattern") && !isRecursive)
        throw UsageError{QStringLiteral("--pattern is for folders, with -r")};
    if (isSet(QStringLiteral("null")) && !Has("files-from"))
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
        files << NamesIn(ReportCore::ReadInput(list), isSet(QStringLiteral("null")));
    if (std::count_if(files.begin(), files.end(), ReportCore::IsStandardStream) > 1 ||
        (ReportCore::IsStandardStream(list) && files.contains(QStringLiteral("-"))))
        throw UsageError{QStringLiteral("standard input can be read only once")};
    return isRecursive ? WithoutFolders(files, Has("pattern") ? Value("pattern") : QString()) : files;
}

} // namespace ReportTool
