#include "support/expect.h"
#include "support/plainrows.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyRangeOld;
using Support::Data;
using Support::FieldsOf;
using Support::NewLogger;
using Support::NOT_A_NUMBER;
using Support::NOT_SET;
using Support::Text;

// What callers keep references to.
static_assert(std::is_same_v<decltype(std::declval<const FrequencyInformation&>().GetFrequencyRange()),
                             const FrequencyRangeOld&>);
static_assert(
    std::is_same_v<decltype(std::declval<FrequencyInformation&>().GetFrequencyRange()), FrequencyRangeOld&>);

constexpr const char* EITHER_OR = "FrequencyInformation: Please set either Frequency or FrequencyRange!";
constexpr const char* NO_STOP = "FrequencyRange: Please set StopFrequency";

constexpr const char* RANGE_XML =
    "<FrequencyInformation><FrequencyRange><StartFrequency>1.00</StartFrequency>"
    "<StopFrequency>2.00</StopFrequency></FrequencyRange></FrequencyInformation>";

class NamedRange : public FrequencyRangeOld
{
public:
    explicit NamedRange(const char* name) { SetObjectName(Text(name)); }
};

FrequencyInformation AtFrequency(double frequency, double min = NOT_SET, double max = NOT_SET)
{
    FrequencyInformation information;
    information.SetFrequency(frequency);
    information.SetFrequencyMinMax(min, max);
    return information;
}

/// With the range as well.
FrequencyInformation Both(FrequencyInformation information, double start, double stop)
{
    information.GetFrequencyRange().SetStartFrequency(start);
    information.GetFrequencyRange().SetStopFrequency(stop);
    return information;
}

FrequencyInformation InRange(double start, double stop)
{
    return Both(FrequencyInformation(), start, stop);
}

} // namespace

TEST(FrequencyInformation, HoldsEitherAFrequencyOrARange)
{
    Support::ExpectObjects<FrequencyInformation>({
        {FrequencyInformation(), "- - - / - -", Data::None, EITHER_OR, ""},
        {AtFrequency(NOT_SET, 1.0, 2.0), "- 1 2 / - -", Data::None, EITHER_OR, ""},
        {Both(AtFrequency(NOT_SET, 1.0, 2.0), 1.0, 2.0), "- 1 2 / 1 2", Data::Whole, nullptr, RANGE_XML},
        {InRange(1.0, 2.0), "- - - / 1 2", Data::Whole, nullptr, RANGE_XML},
        {InRange(1.0, NOT_SET), "- - - / 1 -", Data::Some, NO_STOP, ""},
        {Both(AtFrequency(3.0), 1.0, 2.0), "3 - - / 1 2", Data::Some, EITHER_OR, ""},
        {Both(AtFrequency(3.0), NOT_SET, 2.0), "3 - - / - 2", Data::Some, EITHER_OR, ""},
        {AtFrequency(NOT_A_NUMBER), "nan - - / - -", Data::Whole, nullptr,
         "<FrequencyInformation><Frequency>nan</Frequency></FrequencyInformation>"},
        {AtFrequency(121500000.0), "121500000 - - / - -", Data::Whole, nullptr,
         "<FrequencyInformation><Frequency>121500000.00</Frequency></FrequencyInformation>"},
        {AtFrequency(121500000.0, 1.005, 0.125), "121500000 1.005 0.125 / - -", Data::Whole, nullptr,
         "<FrequencyInformation><Frequency Min=\"1.00\" Max=\"0.13\">121500000.00</Frequency>"
         "</FrequencyInformation>"},
    });
}

TEST(FrequencyInformation, ReadsEitherAlternative)
{
    Support::ExpectReadings(
        Both(AtFrequency(7.0, 8.0, 9.0), 7.0, 8.0),
        {
            {"", "- - - / - -", nullptr, EITHER_OR},
            {"<FrequencyRange><StartFrequency>1</StartFrequency><StopFrequency>2</StopFrequency>"
             "</FrequencyRange>",
             "- - - / 1 2"},
            {"<Frequency Max=\"x\"/>", "0 - 0 / - -"},
            {"<Frequency>1</Frequency><FrequencyRange><StartFrequency>1</StartFrequency></FrequencyRange>",
             "1 - - / 1 -", nullptr, EITHER_OR},
            {"<FrequencyRange><StartFrequency>1</StartFrequency></FrequencyRange>"
             "<FrequencyRange><StopFrequency>2</StopFrequency></FrequencyRange>",
             "- - - / 1 2"},
            {"<Frequency Min=\"4\">5</Frequency><Nonsense/><Frequency>6</Frequency>", "5 4 - / - -",
             "Unknown Tag 'Nonsense' in 'FrequencyInformation'."},
            {"<FrequencyRange><Start/></FrequencyRange>", "- - - / - -",
             "Unknown Tag 'Start' in 'FrequencyRange'."},
        });
}

// The logger belongs to the object that was given it; the members have none of their own.
TEST(FrequencyInformation, MalformedMemberIsThrownWithoutALineOfTheHolder)
{
    Support::ExpectMalformed(
        AtFrequency(1.0),
        {
            {"<FrequencyInformation><Frequency Min=\"4\">5", "- 4 - / - -", false},
            {"<FrequencyInformation><FrequencyRange><StartFrequency>5", "- - - / - -", false},
        });
}

TEST(FrequencyInformation, MalformedRangeIsLoggedByALoggerOfItsOwn)
{
    const QString xml = Text("<FrequencyInformation><FrequencyRange><StartFrequency>5");
    const auto logger = NewLogger();
    FrequencyInformation information;
    information.GetFrequencyRange().SetLogger(logger);
    EXPECT_RG_THROW(information.SetXmlString(xml, true), "RGException", Support::XmlErrorOf(xml));
    EXPECT_LOG(logger, QStringList{Text("FATAL ERROR: RGException: ") + Support::XmlErrorOf(xml)});
}

TEST(FrequencyInformation, ComparesTheNumbersOnly)
{
    FrequencyInformation renamed;
    renamed.SetFrequencyRange(NamedRange("Band"));
    Support::ExpectComparisons<FrequencyInformation>({
        {FrequencyInformation(), FrequencyInformation(), true},
        {FrequencyInformation(), renamed, true},
        {AtFrequency(1.0), AtFrequency(1.0), true},
        {InRange(1.0, 2.0), InRange(1.0, 2.0), true},
        {AtFrequency(1.0), AtFrequency(2.0), false},
        {AtFrequency(1.0), AtFrequency(1.0, 0.5), false},
        {AtFrequency(1.0), AtFrequency(1.0, NOT_SET, 0.5), false},
        {InRange(1.0, 2.0), InRange(1.0, 3.0), false},
    });
    Support::ExpectUnequalToThemselves<FrequencyInformation>(
        {AtFrequency(NOT_A_NUMBER), AtFrequency(1.0, NOT_A_NUMBER, 2.0), AtFrequency(1.0, 1.0, NOT_A_NUMBER),
         InRange(1.0, NOT_A_NUMBER)});
}

TEST(FrequencyInformation, MergedAlternativeStandsBesideTheOtherAndAFrequencyBringsItsBounds)
{
    Support::ExpectMerges<FrequencyInformation>({
        {InRange(1.0, 2.0), AtFrequency(3.0), "3 - - / 1 2"},
        {AtFrequency(1.0, 0.5, 1.5), AtFrequency(3.0), "3 - - / - -"},
    });
}

TEST(FrequencyInformation, RangeIsAssignedWithItsBaseAndReadByItsOwnName)
{
    const auto logger = NewLogger();
    NamedRange range("Band");
    range.SetStartFrequency(1.0);
    range.SetLogger(logger);
    range.SetValidate(false);
    FrequencyInformation information;
    information.SetFrequencyRange(range);
    const FrequencyInformation copy(information);
    FrequencyInformation assigned;
    assigned = information;
    for (const FrequencyInformation* object :
         {&std::as_const(information), &copy, &std::as_const(assigned)}) {
        EXPECT_TEXT(object->GetFrequencyRange().GetObjectName(), "Band");
        EXPECT_EQ(object->GetFrequencyRange().GetLogger(), logger);
        EXPECT_FALSE(object->GetFrequencyRange().GetValidate());
        EXPECT_RG_THROW(object->Check(), "RGException", "Band: Please set StopFrequency");
    }

    information.SetFrequency(1.0);
    EXPECT_RG_THROW(information.Check(), "RGException",
                    "FrequencyInformation: Please set either Frequency or Band!");

    EXPECT_NO_RG_THROW(
        information.SetXmlString(Text("<FrequencyInformation><Band><StartFrequency>3</StartFrequency>"
                                      "<StopFrequency>4</StopFrequency></Band></FrequencyInformation>"),
                                 true));
    EXPECT_TEXT(FieldsOf(information), "- - - / 3 4");
    EXPECT_RG_THROW(information.SetXmlString(Text(RANGE_XML), true), "RGException",
                    "Unknown Tag 'FrequencyRange' in 'FrequencyInformation'.");
}

TEST(FrequencyInformation, ChildNamedFrequencyIsTheFrequencyWhateverTheRangeIsNamed)
{
    FrequencyInformation information;
    information.SetFrequencyRange(NamedRange("Frequency"));
    EXPECT_NO_RG_THROW(information.SetXmlString(
        Text("<FrequencyInformation><Frequency>5</Frequency></FrequencyInformation>"), true));
    EXPECT_TEXT(FieldsOf(information), "5 - - / - -");
}

TEST(FrequencyInformation, PassesNoSettingsToItsRange)
{
    const FrequencyInformation information = InRange(1.0, 2.0);
    information.SetLogger(NewLogger());
    information.SetValidate(false);
    EXPECT_FALSE(information.GetXmlString().isEmpty());
    EXPECT_EQ(information.GetFrequencyRange().GetLogger(), nullptr);
    EXPECT_TRUE(information.GetFrequencyRange().GetValidate());
}
