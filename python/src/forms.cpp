#include "forms.h"

#include "apart.h"
#include "errors.h"

#include <reportcore/files.h>
#include <reportcore/lint.h>
#include <reportcore/problemlogger.h>
#include <reportcore/reading/faultlist.h>
#include <reportcore/reportfile.h>
#include <reportcore/reportwriting.h>

#include <reportgenerator/reportbase/rgexception.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <QtCore/QXmlStreamReader>

#include <array>

namespace Python {

namespace py = pybind11;

using ReportCore::FileForm;
using ReportCore::Form;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;

namespace {

constexpr int LOWEST_LEVEL = -1;
constexpr int HIGHEST_LEVEL = 9;

constexpr std::array<FileForm, 4> FORMS = {
    {{Form::Xml, false}, {Form::Plain, false}, {Form::Compressed, false}, {Form::Plain, true}}};

QByteArray WriteIn(const IRGObject& object, const WantedForm& wanted)
{
    return object.GetValidate() ? ReportCore::WriteReport(object, wanted.form, wanted.level)
                                : ReportCore::WriteUnchecked(object, wanted.form, wanted.level);
}

ReportCore::Problem NoElement(const IRGObject& object)
{
    return {QLatin1String(ReportCore::NO_REPORT),
            QStringLiteral("there is no element '%1'").arg(object.GetObjectName())};
}

/// The element of a named value bears the value's name, and only this operation reads it.
bool ReadElement(REPORTGENERATOR::ValueMinMax& value, const QString& text)
{
    QXmlStreamReader reader(text);
    if (!reader.readNextStartElement()) {
        if (reader.hasError() && !text.isEmpty())
            throw RGException(reader.errorString());
        return false;
    }
    value.SetName(reader.name().toString());
    value.ReadValuesFromXml(reader);
    return true;
}

bool ReadElement(IRGObject& object, const QString& text, bool checkRoot)
{
    if (auto* const value = dynamic_cast<REPORTGENERATOR::ValueMinMax*>(&object))
        return ReadElement(*value, text);
    return object.SetXmlString(text, checkRoot);
}

/// Of any class but reports: the first fault of what is around the body, and what the library says of the body.
ReportCore::Problems ReadRepresentation(IRGObject& object, const QByteArray& bytes, const FileForm& form)
{
    ReportCore::FaultList faults(bytes, form.isBinaryFile);
    ReportCore::BinaryInspector& inspector = faults.Inspector();
    inspector.Envelope();
    inspector.End();
    if (faults.HasFault())
        return faults.Found();
    if (inspector.ObjectName() != object.GetObjectName())
        return {{QLatin1String(ReportCore::NO_REPORT),
                 QStringLiteral("this is an object '%1'").arg(inspector.ObjectName()), faults.PlaceOfName()}};
    QByteArray representation = inspector.RepresentationBytes();
    object.SetBinaryRepresentation(representation);
    if (object.GetValidate())
        object.Check();
    return {};
}

ReportCore::Problems ReadObject(IRGObject& object, const QByteArray& bytes)
{
    const FileForm form = ReportCore::Recognise(bytes);
    if (form.IsBinary())
        return ReadRepresentation(object, bytes, form);
    if (form.form != Form::Xml)
        return {{QLatin1String(ReportCore::UNKNOWN_FORM), QStringLiteral("not an object in any known form")}};
    if (ReadElement(object, ReportCore::DecodeXml(bytes), true))
        return {};
    return {NoElement(object)};
}

/// Of one that doesn't validate the problems are no errors.
ReportCore::Problems ReadReport(ReportBase& report, const QByteArray& bytes)
{
    const bool validates = report.GetValidate();
    const ReportCore::ReportFile file = ReportCore::ReadReport(bytes);
    const bool isReport = file.objectName == ReportBase::GetStaticObjectName();
    if (!file.IsGood() && (validates || !isReport))
        return file.problems;
    report = file.report;
    // Its members have come with the flag by which a file is read.
    report.SetValidate(validates);
    for (const ReportCore::Problem& problem : file.problems)
        report.Trace(REPORTGENERATOR::LogLevel::WARNING, ReportCore::ProblemLine(problem));
    return {};
}

} // namespace

WantedForm::WantedForm(const std::string& name, std::optional<int> givenLevel)
{
    const QString wanted = QString::fromStdString(name);
    for (const FileForm& known : FORMS) {
        if (wanted == ReportCore::WordFor(known))
            form = known;
    }
    if (form.form == Form::Unknown)
        throw py::value_error("no form is called '" + name + "': there are xml, plain, compressed and file");
    if (!givenLevel)
        return;
    level = *givenLevel;
    if (level < LOWEST_LEVEL || level > HIGHEST_LEVEL)
        throw py::value_error("a level is a number from -1 to 9");
    if (!form.isBinaryFile && form.form != Form::Compressed)
        throw py::value_error("a level is for compressed forms");
    form.form = Form::Compressed;
}

QByteArray Write(const AnyObject& self, const WantedForm& wanted)
{
    const auto copy = self.NewCopy();
    return Apart(*copy, [&wanted](const IRGObject& object) { return WriteIn(object, wanted); });
}

void WriteFile(const AnyObject& self, const QString& path, const WantedForm& wanted)
{
    const auto copy = self.NewCopy();
    Apart(*copy, [&](const IRGObject& object) {
        const auto* const report = dynamic_cast<const ReportBase*>(&object);
        const bool isWhole = report && report->GetValidate();
        ReportCore::WriteOutput(path, isWhole ? ReportCore::WriteWhole(*report, wanted.form, wanted.level)
                                              : WriteIn(object, wanted));
    });
}

void ReadXml(const AnyObject& self, const QString& text, bool checkRoot)
{
    const bool isFound =
        ApartAndBack(self, [&](IRGObject& object) { return ReadElement(object, text, checkRoot); });
    if (!isFound)
        ThrowProblems({NoElement(self.Access())});
}

void ReadBytes(const AnyObject& self, const QByteArray& bytes)
{
    const ReportCore::Problems problems = ApartAndBack(self, [&bytes](IRGObject& object) {
        auto* const report = dynamic_cast<ReportBase*>(&object);
        return report ? ReadReport(*report, bytes) : ReadObject(object, bytes);
    });
    if (!problems.empty())
        ThrowProblems(problems);
}

ReportCore::Problems Check(const AnyObject& self, const WantedForm& wanted)
{
    const auto copy = self.NewCopy();
    const py::gil_scoped_release released;
    if (const auto* const report = dynamic_cast<const ReportBase*>(copy.get()))
        return ReportCore::CheckReport(*report,
                                       ReportCore::WriteUnchecked(*report, wanted.form, wanted.level))
            .problems;
    const auto logger = std::make_shared<ReportCore::ProblemLogger>();
    copy->SetLogger(logger);
    try {
        copy->Check(true);
    } catch (const RGException& exception) {
        logger->Catch(exception);
    }
    copy->SetLogger(nullptr);
    return ReportCore::ProblemsOf(logger->Take());
}

ReportCore::Problems CheckBytes(const QByteArray& bytes, bool isStrict)
{
    const py::gil_scoped_release released;
    const ReportCore::ReportFile file = ReportCore::ReadReport(bytes);
    ReportCore::Problems problems = file.problems;
    if (isStrict) {
        const ReportCore::Problems lint = ReportCore::FindLint(bytes, file, ReportCore::Look::Thorough);
        problems.insert(problems.end(), lint.begin(), lint.end());
    }
    return problems;
}

} // namespace Python
