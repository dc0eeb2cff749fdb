// The classes with a record in their three forms: what stands in each of them for which fields, and what is read
// back.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/states.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>

#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::ReportBase;
using Support::AreaElement;
using Support::AreaState;
using Support::BandwidthElement;
using Support::BandwidthState;
using Support::Bool;
using Support::Byte;
using Support::Bytes;
using Support::Coordinates;
using Support::CoordinateState;
using Support::Double;
using Support::FrequencyElement;
using Support::FrequencyState;
using Support::Int32;
using Support::Latitude;
using Support::Longitude;
using Support::Made;
using Support::Max;
using Support::Min;
using Support::Name;
using Support::Named;
using Support::NOT_SET;
using Support::NullName;
using Support::NullScriptID;
using Support::NullString;
using Support::Point;
using Support::RawPoint;
using Support::ReadElements;
using Support::ReadRawForm;
using Support::ReportState;
using Support::ScriptID;
using Support::StateOfClass;
using Support::String;
using Support::Text;
using Support::Use;
using Support::Used;
using Support::Value;
using Support::Version;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();

template <class T>
struct FormRow
{
    using State = StateOfClass<T>;

    FormRow(const State& fields, const Bytes& rawForm, const char* unindented, const Bytes& body)
        : FormRow(fields, rawForm, unindented, body, fields)
    {
    }

    FormRow(const State& fields, const Bytes& rawForm, const char* unindented, const Bytes& body,
            const State& readBack)
        : FormRow(fields, rawForm, unindented, body, readBack, readBack)
    {
    }

    FormRow(State fields, Bytes rawForm, const char* unindented, Bytes body, State readFromXml,
            State readFromElements, bool leftovers = false)
        : state(std::move(fields)), raw(std::move(rawForm)), xml(unindented), elements(std::move(body)),
          fromXml(std::move(readFromXml)), fromElements(std::move(readFromElements)), hasLeftovers(leftovers)
    {
    }

    State state;
    Bytes raw;
    const char* xml; ///< without indentation, with "@" for the name
    Bytes elements;

    // What is read back from these two.
    State fromXml;
    State fromElements;

    /// The raw form has numbers that count as unset, which setters can't leave behind.
    bool hasLeftovers;
};

template <class T>
using FormRows = std::vector<FormRow<T>>;

// --- Frequency and IFBandwidth

template <class T>
FormRows<T> Forms()
{
    FormRows<T> rows = {
        {{}, Byte(0) + Double(0.0), "<@>0.00</@>", Value("0.00"), {0.0}},
        {{0.0}, Byte(1) + Double(0.0), "<@>0.00</@>", Value("0.00")},
        {{433920000.0}, Byte(1) + Double(433920000.0), "<@>433920000.00</@>", Value("433920000.00")},
        {{NOT_SET, 2.0},
         Byte(2) + Double(0.0) + Double(2.0),
         "<@ Min=\"2.00\">0.00</@>",
         Min("2.00") + Value("0.00"),
         {0.0, 2.0}},
        {{1.0, 2.0},
         Byte(3) + Double(1.0) + Double(2.0),
         "<@ Min=\"2.00\">1.00</@>",
         Min("2.00") + Value("1.00")},
        {{NOT_SET, NOT_SET, 3.0},
         Byte(4) + Double(0.0) + Double(3.0),
         "<@ Max=\"3.00\">0.00</@>",
         Max("3.00") + Value("0.00"),
         {0.0, NOT_SET, 3.0}},
        {{1.0, NOT_SET, 3.0},
         Byte(5) + Double(1.0) + Double(3.0),
         "<@ Max=\"3.00\">1.00</@>",
         Max("3.00") + Value("1.00")},
        {{NOT_SET, 2.0, 3.0},
         Byte(6) + Double(0.0) + Double(2.0) + Double(3.0),
         "<@ Min=\"2.00\" Max=\"3.00\">0.00</@>",
         Min("2.00") + Max("3.00") + Value("0.00"),
         {0.0, 2.0, 3.0}},
        {{1.0, 3.0, 2.0},
         Byte(7) + Double(1.0) + Double(3.0) + Double(2.0),
         "<@ Min=\"3.00\" Max=\"2.00\">1.00</@>",
         Min("3.00") + Max("2.00") + Value("1.00")},
        {{-111111.11, -111111.11},
         Byte(3) + Double(-111111.11) + Double(-111111.11),
         "<@ Min=\"-111111.11\">-111111.11</@>",
         Min("-111111.11") + Value("-111111.11")},
        {{1.005, 99.999, -0.001},
         Byte(7) + Double(1.005) + Double(99.999) + Double(-0.001),
         "<@ Min=\"100.00\" Max=\"-0.00\">1.00</@>",
         Min("100.00") + Max("-0.00") + Value("1.00"),
         {1.0, 100.0, -0.0}},
        {{1.0 / 3.0, 2.125, -0.0},
         Byte(7) + Double(1.0 / 3.0) + Double(2.125) + Double(-0.0),
         "<@ Min=\"2.13\" Max=\"0.00\">0.33</@>",
         Min("2.13") + Max("0.00") + Value("0.33"),
         {0.33, 2.13, 0.0}},
        {{NOT_A_NUMBER, -INF, INF},
         Byte(7) + Double(NOT_A_NUMBER) + Double(-INF) + Double(INF),
         "<@ Min=\"-inf\" Max=\"inf\">nan</@>",
         Min("-inf") + Max("inf") + Value("nan")},
        {{}, Byte(0) + Double(5.5), "<@>5.50</@>", Value("5.50"), {5.5}, {5.5}, true},
        {{NOT_SET, 6.5},
         Byte(2) + Double(5.5) + Double(6.5),
         "<@ Min=\"6.50\">5.50</@>",
         Min("6.50") + Value("5.50"),
         {5.5, 6.5},
         {5.5, 6.5},
         true},
    };
    if constexpr (std::is_same_v<T, Frequency>) {
        rows.insert(rows.end(), {
                                    {{NOT_SET, NOT_SET, NOT_SET, true},
                                     Byte(8) + Double(0.0) + Bool(true),
                                     "<@ Use=\"true\">0.00</@>",
                                     Use(true) + Value("0.00"),
                                     {0.0, NOT_SET, NOT_SET, true}},
                                    {{1.005, NOT_SET, NOT_SET, false},
                                     Byte(9) + Double(1.005) + Bool(false),
                                     "<@ Use=\"false\">1.00</@>",
                                     Use(false) + Value("1.00"),
                                     {1.0, NOT_SET, NOT_SET, false}},
                                    {{1.0, 2.0, 3.0, true},
                                     Byte(15) + Double(1.0) + Double(2.0) + Double(3.0) + Bool(true),
                                     "<@ Min=\"2.00\" Max=\"3.00\" Use=\"true\">1.00</@>",
                                     Min("2.00") + Max("3.00") + Use(true) + Value("1.00")},
                                });
    }
    return rows;
}

// --- Coordinate

template <>
FormRows<Coordinate> Forms()
{
    return {
        {{},
         RawPoint(0, 0.0, 0.0),
         "<@><Longitude>0.000000</Longitude><Latitude>0.000000</Latitude></@>",
         Longitude("0.000000") + Latitude("0.000000"),
         {0.0, 0.0}},
        {{1.0},
         RawPoint(1, 1.0, 0.0),
         "<@><Longitude>1.000000</Longitude><Latitude>0.000000</Latitude></@>",
         Longitude("1.000000") + Latitude("0.000000"),
         {1.0, 0.0}},
        {{NOT_SET, -0.0},
         RawPoint(2, 0.0, -0.0),
         "<@><Longitude>0.000000</Longitude><Latitude>0.000000</Latitude></@>",
         Longitude("0.000000") + Latitude("0.000000"),
         {0.0, 0.0}},
        {{8.5, -45.25},
         RawPoint(3, 8.5, -45.25),
         "<@><Longitude>8.500000</Longitude><Latitude>-45.250000</Latitude></@>",
         Longitude("8.500000") + Latitude("-45.250000")},
        {{1.0 / 3.0, 2.0 / 3.0},
         RawPoint(3, 1.0 / 3.0, 2.0 / 3.0),
         "<@><Longitude>0.333333</Longitude><Latitude>0.666667</Latitude></@>",
         Longitude("0.333333") + Latitude("0.666667"),
         {0.333333, 0.666667}},
        {{1e15, -111111.11},
         RawPoint(3, 1e15, -111111.11),
         "<@><Longitude>1000000000000000.000000</Longitude><Latitude>-111111.110000</Latitude></@>",
         Longitude("1000000000000000.000000") + Latitude("-111111.110000")},
        // What is no number is padded to four characters in the longitude and to three in the latitude.
        {{NOT_A_NUMBER, NOT_A_NUMBER},
         RawPoint(3, NOT_A_NUMBER, NOT_A_NUMBER),
         "<@><Longitude> nan</Longitude><Latitude>nan</Latitude></@>",
         Longitude(" nan") + Latitude("nan")},
        {{INF, INF},
         RawPoint(3, INF, INF),
         "<@><Longitude> inf</Longitude><Latitude>inf</Latitude></@>",
         Longitude(" inf") + Latitude("inf")},
        {{-INF, -INF},
         RawPoint(3, -INF, -INF),
         "<@><Longitude>-inf</Longitude><Latitude>-inf</Latitude></@>",
         Longitude("-inf") + Latitude("-inf")},
        {{1.0},
         RawPoint(1, 1.0, 6.5),
         "<@><Longitude>1.000000</Longitude><Latitude>6.500000</Latitude></@>",
         Longitude("1.000000") + Latitude("6.500000"),
         {1.0, 6.5},
         {1.0, 6.5},
         true},
        {{},
         RawPoint(0, 5.5, 6.5),
         "<@><Longitude>5.500000</Longitude><Latitude>6.500000</Latitude></@>",
         Longitude("5.500000") + Latitude("6.500000"),
         {5.5, 6.5},
         {5.5, 6.5},
         true},
    };
}

// --- Area

AreaState AreaOf(const std::optional<QString>& name, const std::vector<CoordinateState>& coordinates,
                 const std::optional<QString>& scriptID = std::nullopt)
{
    return {name, coordinates, scriptID};
}

template <>
FormRows<Area> Forms()
{
    const QString null;
    const QString empty = QStringLiteral("");
    const Bytes version = Version(u"1.0");
    const Bytes point = Point("1.000000", "2.000000");
    const Bytes odd = Point("0.333333", "0.000000");
    return {
        {AreaOf(NOT_SET, {}), Byte(0) + String(u"1.0") + NullString() + Int32(0),
         "<@ Version=\"1.0\"><Name></Name></@>", version + NullName() + Coordinates(0, Bytes()),
         AreaOf(empty, {}), AreaOf(null, {})},
        {AreaOf(NOT_SET, {}, null), Byte(4) + String(u"1.0") + NullString() + Int32(0) + NullString(),
         "<@ Version=\"1.0\"><Name></Name><ScriptID></ScriptID></@>",
         version + NullName() + Coordinates(0, Bytes()) + NullScriptID(), AreaOf(empty, {}, empty),
         AreaOf(null, {}, null)},
        {AreaOf(null, {}), Byte(1) + String(u"1.0") + NullString() + Int32(0),
         "<@ Version=\"1.0\"><Name></Name></@>", version + NullName() + Coordinates(0, Bytes()),
         AreaOf(empty, {}), AreaOf(null, {})},
        {AreaOf(empty, {}, empty), Byte(5) + String(u"1.0") + String(u"") + Int32(0) + String(u""),
         "<@ Version=\"1.0\"><Name></Name><ScriptID></ScriptID></@>",
         version + Name("") + Coordinates(0, Bytes()) + ScriptID("")},
        {AreaOf(Text("Lake"), {{1.0, 2.0}}),
         Byte(3) + String(u"1.0") + String(u"Lake") + Int32(1) + RawPoint(3, 1.0, 2.0),
         "<@ Version=\"1.0\"><Name>Lake</Name><Coordinate><Longitude>1.000000</Longitude>"
         "<Latitude>2.000000</Latitude></Coordinate></@>",
         version + Name("Lake") + Coordinates(1, point)},
        {AreaOf(Text("Lake"), {{1.0, 2.0}, {1.0 / 3.0, -0.0}}, Text("S7")),
         Byte(7) + String(u"1.0") + String(u"Lake") + Int32(2) + RawPoint(3, 1.0, 2.0) +
             RawPoint(3, 1.0 / 3.0, -0.0) + String(u"S7"),
         "<@ Version=\"1.0\"><Name>Lake</Name><Coordinate><Longitude>1.000000</Longitude>"
         "<Latitude>2.000000</Latitude></Coordinate><Coordinate><Longitude>0.333333</Longitude>"
         "<Latitude>0.000000</Latitude></Coordinate><ScriptID>S7</ScriptID></@>",
         version + Name("Lake") + Coordinates(2, point + odd) + ScriptID("S7"),
         AreaOf(Text("Lake"), {{1.0, 2.0}, {0.333333, 0.0}}, Text("S7"))},
        {AreaOf(Text("<a> & \"b\" 'c' Z\xc3\xbcrich \xf0\x9f\x93\xa1"), {{1.0, 2.0}}, Text("]]>")),
         Byte(7) + String(u"1.0") + String(u"<a> & \"b\" 'c' Z\u00fcrich \U0001f4e1") + Int32(1) +
             RawPoint(3, 1.0, 2.0) + String(u"]]>"),
         "<@ Version=\"1.0\"><Name>&lt;a&gt; &amp; &quot;b&quot; 'c' Z\xc3\xbcrich \xf0\x9f\x93\xa1</Name>"
         "<Coordinate><Longitude>1.000000</Longitude><Latitude>2.000000</Latitude></Coordinate>"
         "<ScriptID>]]&gt;</ScriptID></@>",
         version + Name("<a> & \"b\" 'c' Z\xc3\xbcrich \xf0\x9f\x93\xa1") + Coordinates(1, point) +
             ScriptID("]]>")},
    };
}

// --- ReportBase

template <>
FormRows<ReportBase> Forms()
{
    const FrequencyState frequency = {5.0};
    const BandwidthState bandwidth = {6.0};
    const AreaState lake = AreaOf(Text("Lake"), {{1.0, 2.0}});
    const Bytes rawFive = Byte(1) + Double(5.0);
    const Bytes rawSix = Byte(1) + Double(6.0);
    const Bytes rawLake = Byte(3) + String(u"1.0") + String(u"Lake") + Int32(1) + RawPoint(3, 1.0, 2.0);
    const Bytes rawNoArea = Byte(0) + String(u"1.0") + NullString() + Int32(0);
    const Bytes lakeElement =
        AreaElement(Version(u"1.0") + Name("Lake") + Coordinates(1, Point("1.000000", "2.000000")));
    const Bytes noAreaElement = AreaElement(Version(u"1.0") + NullName() + Coordinates(0, Bytes()));
    return {
        {{}, Byte(0), "<@/>", Bytes()},
        {{frequency}, Byte(1) + rawFive, "<@><Frequency>5.00</Frequency></@>", FrequencyElement("5.00")},
        {{NOT_SET, bandwidth},
         Byte(2) + rawSix,
         "<@><IFBandwidth>6.00</IFBandwidth></@>",
         BandwidthElement("6.00")},
        {{NOT_SET, NOT_SET, lake},
         Byte(4) + rawLake,
         "<@><Area Version=\"1.0\"><Name>Lake</Name><Coordinate><Longitude>1.000000</Longitude>"
         "<Latitude>2.000000</Latitude></Coordinate></Area></@>",
         lakeElement},
        {{frequency, bandwidth, lake},
         Byte(7) + rawFive + rawSix + rawLake,
         "<@><Frequency>5.00</Frequency><IFBandwidth>6.00</IFBandwidth><Area "
         "Version=\"1.0\"><Name>Lake</Name>"
         "<Coordinate><Longitude>1.000000</Longitude><Latitude>2.000000</Latitude></Coordinate></Area></@>",
         FrequencyElement("5.00") + BandwidthElement("6.00") + lakeElement},
        {{FrequencyState{121500000.125}},
         Byte(1) + Byte(1) + Double(121500000.125),
         "<@><Frequency>121500000.13</Frequency></@>",
         FrequencyElement("121500000.13"),
         {FrequencyState{121500000.13}}},
        {{FrequencyState(), BandwidthState(), AreaState()},
         Byte(7) + Byte(0) + Double(0.0) + Byte(0) + Double(0.0) + rawNoArea,
         "<@><Frequency>0.00</Frequency><IFBandwidth>0.00</IFBandwidth>"
         "<Area Version=\"1.0\"><Name></Name></Area></@>",
         FrequencyElement("0.00") + BandwidthElement("0.00") + noAreaElement,
         {FrequencyState{0.0}, BandwidthState{0.0}, AreaOf(QStringLiteral(""), {})},
         {FrequencyState{0.0}, BandwidthState{0.0}, AreaOf(QString(), {})}},
    };
}

// --- What is expected

template <class State>
State Loaded(const State& state)
{
    return state;
}

AreaState Loaded(AreaState state)
{
    state.initialVersionLoaded = QStringLiteral("1.0");
    return state;
}

ReportState Loaded(ReportState state)
{
    if (state.area)
        state.area = Loaded(*state.area);
    return state;
}

template <class T>
class RecordForms : public ::testing::Test
{
protected:
    static void ExpectWritten(T& object, const FormRow<T>& row)
    {
        const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
        object.SetValidate(false);
        object.SetLogger(logger);
        const auto before = Support::StateOf(object);
        EXPECT_TEXT(Support::UnindentedXmlOf(object), Named<T>(row.xml));
        EXPECT_TEXT(object.GetXmlString().remove(QLatin1Char('\n')).remove(QLatin1String("    ")),
                    Named<T>(row.xml));
        EXPECT_BYTES(Support::BodyOf(object), Element(1, row.elements));
        EXPECT_BYTES(Support::RawFormOf(object), row.raw);
        EXPECT_STATE(object, before);
        EXPECT_LOG(logger, {});
    }
};

TYPED_TEST_SUITE(RecordForms, Support::RecordClasses, Support::RecordClassNames);

} // namespace

TYPED_TEST(RecordForms, HoldTheFieldsHoweverTheyCameIn)
{
    for (const FormRow<TypeParam>& row : Forms<TypeParam>()) {
        SCOPED_TRACE(row.xml);
        TypeParam read = Support::NotValidating<TypeParam>();
        EXPECT_EQ(ReadRawForm(read, row.raw + Byte(5)), 1);
        EXPECT_STATE(read, Loaded(row.state));
        this->ExpectWritten(read, row);
        if (row.hasLeftovers)
            continue;
        TypeParam made = Made<TypeParam>(row.state);
        this->ExpectWritten(made, row);
    }
}

TYPED_TEST(RecordForms, AreReadIntoAUsedObject)
{
    for (const FormRow<TypeParam>& row : Forms<TypeParam>()) {
        SCOPED_TRACE(row.xml);
        TypeParam object = Used<TypeParam>();
        object.SetValidate(false);
        EXPECT_TRUE(object.SetXmlString(Named<TypeParam>(row.xml), true));
        EXPECT_STATE(object, Loaded(row.fromXml));
        object = Used<TypeParam>();
        EXPECT_EQ(ReadElements(object, row.elements), 0);
        EXPECT_STATE(object, Loaded(row.fromElements));
    }
}

TYPED_TEST(RecordForms, OfAnObjectWithoutDataAreEmptyWhenItValidatesAndTheCheckSaysNothing)
{
    const Support::Lenient<TypeParam> object;
    if (object.HasData())
        return; // as a report always has
    EXPECT_XML(object, "");
    const QByteArray bytes =
        Support::Written([&](QDataStream& stream) { EXPECT_FALSE(object.GetBinary(stream, 1, true)); });
    EXPECT_EQ(bytes.size(), 0);
    EXPECT_BYTES(object.GetBinaryRepresentationAsQByteArray(),
                 String(u"IRGObject") + String(Support::NameOf<TypeParam>().toStdU16String()));
}
