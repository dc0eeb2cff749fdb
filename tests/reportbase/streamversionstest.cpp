// Bodies and raw forms on a caller's stream of whatever version: texts are in the stream's own encoding, and
// the library reads what it has written.

#include "support/bytes.h"
#include "support/devices.h"
#include "support/expect.h"
#include "support/paths.h"
#include "support/points.h"
#include "support/recordelements.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>

#include <utility>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ReportBase;
using Support::Byte;
using Support::ByteArray;
using Support::Bytes;
using Support::Int32;
using Support::RawPoint;
using Support::StreamPathOnly;
using Support::String;
namespace Tag = Support::Tag;

constexpr int FIRST_VERSION = QDataStream::Qt_1_0;
constexpr int SECOND_VERSION = QDataStream::Qt_2_0;
constexpr int LAST_VERSION = QDataStream::Qt_DefaultCompiledVersion;

/// "Mül".
QString Name()
{
    return QStringLiteral("M\u00fcl");
}

template <class Object>
Object Filled()
{
    Object area;
    area.SetName(Name());
    area.AppendCoordinate(Support::At(1.0, 2.0));
    area.SetScriptID(QStringLiteral("S"));
    return area;
}

template <>
ReportBase Filled()
{
    ReportBase report;
    report.SetArea(Filled<Area>());
    return report;
}

template <class Write>
QByteArray WrittenBy(int version, Write&& write)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(version);
    write(stream);
    return bytes;
}

template <class Object>
QByteArray RawFormIn(int version, const Object& object)
{
    return WrittenBy(version, [&object](QDataStream& stream) {
        object.GetVersionSpecificBinaryWithoutValidation(stream);
    });
}

template <class Object>
void ExpectReadsItsOwn(int version)
{
    SCOPED_TRACE(version);
    const auto object = Filled<Object>();
    QDataStream raw(RawFormIn(version, object));
    raw.setVersion(version);
    Object ofRaw;
    EXPECT_NO_RG_THROW(ofRaw.SetVersionSpecificBinaryWithoutValidation(raw));
    EXPECT_TRUE(ofRaw == object);
    EXPECT_EQ(raw.status(), QDataStream::Ok);
    EXPECT_TRUE(raw.atEnd());

    const QByteArray bytes = WrittenBy(
        version, [&object](QDataStream& stream) { EXPECT_TRUE(object.GetBinary(stream, 1, true)); });
    QDataStream body(bytes);
    body.setVersion(version);
    body.skipRawData(8);
    Object ofBody;
    EXPECT_NO_RG_THROW(ofBody.SetBinary(body, static_cast<int>(bytes.size()) - 8));
    EXPECT_TRUE(ofBody == object);
    EXPECT_EQ(body.status(), QDataStream::Ok);
}

TEST(StreamVersions, AreasAndReportsAreReadBackFromStreamsOfEveryVersion)
{
    for (int version = FIRST_VERSION; version <= LAST_VERSION; ++version) {
        ExpectReadsItsOwn<Area>(version);
        ExpectReadsItsOwn<StreamPathOnly<Area>>(version);
        ExpectReadsItsOwn<ReportBase>(version);
    }
}

TEST(StreamVersions, TextsOfTheFirstVersionAreLatin1)
{
    const Bytes raw =
        Byte(7) + ByteArray("1.0") + ByteArray("M\xfcl") + Int32(1) + RawPoint(3, 1.0, 2.0) + ByteArray("S");
    EXPECT_BYTES(RawFormIn(FIRST_VERSION, Filled<Area>()), raw);
    EXPECT_BYTES(RawFormIn(FIRST_VERSION, Filled<StreamPathOnly<Area>>()), raw);

    const QByteArray body =
        WrittenBy(FIRST_VERSION, [](QDataStream& stream) { Filled<Area>().GetBinary(stream, 1, true); });
    // The others are UTF-8 in every version.
    EXPECT_BYTES(body, Element(1, Element(Tag::AREA_VERSION, ByteArray("1.0")) + Support::Name("M\xc3\xbcl") +
                                      Support::Coordinates(1, Support::Point("1.000000", "2.000000")) +
                                      Support::ScriptID("S")));
}

TEST(StreamVersions, TextsOfLaterVersionsAreUtf16)
{
    const Bytes raw =
        Byte(7) + String(u"1.0") + String(u"M\u00fcl") + Int32(1) + RawPoint(3, 1.0, 2.0) + String(u"S");
    for (int version = SECOND_VERSION; version <= LAST_VERSION; ++version)
        EXPECT_BYTES(RawFormIn(version, Filled<Area>()), raw);
}

/// Read from a buffer and from a pipe.
void ExpectNameOfFirstVersion(const Bytes& name, const QString& expected)
{
    const QByteArray bytes = (Byte(1) + ByteArray("1.0") + name + Int32(0)).Data();
    QBuffer buffer;
    buffer.setData(bytes);
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    Support::Sequential pipe(bytes, static_cast<int>(bytes.size()));
    ASSERT_TRUE(pipe.open(QIODevice::ReadOnly));
    for (QIODevice* const device : {static_cast<QIODevice*>(&buffer), static_cast<QIODevice*>(&pipe)}) {
        QDataStream stream(device);
        stream.setVersion(FIRST_VERSION);
        Area area;
        area.SetVersionSpecificBinaryWithoutValidation(stream);
        EXPECT_EQ(area.GetName(), expected);
        EXPECT_EQ(area.GetName().isNull(), expected.isNull());
        EXPECT_TEXT(area.GetInitialVersionLoaded(), "1.0");
        EXPECT_EQ(stream.status(), QDataStream::Ok);
    }
}

TEST(StreamVersions, TextsOfTheFirstVersionEndAtTheirFirstNulAndMayBeNull)
{
    using namespace std::string_view_literals;
    ExpectNameOfFirstVersion(ByteArray("\xe9\xff"), QStringLiteral("\u00e9\u00ff"));
    ExpectNameOfFirstVersion(ByteArray("A\0B"sv), QStringLiteral("A"));
    ExpectNameOfFirstVersion(ByteArray(""), QLatin1String(""));
    ExpectNameOfFirstVersion(Support::NullByteArray(), QString());
}

/// A first version knows no null texts, nor does the second.
TEST(StreamVersions, NullTextsAreReadBackAsTheVersionHasThem)
{
    for (int version = FIRST_VERSION; version <= LAST_VERSION; ++version) {
        SCOPED_TRACE(version);
        QDataStream stream(RawFormIn(version, Area()));
        stream.setVersion(version);
        Area area;
        area.SetVersionSpecificBinaryWithoutValidation(stream);
        EXPECT_TRUE(area.GetName().isEmpty());
        EXPECT_EQ(area.GetName().isNull(), version > SECOND_VERSION);
        EXPECT_EQ(stream.status(), QDataStream::Ok);
    }
}

} // namespace
