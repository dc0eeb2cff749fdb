#include <reportcore/reading/reading.h>

#include <reportcore/problemlogger.h>
#include <reportcore/reading/plaintext.h>
#include <reportcore/reading/xmlcut.h>
#include <reportcore/reportfile.h>

#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QString>

#include <memory>

namespace ReportCore {

using REPORTGENERATOR::ReportBase;

bool ReadXmlAtOnce(const QByteArray& bytes, ReportFile& file)
{
    const XmlCut cut = CutReport(bytes);
    const QString text = QString::fromUtf8(cut.element.constData(), cut.element.size());
    // Bytes that are no UTF-8 are an error of the XML.
    if (text.isEmpty() || text.contains(QChar(QChar::ReplacementCharacter)))
        return false;
    const auto logger = std::make_shared<ProblemLogger>();
    ReportBase report;
    Prepare(report, logger);
    try {
        if (!report.SetXmlString(text, true) || logger->HasErrors())
            return false;
        report.Check(true);
    } catch (const ReportException&) {
        return false;
    }
    // The library has read all of the element if there is no more in it than the report accounts for.
    const XmlTally tally = TallyOf(report);
    if (logger->HasErrors() || !HasElementsOnly(cut.element, tally))
        return false;
    file.objectName = cut.rootName;
    file.report = report;
    file.hasPlainText = IsPlainText(cut.element, tally);
    return true;
}

} // namespace ReportCore
