#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequencyrangeold.h>

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <cmath>
#include <limits>

namespace {

using REPORTGENERATOR::FrequencyRangeOld;
using Support::NewLogger;
using Support::Text;

constexpr double NOT_SET = -111111.11;
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

FrequencyRangeOld Range(double start, double stop)
{
    FrequencyRangeOld range;
    range.SetStartFrequency(start);
    range.SetStopFrequency(stop);
    return range;
}

} // namespace

TEST(FrequencyRangeOld, StartsWithNeitherEndSet)
{
    const FrequencyRangeOld range;
    EXPECT_EQ(range.GetStartFrequency(), NOT_SET);
    EXPECT_EQ(range.GetStopFrequency(), NOT_SET);
    EXPECT_TEXT(Support::UnindentedXmlOf(range), "");
    EXPECT_RG_THROW(range.GetXmlString(), "RGException", "FrequencyRange: Please set StartFrequency");
}

TEST(FrequencyRangeOld, StartAloneIsAnyDataAndIsNotWritten)
{
    FrequencyRangeOld range;
    range.SetStartFrequency(1.0);
    EXPECT_TRUE(range.AnyData());
    EXPECT_FALSE(range.HasData());
    EXPECT_TEXT(Support::UnindentedXmlOf(range), "");
    EXPECT_RG_THROW(range.Check(), "RGException", "FrequencyRange: Please set StopFrequency");
}

TEST(FrequencyRangeOld, StopAloneIsAnyDataAndIsNotWritten)
{
    FrequencyRangeOld range;
    range.SetStopFrequency(1.0);
    EXPECT_TRUE(range.AnyData());
    EXPECT_FALSE(range.HasData());
    EXPECT_TEXT(Support::UnindentedXmlOf(range), "");
    EXPECT_RG_THROW(range.Check(), "RGException", "FrequencyRange: Please set StartFrequency");
}

TEST(FrequencyRangeOld, CheckNamesTheStartFirst)
{
    EXPECT_RG_THROW(FrequencyRangeOld().Check(), "RGException", "FrequencyRange: Please set StartFrequency");
    EXPECT_NO_RG_THROW(Range(2.0, 1.0).Check());
    EXPECT_NO_RG_THROW(Range(-5.0, -5.0).Check());
    EXPECT_NO_RG_THROW(Range(NOT_A_NUMBER, INFINITE).Check());
}

TEST(FrequencyRangeOld, RefusalHasNoMarkAtItsEndInAllSettings)
{
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        const FrequencyRangeOld withoutStart = Range(NOT_SET, 2.0);
        const FrequencyRangeOld withoutStop = Range(1.0, NOT_SET);
        for (const FrequencyRangeOld* range : {&withoutStart, &withoutStop}) {
            range->SetValidate(validate);
            range->SetLogger(logger);
        }
        EXPECT_RG_THROW(withoutStart.Check(), "RGException", "FrequencyRange: Please set StartFrequency");
        EXPECT_RG_THROW(withoutStop.Check(), "RGException", "FrequencyRange: Please set StopFrequency");
        EXPECT_LOG(logger, {});
    }
}

TEST(FrequencyRangeOld, NumberForNotSetCountsAsUnset)
{
    EXPECT_FALSE(Range(NOT_SET, NOT_SET).AnyData());
    EXPECT_RG_THROW(Range(NOT_SET, 1.0).Check(), "RGException", "FrequencyRange: Please set StartFrequency");
    EXPECT_RG_THROW(Range(1.0, NOT_SET).Check(), "RGException", "FrequencyRange: Please set StopFrequency");
    EXPECT_TRUE(Range(std::nextafter(NOT_SET, 0.0), -111111.0).HasData());
    EXPECT_TRUE(Range(NOT_A_NUMBER, NOT_A_NUMBER).HasData());
}

TEST(FrequencyRangeOld, ComparesBothEnds)
{
    EXPECT_TRUE(Range(1.0, 2.0) == Range(1.0, 2.0));
    EXPECT_FALSE(Range(1.0, 2.0) != Range(1.0, 2.0));
    EXPECT_FALSE(Range(1.0, 2.0) == Range(1.0, 3.0));
    EXPECT_TRUE(Range(1.0, 2.0) != Range(1.0, 3.0));
    EXPECT_FALSE(Range(1.0, 2.0) == Range(3.0, 2.0));
    EXPECT_TRUE(FrequencyRangeOld() == FrequencyRangeOld());
    EXPECT_TRUE(Range(0.0, -0.0) == Range(-0.0, 0.0));
    for (const FrequencyRangeOld& nan : {Range(NOT_A_NUMBER, 1.0), Range(1.0, NOT_A_NUMBER)}) {
        EXPECT_FALSE(nan == nan);
        EXPECT_TRUE(nan != nan);
    }
    const FrequencyRangeOld range = Range(1.0, 2.0);
    FrequencyRangeOld other = range;
    other.SetValidate(false);
    EXPECT_TRUE(range == other);
}

TEST(FrequencyRangeOld, WritesTwoDecimalsRoundedHalfAwayFromZero)
{
    EXPECT_XML(Range(1.005, 0.125), "\n<FrequencyRange>"
                                    "\n    <StartFrequency>1.00</StartFrequency>"
                                    "\n    <StopFrequency>0.13</StopFrequency>"
                                    "\n</FrequencyRange>");
    EXPECT_XML(Range(NOT_A_NUMBER, -INFINITE), "\n<FrequencyRange>"
                                               "\n    <StartFrequency>nan</StartFrequency>"
                                               "\n    <StopFrequency>-inf</StopFrequency>"
                                               "\n</FrequencyRange>");
}

TEST(FrequencyRangeOld, ReadsItsChildrenInAnyOrderAndTheLastOfEach)
{
    FrequencyRangeOld range;
    EXPECT_TRUE(range.SetXmlString(Text("<FrequencyRange><StopFrequency>9</StopFrequency>"
                                        "<StartFrequency>1<!-- -->2</StartFrequency>"
                                        "<StopFrequency>3.5</StopFrequency></FrequencyRange>"),
                                   true));
    EXPECT_TRUE(range == Range(2.0, 3.5));
}

TEST(FrequencyRangeOld, LoadedRangeWithOneEndIsRefusedOnlyWhenValidating)
{
    const QString xml = Text("<FrequencyRange><StartFrequency>1</StartFrequency></FrequencyRange>");
    FrequencyRangeOld range = Range(5.0, 6.0);
    EXPECT_RG_THROW(range.SetXmlString(xml, true), "RGException", "FrequencyRange: Please set StopFrequency");
    EXPECT_TRUE(range == Range(1.0, NOT_SET));
    range.SetValidate(false);
    EXPECT_TRUE(range.SetXmlString(xml, true));
}

TEST(FrequencyRangeOld, EmptyElementIsRefusedOnlyWhenValidating)
{
    FrequencyRangeOld range = Range(5.0, 6.0);
    EXPECT_RG_THROW(range.SetXmlString(Text("<FrequencyRange/>"), true), "RGException",
                    "FrequencyRange: Please set StartFrequency");
    EXPECT_TRUE(range == FrequencyRangeOld());
}

TEST(FrequencyRangeOld, ChildrenBeforeAnUnknownOneAreKept)
{
    FrequencyRangeOld range = Range(5.0, 6.0);
    EXPECT_RG_THROW(range.SetXmlString(Text("<FrequencyRange><StopFrequency>2</StopFrequency><Start>1</Start>"
                                            "<StartFrequency>1</StartFrequency></FrequencyRange>"),
                                       true),
                    "RGException", "Unknown Tag 'Start' in 'FrequencyRange'.");
    EXPECT_TRUE(range == Range(NOT_SET, 2.0));
}

TEST(FrequencyRangeOld, MergeTakesTheWrittenNumbers)
{
    FrequencyRangeOld range = Range(1.0, 2.0);
    EXPECT_TRUE(range.MergeRGObject(Range(10.126, 20.0)));
    EXPECT_TRUE(range == Range(10.13, 20.0)) << "with two decimals";
    FrequencyRangeOld half = Range(5.0, NOT_SET);
    EXPECT_RG_THROW(range.MergeRGObject(half), "RGException", "FrequencyRange: Please set StopFrequency");
    half.SetValidate(false);
    EXPECT_TRUE(range.MergeRGObject(half)) << "which writes nothing";
    EXPECT_TRUE(range == Range(10.13, 20.0));
}
