#include <reporttool/reportoutput.h>

#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/parser.h>

#include <reportcore/files.h>
#include <reportcore/reportwriting.h>

namespace ReportTool {

using ReportCore::Terminals;

std::optional<QByteArray> BytesOf(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form,
                                  int level, const QString& file, Console& console)
{
    try {
        return ReportCore::WriteWhole(report, form, level);
    } catch (const ReportCore::NotWritten& refused) {
        console.Complain(file, refused.text);
    }
    return std::nullopt;
}

void PutBytes(const QByteArray& bytes, const ReportCore::FileForm& form, const QString& file,
              Terminals terminals)
{
    ReportCore::WriteOutput(file, bytes, form.IsBinary() ? terminals : Terminals::Taken);
}

int PutReport(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form, int level,
              const QString& file, Terminals terminals, Console& console)
{
    const std::optional<QByteArray> bytes = BytesOf(report, form, level, file, console);
    if (!bytes)
        return EXIT_INVALID;
    PutBytes(*bytes, form, file, terminals);
    return EXIT_GOOD;
}

void AddDryRun(Parser& parser)
{
    parser.AddSwitch("dry-run", "Write nothing, but tell what would change.");
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
