// The members of a report: getting, setting, comparing and merging them.

#include "support/expect.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/reports.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <string>
#include <utility>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;
using Support::BandwidthOf;
using Support::Carried;
using Support::CompleteReport;
using Support::CompleteReportState;
using Support::Coordinates;
using Support::FrequencyOf;
using Support::LakeWithoutScript;
using Support::NotValidating;
using Support::ReadElements;
using Support::Rename;
using Support::ReportState;
using Support::ReportWithFlags;
using Support::Text;

constexpr int ALL_FLAGS = 7;

/// The members that have a record.
std::string Initialized(const ReportBase& report)
{
    std::string members;
    if (report.GetFrequency().IsInitialized())
        members += "frequency ";
    if (report.GetIFBandwidth().IsInitialized())
        members += "bandwidth ";
    if (report.GetArea().IsInitialized())
        members += "area ";
    return members;
}

} // namespace

// --- Members ----------------------------------------------------------------------------------------------

TEST(ReportBase, AskingForAModifiableMemberMakesTheReportCarryItWithoutARecord)
{
    ReportBase report;
    EXPECT_EQ(Initialized(report), "");
    EXPECT_TRUE(report.IsInitialized());
    EXPECT_EQ(Carried(report), "");
    report.GetFrequency();
    EXPECT_EQ(Carried(report), "frequency ");
    report.GetIFBandwidth();
    EXPECT_EQ(Carried(report), "frequency bandwidth ");
    report.GetArea();
    EXPECT_EQ(Carried(report), "frequency bandwidth area ");
    EXPECT_EQ(Initialized(report), "");
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
    EXPECT_STATE(report, CompleteReportState());

    report.SetFrequency(Frequency());
    EXPECT_TRUE(report.IsFrequencySet());
    EXPECT_EQ(Initialized(report), "bandwidth area ");
}

TEST(ReportBase, SettersLeaveNameAndSettingsOfTheMemberAlone)
{
    ReportBase report;
    Rename(report.GetFrequency(), QStringLiteral("Rx"));
    Frequency frequency = FrequencyOf(5.0);
    frequency.SetValidate(false);
    frequency.SetLogger(Support::NewLogger());
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

TEST(ReportBase, ResettingDropsMembersAndTheirDataAndKeepsTheRecord)
{
    struct Row
    {
        const char* name;
        void (*reset)(ReportBase&);
        const char* left;
    };
    const Row rows[] = {
        {"ResetFrequency", [](ReportBase& report) { report.ResetFrequency(); }, "bandwidth area "},
        {"ResetIFBandwidth", [](ReportBase& report) { report.ResetIFBandwidth(); }, "frequency area "},
        {"ResetArea", [](ReportBase& report) { report.ResetArea(); }, "frequency bandwidth "},
        {"Reset", [](ReportBase& report) { report.Reset(); }, ""},
        {"ResetToDefault", [](ReportBase& report) { report.ResetToDefault(); }, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ReportBase report = CompleteReport();
        row.reset(report);
        EXPECT_EQ(Carried(report), row.left);
        EXPECT_EQ(Initialized(report), row.left);
        EXPECT_TRUE(report.IsInitialized());

        // Also of members that aren't carried.
        ReportBase notCarrying = ReportWithFlags(0);
        EXPECT_EQ(Initialized(notCarrying), "frequency bandwidth area ");
        row.reset(notCarrying);
        EXPECT_EQ(Initialized(notCarrying), row.left);
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
    EXPECT_TRUE(ReportWithFlags(0) == ReportBase());
    EXPECT_TRUE(ReportBase() == ReportWithFlags(0));
}

TEST(ReportBase, EachMemberTakesPartInTheComparison)
{
    void (*const changes[])(ReportBase&) = {
        [](ReportBase& report) { report.GetFrequency().SetMin(1.0); },
        [](ReportBase& report) { report.GetIFBandwidth().SetValue(7.0); },
        [](ReportBase& report) { report.GetArea().SetScriptID(QStringLiteral("S")); },
    };
    EXPECT_TRUE(CompleteReport() == CompleteReport());
    for (const auto change : changes) {
        ReportBase report = CompleteReport();
        change(report);
        EXPECT_FALSE(report == CompleteReport());
        EXPECT_TRUE(report != CompleteReport());
    }
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

// --- Check and settings -----------------------------------------------------------------------------------

TEST(ReportBase, CheckDoesNotAskMembersThatAreNotCarried)
{
    ReportBase report;
    Frequency& frequency = report.GetFrequency();
    report.ResetFrequency();
    frequency.SetMin(1.0);
    EXPECT_TRUE(report.AnyData());
    EXPECT_NO_RG_THROW(report.Check());
}

TEST(ReportBase, ReadingAppliesTheSettingsToMembersThatWereGivenOthers)
{
    const QString warning =
        Text("WARNING: OutOfRangeException: Parameters for m_longitude are not set within "
             "range (-180, 180) in 'Coordinate'.");
    const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
    const auto otherLogger = Support::NewLogger();
    ReportBase report = NotValidating<ReportBase>();
    report.SetLogger(logger);
    const auto giveOthers = [&] {
        std::as_const(report).GetArea().SetValidate(true);
        std::as_const(report).GetArea().SetLogger(otherLogger);
    };
    giveOthers();
    EXPECT_TRUE(report.SetXmlString(
        Text("<ReportBase><Area Version=\"1.0\"><Name>Lake</Name><Coordinate><Longitude>181</Longitude>"
             "<Latitude>2</Latitude></Coordinate></Area></ReportBase>"),
        true));
    EXPECT_LOG(logger, QStringList{warning});
    giveOthers();
    EXPECT_EQ(ReadElements(report, Support::AreaElement(Coordinates(1, Support::Point("181", "2")))), 0);
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
