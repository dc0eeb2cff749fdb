#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <limits>
#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyRangeOld;
using Support::NewLogger;
using Support::Text;

constexpr double NOT_SET = -111111.11;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

// What callers keep references to.
static_assert(std::is_same_v<decltype(std::declval<const FrequencyInformation&>().GetFrequencyRange()),
                             const FrequencyRangeOld&>);
static_assert(
    std::is_same_v<decltype(std::declval<FrequencyInformation&>().GetFrequencyRange()), FrequencyRangeOld&>);

constexpr const char* EITHER_OR = "FrequencyInformation: Please set either Frequency or FrequencyRange!";

constexpr const char* RANGE_XML = "\n<FrequencyInformation>"
                                  "\n    <FrequencyRange>"
                                  "\n        <StartFrequency>1.00</StartFrequency>"
                                  "\n        <StopFrequency>2.00</StopFrequency>"
                                  "\n    </FrequencyRange>"
                                  "\n</FrequencyInformation>";

class NamedRange : public FrequencyRangeOld
{
public:
    explicit NamedRange(const char* name) { SetObjectName(Text(name)); }
};

FrequencyInformation AtFrequency(double frequency)
{
    FrequencyInformation information;
    information.SetFrequency(frequency);
    return information;
}

FrequencyInformation InRange(double start, double stop)
{
    FrequencyInformation information;
    information.GetFrequencyRange().SetStartFrequency(start);
    information.GetFrequencyRange().SetStopFrequency(stop);
    return information;
}

} // namespace

TEST(FrequencyInformation, StartsWithNeitherAlternativeAndIsRefused)
{
    const FrequencyInformation information;
    EXPECT_EQ(information.GetFrequency(), NOT_SET);
    EXPECT_EQ(information.GetFrequencyMin(), NOT_SET);
    EXPECT_EQ(information.GetFrequencyMax(), NOT_SET);
    EXPECT_FALSE(information.GetFrequencyRange().AnyData());
    EXPECT_RG_THROW(information.Check(), "RGException", EITHER_OR);
    EXPECT_RG_THROW(information.GetXmlString(), "RGException", EITHER_OR);
    information.SetValidate(false);
    EXPECT_XML(information, "");
}

TEST(FrequencyInformation, BoundsAloneAreNoData)
{
    FrequencyInformation information;
    information.SetFrequencyMinMax(1.0, 2.0);
    EXPECT_FALSE(information.AnyData());
    EXPECT_FALSE(information.HasData());
    EXPECT_RG_THROW(information.Check(), "RGException", EITHER_OR);
    information.GetFrequencyRange().SetStartFrequency(1.0);
    information.GetFrequencyRange().SetStopFrequency(2.0);
    EXPECT_TRUE(information.HasData());
    EXPECT_NO_RG_THROW(information.Check());
    EXPECT_XML(information, RANGE_XML);
}

TEST(FrequencyInformation, HalfARangePassesTheEitherOrRuleOnly)
{
    FrequencyInformation information;
    information.GetFrequencyRange().SetStartFrequency(1.0);
    EXPECT_TRUE(information.AnyData());
    EXPECT_FALSE(information.HasData());
    EXPECT_RG_THROW(information.Check(), "RGException", "FrequencyRange: Please set StopFrequency");
    EXPECT_TEXT(Support::UnindentedXmlOf(information), "");
}

TEST(FrequencyInformation, BothAlternativesAreNoDataAndRefused)
{
    FrequencyInformation information = InRange(1.0, 2.0);
    information.SetFrequency(3.0);
    EXPECT_TRUE(information.AnyData());
    EXPECT_FALSE(information.HasData());
    EXPECT_RG_THROW(information.Check(), "RGException", EITHER_OR);
    EXPECT_TEXT(Support::UnindentedXmlOf(information), "");

    information = AtFrequency(3.0);
    information.GetFrequencyRange().SetStopFrequency(2.0);
    EXPECT_FALSE(information.HasData()) << "half a range is enough to exclude the frequency";
    EXPECT_RG_THROW(information.Check(), "RGException", EITHER_OR);
}

TEST(FrequencyInformation, ResetUnsetsBothAlternatives)
{
    FrequencyInformation information = InRange(1.0, 2.0);
    information.SetFrequency(3.0);
    information.SetFrequencyMinMax(1.0, 2.0);
    information.Reset();
    EXPECT_TRUE(information == FrequencyInformation());
    information.SetFrequency(1.0);
    EXPECT_XML(information, "\n<FrequencyInformation>\n    <Frequency>1.00</Frequency>\n"
                            "</FrequencyInformation>")
        << "the frequency keeps its name";
}

TEST(FrequencyInformation, ComparesTheNumbersOnly)
{
    EXPECT_TRUE(FrequencyInformation() == FrequencyInformation());
    EXPECT_TRUE(AtFrequency(1.0) == AtFrequency(1.0));
    EXPECT_FALSE(AtFrequency(1.0) == AtFrequency(2.0));
    EXPECT_TRUE(AtFrequency(1.0) != AtFrequency(2.0));
    EXPECT_TRUE(InRange(1.0, 2.0) == InRange(1.0, 2.0));
    EXPECT_FALSE(InRange(1.0, 2.0) == InRange(1.0, 3.0));

    FrequencyInformation other = AtFrequency(1.0);
    other.SetFrequencyMin(0.5);
    EXPECT_TRUE(other != AtFrequency(1.0));
    other = AtFrequency(1.0);
    other.SetFrequencyMax(0.5);
    EXPECT_TRUE(other != AtFrequency(1.0));

    const FrequencyInformation nan = AtFrequency(NOT_A_NUMBER);
    EXPECT_FALSE(nan == nan);
    EXPECT_TRUE(nan != nan);

    other = AtFrequency(1.0);
    other.SetFrequencyMinMax(NOT_A_NUMBER, 2.0);
    EXPECT_FALSE(other == other);
    other.SetFrequencyMinMax(1.0, NOT_A_NUMBER);
    EXPECT_TRUE(other != other);
    const FrequencyInformation nanRange = InRange(1.0, NOT_A_NUMBER);
    EXPECT_FALSE(nanRange == nanRange);
    EXPECT_TRUE(nanRange != nanRange);

    other = FrequencyInformation();
    other.SetValidate(false);
    other.SetFrequencyRange(NamedRange("Band"));
    EXPECT_TRUE(other == FrequencyInformation());
}

TEST(FrequencyInformation, NotANumberIsAFrequency)
{
    EXPECT_NO_RG_THROW(AtFrequency(NOT_A_NUMBER).Check());
    EXPECT_XML(AtFrequency(NOT_A_NUMBER),
               "\n<FrequencyInformation>\n    <Frequency>nan</Frequency>\n</FrequencyInformation>");
    EXPECT_FALSE(AtFrequency(NOT_SET).AnyData());
}

TEST(FrequencyInformation, WritesTheAlternativeThatHasData)
{
    FrequencyInformation information = AtFrequency(121500000.0);
    EXPECT_XML(information, "\n<FrequencyInformation>"
                            "\n    <Frequency>121500000.00</Frequency>"
                            "\n</FrequencyInformation>");
    information.SetFrequencyMinMax(1.005, 0.125);
    EXPECT_XML(information, "\n<FrequencyInformation>"
                            "\n    <Frequency Min=\"1.00\" Max=\"0.13\">121500000.00</Frequency>"
                            "\n</FrequencyInformation>");
    EXPECT_XML(InRange(1.0, 2.0), RANGE_XML);
}

TEST(FrequencyInformation, ReadsARange)
{
    FrequencyInformation information = AtFrequency(5.0);
    EXPECT_NO_RG_THROW(information.SetXmlString(Text(RANGE_XML), true));
    EXPECT_TRUE(information == InRange(1.0, 2.0));
}

TEST(FrequencyInformation, ReadFrequencyWithoutTextIsZero)
{
    FrequencyInformation information;
    EXPECT_NO_RG_THROW(information.SetXmlString(
        Text("<FrequencyInformation><Frequency Max=\"x\"/></FrequencyInformation>"), true));
    EXPECT_EQ(information.GetFrequency(), 0.0);
    EXPECT_EQ(information.GetFrequencyMin(), NOT_SET);
    EXPECT_EQ(information.GetFrequencyMax(), 0.0);
    EXPECT_TRUE(information.HasData());
}

TEST(FrequencyInformation, ReadingBothAlternativesIsRefusedOnlyWhenValidating)
{
    const QString xml = Text("<FrequencyInformation><Frequency>1</Frequency><FrequencyRange>"
                             "<StartFrequency>1</StartFrequency></FrequencyRange></FrequencyInformation>");
    FrequencyInformation information;
    EXPECT_RG_THROW(information.SetXmlString(xml, true), "RGException", EITHER_OR);
    information.SetValidate(false);
    EXPECT_TRUE(information.SetXmlString(xml, true));
    EXPECT_EQ(information.GetFrequency(), 1.0);
    EXPECT_EQ(information.GetFrequencyRange().GetStartFrequency(), 1.0);
}

TEST(FrequencyInformation, UnknownChildOfTheRangeIsNamedByTheRange)
{
    FrequencyInformation information;
    EXPECT_RG_THROW(information.SetXmlString(Text("<FrequencyInformation><FrequencyRange><Start/>"
                                                  "</FrequencyRange></FrequencyInformation>"),
                                             true),
                    "RGException", "Unknown Tag 'Start' in 'FrequencyRange'.");
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
    EXPECT_TEXT(information.GetFrequencyRange().GetObjectName(), "Band");
    EXPECT_EQ(information.GetFrequencyRange().GetLogger(), logger);
    EXPECT_FALSE(information.GetFrequencyRange().GetValidate());
    EXPECT_RG_THROW(information.Check(), "RGException", "Band: Please set StopFrequency");

    information.SetFrequency(1.0);
    EXPECT_RG_THROW(information.Check(), "RGException",
                    "FrequencyInformation: Please set either Frequency or Band!");

    EXPECT_NO_RG_THROW(
        information.SetXmlString(Text("<FrequencyInformation><Band><StartFrequency>3</StartFrequency>"
                                      "<StopFrequency>4</StopFrequency></Band></FrequencyInformation>"),
                                 true));
    EXPECT_TRUE(information == InRange(3.0, 4.0));
    EXPECT_RG_THROW(information.SetXmlString(Text(RANGE_XML), true), "RGException",
                    "Unknown Tag 'FrequencyRange' in 'FrequencyInformation'.");
}

TEST(FrequencyInformation, CopyTakesBothMembers)
{
    FrequencyInformation source = InRange(1.0, 2.0);
    source.SetFrequencyRange(NamedRange("Band"));
    source.SetFrequency(3.0);
    source.SetFrequencyMinMax(1.0, 5.0);
    const FrequencyInformation copy(source);
    FrequencyInformation assigned;
    assigned = source;
    for (const FrequencyInformation* object : {&copy, &std::as_const(assigned)}) {
        EXPECT_TRUE(*object == source);
        EXPECT_TEXT(object->GetFrequencyRange().GetObjectName(), "Band");
    }
}

TEST(FrequencyInformation, PassesNoSettingsToItsRange)
{
    const FrequencyInformation information = InRange(1.0, 2.0);
    information.SetLogger(NewLogger());
    information.SetValidate(false);
    EXPECT_XML(information, RANGE_XML);
    EXPECT_EQ(information.GetFrequencyRange().GetLogger(), nullptr);
    EXPECT_TRUE(information.GetFrequencyRange().GetValidate());
}

TEST(FrequencyInformation, MergeOfTheOtherAlternativeLeavesBothSet)
{
    FrequencyInformation information = InRange(1.0, 2.0);
    EXPECT_TRUE(information.MergeRGObject(AtFrequency(3.0)));
    EXPECT_EQ(information.GetFrequency(), 3.0);
    EXPECT_EQ(information.GetFrequencyRange().GetStopFrequency(), 2.0);
    EXPECT_FALSE(information.HasData());
}

TEST(FrequencyInformation, MergedFrequencyBringsItsBounds)
{
    FrequencyInformation information = AtFrequency(1.0);
    information.SetFrequencyMinMax(0.5, 1.5);
    EXPECT_TRUE(information.MergeRGObject(AtFrequency(3.0)));
    EXPECT_TRUE(information == AtFrequency(3.0)) << "a bound that the other doesn't have is unset";
}

TEST(FrequencyInformation, NeitherAlternativeIsRefusedInAllSettings)
{
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        const FrequencyInformation information;
        information.SetValidate(validate);
        EXPECT_RG_THROW(information.Check(), "RGException", EITHER_OR);
        information.SetLogger(logger);
        EXPECT_RG_THROW(information.Check(), "RGException", EITHER_OR);
        EXPECT_LOG(logger, {});
    }
    FrequencyInformation information;
    EXPECT_RG_THROW(information.SetXmlString(Text("<FrequencyInformation/>"), true), "RGException",
                    EITHER_OR);
}

TEST(FrequencyInformation, ChildNamedFrequencyIsTheFrequencyWhateverTheRangeIsNamed)
{
    FrequencyInformation information;
    information.SetFrequencyRange(NamedRange("Frequency"));
    EXPECT_NO_RG_THROW(information.SetXmlString(
        Text("<FrequencyInformation><Frequency>5</Frequency></FrequencyInformation>"), true));
    EXPECT_EQ(information.GetFrequency(), 5.0);
    EXPECT_FALSE(information.GetFrequencyRange().AnyData());
}

TEST(FrequencyInformation, SecondElementOfTheRangeAddsToTheFirst)
{
    FrequencyInformation information;
    EXPECT_NO_RG_THROW(
        information.SetXmlString(Text("<FrequencyInformation>"
                                      "<FrequencyRange><StartFrequency>1</StartFrequency></FrequencyRange>"
                                      "<FrequencyRange><StopFrequency>2</StopFrequency></FrequencyRange>"
                                      "</FrequencyInformation>"),
                                 true));
    EXPECT_TRUE(information == InRange(1.0, 2.0));
}

TEST(FrequencyInformation, ChildrenBeforeAnUnknownOneAreKept)
{
    FrequencyInformation information = InRange(1.0, 2.0);
    EXPECT_RG_THROW(information.SetXmlString(Text("<FrequencyInformation><Frequency Min=\"4\">5</Frequency>"
                                                  "<Nonsense/><Frequency>6</Frequency>"
                                                  "</FrequencyInformation>"),
                                             true),
                    "RGException", "Unknown Tag 'Nonsense' in 'FrequencyInformation'.");
    FrequencyInformation expected = AtFrequency(5.0);
    expected.SetFrequencyMin(4.0);
    EXPECT_TRUE(information == expected);
}

// The logger belongs to the object that was given it; the members have none of their own.
TEST(FrequencyInformation, MalformedMemberIsThrownWithoutALineOfTheHolder)
{
    for (const char* text : {"<FrequencyInformation><Frequency Min=\"4\">5",
                             "<FrequencyInformation><FrequencyRange><StartFrequency>5"}) {
        const QString xml = Text(text);
        const QString error = Support::XmlErrorOf(xml);
        ASSERT_FALSE(error.isEmpty());
        const auto logger = NewLogger();
        FrequencyInformation information = AtFrequency(1.0);
        information.SetLogger(logger);
        EXPECT_RG_THROW(information.SetXmlString(xml, true), "RGException", error);
        EXPECT_LOG(logger, {"INFO: FrequencyInformation: Loading xml string."});
        EXPECT_EQ(information.GetFrequency(), NOT_SET);
        EXPECT_EQ(information.GetFrequencyRange().GetStartFrequency(), NOT_SET);
    }
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
