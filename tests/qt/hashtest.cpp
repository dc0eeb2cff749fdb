#include "support/expect.h"
#include "support/points.h"

#include <reportgenerator/qt/hash.h>
#include <reportgenerator/qt/points.h>
#include <reportgenerator/reportbase/tasktype.h>

#include <gtest/gtest.h>

#include <QtCore/QHash>
#include <QtCore/QSet>

#include <limits>
#include <unordered_map>
#include <unordered_set>

namespace {

using REPORTGENERATOR::AnyType;
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
using REPORTGENERATOR::MakeArea;
using REPORTGENERATOR::MakeCoordinate;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::ObjectTypes;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::Task;
using REPORTGENERATOR::ValueMinMax;
namespace TaskType = REPORTGENERATOR::TaskType;
using Support::Text;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

/// Equal objects have the same hash by either function, whatever the seed.
template <class Object>
void ExpectSameHash(const Object& left, const Object& right)
{
    ASSERT_TRUE(left == right);
    EXPECT_EQ(qHash(left), qHash(right));
    EXPECT_EQ(qHash(left, 7), qHash(right, 7));
    EXPECT_EQ(std::hash<Object>()(left), std::hash<Object>()(right));
}

/// Of objects that differ: a hash that ignored the difference would be allowed, but slow.
template <class Object>
void ExpectOtherHash(const Object& left, const Object& right)
{
    ASSERT_FALSE(left == right);
    EXPECT_NE(qHash(left), qHash(right));
    EXPECT_NE(std::hash<Object>()(left), std::hash<Object>()(right));
}

template <class Object>
Object WithValue(double value)
{
    Object object;
    object.SetValue(value);
    return object;
}

/// Changes each number by its setter and looks at the hash.
template <class Object, class... Setters>
void ExpectEachNumberToCount(Setters... setters)
{
    const auto expectToCount = [](auto set) {
        Object one;
        Object other;
        (one.*set)(1.0);
        (other.*set)(2.0);
        ExpectOtherHash(one, other);
        (one.*set)(0.0);
        (other.*set)(-0.0);
        ExpectSameHash(one, other);
    };
    (expectToCount(setters), ...);
}

template <class Object>
void ExpectToBeAKey(const Object& key, const Object& equal, const Object& other)
{
    QSet<Object> set = {key, equal, other};
    EXPECT_EQ(set.size(), 2);
    EXPECT_TRUE(set.contains(equal));
    QHash<Object, int> hash = {{key, 1}, {other, 2}};
    EXPECT_EQ(hash.value(equal), 1);
    const std::unordered_set<Object> standardSet = {key, equal, other};
    EXPECT_EQ(standardSet.size(), 2U);
    std::unordered_map<Object, int> standardMap = {{key, 1}, {other, 2}};
    EXPECT_EQ(standardMap[equal], 1);
}

} // namespace

TEST(QtHash, ObjectsAreKeys)
{
    ExpectToBeAKey(WithValue<Frequency>(1.0), WithValue<Frequency>(1.0), WithValue<Frequency>(2.0));
    ExpectToBeAKey(WithValue<IFBandwidth>(1.0), WithValue<IFBandwidth>(1.0), WithValue<IFBandwidth>(2.0));
    ExpectToBeAKey(WithValue<Double>(1.0), WithValue<Double>(1.0), WithValue<Double>(2.0));
    ExpectToBeAKey(WithValue<ValueMinMax>(1.0), WithValue<ValueMinMax>(1.0), WithValue<ValueMinMax>(2.0));
    ExpectToBeAKey(MakeCoordinate(1, 2), MakeCoordinate(1, 2), MakeCoordinate(2, 1));
    ExpectToBeAKey(Support::Lake(), Support::Lake(), Area());
    ReportBase report;
    report.SetArea(Support::Lake());
    ExpectToBeAKey(report, ReportBase(report), ReportBase());
    Ellipse ellipse;
    ellipse.SetRotation(1.0);
    ExpectToBeAKey(ellipse, Ellipse(ellipse), Ellipse());
    FrequencyRangeOld range;
    range.SetStopFrequency(1.0);
    ExpectToBeAKey(range, FrequencyRangeOld(range), FrequencyRangeOld());
    FrequencyInformation where;
    where.SetFrequencyRange(range);
    ExpectToBeAKey(where, FrequencyInformation(where), FrequencyInformation());
    FrequencyListValue entry;
    entry.SetFrequency(1.0);
    ExpectToBeAKey(entry, FrequencyListValue(entry), FrequencyListValue());
    ChannelSpacing raster;
    raster.SetValues({1.0});
    ExpectToBeAKey(raster, ChannelSpacing(raster), ChannelSpacing());
    MeasurementTime time;
    time.SetMeasurementMode(MeasurementTime::Periodic);
    ExpectToBeAKey(time, MeasurementTime(time), MeasurementTime());
}

TEST(QtHash, EnumerationsAreKeys)
{
    EXPECT_EQ((QSet<TaskType::TaskTypeValue>{TaskType::Pool, TaskType::Pool, TaskType::Search}).size(), 2);
    EXPECT_EQ((std::unordered_set<ObjectTypes>{AnyType, AnyType, Task}).size(), 2U);
}

TEST(QtHash, EachNumberCountsAndZerosAreTheSame)
{
    ExpectEachNumberToCount<Frequency>(&Frequency::SetValue, &Frequency::SetMin, &Frequency::SetMax);
    ExpectEachNumberToCount<IFBandwidth>(&IFBandwidth::SetValue, &IFBandwidth::SetMin, &IFBandwidth::SetMax);
    ExpectEachNumberToCount<Coordinate>(&Coordinate::SetLongitude, &Coordinate::SetLatitude);
    ExpectEachNumberToCount<Double>(&Double::SetValue, &Double::SetMinimum, &Double::SetMaximum,
                                    &Double::SetDefault);
    ExpectEachNumberToCount<ValueMinMax>(&ValueMinMax::SetValue, &ValueMinMax::SetMin, &ValueMinMax::SetMax);
    ExpectEachNumberToCount<FrequencyRangeOld>(&FrequencyRangeOld::SetStartFrequency,
                                               &FrequencyRangeOld::SetStopFrequency);
    ExpectEachNumberToCount<FrequencyInformation>(&FrequencyInformation::SetFrequency,
                                                  &FrequencyInformation::SetFrequencyMin,
                                                  &FrequencyInformation::SetFrequencyMax);
    ExpectEachNumberToCount<FrequencyListValue>(&FrequencyListValue::SetFrequency);
    ExpectEachNumberToCount<Ellipse>(&Ellipse::SetMinRadius, &Ellipse::SetMaxRadius, &Ellipse::SetRotation);
}

TEST(QtHash, WhatIsNotSetDoesNotCount)
{
    Frequency leftOver = WithValue<Frequency>(5.0);
    leftOver.ResetValue();
    ExpectSameHash(leftOver, Frequency());
    ExpectOtherHash(WithValue<Frequency>(0.0), Frequency());

    Coordinate reset = MakeCoordinate(1, 2);
    reset.ResetLongitude();
    ExpectSameHash(reset, Support::OnlyLatitude(2.0));
    ExpectOtherHash(reset, MakeCoordinate(0, 2));

    ReportBase report;
    report.GetFrequency().SetValue(5.0);
    report.ResetFrequency();
    ExpectSameHash(report, ReportBase());
    report.GetIFBandwidth();
    ExpectOtherHash(report, ReportBase());
}

TEST(QtHash, ARecordThatIsNotMadeIsLikeOneWithNothingSet)
{
    Coordinate made;
    made.ResetToDefault();
    const Coordinate unmade;
    ExpectSameHash(made, unmade);
    qHash(unmade);
    EXPECT_FALSE(unmade.IsInitialized());
    Area area;
    area.ResetToDefault();
    ExpectSameHash(area, Area());
}

TEST(QtHash, SettingsNamesAndVersionsDoNotCount)
{
    Area area = Support::Lake();
    Area other = area;
    other.SetValidate(false);
    other.SetLogger(Support::NewLogger());
    ExpectSameHash(area, other);
    Area read;
    read.SetXmlString(area.GetXmlString(), true);
    ASSERT_NE(read.GetInitialVersionLoaded(), area.GetInitialVersionLoaded());
    ExpectSameHash(area, read);

    Double named = WithValue<Double>(1.0);
    named.SetName(Text("N"));
    ExpectSameHash(named, WithValue<Double>(1.0));
    named.SetUnit(Text("s"));
    ExpectOtherHash(named, WithValue<Double>(1.0));
}

TEST(QtHash, TheUseOfAFrequencyCounts)
{
    Frequency used;
    used.SetUse(true);
    Frequency unused;
    unused.SetUse(false);
    ExpectOtherHash(used, unused);
    ExpectOtherHash(used, Frequency());
}

TEST(QtHash, AreasCountNameScriptAndEachPointInItsPlace)
{
    const Area area = MakeArea(Text("Lake"), {{1, 2}, {3, 4}});
    ExpectSameHash(area, MakeArea(Text("Lake"), {{1, 2}, {3, 4}}));
    ExpectOtherHash(area, MakeArea(Text("Like"), {{1, 2}, {3, 4}}));
    ExpectOtherHash(area, MakeArea(Text("Lake"), {{3, 4}, {1, 2}}));
    ExpectOtherHash(area, MakeArea(Text("Lake"), {{1, 2}, {3, 4}, {3, 4}}));
    Area scripted = area;
    scripted.SetScriptID(Text("S7"));
    ExpectOtherHash(area, scripted);
}

TEST(QtHash, AnEmptyListOfPointsIsLikeNone)
{
    Area empty;
    empty.SetName(Text("Lake"));
    Area marked = empty;
    marked.GetCoordinate();
    ASSERT_TRUE(marked == empty);
    ExpectSameHash(empty, marked);
}

TEST(QtHash, NullAndEmptyTextsAreTheSame)
{
    Area null;
    null.SetValidate(false);
    null.SetName(QString());
    Area empty;
    empty.SetName(Text(""));
    ExpectSameHash(null, empty);
}

TEST(QtHash, PointsWithoutMarkCountAsTheComparisonFromTheLeftTakesThem)
{
    const Area unmarked = Support::WithUnflaggedPoint();
    Area marked;
    marked.AppendCoordinate(Support::At(1.0, 2.0));
    ExpectSameHash(unmarked, marked);
}

TEST(QtHash, EntriesOfAListCountTheFrequencyAlone)
{
    FrequencyListValue entry;
    entry.SetFrequency(1.0);
    FrequencyListValue bounded = entry;
    bounded.SetFrequencyMinMax(0.5, 1.5);
    ExpectSameHash(entry, bounded);
}

TEST(QtHash, RastersTakeFalseAndUnsetForTheSame)
{
    ChannelSpacing raster;
    raster.SetSameDistance(false);
    ExpectSameHash(raster, ChannelSpacing());
    raster.SetSameDistance(true);
    ExpectOtherHash(raster, ChannelSpacing());
    ChannelSpacing zero;
    zero.SetValues({0.0, 1.0});
    ChannelSpacing negativeZero;
    negativeZero.SetValues({-0.0, 1.0});
    ExpectSameHash(zero, negativeZero);
    negativeZero.SetVisual(Text("Aero"));
    ExpectOtherHash(zero, negativeZero);
}

TEST(QtHash, ModeAndTimeOfAMeasurementCount)
{
    MeasurementTime periodic;
    periodic.SetMeasurementMode(MeasurementTime::Periodic);
    ExpectOtherHash(periodic, MeasurementTime());
    MeasurementTime timed = periodic;
    timed.GetMeasurementTime().SetValue(1.0);
    ExpectOtherHash(periodic, timed);
}

TEST(QtHash, AnObjectWithANaNHasAHashAndIsNeverFound)
{
    const Frequency frequency = WithValue<Frequency>(NOT_A_NUMBER);
    EXPECT_EQ(qHash(frequency), qHash(Frequency(frequency)));
    QSet<Frequency> set = {frequency};
    EXPECT_FALSE(set.contains(frequency));
}

TEST(QtHash, HashingMarksNothing)
{
    ReportBase report;
    qHash(report);
    EXPECT_FALSE(report.IsFrequencySet() || report.IsIFBandwidthSet() || report.IsAreaSet());
}
