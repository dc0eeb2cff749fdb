#include "support/bytes.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/journal.h"
#include "support/pipe.h"
#include "support/plainobject.h"

#include <reportgenerator/reportbase/binaryparsingexception.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/irgobject.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <memory>
#include <string>

namespace {

using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IRGObject;
using Support::BinaryFile;
using Support::Body;
using Support::BodyOfLength;
using Support::Bool;
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
using Support::NewLogger;
using Support::NullByteArray;
using Support::NullString;
using Support::PlainObject;
using Support::Raw;
using Support::Representation;
using Support::RepresentationOfLength;
using Support::Stored;
using Support::String;
using Support::TemporaryFolder;
using Support::Text;

constexpr int STREAM_VERSION = 12;
constexpr int ROOT_TAG = 1;

// The elements of a Frequency.
constexpr long long TAG_MIN = 0x4ECB4E58;
constexpr long long TAG_MAX = 0x6E8DD7F5;
constexpr long long TAG_USE = 0xAA39C731;
constexpr long long TAG_VALUE = 0x8AFF57B3;
constexpr long long TAG_UNKNOWN = 0x12345678;

constexpr const char* FREQUENCY_LENGTH_ERROR =
    "Frequency::SetBinary(...): Length error occurred during processing of binary representation";

// The elements of a small object of these tests.
constexpr int TAG_COUNT = 7;
constexpr int TAG_LABEL = -2;

/// An object with a binary form as simple as the frame allows: a number and a text.
class SmallObject : public PlainObject
{
public:
    bool GetBinary(QDataStream& stream, int tag, bool withTag) const override
    {
        ++calls.getBinary;
        lastTag = tag;
        lastWithTag = withTag;
        if (withTag)
            stream << static_cast<qint32>(tag);
        const QByteArray labelBytes = label.toUtf8();
        const auto labelLength = static_cast<qint32>(4 + labelBytes.size());
        stream << static_cast<qint32>(12 + 8 + labelLength);
        stream << static_cast<qint32>(TAG_COUNT) << static_cast<qint32>(4) << static_cast<qint32>(count);
        stream << static_cast<qint32>(TAG_LABEL) << labelLength << labelBytes;
        return true;
    }

    void SetBinary(QDataStream& stream, int length) override
    {
        ++calls.setBinary;
        lastLength = length;
        count = 0;
        label.clear();
        int remaining = length;
        while (remaining > 0 && !stream.atEnd()) {
            qint32 tag = 0;
            qint32 elementLength = 0;
            stream >> tag >> elementLength;
            remaining -= 8 + elementLength;
            ReadElement(stream, tag, elementLength);
        }
        if (remaining != 0) {
            BinaryParsingException exception(Text("lengths differ"));
            TraceOrThrow(REPORTGENERATOR::ERROR, exception, true, true);
        }
    }

    void Reset() override
    {
        PlainObject::Reset();
        count = 0;
        label.clear();
    }

    int count = 0;
    QString label;

private:
    void ReadElement(QDataStream& stream, qint32 tag, qint32 length)
    {
        if (tag == TAG_COUNT) {
            qint32 number = 0;
            stream >> number;
            count = number;
        } else if (tag == TAG_LABEL) {
            QByteArray bytes;
            stream >> bytes;
            label = QString::fromUtf8(bytes);
        } else {
            skipCurrentElement(stream, length, tag);
        }
    }
};

/// An object without data: writes no body and says so.
class BodilessObject : public PlainObject
{
public:
    bool GetBinary(QDataStream&, int, bool) const override
    {
        ++calls.getBinary;
        return false;
    }
};

/// Notes the version of the stream that it is handed.
class VersionNotingObject : public PlainObject
{
public:
    bool GetBinary(QDataStream& stream, int, bool) const override
    {
        m_version = stream.version();
        return true;
    }
    void SetBinary(QDataStream& stream, int) override { m_version = stream.version(); }

    int TakeVersion()
    {
        const int version = m_version;
        m_version = 0;
        return version;
    }

private:
    mutable int m_version = 0;
};

/// Takes any length without reading.
class LengthObject : public PlainObject
{
public:
    void SetBinary(QDataStream&, int length) override { lastLength = length; }
};

/// An object with its elements, its form composed by hand.
struct SmallSample
{
    SmallSample()
    {
        object.count = 5;
        object.label = Text("Zoo");
    }

    SmallObject object;
    Bytes elements = Element(TAG_COUNT, Int32(5)) + Element(TAG_LABEL, ByteArray("Zoo"));
};

bool Read(IRGObject& object, const Bytes& representation)
{
    QByteArray bytes = representation.Data();
    return object.SetBinaryRepresentation(bytes);
}

/// The data within a compressed representation of an object of this name; empty when the frame is wrong.
QByteArray CompressedData(const QByteArray& representation, std::u16string_view name)
{
    const QByteArray frame = (String(u"IRGObjectQCompress") + String(name)).Data();
    const int dataStart = static_cast<int>(frame.size()) + 4;
    const QByteArray data = representation.mid(dataStart);
    const QByteArray size = Int32(static_cast<int>(data.size())).Data();
    EXPECT_BYTES(representation.left(dataStart), frame + size);
    return representation.left(dataStart) == frame + size ? data : QByteArray();
}

} // namespace

// --- Plain representation ----------------------------------------------------------------------------------

TEST(BinaryFrame, PlainRepresentationIsMarkerNameRootTagLengthAndElements)
{
    const SmallSample sample;
    EXPECT_BYTES(sample.object.GetBinaryRepresentationAsQByteArray(),
                 Representation(u"AnyType", sample.elements));

    // The same, byte by byte.
    const char expected[] = "\0\0\0\x12"
                            "\0I\0R\0G\0O\0b\0j\0e\0c\0t"
                            "\0\0\0\x0e"
                            "\0A\0n\0y\0T\0y\0p\0e"
                            "\0\0\0\x01"
                            "\0\0\0\x1b"
                            "\0\0\0\x07\0\0\0\x04\0\0\0\x05"
                            "\xff\xff\xff\xfe\0\0\0\x07\0\0\0\x03Zoo";
    EXPECT_BYTES(sample.object.GetBinaryRepresentationAsQByteArray(),
                 QByteArray(expected, static_cast<int>(sizeof expected - 1)));
}

TEST(BinaryFrame, PlainRepresentationAsksForTheBodyWithRootTagOne)
{
    const SmallSample sample;
    sample.object.GetBinaryRepresentationAsQByteArray();
    EXPECT_EQ(sample.object.calls.getBinary, 1);
    EXPECT_EQ(sample.object.lastTag, ROOT_TAG);
    EXPECT_TRUE(sample.object.lastWithTag);
}

TEST(BinaryFrame, RepresentationsCarryTheCurrentNameOfTheObject)
{
    SmallSample sample;
    sample.object.SetObjectName(Text("Höhe"));
    EXPECT_BYTES(sample.object.GetBinaryRepresentationAsQByteArray(),
                 Representation(u"Höhe", sample.elements));
    EXPECT_FALSE(
        CompressedData(sample.object.GetCompressedBinaryRepresentationAsQByteArray(-1), u"Höhe").isEmpty());
}

TEST(BinaryFrame, WritingThePlainRepresentationTracesThenChecksThenWrites)
{
    QStringList journal;
    JournalObject object(journal);
    object.hasBinary = true;
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    object.GetBinaryRepresentationAsQByteArray();
    EXPECT_EQ(journal, Lines({"INFO: AnyType: Generating binary representation (target: byte array).",
                              "INFO: AnyType: Generating binary representation (target: data stream).",
                              "Check", "GetBinary"}));

    journal.clear();
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    object.GetBinaryRepresentation(stream);
    EXPECT_EQ(journal, Lines({"INFO: AnyType: Generating binary representation (target: data stream).",
                              "Check", "GetBinary"}));
}

TEST(BinaryFrame, WritingTheCompressedRepresentationTracesThenChecksThenWrites)
{
    QStringList journal;
    JournalObject object(journal);
    object.hasBinary = true;
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    object.GetCompressedBinaryRepresentationAsQByteArray(-1);
    EXPECT_EQ(journal,
              Lines({"INFO: AnyType: Generating compressed binary representation (target: byte array).",
                     "INFO: AnyType: Generating compressed binary representation (target: data stream).",
                     "Check", "GetBinary"}));

    journal.clear();
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    object.GetCompressedBinaryRepresentation(stream, 9);
    EXPECT_EQ(journal,
              Lines({"INFO: AnyType: Generating compressed binary representation (target: data stream).",
                     "Check", "GetBinary"}));
}

TEST(BinaryFrame, WritingDoesNotCheckWhenNotValidating)
{
    SmallSample sample;
    sample.object.problem = Text("never asked");
    sample.object.SetValidate(false);
    EXPECT_BYTES(sample.object.GetBinaryRepresentationAsQByteArray(),
                 Representation(u"AnyType", sample.elements));
    sample.object.GetCompressedBinaryRepresentationAsQByteArray(-1);
    EXPECT_EQ(sample.object.calls.check, 0);
    EXPECT_EQ(sample.object.calls.getBinary, 2);
}

TEST(BinaryFrame, IncompleteObjectThrowsAndWritesNothing)
{
    const auto logger = NewLogger();
    SmallSample sample;
    sample.object.problem = Text("incomplete");
    sample.object.SetLogger(logger);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);

    EXPECT_RG_THROW(sample.object.GetBinaryRepresentation(stream), "RGException", "incomplete");
    EXPECT_RG_THROW(sample.object.GetCompressedBinaryRepresentation(stream, -1), "RGException", "incomplete");
    EXPECT_RG_THROW(sample.object.GetBinaryRepresentationAsQByteArray(), "RGException", "incomplete");
    EXPECT_RG_THROW(sample.object.GetCompressedBinaryRepresentationAsQByteArray(0), "RGException",
                    "incomplete");
    EXPECT_BYTES(bytes, QByteArray());
    EXPECT_EQ(sample.object.calls.getBinary, 0);
    const char* failure = "FATAL ERROR: RGException: incomplete";
    EXPECT_LOG(logger, {"INFO: AnyType: Generating binary representation (target: data stream).", failure,
                        "INFO: AnyType: Generating compressed binary representation (target: data stream).",
                        failure, "INFO: AnyType: Generating binary representation (target: byte array).",
                        "INFO: AnyType: Generating binary representation (target: data stream).", failure,
                        "INFO: AnyType: Generating compressed binary representation (target: byte array).",
                        "INFO: AnyType: Generating compressed binary representation (target: data stream).",
                        failure});
}

// --- Compressed representation -----------------------------------------------------------------------------

TEST(BinaryFrame, CompressedRepresentationIsMarkerNameAndTheCompressedBody)
{
    const SmallSample sample;
    const QByteArray body = (Int32(ROOT_TAG) + Body(sample.elements)).Data();
    for (int level = -1; level <= 9; ++level) {
        SCOPED_TRACE(level);
        const QByteArray representation = sample.object.GetCompressedBinaryRepresentationAsQByteArray(level);
        const QByteArray data = CompressedData(representation, u"AnyType");
        EXPECT_BYTES(data.left(4), Int32(static_cast<int>(body.size())));
        EXPECT_BYTES(qUncompress(data), body);
        EXPECT_BYTES(data, qCompress(body, level));
        EXPECT_EQ(sample.object.lastTag, ROOT_TAG);
        EXPECT_TRUE(sample.object.lastWithTag);
    }
}

TEST(BinaryFrame, CompressionLevelReachesZlib)
{
    SmallObject object;
    object.label = QString(10000, QLatin1Char('x'));
    const auto stored = object.GetCompressedBinaryRepresentationAsQByteArray(0).size();
    const auto packed = object.GetCompressedBinaryRepresentationAsQByteArray(9).size();
    EXPECT_GT(stored, 10000);
    EXPECT_LT(packed, 1000);
}

TEST(BinaryFrame, CompressedRepresentationIsReadBack)
{
    const SmallSample sample;
    for (int level = -1; level <= 9; ++level) {
        SCOPED_TRACE(level);
        QByteArray bytes = sample.object.GetCompressedBinaryRepresentationAsQByteArray(level);
        SmallObject read;
        EXPECT_TRUE(read.SetBinaryRepresentation(bytes));
        EXPECT_EQ(read.count, 5);
        EXPECT_TEXT(read.label, "Zoo");
        EXPECT_EQ(read.lastLength, 27);
    }
}

// --- Objects without a binary form -------------------------------------------------------------------------

TEST(BinaryFrame, ObjectWithoutBinaryFormRefusesToWriteWhenValidating)
{
    const auto logger = NewLogger();
    const PlainObject object(REPORTGENERATOR::NameToObjectTypes(Text("Task")));
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    EXPECT_RG_THROW(object.GetBinary(stream, 1, true), "RGException",
                    "GetBinary is not implemented for object of type 42.");
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.GetBinary(stream, 1, false), "RGException",
                    "GetBinary is not implemented for object of type 42.");
    EXPECT_LOG(logger, {"FATAL ERROR: RGException: GetBinary is not implemented for object of type 42."});
    EXPECT_BYTES(bytes, QByteArray());
}

TEST(BinaryFrame, ObjectWithoutBinaryFormRefusesToReadWhenValidating)
{
    const auto logger = NewLogger();
    PlainObject object(static_cast<REPORTGENERATOR::ObjectTypes>(-7));
    QByteArray bytes(8, 'x');
    QDataStream stream(bytes);
    EXPECT_RG_THROW(object.SetBinary(stream, 8), "RGException",
                    "SetBinary is not implemented for object of type -7.");
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.SetBinary(stream, 0), "RGException",
                    "SetBinary is not implemented for object of type -7.");
    EXPECT_LOG(logger, {"FATAL ERROR: RGException: SetBinary is not implemented for object of type -7."});
    EXPECT_EQ(stream.device()->pos(), 0);
}

TEST(BinaryFrame, ObjectWithoutBinaryFormDoesNothingWhenNotValidating)
{
    const auto logger = NewLogger();
    PlainObject object;
    object.SetLogger(logger);
    object.SetValidate(false);
    QByteArray written;
    QDataStream out(&written, QIODevice::WriteOnly);
    EXPECT_TRUE(object.GetBinary(out, 1, true));
    EXPECT_BYTES(written, QByteArray());

    QByteArray bytes(8, 'x');
    QDataStream in(bytes);
    EXPECT_NO_RG_THROW(object.SetBinary(in, 8));
    EXPECT_EQ(in.device()->pos(), 0);
    EXPECT_LOG(logger, {});
}

TEST(BinaryFrame, RepresentationOfAnObjectWithoutBinaryFormEndsAfterTheName)
{
    PlainObject object;
    const Bytes frame = String(u"IRGObject") + String(u"AnyType");

    // When validating, the refusal comes after marker and name have gone to the stream.
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    EXPECT_RG_THROW(object.GetBinaryRepresentation(stream), "RGException",
                    "GetBinary is not implemented for object of type 80.");
    EXPECT_BYTES(bytes, frame);
    QByteArray compressedBytes;
    QDataStream compressed(&compressedBytes, QIODevice::WriteOnly);
    EXPECT_RG_THROW(object.GetCompressedBinaryRepresentation(compressed, -1), "RGException",
                    "GetBinary is not implemented for object of type 80.");
    EXPECT_BYTES(compressedBytes, QByteArray());

    object.SetValidate(false);
    EXPECT_BYTES(object.GetBinaryRepresentationAsQByteArray(), frame);
    const QByteArray data =
        CompressedData(object.GetCompressedBinaryRepresentationAsQByteArray(-1), u"AnyType");
    EXPECT_BYTES(data, qCompress(QByteArray(), -1));
    EXPECT_BYTES(qUncompress(data), QByteArray());
}

TEST(BinaryFrame, ObjectThatWritesNoBodyLeavesMarkerAndName)
{
    // What GetBinary returns is not asked.
    const BodilessObject object;
    EXPECT_BYTES(object.GetBinaryRepresentationAsQByteArray(), String(u"IRGObject") + String(u"AnyType"));
    const QByteArray data =
        CompressedData(object.GetCompressedBinaryRepresentationAsQByteArray(-1), u"AnyType");
    EXPECT_BYTES(qUncompress(data), QByteArray());
    EXPECT_EQ(object.calls.getBinary, 2);
}

TEST(BinaryFrame, ReadingIntoAnObjectWithoutBinaryFormIsRefusedWhenValidating)
{
    const auto logger = NewLogger();
    PlainObject object;
    object.SetLogger(logger);
    const Bytes input = Representation(u"AnyType", Element(1, ByteArray("x")));
    EXPECT_RG_THROW(Read(object, input), "RGException",
                    "SetBinary is not implemented for object of type 80.");
    EXPECT_LOG(logger, {"INFO: AnyType: Loading binary representation (source: byte array).",
                        "INFO: AnyType: Loading binary representation (source: data stream).",
                        "FATAL ERROR: RGException: SetBinary is not implemented for object of type 80."});
    object.SetValidate(false);
    EXPECT_TRUE(Read(object, input));
}

// --- Devices and streams -----------------------------------------------------------------------------------

namespace {

Frequency SampleFrequency()
{
    Frequency frequency;
    frequency.SetValue(121500000.0);
    frequency.SetMin(1.5);
    frequency.SetUse(false);
    return frequency;
}

Bytes SampleFrequencyElements()
{
    return Element(TAG_MIN, ByteArray("1.50")) + Element(TAG_USE, Bool(false)) +
           Element(TAG_VALUE, ByteArray("121500000.00"));
}

/// What `write` puts on a device behind three bytes and in front of one more.
void ExpectBetweenOtherBytes(QIODevice& device, const std::function<void(QDataStream&)>& write,
                             const QByteArray& expected)
{
    ASSERT_TRUE(device.open(QIODevice::ReadWrite));
    QDataStream stream(&device);
    stream.writeRawData("abc", 3);
    write(stream);
    EXPECT_EQ(device.pos(), 3 + expected.size());
    stream.writeRawData("z", 1);
    EXPECT_EQ(stream.status(), QDataStream::Ok);
    ASSERT_TRUE(device.seek(0));
    EXPECT_BYTES(device.readAll(), QByteArray("abc") + expected + QByteArray("z"));
}

} // namespace

TEST(BinaryFrame, LengthsArePatchedAtAnyStartPositionOfABufferAndAFile)
{
    const Frequency frequency = SampleFrequency();
    const QByteArray expected = Representation(u"Frequency", SampleFrequencyElements()).Data();
    const auto write = [&](QDataStream& stream) { frequency.GetBinaryRepresentation(stream); };

    QBuffer buffer;
    ExpectBetweenOtherBytes(buffer, write, expected);

    const TemporaryFolder folder;
    QFile file(folder.Path("written.bin"));
    ExpectBetweenOtherBytes(file, write, expected);
}

TEST(BinaryFrame, BodyIsWrittenWithOrWithoutItsTagAtAnyStartPosition)
{
    const Frequency frequency = SampleFrequency();
    QBuffer withTag;
    ExpectBetweenOtherBytes(
        withTag, [&](QDataStream& stream) { EXPECT_TRUE(frequency.GetBinary(stream, -5, true)); },
        (Int32(-5) + Body(SampleFrequencyElements())).Data());
    QBuffer withoutTag;
    ExpectBetweenOtherBytes(
        withoutTag, [&](QDataStream& stream) { EXPECT_TRUE(frequency.GetBinary(stream, -5, false)); },
        Body(SampleFrequencyElements()).Data());
}

TEST(BinaryFrame, CompressedRepresentationIsWrittenAtAnyStartPosition)
{
    const Frequency frequency = SampleFrequency();
    const QByteArray body = (Int32(ROOT_TAG) + Body(SampleFrequencyElements())).Data();
    const QByteArray expected = (String(u"IRGObjectQCompress") + String(u"Frequency")).Data() +
                                Int32(static_cast<int>(qCompress(body, 6).size())).Data() +
                                qCompress(body, 6);
    QBuffer buffer;
    ExpectBetweenOtherBytes(
        buffer, [&](QDataStream& stream) { frequency.GetCompressedBinaryRepresentation(stream, 6); },
        expected);
}

TEST(BinaryFrame, WritingIntoTheMiddleOfExistingBytesReplacesOnlyWhatItCovers)
{
    const Frequency frequency = SampleFrequency();
    const QByteArray expected = Representation(u"Frequency", SampleFrequencyElements()).Data();
    QByteArray bytes(expected.size() + 20, '.');
    QBuffer buffer(&bytes);
    ASSERT_TRUE(buffer.open(QIODevice::ReadWrite));
    ASSERT_TRUE(buffer.seek(7));
    QDataStream stream(&buffer);
    frequency.GetBinaryRepresentation(stream);
    EXPECT_BYTES(bytes, QByteArray(7, '.') + expected + QByteArray(13, '.'));
}

TEST(BinaryFrame, EveryStreamIsSetToVersionTwelve)
{
    const SmallSample sample;
    const QByteArray expected = Representation(u"AnyType", sample.elements).Data();
    for (const int version : {1, 3, 13, 17}) {
        SCOPED_TRACE(version);
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setVersion(version);
        sample.object.GetBinaryRepresentation(out);
        EXPECT_EQ(out.version(), STREAM_VERSION);
        EXPECT_BYTES(bytes, expected);

        QByteArray compressedBytes;
        QDataStream compressed(&compressedBytes, QIODevice::WriteOnly);
        compressed.setVersion(version);
        sample.object.GetCompressedBinaryRepresentation(compressed, -1);
        EXPECT_EQ(compressed.version(), STREAM_VERSION);
        EXPECT_BYTES(compressedBytes, sample.object.GetCompressedBinaryRepresentationAsQByteArray(-1));

        for (const QByteArray& representation : {bytes, compressedBytes}) {
            QDataStream in(representation);
            in.setVersion(version);
            SmallObject read;
            EXPECT_TRUE(read.SetBinaryRepresentation(in));
            EXPECT_EQ(in.version(), STREAM_VERSION);
            EXPECT_EQ(read.count, 5);
            EXPECT_TEXT(read.label, "Zoo");
        }
    }
}

TEST(BinaryFrame, BodiesAreWrittenToAndReadFromStreamsOfVersionTwelve)
{
    VersionNotingObject object;
    QByteArray plain = object.GetBinaryRepresentationAsQByteArray();
    EXPECT_EQ(object.TakeVersion(), STREAM_VERSION);
    QByteArray compressed = object.GetCompressedBinaryRepresentationAsQByteArray(-1);
    EXPECT_EQ(object.TakeVersion(), STREAM_VERSION);
    EXPECT_TRUE(object.SetBinaryRepresentation(plain));
    EXPECT_EQ(object.TakeVersion(), STREAM_VERSION);
    EXPECT_TRUE(object.SetBinaryRepresentation(compressed));
    EXPECT_EQ(object.TakeVersion(), STREAM_VERSION);
}

TEST(BinaryFrame, RepresentationIsReadFromWhereTheStreamStandsUpToItsEnd)
{
    const SmallSample sample;
    for (const Bytes& representation : {Representation(u"AnyType", sample.elements),
                                        CompressedRepresentation(u"AnyType", sample.elements)}) {
        const QByteArray bytes = QByteArray("abc") + representation.Data() + QByteArray("xyz");
        QDataStream stream(bytes);
        ASSERT_EQ(stream.skipRawData(3), 3);
        SmallObject read;
        EXPECT_TRUE(read.SetBinaryRepresentation(stream));
        EXPECT_EQ(read.count, 5);
        EXPECT_TEXT(read.label, "Zoo");
        EXPECT_EQ(stream.device()->pos(), 3 + representation.Size());
    }
}

TEST(BinaryFrame, RepresentationsStandOneBehindTheOtherInAStream)
{
    QBuffer buffer;
    ASSERT_TRUE(buffer.open(QIODevice::ReadWrite));
    QDataStream stream(&buffer);
    SmallSample sample;
    sample.object.GetBinaryRepresentation(stream);
    sample.object.count = 6;
    sample.object.GetCompressedBinaryRepresentation(stream, 9);
    sample.object.count = 7;
    sample.object.GetBinaryRepresentation(stream);

    ASSERT_TRUE(buffer.seek(0));
    for (const int count : {5, 6, 7}) {
        SmallObject read;
        EXPECT_TRUE(read.SetBinaryRepresentation(stream));
        EXPECT_EQ(read.count, count);
    }
    EXPECT_TRUE(stream.atEnd());
}

// --- Reading -----------------------------------------------------------------------------------------------

TEST(BinaryFrame, ReadingTracesItsSourceAndDoesNotResetOrCheck)
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

TEST(BinaryFrame, ReadingLeavesTheCallersBytesAlone)
{
    const SmallSample sample;
    const QByteArray original = Representation(u"AnyType", sample.elements).Data();
    QByteArray bytes = original;
    SmallObject read;
    EXPECT_TRUE(read.SetBinaryRepresentation(bytes));
    EXPECT_BYTES(bytes, original);
}

TEST(BinaryFrame, NameInTheDataIsNotCompared)
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

TEST(BinaryFrame, RootTagIsNotLookedAt)
{
    const SmallSample sample;
    for (const long long tag : {0LL, 2LL, -1LL, 0x7FFFFFFFLL}) {
        SmallObject plain;
        EXPECT_TRUE(
            Read(plain, String(u"IRGObject") + String(u"AnyType") + Int32(tag) + Body(sample.elements)));
        EXPECT_EQ(plain.count, 5);
    }
}

TEST(BinaryFrame, UnknownMarkerGivesFalseAndLeavesTheObjectUntouched)
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

TEST(BinaryFrame, RepresentationCutOffBehindTheMarkerHasLengthZero)
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

TEST(BinaryFrame, RootLengthIsHandedOverWhateverItIs)
{
    for (const int length : {-1, 0, 5, 0x7fffffff, static_cast<int>(-0x7fffffff - 1)}) {
        LengthObject object;
        EXPECT_TRUE(Read(object, RepresentationOfLength(u"AnyType", length, Bytes())));
        EXPECT_EQ(object.lastLength, length);
    }
}

TEST(BinaryFrame, UnknownElementIsSkippedByItsLength)
{
    const Bytes known = Element(TAG_VALUE, ByteArray("2.00"));
    const Bytes unknown = Element(TAG_UNKNOWN, Raw("any content at all"));
    for (const Bytes& elements : {unknown + known, known + unknown, Element(TAG_UNKNOWN, Bytes()) + known,
                                  unknown + unknown + known, Element(TAG_UNKNOWN, known) + known}) {
        Frequency frequency;
        EXPECT_TRUE(Read(frequency, Representation(u"Frequency", elements)));
        EXPECT_TRUE(frequency.IsValueSet());
        EXPECT_EQ(frequency.GetValue(), 2.0);
        EXPECT_FALSE(frequency.IsMinSet());
    }
}

TEST(BinaryFrame, LengthThatDoesNotComeOutIsReportedAndTheObjectHoldsWhatWasRead)
{
    const Bytes elements = Element(TAG_MIN, ByteArray("1.50")) + Element(TAG_VALUE, ByteArray("2.00"));
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
         Representation(u"Frequency", elements + ElementOfLength(TAG_UNKNOWN, 100, Raw("x")))},
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

TEST(BinaryFrame, NegativeRootLengthIsReported)
{
    for (const int length : {-1, -8, static_cast<int>(-0x7fffffff - 1)}) {
        Frequency frequency;
        EXPECT_RG_THROW(Read(frequency, RepresentationOfLength(u"Frequency", length,
                                                               Element(TAG_VALUE, ByteArray("2.00")))),
                        "BinaryParsingException", FREQUENCY_LENGTH_ERROR);
        EXPECT_FALSE(frequency.IsValueSet());
    }
}

TEST(BinaryFrame, ReadingIntoAUsedObjectGivesWhatWasWrittenAndNothingElse)
{
    Frequency frequency = SampleFrequency();
    frequency.SetMax(9.0);
    EXPECT_TRUE(Read(frequency, Representation(u"Frequency", Element(TAG_VALUE, ByteArray("2.00")))));
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

TEST(BinaryFrame, DamagedCompressedDataReadAsAnEmptyBody)
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

TEST(BinaryFrame, LengthPrefixOfCompressedDataNeedNotBeTrue)
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

TEST(BinaryFrame, AbsurdLengthPrefixOfCompressedDataGivesTheBodyOrNothing)
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

TEST(BinaryFrame, LengthInsideCompressedDataIsReportedWhenItDoesNotComeOut)
{
    const Bytes elements = Element(TAG_VALUE, ByteArray("2.00"));
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

TEST(BinaryFrame, EveryTruncationOfARepresentationIsSurvived)
{
    const Bytes elements = Element(TAG_MIN, ByteArray("1.50")) + Element(TAG_MAX, ByteArray("9.50")) +
                           Element(TAG_UNKNOWN, Raw("rest")) + Element(TAG_VALUE, ByteArray("2.00"));
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

// --- Binary files ------------------------------------------------------------------------------------------

namespace {

/// A binary file that is open for reading.
class OpenBinaryFile
{
public:
    explicit OpenBinaryFile(const Bytes& content) : m_file(m_folder.Write("opened.bin", content.Data()))
    {
        EXPECT_TRUE(m_file.open(QIODevice::ReadOnly));
    }

    QFile* Get() { return &m_file; }

    QString LoadingLine() const
    {
        return Text("INFO: AnyType: Loading binary file \"") + m_file.fileName() + Text("\".");
    }

private:
    TemporaryFolder m_folder;
    QFile m_file;
};

} // namespace

TEST(BinaryFrame, LoadingAFileTracesThenResetsThenReadsThenChecks)
{
    OpenBinaryFile file(BinaryFile(Representation(u"AnyType", Raw("body"))));
    QStringList journal;
    JournalObject object(journal);
    object.hasBinary = true;
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    EXPECT_TRUE(object.LoadBinary(file.Get()));
    EXPECT_EQ(journal,
              QStringList(file.LoadingLine()) +
                  Lines({"Reset", "INFO: AnyType: Loading binary representation (source: byte array).",
                         "INFO: AnyType: Loading binary representation (source: data stream).", "SetBinary",
                         "Check"}));
    EXPECT_BYTES(object.body, QByteArray("body"));
}

TEST(BinaryFrame, FileMayHoldEitherRepresentation)
{
    const SmallSample sample;
    for (const Bytes& representation :
         {Representation(u"Other", sample.elements), CompressedRepresentation(u"Other", sample.elements)}) {
        OpenBinaryFile file(BinaryFile(representation));
        SmallObject read;
        EXPECT_TRUE(read.LoadBinary(file.Get()));
        EXPECT_EQ(read.count, 5);
        EXPECT_TEXT(read.label, "Zoo");
    }
}

TEST(BinaryFrame, FileMayBeAPipe)
{
    const SmallSample sample;
    for (const Bytes& representation :
         {Representation(u"Other", sample.elements), CompressedRepresentation(u"Other", sample.elements)}) {
        Support::Pipe pipe(BinaryFile(representation).Data());
        SmallObject read;
        EXPECT_TRUE(read.LoadBinary(&pipe));
        EXPECT_EQ(read.count, 5);
        EXPECT_TEXT(read.label, "Zoo");
    }
}

TEST(BinaryFrame, StreamMayReadACompressedRepresentationFromAPipe)
{
    const SmallSample sample;
    Support::Pipe pipe(CompressedRepresentation(u"Other", sample.elements).Data());
    QDataStream stream(&pipe);
    SmallObject read;
    EXPECT_TRUE(read.SetBinaryRepresentation(stream));
    EXPECT_EQ(read.count, 5);
    EXPECT_TEXT(read.label, "Zoo");
}

TEST(BinaryFrame, PipeThatEndsWithinWhatItAnnouncesHoldsNoRepresentation)
{
    Support::Pipe pipe((Raw("\x7F\xFF\xFF\xF0") + Raw("abc")).Data());
    SmallObject read;
    read.SetValidate(false);
    EXPECT_TRUE(read.LoadBinary(&pipe));
    EXPECT_EQ(read.calls.setBinary, 0);
}

TEST(BinaryFrame, FileIsReadFromWhereItStands)
{
    const SmallSample sample;
    OpenBinaryFile file(Raw("abc") + BinaryFile(Representation(u"AnyType", sample.elements)) + Raw("xyz"));
    ASSERT_TRUE(file.Get()->seek(3));
    SmallObject read;
    EXPECT_TRUE(read.LoadBinary(file.Get()));
    EXPECT_EQ(read.count, 5);
    EXPECT_TRUE(file.Get()->isOpen());
}

TEST(BinaryFrame, LoadedFileIsNotCheckedWhenNotValidating)
{
    OpenBinaryFile file(BinaryFile(Representation(u"AnyType", Bytes())));
    SmallObject object;
    object.problem = Text("never asked");
    object.SetValidate(false);
    EXPECT_TRUE(object.LoadBinary(file.Get()));
    EXPECT_EQ(object.calls.check, 0);
}

TEST(BinaryFrame, LoadedObjectThatFailsItsCheckKeepsWhatWasRead)
{
    const SmallSample sample;
    OpenBinaryFile file(BinaryFile(Representation(u"AnyType", sample.elements)));
    const auto logger = NewLogger();
    SmallObject object;
    object.problem = Text("incomplete");
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.LoadBinary(file.Get()), "RGException", "incomplete");
    EXPECT_EQ(object.count, 5);
    EXPECT_LOG(logger,
               QStringList({file.LoadingLine(),
                            Text("INFO: AnyType: Loading binary representation (source: byte array)."),
                            Text("INFO: AnyType: Loading binary representation (source: data stream)."),
                            Text("FATAL ERROR: RGException: incomplete")}));
}

TEST(BinaryFrame, FileWithUnknownMarkerResetsTheObjectAndGivesTrue)
{
    const Bytes contents[] = {
        Bytes(),
        Raw("xy"),
        NullByteArray(),
        ByteArray(""),
        ByteArray("no representation"),
        BinaryFile(String(u"QObject") + String(u"AnyType")),
        Int32(0x7fffffff) + Raw("too short"),
        Representation(u"AnyType", Bytes()),
    };
    for (const Bytes& content : contents) {
        SCOPED_TRACE(content.Annotated());
        OpenBinaryFile file(content);
        const auto logger = NewLogger();
        SmallSample sample;
        sample.object.SetLogger(logger);
        EXPECT_TRUE(sample.object.LoadBinary(file.Get()));
        EXPECT_EQ(sample.object.calls.reset, 1);
        EXPECT_EQ(sample.object.calls.setBinary, 0);
        EXPECT_EQ(sample.object.calls.check, 1);
        EXPECT_EQ(sample.object.count, 0);
        EXPECT_LOG(
            logger,
            QStringList({file.LoadingLine(),
                         Text("INFO: AnyType: Loading binary representation (source: byte array)."),
                         Text("INFO: AnyType: Loading binary representation (source: data stream).")}));
    }
}

TEST(BinaryFrame, FileWithUnknownMarkerStillFailsTheCheck)
{
    OpenBinaryFile file(ByteArray("no representation"));
    Frequency frequency = SampleFrequency();
    EXPECT_RG_THROW(frequency.LoadBinary(file.Get()), "OutOfRangeException",
                    "Frequency: Please set Value properly.");
    EXPECT_FALSE(frequency.IsValueSet());

    ASSERT_TRUE(file.Get()->seek(0));
    frequency.SetValidate(false);
    EXPECT_TRUE(frequency.LoadBinary(file.Get()));
    EXPECT_FALSE(frequency.AnyData());
}

TEST(BinaryFrame, LengthErrorInAFilePassesOut)
{
    const Bytes elements = Element(TAG_VALUE, ByteArray("2.00"));
    OpenBinaryFile file(BinaryFile(RepresentationOfLength(u"Frequency", elements.Size() + 4, elements)));
    Frequency frequency;
    EXPECT_RG_THROW(frequency.LoadBinary(file.Get()), "BinaryParsingException", FREQUENCY_LENGTH_ERROR);
    EXPECT_EQ(frequency.GetValue(), 2.0);
}

// --- Skipping ----------------------------------------------------------------------------------------------

TEST(BinaryFrame, SkippingReturnsHowManyBytesWereSkipped)
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

TEST(BinaryFrame, SkippingWithoutADeviceFails)
{
    const PlainObject object;
    QDataStream stream;
    EXPECT_EQ(object.skipCurrentElement(stream, 3, 0), -1);
}

TEST(BinaryFrame, SkippingTracesNothing)
{
    const auto logger = NewLogger();
    const PlainObject object;
    object.SetLogger(logger);
    QByteArray bytes("0123");
    QDataStream stream(bytes);
    object.skipCurrentElement(stream, 100, 0);
    EXPECT_LOG(logger, {});
}
