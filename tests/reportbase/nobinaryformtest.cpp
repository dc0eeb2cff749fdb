// The classes that have no binary form refuse to be written and read in one.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/plainclasses.h"
#include "support/records.h"

#include <reportgenerator/reportbase/channelspacing.h>
#include <reportgenerator/reportbase/ellipse.h>
#include <reportgenerator/reportbase/frequencyinformation.h>
#include <reportgenerator/reportbase/frequencylistvalue.h>
#include <reportgenerator/reportbase/frequencyrangeold.h>
#include <reportgenerator/reportbase/measurementtime.h>
#include <reportgenerator/reportbase/scanparameter.h>
#include <reportgenerator/reportbase/valueminmax.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace {

using REPORTGENERATOR::ObjectTypes;
using Support::NewLogger;
using Support::Opened;
using Support::Sample;
using Support::String;
using Support::Text;

template <class T>
class NoBinaryForm : public Support::PlainClassTest<T>
{
};

using Classes = ::testing::Types<
    REPORTGENERATOR::ValueMinMax, REPORTGENERATOR::FrequencyRangeOld, REPORTGENERATOR::FrequencyInformation,
    REPORTGENERATOR::FrequencyListValue, REPORTGENERATOR::Ellipse, REPORTGENERATOR::ChannelSpacing,
    REPORTGENERATOR::ScanParameter, REPORTGENERATOR::MeasurementTime, REPORTGENERATOR::Double>;
TYPED_TEST_SUITE(NoBinaryForm, Classes, Support::PlainClassNames);

} // namespace

TYPED_TEST(NoBinaryForm, RefusesItsBinaryBodyWhenValidating)
{
    const auto logger = NewLogger();
    TypeParam object = Sample<TypeParam>::Filled();
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    EXPECT_RG_THROW(object.GetBinary(stream, 1, true), "RGException",
                    "GetBinary is not implemented for object of type 80.");
    EXPECT_RG_THROW(object.SetBinary(stream, 0), "RGException",
                    "SetBinary is not implemented for object of type 80.");
    EXPECT_TRUE(bytes.isEmpty());

    object.SetLogger(logger);
    EXPECT_RG_THROW(object.GetBinary(stream, 1, false), "RGException",
                    "GetBinary is not implemented for object of type 80.");
    EXPECT_RG_THROW(object.SetBinary(stream, 0), "RGException",
                    "SetBinary is not implemented for object of type 80.");
    EXPECT_LOG(logger, {"FATAL ERROR: RGException: GetBinary is not implemented for object of type 80.",
                        "FATAL ERROR: RGException: SetBinary is not implemented for object of type 80."});
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(NoBinaryForm, RefusalNamesTheNumberOfTheKind)
{
    Opened<TypeParam> object(Sample<TypeParam>::Filled());
    object.SetObjectType(static_cast<ObjectTypes>(41));
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    EXPECT_RG_THROW(object.GetBinary(stream, 1, true), "RGException",
                    "GetBinary is not implemented for object of type 41.");
    EXPECT_RG_THROW(object.SetBinary(stream, 0), "RGException",
                    "SetBinary is not implemented for object of type 41.");
}

TYPED_TEST(NoBinaryForm, WritesAndReadsNoBinaryBodyWhenNotValidating)
{
    const auto logger = NewLogger();
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    object.SetLogger(logger);
    QByteArray written;
    QDataStream out(&written, QIODevice::WriteOnly);
    EXPECT_TRUE(object.GetBinary(out, 1, true));
    EXPECT_TRUE(object.GetBinary(out, 1, false));
    EXPECT_TRUE(written.isEmpty());

    EXPECT_EQ(Support::ReadElements(object, 4, Support::Raw("abcd")), 4)
        << "nothing is taken from the stream";
    EXPECT_LOG(logger, {});
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(NoBinaryForm, RepresentationsRefuseWhenValidating)
{
    const auto logger = NewLogger();
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetLogger(logger);
    const char* refusal = "GetBinary is not implemented for object of type 80.";
    EXPECT_RG_THROW(object.GetBinaryRepresentationAsQByteArray(), "RGException", refusal);
    EXPECT_LOG(logger,
               (QStringList{this->Line("INFO: ", ": Generating binary representation (target: byte array)."),
                            this->Line("INFO: ", ": Generating binary representation (target: data stream)."),
                            Text("FATAL ERROR: RGException: ") + Text(refusal)}));
    EXPECT_RG_THROW(object.GetCompressedBinaryRepresentationAsQByteArray(9), "RGException", refusal);

    QByteArray representation =
        Support::Representation(Sample<TypeParam>::WIDE_NAME, Support::Bytes()).Data();
    logger->Reset(true);
    EXPECT_RG_THROW(object.SetBinaryRepresentation(representation), "RGException",
                    "SetBinary is not implemented for object of type 80.");
    EXPECT_LOG(logger,
               (QStringList{this->Line("INFO: ", ": Loading binary representation (source: byte array)."),
                            this->Line("INFO: ", ": Loading binary representation (source: data stream)."),
                            Text("FATAL ERROR: RGException: SetBinary is not implemented for object of type "
                                 "80.")}));
    EXPECT_XML(object, Sample<TypeParam>::XML);

    const TypeParam refused = Sample<TypeParam>::Refused();
    EXPECT_RG_THROW(refused.GetBinaryRepresentationAsQByteArray(), "RGException", Sample<TypeParam>::PROBLEM);
    EXPECT_RG_THROW(refused.GetCompressedBinaryRepresentationAsQByteArray(9), "RGException",
                    Sample<TypeParam>::PROBLEM);
}

TYPED_TEST(NoBinaryForm, RepresentationsHoldTheNameAloneWhenNotValidating)
{
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    EXPECT_BYTES(object.GetBinaryRepresentationAsQByteArray(),
                 String(u"IRGObject") + String(Sample<TypeParam>::WIDE_NAME));

    QByteArray representation =
        Support::Representation(Sample<TypeParam>::WIDE_NAME, Support::Raw("abcd")).Data();
    EXPECT_TRUE(object.SetBinaryRepresentation(representation));
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(NoBinaryForm, CompressedRepresentationHoldsAnEmptyBodyWhenNotValidating)
{
    TypeParam object = Sample<TypeParam>::Filled();
    object.SetValidate(false);
    QByteArray representation = object.GetCompressedBinaryRepresentationAsQByteArray(9);
    const QByteArray start = (String(u"IRGObjectQCompress") + String(Sample<TypeParam>::WIDE_NAME)).Data();
    EXPECT_BYTES(representation.left(start.size()), start);

    QByteArray compressed;
    QDataStream stream(representation.mid(start.size()));
    stream.setVersion(QDataStream::Qt_4_6);
    stream >> compressed;
    EXPECT_TRUE(stream.atEnd());
    EXPECT_TRUE(TypeParam::UncompressBinary(compressed).isEmpty());

    EXPECT_TRUE(object.SetBinaryRepresentation(representation));
    EXPECT_XML(object, Sample<TypeParam>::XML);
}

TYPED_TEST(NoBinaryForm, BinaryFileIsRefusedWhenValidatingAndResetsTheObjectInAllSettings)
{
    const Support::TemporaryFolder folder;
    const QByteArray representation =
        Support::Representation(Sample<TypeParam>::WIDE_NAME, Support::Raw("abcd")).Data();
    const QString path =
        folder.Write("object.bin", Support::Written([&](QDataStream& stream) { stream << representation; }));
    for (const bool validate : {true, false}) {
        const auto logger = NewLogger();
        TypeParam object = Sample<TypeParam>::Filled();
        object.SetValidate(validate);
        object.SetLogger(logger);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QStringList lines = {this->Line("INFO: ", ": Loading binary file \"") + path + Text("\"."),
                             this->Line("INFO: ", ": Loading binary representation (source: byte array)."),
                             this->Line("INFO: ", ": Loading binary representation (source: data stream).")};
        if (validate) {
            EXPECT_RG_THROW(object.LoadBinary(&file), "RGException",
                            "SetBinary is not implemented for object of type 80.");
            lines << Text("FATAL ERROR: RGException: SetBinary is not implemented for object of type 80.");
        } else {
            EXPECT_NO_RG_THROW(EXPECT_TRUE(object.LoadBinary(&file)));
        }
        EXPECT_LOG(logger, lines);
        EXPECT_FALSE(object.AnyData());
    }
}
