#include "support/expect.h"
#include "support/points.h"

#include <reportgenerator/qt/optional.h>
#include <reportgenerator/qt/points.h>

#include <gtest/gtest.h>

#include <functional>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::MakeCoordinate;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::ValueMinMax;
using Support::Text;

constexpr double UNSET = -111111.11;

/// A field is unset first, takes a value, the zero too, and is unset again.
template <class Object, class Value, class Get, class Set>
void ExpectOptional(Get get, Set set, const Value& value, const Value& zero)
{
    Object object;
    EXPECT_FALSE(get(object).has_value());
    set(object, value);
    EXPECT_EQ(get(object), std::optional<Value>(value));
    set(object, zero);
    EXPECT_EQ(get(object), std::optional<Value>(zero));
    set(object, std::nullopt);
    EXPECT_FALSE(get(object).has_value());
    EXPECT_FALSE(object.AnyData());
}

// NOLINTBEGIN(bugprone-macro-parentheses): a class is no value
#define EXPECT_OPTIONAL(Object, Name, value, zero)                                                           \
    ExpectOptional<Object, std::decay_t<decltype(value)>>(                                                   \
        [](const Object& object) { return Optional##Name(object); },                                         \
        [](Object& object, const std::optional<std::decay_t<decltype(value)>>& field) {                      \
            SetOptional##Name(object, field);                                                                \
        },                                                                                                   \
        value, zero)
// NOLINTEND(bugprone-macro-parentheses)

} // namespace

TEST(QtOptional, FieldsOfReportsAreSetAndUnset)
{
    EXPECT_OPTIONAL(Frequency, Value, 1.5, 0.0);
    EXPECT_OPTIONAL(Frequency, Min, 1.5, 0.0);
    EXPECT_OPTIONAL(Frequency, Max, 1.5, 0.0);
    EXPECT_OPTIONAL(Frequency, Use, false, true);
    EXPECT_OPTIONAL(IFBandwidth, Value, 1.5, 0.0);
    EXPECT_OPTIONAL(IFBandwidth, Min, 1.5, 0.0);
    EXPECT_OPTIONAL(IFBandwidth, Max, 1.5, 0.0);
    EXPECT_OPTIONAL(Coordinate, Longitude, 1.5, 0.0);
    EXPECT_OPTIONAL(Coordinate, Latitude, 1.5, 0.0);
    EXPECT_OPTIONAL(Area, Name, Text("Lake"), Text(""));
    EXPECT_OPTIONAL(Area, ScriptID, Text("S7"), Text(""));
}

TEST(QtOptional, FieldsOfTasksAreSetAndUnset)
{
    EXPECT_OPTIONAL(Double, Value, 1.5, 0.0);
    EXPECT_OPTIONAL(Double, Minimum, 1.5, 0.0);
    EXPECT_OPTIONAL(Double, Maximum, 1.5, 0.0);
    EXPECT_OPTIONAL(Double, Default, 1.5, 0.0);
    EXPECT_OPTIONAL(Double, Unit, Text("dB"), Text("s"));
    EXPECT_OPTIONAL(ValueMinMax, Value, 1.5, 0.0);
    EXPECT_OPTIONAL(ValueMinMax, Min, 1.5, 0.0);
    EXPECT_OPTIONAL(ValueMinMax, Max, 1.5, 0.0);
    EXPECT_OPTIONAL(FrequencyInformation, Frequency, 1.5, 0.0);
    EXPECT_OPTIONAL(FrequencyInformation, FrequencyMin, 1.5, 0.0);
    EXPECT_OPTIONAL(FrequencyInformation, FrequencyMax, 1.5, 0.0);
    EXPECT_OPTIONAL(FrequencyListValue, Frequency, 1.5, 0.0);
    EXPECT_OPTIONAL(FrequencyRangeOld, StartFrequency, 1.5, 0.0);
    EXPECT_OPTIONAL(FrequencyRangeOld, StopFrequency, 1.5, 0.0);
    EXPECT_OPTIONAL(Ellipse, MinRadius, 1.5, 0.0);
    EXPECT_OPTIONAL(Ellipse, MaxRadius, 1.5, 0.0);
    EXPECT_OPTIONAL(Ellipse, Rotation, 1.5, 0.0);
    EXPECT_OPTIONAL(ScanParameter, StepFrequency, 1.5, 0.0);
    EXPECT_OPTIONAL(ScanParameter, DwellTime, 1.5, 0.0);
    EXPECT_OPTIONAL(ScanParameter, HoldTime, 1.5, 0.0);
    EXPECT_OPTIONAL(ChannelSpacing, Visual, Text("Aero"), Text("Sea"));
}

TEST(QtOptional, MembersOfAReportComeAsCopies)
{
    ReportBase report;
    EXPECT_FALSE(OptionalFrequency(report) || OptionalIFBandwidth(report) || OptionalArea(report));
    Frequency frequency;
    frequency.SetValue(1.0);
    SetOptionalFrequency(report, frequency);
    SetOptionalIFBandwidth(report, IFBandwidth());
    SetOptionalArea(report, Support::Lake());
    EXPECT_TRUE(OptionalFrequency(report) == frequency);
    EXPECT_TRUE(OptionalIFBandwidth(report) == IFBandwidth());
    EXPECT_TRUE(OptionalArea(report) == Support::Lake());
    SetOptionalFrequency(report, std::nullopt);
    SetOptionalIFBandwidth(report, std::nullopt);
    SetOptionalArea(report, std::nullopt);
    EXPECT_FALSE(report.IsFrequencySet() || report.IsIFBandwidthSet() || report.IsAreaSet());
}

TEST(QtOptional, ADoubleHasItsOwnNumberForUnset)
{
    Double number;
    number.SetDefaultInvalidValue(-1.0);
    SetOptionalValue(number, UNSET);
    EXPECT_EQ(OptionalValue(number), UNSET);
    SetOptionalValue(number, std::nullopt);
    EXPECT_EQ(number.GetValue(), -1.0);
    EXPECT_FALSE(OptionalValue(number));
}

TEST(QtOptional, FieldsWithoutASetterAreAsked)
{
    FrequencyListValue entry;
    EXPECT_FALSE(OptionalTimeStamp(entry));
    entry.SetXmlString(
        Text("<Value><Frequency>2</Frequency><TimeStamp>2014-07-03T08:05:09Z</TimeStamp></Value>"), true);
    EXPECT_EQ(OptionalTimeStamp(entry), QDateTime(QDate(2014, 7, 3), QTime(8, 5, 9), Qt::UTC));

    ChannelSpacing raster;
    EXPECT_FALSE(OptionalSameDistance(raster).has_value());
    raster.SetSameDistance(false);
    EXPECT_EQ(OptionalSameDistance(raster), false);
    raster.SetSameDistance(true);
    EXPECT_EQ(OptionalSameDistance(raster), true);

    MeasurementTime time;
    EXPECT_FALSE(OptionalMeasurementMode(time).has_value());
    time.SetMeasurementMode(MeasurementTime::Continuous);
    EXPECT_EQ(OptionalMeasurementMode(time), MeasurementTime::Continuous);
}

TEST(QtOptional, AskingMakesNoRecordAndMarksNothing)
{
    const Frequency frequency;
    EXPECT_FALSE(OptionalValue(frequency) || OptionalUse(frequency));
    EXPECT_FALSE(frequency.IsInitialized());
    ReportBase report;
    EXPECT_FALSE(OptionalArea(report));
    EXPECT_FALSE(report.IsInitialized());
}

TEST(QtOptional, SettersRefuseWhatTheClassRefuses)
{
    Coordinate point = MakeCoordinate(1, 2);
    EXPECT_RG_THROW(SetOptionalLongitude(point, 180.5), "OutOfRangeException",
                    "Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'.");
    EXPECT_EQ(OptionalLongitude(point), 1.0);
    Area area;
    EXPECT_RG_THROW(SetOptionalName(area, QString()), "OutOfRangeException",
                    "Area: Please set Name properly (origin: Setter).");
}
