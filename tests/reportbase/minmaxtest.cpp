#include "support/expect.h"

#include <reportgenerator/reportbase/minmax.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

using REPORTGENERATOR::MinMax;

// A number is no pair of bounds by itself.
static_assert(std::is_constructible_v<MinMax, double>);
static_assert(!std::is_convertible_v<double, MinMax>);

} // namespace

TEST(MinMax, BothBoundsAreZeroUnlessGiven)
{
    const MinMax none;
    EXPECT_EQ(none.GetMin(), 0.0);
    EXPECT_EQ(none.GetMax(), 0.0);
    const MinMax minOnly(5.0);
    EXPECT_EQ(minOnly.GetMin(), 5.0);
    EXPECT_EQ(minOnly.GetMax(), 0.0);
    const MinMax both(5.0, 7.0);
    EXPECT_EQ(both.GetMin(), 5.0);
    EXPECT_EQ(both.GetMax(), 7.0);
}

TEST(MinMax, StoresAnyNumberInItsOwnFieldWithoutACheck)
{
    MinMax bounds;
    for (const double number : {1.0, -1.0, -111111.11, std::numeric_limits<double>::infinity()}) {
        bounds.SetMin(number);
        bounds.SetMax(-2.0);
        EXPECT_EQ(bounds.GetMin(), number);
        EXPECT_EQ(bounds.GetMax(), -2.0);
        bounds.SetMax(number);
        bounds.SetMin(3.0);
        EXPECT_EQ(bounds.GetMax(), number);
        EXPECT_EQ(bounds.GetMin(), 3.0);
    }
    bounds.SetMin(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(std::isnan(bounds.GetMin()));
}

TEST(MinMax, IsAPlainPairWithoutABaseClass)
{
    EXPECT_FALSE(std::is_polymorphic_v<MinMax>);
    EXPECT_TRUE(std::is_trivially_copyable_v<MinMax>);
    EXPECT_EQ(sizeof(MinMax), 2 * sizeof(double));
}

TEST(MinMax, CopiesAreIndependent)
{
    const MinMax source(1.0, 2.0);
    MinMax copy(source);
    MinMax assigned;
    assigned = source;
    copy.SetMin(9.0);
    copy.SetMax(9.0);
    EXPECT_EQ(source.GetMin(), 1.0);
    EXPECT_EQ(source.GetMax(), 2.0);
    EXPECT_EQ(assigned.GetMin(), 1.0);
    EXPECT_EQ(assigned.GetMax(), 2.0);
}
