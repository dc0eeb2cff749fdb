#include "support/plainrows.h"

#include <reportgenerator/reportbase/frequencyrangeold.h>

#include <gtest/gtest.h>

namespace {

using REPORTGENERATOR::FrequencyRangeOld;
using Support::Data;
using Support::INFINITE;
using Support::NextToUnset;
using Support::NOT_A_NUMBER;
using Support::NOT_SET;

// These have no mark at their end.
constexpr const char* NO_START = "FrequencyRange: Please set StartFrequency";
constexpr const char* NO_STOP = "FrequencyRange: Please set StopFrequency";

FrequencyRangeOld Range(double start, double stop)
{
    FrequencyRangeOld range;
    range.SetStartFrequency(start);
    range.SetStopFrequency(stop);
    return range;
}

} // namespace

TEST(FrequencyRangeOld, NeedsBothEndsAndNamesTheStartFirst)
{
    Support::ExpectObjects<FrequencyRangeOld>({
        {FrequencyRangeOld(), "- -", Data::None, NO_START, ""},
        {Range(1.0, NOT_SET), "1 -", Data::Some, NO_STOP, ""},
        {Range(NOT_SET, 1.0), "- 1", Data::Some, NO_START, ""},
        {Range(2.0, 1.0), "2 1", Data::Whole, nullptr,
         "<FrequencyRange><StartFrequency>2.00</StartFrequency><StopFrequency>1.00</StopFrequency>"
         "</FrequencyRange>"},
        {Range(-5.0, -5.0), "-5 -5", Data::Whole, nullptr,
         "<FrequencyRange><StartFrequency>-5.00</StartFrequency><StopFrequency>-5.00</StopFrequency>"
         "</FrequencyRange>"},
        {Range(1.005, 0.125), "1.005 0.125", Data::Whole, nullptr,
         "<FrequencyRange><StartFrequency>1.00</StartFrequency><StopFrequency>0.13</StopFrequency>"
         "</FrequencyRange>"},
        {Range(NOT_A_NUMBER, -INFINITE), "nan -inf", Data::Whole, nullptr,
         "<FrequencyRange><StartFrequency>nan</StartFrequency><StopFrequency>-inf</StopFrequency>"
         "</FrequencyRange>"},
        {Range(NextToUnset(), -111111.0), "~ -111111", Data::Whole, nullptr,
         "<FrequencyRange><StartFrequency>-111111.11</StartFrequency>"
         "<StopFrequency>-111111.00</StopFrequency></FrequencyRange>"},
    });
}

TEST(FrequencyRangeOld, ReadsItsChildrenInAnyOrderAndTheLastOfEach)
{
    Support::ExpectReadings(
        Range(5.0, 6.0),
        {
            {"", "- -", nullptr, NO_START},
            {"<StopFrequency>9</StopFrequency><StartFrequency>1<!-- -->2</StartFrequency>"
             "<StopFrequency>3.5</StopFrequency>",
             "2 3.5"},
            {"<StartFrequency>1</StartFrequency>", "1 -", nullptr, NO_STOP},
            {"<StopFrequency>2</StopFrequency><Start>1</Start><StartFrequency>1</StartFrequency>", "- 2",
             "Unknown Tag 'Start' in 'FrequencyRange'."},
        });
}

TEST(FrequencyRangeOld, ComparesBothEnds)
{
    Support::ExpectComparisons<FrequencyRangeOld>({
        {FrequencyRangeOld(), FrequencyRangeOld(), true},
        {Range(1.0, 2.0), Range(1.0, 2.0), true},
        {Range(0.0, -0.0), Range(-0.0, 0.0), true},
        {Range(1.0, 2.0), Range(1.0, 3.0), false},
        {Range(1.0, 2.0), Range(3.0, 2.0), false},
    });
    Support::ExpectUnequalToThemselves<FrequencyRangeOld>(
        {Range(NOT_A_NUMBER, 1.0), Range(1.0, NOT_A_NUMBER)});
}

TEST(FrequencyRangeOld, MergeTakesTheWrittenNumbers)
{
    Support::ExpectMerges<FrequencyRangeOld>({{Range(1.0, 2.0), Range(10.126, 20.0), "10.13 20"}});
}
