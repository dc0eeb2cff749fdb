#include <reporttool/reportoutput.h>

#include <reporttool/console.h>
#include <reporttool/exitcodes.h>

#include <reportcore/files.h>
#include <reportcore/reportwriting.h>

#include <reportgenerator/reportbase/reportexception.h>

namespace ReportTool {

int PutReport(const REPORTGENERATOR::ReportBase& report, const ReportCore::FileForm& form, int level,
              const QString& file, Console& console)
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
    ReportCore::WriteOutput(file, bytes);
    return EXIT_GOOD;
}

} // namespace ReportTool
