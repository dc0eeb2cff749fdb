#include "support/expect.h"
#include "support/points.h"

#include <reportgenerator/qt/aswritten.h>
#include <reportgenerator/qt/points.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::EqualAsWritten;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::MakeArea;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::ValueMinMax;
using Support::Text;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double UNSET = -111111.11;

/// Of both, each way round.
template <class Object>
bool Equal(const Object& left, const Object& right)
{
    const bool equal = EqualAsWritten(left, right);
    EXPECT_EQ(EqualAsWritten(right, left), equal);
    EXPECT_TRUE(EqualAsWritten(left, left));
    EXPECT_TRUE(EqualAsWritten(right, right));
    return equal;
}

template <class Object, class Setter>
Object With(Setter set, double value)
{
    Object object;
    (object.*set)(value);
    return object;
}

/// Each number counts with two decimals, and whether it is set.
template <class Object, class... Setters>
void ExpectTwoDecimals(Setters... setters)
{
    const auto expectTwo = [](auto set) {
        EXPECT_TRUE(Equal(With<Object>(set, 1.234), With<Object>(set, 1.2349)));
        EXPECT_FALSE(Equal(With<Object>(set, 1.234), With<Object>(set, 1.236)));
        EXPECT_FALSE(Equal(With<Object>(set, 0.0), Object()));
        EXPECT_TRUE(Equal(Object(), Object()));
    };
    (expectTwo(setters), ...);
}

template <class Object, class... Setters>
void ExpectSixDecimals(Setters... setters)
{
    const auto expectSix = [](auto set) {
        EXPECT_TRUE(Equal(With<Object>(set, 1.2345674), With<Object>(set, 1.2345671)));
        EXPECT_FALSE(Equal(With<Object>(set, 1.2345674), With<Object>(set, 1.2345676)));
        EXPECT_FALSE(Equal(With<Object>(set, 0.0), Object()));
    };
    (expectSix(setters), ...);
}

ReportBase ReportOf(double value)
{
    ReportBase report;
    report.GetFrequency().SetValue(value);
    report.GetIFBandwidth().SetMin(value);
    report.GetIFBandwidth().SetValue(value);
    report.SetArea(MakeArea(Text("Lake"), {{value / 10.0, value / 20.0}, {1.0, 2.0}}));
    return report;
}

} // namespace

TEST(QtAsWritten, NumbersOfReportsHaveTwoDecimals)
{
    ExpectTwoDecimals<Frequency>(&Frequency::SetValue, &Frequency::SetMin, &Frequency::SetMax);
    ExpectTwoDecimals<IFBandwidth>(&IFBandwidth::SetValue, &IFBandwidth::SetMin, &IFBandwidth::SetMax);
}

TEST(QtAsWritten, DegreesHaveSixDecimals)
{
    ExpectSixDecimals<Coordinate>(&Coordinate::SetLongitude, &Coordinate::SetLatitude);
}

TEST(QtAsWritten, NumbersOfTasksHaveTwoDecimals)
{
    ExpectTwoDecimals<ValueMinMax>(&ValueMinMax::SetValue, &ValueMinMax::SetMin, &ValueMinMax::SetMax);
    ExpectTwoDecimals<FrequencyRangeOld>(&FrequencyRangeOld::SetStartFrequency,
                                         &FrequencyRangeOld::SetStopFrequency);
    ExpectTwoDecimals<FrequencyInformation>(&FrequencyInformation::SetFrequency,
                                            &FrequencyInformation::SetFrequencyMin,
                                            &FrequencyInformation::SetFrequencyMax);
    ExpectTwoDecimals<FrequencyListValue>(&FrequencyListValue::SetFrequency,
                                          &FrequencyListValue::SetFrequencyMin,
                                          &FrequencyListValue::SetFrequencyMax);
    ExpectTwoDecimals<Ellipse>(&Ellipse::SetMinRadius, &Ellipse::SetMaxRadius, &Ellipse::SetRotation);
    ExpectTwoDecimals<ScanParameter>(&ScanParameter::SetStepFrequency, &ScanParameter::SetDwellTime,
                                     &ScanParameter::SetHoldTime);
}

TEST(QtAsWritten, ADoubleHasSixDecimals)
{
    ExpectSixDecimals<Double>(&Double::SetValue, &Double::SetMinimum, &Double::SetMaximum,
                              &Double::SetDefault);
}

TEST(QtAsWritten, NumbersAreEqualWhenTheirTextsAre)
{
    const struct
    {
        double left;
        double right;
        bool equal;
    } rows[] = {
        {0.004, 0.0, true},          // 0.00
        {0.125, 0.13, true},         // a tie is rounded away from zero
        {0.125, 0.12, false},        //
        {-0.004, 0.004, true},       // -0.00 is read as zero
        {-0.004, -0.006, false},     // -0.00 and -0.01
        {1.005, 1.0, true},          // a little less than 1.005: 1.00
        {1e15, 1e15 + 0.125, false}, // .00 and .13
        {1e300, 1e300, true},        {1e300, -1e300, false},     {NOT_A_NUMBER, NOT_A_NUMBER, true},
        {NOT_A_NUMBER, 0.0, false},  {INFINITE, INFINITE, true}, {INFINITE, -INFINITE, false},
        {INFINITE, 1e308, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Equal(With<Frequency>(&Frequency::SetValue, row.left),
                        With<Frequency>(&Frequency::SetValue, row.right)),
                  row.equal)
            << row.left << " and " << row.right;
}

TEST(QtAsWritten, AReportReadBackIsEqual)
{
    for (const double value : {0.1, 1.0 / 3.0, 12.3456789, 121.0000001, -89.9999999}) {
        const ReportBase report = ReportOf(value);
        ReportBase fromXml;
        fromXml.SetXmlString(report.GetXmlString(), true);
        EXPECT_TRUE(Equal(fromXml, report)) << value;
        QByteArray bytes = report.GetBinaryRepresentationAsQByteArray();
        ReportBase fromBytes;
        fromBytes.SetBinaryRepresentation(bytes);
        EXPECT_TRUE(Equal(fromBytes, report)) << value;
    }
    const ReportBase third = ReportOf(1.0 / 3.0);
    ReportBase read;
    read.SetXmlString(third.GetXmlString(), true);
    EXPECT_FALSE(read == third);
}

TEST(QtAsWritten, ReportsCompareWhatTheyCarry)
{
    ReportBase report;
    report.GetFrequency();
    EXPECT_FALSE(Equal(report, ReportBase()));
    report.ResetFrequency();
    EXPECT_TRUE(Equal(report, ReportBase()));
    report.GetIFBandwidth();
    EXPECT_FALSE(Equal(report, ReportBase()));
    ReportBase other;
    other.GetArea();
    EXPECT_FALSE(Equal(other, ReportBase()));
    EXPECT_FALSE(Equal(ReportOf(1.0), ReportOf(1.1)));
}

TEST(QtAsWritten, TheUseOfAFrequencyCounts)
{
    Frequency used;
    used.SetUse(true);
    Frequency unused;
    unused.SetUse(false);
    EXPECT_FALSE(Equal(used, unused));
    EXPECT_FALSE(Equal(used, Frequency()));
}

TEST(QtAsWritten, AreasCompareTextsAndPointsInTheirOrder)
{
    const Area area = MakeArea(Text("Lake"), {{1.0000001, 2}, {3, 4}});
    EXPECT_TRUE(Equal(area, MakeArea(Text("Lake"), {{1, 2}, {3, 4}})));
    EXPECT_FALSE(Equal(area, MakeArea(Text("Like"), {{1, 2}, {3, 4}})));
    EXPECT_FALSE(Equal(area, MakeArea(Text("Lake"), {{3, 4}, {1, 2}})));
    EXPECT_FALSE(Equal(area, MakeArea(Text("Lake"), {{1, 2}})));
    Area scripted = area;
    scripted.SetScriptID(Text("S7"));
    EXPECT_FALSE(Equal(area, scripted));
    Area nameless = area;
    nameless.ResetName();
    EXPECT_FALSE(Equal(area, nameless));
}

TEST(QtAsWritten, AnEmptyListOfPointsIsLikeNoneOnEitherSide)
{
    Area empty;
    empty.GetCoordinate();
    EXPECT_TRUE(Equal(empty, Area()));
}

TEST(QtAsWritten, NamesAndUnitsCount)
{
    Double number;
    number.SetName(Text("N"));
    EXPECT_FALSE(Equal(number, Double()));
    Double decibels;
    decibels.SetUnit(Text("dB"));
    EXPECT_FALSE(Equal(decibels, Double()));
    ValueMinMax named;
    named.SetName(Text("N"));
    EXPECT_FALSE(Equal(named, ValueMinMax()));
}

TEST(QtAsWritten, EachDoubleHasItsOwnNumberForUnset)
{
    Double own;
    own.SetDefaultInvalidValue(0.0);
    EXPECT_TRUE(Equal(own, Double()));
    own.SetValue(UNSET);
    EXPECT_FALSE(Equal(own, Double()));
}

TEST(QtAsWritten, EntriesOfAListCompareTheirTimes)
{
    const auto entry = [](const char* time) {
        FrequencyListValue made;
        made.SetXmlString(
            Text("<Value><Frequency>2</Frequency><TimeStamp>%1</TimeStamp></Value>").arg(Text(time)), true);
        return made;
    };
    EXPECT_TRUE(Equal(entry("2014-07-03T10:05:09+02:00"), entry("2014-07-03T08:05:09Z")));
    EXPECT_FALSE(Equal(entry("2014-07-03T08:05:09Z"), entry("2014-07-03T08:05:09.001Z")));
}

TEST(QtAsWritten, RangesOfScansAndFrequenciesCount)
{
    ScanParameter scan;
    scan.GetFrequencyRange().SetStartFrequency(1.234);
    ScanParameter rounded;
    rounded.GetFrequencyRange().SetStartFrequency(1.23);
    EXPECT_TRUE(Equal(scan, rounded));
    EXPECT_FALSE(Equal(scan, ScanParameter()));
    FrequencyInformation where;
    where.GetFrequencyRange().SetStopFrequency(1.234);
    EXPECT_FALSE(Equal(where, FrequencyInformation()));
}

TEST(QtAsWritten, RastersCompareEachSpacing)
{
    ChannelSpacing raster;
    raster.SetValues({8.333, 25.0});
    ChannelSpacing other;
    other.SetValues({8.33, 25.0});
    EXPECT_TRUE(Equal(raster, other));
    other.SetSameDistance(false);
    EXPECT_TRUE(Equal(raster, other));
    other.SetSameDistance(true);
    EXPECT_FALSE(Equal(raster, other));
    other = raster;
    other.SetValues({8.33});
    EXPECT_FALSE(Equal(raster, other));
    other = raster;
    other.SetVisual(Text("Aero"));
    EXPECT_FALSE(Equal(raster, other));
}

TEST(QtAsWritten, ModeAndTimeOfAMeasurementCount)
{
    MeasurementTime time;
    time.SetMeasurementMode(MeasurementTime::Periodic);
    EXPECT_FALSE(Equal(time, MeasurementTime()));
    MeasurementTime timed = time;
    timed.GetMeasurementTime().SetValue(1.0000001);
    EXPECT_FALSE(Equal(time, timed));
    time.GetMeasurementTime().SetValue(1.0);
    EXPECT_TRUE(Equal(time, timed));
}

TEST(QtAsWritten, ComparingMarksNothing)
{
    const ReportBase report;
    EXPECT_TRUE(Equal(report, report));
    EXPECT_FALSE(report.IsFrequencySet() || report.IsIFBandwidthSet() || report.IsAreaSet());
}
