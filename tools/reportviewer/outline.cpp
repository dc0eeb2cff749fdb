#include <reportviewer/outline.h>

#include <reportcore/areapoints.h>

namespace ReportViewer {

Outline OutlineOf(const REPORTGENERATOR::ReportBase& report)
{
    Outline outline;
    outline.items = ReportCore::ValidPoints(report);
    outline.count = ReportCore::CountPoints(report);
    outline.geometry = ReportCore::UncutGeometryOf(outline.items);
    return outline;
}

} // namespace ReportViewer
