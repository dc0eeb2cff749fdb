// Which operations make a record, and which reset goes through a derived class.

#include "support/expect.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;

TEST(RecordMaking, ComparingCoordinatesMakesNone)
{
    const Coordinate fresh;
    Coordinate reset;
    reset.ResetToDefault();
    Coordinate filled;
    filled.SetLongitude(1.0);

    EXPECT_TRUE(fresh == fresh);
    EXPECT_TRUE(fresh == reset);
    EXPECT_TRUE(reset == fresh);
    EXPECT_FALSE(fresh == filled);
    EXPECT_FALSE(filled == fresh);
    EXPECT_TRUE(fresh != filled);
    EXPECT_FALSE(fresh.IsInitialized());
}

TEST(RecordMaking, ComparingAreasMakesNoneForTheirCoordinates)
{
    Area left;
    left.SetValidate(false);
    left.AppendCoordinate(Coordinate());
    Area right;
    right.SetValidate(false);
    right.AppendCoordinate(Coordinate());
    EXPECT_TRUE(left == right);
    EXPECT_FALSE(left.GetCoordinate()[0].IsInitialized());
    EXPECT_FALSE(right.GetCoordinate()[0].IsInitialized());
}

template <class T>
class ResettingInto : public T
{
public:
    void Reset() override
    {
        ++resets;
        T::Reset();
    }

    int resets = 0;
};

template <class T>
class ResetToDefault : public ::testing::Test
{
};

using RecordClasses = ::testing::Types<Frequency, IFBandwidth, Coordinate, Area, ReportBase>;
TYPED_TEST_SUITE(ResetToDefault, RecordClasses, );

TYPED_TEST(ResetToDefault, AsksTheDerivedClassToResetOnlyWhenThereIsARecord)
{
    ResettingInto<TypeParam> object;
    object.ResetToDefault();
    EXPECT_TRUE(object.IsInitialized());
    EXPECT_EQ(object.resets, 0);

    object.ResetToDefault();
    EXPECT_TRUE(object.IsInitialized());
    EXPECT_EQ(object.resets, 1);
}

} // namespace
