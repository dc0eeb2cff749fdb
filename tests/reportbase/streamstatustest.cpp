// Streams whose status is bad or becomes so, and devices that give nothing though they don't call that their
// end: reading ends by itself.

#include "support/bytes.h"
#include "support/devices.h"
#include "support/expect.h"
#include "support/paths.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"

#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>

#include <limits>
#include <memory>
#include <utility>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::ReportBase;
using Support::Byte;
using Support::Bytes;
using Support::Coordinates;
using Support::Int32;
using Support::Named;
using Support::Point;
using Support::StreamPathOnly;
using Support::String;
namespace Tag = Support::Tag;

constexpr int GREATEST = std::numeric_limits<int>::max();
constexpr int LEAST = std::numeric_limits<int>::min();

const char* const LENGTH_ERROR =
    "@::SetBinary(...): Length error occurred during processing of binary representation";
const char* const LENGTH_ERROR_OF_AREA =
    "Area::SetBinary(...): Length error occurred during processing of binary representation";

/// How a stream is set up before something is read from it.
struct Setting
{
    const char* name;
    QIODevice::OpenMode mode;
    bool isTransaction;
    QDataStream::Status status;
};

constexpr Setting GOOD = {"good", QIODevice::ReadOnly, false, QDataStream::Ok};
constexpr Setting WRITE_ONLY = {"not open for reading", QIODevice::WriteOnly, false, QDataStream::Ok};
constexpr Setting BAD = {"bad", QIODevice::ReadOnly, false, QDataStream::ReadCorruptData};
constexpr Setting TRANSACTION = {"transaction", QIODevice::ReadOnly, true, QDataStream::Ok};
constexpr Setting BAD_TRANSACTION = {"bad transaction", QIODevice::ReadOnly, true,
                                     QDataStream::ReadCorruptData};

/// A stream on some bytes.
class Source
{
public:
    Source(const Setting& setting, const QByteArray& bytes)
    {
        m_buffer.setData(bytes);
        EXPECT_TRUE(m_buffer.open(setting.mode));
        m_stream.setDevice(&m_buffer);
        m_stream.setVersion(QDataStream::Qt_4_6);
        if (setting.isTransaction)
            m_stream.startTransaction();
        m_stream.setStatus(setting.status);
    }

    QDataStream& Stream() { return m_stream; }
    QDataStream::Status Status() const { return m_stream.status(); }
    qint64 Position() const { return m_buffer.pos(); }

private:
    QBuffer m_buffer;
    QDataStream m_stream;
};

/// A device that gives its first bytes, and says for ever that there are more.
class Failing : public QBuffer
{
public:
    explicit Failing(const QByteArray& bytes)
    {
        setData(bytes);
        EXPECT_TRUE(open(QIODevice::ReadOnly));
    }

    qint64 bytesAvailable() const override { return GREATEST; }
    bool atEnd() const override { return false; }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        const qint64 count = QBuffer::readData(data, size);
        return count > 0 ? count : -1;
    }
};

// --- Skipping ----------------------------------------------------------------------------------------------

TEST(StreamStatus, SkippingANegativeLengthDoesWhatTheStreamDoes)
{
    struct Row
    {
        const Setting& setting;
        int length;
        QDataStream::Status status;
    };
    // A stream takes the -1 of a refusal for as many bytes.
    const Row rows[] = {
        {GOOD, -1, QDataStream::Ok},
        {GOOD, -2, QDataStream::ReadPastEnd},
        {GOOD, -8, QDataStream::ReadPastEnd},
        {GOOD, LEAST, QDataStream::ReadPastEnd},
        {WRITE_ONLY, -1, QDataStream::Ok},
        {WRITE_ONLY, -8, QDataStream::ReadPastEnd},
        {BAD, -8, QDataStream::ReadCorruptData},
        {TRANSACTION, -8, QDataStream::ReadPastEnd},
        {BAD_TRANSACTION, -8, QDataStream::ReadCorruptData},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.setting.name << ", " << row.length);
        const Frequency object;
        Source source(row.setting, QByteArray("01234567"));
        EXPECT_EQ(object.skipCurrentElement(source.Stream(), row.length, 0), -1);
        EXPECT_EQ(source.Status(), row.status);
        EXPECT_EQ(source.Position(), 0);
    }
}

TEST(StreamStatus, SkippingANegativeLengthWithoutADeviceChangesNothing)
{
    const Frequency object;
    QDataStream stream;
    EXPECT_EQ(object.skipCurrentElement(stream, -8, 0), -1);
    EXPECT_EQ(stream.status(), QDataStream::Ok);
}

// --- Bodies ------------------------------------------------------------------------------------------------

/// An element of each class, and what is left unset when it isn't read.
template <class T>
Bytes KnownElement()
{
    return Support::Value("1.00");
}

template <>
Bytes KnownElement<Coordinate>()
{
    return Support::Longitude("1");
}

template <>
Bytes KnownElement<Area>()
{
    return Support::Name("N");
}

template <>
Bytes KnownElement<ReportBase>()
{
    return Support::FrequencyElement("1.00");
}

template <class T>
class StreamStatusOf : public ::testing::Test
{
protected:
    /// By the class itself and by a subclass, validating or not: the length error.
    static void ExpectLengthError(const Setting& setting, const Bytes& elements, int length, bool isRead)
    {
        ExpectLengthErrorOf<T>(setting, elements, length, isRead);
        ExpectLengthErrorOf<StreamPathOnly<T>>(setting, elements, length, isRead);
    }

private:
    template <class Object>
    static void ExpectLengthErrorOf(const Setting& setting, const Bytes& elements, int length, bool isRead)
    {
        for (const bool validate : {true, false}) {
            SCOPED_TRACE(setting.name);
            Object object;
            object.SetValidate(validate);
            Source source(setting, elements.Data());
            EXPECT_RG_THROW(object.SetBinary(source.Stream(), length), "BinaryParsingException",
                            Named<T>(LENGTH_ERROR));
            EXPECT_NE(source.Status(), QDataStream::Ok);
            EXPECT_EQ(object.AnyData(), isRead);
        }
    }
};

TYPED_TEST_SUITE(StreamStatusOf, Support::RecordClasses, Support::RecordClassNames);

TYPED_TEST(StreamStatusOf, AnUnknownElementOfNegativeLengthEndsTheBody)
{
    const Bytes known = KnownElement<TypeParam>();
    for (const int length : {-2, -8, LEAST}) {
        SCOPED_TRACE(length);
        const Bytes unknown = ElementOfLength(Tag::UNKNOWN, length, Bytes());
        for (const Setting& setting : {GOOD, TRANSACTION}) {
            this->ExpectLengthError(setting, unknown + known, known.Size() + 8, false);
            this->ExpectLengthError(setting, known + unknown + known, 2 * known.Size() + 8, true);
        }
    }
    // The lengths alone would come out.
    this->ExpectLengthError(GOOD, ElementOfLength(Tag::UNKNOWN, -8, Bytes()) + known, known.Size(), false);
}

TYPED_TEST(StreamStatusOf, AnUnknownElementThatGoesOneByteBackIsPassedOver)
{
    const Bytes bytes = ElementOfLength(Tag::UNKNOWN, -1, Bytes()) + KnownElement<TypeParam>();
    TypeParam object;
    Source source(GOOD, bytes.Data());
    EXPECT_NO_RG_THROW(object.SetBinary(source.Stream(), bytes.Size() - 1));
    EXPECT_EQ(source.Status(), QDataStream::Ok);
    EXPECT_TRUE(object.AnyData());
}

/// Within a transaction a bad stream gives nothing without ever coming to its end; elements of the tag 0 and
/// the length 0 would use the length up exactly.
TYPED_TEST(StreamStatusOf, ABodyOnABadStreamIsALengthErrorHoweverLong)
{
    const Bytes known = KnownElement<TypeParam>();
    for (const Setting& setting : {BAD, BAD_TRANSACTION}) {
        for (const int length : {8, known.Size(), GREATEST - 7})
            this->ExpectLengthError(setting, known, length, false);
    }
    this->ExpectLengthError(TRANSACTION, ElementOfLength(Tag::UNKNOWN, -8, Bytes()) + known, GREATEST - 7,
                            false);
}

TYPED_TEST(StreamStatusOf, ABodyOnADeviceThatGivesNothingIsALengthErrorHoweverLong)
{
    for (const int length : {8, 9, GREATEST - 7, GREATEST})
        this->ExpectLengthError(WRITE_ONLY, KnownElement<TypeParam>(), length, false);
}

TYPED_TEST(StreamStatusOf, ABodyOfLengthZeroIsReadFromABadStreamToo)
{
    for (const Setting& setting : {BAD, BAD_TRANSACTION, WRITE_ONLY}) {
        TypeParam object;
        Source source(setting, KnownElement<TypeParam>().Data());
        EXPECT_NO_RG_THROW(object.SetBinary(source.Stream(), 0));
        EXPECT_FALSE(object.AnyData());
    }
}

TYPED_TEST(StreamStatusOf, ADeviceThatFailsBetweenElementsEndsTheBody)
{
    const Bytes known = KnownElement<TypeParam>();
    Failing device(known.Data());
    QDataStream stream(&device);
    stream.setVersion(QDataStream::Qt_4_6);
    TypeParam object;
    // The missing element would use the length up.
    EXPECT_RG_THROW(object.SetBinary(stream, known.Size() + 8), "BinaryParsingException",
                    Named<TypeParam>(LENGTH_ERROR));
    EXPECT_TRUE(object.AnyData());
}

// --- Lists -------------------------------------------------------------------------------------------------

TEST(StreamStatus, AListOnADeviceThatFailsIsALengthErrorOfTheArea)
{
    const Bytes point = Point("1", "2");
    const Bytes list = Coordinates(GREATEST, point);
    for (const bool validate : {true, false}) {
        Failing device(list.Data());
        QDataStream stream(&device);
        stream.setVersion(QDataStream::Qt_4_6);
        Area area;
        area.SetValidate(validate);
        EXPECT_RG_THROW(area.SetBinary(stream, list.Size()), "BinaryParsingException", LENGTH_ERROR_OF_AREA);
        EXPECT_EQ(std::as_const(area).GetCoordinate().size(), 1);
    }
}

Bytes RawHead(int count)
{
    return Byte(3) + String(u"1.0") + String(u"N") + Int32(count);
}

TEST(StreamStatus, ARawListOnADeviceThatFailsLacksTheNextCoordinate)
{
    Failing device((RawHead(GREATEST) + Support::RawPoint(3, 1.0, 2.0)).Data());
    QDataStream stream(&device);
    stream.setVersion(QDataStream::Qt_4_6);
    Area area;
    area.SetValidate(false);
    area.SetVersionSpecificBinaryWithoutValidation(stream);
    EXPECT_EQ(stream.status(), QDataStream::ReadPastEnd);
    ASSERT_EQ(std::as_const(area).GetCoordinate().size(), 2);
    EXPECT_FALSE(std::as_const(area).GetCoordinate().at(1).AnyData());
}

/// An odd size of a name is corrupt: within a transaction nothing can be read behind it, the count neither.
TEST(StreamStatus, ARawListBehindACorruptTextInATransactionIsEmpty)
{
    Source source(TRANSACTION, (Byte(3) + String(u"1.0") + Int32(3) + RawHead(GREATEST)).Data());
    Area area;
    area.SetValidate(false);
    area.SetVersionSpecificBinaryWithoutValidation(source.Stream());
    EXPECT_EQ(source.Status(), QDataStream::ReadCorruptData);
    EXPECT_TRUE(std::as_const(area).GetCoordinate().isEmpty());
}

/// Takes the device away from a stream when it is given a warning.
class TakingDevice : public REPORTGENERATOR::Logger
{
public:
    explicit TakingDevice(QDataStream& stream) : Logger(REPORTGENERATOR::WARNING), m_stream(stream) {}

    using Logger::Trace;
    void Trace(REPORTGENERATOR::LogLevel, const QString&, bool) override { m_stream.setDevice(nullptr); }
    bool HasErrors() const override { return false; }
    void Reset(bool) override {}

private:
    QDataStream& m_stream;
};

TEST(StreamStatus, ARawListOfAStreamThatLosesItsDeviceLacksTheNextCoordinate)
{
    QBuffer device;
    const Bytes raw = RawHead(3) + Support::RawPoint(1, 5.0, 0.0) + Support::RawPoint(3, 1.0, 2.0) +
                      Support::RawPoint(3, 1.0, 2.0);
    device.setData(raw.Data());
    ASSERT_TRUE(device.open(QIODevice::ReadOnly));
    QDataStream stream(&device);
    stream.setVersion(QDataStream::Qt_4_6);
    Area area;
    area.SetValidate(false);
    area.SetLogger(std::make_shared<TakingDevice>(stream));
    area.SetVersionSpecificBinaryWithoutValidation(stream);
    const auto& points = std::as_const(area).GetCoordinate();
    ASSERT_EQ(points.size(), 2);
    EXPECT_EQ(points.at(0).GetLongitude(), 5.0);
    EXPECT_FALSE(points.at(1).AnyData());
}

} // namespace
