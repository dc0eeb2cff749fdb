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

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using Support::AreaState;
using Support::At;
using Support::BodyOf;
using Support::Byte;
using Support::ByteArray;
using Support::Bytes;
using Support::Coordinates;
using Support::Int32;
using Support::Lake;
using Support::Name;
using Support::NOT_SET;
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
const char* const OUT_OF_RANGE =
    "Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'.";
const char* const LENGTH_ERROR =
    "Area::SetBinary(...): Length error occurred during processing of binary representation";
const char* const LENGTH_ERROR_OF_COORDINATE =
    "Coordinate::SetBinary(...): Length error occurred during processing of binary representation";

AreaState WithPoints(const std::vector<Support::CoordinateState>& coordinates)
{
    return {NOT_SET, coordinates};
}

AreaState Named(const std::vector<Support::CoordinateState>& coordinates)
{
    return {Text("N"), coordinates};
}

/// As it is read from a raw form with the flags of both.
AreaState RawNamed(const std::vector<Support::CoordinateState>& coordinates)
{
    return {Text("N"), coordinates, NOT_SET, Text("1.0"), true};
}

/// What an area that validates refuses, and another one takes after a warning for each problem.
struct RefusedRow
{
    const char* name;
    Bytes bytes;
    const char* exception;
    std::vector<const char*> problems;
    AreaState refused;
    AreaState taken;
};

template <class Read>
void ExpectRefused(const Read& read, const std::vector<RefusedRow>& rows)
{
    for (const RefusedRow& row : rows) {
        SCOPED_TRACE(row.name);
        Area area;
        EXPECT_RG_THROW(read(area, row.bytes), row.exception, row.problems.front());
        EXPECT_STATE(area, row.refused);

        const auto logger = Support::NewLogger();
        Area refusing;
        refusing.SetLogger(logger);
        EXPECT_RG_THROW(read(refusing, row.bytes), row.exception, row.problems.front());
        Area taking = NotValidating<Area>();
        taking.SetLogger(logger);
        EXPECT_EQ(read(taking, row.bytes), 0);
        EXPECT_STATE(taking, row.taken);
        const QString name = Text(row.exception) + Text(": ");
        QStringList lines = {Text("FATAL ERROR: ") + name + Text(row.problems.front())};
        for (const char* problem : row.problems)
            lines << Text("WARNING: ") + name + Text(problem);
        EXPECT_LOG(logger, lines);
    }
}

} // namespace

// --- Tagged form ------------------------------------------------------------------------------------------

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

TEST(Area, FormsCountCoordinatesThatAreNotMarkedAsSetButHoldNoneOfThem)
{
    EXPECT_BYTES(BodyOf(WithUnflaggedPoint(NAME_FLAG)),
                 Element(1, Version(u"1.0") + Name("Lake") + Coordinates(1, Bytes())));
    EXPECT_BYTES(Support::RawFormOf(WithUnflaggedPoint(NAME_FLAG)),
                 Byte(NAME_FLAG) + String(u"1.0") + String(u"Lake") + Int32(1));
}

TEST(Area, ElementsAreReadInAnyOrderAndTheLastTextAndAllCoordinatesCount)
{
    struct Row
    {
        const char* name;
        Bytes elements;
        AreaState state;
        int left = 0;
    };
    const Bytes point = Point("1", "2");
    const Row rows[] = {
        {"any order",
         ScriptID("x") + Coordinates(1, point) + Name("y") + ScriptID("S7") + Name("Lake") +
             Coordinates(2, Point("3", "4") + Point("5", "6")),
         {Text("Lake"), {{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}}, Text("S7")}},
        {"smaller count", Coordinates(1, point + point), WithPoints({{1.0, 2.0}}), point.Size()},
        {"count of -1", Coordinates(-1, Bytes()) + Name("N"), Named({})},
        {"count of -2", Coordinates(-2, Bytes()) + Name("N"), Named({})},
        {"least count", Coordinates(LEAST, Bytes()) + Name("N"), Named({})},
        // Declared lengths of known elements only count against the budget.
        {"lengths that make up for each other",
         ElementOfLength(Tag::AREA_NAME, 3, ByteArray("N")) +
             ElementOfLength(Tag::AREA_COORDINATES, 4 + point.Size() + 2, Int32(1) + point),
         Named({{1.0, 2.0}})},
    };
    for (const Row& row : rows) {
        for (const bool validate : {true, false}) {
            SCOPED_TRACE(row.name);
            Area area = Lake();
            area.SetValidate(validate);
            EXPECT_EQ(ReadElements(area, row.elements), row.left);
            EXPECT_STATE(area, row.state);
        }
    }
}

TEST(Area, WhatSettersRefuseIsRefusedInElementsWhenValidatingAndTakenAfterAWarningOtherwise)
{
    const Bytes onlyLatitude = Support::Body(Element(Tag::COORDINATE_LATITUDE, ByteArray("3")));
    // Together as long as two of the shortest.
    const Bytes longPoint = Point("1.00000000000000", "2.00000000000000");
    const Bytes onlyLongitude = Support::Body(Support::Longitude("3.00000000000000"));
    const auto read = [](Area& area, const Bytes& elements) { return ReadElements(area, elements); };
    ExpectRefused(read, {
                            {"null name",
                             ScriptID("S") + NullName(),
                             "OutOfRangeException",
                             {NULL_NAME},
                             {NOT_SET, {}, Text("S")},
                             {QString(), {}, Text("S")}},
                            {"null script",
                             Name("N") + NullScriptID(),
                             "OutOfRangeException",
                             {NULL_SCRIPT_ID},
                             Named({}),
                             {Text("N"), {}, QString()}},
                            {"incomplete points",
                             Name("N") + Coordinates(4, Point("1", "2") + onlyLatitude +
                                                            Support::Body(Bytes()) + Point("5", "6")),
                             "IncompleteDefinitionException",
                             {INCOMPLETE_ITEM, INCOMPLETE_ITEM},
                             Named({{1.0, 2.0}}),
                             Named({{1.0, 2.0}, {NOT_SET, 3.0}, {}, {5.0, 6.0}})},
                            {"incomplete point behind long numbers",
                             Name("N") + Coordinates(2, longPoint + onlyLongitude),
                             "IncompleteDefinitionException",
                             {INCOMPLETE_ITEM},
                             Named({{1.0, 2.0}}),
                             Named({{1.0, 2.0}, {3.0, NOT_SET}})},
                            {"point out of range",
                             Coordinates(2, Point("1", "2") + Point("181", "4")),
                             "OutOfRangeException",
                             {OUT_OF_RANGE},
                             WithPoints({{1.0, 2.0}}),
                             WithPoints({{1.0, 2.0}, {181.0, 4.0}})},
                        });
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
        EXPECT_STATE(area, (AreaState{Text(row.text), {}, Text(row.text)}));
    }
}

namespace {

void ExpectLengthError(const Bytes& elements, const char* error, const AreaState& state)
{
    for (const bool validate : {true, false}) {
        Area area;
        area.SetValidate(validate);
        EXPECT_RG_THROW(ReadElements(area, elements), "BinaryParsingException", error);
        EXPECT_STATE(area, state);
        const auto logger = Support::NewLogger();
        area.SetLogger(logger);
        EXPECT_RG_THROW(ReadElements(area, elements), "BinaryParsingException", error);
        EXPECT_STATE(area, state);
        EXPECT_LOG(logger, QStringList{Text("FATAL ERROR: BinaryParsingException: ") + Text(error)});
    }
}

} // namespace

TEST(Area, ACountThatIsLargerThanWhatFollowsReadsWhatIsThereAndEndsInTheLengthErrorOfTheArea)
{
    for (const long long count : {3LL, 4LL, 100LL, 1000000LL, 0x01000000LL, (long long)GREATEST}) {
        Bytes points;
        AreaState state = Named({});
        for (int i = 0; i <= 2; ++i) {
            SCOPED_TRACE(std::to_string(count) + " instead of " + std::to_string(i));
            ExpectLengthError(Name("N") + Coordinates(count, points), LENGTH_ERROR, state);
            ExpectLengthError(Name("N") +
                                  ElementOfLength(Tag::AREA_COORDINATES, GREATEST, Int32(count) + points),
                              LENGTH_ERROR, state);
            points += Point("1", "2");
            state.coordinates.push_back({1.0, 2.0});
        }
    }
    // Three of them take the room of four short ones.
    // Together as long as two of the shortest.
    const Bytes longPoint = Point("-179.12345678901", "-89.123456789012");
    const Support::CoordinateState longState = {-179.12345678901, -89.123456789012};
    ExpectLengthError(Coordinates(4, longPoint + longPoint + longPoint), LENGTH_ERROR,
                      WithPoints({longState, longState, longState}));
}

TEST(Area, ACoordinateThatEndsTooEarlyOrTooLateEndsTheReading)
{
    // A count that reaches into the next element takes that for a coordinate.
    ExpectLengthError(Coordinates(2, Point("1", "2")) + ScriptID("S"), LENGTH_ERROR_OF_COORDINATE,
                      WithPoints({{1.0, 2.0}}));
    const Bytes point = Support::Longitude("3") + Support::Latitude("4");
    const Bytes broken = Support::BodyOfLength(point.Size() - 1, point);
    ExpectLengthError(Coordinates(2, Point("1", "2") + broken) + Name("N"), LENGTH_ERROR_OF_COORDINATE,
                      WithPoints({{1.0, 2.0}}));
}

// --- Raw form ---------------------------------------------------------------------------------------------

TEST(Area, RawReadingDoesNotResetButReplacesNameAndFlagsAndAppends)
{
    Area area = Lake();
    EXPECT_EQ(ReadRawForm(area, Byte(0) + String(u"1.0") + String(u"Raw") + Int32(1) + RawPoint(3, 3.0, 4.0)),
              0);
    EXPECT_TEXT(area.GetName(), "Raw");
    EXPECT_TEXT(area.GetScriptID(), "S7");
    EXPECT_STATE(area, (AreaState{NOT_SET, {{1.0, 2.0}, {3.0, 4.0}}, NOT_SET, Text("1.0")}));
}

TEST(Area, RawReadingTakesTheScriptIdentifierOnlyWhenItsFlagIsThere)
{
    Area area;
    const Bytes rest = String(u"1.0") + String(u"N") + Int32(0) + String(u"S");
    EXPECT_EQ(ReadRawForm(area, Byte(NAME_FLAG) + rest), 6);
    EXPECT_TRUE(area.GetScriptID().isNull());
    EXPECT_EQ(ReadRawForm(area, Byte(NAME_FLAG | SCRIPT_FLAG) + rest), 0);
    EXPECT_TEXT(area.GetScriptID(), "S");
}

namespace {

Bytes RawHead(long long count)
{
    return Byte(NAME_FLAG | COORDINATES_FLAG) + String(u"1.0") + String(u"N") + Int32(count);
}

} // namespace

TEST(Area, RawCoordinatesThatAreIncompleteAreRefusedWhenValidatingAndAppendedWithAWarningOtherwise)
{
    const auto read = [](Area& area, const Bytes& raw) { return ReadRawForm(area, raw); };
    ExpectRefused(read, {{"incomplete point",
                          RawHead(3) + RawPoint(3, 1.0, 2.0) + RawPoint(1, 3.0, 4.0) + RawPoint(3, 5.0, 6.0),
                          "IncompleteDefinitionException",
                          {INCOMPLETE_ITEM},
                          RawNamed({{1.0, 2.0}}),
                          RawNamed({{1.0, 2.0}, {3.0, NOT_SET}, {5.0, 6.0}})}});
}

TEST(Area, TheFirstCoordinateThatTheRawFormLacksReadsAsAnEmptyOne)
{
    struct Row
    {
        const char* name;
        Bytes raw;
        QDataStream::Status status;
        AreaState state;
        bool isOneMissing;
    };
    const Bytes point = RawPoint(3, 1.0, 2.0);
    const Row rows[] = {
        {"one too few", RawHead(2) + point, QDataStream::ReadPastEnd, RawNamed({{1.0, 2.0}}), true},
        {"a million", RawHead(1000000) + point, QDataStream::ReadPastEnd, RawNamed({{1.0, 2.0}}), true},
        {"greatest count", RawHead(GREATEST) + point, QDataStream::ReadPastEnd, RawNamed({{1.0, 2.0}}), true},
        {"nothing behind the count", RawHead(1), QDataStream::ReadPastEnd, RawNamed({}), true},
        // Of the latitude one byte is missing.
        {"cut off", RawHead(1) + Byte(3) + Support::Double(1.0) + Support::Raw("1234567"),
         QDataStream::ReadPastEnd, RawNamed({{1.0, 0.0}}), false},
        {"whole", RawHead(2) + point + RawPoint(3, 3.0, 4.0), QDataStream::Ok,
         RawNamed({{1.0, 2.0}, {3.0, 4.0}}), false},
        {"count of -1", RawHead(-1) + point, QDataStream::Ok, RawNamed({}), false},
        {"least count", RawHead(LEAST) + point, QDataStream::Ok, RawNamed({}), false},
    };
    for (const Row& row : rows) {
        for (const bool isPipe : {false, true}) {
            for (const bool validate : {true, false}) {
                SCOPED_TRACE(row.name + std::string(isPipe ? " from a pipe" : ""));
                const QByteArray bytes = row.raw.Data();
                Pipe pipe(bytes);
                QDataStream stream(bytes);
                if (isPipe)
                    stream.setDevice(&pipe);
                stream.setVersion(QDataStream::Qt_4_6);
                const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
                Area area;
                area.SetValidate(validate);
                area.SetLogger(logger);
                AreaState state = row.state;
                QStringList lines;
                const auto read = [&] { area.SetVersionSpecificBinaryWithoutValidation(stream); };
                if (row.isOneMissing && validate) {
                    EXPECT_RG_THROW(read(), "IncompleteDefinitionException", INCOMPLETE_ITEM);
                    lines << Text("FATAL ERROR: IncompleteDefinitionException: ") + Text(INCOMPLETE_ITEM);
                } else {
                    EXPECT_NO_RG_THROW(read());
                }
                if (row.isOneMissing && !validate) {
                    state.coordinates.emplace_back();
                    lines << Text("WARNING: IncompleteDefinitionException: ") + Text(INCOMPLETE_ITEM);
                }
                EXPECT_EQ(stream.status(), row.status);
                EXPECT_STATE(area, state);
                EXPECT_LOG(logger, lines);
            }
        }
    }
}

// --- Pipes ------------------------------------------------------------------------------------------------

// A pipe hands its bytes over in pieces; an area that is longer than one of them is not at its end there.

namespace {

Area LongList()
{
    Area area = Lake();
    area.SetCoordinate(QVector<Coordinate>(5000, At(3.0, 4.0)));
    return area;
}

} // namespace

TEST(Area, LongListIsReadWholeFromAPipe)
{
    Pipe pipe(LongList().GetBinaryRepresentationAsQByteArray());
    QDataStream stream(&pipe);
    Area read;
    bool known = false;
    EXPECT_NO_RG_THROW(known = read.SetBinaryRepresentation(stream));
    EXPECT_TRUE(known);
    EXPECT_TRUE(read == LongList());
}

TEST(Area, ListThatIsCutOffInAPipeEndsInTheLengthError)
{
    const QByteArray bytes = LongList().GetBinaryRepresentationAsQByteArray();
    // A coordinate takes 44 bytes: its length, and two elements of 12 bytes and a text of 8. The first one
    // ends 28 bytes behind the beginning of its first text; two bytes of a next one are left.
    Pipe pipe(bytes.left(bytes.indexOf("3.000000") + 3000 * 44 + 28 + 2));
    QDataStream stream(&pipe);
    Area read;
    EXPECT_RG_THROW(read.SetBinaryRepresentation(stream), "BinaryParsingException", LENGTH_ERROR);
    EXPECT_EQ(read.GetCoordinate().size(), 3001);
}

TEST(Area, LongRawListIsReadWholeFromAPipe)
{
    Pipe pipe(Support::RawFormOf(LongList()));
    QDataStream stream(&pipe);
    stream.setVersion(QDataStream::Qt_4_6);
    Area read;
    EXPECT_NO_RG_THROW(read.SetVersionSpecificBinaryWithoutValidation(stream));
    EXPECT_TRUE(read == LongList());
}
