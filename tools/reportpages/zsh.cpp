#include <reportpages/completion.h>

#include <reporttool/commands.h>
#include <reporttool/commands/list.h>
#include <reporttool/parser.h>

namespace ReportPages {

using ReportTool::Candidates;
using ReportTool::Parser;

namespace {

constexpr char SCRIPT[] = R"script(#compdef @PROGRAM@
# Completion of @PROGRAM@ for zsh, made of what the program itself knows.

_@FUNCTION@_fields()
{
    # $1: paths or assignments
    local -a fields match mbegin mend
    if [[ $1 == paths ]]; then
        fields=(@PATHS@)
    else
        fields=(@ASSIGNMENTS@)
    fi
    # Items of lists go by the number that has been written.
    if [[ ${(Q)PREFIX} =~ '\[([0-9]+)\]' ]]; then
        fields=("${(@)fields//\[1\]/[$match[1]]}")
    fi
    compadd -S '' -a fields && return
    # It may be one more of the files in front of them.
    [[ $1 == assignments ]] && _files
}

_@FUNCTION@()
{
    local curcontext=$curcontext state
    local -a line commands
    local -i result=1
    _arguments -C -A '-*' @OPTIONS@ '1:command:->command' '*::argument:->argument' && result=0
    case $state in
        command)
            commands=(@COMMANDS@)
            _describe -t commands command commands && result=0
            ;;
        argument)
            case $words[1] in
@CASES@            esac
            ;;
    esac
    return result
}

if [[ $funcstack[1] == _@FILE@ ]]; then
    _@FUNCTION@ "$@"
else
    compdef _@FUNCTION@ @PROGRAM@
fi
)script";

/// In a description colons and brackets would end it.
QString Described(const QString& text)
{
    QString described = text;
    for (const char* sign : {"\\", "[", "]", ":"})
        described.replace(QLatin1String(sign), QLatin1Char('\\') + QLatin1String(sign));
    return described;
}

QString ActionOf(const Candidates& candidates, const QString& function)
{
    // Behind a blank zsh adds no arguments of its own.
    switch (candidates.kind) {
    case Candidates::Kind::Anything:
        break;
    case Candidates::Kind::Files:
        return QStringLiteral("_files");
    case Candidates::Kind::Words:
        return QStringLiteral("(%1)").arg(candidates.words.join(QLatin1Char(' ')));
    case Candidates::Kind::FieldPaths:
        return QStringLiteral(" _%1_fields paths").arg(function);
    case Candidates::Kind::Assignments:
        return QStringLiteral(" _%1_fields assignments").arg(function);
    }
    return QStringLiteral(" ");
}

QStringList OptionSpecs(const Parser& parser, const QString& function)
{
    QStringList specs;
    for (const Parser::Option& option : parser.AllOptions()) {
        for (const QString& name : option.names) {
            const QString text = QStringLiteral("[%1]").arg(Described(option.description));
            if (option.valueName.isEmpty()) {
                specs << Quoted(Dashed(name) + text);
                continue;
            }
            const QLatin1String sign(name.size() == 1 ? "" : "=");
            specs << Quoted(QStringLiteral("*%1%2%3:%4:%5")
                                .arg(Dashed(name), sign, text, Described(option.valueName),
                                     ActionOf(option.candidates, function)));
        }
    }
    return specs;
}

QString CaseOf(const ReportTool::Command& command, const QString& function)
{
    const Parser parser(command);
    QStringList specs = OptionSpecs(parser, function);
    const std::vector<Parser::Argument>& arguments = parser.AllArguments();
    // Of several that may come several times the last one stands for the others; those behind it are not told apart from it.
    std::size_t lastRepeated = 0;
    for (std::size_t i = 0; i < arguments.size(); ++i)
        lastRepeated = arguments[i].isRepeated ? i + 1 : lastRepeated;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool isLast = i + 1 == lastRepeated;
        const QString place = isLast ? QStringLiteral("*") : QString::number(i + 1);
        specs << Quoted(
            QStringLiteral("%1:%2:%3")
                .arg(place, Described(arguments[i].name), ActionOf(arguments[i].candidates, function)));
        if (isLast)
            break;
    }
    return QStringLiteral("                %1)\n"
                          "                    _arguments \\\n"
                          "                        %2 && result=0\n"
                          "                    ;;\n")
        .arg(QLatin1String(command.name), specs.join(QStringLiteral(" \\\n                        ")));
}

} // namespace

QByteArray ZshCompletion(const QString& program)
{
    const QString function = FunctionName(program);
    QString cases;
    QStringList commands;
    for (const ReportTool::Command* command : ReportTool::COMMANDS) {
        cases += CaseOf(*command, function);
        commands << QStringLiteral("%1:%2").arg(QLatin1String(command->name),
                                                QLatin1String(command->summary));
    }
    return Filled(SCRIPT,
                  {{"PROGRAM", program},
                   {"FILE", program},
                   {"FUNCTION", function},
                   {"CASES", cases},
                   {"PATHS", QuotedList(FieldPaths())},
                   {"ASSIGNMENTS", QuotedList(Assignments())},
                   {"OPTIONS", OptionSpecs(ReportTool::GeneralParser(), function).join(QLatin1Char(' '))},
                   {"COMMANDS", QuotedList(commands)}});
}

} // namespace ReportPages
