#include <reportcore/reportfile.h>

#include <reportcore/problemlogger.h>
#include <reportcore/reading/reading.h>
#include <reportcore/reading/telling.h>

#include <reportgenerator/reportbase/reportexception.h>

namespace ReportCore {

using REPORTGENERATOR::ReportBase;

void Prepare(const ReportBase& report, const std::shared_ptr<ProblemLogger>& logger)
{
    report.SetValidate(false);
    report.SetLogger(logger);
}

Remarks RemarksOfCheck(const ReportBase& report, ProblemLogger& logger)
{
    try {
        report.Check(true);
    } catch (const ReportException& exception) {
        logger.Catch(exception);
    }
    return logger.Take();
}

bool TakeIfGood(const ReportBase& report, ReportFile& file)
{
    try {
        report.Check(true);
    } catch (const ReportException&) {
        return false;
    }
    file.report = report;
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
        file.wasReadWhole = ReadXmlWhole(bytes, file);
        if (!file.wasReadWhole)
            ReadXmlWithPlaces(bytes, file);
        break;
    case Form::Plain:
    case Form::Compressed:
        file.wasReadWhole = ReadBinaryWhole(bytes, file);
        if (!file.wasReadWhole)
            ReadBinaryWithPlaces(bytes, file);
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
    const auto logger = std::make_shared<ProblemLogger>();
    Prepare(file.report, logger);
    const Remarks checked = RemarksOfCheck(file.report, *logger);
    const Remarks read;
    Telling telling(file.report, read, checked, true);
    if (file.form.IsBinary())
        telling.Places().SearchBinary(bytes, file.form.isBinaryFile);
    else
        telling.Places().SearchXml(bytes);
    file.problems = telling.Tell();
    file.report.ResetLogger();
    return file;
}

} // namespace ReportCore
