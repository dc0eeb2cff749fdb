#include <reporttool/reportoutput.h>

#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/parser.h>

#include <reportcore/files.h>
#include <reportcore/reportwriting.h>

namespace ReportTool {

using ReportCore::Terminals;

int PutReport(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form, int level,
              const QString& file, Terminals terminals, Console& console)
{
    QByteArray bytes;
    try {
        bytes = ReportCore::WriteWhole(report, form, level);
    } catch (const ReportCore::NotWritten& refused) {
        console.Complain(file, refused.text);
        return EXIT_INVALID;
    }
    ReportCore::WriteOutput(file, bytes, form.IsBinary() ? terminals : Terminals::Taken);
    return EXIT_GOOD;
}

void AddForce(Parser& parser)
{
    parser.AddSwitch("force", "Write bytes to a terminal, too.");
}

Terminals TerminalsOf(const Parser& parser)
{
    return parser.Has("force") ? Terminals::Taken : Terminals::Refused;
}

} // namespace ReportTool
