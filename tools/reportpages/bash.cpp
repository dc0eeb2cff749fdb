#include <reportpages/completion.h>

#include <reporttool/commands.h>
#include <reporttool/commands/list.h>
#include <reporttool/parser.h>

namespace ReportPages {

using ReportTool::Candidates;
using ReportTool::Parser;

namespace {

constexpr char SCRIPT[] = R"script(# Completion of @PROGRAM@ for bash, made of what the program itself knows.

_@FUNCTION@_offer()
{
    # $1: what can stand here; $2: the word so far
    local kind=${1%% *} word=$2 words number
    case $kind in
        files)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$word")
            return
            ;;
        words) words=${1#words } ;;
        paths) words='@PATHS@' ;;
        assignments) words='@ASSIGNMENTS@' ;;
        *) return ;;
    esac
    # Items of lists go by the number that has been written.
    if [[ $word =~ \[([0-9]+)\] ]]; then
        number=${BASH_REMATCH[1]}
        words=${words//\[1\]/[$number]}
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "${word#[\'\"]}")
    if [[ $kind == assignments && ${#COMPREPLY[@]} -eq 0 ]]; then
        # It may be one more of the files in front of them.
        _@FUNCTION@_offer files "$word"
        return
    fi
    if [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]]; then
        compopt -o nospace 2>/dev/null
    fi
}

_@FUNCTION@()
{
    # bash takes words apart at "=" and ":"; here they are whole.
    local -a words=()
    local word joined=
    for word in "${COMP_WORDS[@]:1:COMP_CWORD}"; do
        if [[ ${#words[@]} -gt 0 && ( -n $joined || $word == [=:]* ) ]]; then
            words[-1]+=$word
        else
            words+=("$word")
        fi
        joined=
        [[ $word != *[=:] ]] || joined=1
    done
    local current=${words[-1]} command= place=0 ended= expected=
    unset 'words[-1]'

    local options='@OPTIONS@'
    local -a arguments=('words @COMMANDS@')
    local -A values=()
    COMPREPLY=()
    for word in "${words[@]}"; do
        if [[ -n $expected ]]; then
            expected=
        elif [[ -z $ended && $word == -- ]]; then
            ended=1
        elif [[ -z $ended && $word == -?* ]]; then
            expected=${values[$word]-}
        elif [[ -z $command ]]; then
            command=$word
            arguments=()
            case $command in
@CASES@                *) options= ;;
            esac
        else
            place=$((place + 1))
        fi
    done

    if [[ -n $expected ]]; then
        _@FUNCTION@_offer "$expected" "$current"
    elif [[ -z $ended && $current == --*=* ]]; then
        _@FUNCTION@_offer "${values[${current%%=*}]-}" "${current#*=}"
        [[ $COMP_WORDBREAKS == *=* ]] || COMPREPLY=("${COMPREPLY[@]/#/"${current%%=*}="}")
        return
    elif [[ -z $ended && $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    elif [[ ${#arguments[@]} -gt 0 ]]; then
        # The last one may come several times.
        ((place < ${#arguments[@]})) || place=$((${#arguments[@]} - 1))
        _@FUNCTION@_offer "${arguments[place]}" "$current"
    fi
    # What bash puts in stands behind the sign.
    if [[ $current == *=* && $COMP_WORDBREAKS == *=* ]]; then
        COMPREPLY=("${COMPREPLY[@]#"${current%=*}="}")
    fi
}

complete -F _@FUNCTION@ @PROGRAM@
)script";

QString CodeOf(const Candidates& candidates)
{
    switch (candidates.kind) {
    case Candidates::Kind::Anything:
        break;
    case Candidates::Kind::Files:
        return QStringLiteral("files");
    case Candidates::Kind::Words:
        return QStringLiteral("words ") + candidates.words.join(QLatin1Char(' '));
    case Candidates::Kind::FieldPaths:
        return QStringLiteral("paths");
    case Candidates::Kind::Assignments:
        return QStringLiteral("assignments");
    }
    return QStringLiteral("anything");
}

QString OptionWords(const Parser& parser)
{
    QStringList words;
    for (const Parser::Option& option : parser.AllOptions()) {
        for (const QString& name : option.names)
            words << Dashed(name);
    }
    return words.join(QLatin1Char(' '));
}

QString CaseOf(const ReportTool::Command& command)
{
    const Parser parser(command);
    QStringList arguments;
    for (const Parser::Argument& argument : parser.AllArguments())
        arguments << Quoted(CodeOf(argument.candidates));
    QStringList values;
    for (const Parser::Option& option : parser.AllOptions()) {
        if (option.valueName.isEmpty())
            continue;
        for (const QString& name : option.names)
            values << QStringLiteral("[%1]=%2").arg(Dashed(name), Quoted(CodeOf(option.candidates)));
    }
    return QStringLiteral("                %1)\n"
                          "                    options='%2'\n"
                          "                    arguments=(%3)\n"
                          "                    values=(%4)\n"
                          "                    ;;\n")
        .arg(QLatin1String(command.name), OptionWords(parser), arguments.join(QLatin1Char(' ')),
             values.join(QLatin1Char(' ')));
}

} // namespace

QByteArray BashCompletion(const QString& program)
{
    QString cases;
    QStringList commands;
    for (const ReportTool::Command* command : ReportTool::COMMANDS) {
        cases += CaseOf(*command);
        commands << QLatin1String(command->name);
    }
    return Filled(SCRIPT, {{"PROGRAM", program},
                           {"FUNCTION", FunctionName(program)},
                           {"CASES", cases},
                           {"PATHS", FieldPaths().join(QLatin1Char(' '))},
                           {"ASSIGNMENTS", Assignments().join(QLatin1Char(' '))},
                           {"OPTIONS", OptionWords(ReportTool::GeneralParser())},
                           {"COMMANDS", commands.join(QLatin1Char(' '))}});
}

} // namespace ReportPages
