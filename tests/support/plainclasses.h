#ifndef TESTS_SUPPORT_PLAINCLASSES_H
#define TESTS_SUPPORT_PLAINCLASSES_H

// The classes without a shared record, and what a test that runs for all of them has to know of each.
//
//     template <class T>
//     class PlainClass : public Support::PlainClassTest<T> {};
//     TYPED_TEST_SUITE(PlainClass, Support::PlainClasses, Support::PlainClassNames);
//
//     TYPED_TEST(PlainClass, AssignmentMayBeToItself)
//     {
//         TypeParam object = Sample<TypeParam>::Filled();
//         …
//         EXPECT_XML(object, Sample<TypeParam>::XML);
//     }

#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <string>
#include <type_traits>

namespace Support {

/// A class with those members of its base opened that give it another identity.
template <class T>
class Opened : public T
{
public:
    Opened() = default;
    explicit Opened(const T& object) : T(object) {}

    using T::ProcessXmlStartElement;
    using T::SetObjectId;
    using T::SetObjectName;
    using T::SetObjectType;
};

/// What holds for all samples but those that say otherwise.
struct SampleDefaults
{
    static constexpr bool READS_CHILDREN = true;
    static constexpr bool READS_WHAT_IT_WRITES = true;
};

/// An object of a class with everything set, one that its check refuses, and what belongs to them.
template <class T>
struct Sample;

template <>
struct Sample<REPORTGENERATOR::ValueMinMax> : SampleDefaults
{
    using T = REPORTGENERATOR::ValueMinMax;

    static constexpr const char* NAME = "AnyType";
    static constexpr const char16_t* WIDE_NAME = u"AnyType";
    static constexpr const char* XML = "\n<N Min=\"1.00\" Max=\"3.00\">2.00</N>";
    static constexpr const char* PROBLEM = "ValueMinMax: Please set object name!";

    /// Its element doesn't bear the object name and is read by the holder alone.
    static constexpr bool READS_CHILDREN = false;
    static constexpr bool READS_WHAT_IT_WRITES = false;

    static T Filled()
    {
        T value(2.0);
        value.SetName(Text("N"));
        value.SetMin(1.0);
        value.SetMax(3.0);
        return value;
    }

    static T Refused() { return T(2.0); }
};

template <>
struct Sample<REPORTGENERATOR::FrequencyRangeOld> : SampleDefaults
{
    using T = REPORTGENERATOR::FrequencyRangeOld;

    static constexpr const char* NAME = "FrequencyRange";
    static constexpr const char16_t* WIDE_NAME = u"FrequencyRange";
    static constexpr const char* XML = "\n<FrequencyRange>"
                                       "\n    <StartFrequency>87.50</StartFrequency>"
                                       "\n    <StopFrequency>108.00</StopFrequency>"
                                       "\n</FrequencyRange>";
    static constexpr const char* PROBLEM = "FrequencyRange: Please set StopFrequency";

    static T Filled()
    {
        T range;
        range.SetStartFrequency(87.5);
        range.SetStopFrequency(108.0);
        return range;
    }

    static T Refused()
    {
        T range;
        range.SetStartFrequency(87.5);
        return range;
    }
};

template <>
struct Sample<REPORTGENERATOR::FrequencyInformation> : SampleDefaults
{
    using T = REPORTGENERATOR::FrequencyInformation;

    static constexpr const char* NAME = "FrequencyInformation";
    static constexpr const char16_t* WIDE_NAME = u"FrequencyInformation";
    static constexpr const char* XML = "\n<FrequencyInformation>"
                                       "\n    <Frequency Min=\"121.25\" Max=\"121.75\">121.50</Frequency>"
                                       "\n</FrequencyInformation>";
    static constexpr const char* PROBLEM =
        "FrequencyInformation: Please set either Frequency or FrequencyRange!";

    static T Filled()
    {
        T information;
        information.SetFrequency(121.5);
        information.SetFrequencyMinMax(121.25, 121.75);
        return information;
    }

    static T Refused()
    {
        T information = Filled();
        information.SetFrequencyRange(Sample<REPORTGENERATOR::FrequencyRangeOld>::Filled());
        return information;
    }
};

template <>
struct Sample<REPORTGENERATOR::FrequencyListValue> : SampleDefaults
{
    using T = REPORTGENERATOR::FrequencyListValue;

    static constexpr const char* NAME = "Value";
    static constexpr const char16_t* WIDE_NAME = u"Value";
    static constexpr const char* XML = "\n<Value>"
                                       "\n    <Frequency Min=\"121.25\" Max=\"121.75\">121.50</Frequency>"
                                       "\n    <TimeStamp>2017-02-03T14:05:09.007Z</TimeStamp>"
                                       "\n</Value>";
    static constexpr const char* PROBLEM = "FrequencyList: Please set Value!";

    /// The time stamp can only be read.
    static T Refused()
    {
        T entry;
        Support::ReadElement(entry, Text("<Value><TimeStamp>2017-02-03T14:05:09.007Z</TimeStamp></Value>"));
        return entry;
    }

    static T Filled()
    {
        T entry = Refused();
        entry.SetFrequency(121.5);
        entry.SetFrequencyMinMax(121.25, 121.75);
        return entry;
    }
};

template <>
struct Sample<REPORTGENERATOR::Ellipse> : SampleDefaults
{
    using T = REPORTGENERATOR::Ellipse;

    static constexpr const char* NAME = "Ellipse";
    static constexpr const char16_t* WIDE_NAME = u"Ellipse";
    static constexpr const char* XML = "\n<Ellipse>"
                                       "\n    <MinRadius>100.00</MinRadius>"
                                       "\n    <MaxRadius>250.50</MaxRadius>"
                                       "\n    <Rotation>30.00</Rotation>"
                                       "\n</Ellipse>";
    static constexpr const char* PROBLEM = "Ellipse: Please set MinRadius!";

    static T Refused()
    {
        T ellipse;
        ellipse.SetRotation(30.0);
        return ellipse;
    }

    static T Filled()
    {
        T ellipse = Refused();
        ellipse.SetMinRadius(100.0);
        ellipse.SetMaxRadius(250.5);
        return ellipse;
    }
};

template <>
struct Sample<REPORTGENERATOR::ChannelSpacing> : SampleDefaults
{
    using T = REPORTGENERATOR::ChannelSpacing;

    static constexpr const char* NAME = "ChannelSpacing";
    static constexpr const char16_t* WIDE_NAME = u"ChannelSpacing";
    static constexpr const char* XML = "\n<ChannelSpacing>"
                                       "\n    <Visual>Aero</Visual>"
                                       "\n    <Samedistance>false</Samedistance>"
                                       "\n    <Value>8.25</Value>"
                                       "\n    <Value>25.00</Value>"
                                       "\n</ChannelSpacing>";
    static constexpr const char* PROBLEM = "ChannelSpacing: Please set Samedistance!";

    static T Refused()
    {
        T spacing;
        spacing.SetVisual(Text("Aero"));
        spacing.SetValues({8.25, 25.0});
        return spacing;
    }

    static T Filled()
    {
        T spacing = Refused();
        spacing.SetSameDistance(false);
        return spacing;
    }
};

template <>
struct Sample<REPORTGENERATOR::ScanParameter> : SampleDefaults
{
    using T = REPORTGENERATOR::ScanParameter;

    static constexpr const char* NAME = "ScanParameter";
    static constexpr const char16_t* WIDE_NAME = u"ScanParameter";
    static constexpr const char* XML = "\n<ScanParameter Version=\"1.0\">"
                                       "\n    <FrequencyRange>"
                                       "\n        <StartFrequency>87.50</StartFrequency>"
                                       "\n        <StopFrequency>108.00</StopFrequency>"
                                       "\n    </FrequencyRange>"
                                       "\n    <FrequencyStep>12.50</FrequencyStep>"
                                       "\n    <DwellTime>0.25</DwellTime>"
                                       "\n    <HoldTime>3.00</HoldTime>"
                                       "\n</ScanParameter>";
    static constexpr const char* PROBLEM = "ScanParameter: PLease set FrequencyStep!";

    static T Refused()
    {
        T scan;
        scan.SetFrequencyRange(Sample<REPORTGENERATOR::FrequencyRangeOld>::Filled());
        scan.SetDwellTime(0.25);
        scan.SetHoldTime(3.0);
        return scan;
    }

    static T Filled()
    {
        T scan = Refused();
        scan.SetStepFrequency(12.5);
        return scan;
    }
};

template <>
struct Sample<REPORTGENERATOR::MeasurementTime> : SampleDefaults
{
    using T = REPORTGENERATOR::MeasurementTime;

    static constexpr const char* NAME = "MeasurementTime";
    static constexpr const char16_t* WIDE_NAME = u"MeasurementTime";
    static constexpr const char* XML = "\n<MeasurementTime>"
                                       "\n    <MeasurementTime>"
                                       "\n        <DoubleValue>2.500000</DoubleValue>"
                                       "\n    </MeasurementTime>"
                                       "\n    <MeasurementMode></MeasurementMode>"
                                       "\n</MeasurementTime>";
    static constexpr const char* PROBLEM = "MeasurementTime: Please set MeasurementMode!";

    /// The name of the mode is written empty.
    static constexpr bool READS_WHAT_IT_WRITES = false;

    static T Refused()
    {
        T time;
        time.GetMeasurementTime().SetValue(2.5);
        return time;
    }

    static T Filled()
    {
        T time = Refused();
        time.SetMeasurementMode(T::Periodic);
        return time;
    }
};

/// Has no binary form either, but the name that it is given and no element without a value.
template <>
struct Sample<REPORTGENERATOR::Double> : SampleDefaults
{
    using T = REPORTGENERATOR::Double;

    static constexpr const char* NAME = "N";
    static constexpr const char16_t* WIDE_NAME = u"N";
    static constexpr const char* XML = "\n<N Unit=\"dB\">\n    <DoubleValue>1.000000</DoubleValue>\n</N>";
    static constexpr const char* PROBLEM = "NThe double has not been set! Please use SetValue first";

    static T Refused()
    {
        T number;
        number.SetName(Text("N"));
        number.SetUnit(Text("dB"));
        return number;
    }

    static T Filled()
    {
        T number = Refused();
        number.SetValue(1.0);
        return number;
    }
};

using PlainClasses =
    ::testing::Types<REPORTGENERATOR::ValueMinMax, REPORTGENERATOR::FrequencyRangeOld,
                     REPORTGENERATOR::FrequencyInformation, REPORTGENERATOR::FrequencyListValue,
                     REPORTGENERATOR::Ellipse, REPORTGENERATOR::ChannelSpacing,
                     REPORTGENERATOR::ScanParameter, REPORTGENERATOR::MeasurementTime>;

struct PlainClassNames
{
    template <class T>
    static std::string GetName(int)
    {
        return std::is_same_v<T, REPORTGENERATOR::ValueMinMax>          ? "ValueMinMax"
               : std::is_same_v<T, REPORTGENERATOR::FrequencyRangeOld>  ? "FrequencyRangeOld"
               : std::is_same_v<T, REPORTGENERATOR::FrequencyListValue> ? "FrequencyListValue"
               : std::is_same_v<T, REPORTGENERATOR::Double>             ? "Double"
                                                                        : Sample<T>::NAME;
    }
};

template <class T>
class PlainClassTest : public ::testing::Test
{
protected:
    /// "<Name>children</Name>" with the name of the class's element.
    static QString Element(const char* children)
    {
        const QString name = Text(Sample<T>::NAME);
        return QLatin1Char('<') + name + QLatin1Char('>') + Text(children) + QLatin1String("</") + name +
               QLatin1Char('>');
    }

    static QString Line(const char* start, const char* end = "")
    {
        return Text(start) + Text(Sample<T>::NAME) + Text(end);
    }

    static QString Written(const T& object) { return UnindentedXmlOf(object); }
};

} // namespace Support

#endif
