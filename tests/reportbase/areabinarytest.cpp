// An area in its tagged and its raw form. What all records have in common there stands in
// recordbinarytest.cpp and recordrawformtest.cpp, what hangs on the version in areaversiontest.cpp.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/pipe.h"
#include "support/points.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using Support::AreaState;
using Support::At;
using Support::BodyOf;
using Support::ByteArray;
using Support::Bytes;
using Support::Coordinates;
using Support::Int32;
using Support::Lake;
using Support::LakeState;
using Support::Name;
using Support::NotValidating;
using Support::NullName;
using Support::NullScriptID;
using Support::OnlyLatitude;
using Support::Pipe;
using Support::Point;
using Support::RawPoint;
using Support::ReadElements;
using Support::ReadRawForm;
using Support::ScriptID;
using Support::String;
using Support::Text;
using Support::Version;
using Support::WithUnflaggedPoint;
using Support::Written;
namespace Tag = Support::Tag;

constexpr int NAME_FLAG = 1;
constexpr int COORDINATES_FLAG = 2;
constexpr int SCRIPT_FLAG = 4;
constexpr qint32 GREATEST = std::numeric_limits<qint32>::max();
constexpr qint32 LEAST = std::numeric_limits<qint32>::min();

const char* const NULL_NAME = "Area: Please set Name properly (origin: Setter).";
const char* const NULL_SCRIPT_ID = "Area: Please set ScriptID properly (origin: Setter).";
const char* const INCOMPLETE_ITEM =
    "Area: Tried to append not completely defined or invalid item Coordinate.";
const char* const LENGTH_ERROR =
    "Area::SetBinary(...): Length error occurred during processing of binary representation";

int CountOf(const Area& area)
{
    return static_cast<int>(area.GetCoordinate().size());
}

} // namespace

// --- Tagged form, writing ---------------------------------------------------------------------------------

TEST(Area, BodyHoldsIncompleteCoordinatesAsTheyStandWithoutAMessageWhenNotValidating)
{
    Area area = NotValidating<Area>();
    area.SetCoordinate({OnlyLatitude(2.0), Coordinate()});
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_BYTES(BodyOf(area), Element(1, Version(u"1.0") + NullName() +
                                              Coordinates(2, Point("0.000000", "2.000000") +
                                                                 Point("0.000000", "0.000000"))));
    EXPECT_LOG(logger, {});
}

TEST(Area, BodyCountsCoordinatesThatAreNotMarkedAsSetButHoldsNoneOfThem)
{
    EXPECT_BYTES(BodyOf(WithUnflaggedPoint(NAME_FLAG)),
                 Element(1, Version(u"1.0") + Name("Lake") + Coordinates(1, Bytes())));
}

// --- Tagged form, reading ---------------------------------------------------------------------------------

TEST(Area, ElementsMayComeInAnyOrderTheLastTextCountsAndAllCoordinatesAreAppended)
{
    Area area;
    EXPECT_EQ(ReadElements(area, ScriptID("x") + Coordinates(1, Point("1", "2")) + Name("y") +
                                     Version(u"1.0") + ScriptID("S7") + Name("Lake") +
                                     Coordinates(2, Point("3", "4") + Point("5", "6"))),
              0);
    AreaState state = LakeState();
    state.coordinates = {{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}};
    state.initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(area, state);
}

TEST(Area, NullTextElementsAreRefusedWhenValidatingAndStoredWithAWarningOtherwise)
{
    const Bytes nullName = NullName();
    const Bytes nullScript = NullScriptID();
    Area area = Lake();
    EXPECT_RG_THROW(ReadElements(area, ScriptID("S") + nullName), "OutOfRangeException", NULL_NAME);
    AreaState state;
    state.scriptID = QStringLiteral("S");
    EXPECT_STATE(area, state);
    EXPECT_RG_THROW(ReadElements(area, nullScript), "OutOfRangeException", NULL_SCRIPT_ID);
    EXPECT_STATE(area, AreaState());

    area.SetValidate(false);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_EQ(ReadElements(area, nullName + nullScript), 0);
    EXPECT_TRUE(area.IsNameSet());
    EXPECT_TRUE(area.GetName().isNull());
    EXPECT_TRUE(area.IsScriptIDSet());
    EXPECT_TRUE(area.GetScriptID().isNull());
    EXPECT_LOG(logger,
               {"WARNING: OutOfRangeException: Area: Please set Name properly (origin: Setter).",
                "WARNING: OutOfRangeException: Area: Please set ScriptID properly (origin: Setter)."});
}

TEST(Area, TextElementsEndAtTheirFirstNulAndLoseAByteOrderMark)
{
    struct Row
    {
        std::string_view bytes;
        const char* text;
    };
    const Row rows[] = {
        {std::string_view("Lake\0Region", 11), "Lake"},
        {std::string_view("\0Lake", 5), ""},
        {std::string_view("Lake\0", 5), "Lake"},
        {"\xef\xbb\xbfLake", "Lake"},
        {"\xef\xbb\xbf", ""},
        {"\xf0\x9f\x93\xa1", "\xf0\x9f\x93\xa1"},
    };
    for (const Row& row : rows) {
        Area area;
        EXPECT_EQ(ReadElements(area, Name(row.bytes) + ScriptID(row.bytes)), 0);
        EXPECT_TEXT(area.GetName(), row.text);
        EXPECT_FALSE(area.GetName().isNull());
        EXPECT_TEXT(area.GetScriptID(), row.text);
    }
}

TEST(Area, ACountThatIsLargerThanWhatFollowsReadsWhatIsThereAndEndsInTheLengthErrorOfTheArea)
{
    for (const long long count : {3LL, 4LL, 100LL, 1000000LL, 0x01000000LL, (long long)GREATEST}) {
        for (int points = 0; points <= 2; ++points) {
            for (const bool validate : {true, false}) {
                SCOPED_TRACE(std::to_string(count) + " instead of " + std::to_string(points));
                Bytes bodies;
                AreaState state;
                state.name = QStringLiteral("Lake");
                for (int i = 0; i < points; ++i) {
                    bodies += Point("1", "2");
                    state.coordinates.push_back({1.0, 2.0});
                }
                Area area;
                area.SetValidate(validate);
                const auto logger = Support::NewLogger();
                area.SetLogger(logger);
                EXPECT_RG_THROW(ReadElements(area, Name("Lake") + Coordinates(count, bodies)),
                                "BinaryParsingException", LENGTH_ERROR);
                EXPECT_STATE(area, state);
                EXPECT_LOG(logger, QStringList{QStringLiteral("FATAL ERROR: BinaryParsingException: ") +
                                               Text(LENGTH_ERROR)});
                logger->Reset(true);

                area.ResetLogger();
                const Bytes claimed = ElementOfLength(Tag::AREA_COORDINATES, GREATEST, Int32(count) + bodies);
                EXPECT_RG_THROW(ReadElements(area, Name("Lake") + claimed), "BinaryParsingException",
                                LENGTH_ERROR);
                EXPECT_STATE(area, state);
            }
        }
    }
}

/// Three of them take the room of four short ones.
TEST(Area, ACountThatLongBodiesLeaveNothingForEndsInTheLengthError)
{
    const Bytes point = Point("-179.12345678901", "-89.123456789012");
    for (const bool validate : {true, false}) {
        Area area;
        area.SetValidate(validate);
        EXPECT_RG_THROW(ReadElements(area, Coordinates(4, point + point + point)), "BinaryParsingException",
                        LENGTH_ERROR);
        AreaState state;
        state.coordinates.assign(3, {-179.12345678901, -89.123456789012});
        EXPECT_STATE(area, state);
    }
}

TEST(Area, ANegativeCountAddsNothing)
{
    for (const long long count : {-1LL, -2LL, (long long)LEAST}) {
        for (const bool validate : {true, false}) {
            SCOPED_TRACE(count);
            Area area;
            area.SetValidate(validate);
            EXPECT_EQ(ReadElements(area, Coordinates(count, Bytes()) + Name("Lake")), 0);
            AreaState state;
            state.name = QStringLiteral("Lake");
            EXPECT_STATE(area, state);
        }
    }
}

TEST(Area, ACountThatReachesIntoTheNextElementTakesItForACoordinate)
{
    for (const bool validate : {true, false}) {
        Area area;
        area.SetValidate(validate);
        EXPECT_RG_THROW(ReadElements(area, Coordinates(2, Point("1", "2")) + ScriptID("S")),
                        "BinaryParsingException",
                        "Coordinate::SetBinary(...): Length error occurred during processing of binary "
                        "representation");
        AreaState state;
        state.coordinates = {{1.0, 2.0}};
        EXPECT_STATE(area, state);
    }
}

TEST(Area, ACountThatIsSmallerLeavesTheOtherBodiesOnTheStream)
{
    Area area;
    const Bytes point = Point("1", "2");
    EXPECT_EQ(ReadElements(area, Coordinates(1, point + point)), point.Size());
    AreaState state;
    state.coordinates = {{1.0, 2.0}};
    EXPECT_STATE(area, state);
}

TEST(Area, AnIncompleteCoordinateBodyIsRefusedWhenValidatingAndAppendedWithAWarningOtherwise)
{
    const Bytes onlyLatitude = Support::Body(Element(Tag::COORDINATE_LATITUDE, ByteArray("3")));
    const Bytes elements =
        Name("N") + Coordinates(4, Point("1", "2") + onlyLatitude + Support::Body(Bytes()) + Point("5", "6"));
    Area area;
    EXPECT_RG_THROW(ReadElements(area, elements), "IncompleteDefinitionException", INCOMPLETE_ITEM);
    AreaState state;
    state.name = QStringLiteral("N");
    state.coordinates = {{1.0, 2.0}};
    EXPECT_STATE(area, state);

    area.SetValidate(false);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_EQ(ReadElements(area, elements), 0);
    state.coordinates = {{1.0, 2.0}, {std::nullopt, 3.0}, {}, {5.0, 6.0}};
    EXPECT_STATE(area, state);
    const QString warning =
        QStringLiteral("WARNING: IncompleteDefinitionException: ") + Text(INCOMPLETE_ITEM);
    EXPECT_LOG(logger, QStringList({warning, warning}));
}

TEST(Area, AnOutOfRangeCoordinateBodySpeaksThroughTheLoggerOfTheArea)
{
    const Bytes elements = Coordinates(2, Point("1", "2") + Point("181", "4"));
    Area area;
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_RG_THROW(ReadElements(area, elements), "OutOfRangeException",
                    "Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'.");
    EXPECT_EQ(CountOf(area), 1);
    area.SetValidate(false);
    EXPECT_EQ(ReadElements(area, elements), 0);
    EXPECT_EQ(CountOf(area), 2);
    EXPECT_LOG(logger, {"FATAL ERROR: OutOfRangeException: Parameters for m_longitude are not set within "
                        "range (-180, 180) in 'Coordinate'.",
                        "WARNING: OutOfRangeException: Parameters for m_longitude are not set within range "
                        "(-180, 180) in 'Coordinate'."});
}

TEST(Area, ACoordinatesOwnLengthErrorEndsTheReading)
{
    for (const bool validate : {true, false}) {
        Area area;
        area.SetValidate(validate);
        const Bytes point = Support::Longitude("3") + Support::Latitude("4");
        const Bytes broken = Support::BodyOfLength(point.Size() - 1, point);
        EXPECT_RG_THROW(ReadElements(area, Coordinates(2, Point("1", "2") + broken) + Name("N")),
                        "BinaryParsingException",
                        "Coordinate::SetBinary(...): Length error occurred during processing of binary "
                        "representation");
        AreaState state;
        state.coordinates = {{1.0, 2.0}};
        EXPECT_STATE(area, state);
    }
}

TEST(Area, DeclaredLengthsOfKnownElementsOnlyCountAgainstTheBudget)
{
    Area area;
    const Bytes point = Point("1", "2");
    EXPECT_EQ(ReadElements(
                  area, ElementOfLength(Tag::AREA_NAME, 6, ByteArray("Lake")) +
                            ElementOfLength(Tag::AREA_COORDINATES, 4 + point.Size() + 2, Int32(1) + point)),
              0);
    AreaState state;
    state.name = QStringLiteral("Lake");
    state.coordinates = {{1.0, 2.0}};
    EXPECT_STATE(area, state);
}

// --- Raw form ---------------------------------------------------------------------------------------------

TEST(Area, RawFormCountsCoordinatesThatAreNotMarkedAsSetButHoldsNoneOfThem)
{
    EXPECT_BYTES(Support::RawFormOf(WithUnflaggedPoint(NAME_FLAG)),
                 Support::Byte(NAME_FLAG) + String(u"1.0") + String(u"Lake") + Int32(1));
}

TEST(Area, RawReadingDoesNotResetButReplacesNameAndFlagsAndAppends)
{
    Area area = Lake();
    EXPECT_EQ(ReadRawForm(area, Support::Byte(0) + String(u"1.0") + String(u"Raw") + Int32(1) +
                                    RawPoint(3, 3.0, 4.0)),
              0);
    EXPECT_TEXT(area.GetName(), "Raw");
    EXPECT_FALSE(area.IsNameSet());
    EXPECT_TEXT(area.GetScriptID(), "S7");
    EXPECT_FALSE(area.IsScriptIDSet());
    EXPECT_TRUE(area.IsCoordinateSet());
    AreaState state;
    state.coordinates = {{1.0, 2.0}, {3.0, 4.0}};
    state.initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(area, state);
}

TEST(Area, RawReadingTakesTheScriptIdentifierOnlyWhenItsFlagIsThere)
{
    Area area;
    const Bytes rest = String(u"1.0") + String(u"N") + Int32(0) + String(u"S");
    EXPECT_EQ(ReadRawForm(area, Support::Byte(NAME_FLAG) + rest), 6);
    EXPECT_TRUE(area.GetScriptID().isNull());
    EXPECT_EQ(ReadRawForm(area, Support::Byte(NAME_FLAG | SCRIPT_FLAG) + rest), 0);
    EXPECT_TEXT(area.GetScriptID(), "S");
}

TEST(Area, RawCoordinatesThatAreIncompleteAreRefusedWhenValidatingAndAppendedWithAWarningOtherwise)
{
    const Bytes raw = Support::Byte(NAME_FLAG | COORDINATES_FLAG) + String(u"1.0") + String(u"N") + Int32(3) +
                      RawPoint(3, 1.0, 2.0) + RawPoint(1, 3.0, 4.0) + RawPoint(3, 5.0, 6.0);
    Area area;
    EXPECT_RG_THROW(ReadRawForm(area, raw), "IncompleteDefinitionException", INCOMPLETE_ITEM);
    AreaState state;
    state.name = QStringLiteral("N");
    state.coordinates = {{1.0, 2.0}};
    state.initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(area, state);

    Area unchecked = NotValidating<Area>();
    const auto logger = Support::NewLogger();
    unchecked.SetLogger(logger);
    EXPECT_EQ(ReadRawForm(unchecked, raw), 0);
    state.coordinates = {{1.0, 2.0}, {3.0, std::nullopt}, {5.0, 6.0}};
    EXPECT_STATE(unchecked, state);
    EXPECT_LOG(logger, QStringList{QStringLiteral("WARNING: IncompleteDefinitionException: ") +
                                   Text(INCOMPLETE_ITEM)});
}

// A pipe hands its bytes over in pieces; an area that is longer than one of them is not at its end there.

TEST(Area, LongListIsReadWholeFromAPipe)
{
    Area area = Lake();
    area.SetCoordinate(QVector<Coordinate>(5000, At(3.0, 4.0)));
    Pipe pipe(area.GetBinaryRepresentationAsQByteArray());
    QDataStream stream(&pipe);
    Area read;
    bool known = false;
    EXPECT_NO_RG_THROW(known = read.SetBinaryRepresentation(stream));
    EXPECT_TRUE(known);
    EXPECT_EQ(CountOf(read), 5000);
    EXPECT_TRUE(read == area);
}

TEST(Area, ListThatIsCutOffInAPipeEndsInTheLengthError)
{
    Area area = Lake();
    area.SetCoordinate(QVector<Coordinate>(5000, At(3.0, 4.0)));
    const QByteArray bytes = area.GetBinaryRepresentationAsQByteArray();
    // A coordinate takes 44 bytes: its length, and two elements of 12 bytes and a text of 8. The first one
    // ends 28 bytes behind the beginning of its first text; two bytes of a next one are left.
    Pipe pipe(bytes.left(bytes.indexOf("3.000000") + 3000 * 44 + 28 + 2));
    QDataStream stream(&pipe);
    Area read;
    EXPECT_RG_THROW(read.SetBinaryRepresentation(stream), "BinaryParsingException", LENGTH_ERROR);
    EXPECT_EQ(CountOf(read), 3001);
}

TEST(Area, LongRawListIsReadWholeFromAPipe)
{
    Area area = Lake();
    area.SetCoordinate(QVector<Coordinate>(5000, At(3.0, 4.0)));
    Pipe pipe(Written([&](QDataStream& stream) { area.GetVersionSpecificBinaryWithoutValidation(stream); }));
    QDataStream stream(&pipe);
    stream.setVersion(QDataStream::Qt_4_6);
    Area read;
    EXPECT_NO_RG_THROW(read.SetVersionSpecificBinaryWithoutValidation(stream));
    EXPECT_EQ(CountOf(read), 5000);
    EXPECT_TRUE(read == area);
}
