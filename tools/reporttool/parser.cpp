#include <reporttool/parser.h>

#include <reportcore/files.h>

#include <algorithm>

namespace ReportTool {

Parser::Parser(const QString& description, const QString& command, const QString& commandDescription)
    : m_help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."))
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

void Parser::AddFiles()
{
    AddArgument("FILE", "Reports; - stands for standard input.", "FILE...");
}

void Parser::ParseOrThrow(const QStringList& arguments)
{
    if (!parse(arguments))
        throw UsageError{errorText()};
}

QStringList Parser::Files() const
{
    QStringList files = Arguments();
    if (files.isEmpty())
        throw UsageError{QStringLiteral("no file is given")};
    if (std::count_if(files.begin(), files.end(), ReportCore::IsStandardStream) > 1)
        throw UsageError{QStringLiteral("standard input can be read only once")};
    return files;
}

} // namespace ReportTool
