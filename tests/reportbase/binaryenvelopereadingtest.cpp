// How any object is read from either representation, also from a damaged one.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/journal.h"
#include "support/plainobject.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/smallobject.h"

#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstddef>
#include <memory>
#include <string>

namespace {

using REPORTGENERATOR::Frequency;
using Support::Body;
using Support::BodyOfLength;
using Support::ByteArray;
using Support::ByteArrayOf;
using Support::Bytes;
using Support::CompressedRepresentation;
using Support::Element;
using Support::ElementOfLength;
using Support::Int32;
using Support::JournalLogger;
using Support::JournalObject;
using Support::Lines;
using Support::Max;
using Support::Min;
using Support::NewLogger;
using Support::NullByteArray;
using Support::NullString;
using Support::PlainObject;
using Support::Raw;
using Support::Read;
using Support::Representation;
using Support::RepresentationOfLength;
using Support::SampleFrequency;
using Support::SmallObject;
using Support::SmallSample;
using Support::Stored;
using Support::String;
using Support::TAG_COUNT;
using Support::Text;
using Support::Value;
namespace Tag = Support::Tag;

constexpr const char* FREQUENCY_LENGTH_ERROR =
    "Frequency::SetBinary(...): Length error occurred during processing of binary representation";

/// Takes any length without reading.
class LengthObject : public PlainObject
{
public:
    void SetBinary(QDataStream&, int length) override { lastLength = length; }
};

} // namespace

// --- Reading -----------------------------------------------------------------------------------------------

TEST(BinaryEnvelope, ReadingTracesItsSourceAndDoesNotResetOrCheck)
{
    QStringList journal;
    JournalObject object(journal);
    object.hasBinary = true;
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    QByteArray bytes = Representation(u"AnyType", Raw("body")).Data();
    EXPECT_TRUE(object.SetBinaryRepresentation(bytes));
    EXPECT_EQ(journal,
              Lines({"INFO: AnyType: Loading binary representation (source: byte array).",
                     "INFO: AnyType: Loading binary representation (source: data stream).", "SetBinary"}));
    EXPECT_BYTES(object.body, QByteArray("body"));

    journal.clear();
    QDataStream stream(bytes);
    EXPECT_TRUE(object.SetBinaryRepresentation(stream));
    EXPECT_EQ(journal,
              Lines({"INFO: AnyType: Loading binary representation (source: data stream).", "SetBinary"}));
}

TEST(BinaryEnvelope, ReadingLeavesTheCallersBytesAlone)
{
    const SmallSample sample;
    const QByteArray original = Representation(u"AnyType", sample.elements).Data();
    QByteArray bytes = original;
    SmallObject read;
    EXPECT_TRUE(read.SetBinaryRepresentation(bytes));
    EXPECT_BYTES(bytes, original);
}

TEST(BinaryEnvelope, NameInTheDataIsNotCompared)
{
    const SmallSample sample;
    for (const Bytes& name : {String(u"Other"), String(u""), NullString()}) {
        SmallObject plain;
        EXPECT_TRUE(Read(plain, String(u"IRGObject") + name + Int32(1) + Body(sample.elements)));
        EXPECT_EQ(plain.count, 5);
        EXPECT_TEXT(plain.GetObjectName(), "AnyType");

        SmallObject compressed;
        EXPECT_TRUE(Read(compressed, String(u"IRGObjectQCompress") + name +
                                         ByteArrayOf(Stored(Int32(1) + Body(sample.elements)))));
        EXPECT_EQ(compressed.count, 5);
        EXPECT_TEXT(compressed.GetObjectName(), "AnyType");
    }
}

TEST(BinaryEnvelope, NameOfOddSizeIsCorruptSoThatNoElementIsReadBehindIt)
{
    for (const int size : {1, 3, 45}) {
        SCOPED_TRACE(size);
        const Bytes root = Int32(1) + Body(Value("5.00"));
        Frequency plain;
        EXPECT_RG_THROW(Read(plain, String(u"IRGObject") + Int32(size) + root), "BinaryParsingException",
                        FREQUENCY_LENGTH_ERROR);
        EXPECT_FALSE(plain.AnyData());

        // Compressed elements are on a stream of their own.
        Frequency compressed;
        EXPECT_TRUE(
            Read(compressed, String(u"IRGObjectQCompress") + Int32(size) + ByteArrayOf(Stored(root))));
        EXPECT_EQ(compressed.GetValue(), 5.0);

        // The bytes that the size speaks of are the root tag already.
        Frequency shifted;
        EXPECT_RG_THROW(Read(shifted, String(u"IRGObject") + Int32(size) +
                                          Raw(std::string(static_cast<std::size_t>(size), 'n')) + root),
                        "BinaryParsingException", FREQUENCY_LENGTH_ERROR);
    }
}

TEST(BinaryEnvelope, RootTagIsNotLookedAt)
{
    const SmallSample sample;
    for (const long long tag : {0LL, 2LL, -1LL, 0x7FFFFFFFLL}) {
        SmallObject plain;
        EXPECT_TRUE(
            Read(plain, String(u"IRGObject") + String(u"AnyType") + Int32(tag) + Body(sample.elements)));
        EXPECT_EQ(plain.count, 5);
    }
}

TEST(BinaryEnvelope, UnknownMarkerGivesFalseAndLeavesTheObjectUntouched)
{
    const Bytes rest = String(u"AnyType") + Int32(1) + Body(Element(TAG_COUNT, Int32(6)));
    struct Row
    {
        const char* name;
        Bytes bytes;
    };
    const Row rows[] = {
        {"nothing", Bytes()},
        {"one byte", Raw("x")},
        {"size only", Int32(18)},
        {"other word", String(u"QObject") + rest},
        {"other case", String(u"irgobject") + rest},
        {"longer", String(u"IRGObject2") + rest},
        {"shorter", String(u"IRGObjec") + rest},
        {"blank behind", String(u"IRGObject ") + rest},
        {"compressed in other case", String(u"IRGObjectQcompress") + rest},
        {"empty", String(u"") + rest},
        {"null", NullString() + rest},
        {"odd size", Int32(17) + Raw(std::string(17, '\0')) + rest},
        {"size greater than what follows", Int32(0x7ffffffe) + Raw("\0I\0R\0G")},
        {"negative size", Int32(-2) + Raw("\0I\0R\0G")},
        {"XML", Raw("<AnyType/>")},
        {"Latin-1 instead of UTF-16", ByteArray("IRGObject") + rest},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        for (const bool validate : {true, false}) {
            const auto logger = NewLogger();
            SmallSample sample;
            sample.object.SetLogger(logger);
            sample.object.SetValidate(validate);
            EXPECT_FALSE(Read(sample.object, row.bytes));
            EXPECT_EQ(sample.object.calls.setBinary, 0);
            EXPECT_EQ(sample.object.calls.reset, 0);
            EXPECT_EQ(sample.object.count, 5);
            EXPECT_TEXT(sample.object.label, "Zoo");
            EXPECT_LOG(logger, {"INFO: AnyType: Loading binary representation (source: byte array).",
                                "INFO: AnyType: Loading binary representation (source: data stream)."});
        }
    }
}

TEST(BinaryEnvelope, RepresentationCutOffBehindTheMarkerHasLengthZero)
{
    const Bytes frame = String(u"IRGObject") + String(u"AnyType");
    for (const Bytes& bytes :
         {String(u"IRGObject"), String(u"IRGObject") + Int32(0x7ffffffe), frame, frame + Raw("\x01\x02"),
          frame + Int32(1), frame + Int32(1) + Raw("\x01\x02\x03")}) {
        SCOPED_TRACE(bytes.Annotated());
        SmallSample sample;
        EXPECT_TRUE(Read(sample.object, bytes));
        EXPECT_EQ(sample.object.calls.setBinary, 1);
        EXPECT_EQ(sample.object.lastLength, 0);
    }
}

TEST(BinaryEnvelope, RootLengthIsHandedOverWhateverItIs)
{
    for (const int length : {-1, 0, 5, 0x7fffffff, static_cast<int>(-0x7fffffff - 1)}) {
        LengthObject object;
        EXPECT_TRUE(Read(object, RepresentationOfLength(u"AnyType", length, Bytes())));
        EXPECT_EQ(object.lastLength, length);
    }
}

TEST(BinaryEnvelope, UnknownElementIsSkippedByItsLength)
{
    const Bytes known = Value("2.00");
    const Bytes unknown = Element(Tag::UNKNOWN, Raw("any content at all"));
    for (const Bytes& elements : {unknown + known, known + unknown, Element(Tag::UNKNOWN, Bytes()) + known,
                                  unknown + unknown + known, Element(Tag::UNKNOWN, known) + known}) {
        Frequency frequency;
        EXPECT_TRUE(Read(frequency, Representation(u"Frequency", elements)));
        EXPECT_TRUE(frequency.IsValueSet());
        EXPECT_EQ(frequency.GetValue(), 2.0);
        EXPECT_FALSE(frequency.IsMinSet());
    }
}

TEST(BinaryEnvelope, LengthThatDoesNotComeOutIsReportedAndTheObjectHoldsWhatWasRead)
{
    const Bytes elements = Min("1.50") + Value("2.00");
    struct Row
    {
        const char* name;
        Bytes bytes;
    };
    const Row rows[] = {
        {"4 too long", RepresentationOfLength(u"Frequency", elements.Size() + 4, elements)},
        {"1 too long", RepresentationOfLength(u"Frequency", elements.Size() + 1, elements)},
        {"4 too short", RepresentationOfLength(u"Frequency", elements.Size() - 4, elements)},
        {"1 too short", RepresentationOfLength(u"Frequency", elements.Size() - 1, elements)},
        {"much too long", RepresentationOfLength(u"Frequency", 0x7fffffff, elements)},
        {"overrunning unknown element",
         Representation(u"Frequency", elements + ElementOfLength(Tag::UNKNOWN, 100, Raw("x")))},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        for (const bool validate : {true, false}) {
            const auto logger = NewLogger();
            Frequency frequency;
            frequency.SetLogger(logger);
            frequency.SetValidate(validate);
            EXPECT_RG_THROW(Read(frequency, row.bytes), "BinaryParsingException", FREQUENCY_LENGTH_ERROR);
            EXPECT_TRUE(frequency.IsMinSet());
            EXPECT_EQ(frequency.GetMin(), 1.5);
            EXPECT_EQ(frequency.GetValue(), 2.0);
            EXPECT_LOG(
                logger,
                QStringList({Text("INFO: Frequency: Loading binary representation (source: byte array)."),
                             Text("INFO: Frequency: Loading binary representation (source: data stream)."),
                             Text("FATAL ERROR: BinaryParsingException: ") + Text(FREQUENCY_LENGTH_ERROR)}));
        }
        Frequency withoutLogger;
        EXPECT_RG_THROW(Read(withoutLogger, row.bytes), "BinaryParsingException", FREQUENCY_LENGTH_ERROR);
    }
}

TEST(BinaryEnvelope, NegativeRootLengthIsReported)
{
    for (const int length : {-1, -8, static_cast<int>(-0x7fffffff - 1)}) {
        Frequency frequency;
        EXPECT_RG_THROW(Read(frequency, RepresentationOfLength(u"Frequency", length, Value("2.00"))),
                        "BinaryParsingException", FREQUENCY_LENGTH_ERROR);
        EXPECT_FALSE(frequency.IsValueSet());
    }
}

TEST(BinaryEnvelope, ReadingIntoAUsedObjectGivesWhatWasWrittenAndNothingElse)
{
    Frequency frequency = SampleFrequency();
    frequency.SetMax(9.0);
    EXPECT_TRUE(Read(frequency, Representation(u"Frequency", Value("2.00"))));
    EXPECT_EQ(frequency.GetValue(), 2.0);
    EXPECT_FALSE(frequency.IsMinSet());
    EXPECT_FALSE(frequency.IsMaxSet());
    EXPECT_FALSE(frequency.IsUseSet());
}

// --- Damaged compressed data -------------------------------------------------------------------------------

namespace {

/// Compressed data with another length prefix.
Bytes WithPrefix(long long prefix, const Bytes& content)
{
    const QByteArray stored = Stored(content).Data();
    return Int32(prefix) + Raw(stored.mid(4).toStdString());
}

Bytes CompressedFrame(const Bytes& data)
{
    return String(u"IRGObjectQCompress") + String(u"AnyType") + data;
}

} // namespace

TEST(BinaryEnvelope, DamagedCompressedDataReadAsAnEmptyBody)
{
    const SmallSample content;
    const Bytes good = Stored(Int32(1) + Body(content.elements));
    const std::string goodBytes = good.Data().toStdString();
    std::string flipped = goodBytes;
    flipped[flipped.size() - 1] = static_cast<char>(flipped.back() ^ 1);
    std::string badHeader = goodBytes;
    badHeader[4] = 'y';

    struct Row
    {
        const char* name;
        Bytes data;
    };
    const Row rows[] = {
        {"no data", Bytes()},
        {"size cut off", Raw("\x01\x02")},
        {"null", NullByteArray()},
        {"empty", ByteArray("")},
        {"three bytes", ByteArray("abc")},
        {"prefix only", ByteArrayOf(Int32(35))},
        {"prefix of nothing", ByteArrayOf(Int32(0))},
        {"no zlib data", ByteArrayOf(Int32(35) + Raw("no zlib data at all"))},
        {"wrong header", ByteArrayOf(Raw(badHeader))},
        {"wrong checksum", ByteArrayOf(Raw(flipped))},
        {"cut off", ByteArrayOf(Raw(goodBytes.substr(0, goodBytes.size() - 6)))},
        {"size greater than what follows", Int32(0x7fffffff) + Raw(goodBytes)},
        {"size 1 greater than what follows", Int32(good.Size() + 1) + Raw(goodBytes)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        for (const bool validate : {true, false}) {
            const auto logger = NewLogger();
            SmallSample sample;
            sample.object.SetLogger(logger);
            sample.object.SetValidate(validate);
            EXPECT_TRUE(Read(sample.object, CompressedFrame(row.data)));
            EXPECT_EQ(sample.object.calls.setBinary, 1);
            EXPECT_EQ(sample.object.lastLength, 0);
            EXPECT_EQ(sample.object.count, 0);
            EXPECT_LOG(logger, {"INFO: AnyType: Loading binary representation (source: byte array).",
                                "INFO: AnyType: Loading binary representation (source: data stream)."});
        }
    }
}

TEST(BinaryEnvelope, LengthPrefixOfCompressedDataNeedNotBeTrue)
{
    const SmallSample content;
    const Bytes body = Int32(1) + Body(content.elements);
    for (const long long prefix : {0LL, 1LL, 34LL, 36LL, 1000LL, 1000000LL, 0x10000000LL}) {
        SCOPED_TRACE(prefix);
        SmallObject read;
        EXPECT_TRUE(Read(read, CompressedFrame(ByteArrayOf(WithPrefix(prefix, body)))));
        EXPECT_EQ(read.lastLength, 27);
        EXPECT_EQ(read.count, 5);
        EXPECT_TEXT(read.label, "Zoo");
    }
}

TEST(BinaryEnvelope, AbsurdLengthPrefixOfCompressedDataGivesTheBodyOrNothing)
{
    // Which of the two is left to Qt; memory of that size must not be asked for in either case.
    const SmallSample content;
    const Bytes body = Int32(1) + Body(content.elements);
    for (const long long prefix : {0x7fffffffLL, 0x80000000LL, 0xfffffff0LL, 0xffffffffLL}) {
        SCOPED_TRACE(prefix);
        SmallObject read;
        EXPECT_TRUE(Read(read, CompressedFrame(ByteArrayOf(WithPrefix(prefix, body)))));
        if (read.lastLength != 0) {
            EXPECT_EQ(read.lastLength, 27);
            EXPECT_EQ(read.count, 5);
        } else {
            EXPECT_EQ(read.count, 0);
        }
    }
}

TEST(BinaryEnvelope, LengthInsideCompressedDataIsReportedWhenItDoesNotComeOut)
{
    const Bytes elements = Value("2.00");
    for (const int difference : {-4, -1, 1, 4}) {
        SCOPED_TRACE(difference);
        Frequency frequency;
        EXPECT_RG_THROW(
            Read(frequency, CompressedFrame(ByteArrayOf(
                                Stored(Int32(1) + BodyOfLength(elements.Size() + difference, elements))))),
            "BinaryParsingException", FREQUENCY_LENGTH_ERROR);
        EXPECT_EQ(frequency.GetValue(), 2.0);
    }
}

TEST(BinaryEnvelope, EveryTruncationOfARepresentationIsSurvived)
{
    const Bytes elements = Min("1.50") + Max("9.50") + Element(Tag::UNKNOWN, Raw("rest")) + Value("2.00");
    for (const Bytes& whole :
         {Representation(u"Frequency", elements), CompressedRepresentation(u"Frequency", elements)}) {
        const QByteArray bytes = whole.Data();
        for (int length = 0; length < bytes.size(); ++length) {
            QByteArray part = bytes.left(length);
            Frequency frequency;
            try {
                frequency.SetBinaryRepresentation(part);
            } catch (const RGException& exception) {
                EXPECT_ERROR(exception, "BinaryParsingException", FREQUENCY_LENGTH_ERROR);
            }
            EXPECT_FALSE(frequency.IsValueSet() && frequency.GetValue() == 2.0) << length;
        }
    }
}

// --- Skipping ----------------------------------------------------------------------------------------------

TEST(BinaryEnvelope, SkippingReturnsHowManyBytesWereSkipped)
{
    struct Row
    {
        const char* name;
        int length;
        int result;
        int position;
    };
    const Row rows[] = {
        {"none", 0, 0, 2},
        {"some", 3, 3, 5},
        {"all that is left", 6, 6, 8},
        {"one more than is left", 7, 6, 8},
        {"much more than is left", 0x7fffffff, 6, 8},
        {"backwards", -1, -1, 2},
        {"far backwards", static_cast<int>(-0x7fffffff - 1), -1, 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        for (const int unused : {0, -1, 0x7fffffff}) {
            const PlainObject object;
            QByteArray bytes("01234567");
            QBuffer buffer(&bytes);
            ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
            ASSERT_TRUE(buffer.seek(2));
            QDataStream stream(&buffer);
            EXPECT_EQ(object.skipCurrentElement(stream, row.length, unused), row.result);
            EXPECT_EQ(buffer.pos(), row.position);
        }
    }
}

TEST(BinaryEnvelope, SkippingWithoutADeviceFails)
{
    const PlainObject object;
    QDataStream stream;
    EXPECT_EQ(object.skipCurrentElement(stream, 3, 0), -1);
}

TEST(BinaryEnvelope, SkippingTracesNothing)
{
    const auto logger = NewLogger();
    const PlainObject object;
    object.SetLogger(logger);
    QByteArray bytes("0123");
    QDataStream stream(bytes);
    object.skipCurrentElement(stream, 100, 0);
    EXPECT_LOG(logger, {});
}
