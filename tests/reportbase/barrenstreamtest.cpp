// Streams that give nothing and don't call that their end.

#include "support/expect.h"

#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>

#include <limits>

namespace {

using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::ReportBase;

/// A device that is not open for reading; what it holds is left where it is. Every word that is read from it
/// is 0, and an element of the tag 0 and the length 0 takes 8 bytes of a body.
template <class Object>
void Read(int length)
{
    Object object;
    QBuffer buffer;
    buffer.setData(QByteArray(64, 'x'));
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    QDataStream stream(&buffer);
    object.SetBinary(stream, length);
}

constexpr int GREATEST = std::numeric_limits<int>::max();

TEST(BarrenStream, LengthsComeOutAsOfElementsWithoutContentHoweverLongTheBody)
{
    EXPECT_NO_RG_THROW(Read<Frequency>(8));
    EXPECT_NO_RG_THROW(Read<Frequency>(GREATEST - 7));
    EXPECT_NO_RG_THROW(Read<ReportBase>(GREATEST - 7));
}

TEST(BarrenStream, OtherLengthsAreErrors)
{
    EXPECT_RG_THROW(
        Read<Frequency>(9), "BinaryParsingException",
        "Frequency::SetBinary(...): Length error occurred during processing of binary representation");
    EXPECT_RG_THROW(
        Read<ReportBase>(GREATEST), "BinaryParsingException",
        "ReportBase::SetBinary(...): Length error occurred during processing of binary representation");
}

} // namespace
