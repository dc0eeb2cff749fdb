// Where an IFBandwidth differs from a Frequency. What the two share stands in boundedvaluetest.cpp.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/recordelements.h"
#include "support/records.h"

#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>

#include <type_traits>
#include <utility>

namespace {

using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using Support::Bool;
using Support::Bytes;
using Support::ReadElements;
using Support::ReadRawForm;
namespace Tag = Support::Tag;

template <class T, class = void>
struct HasUse : std::false_type
{
};

template <class T>
struct HasUse<T, std::void_t<decltype(std::declval<T&>().SetUse(true))>> : std::true_type
{
};

template <class T>
T Complete(double value, double min, double max)
{
    T object;
    object.SetValue(value);
    object.SetMin(min);
    object.SetMax(max);
    return object;
}

IFBandwidth WithValue(double value)
{
    IFBandwidth bandwidth;
    bandwidth.SetValue(value);
    return bandwidth;
}

} // namespace

TEST(IFBandwidth, HasNoUse)
{
    EXPECT_TRUE(HasUse<Frequency>::value);
    EXPECT_FALSE(HasUse<IFBandwidth>::value);
}

TEST(IFBandwidth, AFrequencyReadsItsElementsAndLeavesUseUnset)
{
    QByteArray bytes = Complete<IFBandwidth>(1.0, 2.0, 3.0).GetBinaryRepresentationAsQByteArray();
    Frequency frequency;
    EXPECT_TRUE(frequency.SetBinaryRepresentation(bytes));
    EXPECT_TRUE(frequency == Complete<Frequency>(1.0, 2.0, 3.0));
    EXPECT_FALSE(frequency.IsUseSet());
}

TEST(IFBandwidth, AUseElementIsSkippedByItsDeclaredLength)
{
    IFBandwidth bandwidth;
    EXPECT_EQ(ReadElements(bandwidth, Element(Tag::FREQUENCY_USE, Bool(true) + Support::Raw("abc")) +
                                          Support::Value("5")),
              0);
    EXPECT_TRUE(bandwidth == WithValue(5.0));
}

TEST(IFBandwidth, RawFlagOfUseIsKeptButSteersNothing)
{
    IFBandwidth bandwidth;
    const Bytes raw = Support::Byte(0x08 | 0x01) + Support::Double(1.5);
    EXPECT_EQ(ReadRawForm(bandwidth, raw + Bool(true)), 1);
    EXPECT_TRUE(bandwidth == WithValue(1.5));
    EXPECT_BYTES(Support::RawFormOf(bandwidth), raw);

    EXPECT_EQ(ReadRawForm(bandwidth, Support::Byte(0x08) + Support::Double(1.5)), 0);
    EXPECT_FALSE(bandwidth.AnyData());
    EXPECT_BYTES(Support::RawFormOf(bandwidth), Support::Byte(0x08) + Support::Double(1.5));
}

TEST(IFBandwidth, IsNotMergedWithAFrequency)
{
    IFBandwidth bandwidth = WithValue(1.0);
    EXPECT_FALSE(bandwidth.MergeRGObject(Complete<Frequency>(5.0, 6.0, 7.0)));
    EXPECT_TRUE(bandwidth == WithValue(1.0));
}
