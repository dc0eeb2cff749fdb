#include <reporttool/reportoutput.h>

#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/parser.h>

#include <reportcore/files.h>
#include <reportcore/reportwriting.h>

#include <reportgenerator/reportbase/reportexception.h>

namespace ReportTool {

using ReportCore::Terminals;

int PutReport(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form, int level,
              const QString& file, Terminals terminals, Console& console)
{
    QByteArray bytes;
    try {
        bytes = ReportCore::WriteReport(report, form, level);
    } catch (const ReportException& refused) {
        console.Complain(file, QStringLiteral("%1: %2").arg(refused.GetErrorName(), refused.GetErrorText()));
        return EXIT_INVALID;
    }
    const QString loss = ReportCore::FindLoss(report, bytes);
    if (!loss.isEmpty()) {
        console.Complain(file, QStringLiteral("this form would not keep ") + loss);
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
