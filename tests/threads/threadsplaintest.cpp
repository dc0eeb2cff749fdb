// Const operations of the plain classes, from several threads at the same time.

#include "threads/interface.h"
#include "threads/pairs.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/valueminmax.h>

namespace {

using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::ValueMinMax;
using Threads::CountingLogger;
using Threads::Operations;
using Threads::States;
using Threads::Told;

template <class T>
Operations<T> PlainOperations()
{
    return Threads::BaseOperations<T>() + Operations<T>
    {
        OPERATION(AnyData()),
            ACTION(SetValidate(GetValidate()), object.SetValidate(object.GetValidate()); return {};),
            ACTION(SetLogger(GetLogger()), object.SetLogger(object.GetLogger()); return {};),
    };
}

template <class T>
Operations<T> Comparison()
{
    return
    {
        ACTION(operator==(itself), return Told(object == object);),
            ACTION(operator!=(other), return Told(object != T());),
    };
}

template <class T>
Operations<T> HolderOperations()
{
    return
    {
        OPERATION(GetFrequency()), OPERATION(GetFrequencyMin()), OPERATION(GetFrequencyMax()),
            OPERATION(GetFrequencyMinMax()),
            ACTION(GetFrequencyMinMax(min, max), double min = 0.0; double max = 0.0;
                   object.GetFrequencyMinMax(min, max); return Told(min) + Told(max);),
    };
}

FrequencyRangeOld SomeRange()
{
    FrequencyRangeOld range;
    range.SetStartFrequency(87.5);
    range.SetStopFrequency(108.0);
    return range;
}

/// The library's settings of objects of these classes go along with copies.
template <class T>
void ExpectSafe(const char* name, const Operations<T>& operations, const std::function<void(T&)>& fill,
                const char* base = "IRGObject")
{
    Threads::ExpectNothingIsLeftOut(operations, {name, base, "IRGObject"});
    const auto filled = [fill] {
        auto object = std::make_unique<T>();
        fill(*object);
        return object;
    };
    const States<T> states = {
        {"empty", [] { return std::make_unique<T>(); }},
        {"filled", filled},
        {"not validating, with a logger",
         [filled] {
             auto object = filled();
             object->SetValidate(false);
             object->SetLogger(std::make_shared<CountingLogger>());
             return object;
         }},
        {"copied", [source = std::shared_ptr<T>(filled())] { return std::make_unique<T>(*source); }},
    };
    Threads::ExpectPairsAreSafe<T>(states, operations, [](T& object) { object.Reset(); });
}

} // namespace

TEST(ThreadsOfPlainClasses, ReadADouble)
{
    using T = Double;
    ExpectSafe<T>("Double",
                  PlainOperations<T>() + Comparison<T>() +
                      Operations<T>{
                          OPERATION(GetName()),
                          OPERATION(GetUnit()),
                          OPERATION(GetValue()),
                          OPERATION(GetValueString()),
                          OPERATION(GetFormattedString(1.5)),
                          OPERATION(GetFormat()),
                          OPERATION(GetPrecision()),
                          OPERATION(GetDefault()),
                          OPERATION(GetDefaultInvalidValue()),
                          OPERATION(GetMinimum()),
                          OPERATION(GetMinimumString()),
                          OPERATION(GetMaximum()),
                          OPERATION(GetMaximumString()),
                      },
                  [](T& number) {
                      number.SetName(QStringLiteral("N"));
                      number.SetValue(1.0);
                  });
}

TEST(ThreadsOfPlainClasses, ReadAValueMinMax)
{
    using T = ValueMinMax;
    ExpectSafe<T>("ValueMinMax",
                  PlainOperations<T>() + Comparison<T>() +
                      Operations<T>{OPERATION(GetName()), OPERATION(GetValue()), OPERATION(GetMin()),
                                    OPERATION(GetMax())},
                  [](T& value) {
                      value.SetName(QStringLiteral("N"));
                      value.SetValue(2.0);
                  });
}

TEST(ThreadsOfPlainClasses, ReadAnEllipse)
{
    using T = Ellipse;
    ExpectSafe<T>(
        "Ellipse",
        PlainOperations<T>() + Comparison<T>() +
            Operations<T>{OPERATION(GetMinRadius()), OPERATION(GetMaxRadius()), OPERATION(GetRotation())},
        [](T& ellipse) {
            ellipse.SetMinRadius(100.0);
            ellipse.SetMaxRadius(250.5);
        });
}

TEST(ThreadsOfPlainClasses, ReadAMeasurementTime)
{
    using T = MeasurementTime;
    ExpectSafe<T>("MeasurementTime",
                  PlainOperations<T>() + Comparison<T>() +
                      Operations<T>{
                          OPERATION(GetMeasurementMode()),
                          OPERATION(GetMeasurementTime().GetValue()),
                          OPERATION(GetMeasurementTimeValue()),
                          OPERATION(IsValidMeasurementModeType(T::Periodic)),
                          OPERATION(MeasurementModeTypeToName(T::Periodic)),
                          OPERATION(NameToMeasurementModeType(QStringLiteral("Periodic"))),
                      },
                  [](T& time) { time.SetMeasurementMode(T::Periodic); });
}

TEST(ThreadsOfPlainClasses, ReadAChannelSpacing)
{
    using T = ChannelSpacing;
    ExpectSafe<T>("ChannelSpacing",
                  PlainOperations<T>() + Comparison<T>() +
                      Operations<T>{OPERATION(GetValues()), OPERATION(GetVisual()),
                                    OPERATION(IsSameDistance()), OPERATION(IsValidSameDistance())},
                  [](T& spacing) {
                      spacing.SetValues({12.5, 25.0});
                  });
}

TEST(ThreadsOfPlainClasses, ReadAScanParameter)
{
    using T = ScanParameter;
    ExpectSafe<T>("ScanParameter",
                  PlainOperations<T>() + Operations<T>{OPERATION(GetDwellTime()), OPERATION(GetHoldTime()),
                                                       OPERATION(GetStepFrequency()),
                                                       OPERATION(GetFrequencyRange().GetStopFrequency())},
                  [](T& scan) {
                      scan.SetFrequencyRange(SomeRange());
                      scan.SetStepFrequency(12.5);
                  });
}

TEST(ThreadsOfPlainClasses, ReadAFrequencyInformation)
{
    using T = FrequencyInformation;
    ExpectSafe<T>(
        "FrequencyInformation",
        PlainOperations<T>() + Comparison<T>() + HolderOperations<T>() +
            Operations<T>{OPERATION(GetFrequencyRange().GetStartFrequency())},
        [](T& information) { information.SetFrequency(121.5); }, "FrequencyHolder");
}

TEST(ThreadsOfPlainClasses, ReadAFrequencyListValue)
{
    using T = FrequencyListValue;
    ExpectSafe<T>(
        "FrequencyListValue",
        PlainOperations<T>() + Comparison<T>() + HolderOperations<T>() +
            Operations<T>{OPERATION(GetTimeStamp())},
        [](T& entry) { entry.SetFrequency(121.5); }, "FrequencyHolder");
}

TEST(ThreadsOfPlainClasses, ReadAFrequencyRangeOld)
{
    using T = FrequencyRangeOld;
    ExpectSafe<T>("FrequencyRangeOld",
                  PlainOperations<T>() + Comparison<T>() +
                      Operations<T>{OPERATION(GetStartFrequency()), OPERATION(GetStopFrequency())},
                  [](T& range) { range = SomeRange(); });
}
