// How the classes with a record are read from tagged elements: what of a body is passed over, and what an object
// holds when the lengths don't come out. What they write stands in recordformstest.cpp.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/states.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <limits>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;
using Support::BandwidthElement;
using Support::BandwidthState;
using Support::ByteArray;
using Support::Bytes;
using Support::FrequencyElement;
using Support::FrequencyState;
using Support::Latitude;
using Support::Longitude;
using Support::Min;
using Support::Name;
using Support::Named;
using Support::NameOf;
using Support::NOT_SET;
using Support::ReadElements;
using Support::RecordClass;
using Support::ScriptID;
using Support::StateOfClass;
using Support::Text;
using Support::Used;
using Support::Value;
namespace Tag = Support::Tag;

constexpr qint32 GREATEST = std::numeric_limits<qint32>::max();
constexpr qint32 LEAST = std::numeric_limits<qint32>::min();

const char* const LENGTH_ERROR =
    "@::SetBinary(...): Length error occurred during processing of binary representation";

// The functions below begin with what they say of Frequency and IFBandwidth.

/// Two elements, and what an object holds after them.
template <class T>
struct Pair
{
    Bytes first;
    Bytes second;
    StateOfClass<T> ofFirst;
    StateOfClass<T> ofSecond;
    StateOfClass<T> ofBoth;

    Bytes Both() const { return first + second; }
};

template <class T>
Pair<T> PairOf()
{
    return {Value("1.00"), Min("2.00"), {1.0}, {NOT_SET, 2.0}, {1.0, 2.0}};
}

template <>
Pair<Coordinate> PairOf()
{
    return {Longitude("1"), Latitude("2"), {1.0}, {NOT_SET, 2.0}, {1.0, 2.0}};
}

template <>
Pair<Area> PairOf()
{
    return {Name("N"), ScriptID("S"), {Text("N")}, {NOT_SET, {}, Text("S")}, {Text("N"), {}, Text("S")}};
}

template <>
Pair<ReportBase> PairOf()
{
    const FrequencyState frequency = {5.0};
    const BandwidthState bandwidth = {6.0};
    return {FrequencyElement("5"),
            BandwidthElement("6"),
            {frequency},
            {NOT_SET, bandwidth},
            {frequency, bandwidth}};
}

// --- Lengths that don't come out --------------------------------------------------------------------------

template <class T>
struct LengthRow
{
    const char* name;
    int length;
    Bytes bytes;
    StateOfClass<T> state;
};

template <class T>
using LengthRows = std::vector<LengthRow<T>>;

template <class T>
LengthRows<T> CommonLengthRows()
{
    const Pair<T> pair = PairOf<T>();
    const Bytes both = pair.Both();
    const int size = both.Size();
    return {
        {"body 4 too long", size + 4, both, pair.ofBoth},
        {"body 1 too short", size - 1, both, pair.ofBoth},
        {"body ends within the second element", pair.first.Size() + 1, both, pair.ofBoth},
        {"body ends within the tag of the second element", pair.first.Size() + 3, both, pair.ofBoth},
        {"unknown element overruns", size + 8, both + ElementOfLength(Tag::UNKNOWN, 1, Bytes()), pair.ofBoth},
        {"unknown element overruns what it has", size + 12,
         both + ElementOfLength(Tag::UNKNOWN, 5, Support::Raw("1234")), pair.ofBoth},
        {"unknown element of the greatest length", size + 8,
         pair.first + ElementOfLength(Tag::UNKNOWN, GREATEST, Bytes()) + pair.second, pair.ofFirst},
        {"unknown element of the greatest length first",
         size + 8,
         ElementOfLength(Tag::UNKNOWN, GREATEST, Bytes()) + both,
         {}},
        {"unknown element of the least length",
         size + 8,
         ElementOfLength(Tag::UNKNOWN, LEAST, Bytes()) + both,
         {}},
        {"unknown element of negative length",
         size + 8,
         ElementOfLength(Tag::UNKNOWN, -8, Bytes()) + both,
         {}},
        {"negative body", -1, both, {}},
        {"least body", LEAST, both, {}},
        {"greatest body", GREATEST, both, pair.ofBoth},
        {"no bytes at all", 8, Bytes(), {}},
    };
}

/// Elements that announce another length than they have; what they hold is read all the same.
template <class T>
LengthRows<T> OwnLengthRows()
{
    const int size = Value("1.00").Size();
    const auto valueOfLength = [](int length) {
        return ElementOfLength(Tag::FREQUENCY_VALUE, length, ByteArray("1.00"));
    };
    return {
        {"element 1 too short", size, valueOfLength(7), {1.0}},
        {"element 1 too long", size, valueOfLength(9), {1.0}},
        {"element of length 0", size, valueOfLength(0), {1.0}},
        {"element of negative length", size, valueOfLength(-8), {1.0}},
        {"element of the greatest length", size, valueOfLength(GREATEST), {1.0}},
    };
}

template <>
LengthRows<Coordinate> OwnLengthRows()
{
    const int size = PairOf<Coordinate>().Both().Size();
    const auto firstOfLength = [](int length) {
        return ElementOfLength(Tag::COORDINATE_LONGITUDE, length, ByteArray("1")) + Latitude("2");
    };
    return {
        {"element 1 too long", size, firstOfLength(6), {1.0, 2.0}},
        {"element 1 too short", size, firstOfLength(4), {1.0, 2.0}},
        {"element of the greatest length", size, firstOfLength(GREATEST), {1.0}},
        {"element of the least length", size, firstOfLength(LEAST), {1.0, 2.0}},
    };
}

template <>
LengthRows<Area> OwnLengthRows()
{
    const int size = PairOf<Area>().Both().Size();
    const auto firstOfLength = [](int length) {
        return ElementOfLength(Tag::AREA_NAME, length, ByteArray("N")) + ScriptID("S");
    };
    return {
        {"element too long", size, firstOfLength(6), {Text("N"), {}, Text("S")}},
        {"element of the greatest length", size, firstOfLength(GREATEST), {Text("N")}},
        {"element of the least length", size, firstOfLength(LEAST), {Text("N"), {}, Text("S")}},
    };
}

/// The members of a report report their lengths themselves.
template <>
LengthRows<ReportBase> OwnLengthRows()
{
    return {};
}

template <class T>
class RecordBinary : public ::testing::Test
{
protected:
    static Bytes Representation(const Bytes& elements)
    {
        return Support::Representation(NameOf<T>().toStdU16String(), elements);
    }
};

TYPED_TEST_SUITE(RecordBinary, Support::RecordClasses, Support::RecordClassNames);

} // namespace

TYPED_TEST(RecordBinary, ElementsMayComeInAnyOrder)
{
    const Pair<TypeParam> pair = PairOf<TypeParam>();
    TypeParam object;
    EXPECT_EQ(ReadElements(object, pair.second + pair.first), 0);
    EXPECT_STATE(object, pair.ofBoth);
    EXPECT_EQ(ReadElements(object, pair.first + pair.second + pair.first), 0);
    EXPECT_STATE(object, pair.ofBoth);
}

TYPED_TEST(RecordBinary, ReadingIntoAUsedObjectGivesWhatWasWrittenAndNothingElse)
{
    const Pair<TypeParam> pair = PairOf<TypeParam>();
    TypeParam object = Used<TypeParam>();
    EXPECT_EQ(ReadElements(object, pair.first), 0);
    EXPECT_STATE(object, pair.ofFirst);
    RecordClass<TypeParam>::ExpectUnsetFieldsHaveDefaults(object);
    EXPECT_EQ(ReadElements(object, pair.second), 0);
    EXPECT_STATE(object, pair.ofSecond);
    RecordClass<TypeParam>::ExpectUnsetFieldsHaveDefaults(object);
}

/// Whoever derives and has fields of his own is asked to reset them.
TYPED_TEST(RecordBinary, ReadingResetsByTheVirtualOperation)
{
    class WithField : public TypeParam
    {
    public:
        void Reset() override
        {
            TypeParam::Reset();
            field = 0;
        }

        int field = 7;
    };
    const Pair<TypeParam> pair = PairOf<TypeParam>();
    WithField object;
    EXPECT_EQ(ReadElements(object, pair.first), 0);
    EXPECT_EQ(object.field, 0);
    EXPECT_STATE(static_cast<const TypeParam&>(object), pair.ofFirst);
}

TYPED_TEST(RecordBinary, ReadingDoesNotCheckTheObject)
{
    const Pair<TypeParam> pair = PairOf<TypeParam>();
    const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
    TypeParam object;
    object.SetLogger(logger);
    QByteArray first = this->Representation(pair.first).Data();
    EXPECT_TRUE(object.SetBinaryRepresentation(first));
    EXPECT_STATE(object, pair.ofFirst);
    QByteArray second = this->Representation(pair.second).Data();
    EXPECT_TRUE(object.SetBinaryRepresentation(second));
    EXPECT_STATE(object, pair.ofSecond);
    QByteArray nothing = this->Representation(Bytes()).Data();
    EXPECT_TRUE(object.SetBinaryRepresentation(nothing));
    EXPECT_STATE(object, StateOfClass<TypeParam>());
    EXPECT_LOG(logger, {});
}

TYPED_TEST(RecordBinary, ABodyOfLengthZeroIsReadAsAnEmptyObjectWithoutAnError)
{
    const Bytes first = PairOf<TypeParam>().first;
    for (const bool validate : {true, false}) {
        TypeParam object = Used<TypeParam>();
        object.SetValidate(validate);
        const auto logger = Support::NewLogger();
        object.SetLogger(logger);
        EXPECT_EQ(ReadElements(object, 0, first), first.Size());
        EXPECT_TRUE(object.IsInitialized());
        EXPECT_FALSE(object.AnyData());
        EXPECT_STATE(object, StateOfClass<TypeParam>());
        EXPECT_LOG(logger, {});
    }
}

TYPED_TEST(RecordBinary, UnknownElementsAreSkippedByTheirLength)
{
    const Pair<TypeParam> pair = PairOf<TypeParam>();
    const Bytes unknown = Element(Tag::UNKNOWN, pair.first + Support::Byte(1));
    TypeParam object;
    const auto logger = Support::NewLogger();
    object.SetLogger(logger);
    EXPECT_EQ(ReadElements(object, unknown + pair.first + Element(0, Bytes()) + unknown +
                                       Element(1, Bytes()) + pair.second + unknown),
              0);
    EXPECT_STATE(object, pair.ofBoth);
    EXPECT_LOG(logger, {});
}

TYPED_TEST(RecordBinary, WhatFollowsTheBodyStaysOnTheStream)
{
    const Pair<TypeParam> pair = PairOf<TypeParam>();
    TypeParam object;
    EXPECT_EQ(ReadElements(object, pair.first.Size(), pair.Both()), pair.second.Size());
    EXPECT_STATE(object, pair.ofFirst);
}

TYPED_TEST(RecordBinary, LengthsThatDoNotAddUpAreReportedAfterTheFieldsHaveBeenStored)
{
    LengthRows<TypeParam> rows = CommonLengthRows<TypeParam>();
    for (const LengthRow<TypeParam>& row : OwnLengthRows<TypeParam>())
        rows.push_back(row);
    const QString message = Named<TypeParam>(LENGTH_ERROR);
    for (const LengthRow<TypeParam>& row : rows) {
        for (const bool validate : {true, false}) {
            SCOPED_TRACE(row.name);
            TypeParam object = Used<TypeParam>();
            object.SetValidate(validate);
            EXPECT_RG_THROW(ReadElements(object, row.length, row.bytes), "BinaryParsingException", message);
            EXPECT_STATE(object, row.state);

            const auto logger = Support::NewLogger();
            object.SetLogger(logger);
            EXPECT_RG_THROW(ReadElements(object, row.length, row.bytes), "BinaryParsingException", message);
            EXPECT_STATE(object, row.state);
            EXPECT_LOG(logger,
                       QStringList{QStringLiteral("FATAL ERROR: BinaryParsingException: ") + message});
        }
    }
}

TYPED_TEST(RecordBinary, LengthErrorBeginsWithTheCurrentName)
{
    Support::Renamed<TypeParam> object("Renamed %1");
    EXPECT_RG_THROW(ReadElements(object, 4, Bytes()), "BinaryParsingException",
                    Text(LENGTH_ERROR).replace(QLatin1Char('@'), QStringLiteral("Renamed %1")));
}
