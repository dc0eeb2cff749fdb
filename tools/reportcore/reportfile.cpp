#include <reportcore/reportfile.h>

#include <reportcore/reading/diagnostics.h>
#include <reportcore/reading/reading.h>

#include <reportgenerator/reportbase/reportexception.h>

namespace ReportCore {

using REPORTGENERATOR::ReportBase;

bool ReadOnFastPath(bool (*read)(REPORTGENERATOR::IRGObject& object, const QByteArray& bytes),
                    const QByteArray& bytes, ReportFile& file)
{
    ReportBase report;
    report.SetValidate(false);
    if (!read(report, bytes))
        return false;
    try {
        report.Check(true);
    } catch (const ReportException&) {
        return false;
    }
    file.report = report;
    file.wasReadWhole = true;
    return true;
}

ReportFile ReadReport(const QByteArray& bytes)
{
    ReportFile file;
    file.form = Recognise(bytes);
    file.size = bytes.size();
    switch (file.form.form) {
    case Form::Unknown:
        file.problems.push_back({QLatin1String(UNKNOWN_FORM),
                                 bytes.isEmpty() ? QStringLiteral("not a report in any known form (empty)")
                                                 : QStringLiteral("not a report in any known form")});
        break;
    case Form::Xml:
        ReadXml(bytes, file);
        break;
    case Form::Plain:
    case Form::Compressed:
        ReadBinary(bytes, file);
        break;
    }
    file.report.ResetLogger();
    return file;
}

ReportFile CheckReport(const ReportBase& report, const QByteArray& bytes)
{
    ReportFile file;
    file.form = Recognise(bytes);
    file.size = bytes.size();
    file.objectName = ReportBase::GetStaticObjectName();
    file.report = report;
    const auto isThere = [] { return true; };
    file.problems = Diagnostics(file.report, isThere, nullptr).Find(bytes, file.form);
    file.report.ResetLogger();
    return file;
}

} // namespace ReportCore
