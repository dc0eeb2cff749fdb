#ifndef REPORTTOOL_PARSER_H
#define REPORTTOOL_PARSER_H

#include <QtCore/QCommandLineParser>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

namespace ReportTool {

struct Command;

/// A command line that asks for nothing that there is; the text is for people.
struct UsageError
{
    QString text;
};

/// What a shell can offer in the place of an argument or of an option's value.
struct Candidates
{
    enum class Kind
    {
        Anything, ///< nothing is known
        Files,
        Words,      ///< one of these
        FieldPaths, ///< of a report
        Assignments ///< a field's path and its value
    };

    Kind kind = Kind::Anything;
    QStringList words = {};

    static Candidates Files() { return {Kind::Files}; }
    static Candidates OneOf(const QStringList& words) { return {Kind::Words, words}; }
    static Candidates FieldPaths() { return {Kind::FieldPaths}; }
    static Candidates Assignments() { return {Kind::Assignments}; }
};

/// What the command lines of all commands have in common: a description and an option for help.
class Parser : public QCommandLineParser
{
public:
    struct Argument
    {
        QString name;
        bool isRepeated = false; ///< it may come several times
        Candidates candidates;
    };

    struct Option
    {
        QStringList names; ///< without dashes; those of one letter have one dash
        QString description;
        QString valueName; ///< empty for a switch
        Candidates candidates;
        bool isRepeated = false; ///< its values may be several
    };

    /// A line as an example, and what it is good for.
    struct Example
    {
        QString commandLine; ///< behind the program's name
        QString purpose;
    };

    /// Of a line whose first argument is this one.
    Parser(const QString& firstArgument, const QString& description);

    /// Of a command's own line, with all that the command declares.
    /// Where it takes files, there is one for their ceiling, too.
    explicit Parser(const Command& command);

    void SetDescription(const QString& description) { setApplicationDescription(description); }
    void SetDescription(const char* description) { SetDescription(QString(QLatin1String(description))); }
    void AddArgument(const char* name, const char* description, const char* syntax,
                     const Candidates& candidates = Candidates::Files());
    void AddSwitch(const QStringList& names, const char* description);
    void AddSwitch(const char* name, const char* description);
    void AddOption(const char* name, const char* description, const char* valueName,
                   const Candidates& candidates = {});
    void AddRepeatedOption(const char* name, const char* description, const char* valueName,
                           const Candidates& candidates = {});
    void AddExample(const char* commandLine, const char* purpose);

    /// -o, --output: the file to write; standard output where it is missing.
    void AddOutput();
    QString Output() const;

    /// FILE..., several reports, and the options that name more of them.
    void AddFiles();

    /// The same for a command that prints names of files: a NUL stands behind these, too, where one is asked for.
    void AddFilesToName();

    /// -0: whether a NUL stands behind each name.
    bool HasNuls() const { return isSet(QStringLiteral("null")); }

    /// These options alone.
    void AddFileOptions();

    /// Of them, those for folders.
    void AddFolderOptions();

    /// Description, options, arguments and examples, for people.
    QString HelpText() const;

    // What has been added, in this order; the option for help is the first one.

    const std::vector<Argument>& AllArguments() const { return m_allArguments; }
    const std::vector<Option>& AllOptions() const { return m_allOptions; }
    const std::vector<Example>& AllExamples() const { return m_examples; }

    /// Throws `UsageError`.
    void ParseOrThrow(const QStringList& arguments);

    bool AsksForHelp() const { return Has("help"); }

    /// Whether there is such an option; only then may one ask for it.
    bool Offers(const char* option) const;
    bool Has(const char* option) const { return isSet(QLatin1String(option)); }
    QString Value(const char* option) const { return value(QLatin1String(option)); }
    QStringList Values(const char* option) const { return values(QLatin1String(option)); }

    /// --ceiling: how many bytes a file may hold. Throws `UsageError`.
    qint64 Ceiling() const;

    /// Whether the options name files beside the arguments.
    bool NamesMoreFiles() const { return Has("recursive") || Has("files-from"); }

    /// What was parsed, the program's name in front.
    const QStringList& CommandLine() const { return m_commandLine; }

    /// The arguments behind the command.
    QStringList Arguments() const { return positionalArguments().mid(1); }

    /// --pattern: what the files of folders are to fit; null for all. Throws `UsageError` where no folder is searched.
    QString Pattern() const;

    /// The files to read: those behind the command, then those of the list; of folders all that they hold. Throws
    /// `UsageError` when nothing is named, or standard input twice, and `UnusableFile` for a list that cannot be read.
    QStringList Files() const { return FilesAmong(Arguments()); }

    /// The same for a part of the arguments.
    QStringList FilesAmong(const QStringList& arguments) const;

private:
    void Add(const QCommandLineOption& option, const Candidates& candidates);
    void AddLists(const char* descriptionOfNuls);
    QString HintAtUnknownOption() const;
    QString FileAmongOptions() const;
    QString NearestOption() const;
    void RequireOneValueEach() const;

    QStringList m_commandLine;
    std::vector<Argument> m_allArguments;
    std::vector<Option> m_allOptions;
    std::vector<Example> m_examples;
    bool m_namesFiles = false;
};

} // namespace ReportTool

#endif
