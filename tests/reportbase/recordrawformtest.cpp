// What the raw forms of the classes with a record have in common: flags without a field are kept, nothing is
// checked or traced, and numbers go as the caller's stream is set.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/points.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/states.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>

#include <limits>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::ReportBase;
using Support::AreaState;
using Support::Byte;
using Support::Bytes;
using Support::Double;
using Support::FrequencyState;
using Support::Int32;
using Support::Made;
using Support::Named;
using Support::NOT_SET;
using Support::NullString;
using Support::RawFormOf;
using Support::RawPoint;
using Support::ReadRawForm;
using Support::RecordClass;
using Support::StateOfClass;
using Support::String;
using Support::Text;
using Support::Written;

// Each function begins with what it says of Frequency and IFBandwidth.

// --- Flags without a field --------------------------------------------------------------------------------

template <class T>
struct FlagRow
{
    Bytes raw;
    StateOfClass<T> state;
    const char* xml = nullptr; ///< with "@" for the name; none when the object is incomplete
};

template <class T>
std::vector<FlagRow<T>> FlagRows()
{
    return {
        {Byte(0xf1) + Double(1.0), {1.0}, "\n<@>1.00</@>"},
        {Byte(0xf0) + Double(1.0), {}},
    };
}

template <>
std::vector<FlagRow<Coordinate>> FlagRows()
{
    return {
        {Byte(0xfd) + Double(1.0) + Double(2.0), {1.0}},
        {Byte(0xfc) + Double(1.0) + Double(2.0), {}},
        {Byte(0xff) + Double(1.0) + Double(2.0),
         {1.0, 2.0},
         "\n<@>\n    <Longitude>1.000000</Longitude>\n    <Latitude>2.000000</Latitude>\n</@>"},
    };
}

template <>
std::vector<FlagRow<Area>> FlagRows()
{
    AreaState state;
    state.initialVersionLoaded = QStringLiteral("1.0");
    AreaState named = state;
    named.name = QStringLiteral("N");
    return {
        {Byte(0xf9) + String(u"1.0") + String(u"N") + Int32(0), named},
        {Byte(0xf8) + String(u"1.0") + NullString() + Int32(0), state},
    };
}

template <>
std::vector<FlagRow<ReportBase>> FlagRows()
{
    return {
        {Byte(0xf9) + Byte(1) + Double(5.0),
         {FrequencyState{5.0}},
         "\n<@>\n    <Frequency>5.00</Frequency>\n</@>"},
        {Byte(0xf8), {}, "\n<@/>"},
    };
}

// --- What a check would refuse ----------------------------------------------------------------------------

template <class T>
struct FaultyForm
{
    Bytes raw;
    StateOfClass<T> state;
};

template <class T>
FaultyForm<T> Faulty()
{
    return {Byte(2) + Double(1.0) + Double(2.0), {NOT_SET, 2.0}};
}

template <>
FaultyForm<Coordinate> Faulty()
{
    constexpr double INF = std::numeric_limits<double>::infinity();
    return {Byte(3) + Double(1000.0) + Double(-INF), {1000.0, -INF}};
}

template <>
FaultyForm<Area> Faulty()
{
    AreaState state;
    state.coordinates = {{1000.0, -1000.0}};
    state.scriptID = QString();
    state.initialVersionLoaded = QStringLiteral("1.0");
    return {Byte(4) + String(u"1.0") + NullString() + Int32(1) + RawPoint(3, 1000.0, -1000.0) + NullString(),
            state};
}

template <>
FaultyForm<ReportBase> Faulty()
{
    AreaState area;
    area.initialVersionLoaded = QStringLiteral("1.0");
    return {Byte(5) + Byte(0) + Double(0.0) + Byte(0) + String(u"1.0") + NullString() + Int32(0),
            {FrequencyState(), NOT_SET, area}};
}

// --- Streams that are set otherwise -----------------------------------------------------------------------

template <class T>
struct StreamForm
{
    StateOfClass<T> state;
    QByteArray littleEndian;
    QByteArray singlePrecision;
};

template <class T>
StreamForm<T> OnOtherStreams()
{
    return {{1.0, 1.5, 2.0},
            QByteArray("\x07"
                       "\0\0\0\0\0\0\xf0\x3f"
                       "\0\0\0\0\0\0\xf8\x3f"
                       "\0\0\0\0\0\0\0\x40",
                       25),
            QByteArray("\x07"
                       "\x3f\x80\0\0"
                       "\x3f\xc0\0\0"
                       "\x40\0\0\0",
                       13)};
}

template <>
StreamForm<Coordinate> OnOtherStreams()
{
    return {{1.0, 2.0},
            QByteArray("\x03\0\0\0\0\0\0\xf0\x3f\0\0\0\0\0\0\0\x40", 17),
            QByteArray("\x03\x3f\x80\0\0\x40\0\0\0", 9)};
}

template <>
StreamForm<Area> OnOtherStreams()
{
    return {{Text("N")},
            QByteArray("\x01\x06\0\0\0"
                       "1\0.\0"
                       "0\0\x02\0\0\0N\0\0\0\0\0",
                       21),
            QByteArray("\x01\0\0\0\x06"
                       "\0"
                       "1\0.\0"
                       "0\0\0\0\x02\0N\0\0\0\0",
                       21)};
}

template <>
StreamForm<ReportBase> OnOtherStreams()
{
    return {{FrequencyState{1.0}},
            QByteArray("\x01\x01\0\0\0\0\0\0\xf0\x3f", 10),
            QByteArray("\x01\x01\x3f\x80\0\0", 6)};
}

template <class T>
class RecordRawForm : public ::testing::Test
{
protected:
    static QByteArray WrittenOn(const T& object, void (*set)(QDataStream&))
    {
        return Written([&](QDataStream& stream) {
            set(stream);
            object.GetVersionSpecificBinaryWithoutValidation(stream);
        });
    }

    static T ReadFrom(const QByteArray& bytes, void (*set)(QDataStream&))
    {
        T object;
        QDataStream stream(bytes);
        stream.setVersion(QDataStream::Qt_4_6);
        set(stream);
        object.SetVersionSpecificBinaryWithoutValidation(stream);
        EXPECT_TRUE(stream.atEnd());
        return object;
    }

    static void SetLittleEndian(QDataStream& stream) { stream.setByteOrder(QDataStream::LittleEndian); }
    static void SetSinglePrecision(QDataStream& stream)
    {
        stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    }
};

TYPED_TEST_SUITE(RecordRawForm, Support::RecordClasses, Support::RecordClassNames);

} // namespace

TYPED_TEST(RecordRawForm, FlagsWithoutAFieldAreKeptAndWrittenBack)
{
    for (const FlagRow<TypeParam>& row : FlagRows<TypeParam>()) {
        SCOPED_TRACE(row.raw.Annotated());
        TypeParam object;
        EXPECT_EQ(ReadRawForm(object, row.raw), 0);
        EXPECT_STATE(object, row.state);
        EXPECT_TRUE(object == Made<TypeParam>(row.state));
        EXPECT_EQ(object.AnyData(), Made<TypeParam>(row.state).AnyData());
        EXPECT_EQ(object.HasData(), Made<TypeParam>(row.state).HasData());
        EXPECT_BYTES(RawFormOf(object), row.raw);
        EXPECT_BYTES(RawFormOf(TypeParam(object)), row.raw);
        if (row.xml) {
            EXPECT_XML(object, Named<TypeParam>(row.xml));
        }
    }
}

TYPED_TEST(RecordRawForm, IsNeitherCheckedNorTraced)
{
    TypeParam object;
    const auto logger = Support::NewLogger();
    object.SetLogger(logger);
    EXPECT_BYTES(RawFormOf(object), RecordClass<TypeParam>::RawOfNew());
    const FaultyForm<TypeParam> faulty = Faulty<TypeParam>();
    EXPECT_EQ(ReadRawForm(object, faulty.raw), 0);
    EXPECT_STATE(object, faulty.state);
    RawFormOf(object);
    EXPECT_LOG(logger, {});
}

TYPED_TEST(RecordRawForm, FollowsByteOrderAndPrecisionOfTheStream)
{
    const StreamForm<TypeParam> form = OnOtherStreams<TypeParam>();
    const TypeParam object = Made<TypeParam>(form.state);
    EXPECT_BYTES(this->WrittenOn(object, this->SetLittleEndian), form.littleEndian);
    EXPECT_BYTES(this->WrittenOn(object, this->SetSinglePrecision), form.singlePrecision);
    EXPECT_TRUE(this->ReadFrom(form.littleEndian, this->SetLittleEndian) == object);
    EXPECT_TRUE(this->ReadFrom(form.singlePrecision, this->SetSinglePrecision) == object);
}

/// As many bytes as double numbers would take follow, and where the second item would begin then stands the last byte of
/// a number that looks like its flags.
TEST(RawFormOfAnArea, OfSingleNumbersEndsWithThem)
{
    const QByteArray behind(64, 'x');
    Area area = Support::Lake();
    area.AppendCoordinate(Support::At(3.0, 4.0 + 3.0 / (1 << 21)));
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    area.GetVersionSpecificBinaryWithoutValidation(out);
    bytes += behind;

    QDataStream in(bytes);
    in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    Area read;
    read.SetVersionSpecificBinaryWithoutValidation(in);
    EXPECT_EQ(read, area);
    EXPECT_EQ(in.device()->readAll(), behind);
}
