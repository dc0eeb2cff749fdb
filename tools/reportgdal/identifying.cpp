#include <reportgdal/identifying.h>

#include <reportgdal/files.h>

#include <reportcore/files.h>
#include <reportcore/form.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QXmlStreamReader>

namespace ReportGdal {

namespace {

/// As much as GDAL itself reads of a file before it asks whose it is.
constexpr int BEGINNING = 1024;

constexpr int FILES_LOOKED_AT = 16;

bool HasReportElement(const QByteArray& beginning)
{
    QXmlStreamReader reader(ReportCore::ForXmlReader(beginning));
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement &&
            reader.name() == REPORTGENERATOR::ReportBase::GetStaticObjectName())
            return true;
    }
    return false;
}

bool FileBeginsAsReport(const std::string& name)
{
    try {
        return BeginsAsReport(ReadBeginning(name, BEGINNING));
    } catch (const ReportCore::UnusableFile&) {
        return false;
    }
}

} // namespace

bool BeginsAsReport(const QByteArray& beginning)
{
    const ReportCore::FileForm form = ReportCore::Recognise(beginning);
    return form.IsBinary() || (form.form == ReportCore::Form::Xml && HasReportElement(beginning));
}

bool HoldsReports(const std::string& folder, bool isRecursive)
{
    int files = 0;
    int reports = 0;
    ForEachFile(folder, isRecursive, [&](const std::string& name) {
        ++files;
        reports += FileBeginsAsReport(name) ? 1 : 0;
        return files < FILES_LOOKED_AT;
    });
    return reports > 0 && 2 * reports >= files;
}

} // namespace ReportGdal
