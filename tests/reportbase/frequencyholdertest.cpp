// What FrequencyInformation and FrequencyListValue have in common: a frequency with optional bounds.

#include "support/expect.h"

#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/minmax.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::MinMax;

constexpr double NOT_SET = -111111.11;

struct ClassNames
{
    template <class T>
    static std::string GetName(int)
    {
        return std::is_same_v<T, FrequencyInformation> ? "FrequencyInformation" : "FrequencyListValue";
    }
};

template <class T>
class FrequencyHolder : public ::testing::Test
{
};

using Holders = ::testing::Types<FrequencyInformation, FrequencyListValue>;
TYPED_TEST_SUITE(FrequencyHolder, Holders, ClassNames);

} // namespace

TYPED_TEST(FrequencyHolder, StartsWithoutFrequencyAndBounds)
{
    const TypeParam holder;
    EXPECT_EQ(holder.GetFrequency(), NOT_SET);
    EXPECT_EQ(holder.GetFrequencyMin(), NOT_SET);
    EXPECT_EQ(holder.GetFrequencyMax(), NOT_SET);
    const MinMax bounds = holder.GetFrequencyMinMax();
    EXPECT_EQ(bounds.GetMin(), NOT_SET);
    EXPECT_EQ(bounds.GetMax(), NOT_SET);
}

TYPED_TEST(FrequencyHolder, FrequencyAndBoundsAreStoredWithoutACheck)
{
    TypeParam holder;
    holder.SetFrequency(-5.0);
    holder.SetFrequencyMin(3.0);
    holder.SetFrequencyMax(1.0);
    EXPECT_EQ(holder.GetFrequency(), -5.0);
    EXPECT_EQ(holder.GetFrequencyMin(), 3.0);
    EXPECT_EQ(holder.GetFrequencyMax(), 1.0);

    double min = 0.0;
    double max = 0.0;
    holder.GetFrequencyMinMax(min, max);
    EXPECT_EQ(min, 3.0);
    EXPECT_EQ(max, 1.0);
    holder.SetFrequencyMinMax(10.0, 20.0);
    const MinMax bounds = holder.GetFrequencyMinMax();
    EXPECT_EQ(bounds.GetMin(), 10.0);
    EXPECT_EQ(bounds.GetMax(), 20.0);
    holder.SetFrequencyMinMax(MinMax(30.0, 40.0));
    EXPECT_EQ(holder.GetFrequencyMin(), 30.0);
    EXPECT_EQ(holder.GetFrequencyMax(), 40.0);
    EXPECT_EQ(holder.GetFrequency(), -5.0);
}
