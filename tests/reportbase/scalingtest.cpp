// The work grows with the data and no faster. Where it can be seen from outside it is counted; where it
// cannot, the data are so many that work which grew with their square would not come to an end in a test run.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/records.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::LogLevel;
using REPORTGENERATOR::ReportBase;
using Support::ByteArray;
using Support::Bytes;
using Support::Int32;
using Support::Text;
namespace Tag = Support::Tag;

constexpr int MANY = 100000;
constexpr int FEW = 2000;

/// Whatever an operation does for all its coordinates together, it does no more often than this.
constexpr long long PASSES = 20;

/// One of many points, all of which have a text of six decimals.
Coordinate Point(int i)
{
    Coordinate coordinate;
    coordinate.SetLongitude(i % 2881 / 8.0 - 180.0);
    coordinate.SetLatitude(i % 1441 / 8.0 - 90.0);
    return coordinate;
}

QVector<Coordinate> Points(int count)
{
    QVector<Coordinate> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i)
        points.append(Point(i));
    return points;
}

Area LargeArea(int count)
{
    Area area;
    area.SetName(QStringLiteral("Country"));
    area.SetScriptID(QStringLiteral("S"));
    area.SetCoordinate(Points(count));
    return area;
}

ReportBase LargeReport(int count)
{
    ReportBase report;
    report.GetFrequency().SetValue(1.0);
    report.GetIFBandwidth().SetValue(2.0);
    report.SetArea(LargeArea(count));
    return report;
}

int CountOf(const Area& area)
{
    return static_cast<int>(area.GetCoordinate().size());
}

/// `text` again and again.
std::string Repeated(const std::string& text, int count)
{
    std::string all;
    all.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

std::string Joined(const Bytes& bytes)
{
    return bytes.Data().toStdString();
}

Bytes Encoded(const std::string& bytes)
{
    return Support::Raw(bytes);
}

/// Counts its lines and keeps none.
class CountingLogger : public REPORTGENERATOR::Logger
{
public:
    CountingLogger() : Logger(REPORTGENERATOR::INFO) {}

    using Logger::Trace;
    void Trace(LogLevel level, const QString&, bool) override { ++lines[level]; }
    bool HasErrors() const override { return lines[REPORTGENERATOR::ERROR] > 0; }
    void Reset(bool) override { *this->lines = {}; }

    int lines[3] = {};
};

/// Counts for how many coordinates it has been asked to pass its settings on.
class CountingArea : public Area
{
public:
    void SetValidate(bool validate) const override
    {
        Count();
        Area::SetValidate(validate);
    }

    void SetLogger(std::shared_ptr<REPORTGENERATOR::Logger> logger) const override
    {
        Count();
        Area::SetLogger(std::move(logger));
    }

    mutable long long passedOn = 0;

private:
    void Count() const
    {
        if (IsInitialized())
            passedOn += CountOf(*this);
    }
};

/// Counts what is asked of it.
class CountingBuffer : public QBuffer
{
public:
    explicit CountingBuffer(const QByteArray& content = QByteArray()) { setData(content); }

    bool seek(qint64 position) override
    {
        ++calls;
        return QBuffer::seek(position);
    }

    qint64 size() const override
    {
        ++calls;
        return QBuffer::size();
    }

    bool atEnd() const override
    {
        ++calls;
        return QBuffer::atEnd();
    }

    qint64 bytesAvailable() const override
    {
        ++calls;
        return QBuffer::bytesAvailable();
    }

    mutable long long calls = 0;
    long long bytes = 0;

protected:
    qint64 readData(char* data, qint64 maximum) override { return Counted(QBuffer::readData(data, maximum)); }

    qint64 writeData(const char* data, qint64 length) override
    {
        return Counted(QBuffer::writeData(data, length));
    }

private:
    qint64 Counted(qint64 transferred)
    {
        ++calls;
        bytes += transferred;
        return transferred;
    }
};

struct Effort
{
    long long calls;
    long long bytes;
};

/// What `write` asks of a device.
Effort EffortOfWriting(const std::function<void(QDataStream&)>& write)
{
    CountingBuffer buffer;
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly));
    QDataStream stream(&buffer);
    stream.setVersion(QDataStream::Qt_4_6);
    write(stream);
    return {buffer.calls, buffer.bytes};
}

/// What `read` asks of a device that holds `content`.
Effort EffortOfReading(const QByteArray& content, const std::function<void(QDataStream&)>& read)
{
    CountingBuffer buffer(content);
    EXPECT_TRUE(buffer.open(QIODevice::ReadOnly));
    QDataStream stream(&buffer);
    stream.setVersion(QDataStream::Qt_4_6);
    read(stream);
    return {buffer.calls, buffer.bytes};
}

/// Ten times the data take ten times the effort, with some room for what is done once.
void ExpectLinear(const Effort& effort, const Effort& tenfold)
{
    EXPECT_GT(effort.bytes, 0);
    EXPECT_LE(tenfold.calls, 11 * effort.calls);
    EXPECT_LE(tenfold.bytes, 11 * effort.bytes);
}

/// Reads and writes in one form.
struct Form
{
    const char* name;
    std::function<void(const Area&, QByteArray&)> write;
    std::function<void(Area&, QByteArray&)> read;
};

const std::vector<Form> FORMS = {
    {"XML", [](const Area& a, QByteArray& bytes) { bytes = a.GetXmlString().toUtf8(); },
     [](Area& a, QByteArray& bytes) { EXPECT_TRUE(a.SetXmlString(QString::fromUtf8(bytes), true)); }},
    {"XML by the stream classes",
     [](const Area& a, QByteArray& bytes) {
         QXmlStreamWriter writer(&bytes);
         a.GetXml(writer);
     },
     [](Area& a, QByteArray& bytes) {
         QXmlStreamReader reader(bytes);
         while (!reader.isStartElement())
             reader.readNext();
         a.ProcessXml(reader);
     }},
    {"plain", [](const Area& a, QByteArray& bytes) { bytes = a.GetBinaryRepresentationAsQByteArray(); },
     [](Area& a, QByteArray& bytes) { EXPECT_TRUE(a.SetBinaryRepresentation(bytes)); }},
    {"compressed",
     [](const Area& a, QByteArray& bytes) { bytes = a.GetCompressedBinaryRepresentationAsQByteArray(1); },
     [](Area& a, QByteArray& bytes) { EXPECT_TRUE(a.SetBinaryRepresentation(bytes)); }},
    {"raw", [](const Area& a, QByteArray& bytes) { bytes = Support::RawFormOf(a); },
     [](Area& a, QByteArray& bytes) { EXPECT_EQ(Support::ReadRawForm(a, bytes), 0); }},
};

} // namespace

// --- Counted ----------------------------------------------------------------------------------------------

TEST(Scaling, SettingsArePassedOnAFewTimesPerOperationAndNotPerCoordinate)
{
    for (const Form& form : FORMS) {
        for (const bool validate : {true, false}) {
            SCOPED_TRACE(form.name);
            CountingArea area;
            area.SetValidate(validate);
            area.SetLogger(std::make_shared<CountingLogger>());
            static_cast<Area&>(area) = LargeArea(FEW);
            area.passedOn = 0;
            QByteArray bytes;
            form.write(area, bytes);
            EXPECT_LE(area.passedOn, PASSES * FEW);

            area.Reset();
            area.passedOn = 0;
            form.read(area, bytes);
            EXPECT_EQ(CountOf(area), FEW);
            EXPECT_LE(area.passedOn, PASSES * FEW);
        }
    }
}

TEST(Scaling, AppendingPassesNothingOnAgainAndAgain)
{
    for (const bool validate : {true, false}) {
        CountingArea area;
        area.SetValidate(validate);
        area.SetLogger(std::make_shared<CountingLogger>());
        area.passedOn = 0;
        for (int i = 0; i < FEW; ++i)
            area.AppendCoordinate(Point(i));
        EXPECT_EQ(CountOf(area), FEW);
        EXPECT_LE(area.passedOn, PASSES * FEW);
    }
}

TEST(Scaling, ReadingAndWritingLogAFewLinesHoweverManyCoordinatesThereAre)
{
    for (const Form& form : FORMS) {
        SCOPED_TRACE(form.name);
        const auto logger = std::make_shared<CountingLogger>();
        Area area = LargeArea(FEW);
        area.SetLogger(logger);
        QByteArray bytes;
        form.write(area, bytes);
        Area read;
        read.SetLogger(logger);
        form.read(read, bytes);
        EXPECT_TRUE(read == area);
        EXPECT_LE(logger->lines[REPORTGENERATOR::INFO], 4);
        EXPECT_EQ(logger->lines[REPORTGENERATOR::WARNING], 0);
        EXPECT_EQ(logger->lines[REPORTGENERATOR::ERROR], 0);
    }
}

TEST(Scaling, EachIncompleteCoordinateIsReportedOncePerOperation)
{
    const auto logger = std::make_shared<CountingLogger>();
    Area area;
    area.SetValidate(false);
    area.SetLogger(logger);
    area.SetName(QStringLiteral("Country"));
    area.SetCoordinate(QVector<Coordinate>(FEW));
    EXPECT_EQ(logger->lines[REPORTGENERATOR::WARNING], 0);
    area.GetXmlString();
    EXPECT_EQ(logger->lines[REPORTGENERATOR::WARNING], FEW);
    EXPECT_NO_RG_THROW(area.Check(true));
    EXPECT_EQ(logger->lines[REPORTGENERATOR::ERROR], 2 * FEW);

    const Bytes emptyBodies = Encoded(std::string(std::size_t{4} * FEW, '\0'));
    EXPECT_EQ(Support::ReadElements(area, Element(Tag::AREA_COORDINATES, Int32(FEW) + emptyBodies)), 0);
    EXPECT_EQ(CountOf(area), FEW);
    EXPECT_EQ(logger->lines[REPORTGENERATOR::WARNING], 2 * FEW);
}

TEST(Scaling, TheDeviceIsAskedInProportionToTheCoordinates)
{
    const ReportBase small = LargeReport(FEW / 10);
    const ReportBase large = LargeReport(FEW);

    const auto writePlain = [](const ReportBase& report) {
        return EffortOfWriting([&](QDataStream& stream) { report.GetBinaryRepresentation(stream); });
    };
    ExpectLinear(writePlain(small), writePlain(large));

    const auto writeRaw = [](const ReportBase& report) {
        return EffortOfWriting(
            [&](QDataStream& stream) { report.GetVersionSpecificBinaryWithoutValidation(stream); });
    };
    ExpectLinear(writeRaw(small), writeRaw(large));

    const auto readPlain = [](const ReportBase& report) {
        return EffortOfReading(report.GetBinaryRepresentationAsQByteArray(), [&](QDataStream& stream) {
            ReportBase read;
            EXPECT_TRUE(read.SetBinaryRepresentation(stream));
            EXPECT_TRUE(read == report);
        });
    };
    ExpectLinear(readPlain(small), readPlain(large));

    const auto readRaw = [](const ReportBase& report) {
        return EffortOfReading(Support::RawFormOf(report), [&](QDataStream& stream) {
            ReportBase read;
            read.SetVersionSpecificBinaryWithoutValidation(stream);
            EXPECT_TRUE(read == report);
        });
    };
    ExpectLinear(readRaw(small), readRaw(large));
}

TEST(Scaling, EveryByteIsReadOnceAndWrittenOnceExceptForTheLengths)
{
    const ReportBase report = LargeReport(FEW);
    const QByteArray bytes = report.GetBinaryRepresentationAsQByteArray();
    const Effort reading = EffortOfReading(bytes, [](QDataStream& stream) {
        ReportBase read;
        EXPECT_TRUE(read.SetBinaryRepresentation(stream));
    });
    EXPECT_EQ(reading.bytes, bytes.size());

    // A length is written as a placeholder first. Two fields and a body make three lengths per coordinate.
    const Effort writing =
        EffortOfWriting([&](QDataStream& stream) { report.GetBinaryRepresentation(stream); });
    EXPECT_LE(writing.bytes, bytes.size() + 4LL * (3 * FEW + 20));
}

// --- Many -------------------------------------------------------------------------------------------------

TEST(Scaling, ManyCoordinatesGoThroughEveryForm)
{
    const Area area = LargeArea(MANY);
    for (const Form& form : FORMS) {
        SCOPED_TRACE(form.name);
        area.SetLogger(std::make_shared<CountingLogger>());
        QByteArray bytes;
        form.write(area, bytes);
        Area read;
        read.SetLogger(std::make_shared<CountingLogger>());
        form.read(read, bytes);
        EXPECT_EQ(CountOf(read), MANY);
        EXPECT_TRUE(read == area);
    }
}

TEST(Scaling, AReportWithManyCoordinatesGoesThroughEveryForm)
{
    const ReportBase report = LargeReport(MANY / 10);
    ReportBase read;
    EXPECT_TRUE(read.SetXmlString(report.GetXmlString(), true));
    EXPECT_TRUE(read == report);

    read = ReportBase();
    QByteArray plain = report.GetBinaryRepresentationAsQByteArray();
    EXPECT_TRUE(read.SetBinaryRepresentation(plain));
    EXPECT_TRUE(read == report);

    read = ReportBase();
    QByteArray compressed = report.GetCompressedBinaryRepresentationAsQByteArray(1);
    EXPECT_TRUE(read.SetBinaryRepresentation(compressed));
    EXPECT_TRUE(read == report);

    read = ReportBase();
    EXPECT_EQ(Support::ReadRawForm(read, Support::RawFormOf(report)), 0);
    EXPECT_TRUE(read == report);
}

TEST(Scaling, ManyCoordinatesGoThroughFiles)
{
    const QTemporaryDir folder;
    const Area area = LargeArea(MANY / 10);
    const QString path = folder.filePath(QStringLiteral("area.xml"));
    EXPECT_TRUE(area.SaveXml(path));
    Area read;
    EXPECT_TRUE(read.LoadXml(path));
    EXPECT_TRUE(read == area);

    QFile file(folder.filePath(QStringLiteral("area.bin")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QDataStream stream(&file);
    stream << area.GetBinaryRepresentationAsQByteArray();
    ASSERT_TRUE(file.reset());
    read.Reset();
    EXPECT_TRUE(read.LoadBinary(&file));
    EXPECT_TRUE(read == area);
}

TEST(Scaling, ManyCoordinatesAreAppendedOneByOne)
{
    for (const bool validate : {true, false}) {
        Area area;
        area.SetValidate(validate);
        area.SetLogger(std::make_shared<CountingLogger>());
        for (int i = 0; i < MANY; ++i)
            area.AppendCoordinate(Point(i));
        EXPECT_TRUE(area.GetCoordinate() == LargeArea(MANY).GetCoordinate());
        area.SetName(QStringLiteral("Country"));
        EXPECT_NO_RG_THROW(area.Check());
    }
}

TEST(Scaling, ManyCoordinatesAreCopiedComparedCheckedMergedAndReset)
{
    Area area = LargeArea(MANY);
    Area copy(area);
    EXPECT_TRUE(copy == area);
    copy.GetCoordinate().last().SetLongitude(0.5);
    EXPECT_FALSE(copy == area);
    area.SetLogger(std::make_shared<CountingLogger>());
    EXPECT_NO_RG_THROW(area.Check());
    EXPECT_TRUE(area.MergeRGObject(copy));
    EXPECT_EQ(CountOf(area), 2 * MANY);
    area.Reset();
    EXPECT_EQ(CountOf(area), 0);
}

TEST(Scaling, OneCoordinateAfterAnotherIsChangedInALargeArea)
{
    Area area = LargeArea(MANY);
    area.SetLogger(std::make_shared<CountingLogger>());
    for (int i = 0; i < MANY; ++i)
        area.GetCoordinate()[i].SetLatitude(0.5);
    for (const Coordinate& coordinate : std::as_const(area).GetCoordinate())
        ASSERT_EQ(coordinate.GetLatitude(), 0.5);
}

TEST(Scaling, FieldsOfALargeAreaAreChangedAndAskedManyTimes)
{
    Area area = LargeArea(MANY);
    area.SetLogger(std::make_shared<CountingLogger>());
    qint64 characters = 0;
    for (int i = 0; i < MANY; ++i) {
        area.SetName(QStringLiteral("N"));
        area.SetScriptID(QStringLiteral("S"));
        characters += area.GetName().size() + area.GetVersion().size();
        if (!area.HasData())
            FAIL();
    }
    EXPECT_EQ(characters, 4LL * MANY);
    EXPECT_EQ(CountOf(area), MANY);
}

// --- Many elements beside a large area --------------------------------------------------------------------

TEST(Scaling, AnAreaElementIsRepeatedManyTimesInOneReport)
{
    constexpr int REPEATED = 20000;
    const std::string area = "<Area Version=\"1.0\"><Name>N</Name><Coordinate><Longitude>1</Longitude>"
                             "<Latitude>2</Latitude></Coordinate></Area>";
    for (const bool validate : {true, false}) {
        ReportBase report;
        report.SetValidate(validate);
        report.SetLogger(std::make_shared<CountingLogger>());
        EXPECT_TRUE(report.SetXmlString(
            Text(("<ReportBase>" + Repeated(area, REPEATED) + "</ReportBase>").c_str()), true));
        EXPECT_EQ(CountOf(report.GetArea()), REPEATED);
    }
}

TEST(Scaling, ManyUnknownChildrenFollowALargeAreaInAReport)
{
    const std::string area = LargeArea(MANY / 10).GetXmlString().toStdString();
    ReportBase report;
    report.SetLogger(std::make_shared<CountingLogger>());
    EXPECT_TRUE(report.SetXmlString(
        Text(("<ReportBase>" + area + Repeated("<X/>", MANY) + "<Frequency>1</Frequency></ReportBase>")
                 .c_str()),
        true));
    EXPECT_EQ(CountOf(report.GetArea()), MANY / 10);
    EXPECT_TRUE(report.IsFrequencySet());
}

TEST(Scaling, ManyFrequenciesFollowALargeAreaInAReport)
{
    const std::string area = LargeArea(MANY / 10).GetXmlString().toStdString();
    ReportBase report;
    report.SetLogger(std::make_shared<CountingLogger>());
    EXPECT_TRUE(report.SetXmlString(Text(("<ReportBase>" + area + Repeated("<Frequency>1</Frequency>", MANY) +
                                          "<Frequency>2</Frequency></ReportBase>")
                                             .c_str()),
                                    true));
    EXPECT_EQ(report.GetFrequency().GetValue(), 2.0);
}

TEST(Scaling, ManyUnknownChildrenAndNamesFollowTheCoordinatesInAnOlderArea)
{
    const std::string point = "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>";
    Area area;
    area.SetLogger(std::make_shared<CountingLogger>());
    EXPECT_TRUE(area.SetXmlString(Text(("<Area><Name>N</Name>" + Repeated(point, MANY) +
                                        Repeated("<X/>", MANY) + Repeated("<Name>M</Name>", MANY) + "</Area>")
                                           .c_str()),
                                  true));
    EXPECT_EQ(CountOf(area), MANY);
    EXPECT_TEXT(area.GetName(), "M");
}

TEST(Scaling, ManyElementsStandBesideALargeAreaInTheTaggedForm)
{
    const std::string unknown = Repeated(Joined(Element(Tag::UNKNOWN, Support::Byte(1))), MANY);
    const std::string frequencies =
        Repeated(Joined(Element(Tag::REPORT_FREQUENCY, Element(Tag::FREQUENCY_VALUE, ByteArray("1")))), MANY);
    const QByteArray body = Support::BodyOf(LargeArea(MANY / 10), 0, false);
    const Bytes area = Element(Tag::REPORT_AREA, Encoded(body.mid(4).toStdString()));
    ReportBase report;
    report.SetLogger(std::make_shared<CountingLogger>());
    EXPECT_EQ(Support::ReadElements(report, area + Encoded(unknown) + Encoded(frequencies)), 0);
    EXPECT_EQ(CountOf(report.GetArea()), MANY / 10);
    EXPECT_TRUE(report.IsFrequencySet());
}

TEST(Scaling, ManyElementsFollowTheCoordinatesOfAnAreaInTheTaggedForm)
{
    const QByteArray body = Support::BodyOf(LargeArea(MANY / 10), 0, false);
    const std::string others = Repeated(Joined(Element(Tag::UNKNOWN, Support::Byte(1))), MANY) +
                               Repeated(Joined(Element(Tag::AREA_NAME, ByteArray("N"))), MANY) +
                               Repeated(Joined(Element(Tag::AREA_COORDINATES, Int32(0))), MANY);
    Area area;
    area.SetLogger(std::make_shared<CountingLogger>());
    EXPECT_EQ(Support::ReadElements(area, Encoded(body.mid(4).toStdString()) + Encoded(others)), 0);
    EXPECT_EQ(CountOf(area), MANY / 10);
    EXPECT_TEXT(area.GetName(), "N");
}

TEST(Scaling, ManyCoordinatesElementsOfOneCoordinateEachAddUp)
{
    const Bytes point = Support::Body(Element(Tag::COORDINATE_LONGITUDE, ByteArray("1")) +
                                      Element(Tag::COORDINATE_LATITUDE, ByteArray("2")));
    const std::string elements = Repeated(Joined(Element(Tag::AREA_COORDINATES, Int32(1) + point)), MANY);
    Area area;
    area.SetLogger(std::make_shared<CountingLogger>());
    EXPECT_EQ(Support::ReadElements(area, Encoded(elements)), 0);
    EXPECT_EQ(CountOf(area), MANY);
}

TEST(Scaling, AnAreaElementIsRepeatedManyTimesInTheTaggedForm)
{
    const Bytes area =
        Element(Tag::REPORT_AREA,
                Element(Tag::AREA_COORDINATES,
                        Int32(1) + Support::Body(Element(Tag::COORDINATE_LONGITUDE, ByteArray("1")) +
                                                 Element(Tag::COORDINATE_LATITUDE, ByteArray("2")))));
    ReportBase report;
    EXPECT_EQ(Support::ReadElements(report, Encoded(Repeated(Joined(area), MANY / 5))), 0);
    EXPECT_EQ(CountOf(report.GetArea()), 1);
}

// --- Input made to be slow --------------------------------------------------------------------------------

TEST(Scaling, ManyBeginningsOfAnElementAreNotSearchedAgainAndAgain)
{
    Area area;
    const QString beginnings = QStringLiteral("<Area ").repeated(MANY);
    EXPECT_FALSE(area.SetXmlString(beginnings, false));
    EXPECT_FALSE(area.IsInitialized());
    EXPECT_RG_THROW(area.SetXmlString(beginnings + QLatin1Char('>'), false), "RGException",
                    Support::XmlErrorOf(beginnings + QLatin1Char('>')));
}

TEST(Scaling, TheElementIsFoundBehindManyOthers)
{
    Area area;
    area.SetValidate(false);
    EXPECT_TRUE(area.SetXmlString(QStringLiteral("<a>") + QStringLiteral("<b/>").repeated(MANY) +
                                      QStringLiteral("<Area Version=\"1.0\"><Name>N</Name></Area></a>"),
                                  false));
    EXPECT_TEXT(area.GetName(), "N");
}

TEST(Scaling, ATextInManyPiecesIsReadPieceByPiece)
{
    REPORTGENERATOR::Frequency frequency;
    EXPECT_TRUE(frequency.SetXmlString(QStringLiteral("<Frequency>") +
                                           QStringLiteral("1<!-- -->").repeated(MANY) +
                                           QStringLiteral("2</Frequency>"),
                                       true));
    EXPECT_EQ(frequency.GetValue(), 2.0);
}

TEST(Scaling, AHugeCountCostsNoMoreThanWhatFollowsIt)
{
    const QByteArray body = Support::BodyOf(LargeArea(FEW), 0, false);
    const QByteArray points = body.mid(body.indexOf(QByteArray("\x6f\x69\x08\x3f", 4)) + 12);
    const std::string withoutScript =
        points.left(points.indexOf(QByteArray("\xc2\x22\x11\xa9", 4))).toStdString();
    const Bytes elements = Element(Tag::AREA_COORDINATES, Int32(0x7fffffff) + Encoded(withoutScript));
    const QByteArray content = elements.Data();

    Area area;
    const Effort effort = EffortOfReading(content, [&](QDataStream& stream) {
        EXPECT_RG_THROW(area.SetBinary(stream, elements.Size()), "BinaryParsingException",
                        "Area::SetBinary(...): Length error occurred during processing of binary "
                        "representation");
    });
    EXPECT_EQ(CountOf(area), FEW);
    EXPECT_LE(effort.bytes, content.size());
    EXPECT_LE(effort.calls, 100LL * FEW);
}
