#include <reporttool/goodreport.h>

#include <reporttool/console.h>

#include <reportcore/files.h>

namespace ReportTool {

std::optional<ReportCore::ReportFile> ReadGoodReport(const QString& name, Console& console)
{
    ReportCore::ReportFile file = ReportCore::ReadReport(ReportCore::ReadInput(name));
    for (const ReportCore::Problem& problem : file.problems)
        console.Complain(name, problem);
    if (!file.IsGood())
        return std::nullopt;
    return file;
}

} // namespace ReportTool
