// The golden objects of digest/objects.h.

#include "digest/objects.h"
#include "digest/reading.h"
#include "support/plainclasses.h"
#include "support/points.h"
#include "support/reports.h"
#include "support/vectors.h"

#include <QtCore/QString>

#include <stdexcept>

namespace Digest {
namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;

template <class T>
std::unique_ptr<Specimen> New()
{
    return std::make_unique<SpecimenOf<T>>();
}

/// The name of the first element, which that of the object has to be.
QString ElementName(const QString& xml)
{
    const int begin = static_cast<int>(xml.indexOf(QLatin1Char('<'))) + 1;
    int end = begin;
    while (end < xml.size() && xml.at(end).isLetterOrNumber())
        ++end;
    return xml.mid(begin, end - begin);
}

std::unique_ptr<Specimen> NewOfFolder(const QString& path)
{
    const QString folder = path.section(QLatin1Char('/'), 0, 0);
    if (folder == QLatin1String("reportbase"))
        return New<ReportBase>();
    if (folder == QLatin1String("area"))
        return New<Area>();
    if (folder == QLatin1String("coordinate"))
        return New<Coordinate>();
    if (folder == QLatin1String("frequency"))
        return New<Frequency>();
    if (folder == QLatin1String("ifbandwidth"))
        return New<IFBandwidth>();
    if (folder == QLatin1String("double")) {
        Double number;
        number.SetName(ElementName(Support::LoadXmlVector(path)));
        return std::make_unique<SpecimenOf<Double>>(number);
    }
    throw std::runtime_error("a folder of vectors of no class: " + folder.toStdString());
}

void TakeVector(const QString& path, bool validate, const std::function<void(Golden& golden)>& take)
{
    Golden golden;
    golden.name = path.toUtf8() + (validate ? "" : " without validation");
    golden.specimen = NewOfFolder(path);
    golden.specimen->Object().SetValidate(validate);
    if (path.endsWith(QLatin1String(".xml"))) {
        golden.form = Form::ReadingXml;
        golden.read = [xml = Support::LoadXmlVector(path)](Specimen& specimen) {
            return ReadXml(specimen, xml, true);
        };
    } else {
        const bool isRaw = path.endsWith(QLatin1String(".raw.hex"));
        golden.form = isRaw ? Form::ReadingRaw : Form::ReadingBytes;
        golden.read = [bytes = Support::LoadVector(path).Data(), isRaw](Specimen& specimen) {
            return isRaw ? ReadRaw(specimen, bytes) : ReadRepresentation(specimen, bytes);
        };
    }
    take(golden);
}

template <class T>
void TakeObject(const char* name, const T& object, const std::function<void(Golden& golden)>& take)
{
    Golden golden{name, std::make_unique<SpecimenOf<T>>(object), {}, Form::ReadingXml};
    golden.specimen->Object().SetValidate(false);
    take(golden);
}

template <class T>
void TakeSamples(const std::function<void(Golden& golden)>& take)
{
    const std::string name = Support::PlainClassNames::GetName<T>(0);
    TakeObject((name + ", filled").c_str(), Support::Sample<T>::Filled(), take);
    TakeObject((name + ", refused").c_str(), Support::Sample<T>::Refused(), take);
}

template <class... T>
void TakeSamplesOf(::testing::Types<T...>, const std::function<void(Golden& golden)>& take)
{
    (TakeSamples<T>(take), ...);
}

} // namespace

void ForEachGolden(const std::function<void(Golden& golden)>& take)
{
    for (const QString& path : Support::VectorFiles()) {
        if (path.endsWith(QLatin1String(".error")))
            continue;
        for (const bool validate : {true, false})
            TakeVector(path, validate, take);
    }
    TakeSamplesOf(Support::PlainClasses(), take);
    TakeSamples<Double>(take);
    TakeObject("ReportBase, complete", Support::CompleteReport(), take);
    TakeObject("Area, lake", Support::Lake(), take);
    TakeObject("Area, unflagged point", Support::WithUnflaggedPoint(), take);
    constexpr int ALL_FLAGS = 8;
    for (int flags = 0; flags < ALL_FLAGS; ++flags)
        TakeObject("ReportBase, with flags", Support::ReportWithFlags(flags), take);
}

} // namespace Digest
