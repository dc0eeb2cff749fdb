// Input in an order or from a place from which it is read along Qt's streams, though the object is one of the library's
// own classes: what comes of it is the same.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/pipe.h"
#include "support/plainobject.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/frequency.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QIODevice>

#include <string>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Frequency;
using Support::AreaState;
using Support::Bytes;
using Support::Coordinates;
using Support::Int32;
using Support::Point;
using Support::Text;

const char* const FREQUENCY = "<Frequency>5.00</Frequency>";

/// An area that doesn't validate, with these coordinates.
AreaState StateWith(std::vector<Support::CoordinateState> coordinates)
{
    AreaState state;
    state.initialVersionLoaded = QStringLiteral("1.0");
    state.coordinates = std::move(coordinates);
    return state;
}

QByteArray AreaOf(const Bytes& elements)
{
    return Support::Representation(u"Area", Support::Version(u"1.0") + elements).Data();
}

} // namespace

TEST(OddWays, XmlMayComeFromAPipe)
{
    Frequency frequency;
    Support::Pipe pipe(FREQUENCY);
    EXPECT_TRUE(frequency.LoadXml(&pipe));
    EXPECT_EQ(frequency.GetValue(), 5.0);
}

TEST(OddWays, XmlMayBeReadWithinATransaction)
{
    const Support::TemporaryFolder folder;
    QFile file(folder.Write("frequency.xml", FREQUENCY));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    file.startTransaction();
    Frequency frequency;
    EXPECT_TRUE(frequency.LoadXml(&file));
    EXPECT_EQ(frequency.GetValue(), 5.0);
    file.rollbackTransaction();
    EXPECT_TEXT(QString::fromUtf8(file.readAll()), FREQUENCY);
}

TEST(OddWays, AttributesOfACoordinateAndOfItsNumbersAreSkipped)
{
    const char* const coordinates[] = {
        "<Coordinate Datum='WGS84'><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>",
        "<Coordinate><Longitude unit='degree'>1</Longitude><Latitude>2</Latitude></Coordinate>",
        "<Coordinate><Longitude>1</Longitude><Latitude unit='degree'>2</Latitude></Coordinate>",
    };
    for (const char* const coordinate : coordinates) {
        SCOPED_TRACE(coordinate);
        Area area = Support::NotValidating<Area>();
        EXPECT_TRUE(area.SetXmlString(Text("<Area Version=\"1.0\">%1</Area>").arg(Text(coordinate)), true));
        EXPECT_STATE(area, StateWith({{1.0, 2.0}}));
    }
}

TEST(OddWays, TwoListsOfCoordinatesAreBothRead)
{
    Area area = Support::NotValidating<Area>();
    QByteArray bytes =
        AreaOf(Coordinates(1, Point("1.000000", "2.000000")) + Coordinates(1, Point("3.000000", "4.000000")));
    EXPECT_TRUE(area.SetBinaryRepresentation(bytes));
    EXPECT_STATE(area, StateWith({{1.0, 2.0}, {3.0, 4.0}}));
}

TEST(OddWays, ACoordinateThatTakesAllThatFollowsIsTheLast)
{
    Area area = Support::NotValidating<Area>();
    // As long as two short ones.
    QByteArray bytes = AreaOf(Coordinates(2, Point("00000000000000001.0", "00000000000000002.0")));
    EXPECT_RG_THROW(area.SetBinaryRepresentation(bytes), "BinaryParsingException",
                    "Area::SetBinary(...): Length error occurred during processing of binary representation");
    EXPECT_STATE(area, StateWith({{1.0, 2.0}}));
}

TEST(OddWays, ACoordinateThatEndsBehindATagEndsTheReading)
{
    Area area = Support::NotValidating<Area>();
    QByteArray bytes = AreaOf(Coordinates(
        3, Point("1.000000", "2.000000") + Support::Body(Int32(Support::Tag::COORDINATE_LONGITUDE)) +
               Point("3.000000", "4.000000") + Point("5.000000", "6.000000")));
    EXPECT_RG_THROW(area.SetBinaryRepresentation(bytes), "BinaryParsingException",
                    "Coordinate::SetBinary(...): Length error occurred during processing of binary "
                    "representation");
    EXPECT_STATE(area, StateWith({{1.0, 2.0}}));
}

TEST(OddWays, BehindANameOfOneByteEverythingIsShifted)
{
    Area area = Support::NotValidating<Area>();
    // Half a character isn't taken from the stream: a length of 2^24 begins with the last byte of the root tag.
    QByteArray bytes = (Support::String(u"IRGObject") + Int32(1) + Support::Raw("x") +
                        Element(1, Support::Version(u"1.0") + Support::Name("Lake")))
                           .Data();
    EXPECT_RG_THROW(area.SetBinaryRepresentation(bytes), "BinaryParsingException",
                    "Area::SetBinary(...): Length error occurred during processing of binary representation");
    EXPECT_FALSE(area.AnyData());
}

TEST(OddWays, ANameThatIsNullIsNoEmptyOne)
{
    Support::PlainObject object;
    object.SetObjectName(QLatin1String(""));
    EXPECT_FALSE(object.GetObjectName().isNull());
    object.SetObjectName(QString());
    EXPECT_TRUE(object.GetObjectName().isNull());
}

TEST(OddWays, AnIdThatIsThereAlreadyStays)
{
    Support::PlainObject object(REPORTGENERATOR::NameToObjectTypes(Text("Task")));
    const long long id = object.GetObjectId();
    object.SetObjectId(id);
    EXPECT_EQ(object.GetObjectId(), id);
    EXPECT_TEXT(object.GetObjectName(), "Task");
}
