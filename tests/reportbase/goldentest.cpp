// Every case of tests/vectors that is written and read: what is written is compared with the files, what is
// read with what the tables below say. The cases that are only read stand in goldenreadingtest.cpp.

#include "support/golden.h"
#include "support/bytes.h"
#include "support/expect.h"
#include "support/states.h"
#include "support/subject.h"
#include "support/vectors.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::IFBandwidth;
using REPORTGENERATOR::ReportBase;
using Support::AreaState;
using Support::BandwidthState;
using Support::ExpectOutcome;
using Support::FrequencyState;
using Support::Fresh;
using Support::GoldenClass;
using Support::InfoLine;
using Support::Joined;
using Support::LAKE_POINT;
using Support::LinesOfReadingBytes;
using Support::Maker;
using Support::Outcome;
using Support::OutcomeOf;
using Support::ReadRaw;
using Support::ReportState;
using Support::STREAM_VERSION;
using Support::Subject;
using Support::SubjectMaker;
using Support::SubjectOf;
using Support::Text;
using Support::WriteRaw;

/// The state after loading: an area then knows the version that it found, which is 1.0 in what the library
/// writes.
template <class State>
State Loaded(const State& state)
{
    return state;
}

AreaState Loaded(const AreaState& state)
{
    AreaState loaded = state;
    if (loaded.initialVersionLoaded.isEmpty())
        loaded.initialVersionLoaded = QStringLiteral("1.0");
    return loaded;
}

ReportState Loaded(const ReportState& state)
{
    ReportState loaded = state;
    if (loaded.area)
        loaded.area = Loaded(*loaded.area);
    return loaded;
}

/// What reading a raw form gives in an object that holds something. The raw readers reset nothing: an area
/// appends.
template <class State>
State RawOver(const State&, const State& read)
{
    return read;
}

AreaState RawOver(const AreaState& used, const AreaState& read)
{
    AreaState both = read;
    both.coordinatesSet = read.AreCoordinatesSet();
    both.coordinates = used.coordinates;
    both.coordinates.insert(both.coordinates.end(), read.coordinates.begin(), read.coordinates.end());
    return both;
}

ReportState RawOver(const ReportState& used, const ReportState& read)
{
    ReportState both = read;
    if (read.area && used.area)
        both.area = RawOver(*used.area, *read.area);
    return both;
}

// --- The cases --------------------------------------------------------------------------------------------

struct GoldenCase
{
    QString folder;
    QString name;
    bool validate = true;

    SubjectMaker written;
    SubjectMaker fresh;
    SubjectMaker used;

    Outcome fromXml;
    Outcome fromTagged;
    Outcome fromRaw;
    Outcome fromRawIntoUsed;

    QStringList xmlWritingWarnings;
    QStringList xmlReadingWarnings;
    QStringList taggedReadingWarnings;
    QStringList rawReadingWarnings;

    bool HasBinaryForms() const { return fresh()->HasBinaryForms(); }
    QString Path(const char* form) const
    {
        return folder + QLatin1Char('/') + name + QLatin1Char('.') + QLatin1String(form);
    }
    std::string TestName() const { return (folder + QLatin1Char('_') + name).toStdString(); }
    QString ClassName() const { return fresh()->Object().GetObjectName(); }
};

void PrintTo(const GoldenCase& goldenCase, std::ostream* stream)
{
    *stream << goldenCase.TestName();
}

/// One line of the tables below: by default what is read is what was written.
template <class T>
class Row
{
public:
    using State = typename SubjectOf<T>::State;

    Row(const char* name, const State& state) : m_written(state)
    {
        m_case.folder = QLatin1String(GoldenClass<T>::FOLDER);
        m_case.name = QLatin1String(name);
    }

    Row& NotValidating()
    {
        m_case.validate = false;
        return *this;
    }
    Row& FromXml(const State& state)
    {
        m_fromXml = state;
        return *this;
    }
    Row& FromTagged(const State& state)
    {
        m_fromTagged = state;
        return *this;
    }
    Row& FromXmlAndTagged(const State& state) { return FromXml(state).FromTagged(state); }
    Row& XmlWritingWarns(const char* line)
    {
        m_case.xmlWritingWarnings << Support::Text(line);
        return *this;
    }
    Row& TaggedReadingWarns(const char* line)
    {
        m_case.taggedReadingWarnings << Support::Text(line);
        return *this;
    }
    Row& XmlAndTaggedReadingWarn(const char* line)
    {
        m_case.xmlReadingWarnings << Support::Text(line);
        return TaggedReadingWarns(line);
    }
    Row& RawReadingWarns(const char* line)
    {
        m_case.rawReadingWarnings << Support::Text(line);
        return *this;
    }

    operator GoldenCase() const
    {
        const State used = GoldenClass<T>::Used(m_written);
        GoldenCase goldenCase = m_case;
        goldenCase.written = Maker<T>(m_written, m_case.validate);
        goldenCase.fresh = Maker<T>(Fresh<T>(m_written), m_case.validate);
        goldenCase.used = Maker<T>(used, m_case.validate);
        goldenCase.fromXml = OutcomeOf<T>(Loaded(m_fromXml.value_or(m_written)));
        goldenCase.fromTagged = OutcomeOf<T>(Loaded(m_fromTagged.value_or(m_written)));
        goldenCase.fromRaw = OutcomeOf<T>(Loaded(m_written));
        goldenCase.fromRawIntoUsed = OutcomeOf<T>(RawOver(used, Loaded(m_written)));
        return goldenCase;
    }

private:
    GoldenCase m_case;
    State m_written;
    std::optional<State> m_fromXml;
    std::optional<State> m_fromTagged;
};

constexpr const char* NULL_NAME =
    "WARNING: OutOfRangeException: Area: Please set Name properly (origin: Setter).";
constexpr const char* NULL_SCRIPT =
    "WARNING: OutOfRangeException: Area: Please set ScriptID properly (origin: Setter).";
constexpr const char* WRITES_INCOMPLETE =
    "WARNING: IncompleteDefinitionException: Parameters for Coordinate are not set properly in 'Area'.";
constexpr const char* APPENDS_INCOMPLETE =
    "WARNING: IncompleteDefinitionException: Area: Tried to append not completely "
    "defined or invalid item Coordinate.";
constexpr const char* LONGITUDE_OUT_OF_RANGE = "WARNING: OutOfRangeException: Parameters for m_longitude are "
                                               "not set within range (-180, 180) in 'Coordinate'.";
constexpr const char* LATITUDE_OUT_OF_RANGE = "WARNING: OutOfRangeException: Parameters for m_latitude are "
                                              "not set within range (-90, 90) in 'Coordinate'.";

const std::nullopt_t NONE = std::nullopt;

std::vector<GoldenCase> FrequencyCases()
{
    using F = Row<Frequency>;
    // value, min, max, use
    return {
        F("value_only", {433920000.0}),
        F("min_and_value", {433920000.0, 433000000.0}),
        F("min_max_use_value", {121500000.0, 117975000.0, 137000000.0, true}),
        F("use_false", {2182000.0, NONE, NONE, false}),
        F("unset_value", {NONE, NONE, 108000000.0})
            .NotValidating()
            .FromXmlAndTagged({0.0, NONE, 108000000.0}),
        F("nothing_set", {}).NotValidating().FromXmlAndTagged({0.0}),
        F("negative", {-1234.56, -5000.0, -0.5}),
        F("large", {1e9, NONE, 1e15}),
        F("rounding", {99.999, 1.005, 0.125}).FromXmlAndTagged({100.0, 1.0, 0.13}),
        F("rounds_to_negative_zero", {-0.001}).FromXmlAndTagged({-0.0}),
    };
}

std::vector<GoldenCase> BandwidthCases()
{
    using B = Row<IFBandwidth>;
    // value, min, max
    return {
        B("value_only", {120000.0}),
        B("min_max_value", {8333.33, 6250.0, 25000.0}),
        B("unset_value", {NONE, 1000.0}).NotValidating().FromXmlAndTagged({0.0, 1000.0}),
        B("nothing_set", {}).NotValidating().FromXmlAndTagged({0.0}),
        B("negative_and_large", {1e9, -0.004, 1e12}).FromXmlAndTagged({1e9, -0.0, 1e12}),
        B("rounding", {3.125, -2.375, 0.625}).FromXmlAndTagged({3.13, -2.38, 0.63}),
    };
}

std::vector<GoldenCase> CoordinateCases()
{
    using C = Row<Coordinate>;
    // longitude, latitude
    return {
        C("east_south", {8.5, -45.25}),
        C("west_north_extremes", {-180.0, 90.0}),
        C("east_south_extremes", {180.0, -90.0}),
        C("origin", {0.0, 0.0}),
        C("rounding", {8.12345678, -0.0078125}).FromXmlAndTagged({8.123457, -0.007813}),
        C("unset_latitude", {8.5}).NotValidating().FromXmlAndTagged({8.5, 0.0}),
        C("nothing_set", {}).NotValidating().FromXmlAndTagged({0.0, 0.0}),
        C("out_of_range", {200.0, -95.0})
            .NotValidating()
            .XmlAndTaggedReadingWarn(LONGITUDE_OUT_OF_RANGE)
            .XmlAndTaggedReadingWarn(LATITUDE_OUT_OF_RANGE),
    };
}

std::vector<GoldenCase> AreaCases()
{
    using A = Row<Area>;
    const QString null;
    const QString empty = QStringLiteral("");
    // name, coordinates, script identifier
    return {
        A("name_one_point", {Text("Lake"), {LAKE_POINT}}),
        A("utf8_name_three_points_script", {Text("Zürichsee & <Ost> \"€\" 𝄞"),
                                            {{8.54, 47.36}, {8.685, 47.258}, {-0.25, -12.0}},
                                            Text("HF-2182/é")}),
        A("empty_name_empty_script", {empty, {LAKE_POINT}, empty}),
        A("same_point_twice", {Text("Loop"), {LAKE_POINT, {9.0, 47.25}, LAKE_POINT}}),
        A("nothing_set", {})
            .NotValidating()
            .FromXml({empty})
            .FromTagged({null})
            .TaggedReadingWarns(NULL_NAME),
        A("flagged_but_empty", {Text("A"), {}, NONE, {}, true}).NotValidating().FromXmlAndTagged({Text("A")}),
        A("null_name_null_script", {null, {LAKE_POINT}, null})
            .NotValidating()
            .FromXml({empty, {LAKE_POINT}, empty})
            .TaggedReadingWarns(NULL_NAME)
            .TaggedReadingWarns(NULL_SCRIPT),
        A("incomplete_coordinate", {Text("B"), {{8.5}, LAKE_POINT}})
            .NotValidating()
            .FromXmlAndTagged({Text("B"), {{8.5, 0.0}, LAKE_POINT}})
            .XmlWritingWarns(WRITES_INCOMPLETE)
            .RawReadingWarns(APPENDS_INCOMPLETE),
    };
}

std::vector<GoldenCase> ReportCases()
{
    using R = Row<ReportBase>;
    const QString empty = QStringLiteral("");
    // frequency, IF bandwidth, area
    return {
        R("empty", {}),
        R("frequency_only", {FrequencyState{433920000.0}}),
        R("bandwidth_and_area",
          {NONE, BandwidthState{8333.33, NONE, 25000.0}, AreaState{Text("Lake"), {LAKE_POINT}}}),
        R("frequency_bandwidth_area",
          {FrequencyState{121500000.0, 117975000.0, 137000000.0, true}, BandwidthState{8333.33},
           AreaState{Text("Zürichsee"), {{8.54, 47.36}, {8.685, 47.258}}, Text("VHF-1215")}}),
        R("children_without_data", {FrequencyState{}, BandwidthState{}, AreaState{}})
            .NotValidating()
            .FromXml({FrequencyState{0.0}, BandwidthState{0.0}, AreaState{empty}})
            .FromTagged({FrequencyState{0.0}, BandwidthState{0.0}, AreaState{QString()}})
            .TaggedReadingWarns(NULL_NAME),
    };
}

std::vector<GoldenCase> DoubleCases()
{
    using D = Row<Double>;
    // name, value, minimum, maximum, default, unit
    return {
        D("value_only", {Text("AnyType"), 3.0}),
        D("all_attributes", {Text("Threshold"), 42.25, -20.5, 120.0, 30.0, Text("dBµV/m")}),
        D("unit_that_xml_escapes", {Text("Ratio"), 0.5, NONE, NONE, NONE, Text("\"a\" < b & c > d")}),
        D("rounding", {Text("Offset"), -0.0078125, -1e9, 0.0})
            .FromXml({Text("Offset"), -0.007813, -1e9, 0.0}),
    };
}

std::vector<GoldenCase> AllCases()
{
    return Joined(
        {FrequencyCases(), BandwidthCases(), CoordinateCases(), AreaCases(), ReportCases(), DoubleCases()});
}

std::vector<GoldenCase> BinaryCases()
{
    std::vector<GoldenCase> cases = AllCases();
    cases.erase(std::remove_if(cases.begin(), cases.end(),
                               [](const GoldenCase& goldenCase) { return !goldenCase.HasBinaryForms(); }),
                cases.end());
    return cases;
}

// --- Steps of the tests -----------------------------------------------------------------------------------

/// A stream's device that holds something around the place where the test writes or reads.
class Surroundings
{
public:
    Surroundings()
    {
        m_bytes = BEFORE() + QByteArray(2000, '\x55');
        m_buffer.setBuffer(&m_bytes);
        m_buffer.open(QIODevice::ReadWrite);
        m_stream.setDevice(&m_buffer);
        m_stream.setVersion(STREAM_VERSION);
        m_buffer.seek(BEFORE().size());
    }

    QDataStream& Stream() { return m_stream; }

    void ExpectWritten(const QByteArray& written)
    {
        EXPECT_EQ(m_buffer.pos(), BEFORE().size() + written.size());
        m_stream << static_cast<qint32>(0x01020304);
        QByteArray expected = BEFORE() + written + QByteArray("\x01\x02\x03\x04");
        expected += QByteArray(BEFORE().size() + 2000 - expected.size(), '\x55');
        EXPECT_BYTES(m_bytes, expected);
    }

private:
    static QByteArray BEFORE() { return QByteArray("\xee\xee\xee\xee\xee\xee\xee"); }

    QByteArray m_bytes;
    QBuffer m_buffer;
    QDataStream m_stream;
};

/// Runs `read` on a stream that stands on `bytes` in the middle of others, and expects it to stand behind
/// them then.
void ReadAmidOthers(const QByteArray& bytes, const std::function<void(QDataStream&)>& read)
{
    QByteArray all = QByteArray(11, '\x55') + bytes + QByteArray(300, '\x55');
    QBuffer buffer(&all);
    buffer.open(QIODevice::ReadOnly);
    buffer.seek(11);
    QDataStream stream(&buffer);
    stream.setVersion(STREAM_VERSION);
    read(stream);
    EXPECT_EQ(buffer.pos(), 11 + bytes.size());
    EXPECT_EQ(stream.status(), QDataStream::Ok);
}

/// The bytes of a plain representation from the root tag on.
QByteArray BodyOf(const Support::Vector& plain)
{
    return plain.Data().mid(plain.fields.at(4).offset);
}

/// Writes a file as LoadBinary expects it and opens it for reading.
void OpenBinaryFile(QFile& file, const QByteArray& representation)
{
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(Support::BinaryFile(Support::Raw(representation.toStdString())).Data());
    file.close();
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
}

class Golden : public ::testing::TestWithParam<GoldenCase>
{
protected:
    std::unique_ptr<Subject> WrittenWithLogger()
    {
        std::unique_ptr<Subject> subject = GetParam().written();
        subject->Object().SetLogger(m_logger);
        return subject;
    }

    /// Runs a reader on a new object and on one that holds something already; both have to end the same way.
    void ReadIntoBoth(const std::function<void(Subject&)>& read, const Outcome& outcome,
                      const QStringList& log)
    {
        for (const bool isUsed : {false, true}) {
            SCOPED_TRACE(isUsed ? "into a used object" : "into a new object");
            ReadInto(*(isUsed ? GetParam().used() : GetParam().fresh()), read, outcome, log);
        }
    }

    void ReadInto(Subject& subject, const std::function<void(Subject&)>& read, const Outcome& outcome,
                  const QStringList& log)
    {
        subject.Object().SetLogger(m_logger);
        m_logger->Reset(true);
        EXPECT_NO_RG_THROW(read(subject));
        ExpectOutcome(subject, outcome);
        EXPECT_LOG(m_logger, log);
    }

    QString ClassName() const { return GetParam().ClassName(); }

    const std::shared_ptr<REPORTGENERATOR::ListLogger> m_logger = Support::NewLogger();
};

class GoldenBinary : public Golden
{
};

} // namespace

// --- XML --------------------------------------------------------------------------------------------------

TEST_P(Golden, WritesTheXmlText)
{
    const QString xml = Support::LoadXmlVector(GetParam().Path("xml"));
    const std::unique_ptr<Subject> subject = WrittenWithLogger();
    const QStringList lines =
        QStringList(InfoLine(ClassName(), ": Generating xml string.")) + GetParam().xmlWritingWarnings;
    EXPECT_XML(subject->Object(), xml);
    EXPECT_LOG(m_logger, lines);
    EXPECT_XML(subject->Object(), xml);
    EXPECT_LOG(m_logger, lines + lines);
}

TEST_P(Golden, ReadsTheXmlText)
{
    const QString xml = Support::LoadXmlVector(GetParam().Path("xml"));
    QStringList log(InfoLine(ClassName(), ": Loading xml string."));
    log += GetParam().xmlReadingWarnings;
    for (const bool checkRoot : {false, true}) {
        SCOPED_TRACE(checkRoot ? "checking the root" : "anywhere in the text");
        ReadIntoBoth([&](Subject& subject) { EXPECT_TRUE(subject.Object().SetXmlString(xml, checkRoot)); },
                     GetParam().fromXml, log);
    }
}

TEST_P(Golden, SavesAndLoadsTheXmlFile)
{
    const QString xml = Support::LoadXmlVector(GetParam().Path("xml"));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("case.xml"));
    const std::unique_ptr<Subject> subject = GetParam().written();
    EXPECT_TRUE(subject->Object().SaveXml(path));

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));
    EXPECT_BYTES(file.readAll(), xml.toUtf8());

    for (const SubjectMaker& make : {GetParam().fresh, GetParam().used}) {
        const std::unique_ptr<Subject> loaded = make();
        EXPECT_NO_RG_THROW(EXPECT_TRUE(loaded->Object().LoadXml(path)));
        ExpectOutcome(*loaded, GetParam().fromXml);
    }
}

// --- Plain representation ---------------------------------------------------------------------------------

TEST_P(GoldenBinary, WritesThePlainRepresentation)
{
    const Support::Vector expected = Support::LoadVector(GetParam().Path("hex"));
    const std::unique_ptr<Subject> subject = WrittenWithLogger();
    EXPECT_BYTES(subject->Object().GetBinaryRepresentationAsQByteArray(), expected.ToBytes());
    EXPECT_LOG(
        m_logger,
        QStringList({InfoLine(ClassName(), ": Generating binary representation (target: byte array)."),
                     InfoLine(ClassName(), ": Generating binary representation (target: data stream).")}));
}

TEST_P(GoldenBinary, WritesThePlainRepresentationAmidAStream)
{
    Surroundings surroundings;
    const std::unique_ptr<Subject> subject = WrittenWithLogger();
    subject->Object().GetBinaryRepresentation(surroundings.Stream());
    surroundings.ExpectWritten(Support::LoadVector(GetParam().Path("hex")).Data());
    EXPECT_LOG(m_logger, QStringList(InfoLine(ClassName(),
                                              ": Generating binary representation (target: data stream).")));
}

TEST_P(GoldenBinary, WritesTheBodyWithTheTagThatIsAskedForOrWithout)
{
    const QByteArray body = BodyOf(Support::LoadVector(GetParam().Path("hex")));
    const std::unique_ptr<Subject> subject = GetParam().written();

    Surroundings tagged;
    EXPECT_TRUE(subject->Object().GetBinary(tagged.Stream(), -2, true));
    tagged.ExpectWritten(QByteArray("\xff\xff\xff\xfe") + body.mid(4));

    Surroundings untagged;
    EXPECT_TRUE(subject->Object().GetBinary(untagged.Stream(), -2, false));
    untagged.ExpectWritten(body.mid(4));
}

TEST_P(GoldenBinary, ReadsTheBody)
{
    const QByteArray elements = BodyOf(Support::LoadVector(GetParam().Path("hex"))).mid(8);
    ReadIntoBoth(
        [&](Subject& subject) {
            ReadAmidOthers(elements, [&](QDataStream& stream) {
                subject.Object().SetBinary(stream, static_cast<int>(elements.size()));
            });
        },
        GetParam().fromTagged, GetParam().taggedReadingWarnings);
}

// --- Compressed representation ----------------------------------------------------------------------------

TEST_P(GoldenBinary, WritesTheFrameAndTheBodyOfTheCompressedRepresentation)
{
    const Support::Vector expected = Support::LoadVector(GetParam().Path("zhex"));
    const QByteArray body = BodyOf(Support::LoadVector(GetParam().Path("hex")));
    const int frameSize = expected.fields.at(4).offset;
    const std::unique_ptr<Subject> subject = WrittenWithLogger();

    for (const int level : {-1, 0, 1, 6, 9}) {
        SCOPED_TRACE("level " + std::to_string(level));
        m_logger->Reset(true);
        const QByteArray written = subject->Object().GetCompressedBinaryRepresentationAsQByteArray(level);
        EXPECT_LOG(
            m_logger,
            QStringList(
                {InfoLine(ClassName(), ": Generating compressed binary representation (target: byte array)."),
                 InfoLine(ClassName(),
                          ": Generating compressed binary representation (target: data stream).")}));

        const QByteArray data = written.mid(frameSize + 4);
        EXPECT_BYTES(written.left(frameSize), expected.Data().left(frameSize));
        EXPECT_BYTES(written.mid(frameSize, 4), Support::Int32(data.size()));
        EXPECT_BYTES(data.left(4), Support::Int32(body.size()));
        EXPECT_BYTES(qUncompress(data), body);
    }
}

TEST_P(GoldenBinary, WritesTheCompressedRepresentationAmidAStream)
{
    const std::unique_ptr<Subject> subject = GetParam().written();
    Surroundings surroundings;
    subject->Object().GetCompressedBinaryRepresentation(surroundings.Stream(), 6);
    surroundings.ExpectWritten(subject->Object().GetCompressedBinaryRepresentationAsQByteArray(6));
}

// --- Reading either representation ------------------------------------------------------------------------

TEST_P(GoldenBinary, ReadsTheRepresentationsAsBytesAndAmidAStream)
{
    const QByteArray plain = Support::LoadVector(GetParam().Path("hex")).Data();
    const QByteArray stored = Support::LoadVector(GetParam().Path("zhex")).Data();
    const QByteArray packed = GetParam().written()->Object().GetCompressedBinaryRepresentationAsQByteArray(9);
    const QStringList lines = LinesOfReadingBytes(ClassName()) + GetParam().taggedReadingWarnings;
    for (const QByteArray& bytes : {plain, stored, packed}) {
        SCOPED_TRACE(bytes == plain ? "plain" : bytes == stored ? "stored block" : "packed by the library");
        ReadIntoBoth(
            [&](Subject& subject) {
                QByteArray input = bytes;
                EXPECT_TRUE(subject.Object().SetBinaryRepresentation(input));
                EXPECT_BYTES(input, bytes);
            },
            GetParam().fromTagged, lines);
        ReadIntoBoth(
            [&](Subject& subject) {
                ReadAmidOthers(bytes, [&](QDataStream& stream) {
                    EXPECT_TRUE(subject.Object().SetBinaryRepresentation(stream));
                });
            },
            GetParam().fromTagged, lines.mid(1));
    }
}

TEST_P(GoldenBinary, LoadsTheBinaryFileOfEitherRepresentation)
{
    const QTemporaryDir folder;
    for (const char* form : {"hex", "zhex"}) {
        SCOPED_TRACE(form);
        QFile file(folder.filePath(QLatin1String(form)));
        ASSERT_NO_FATAL_FAILURE(OpenBinaryFile(file, Support::LoadVector(GetParam().Path(form)).Data()));
        const QString line =
            InfoLine(ClassName(), ": Loading binary file \"") + file.fileName() + QLatin1String("\".");
        ReadIntoBoth(
            [&](Subject& subject) {
                file.seek(0);
                EXPECT_TRUE(subject.Object().LoadBinary(&file));
            },
            GetParam().fromTagged,
            QStringList(line) + LinesOfReadingBytes(ClassName()) + GetParam().taggedReadingWarnings);
    }
}

// --- Raw form ---------------------------------------------------------------------------------------------

TEST_P(GoldenBinary, WritesTheRawFormAmidAStream)
{
    const Support::Vector expected = Support::LoadVector(GetParam().Path("raw.hex"));
    const std::unique_ptr<Subject> subject = WrittenWithLogger();
    EXPECT_BYTES(WriteRaw(*subject), expected.ToBytes());
    Surroundings surroundings;
    subject->WriteRaw(surroundings.Stream());
    surroundings.ExpectWritten(expected.Data());
    EXPECT_LOG(m_logger, {});
}

TEST_P(GoldenBinary, ReadsTheRawFormAmidAStreamIntoANewObjectAndWritesItAgain)
{
    const QByteArray bytes = Support::LoadVector(GetParam().Path("raw.hex")).Data();
    const std::unique_ptr<Subject> subject = GetParam().fresh();
    ReadInto(
        *subject,
        [&](Subject& read) { ReadAmidOthers(bytes, [&](QDataStream& stream) { read.ReadRaw(stream); }); },
        GetParam().fromRaw, GetParam().rawReadingWarnings);
    EXPECT_BYTES(WriteRaw(*subject), bytes);
}

TEST_P(GoldenBinary, ReadsTheRawFormOverAUsedObject)
{
    const QByteArray bytes = Support::LoadVector(GetParam().Path("raw.hex")).Data();
    ReadInto(
        *GetParam().used(), [&](Subject& subject) { ReadRaw(subject, bytes); }, GetParam().fromRawIntoUsed,
        GetParam().rawReadingWarnings);
}

TEST(GoldenVectors, EachFileThatIsWrittenBelongsToACaseAndEachCaseHasItsFiles)
{
    std::set<QString> named;
    for (const GoldenCase& goldenCase : AllCases()) {
        named.insert(goldenCase.Path("xml"));
        if (!goldenCase.HasBinaryForms())
            continue;
        for (const char* form : {"hex", "zhex", "raw.hex"})
            named.insert(goldenCase.Path(form));
    }
    Support::ExpectVectorFiles(named, [](const QString& path) { return path.count(QLatin1Char('/')) == 1; });
}

namespace {

const auto NAME_OF_GOLDEN = [](const auto& info) { return info.param.TestName(); };

INSTANTIATE_TEST_SUITE_P(Vectors, Golden, ::testing::ValuesIn(AllCases()), NAME_OF_GOLDEN);
INSTANTIATE_TEST_SUITE_P(Vectors, GoldenBinary, ::testing::ValuesIn(BinaryCases()), NAME_OF_GOLDEN);

} // namespace
