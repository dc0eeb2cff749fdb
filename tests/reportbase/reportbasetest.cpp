// The members of a report: getting, setting, comparing and merging them.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/recordclasses.h"
#include "support/records.h"
#include "support/reports.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;
using Support::BandwidthOf;
using Support::ByteArray;
using Support::Carried;
using Support::CompleteReport;
using Support::CompleteReportState;
using Support::FrequencyOf;
using Support::Int32;
using Support::LakeWithoutScript;
using Support::NotValidating;
using Support::ReadElements;
using Support::Rename;
using Support::ReportState;
using Support::ReportWithFlags;
namespace Tag = Support::Tag;

constexpr int FREQUENCY_FLAG = 1;
constexpr int BANDWIDTH_FLAG = 2;
constexpr int AREA_FLAG = 4;
constexpr int ALL_FLAGS = FREQUENCY_FLAG | BANDWIDTH_FLAG | AREA_FLAG;

} // namespace

// --- Members ----------------------------------------------------------------------------------------------

TEST(ReportBase, ConstantGettersGiveUninitializedMembersAndCarryNothing)
{
    const ReportBase report;
    EXPECT_FALSE(report.GetFrequency().IsInitialized());
    EXPECT_TRUE(report.IsInitialized());
    EXPECT_FALSE(report.GetIFBandwidth().IsInitialized());
    EXPECT_FALSE(report.GetArea().IsInitialized());
    EXPECT_EQ(Carried(report), "");
    EXPECT_FALSE(report.AnyData());
}

TEST(ReportBase, AskingForAModifiableMemberMakesTheReportCarryIt)
{
    ReportBase report;
    EXPECT_FALSE(report.GetFrequency().IsInitialized());
    EXPECT_EQ(Carried(report), "frequency ");
    EXPECT_FALSE(report.GetIFBandwidth().IsInitialized());
    EXPECT_EQ(Carried(report), "frequency bandwidth ");
    EXPECT_FALSE(report.GetArea().IsInitialized());
    EXPECT_EQ(Carried(report), "frequency bandwidth area ");
    EXPECT_FALSE(report.AnyData());
}

TEST(ReportBase, ModifiableMembersAreTheMembersThemselves)
{
    ReportBase report;
    report.GetFrequency().SetValue(5.0);
    report.GetIFBandwidth().SetValue(6.0);
    report.GetArea() = LakeWithoutScript();
    EXPECT_STATE(report, CompleteReportState());
    EXPECT_EQ(&report.GetFrequency(), &std::as_const(report).GetFrequency());
}

TEST(ReportBase, SettersTakeTheFieldsOfTheMember)
{
    ReportBase report;
    report.SetFrequency(FrequencyOf(5.0));
    EXPECT_EQ(Carried(report), "frequency ");
    report.SetIFBandwidth(BandwidthOf(6.0));
    EXPECT_EQ(Carried(report), "frequency bandwidth ");
    report.SetArea(LakeWithoutScript());
    EXPECT_EQ(Carried(report), "frequency bandwidth area ");
    EXPECT_STATE(report, CompleteReportState());

    report.SetFrequency(Frequency());
    EXPECT_TRUE(report.IsFrequencySet());
    EXPECT_FALSE(std::as_const(report).GetFrequency().IsInitialized());
}

TEST(ReportBase, SettersLeaveNameAndSettingsOfTheMemberAlone)
{
    ReportBase report;
    Rename(report.GetFrequency(), QStringLiteral("Rx"));
    Frequency frequency = FrequencyOf(5.0);
    frequency.SetValidate(false);
    const auto logger = Support::NewLogger();
    frequency.SetLogger(logger);
    report.SetFrequency(frequency);
    EXPECT_TEXT(report.GetFrequency().GetObjectName(), "Rx");
    EXPECT_TRUE(report.GetFrequency().GetValidate());
    EXPECT_EQ(report.GetFrequency().GetLogger(), nullptr);
    EXPECT_EQ(report.GetFrequency().GetValue(), 5.0);
}

TEST(ReportBase, EveryMemberIsValid)
{
    const ReportBase report;
    EXPECT_TRUE(report.IsValidFrequency(Frequency()));
    EXPECT_TRUE(report.IsValidIFBandwidth(IFBandwidth()));
    EXPECT_TRUE(report.IsValidArea(Area()));
    EXPECT_FALSE(report.IsInitialized());
}

TEST(ReportBase, ResettingAMemberDropsItAloneAndItsData)
{
    ReportBase report = CompleteReport();
    report.ResetFrequency();
    EXPECT_EQ(Carried(report), "bandwidth area ");
    EXPECT_FALSE(std::as_const(report).GetFrequency().IsInitialized());
    report.ResetArea();
    EXPECT_EQ(Carried(report), "bandwidth ");
    EXPECT_FALSE(std::as_const(report).GetArea().IsInitialized());
    EXPECT_TRUE(report.AnyData());
    report.ResetIFBandwidth();
    EXPECT_EQ(Carried(report), "");
    EXPECT_FALSE(std::as_const(report).GetIFBandwidth().IsInitialized());
    EXPECT_FALSE(report.AnyData());
    EXPECT_TRUE(report.IsInitialized());
}

TEST(ReportBase, ResettingAMemberThatIsNotCarriedDropsItsData)
{
    ReportBase report = ReportWithFlags(0);
    EXPECT_TRUE(std::as_const(report).GetArea().AnyData());
    report.ResetArea();
    EXPECT_FALSE(std::as_const(report).GetArea().IsInitialized());
    EXPECT_TRUE(std::as_const(report).GetFrequency().AnyData());
}

TEST(ReportBase, ResetDropsAllMembersAndKeepsTheRecord)
{
    for (const bool toDefault : {true, false}) {
        ReportBase report = CompleteReport();
        if (toDefault)
            report.ResetToDefault();
        else
            report.Reset();
        EXPECT_TRUE(report.IsInitialized());
        EXPECT_EQ(Carried(report), "");
        EXPECT_FALSE(std::as_const(report).GetFrequency().IsInitialized());
        EXPECT_FALSE(std::as_const(report).GetIFBandwidth().IsInitialized());
        EXPECT_FALSE(std::as_const(report).GetArea().IsInitialized());
    }
}

TEST(ReportBase, ResetKeepsNamesAndSettingsOfTheMembers)
{
    ReportBase report = CompleteReport();
    const auto logger = Support::NewLogger();
    report.SetLogger(logger);
    report.SetValidate(false);
    Rename(report.GetArea(), QStringLiteral("Region"));
    report.Reset();
    EXPECT_TEXT(std::as_const(report).GetArea().GetObjectName(), "Region");
    EXPECT_EQ(std::as_const(report).GetArea().GetLogger(), logger);
    EXPECT_FALSE(std::as_const(report).GetArea().GetValidate());
}

TEST(ReportBase, AnyDataAsksTheMembersAndNotTheFlags)
{
    EXPECT_TRUE(ReportWithFlags(0).AnyData());
    ReportBase report;
    report.GetFrequency();
    report.GetArea();
    EXPECT_FALSE(report.AnyData());
    report.GetIFBandwidth().SetMin(1.0);
    EXPECT_TRUE(report.AnyData());
    report.GetIFBandwidth().Reset();
    EXPECT_FALSE(report.AnyData());
    report.GetArea().SetScriptID(QStringLiteral(""));
    EXPECT_TRUE(report.AnyData());
}

// --- Comparison -------------------------------------------------------------------------------------------

TEST(ReportBase, MembersMatchWhenCarriedByNeitherOrByBothAndEqual)
{
    for (int left = 0; left <= ALL_FLAGS; ++left) {
        for (int right = 0; right <= ALL_FLAGS; ++right) {
            const ReportBase one = ReportWithFlags(left);
            const ReportBase other = ReportWithFlags(right);
            EXPECT_EQ(one == other, left == right) << left << " and " << right;
            EXPECT_EQ(one != other, left != right) << left << " and " << right;
        }
    }
}

TEST(ReportBase, EachMemberTakesPartInTheComparison)
{
    EXPECT_TRUE(CompleteReport() == CompleteReport());
    ReportBase report = CompleteReport();
    report.GetFrequency().SetMin(1.0);
    EXPECT_FALSE(report == CompleteReport());
    report = CompleteReport();
    report.GetIFBandwidth().SetValue(7.0);
    EXPECT_FALSE(report == CompleteReport());
    report = CompleteReport();
    report.GetArea().SetScriptID(QStringLiteral("S"));
    EXPECT_FALSE(report == CompleteReport());
    EXPECT_TRUE(report != CompleteReport());
}

TEST(ReportBase, AMemberWithoutDataThatIsCarriedDiffersFromOneThatIsNot)
{
    ReportBase report;
    report.GetFrequency();
    EXPECT_FALSE(report == ReportBase());
    EXPECT_FALSE(ReportBase() == report);
    ReportBase other;
    other.SetFrequency(Frequency());
    EXPECT_TRUE(report == other);
}

TEST(ReportBase, DataOfMembersThatAreNotCarriedDoNotCount)
{
    EXPECT_TRUE(ReportWithFlags(0) == ReportBase());
    EXPECT_TRUE(ReportBase() == ReportWithFlags(0));
}

// --- Check ------------------------------------------------------------------------------------------------

TEST(ReportBase, CheckDoesNotAskMembersThatAreNotCarried)
{
    ReportBase report;
    Frequency& frequency = report.GetFrequency();
    report.ResetFrequency();
    frequency.SetMin(1.0);
    EXPECT_TRUE(report.AnyData());
    EXPECT_NO_RG_THROW(report.Check());
}

// --- Settings of the members ------------------------------------------------------------------------------

namespace {

std::vector<const IRGObject*> MembersOf(const ReportBase& report)
{
    std::vector<const IRGObject*> members = {&report.GetFrequency(), &report.GetIFBandwidth(),
                                             &report.GetArea()};
    for (const Coordinate& coordinate : report.GetArea().GetCoordinate())
        members.push_back(&coordinate);
    return members;
}

} // namespace

TEST(ReportBase, SettingsGivenBeforeTheRecordReachTheMembersWhenItIsMade)
{
    ReportBase report;
    const auto logger = Support::NewLogger();
    report.SetLogger(logger);
    report.SetValidate(false);
    EXPECT_FALSE(report.IsInitialized());
    for (const IRGObject* member : MembersOf(report)) {
        EXPECT_EQ(member->GetLogger(), logger);
        EXPECT_FALSE(member->GetValidate());
    }
}

TEST(ReportBase, ReadingAppliesTheSettingsToMembersThatWereGivenOthers)
{
    const QString outOfRange =
        QStringLiteral("<ReportBase><Area Version=\"1.0\"><Name>Lake</Name><Coordinate>"
                       "<Longitude>181</Longitude><Latitude>2</Latitude></Coordinate></Area></ReportBase>");
    const QString warning =
        QStringLiteral("WARNING: OutOfRangeException: Parameters for m_longitude are not set within range "
                       "(-180, 180) in 'Coordinate'.");
    const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
    const auto otherLogger = Support::NewLogger();
    ReportBase report = NotValidating<ReportBase>();
    report.SetLogger(logger);
    std::as_const(report).GetArea().SetValidate(true);
    std::as_const(report).GetArea().SetLogger(otherLogger);
    EXPECT_TRUE(report.SetXmlString(outOfRange, true));
    EXPECT_LOG(logger, QStringList{warning});

    std::as_const(report).GetArea().SetValidate(true);
    std::as_const(report).GetArea().SetLogger(otherLogger);
    EXPECT_EQ(
        ReadElements(
            report,
            Element(Tag::REPORT_AREA,
                    Element(Tag::AREA_COORDINATES,
                            Int32(1) + Support::Body(Element(Tag::COORDINATE_LONGITUDE, ByteArray("181")) +
                                                     Element(Tag::COORDINATE_LATITUDE, ByteArray("2")))))),
        0);
    EXPECT_LOG(logger, QStringList({warning, warning}));
    EXPECT_LOG(otherLogger, {});
}

// --- Merging ----------------------------------------------------------------------------------------------

TEST(ReportBase, MergingLaysTheMembersOfTheOtherOverThose)
{
    ReportBase report;
    report.GetFrequency().SetValue(1.0);
    report.GetFrequency().SetMin(2.0);
    report.SetArea(LakeWithoutScript());
    ReportBase other;
    other.GetFrequency().SetValue(5.0);
    other.SetIFBandwidth(BandwidthOf(6.0));
    EXPECT_TRUE(report.MergeRGObject(other));
    ReportState state = CompleteReportState();
    state.frequency->min = 2.0;
    EXPECT_STATE(report, state);

    EXPECT_TRUE(report.MergeRGObject(CompleteReport()));
    state.area->coordinates.push_back({1.0, 2.0});
    state.area->initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(report, state);
}

TEST(ReportBase, MergingAReportThatCarriesNothingChangesNothing)
{
    ReportBase report = CompleteReport();
    EXPECT_TRUE(report.MergeRGObject(ReportBase()));
    EXPECT_TRUE(report.MergeRGObject(ReportWithFlags(0)));
    EXPECT_STATE(report, CompleteReportState());
}
