#include <reportcore/reading/reading.h>

#include <reportcore/reading/xmlcut.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reportbase/envelope/wholereading.h>

namespace ReportCore {

using REPORTGENERATOR::ReportBase;

bool ReadXmlWhole(const QByteArray& bytes, ReportFile& file)
{
    const XmlCut cut = CutReport(bytes);
    ReportBase report;
    report.SetValidate(false);
    if (!REPORTGENERATOR::ReadWholeXml(report, cut.element) || !TakeIfGood(report, file))
        return false;
    file.objectName = cut.rootName;
    return true;
}

} // namespace ReportCore
