#include <reporttool/goodreport.h>

#include <reporttool/console.h>

#include <reportcore/files.h>

namespace ReportTool {

std::optional<ReportCore::ReportFile> ReadGoodReport(const QString& name, Console& console)
{
    return GoodReportIn(ReportCore::ReadInput(name), name, console);
}

std::optional<ReportCore::ReportFile> GoodReportIn(const QByteArray& bytes, const QString& name,
                                                   Console& console)
{
    ReportCore::ReportFile file = ReportCore::ReadReport(bytes);
    for (const ReportCore::Problem& problem : file.problems)
        console.Complain(name, problem);
    if (!file.IsGood())
        return std::nullopt;
    return file;
}

} // namespace ReportTool
