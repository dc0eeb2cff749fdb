#ifndef REPORTTOOL_PARSER_H
#define REPORTTOOL_PARSER_H

#include <QtCore/QCommandLineParser>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ReportTool {

/// A command line that asks for nothing that there is; the text is for people.
struct UsageError
{
    QString text;
};

/// What the command lines of all commands have in common: a description and an option for help.
class Parser : public QCommandLineParser
{
public:
    Parser(const QString& description, const QString& command, const QString& commandDescription);

    /// Of a command's own line.
    Parser(const char* description, const char* command);

    void AddArgument(const char* name, const char* description, const char* syntax);
    void AddSwitch(const char* name, const char* description);
    void AddOption(const char* name, const char* description, const char* valueName);

    /// -o, --output: the file to write; standard output where it is missing.
    void AddOutput();
    QString Output() const;

    /// FILE..., several reports, and the options that name more of them.
    void AddFiles();

    /// These options alone.
    void AddFileOptions();

    /// Throws `UsageError`.
    void ParseOrThrow(const QStringList& arguments);

    bool AsksForHelp() const { return isSet(m_help); }
    bool Has(const char* option) const { return isSet(QLatin1String(option)); }
    QString Value(const char* option) const { return value(QLatin1String(option)); }
    QStringList Values(const char* option) const { return values(QLatin1String(option)); }

    /// Whether the options name files beside the arguments.
    bool NamesMoreFiles() const { return Has("recursive") || Has("files-from"); }

    /// The arguments behind the command.
    QStringList Arguments() const { return positionalArguments().mid(1); }

    /// The files to read: those behind the command, then those of the list; of folders all that they hold. Throws
    /// `UsageError` when nothing is named, or standard input twice, and `UnusableFile` for a list that cannot be read.
    QStringList Files() const { return FilesAmong(Arguments()); }

    /// The same for a part of the arguments.
    QStringList FilesAmong(const QStringList& arguments) const;

private:
    QCommandLineOption m_help;
    QCommandLineOption m_output;
};

} // namespace ReportTool

#endif
