#include "support/bytes.h"
#include "support/expect.h"
#include "support/points.h"

#include <reportgenerator/qt/datastream.h>
#include <reportgenerator/qt/points.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>

#include <cmath>
#include <limits>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::ChannelSpacing;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::FrequencyInformation;
using REPORTGENERATOR::FrequencyListValue;
using REPORTGENERATOR::FrequencyRangeOld;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::MakeArea;
using REPORTGENERATOR::MakeCoordinate;
using REPORTGENERATOR::MeasurementTime;
using REPORTGENERATOR::MinMax;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ScanParameter;
using REPORTGENERATOR::ValueMinMax;
using Support::Byte;
using Support::ByteArray;
using Support::ByteArrayOf;
using Support::Bytes;
using Support::Int32;
using Support::NullByteArray;
using Support::NullString;
using Support::String;
using Support::Text;

constexpr double UNSET = -111111.11;

/// Number and bytes: `Double` is a class here.
Bytes Number(double value)
{
    return Support::Double(value);
}

template <class Object>
QByteArray Streamed(const Object& object, QDataStream::Status expected = QDataStream::Ok)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << object;
    EXPECT_EQ(stream.status(), expected);
    return bytes;
}

/// Reads an object from bytes, all of which it takes.
template <class Object>
QDataStream::Status Read(Object& object, const Bytes& bytes)
{
    QDataStream stream(bytes.Data());
    stream >> object;
    EXPECT_TRUE(stream.atEnd());
    return stream.status();
}

/// The object is written as these fields in a byte array, and comes back from them into a used object.
template <class Object>
void ExpectStreamed(const Object& object, const Bytes& fields, Object read = Object())
{
    EXPECT_BYTES(Streamed(object), ByteArrayOf(fields));
    EXPECT_EQ(Read(read, ByteArrayOf(fields)), QDataStream::Ok);
    EXPECT_BYTES(Streamed(read), ByteArrayOf(fields));
}

/// Reading what can't be read resets the object and says so.
template <class Object>
void ExpectCorrupt(const Bytes& bytes, Object used)
{
    EXPECT_EQ(Read(used, bytes), QDataStream::ReadCorruptData);
    EXPECT_FALSE(used.AnyData());
}

template <class Object>
Object NotValidating()
{
    Object object;
    object.SetValidate(false);
    return object;
}

Frequency UsedFrequency()
{
    Frequency frequency;
    frequency.SetValue(1.0);
    frequency.SetMin(2.0);
    frequency.SetMax(3.0);
    frequency.SetUse(false);
    return frequency;
}

FrequencyListValue Entry(const char* time)
{
    FrequencyListValue entry;
    entry.SetXmlString(
        Text("<Value><Frequency>2</Frequency><TimeStamp>%1</TimeStamp></Value>").arg(Text(time)), true);
    return entry;
}

} // namespace

// --- The bytes

TEST(QtDataStream, FrequencyIsItsRawForm)
{
    ExpectStreamed(UsedFrequency(), Byte(15) + Number(1.0) + Number(2.0) + Number(3.0) + Support::Bool(false),
                   Frequency());
    Frequency frequency;
    frequency.SetValue(121500000.0000001);
    ExpectStreamed(frequency, Byte(1) + Number(121500000.0000001), UsedFrequency());
}

TEST(QtDataStream, NothingSetComesBackAsNothingSet)
{
    Frequency read = UsedFrequency();
    EXPECT_EQ(Read(read, ByteArrayOf(Byte(0) + Number(0.0))), QDataStream::Ok);
    EXPECT_TRUE(read == Frequency());
    EXPECT_BYTES(Streamed(Frequency()), ByteArrayOf(Byte(0) + Number(0.0)));
}

TEST(QtDataStream, IFBandwidthIsItsRawForm)
{
    IFBandwidth bandwidth;
    bandwidth.SetValue(8333.333333);
    bandwidth.SetMax(-0.0);
    ExpectStreamed(bandwidth, Byte(5) + Number(8333.333333) + Number(-0.0));
}

TEST(QtDataStream, CoordinateKeepsAllItsDigits)
{
    ExpectStreamed(MakeCoordinate(9.123456789, 47.0), Byte(3) + Number(9.123456789) + Number(47.0));
}

TEST(QtDataStream, AreaIsItsRawForm)
{
    const Bytes fields = Byte(7) + String(u"1.0") + String(u"Lake") + Int32(1) + Byte(3) + Number(1.0) +
                         Number(2.0) + String(u"S7");
    ExpectStreamed(Support::Lake(), fields, MakeArea(Text("Used"), {{5, 6}, {7, 8}}));
}

TEST(QtDataStream, ReportIsItsRawForm)
{
    ReportBase report;
    report.GetIFBandwidth().SetValue(1.0);
    report.GetArea();
    const Bytes fields = Byte(6) + Byte(1) + Number(1.0) + Byte(0) + String(u"1.0") + NullString() + Int32(0);
    ReportBase used;
    used.SetFrequency(UsedFrequency());
    ExpectStreamed(report, fields, used);
}

TEST(QtDataStream, DoubleIsItsFields)
{
    Double number;
    number.SetName(Text("N"));
    number.SetDefaultInvalidValue(-1.0);
    number.SetMaximum(1e300);
    number.SetValue(0.1);
    number.SetUnit(Text("dB"));
    Double used;
    used.SetMinimum(7.0);
    ExpectStreamed(number,
                   String(u"N") + Number(-1.0) + Number(-1.0) + Number(1e300) + Number(-1.0) + Number(0.1) +
                       String(u"dB"),
                   used);
}

TEST(QtDataStream, ValueMinMaxIsItsFields)
{
    ValueMinMax value(2.0);
    value.SetName(Text("N"));
    value.SetMin(1.0);
    ExpectStreamed(value, String(u"N") + Number(2.0) + Number(1.0) + Number(UNSET));
}

TEST(QtDataStream, MinMaxIsItsBounds)
{
    ExpectStreamed(MinMax(1.5, -2.0), Number(1.5) + Number(-2.0), MinMax(7.0, 8.0));
    MinMax used(1.0, 2.0);
    EXPECT_EQ(Read(used, ByteArrayOf(Number(1.5))), QDataStream::ReadCorruptData);
    EXPECT_EQ(used.GetMin(), 0.0);
    EXPECT_EQ(used.GetMax(), 0.0);
}

TEST(QtDataStream, FrequencyRangeIsItsFields)
{
    FrequencyRangeOld range;
    range.SetStopFrequency(108.001);
    ExpectStreamed(range, Number(UNSET) + Number(108.001));
}

TEST(QtDataStream, FrequencyInformationIsItsFields)
{
    FrequencyInformation where;
    where.SetFrequency(1.0);
    where.SetFrequencyMinMax(2.0, 3.0);
    where.GetFrequencyRange().SetStartFrequency(4.0);
    ExpectStreamed(where, Number(1.0) + Number(2.0) + Number(3.0) + Number(4.0) + Number(UNSET));
}

TEST(QtDataStream, FrequencyListValueHasItsTimeInUtc)
{
    const Bytes frequency = Number(2.0) + Number(UNSET) + Number(UNSET);
    const FrequencyListValue entry = Entry("2014-07-03T10:05:09.120+02:00");
    ExpectStreamed(entry, frequency + String(u"2014-07-03T08:05:09.120Z"));
    FrequencyListValue timeless;
    timeless.SetFrequency(2.0);
    ExpectStreamed(timeless, frequency + NullString(), entry);

    FrequencyListValue read;
    read.SetLogger(Support::NewLogger());
    EXPECT_EQ(Read(read, ByteArrayOf(Number(UNSET) + Number(UNSET) + Number(UNSET) +
                                     String(u"2014-07-03T08:05:09.120Z"))),
              QDataStream::Ok);
    EXPECT_EQ(read.GetTimeStamp(), entry.GetTimeStamp());
    EXPECT_FALSE(read.HasData());
}

TEST(QtDataStream, ATimeStampOfAnotherSpellingIsRefused)
{
    for (const std::u16string_view text :
         {u"yesterday", u"2014-07-03", u"</TimeStamp><Frequency>1</Frequency>"})
        ExpectCorrupt(ByteArrayOf(Number(2.0) + Number(UNSET) + Number(UNSET) + String(text)),
                      Entry("2014-07-03T08:05:09.120Z"));
}

TEST(QtDataStream, EllipseIsItsFields)
{
    Ellipse ellipse;
    ellipse.SetMinRadius(1.001);
    ellipse.SetRotation(30.0);
    ExpectStreamed(ellipse, Number(1.001) + Number(UNSET) + Number(30.0));
}

TEST(QtDataStream, ChannelSpacingIsItsFields)
{
    ChannelSpacing raster;
    ExpectStreamed(raster, NullString() + Byte(0) + Int32(0));
    raster.SetVisual(Text("Aero"));
    raster.SetSameDistance(true);
    raster.SetValues({8.333, 25.0});
    ExpectStreamed(raster, String(u"Aero") + Byte(1) + Int32(2) + Number(8.333) + Number(25.0));
    raster.SetSameDistance(false);
    ExpectStreamed(raster, String(u"Aero") + Byte(2) + Int32(2) + Number(8.333) + Number(25.0));
}

TEST(QtDataStream, OtherTextsOfSameDistanceComeBackAsFalse)
{
    ChannelSpacing raster;
    raster.SetXmlString(
        Text("<ChannelSpacing><Samedistance>TRUE</Samedistance><Value>1</Value></ChannelSpacing>"), true);
    ExpectStreamed(raster, NullString() + Byte(2) + Int32(1) + Number(1.0));
}

TEST(QtDataStream, ScanParameterIsItsFields)
{
    ScanParameter scan;
    scan.GetFrequencyRange().SetStartFrequency(1.0);
    scan.SetStepFrequency(2.0);
    scan.SetHoldTime(3.0);
    ExpectStreamed(scan, Number(1.0) + Number(UNSET) + Number(2.0) + Number(UNSET) + Number(3.0));
}

TEST(QtDataStream, MeasurementTimeIsModeAndTime)
{
    const auto fields = [](int mode) {
        return Int32(mode) + String(u"MeasurementTime") + Number(UNSET) + Number(UNSET) + Number(UNSET) +
               Number(UNSET) + Number(2.5) + NullString();
    };
    MeasurementTime time;
    time.GetMeasurementTime().SetValue(2.5);
    ExpectStreamed(time, fields(-1));
    time.SetMeasurementMode(MeasurementTime::Periodic);
    ExpectStreamed(time, fields(1));
    ExpectCorrupt(ByteArrayOf(fields(2)), time);
}

// --- What neither throws nor gets lost

TEST(QtDataStream, IncompleteAndInvalidObjectsAreWritten)
{
    auto logger = Support::NewLogger();
    auto area = NotValidating<Area>();
    area.SetName(QString());
    area.AppendCoordinate(Support::OutOfRange(1000.0, std::nan("")));
    area.AppendCoordinate(Support::OnlyLatitude(5.0));
    area.SetValidate(true);
    Area read;
    read.SetLogger(logger);
    const Bytes fields = Byte(3) + String(u"1.0") + NullString() + Int32(2) + Byte(3) + Number(1000.0) +
                         Number(std::nan("")) + Byte(2) + Number(0.0) + Number(5.0);
    ExpectStreamed(area, fields);
    EXPECT_EQ(Read(read, ByteArrayOf(fields)), QDataStream::Ok);
    EXPECT_LOG(logger, {});
}

TEST(QtDataStream, SettingsStayThoseOfTheObjectThatIsReadInto)
{
    auto logger = Support::NewLogger();
    ReportBase report;
    report.SetLogger(logger);
    Bytes fields =
        Byte(4) + Byte(3) + String(u"1.0") + String(u"Lake") + Int32(1) + Byte(3) + Number(1.0) + Number(2.0);
    EXPECT_EQ(Read(report, ByteArrayOf(fields)), QDataStream::Ok);
    EXPECT_TRUE(report.GetValidate());
    EXPECT_EQ(report.GetLogger(), logger);
    EXPECT_TRUE(report.GetArea().GetValidate());
    EXPECT_EQ(report.GetArea().GetLogger(), logger);
    EXPECT_TRUE(report.GetArea().GetCoordinate().first().GetValidate());
    EXPECT_EQ(report.GetArea().GetCoordinate().first().GetLogger(), logger);

    report.SetValidate(false);
    EXPECT_EQ(Read(report, ByteArrayOf(fields)), QDataStream::Ok);
    EXPECT_FALSE(report.GetValidate());
    EXPECT_FALSE(report.GetArea().GetValidate());
    EXPECT_FALSE(report.GetArea().GetCoordinate().first().GetValidate());
}

TEST(QtDataStream, WhatCannotBeKeptIsNotWritten)
{
    const Area unmarked = Support::WithUnflaggedPoint();
    EXPECT_BYTES(Streamed(unmarked, QDataStream::WriteFailed), NullByteArray());
    ReportBase report;
    report.SetArea(unmarked);
    EXPECT_BYTES(Streamed(report, QDataStream::WriteFailed), NullByteArray());

    MeasurementTime renamed;
    renamed.SetMeasurementModeStringList({Text("Always"), Text("Periodic")});
    EXPECT_BYTES(Streamed(renamed, QDataStream::WriteFailed), NullByteArray());
    renamed.SetMeasurementModeStringList({Text("Continuous"), Text("Sometimes")});
    EXPECT_BYTES(Streamed(renamed, QDataStream::WriteFailed), NullByteArray());
}

TEST(QtDataStream, ReadingRestoresTheNamesOfTheModes)
{
    MeasurementTime renamed;
    renamed.SetMeasurementModeStringList({Text("Always"), Text("Sometimes")});
    QDataStream stream(Streamed(MeasurementTime()));
    stream >> renamed;
    EXPECT_TRUE(renamed == MeasurementTime());
}

// --- The stream around the object

TEST(QtDataStream, VersionAndPrecisionOfTheStreamDoNotCountAndStay)
{
    const Bytes expected = ByteArrayOf(Byte(3) + Number(1.25) + Number(2.0));
    for (const QDataStream::Version version :
         {QDataStream::Qt_4_0, QDataStream::Qt_4_6, QDataStream::Qt_5_15}) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setVersion(version);
        out.setFloatingPointPrecision(QDataStream::SinglePrecision);
        out << MakeCoordinate(1.25, 2.0);
        EXPECT_BYTES(bytes, expected);
        EXPECT_EQ(out.version(), version);
        EXPECT_EQ(out.floatingPointPrecision(), QDataStream::SinglePrecision);

        QDataStream in(bytes);
        in.setVersion(version);
        in.setFloatingPointPrecision(QDataStream::SinglePrecision);
        Coordinate read;
        in >> read;
        EXPECT_TRUE(read == MakeCoordinate(1.25, 2.0));
        EXPECT_EQ(in.version(), version);
        EXPECT_EQ(in.floatingPointPrecision(), QDataStream::SinglePrecision);
    }
}

TEST(QtDataStream, ObjectsStandBesideOtherValuesAndInLists)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << qint32(1) << Support::Lake() << QVector<Coordinate>{MakeCoordinate(1, 2), MakeCoordinate(3, 4)}
        << qint32(2);
    QDataStream in(bytes);
    qint32 first = 0;
    qint32 last = 0;
    Area area;
    QVector<Coordinate> points;
    in >> first >> area >> points >> last;
    EXPECT_EQ(in.status(), QDataStream::Ok);
    EXPECT_EQ(first, 1);
    EXPECT_TRUE(area == Support::Lake());
    ASSERT_EQ(points.size(), 2);
    EXPECT_TRUE(points.last() == MakeCoordinate(3, 4));
    EXPECT_EQ(last, 2);
}

TEST(QtDataStream, AnyTruncationIsToldAndLeavesAResetObject)
{
    ReportBase report;
    report.SetFrequency(UsedFrequency());
    report.SetArea(Support::Lake());
    const QByteArray bytes = Streamed(report);
    for (int size = 0; size < bytes.size(); ++size) {
        QDataStream stream(bytes.left(size));
        ReportBase read = report;
        stream >> read;
        EXPECT_NE(stream.status(), QDataStream::Ok) << size;
        EXPECT_TRUE(read == ReportBase()) << size;
    }
}

TEST(QtDataStream, ByteArraysThatAreCutOrLengthenedWithinAreToldToo)
{
    const auto rows = {ByteArray(""), NullByteArray(), ByteArrayOf(Byte(3) + Number(1.0)),
                       ByteArrayOf(Byte(3) + Number(1.0) + Number(2.0) + Byte(0))};
    for (const Bytes& row : rows)
        ExpectCorrupt(row, MakeCoordinate(5, 6));
    const Bytes lake = Byte(3) + String(u"1.0") + String(u"Lake");
    ExpectCorrupt(ByteArrayOf(lake + Int32(2) + Byte(3) + Number(1.0) + Number(2.0)), Support::Lake());
    ExpectCorrupt(ByteArrayOf(lake + Int32(0x7fffffff)), Support::Lake());
    ExpectCorrupt(ByteArrayOf(Number(1.0)), UsedFrequency());
    Ellipse ellipse;
    ellipse.SetRotation(1.0);
    ExpectCorrupt(ByteArrayOf(Number(1.0) + Number(2.0)), ellipse);
}

TEST(QtDataStream, NoRoomIsMadeForSpacingsThatAreNotThere)
{
    ChannelSpacing raster;
    raster.SetValues({1.0});
    for (const long long count : {2LL, 0x7fffffffLL, -1LL})
        ExpectCorrupt(ByteArrayOf(NullString() + Byte(0) + Int32(count) + Number(1.0)), raster);
    ExpectCorrupt(ByteArrayOf(NullString() + Byte(3) + Int32(1) + Number(1.0)), raster);
}

TEST(QtDataStream, AStatusThatWasBadStays)
{
    QDataStream stream(Streamed(MakeCoordinate(1, 2)));
    stream.setStatus(QDataStream::ReadPastEnd);
    Coordinate read = MakeCoordinate(5, 6);
    stream >> read;
    EXPECT_EQ(stream.status(), QDataStream::ReadPastEnd);
    EXPECT_FALSE(read.AnyData());
}
