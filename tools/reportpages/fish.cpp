#include <reportpages/completion.h>

#include <reporttool/commands.h>
#include <reporttool/commands/list.h>
#include <reporttool/parser.h>

#include <algorithm>

namespace ReportPages {

using ReportTool::Candidates;
using ReportTool::Parser;

namespace {

constexpr char SCRIPT[] = R"script(# Completion of @PROGRAM@ for fish, made of what the program itself knows.

# Whether the command is this one; without an argument, whether there is none yet.
function __@FUNCTION@_is
    set -l words (commandline -opc)
    for word in $words[2..-1]
        if not string match -q -- '-*' $word
            test "$word" = "$argv[1]"
            return
        end
    end
    test -z "$argv[1]"
end

# Items of lists go by the number that has been written.
function __@FUNCTION@_fields
    set -l number (string match -r '\[[0-9]+\]' -- (commandline -ct | string unescape))
    if set -q number[1]
        string replace '[1]' $number[1] -- $argv
    else
        printf '%s\n' $argv
    end
end

function __@FUNCTION@_paths
    __@FUNCTION@_fields @PATHS@
end

function __@FUNCTION@_assignments
    __@FUNCTION@_fields @ASSIGNMENTS@
end

@LINES@)script";

/// The end of a line that completes an option's value or an argument.
QString ValueOf(const Candidates& candidates, const QString& function)
{
    switch (candidates.kind) {
    case Candidates::Kind::Anything:
        break;
    case Candidates::Kind::Files:
        return QStringLiteral(" -F");
    case Candidates::Kind::Words:
        return QStringLiteral(" -f -a ") + Quoted(candidates.words.join(QLatin1Char(' ')));
    case Candidates::Kind::FieldPaths:
        return QStringLiteral(" -f -a '(__%1_paths)'").arg(function);
    case Candidates::Kind::Assignments:
        return QStringLiteral(" -f -a '(__%1_assignments)'").arg(function);
    }
    return QStringLiteral(" -f");
}

class Lines
{
public:
    explicit Lines(const QString& program) : m_program(program), m_function(FunctionName(program)) {}

    /// Of what comes behind this command, or in front of all where it is empty.
    void Add(const Parser& parser, const QString& command)
    {
        const QString begin = Begin(command);
        for (const Parser::Option& option : parser.AllOptions()) {
            QString line = begin;
            for (const QString& name : option.names)
                line += (name.size() == 1 ? QLatin1String(" -s ") : QLatin1String(" -l ")) + name;
            if (!option.valueName.isEmpty())
                line += QLatin1String(" -r") + ValueOf(option.candidates, m_function);
            Line(line, option.description);
        }
        // Files are offered unless no argument is one.
        const auto& arguments = parser.AllArguments();
        const bool hasFiles = std::any_of(arguments.begin(), arguments.end(), [](const auto& argument) {
            return argument.candidates.kind == Candidates::Kind::Files;
        });
        for (const Parser::Argument& argument : arguments) {
            if (argument.candidates.kind == Candidates::Kind::Files)
                continue;
            QString value = ValueOf(argument.candidates, m_function);
            if (hasFiles)
                value.replace(QLatin1String(" -f"), QLatin1String(" -F"));
            m_text += begin + value + QLatin1Char('\n');
        }
    }

    void AddCommand(const ReportTool::Command& command)
    {
        Line(Begin(QString()) + QLatin1String(" -f -a ") + QLatin1String(command.name),
             QString(QLatin1String(command.summary)));
    }

    const QString& Text() const { return m_text; }

private:
    QString Begin(const QString& command) const
    {
        const QString condition = QStringLiteral("__%1_is %2").arg(m_function, command).trimmed();
        return QStringLiteral("complete -c %1 -n %2").arg(m_program, Quoted(condition));
    }

    void Line(const QString& line, const QString& description)
    {
        m_text += QStringLiteral("%1 -d %2\n").arg(line, FishQuoted(description));
    }

    /// In single quotes, where fish knows a backslash in front of a quote.
    static QString FishQuoted(const QString& text)
    {
        QString quoted = text;
        quoted.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
        quoted.replace(QLatin1Char('\''), QLatin1String("\\'"));
        return QLatin1Char('\'') + quoted + QLatin1Char('\'');
    }

    QString m_program;
    QString m_function;
    QString m_text;
};

} // namespace

QByteArray FishCompletion(const QString& program)
{
    Lines lines(program);
    lines.Add(ReportTool::GeneralParser(), QString());
    for (const ReportTool::Command* command : ReportTool::COMMANDS) {
        lines.AddCommand(*command);
        lines.Add(Parser(*command), QLatin1String(command->name));
    }
    return Filled(SCRIPT, {{"PROGRAM", program},
                           {"FUNCTION", FunctionName(program)},
                           {"PATHS", QuotedList(FieldPaths())},
                           {"ASSIGNMENTS", QuotedList(Assignments())},
                           {"LINES", lines.Text()}});
}

} // namespace ReportPages
