#include <reportcore/reportfile.h>

#include <reportcore/problemlogger.h>
#include <reportcore/reading/diagnostics.h>
#include <reportcore/reading/reading.h>

#include <reportgenerator/reportbase/reportexception.h>

namespace ReportCore {

using REPORTGENERATOR::ReportBase;

void Prepare(const ReportBase& report, const std::shared_ptr<ProblemLogger>& logger)
{
    report.SetValidate(false);
    report.SetLogger(logger);
}

LogRecords LogRecordsOfCheck(const ReportBase& report, ProblemLogger& logger)
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
            ReadXmlDiagnosing(bytes, file);
        break;
    case Form::Plain:
    case Form::Compressed:
        file.wasReadWhole = ReadBinaryWhole(bytes, file);
        if (!file.wasReadWhole)
            ReadBinaryDiagnosing(bytes, file);
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
    const LogRecords checked = LogRecordsOfCheck(file.report, *logger);
    const LogRecords read;
    Diagnostics diagnostics(file.report, read, checked, true);
    if (file.form.IsBinary())
        diagnostics.Places().SearchBinary(bytes, file.form.isBinaryFile);
    else
        diagnostics.Places().SearchXml(bytes);
    file.problems = diagnostics.Tell();
    file.report.ResetLogger();
    return file;
}

} // namespace ReportCore
