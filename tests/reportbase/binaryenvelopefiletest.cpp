// How any object is loaded from a binary file.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/journal.h"
#include "support/pipe.h"
#include "support/recordelements.h"
#include "support/smallobject.h"

#include <reportgenerator/reportbase/frequency.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

namespace {

using REPORTGENERATOR::Frequency;
using Support::BinaryFile;
using Support::ByteArray;
using Support::Bytes;
using Support::CompressedRepresentation;
using Support::Int32;
using Support::JournalLogger;
using Support::JournalObject;
using Support::Lines;
using Support::NewLogger;
using Support::NullByteArray;
using Support::OpenFile;
using Support::Raw;
using Support::Representation;
using Support::RepresentationOfLength;
using Support::SampleFrequency;
using Support::SmallObject;
using Support::SmallSample;
using Support::String;
using Support::Text;
using Support::Value;

constexpr const char* FREQUENCY_LENGTH_ERROR =
    "Frequency::SetBinary(...): Length error occurred during processing of binary representation";

QString LoadingLine(const OpenFile& file)
{
    return Text("INFO: AnyType: Loading binary file \"") + file.Path() + Text("\".");
}

} // namespace

TEST(BinaryEnvelope, LoadingAFileTracesThenResetsThenReadsThenChecks)
{
    OpenFile file(BinaryFile(Representation(u"AnyType", Raw("body"))).Data());
    QStringList journal;
    JournalObject object(journal);
    object.hasBinary = true;
    object.SetLogger(std::make_shared<JournalLogger>(journal));
    EXPECT_TRUE(object.LoadBinary(file.Get()));
    EXPECT_EQ(journal,
              QStringList(LoadingLine(file)) +
                  Lines({"Reset", "INFO: AnyType: Loading binary representation (source: byte array).",
                         "INFO: AnyType: Loading binary representation (source: data stream).", "SetBinary",
                         "Check"}));
    EXPECT_BYTES(object.body, QByteArray("body"));
}

TEST(BinaryEnvelope, FileMayHoldEitherRepresentation)
{
    const SmallSample sample;
    for (const Bytes& representation :
         {Representation(u"Other", sample.elements), CompressedRepresentation(u"Other", sample.elements)}) {
        OpenFile file(BinaryFile(representation).Data());
        SmallObject read;
        EXPECT_TRUE(read.LoadBinary(file.Get()));
        EXPECT_EQ(read.count, 5);
        EXPECT_TEXT(read.label, "Zoo");
    }
}

TEST(BinaryEnvelope, FileMayBeAPipe)
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

TEST(BinaryEnvelope, StreamMayReadACompressedRepresentationFromAPipe)
{
    const SmallSample sample;
    Support::Pipe pipe(CompressedRepresentation(u"Other", sample.elements).Data());
    QDataStream stream(&pipe);
    SmallObject read;
    EXPECT_TRUE(read.SetBinaryRepresentation(stream));
    EXPECT_EQ(read.count, 5);
    EXPECT_TEXT(read.label, "Zoo");
}

TEST(BinaryEnvelope, PipeThatEndsWithinWhatItAnnouncesHoldsNoRepresentation)
{
    Support::Pipe pipe((Raw("\x7F\xFF\xFF\xF0") + Raw("abc")).Data());
    SmallObject read;
    read.SetValidate(false);
    EXPECT_TRUE(read.LoadBinary(&pipe));
    EXPECT_EQ(read.calls.setBinary, 0);
}

TEST(BinaryEnvelope, FileIsReadFromWhereItStands)
{
    const SmallSample sample;
    OpenFile file((Raw("abc") + BinaryFile(Representation(u"AnyType", sample.elements)) + Raw("xyz")).Data());
    ASSERT_TRUE(file.Get()->seek(3));
    SmallObject read;
    EXPECT_TRUE(read.LoadBinary(file.Get()));
    EXPECT_EQ(read.count, 5);
    EXPECT_TRUE(file.Get()->isOpen());
}

TEST(BinaryEnvelope, LoadedFileIsNotCheckedWhenNotValidating)
{
    OpenFile file(BinaryFile(Representation(u"AnyType", Bytes())).Data());
    SmallObject object;
    object.problem = Text("never asked");
    object.SetValidate(false);
    EXPECT_TRUE(object.LoadBinary(file.Get()));
    EXPECT_EQ(object.calls.check, 0);
}

TEST(BinaryEnvelope, LoadedObjectThatFailsItsCheckKeepsWhatWasRead)
{
    const SmallSample sample;
    OpenFile file(BinaryFile(Representation(u"AnyType", sample.elements)).Data());
    const auto logger = NewLogger();
    SmallObject object;
    object.problem = Text("incomplete");
    object.SetLogger(logger);
    EXPECT_RG_THROW(object.LoadBinary(file.Get()), "RGException", "incomplete");
    EXPECT_EQ(object.count, 5);
    EXPECT_LOG(logger,
               QStringList({LoadingLine(file),
                            Text("INFO: AnyType: Loading binary representation (source: byte array)."),
                            Text("INFO: AnyType: Loading binary representation (source: data stream)."),
                            Text("FATAL ERROR: RGException: incomplete")}));
}

TEST(BinaryEnvelope, FileWithUnknownMarkerResetsTheObjectAndGivesTrue)
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
        OpenFile file(content.Data());
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
            QStringList({LoadingLine(file),
                         Text("INFO: AnyType: Loading binary representation (source: byte array)."),
                         Text("INFO: AnyType: Loading binary representation (source: data stream).")}));
    }
}

TEST(BinaryEnvelope, FileWithUnknownMarkerStillFailsTheCheck)
{
    OpenFile file(ByteArray("no representation").Data());
    Frequency frequency = SampleFrequency();
    EXPECT_RG_THROW(frequency.LoadBinary(file.Get()), "OutOfRangeException",
                    "Frequency: Please set Value properly.");
    EXPECT_FALSE(frequency.IsValueSet());

    ASSERT_TRUE(file.Get()->seek(0));
    frequency.SetValidate(false);
    EXPECT_TRUE(frequency.LoadBinary(file.Get()));
    EXPECT_FALSE(frequency.AnyData());
}

TEST(BinaryEnvelope, LengthErrorInAFilePassesOut)
{
    const Bytes elements = Value("2.00");
    OpenFile file(BinaryFile(RepresentationOfLength(u"Frequency", elements.Size() + 4, elements)).Data());
    Frequency frequency;
    EXPECT_RG_THROW(frequency.LoadBinary(file.Get()), "BinaryParsingException", FREQUENCY_LENGTH_ERROR);
    EXPECT_EQ(frequency.GetValue(), 2.0);
}
