#include <reportcore/reportfile.h>

#include <reportcore/problemlogger.h>
#include <reportcore/reading/reading.h>

namespace ReportCore {

void Prepare(const REPORTGENERATOR::ReportBase& report, const std::shared_ptr<ProblemLogger>& logger)
{
    report.SetValidate(false);
    report.SetLogger(logger);
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
        file.wasReadAtOnce = ReadXmlAtOnce(bytes, file);
        if (!file.wasReadAtOnce)
            ReadXmlWithPlaces(bytes, file);
        break;
    case Form::Plain:
    case Form::Compressed:
        file.wasReadAtOnce = ReadBinaryAtOnce(bytes, file);
        if (!file.wasReadAtOnce)
            ReadBinaryWithPlaces(bytes, file);
        break;
    }
    file.report.ResetLogger();
    return file;
}

} // namespace ReportCore
