#include "support/expect.h"
#include "support/plainrows.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/scanparameter.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::ScanParameter;
using Support::Data;
using Support::FieldsOf;
using Support::NewLogger;
using Support::NextToUnset;
using Support::NOT_A_NUMBER;
using Support::NOT_SET;
using Support::Text;

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

// The capital L belongs to it.
constexpr const char* NO_STEP = "ScanParameter: PLease set FrequencyStep!";
constexpr const char* NO_START = "FrequencyRange: Please set StartFrequency";
constexpr const char* NO_STOP = "FrequencyRange: Please set StopFrequency";

class NamedRange : public FrequencyRangeOld
{
public:
    explicit NamedRange(const char* name) { SetObjectName(Text(name)); }
};

ScanParameter Scan(double start, double stop, double step, double dwell = NOT_SET, double hold = NOT_SET)
{
    ScanParameter scan;
    scan.GetFrequencyRange().SetStartFrequency(start);
    scan.GetFrequencyRange().SetStopFrequency(stop);
    scan.SetStepFrequency(step);
    scan.SetDwellTime(dwell);
    scan.SetHoldTime(hold);
    return scan;
}

} // namespace

// The hold time alone doesn't count, and neither time is ever asked for.
TEST(ScanParameter, NeedsTheRangeAndThenTheStepOrNothing)
{
    Support::ExpectObjects<ScanParameter>({
        {ScanParameter(), "- - / - - -", Data::None, nullptr, ""},
        {Scan(NOT_SET, NOT_SET, NOT_SET, NOT_SET, 1.0), "- - / - - 1", Data::None, nullptr, ""},
        {Scan(NOT_SET, NOT_SET, NOT_SET, 1.0), "- - / - 1 -", Data::Some, NO_START, ""},
        {Scan(NOT_SET, NOT_SET, NOT_SET, NextToUnset()), "- - / - ~ -", Data::Some, NO_START, ""},
        {Scan(NOT_SET, NOT_SET, NOT_SET, NOT_A_NUMBER), "- - / - nan -", Data::Some, NO_START, ""},
        {Scan(NOT_SET, NOT_SET, 3.0), "- - / 3 - -", Data::Some, NO_START, ""},
        {Scan(NOT_SET, NOT_SET, NOT_A_NUMBER), "- - / nan - -", Data::Some, NO_START, ""},
        {Scan(NOT_SET, 2.0, 3.0), "- 2 / 3 - -", Data::Some, NO_START, ""},
        {Scan(1.0, NOT_SET, NOT_SET), "1 - / - - -", Data::Some, NO_STOP, ""},
        {Scan(1.0, NOT_SET, 3.0), "1 - / 3 - -", Data::Some, NO_STOP, ""},
        {Scan(1.0, 2.0, NOT_SET), "1 2 / - - -", Data::Some, NO_STEP, ""},
        {Scan(1.0, 2.0, NOT_SET, NextToUnset()), "1 2 / - ~ -", Data::Some, NO_STEP, ""},
        {Scan(2.0, 1.0, -1.0), "2 1 / -1 - -", Data::Whole, nullptr,
         "<ScanParameter Version=\"1.0\"><FrequencyRange><StartFrequency>2.00</StartFrequency>"
         "<StopFrequency>1.00</StopFrequency></FrequencyRange><FrequencyStep>-1.00</FrequencyStep>"
         "</ScanParameter>"},
        {Scan(1.005, 0.125, 12.3456, NOT_SET, 0.125), "1.005 0.125 / 12.3456 - 0.125", Data::Whole, nullptr,
         "<ScanParameter Version=\"1.0\"><FrequencyRange><StartFrequency>1.00</StartFrequency>"
         "<StopFrequency>0.13</StopFrequency></FrequencyRange><FrequencyStep>12.35</FrequencyStep>"
         "<HoldTime>0.13</HoldTime></ScanParameter>"},
        {Scan(1.0, 2.0, NextToUnset(), NOT_A_NUMBER), "1 2 / ~ nan -", Data::Whole, nullptr,
         "<ScanParameter Version=\"1.0\"><FrequencyRange><StartFrequency>1.00</StartFrequency>"
         "<StopFrequency>2.00</StopFrequency></FrequencyRange><FrequencyStep>-111111.11</FrequencyStep>"
         "<DwellTime>nan</DwellTime></ScanParameter>"},
        {Scan(1.0, 2.0, 3.0, -0.001, NOT_A_NUMBER), "1 2 / 3 -0.001 nan", Data::Whole, nullptr,
         "<ScanParameter Version=\"1.0\"><FrequencyRange><StartFrequency>1.00</StartFrequency>"
         "<StopFrequency>2.00</StopFrequency></FrequencyRange><FrequencyStep>3.00</FrequencyStep>"
         "<DwellTime>-0.00</DwellTime><HoldTime>nan</HoldTime></ScanParameter>"},
    });
}

TEST(ScanParameter, ReadsItsChildrenInAnyOrderAndTheLastOfEach)
{
    Support::ExpectReadings(
        Scan(7.0, 7.0, 7.0, 7.0, 7.0),
        {
            {"", "- - / - - -"},
            {"<HoldTime>9</HoldTime><FrequencyStep>3</FrequencyStep>"
             "<FrequencyRange><StopFrequency>2</StopFrequency></FrequencyRange>"
             "<HoldTime>5</HoldTime><DwellTime>4</DwellTime>"
             "<FrequencyRange><StartFrequency>1</StartFrequency></FrequencyRange>",
             "1 2 / 3 4 5"},
            {"<DwellTime>1</DwellTime>", "- - / - 1 -", nullptr, NO_START},
            {"<FrequencyRange><StartFrequency>1</StartFrequency></FrequencyRange><DwellTime>4</DwellTime>"
             "<Nonsense/><FrequencyStep>3</FrequencyStep>",
             "1 - / - 4 -", "Unknown Tag 'Nonsense' in 'ScanParameter'."},
            {"<FrequencyRange><Start/></FrequencyRange>", "- - / - - -",
             "Unknown Tag 'Start' in 'FrequencyRange'."},
        });
}

// The logger belongs to the object that was given it; the range has none of its own.
TEST(ScanParameter, MalformedRangeIsThrownWithoutALineOfTheHolder)
{
    Support::ExpectMalformed(Scan(7.0, 8.0, 9.0),
                             {
                                 {"<ScanParameter><FrequencyRange><StartFrequency>5", "- - / - - -", false},
                                 {"<ScanParameter><FrequencyStep>5", "- - / - - -", true},
                             });
}

TEST(ScanParameter, MergeKeepsWhatTheOtherDoesNotHave)
{
    Support::ExpectMerges<ScanParameter>({
        {Scan(1.0, 2.0, 3.0, 4.0, 5.0), Scan(10.0, 20.0, 12.3456, NOT_SET, 50.0), "10 20 / 12.35 4 50"},
    });
}

TEST(ScanParameter, VersionIsNeitherResetNorReadBack)
{
    ScanParameter scan;
    scan.Reset();
    EXPECT_TEXT(scan.GetVersion(), "1.0");
    EXPECT_NO_RG_THROW(scan.SetXmlString(Text("<ScanParameter Version=\"9.9\"/>"), true));
    EXPECT_TEXT(scan.GetVersion(), "1.0");
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
    EXPECT_FALSE(scan.GetFrequencyRange().GetValidate());
    const char* xml = "\n<ScanParameter Version=\"1.0\">"
                      "\n    <Band>"
                      "\n        <StartFrequency>1.00</StartFrequency>"
                      "\n        <StopFrequency>2.00</StopFrequency>"
                      "\n    </Band>"
                      "\n    <FrequencyStep>3.00</FrequencyStep>"
                      "\n</ScanParameter>";
    const ScanParameter copy(scan);
    ScanParameter assigned;
    assigned = scan;
    for (const ScanParameter* object : {&std::as_const(scan), &copy, &std::as_const(assigned)}) {
        EXPECT_XML(*object, xml);
        EXPECT_EQ(object->GetFrequencyRange().GetLogger(), logger);
    }
    EXPECT_NO_RG_THROW(scan.SetXmlString(Text(xml), true));
    EXPECT_XML(scan, xml);
    EXPECT_RG_THROW(scan.SetXmlString(Text("<ScanParameter><FrequencyRange/></ScanParameter>"), true),
                    "RGException", "Unknown Tag 'FrequencyRange' in 'ScanParameter'.");
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
    EXPECT_TEXT(FieldsOf(scan), "1 - / - - 5");
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
