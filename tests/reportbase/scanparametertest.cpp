#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/scanparameter.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::ScanParameter;
using Support::NewLogger;
using Support::Text;

constexpr double NOT_SET = -111111.11;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

template <class T, class = void>
constexpr bool CAN_BE_COMPARED = false;
template <class T>
constexpr bool
    CAN_BE_COMPARED<T, std::void_t<decltype(std::declval<const T&>() == std::declval<const T&>())>> = true;

static_assert(CAN_BE_COMPARED<FrequencyRangeOld> && !CAN_BE_COMPARED<ScanParameter>);

// What callers keep references to.
static_assert(std::is_same_v<decltype(std::declval<const ScanParameter&>().GetFrequencyRange()),
                             const FrequencyRangeOld&>);
static_assert(
    std::is_same_v<decltype(std::declval<ScanParameter&>().GetFrequencyRange()), FrequencyRangeOld&>);

constexpr const char* MISSING_STEP = "ScanParameter: PLease set FrequencyStep!";

class NamedRange : public FrequencyRangeOld
{
public:
    explicit NamedRange(const char* name) { SetObjectName(Text(name)); }
};

ScanParameter Scan(double start, double stop, double step)
{
    ScanParameter scan;
    scan.GetFrequencyRange().SetStartFrequency(start);
    scan.GetFrequencyRange().SetStopFrequency(stop);
    scan.SetStepFrequency(step);
    return scan;
}

void ExpectFields(const ScanParameter& scan, double start, double stop, double step, double dwell,
                  double hold)
{
    EXPECT_EQ(scan.GetFrequencyRange().GetStartFrequency(), start);
    EXPECT_EQ(scan.GetFrequencyRange().GetStopFrequency(), stop);
    EXPECT_EQ(scan.GetStepFrequency(), step);
    EXPECT_EQ(scan.GetDwellTime(), dwell);
    EXPECT_EQ(scan.GetHoldTime(), hold);
}

} // namespace

TEST(ScanParameter, StartsWithNothingSetAndPasses)
{
    const ScanParameter scan;
    ExpectFields(scan, NOT_SET, NOT_SET, NOT_SET, NOT_SET, NOT_SET);
    EXPECT_TEXT(scan.GetVersion(), "1.0");
    EXPECT_NO_RG_THROW(scan.Check());
    EXPECT_XML(scan, "");
}

TEST(ScanParameter, HoldTimeAloneDoesNotCount)
{
    ScanParameter scan;
    scan.SetHoldTime(1.0);
    EXPECT_FALSE(scan.AnyData());
    EXPECT_FALSE(scan.HasData());
    EXPECT_NO_RG_THROW(scan.Check());
    EXPECT_XML(scan, "");
}

TEST(ScanParameter, DwellTimeAloneAsksForTheRangeFirst)
{
    ScanParameter scan;
    scan.SetDwellTime(1.0);
    EXPECT_TRUE(scan.AnyData());
    EXPECT_FALSE(scan.HasData());
    EXPECT_RG_THROW(scan.Check(), "RGException", "FrequencyRange: Please set StartFrequency");
}

TEST(ScanParameter, CheckAsksForTheRangeThenForTheStep)
{
    EXPECT_RG_THROW(Scan(NOT_SET, NOT_SET, 1.0).Check(), "RGException",
                    "FrequencyRange: Please set StartFrequency");
    EXPECT_RG_THROW(Scan(NOT_SET, 2.0, 1.0).Check(), "RGException",
                    "FrequencyRange: Please set StartFrequency");
    EXPECT_RG_THROW(Scan(1.0, NOT_SET, NOT_SET).Check(), "RGException",
                    "FrequencyRange: Please set StopFrequency");
    EXPECT_RG_THROW(Scan(1.0, 2.0, NOT_SET).Check(), "RGException", MISSING_STEP);
    EXPECT_NO_RG_THROW(Scan(2.0, 1.0, -1.0).Check());
}

TEST(ScanParameter, RefusalsAreThrownWithoutALineInAllSettings)
{
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        const ScanParameter withoutRange = Scan(NOT_SET, NOT_SET, 3.0);
        const ScanParameter withoutStep = Scan(1.0, 2.0, NOT_SET);
        for (const ScanParameter* scan : {&withoutRange, &withoutStep}) {
            scan->SetValidate(validate);
            scan->SetLogger(logger);
        }
        EXPECT_RG_THROW(withoutRange.Check(), "RGException", "FrequencyRange: Please set StartFrequency");
        EXPECT_RG_THROW(withoutStep.Check(), "RGException", MISSING_STEP);
        EXPECT_TEXT(Support::UnindentedXmlOf(withoutRange), "");
        EXPECT_LOG(logger, {});
    }
}

TEST(ScanParameter, NumberForNotSetCountsAsUnset)
{
    ScanParameter scan;
    scan.SetStepFrequency(NOT_SET);
    scan.SetDwellTime(NOT_SET);
    scan.SetHoldTime(NOT_SET);
    EXPECT_FALSE(scan.AnyData());
    EXPECT_NO_RG_THROW(scan.Check());
    for (const double set :
         {std::nextafter(NOT_SET, -200000.0), std::nextafter(NOT_SET, 0.0), NOT_A_NUMBER}) {
        scan.SetDwellTime(set);
        EXPECT_TRUE(scan.AnyData()) << set;
        EXPECT_RG_THROW(scan.Check(), "RGException", "FrequencyRange: Please set StartFrequency");
    }

    scan = Scan(1.0, 2.0, NOT_SET);
    scan.SetDwellTime(std::nextafter(NOT_SET, 0.0));
    EXPECT_RG_THROW(scan.Check(), "RGException", MISSING_STEP);
    scan.SetStepFrequency(std::nextafter(NOT_SET, 0.0));
    EXPECT_NO_RG_THROW(scan.Check());
    EXPECT_TRUE(scan.HasData());
}

TEST(ScanParameter, OptionalTimesAreNeverAskedFor)
{
    ScanParameter scan = Scan(1.0, 2.0, 3.0);
    EXPECT_NO_RG_THROW(scan.Check());
    scan.SetDwellTime(-1.0);
    EXPECT_NO_RG_THROW(scan.Check());
    scan.SetHoldTime(NOT_A_NUMBER);
    EXPECT_NO_RG_THROW(scan.Check());
}

TEST(ScanParameter, MissingStepIsReportedWithACapitalL)
{
    class Renamed : public ScanParameter
    {
    public:
        Renamed() { SetObjectName(Text("Scan")); }
    };
    Renamed renamed;
    renamed.GetFrequencyRange().SetStartFrequency(1.0);
    renamed.GetFrequencyRange().SetStopFrequency(2.0);
    EXPECT_RG_THROW(renamed.Check(), "RGException", "Scan: PLease set FrequencyStep!");
}

TEST(ScanParameter, DataAreRangeAndStep)
{
    EXPECT_TRUE(Scan(1.0, 2.0, 3.0).HasData());
    EXPECT_FALSE(Scan(1.0, 2.0, NOT_SET).HasData());
    EXPECT_FALSE(Scan(1.0, NOT_SET, 3.0).HasData());
    EXPECT_FALSE(Scan(NOT_SET, 2.0, 3.0).HasData());
    EXPECT_TRUE(Scan(NOT_SET, NOT_SET, 3.0).AnyData());
    EXPECT_TRUE(Scan(1.0, NOT_SET, NOT_SET).AnyData());
    EXPECT_TRUE(Scan(NOT_SET, NOT_SET, NOT_A_NUMBER).AnyData()) << "a NaN counts as set";
    EXPECT_TEXT(Support::UnindentedXmlOf(Scan(1.0, 2.0, NOT_SET)), "");
}

TEST(ScanParameter, ResetKeepsTheVersion)
{
    ScanParameter scan = Scan(1.0, 2.0, 3.0);
    scan.SetDwellTime(4.0);
    scan.SetHoldTime(5.0);
    scan.Reset();
    ExpectFields(scan, NOT_SET, NOT_SET, NOT_SET, NOT_SET, NOT_SET);
    EXPECT_TEXT(scan.GetVersion(), "1.0");
}

TEST(ScanParameter, WritesDwellAndHoldTimeOnlyWhenSet)
{
    ScanParameter scan = Scan(1.005, 0.125, 12.3456);
    EXPECT_XML(scan, "\n<ScanParameter Version=\"1.0\">"
                     "\n    <FrequencyRange>"
                     "\n        <StartFrequency>1.00</StartFrequency>"
                     "\n        <StopFrequency>0.13</StopFrequency>"
                     "\n    </FrequencyRange>"
                     "\n    <FrequencyStep>12.35</FrequencyStep>"
                     "\n</ScanParameter>");
    scan.SetHoldTime(0.125);
    EXPECT_XML(scan, "\n<ScanParameter Version=\"1.0\">"
                     "\n    <FrequencyRange>"
                     "\n        <StartFrequency>1.00</StartFrequency>"
                     "\n        <StopFrequency>0.13</StopFrequency>"
                     "\n    </FrequencyRange>"
                     "\n    <FrequencyStep>12.35</FrequencyStep>"
                     "\n    <HoldTime>0.13</HoldTime>"
                     "\n</ScanParameter>");
    scan.SetHoldTime(NOT_SET);
    scan.SetDwellTime(NOT_A_NUMBER);
    EXPECT_XML(scan, "\n<ScanParameter Version=\"1.0\">"
                     "\n    <FrequencyRange>"
                     "\n        <StartFrequency>1.00</StartFrequency>"
                     "\n        <StopFrequency>0.13</StopFrequency>"
                     "\n    </FrequencyRange>"
                     "\n    <FrequencyStep>12.35</FrequencyStep>"
                     "\n    <DwellTime>nan</DwellTime>"
                     "\n</ScanParameter>");
    scan.SetDwellTime(-0.001);
    scan.SetHoldTime(NOT_A_NUMBER);
    EXPECT_XML(scan, "\n<ScanParameter Version=\"1.0\">"
                     "\n    <FrequencyRange>"
                     "\n        <StartFrequency>1.00</StartFrequency>"
                     "\n        <StopFrequency>0.13</StopFrequency>"
                     "\n    </FrequencyRange>"
                     "\n    <FrequencyStep>12.35</FrequencyStep>"
                     "\n    <DwellTime>-0.00</DwellTime>"
                     "\n    <HoldTime>nan</HoldTime>"
                     "\n</ScanParameter>");
}

TEST(ScanParameter, StepComesBackWithTwoDecimals)
{
    ScanParameter scan;
    EXPECT_NO_RG_THROW(scan.SetXmlString(Scan(1.0, 2.0, 12.3456).GetXmlString(), true));
    ExpectFields(scan, 1.0, 2.0, 12.35, NOT_SET, NOT_SET);
}

TEST(ScanParameter, VersionIsNotReadBack)
{
    ScanParameter scan;
    EXPECT_NO_RG_THROW(scan.SetXmlString(Text("<ScanParameter Version=\"9.9\"/>"), true));
    EXPECT_TEXT(scan.GetVersion(), "1.0");
}

TEST(ScanParameter, IncompleteLoadedObjectIsRefusedOnlyWhenValidating)
{
    const QString xml = Text("<ScanParameter><DwellTime>1</DwellTime></ScanParameter>");
    ScanParameter scan;
    EXPECT_RG_THROW(scan.SetXmlString(xml, true), "RGException", "FrequencyRange: Please set StartFrequency");
    scan.SetValidate(false);
    EXPECT_TRUE(scan.SetXmlString(xml, true));
    EXPECT_EQ(scan.GetDwellTime(), 1.0);
}

TEST(ScanParameter, UnknownChildOfTheRangeIsNamedByTheRange)
{
    ScanParameter scan;
    EXPECT_RG_THROW(
        scan.SetXmlString(Text("<ScanParameter><FrequencyRange><Start/></FrequencyRange></ScanParameter>"),
                          true),
        "RGException", "Unknown Tag 'Start' in 'FrequencyRange'.");
}

TEST(ScanParameter, RangeIsAssignedWithItsBaseAndReadByItsOwnName)
{
    const auto logger = NewLogger();
    NamedRange range("Band");
    range.SetStartFrequency(1.0);
    range.SetStopFrequency(2.0);
    range.SetLogger(logger);
    range.SetValidate(false);
    ScanParameter scan;
    scan.SetFrequencyRange(range);
    scan.SetStepFrequency(3.0);
    EXPECT_EQ(scan.GetFrequencyRange().GetLogger(), logger);
    EXPECT_FALSE(scan.GetFrequencyRange().GetValidate());
    const char* xml = "\n<ScanParameter Version=\"1.0\">"
                      "\n    <Band>"
                      "\n        <StartFrequency>1.00</StartFrequency>"
                      "\n        <StopFrequency>2.00</StopFrequency>"
                      "\n    </Band>"
                      "\n    <FrequencyStep>3.00</FrequencyStep>"
                      "\n</ScanParameter>";
    EXPECT_XML(scan, xml);
    const ScanParameter copy(scan);
    ScanParameter assigned;
    assigned = scan;
    EXPECT_NO_RG_THROW(scan.SetXmlString(Text(xml), true));
    EXPECT_XML(scan, xml);
    EXPECT_RG_THROW(scan.SetXmlString(Text("<ScanParameter><FrequencyRange/></ScanParameter>"), true),
                    "RGException", "Unknown Tag 'FrequencyRange' in 'ScanParameter'.");
    for (const ScanParameter* object : {&copy, &std::as_const(assigned)}) {
        EXPECT_XML(*object, xml);
        EXPECT_EQ(object->GetFrequencyRange().GetLogger(), logger);
    }
}

TEST(ScanParameter, PassesNoSettingsToItsRange)
{
    const ScanParameter scan = Scan(1.0, 2.0, 3.0);
    scan.SetLogger(NewLogger());
    scan.SetValidate(false);
    EXPECT_FALSE(scan.GetXmlString().isEmpty());
    EXPECT_EQ(scan.GetFrequencyRange().GetLogger(), nullptr);
    EXPECT_TRUE(scan.GetFrequencyRange().GetValidate());
}

TEST(ScanParameter, MergeKeepsWhatTheOtherDoesNotHave)
{
    ScanParameter scan = Scan(1.0, 2.0, 3.0);
    scan.SetDwellTime(4.0);
    scan.SetHoldTime(5.0);
    ScanParameter other = Scan(10.0, 20.0, 30.0);
    other.SetHoldTime(50.0);
    EXPECT_TRUE(scan.MergeRGObject(other));
    ExpectFields(scan, 10.0, 20.0, 30.0, 4.0, 50.0);
}

TEST(ScanParameter, ChildOfTheRangesNameIsTheRangeWhateverElseIsNamedSo)
{
    ScanParameter scan;
    scan.SetFrequencyRange(NamedRange("DwellTime"));
    scan.SetValidate(false);
    EXPECT_NO_RG_THROW(
        scan.SetXmlString(Text("<ScanParameter><DwellTime><StartFrequency>1</StartFrequency></DwellTime>"
                               "<HoldTime>5</HoldTime></ScanParameter>"),
                          true));
    ExpectFields(scan, 1.0, NOT_SET, NOT_SET, NOT_SET, 5.0);
}

TEST(ScanParameter, ReadsItsChildrenInAnyOrderAndTheLastOfEach)
{
    ScanParameter scan = Scan(7.0, 7.0, 7.0);
    EXPECT_NO_RG_THROW(
        scan.SetXmlString(Text("<ScanParameter><HoldTime>9</HoldTime><FrequencyStep>3</FrequencyStep>"
                               "<FrequencyRange><StopFrequency>2</StopFrequency></FrequencyRange>"
                               "<HoldTime>5</HoldTime><DwellTime>4</DwellTime>"
                               "<FrequencyRange><StartFrequency>1</StartFrequency></FrequencyRange>"
                               "</ScanParameter>"),
                          true));
    ExpectFields(scan, 1.0, 2.0, 3.0, 4.0, 5.0);
}

TEST(ScanParameter, ChildrenBeforeAnUnknownOneAreKept)
{
    ScanParameter scan = Scan(7.0, 8.0, 9.0);
    EXPECT_RG_THROW(scan.SetXmlString(Text("<ScanParameter><FrequencyRange><StartFrequency>1</StartFrequency>"
                                           "</FrequencyRange><DwellTime>4</DwellTime><Nonsense/>"
                                           "<FrequencyStep>3</FrequencyStep></ScanParameter>"),
                                      true),
                    "RGException", "Unknown Tag 'Nonsense' in 'ScanParameter'.");
    ExpectFields(scan, 1.0, NOT_SET, NOT_SET, 4.0, NOT_SET);
}

// The logger belongs to the object that was given it; the range has none of its own.
TEST(ScanParameter, MalformedRangeIsThrownWithoutALineOfTheHolder)
{
    const QString inRange = Text("<ScanParameter><FrequencyRange><StartFrequency>5");
    const QString inStep = Text("<ScanParameter><FrequencyStep>5");
    const auto logger = NewLogger();
    ScanParameter scan = Scan(7.0, 8.0, 9.0);
    scan.SetLogger(logger);
    EXPECT_RG_THROW(scan.SetXmlString(inRange, true), "RGException", Support::XmlErrorOf(inRange));
    EXPECT_LOG(logger, {"INFO: ScanParameter: Loading xml string."});
    logger->Reset(true);
    EXPECT_RG_THROW(scan.SetXmlString(inStep, true), "RGException", Support::XmlErrorOf(inStep));
    EXPECT_LOG(logger, (QStringList{Text("INFO: ScanParameter: Loading xml string."),
                                    Text("FATAL ERROR: RGException: ") + Support::XmlErrorOf(inStep)}));
    ExpectFields(scan, NOT_SET, NOT_SET, NOT_SET, NOT_SET, NOT_SET);
}
