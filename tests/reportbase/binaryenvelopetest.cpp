// How any object is written in the plain and the compressed representation, and where its streams stand.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/journal.h"
#include "support/plainobject.h"
#include "support/recordelements.h"
#include "support/smallobject.h"

#include <reportgenerator/reportbase/frequency.h>

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
#include <string_view>

namespace {

using REPORTGENERATOR::Frequency;
using Support::Body;
using Support::ByteArray;
using Support::Bytes;
using Support::CompressedRepresentation;
using Support::Element;
using Support::Int32;
using Support::JournalLogger;
using Support::JournalObject;
using Support::Lines;
using Support::Min;
using Support::NewLogger;
using Support::PlainObject;
using Support::Read;
using Support::Representation;
using Support::SampleFrequency;
using Support::SmallObject;
using Support::SmallSample;
using Support::String;
using Support::TemporaryFolder;
using Support::Text;
using Support::Use;
using Support::Value;

constexpr int STREAM_VERSION = 12;
constexpr int ROOT_TAG = 1;

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

TEST(BinaryEnvelope, PlainRepresentationIsMarkerNameRootTagLengthAndElements)
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

TEST(BinaryEnvelope, PlainRepresentationAsksForTheBodyWithRootTagOne)
{
    const SmallSample sample;
    sample.object.GetBinaryRepresentationAsQByteArray();
    EXPECT_EQ(sample.object.calls.getBinary, 1);
    EXPECT_EQ(sample.object.lastTag, ROOT_TAG);
    EXPECT_TRUE(sample.object.lastWithTag);
}

TEST(BinaryEnvelope, RepresentationsCarryTheCurrentNameOfTheObject)
{
    SmallSample sample;
    sample.object.SetObjectName(Text("Höhe"));
    EXPECT_BYTES(sample.object.GetBinaryRepresentationAsQByteArray(),
                 Representation(u"Höhe", sample.elements));
    EXPECT_FALSE(
        CompressedData(sample.object.GetCompressedBinaryRepresentationAsQByteArray(-1), u"Höhe").isEmpty());
}

TEST(BinaryEnvelope, WritingThePlainRepresentationTracesThenChecksThenWrites)
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

TEST(BinaryEnvelope, WritingTheCompressedRepresentationTracesThenChecksThenWrites)
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

TEST(BinaryEnvelope, WritingDoesNotCheckWhenNotValidating)
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

TEST(BinaryEnvelope, IncompleteObjectThrowsAndWritesNothing)
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

TEST(BinaryEnvelope, CompressedRepresentationIsMarkerNameAndTheCompressedBody)
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

TEST(BinaryEnvelope, CompressionLevelReachesZlib)
{
    SmallObject object;
    object.label = QString(10000, QLatin1Char('x'));
    const auto stored = object.GetCompressedBinaryRepresentationAsQByteArray(0).size();
    const auto packed = object.GetCompressedBinaryRepresentationAsQByteArray(9).size();
    EXPECT_GT(stored, 10000);
    EXPECT_LT(packed, 1000);
}

TEST(BinaryEnvelope, CompressedRepresentationIsReadBack)
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

TEST(BinaryEnvelope, ObjectWithoutBinaryFormRefusesToWriteWhenValidating)
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

TEST(BinaryEnvelope, ObjectWithoutBinaryFormRefusesToReadWhenValidating)
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

TEST(BinaryEnvelope, ObjectWithoutBinaryFormDoesNothingWhenNotValidating)
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

TEST(BinaryEnvelope, RepresentationOfAnObjectWithoutBinaryFormEndsAfterTheName)
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

TEST(BinaryEnvelope, ObjectThatWritesNoBodyLeavesMarkerAndName)
{
    // What GetBinary returns is not asked.
    const BodilessObject object;
    EXPECT_BYTES(object.GetBinaryRepresentationAsQByteArray(), String(u"IRGObject") + String(u"AnyType"));
    const QByteArray data =
        CompressedData(object.GetCompressedBinaryRepresentationAsQByteArray(-1), u"AnyType");
    EXPECT_BYTES(qUncompress(data), QByteArray());
    EXPECT_EQ(object.calls.getBinary, 2);
}

TEST(BinaryEnvelope, ReadingIntoAnObjectWithoutBinaryFormIsRefusedWhenValidating)
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

Bytes SampleFrequencyElements()
{
    return Min("1.50") + Use(false) + Value("121500000.00");
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

TEST(BinaryEnvelope, LengthsArePatchedAtAnyStartPositionOfABufferAndAFile)
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

TEST(BinaryEnvelope, BodyIsWrittenWithOrWithoutItsTagAtAnyStartPosition)
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

TEST(BinaryEnvelope, CompressedRepresentationIsWrittenAtAnyStartPosition)
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

TEST(BinaryEnvelope, WritingIntoTheMiddleOfExistingBytesReplacesOnlyWhatItCovers)
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

TEST(BinaryEnvelope, EveryStreamIsSetToVersionTwelve)
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

TEST(BinaryEnvelope, BodiesAreWrittenToAndReadFromStreamsOfVersionTwelve)
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

TEST(BinaryEnvelope, RepresentationIsReadFromWhereTheStreamStandsUpToItsEnd)
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

TEST(BinaryEnvelope, RepresentationsStandOneBehindTheOtherInAStream)
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
