// The raw form of an area whose number of coordinates is larger than what follows: the first coordinate that
// is missing reads as an empty one.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/pipe.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>

#include <limits>
#include <utility>

namespace {

using REPORTGENERATOR::Area;
using Support::Byte;
using Support::Bytes;
using Support::Int32;
using Support::Pipe;
using Support::String;

constexpr int NAME_AND_COORDINATES = 3;
constexpr const char* INCOMPLETE = "Area: Tried to append not completely defined or invalid item Coordinate.";

Bytes Point(double longitude, double latitude)
{
    return Byte(3) + Support::Double(longitude) + Support::Double(latitude);
}

Bytes Head(long long count)
{
    return Byte(NAME_AND_COORDINATES) + String(u"1.0") + String(u"N") + Int32(count);
}

int CountOf(const Area& area)
{
    return static_cast<int>(area.GetCoordinate().size());
}

QDataStream::Status ReadFrom(QDataStream& stream, Area& area)
{
    stream.setVersion(QDataStream::Qt_4_6);
    area.SetVersionSpecificBinaryWithoutValidation(stream);
    return stream.status();
}

constexpr long long GREATEST = std::numeric_limits<qint32>::max();

TEST(AreaRawEnd, AMissingCoordinateIsRefusedWhenValidating)
{
    for (const long long count : {2LL, 1000000LL, GREATEST}) {
        SCOPED_TRACE(count);
        const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
        Area area;
        area.SetLogger(logger);
        QDataStream stream((Head(count) + Point(1.0, 2.0)).Data());
        EXPECT_RG_THROW(ReadFrom(stream, area), "IncompleteDefinitionException", INCOMPLETE);
        EXPECT_LOG(logger, {"FATAL ERROR: IncompleteDefinitionException: "
                            "Area: Tried to append not completely defined or invalid item Coordinate."});
        EXPECT_EQ(stream.status(), QDataStream::ReadPastEnd);
        EXPECT_TEXT(area.GetName(), "N");
        EXPECT_EQ(CountOf(area), 1);
    }
}

TEST(AreaRawEnd, AMissingCoordinateIsTheLastOneAfterAWarningWhenNotValidating)
{
    for (const long long count : {2LL, 1000000LL, GREATEST}) {
        SCOPED_TRACE(count);
        const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
        Area area;
        area.SetValidate(false);
        area.SetLogger(logger);
        QDataStream stream((Head(count) + Point(1.0, 2.0)).Data());
        EXPECT_EQ(ReadFrom(stream, area), QDataStream::ReadPastEnd);
        EXPECT_LOG(logger, {"WARNING: IncompleteDefinitionException: "
                            "Area: Tried to append not completely defined or invalid item Coordinate."});
        ASSERT_EQ(CountOf(area), 2);
        EXPECT_EQ(std::as_const(area).GetCoordinate().at(0).GetLatitude(), 2.0);
        EXPECT_FALSE(std::as_const(area).GetCoordinate().at(1).AnyData());
    }
}

TEST(AreaRawEnd, AFormThatEndsBehindTheCountLacksTheFirstCoordinate)
{
    Area area;
    area.SetValidate(false);
    QDataStream stream(Head(1).Data());
    EXPECT_EQ(ReadFrom(stream, area), QDataStream::ReadPastEnd);
    ASSERT_EQ(CountOf(area), 1);
    EXPECT_FALSE(std::as_const(area).GetCoordinate().at(0).AnyData());
}

TEST(AreaRawEnd, ACoordinateThatIsCutOffReadsAsFarAsItGoes)
{
    // The flags are there and so is the longitude; of the latitude one byte is missing.
    const QByteArray bytes = (Head(1) + Point(1.0, 2.0)).Data();
    Area area;
    QDataStream stream(bytes.left(bytes.size() - 1));
    EXPECT_EQ(ReadFrom(stream, area), QDataStream::ReadPastEnd);
    ASSERT_EQ(CountOf(area), 1);
    EXPECT_EQ(std::as_const(area).GetCoordinate().at(0).GetLongitude(), 1.0);
    EXPECT_EQ(std::as_const(area).GetCoordinate().at(0).GetLatitude(), 0.0);
}

TEST(AreaRawEnd, AWholeFormLeavesTheStreamGood)
{
    Area area;
    QDataStream stream((Head(2) + Point(1.0, 2.0) + Point(3.0, 4.0)).Data());
    EXPECT_EQ(ReadFrom(stream, area), QDataStream::Ok);
    EXPECT_EQ(CountOf(area), 2);
}

TEST(AreaRawEnd, ACountBelowZeroAddsNothing)
{
    for (const long long count : {-1LL, (long long)std::numeric_limits<qint32>::min()}) {
        Area area;
        QDataStream stream((Head(count) + Point(1.0, 2.0)).Data());
        EXPECT_EQ(ReadFrom(stream, area), QDataStream::Ok);
        EXPECT_EQ(CountOf(area), 0);
        EXPECT_TEXT(area.GetName(), "N");
    }
}

TEST(AreaRawEnd, APipeThatEndsEarlyLacksTheNextCoordinate)
{
    Pipe pipe((Head(GREATEST) + Point(1.0, 2.0)).Data());
    QDataStream stream(&pipe);
    Area area;
    EXPECT_RG_THROW(ReadFrom(stream, area), "IncompleteDefinitionException", INCOMPLETE);
    EXPECT_EQ(stream.status(), QDataStream::ReadPastEnd);
    EXPECT_EQ(CountOf(area), 1);
}

} // namespace
