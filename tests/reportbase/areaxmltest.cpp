// An area in XML. What all records have in common there stands in recordxmltest.cpp, what hangs on the
// version in areaversiontest.cpp.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/points.h"
#include "support/readererror.h"
#include "support/recordclasses.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <optional>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using Support::AreaState;
using Support::At;
using Support::Int32;
using Support::Lake;
using Support::LakeState;
using Support::Lenient;
using Support::NotValidating;
using Support::NullString;
using Support::OnlyLatitude;
using Support::ReaderError;
using Support::ReadRawForm;
using Support::StreamPathOnly;
using Support::String;
using Support::Text;
using Support::WithUnflaggedPoint;
using Support::Written;

constexpr int NAME_FLAG = 1;

const char* const INCOMPLETE_ITEM =
    "Area: Tried to append not completely defined or invalid item Coordinate.";
const char* const INCOMPLETE_IN_XML = "Parameters for Coordinate are not set properly in 'Area'.";

int CountOf(const Area& area)
{
    return static_cast<int>(area.GetCoordinate().size());
}

QString PointXml(const char* longitude, const char* latitude)
{
    return QStringLiteral("    <Coordinate>\n        <Longitude>%1</Longitude>\n"
                          "        <Latitude>%2</Latitude>\n    </Coordinate>\n")
        .arg(Text(longitude), Text(latitude));
}

QString AreaXml(const QString& content)
{
    return QStringLiteral("\n<Area Version=\"1.0\">\n") + content + QStringLiteral("</Area>");
}

} // namespace

// --- XML writing ------------------------------------------------------------------------------------------

TEST(Area, XmlHoldsVersionNameCoordinatesAndScriptIdentifier)
{
    Area area = Lake();
    EXPECT_XML(area, AreaXml(QStringLiteral("    <Name>Lake</Name>\n") + PointXml("1.000000", "2.000000") +
                             QStringLiteral("    <ScriptID>S7</ScriptID>\n")));
    area.ResetScriptID();
    area.AppendCoordinate(At(-3.5, 4.25));
    EXPECT_XML(area, AreaXml(QStringLiteral("    <Name>Lake</Name>\n") + PointXml("1.000000", "2.000000") +
                             PointXml("-3.500000", "4.250000")));
}

TEST(Area, XmlTextsAreThoseOfQtsWriter)
{
    const ushort characters[] = {0x00,   0x01,   0x08,   0x09,   0x0a,   0x0b,   0x0c,   0x0d,  0x1f,
                                 0x20,   0x22,   0x26,   0x27,   0x3c,   0x3e,   0x7f,   0x85,  0xa0,
                                 0x2028, 0xd800, 0xdc00, 0xfdd0, 0xfeff, 0xfffd, 0xfffe, 0xffff};
    for (const ushort character : characters) {
        SCOPED_TRACE(character);
        const QString text = QLatin1Char('a') + QString(QChar(character)) + QLatin1Char('b');
        Area area = NotValidating<Area>();
        area.SetName(text);

        QString expected;
        QXmlStreamWriter writer(&expected);
        writer.setAutoFormatting(true);
        writer.writeStartElement(QStringLiteral("Area"));
        writer.writeAttribute(QStringLiteral("Version"), QStringLiteral("1.0"));
        writer.writeTextElement(QStringLiteral("Name"), text);
        writer.writeEndElement();
        EXPECT_XML(area, expected);
    }
}

TEST(Area, NothingIsWrittenWhenValidatingWithAnEmptyListThatIsSet)
{
    Area area;
    area.SetName(QStringLiteral("Lake"));
    area.GetCoordinate();
    EXPECT_XML(area, "");
    const QByteArray bytes =
        Written([&](QDataStream& stream) { EXPECT_FALSE(area.GetBinary(stream, 1, true)); });
    EXPECT_EQ(bytes.size(), 0);
    EXPECT_BYTES(area.GetBinaryRepresentationAsQByteArray(), String(u"IRGObject") + String(u"Area"));

    area.SetValidate(false);
    EXPECT_XML(area, AreaXml(QStringLiteral("    <Name>Lake</Name>\n")));
}

TEST(Area, XmlOfIncompleteCoordinatesIsWrittenAfterOneWarningEachWhenNotValidating)
{
    Area area = NotValidating<Area>();
    area.SetCoordinate({OnlyLatitude(2.0), At(1.0, 2.0), Coordinate()});
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_XML(area, AreaXml(QStringLiteral("    <Name></Name>\n") + PointXml("0.000000", "2.000000") +
                             PointXml("1.000000", "2.000000") + PointXml("0.000000", "0.000000")));
    EXPECT_LOG(logger, {"INFO: Area: Generating xml string.",
                        "WARNING: IncompleteDefinitionException: Parameters for Coordinate are not set "
                        "properly in 'Area'.",
                        "WARNING: IncompleteDefinitionException: Parameters for Coordinate are not set "
                        "properly in 'Area'."});
}

TEST(Area, XmlOfAnIncompleteCoordinateIsRefusedWhenValidatingThoughTheCheckLetItPass)
{
    Lenient<Area> area;
    area.SetName(QStringLiteral("Lake"));
    area.SetCoordinate({At(1.0, 2.0), OnlyLatitude(2.0)});
    EXPECT_RG_THROW(area.GetXmlString(), "IncompleteDefinitionException", INCOMPLETE_IN_XML);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_RG_THROW(area.GetXmlString(), "IncompleteDefinitionException", INCOMPLETE_IN_XML);
    EXPECT_LOG(logger, {"INFO: Area: Generating xml string.",
                        "FATAL ERROR: IncompleteDefinitionException: Parameters for Coordinate are not set "
                        "properly in 'Area'."});
}

TEST(Area, XmlHoldsNoCoordinatesThatAreNotMarkedAsSetButWarnsOfIncompleteOnes)
{
    EXPECT_XML(WithUnflaggedPoint(NAME_FLAG), AreaXml(QStringLiteral("    <Name>Lake</Name>\n")));

    Area area = NotValidating<Area>();
    area.SetCoordinate({OnlyLatitude(1.0)});
    EXPECT_EQ(ReadRawForm(area, Support::Byte(0) + String(u"1.0") + NullString() + Int32(0)), 0);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_XML(area, AreaXml(QStringLiteral("    <Name></Name>\n")));
    EXPECT_LOG(logger, {"INFO: Area: Generating xml string.",
                        "WARNING: IncompleteDefinitionException: Parameters for Coordinate are not set "
                        "properly in 'Area'."});
}

// --- XML reading ------------------------------------------------------------------------------------------

TEST(Area, XmlReadingTakesChildrenInAnyOrderTheLastTextAndAllCoordinates)
{
    Area area;
    EXPECT_TRUE(area.SetXmlString(
        QStringLiteral("<Area Version=\"1.0\"><ScriptID>a</ScriptID><Coordinate><Latitude>2</Latitude>"
                       "<Longitude>1</Longitude></Coordinate><Name>x</Name><ScriptID>S7</ScriptID>"
                       "<Name>Lake</Name></Area>"),
        true));
    AreaState state = LakeState();
    state.initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(area, state);
    EXPECT_TRUE(area.SetXmlString(
        QStringLiteral("<Area Version=\"1.0\"><Name>Lake</Name>"
                       "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
                       "<Coordinate><Longitude>3</Longitude><Latitude>4</Latitude></Coordinate></Area>"),
        true));
    state.coordinates = {{1.0, 2.0}, {3.0, 4.0}};
    state.scriptID.reset();
    EXPECT_STATE(area, state);
}

TEST(Area, EmptyTextsReadAsEmptyButNotNull)
{
    for (const char* name : {"<Name/>", "<Name></Name>", "<Name><!-- none --></Name>"}) {
        Area area = NotValidating<Area>();
        const auto logger = Support::NewLogger();
        area.SetLogger(logger);
        EXPECT_TRUE(
            area.SetXmlString(Text("<Area Version=\"1.0\">%1<ScriptID/></Area>").arg(Text(name)), true));
        EXPECT_TRUE(area.IsNameSet());
        EXPECT_FALSE(area.GetName().isNull());
        EXPECT_TEXT(area.GetName(), "");
        EXPECT_TRUE(area.IsScriptIDSet());
        EXPECT_FALSE(area.GetScriptID().isNull());
        EXPECT_TEXT(area.GetScriptID(), "");
        EXPECT_LOG(logger, {"INFO: Area: Loading xml string."});
    }
}

TEST(Area, TextsAreTakenAsTheyStandAndOnlyTheirLastPiece)
{
    struct Row
    {
        const char* xml;
        const char* text;
    };
    const Row rows[] = {
        {" Lake  region\n", " Lake  region\n"},
        {"&lt;&amp;&#65;&#x42;", "<&AB"},
        {"<![CDATA[<b>&amp;]]>", "<b>&amp;"},
        {"Lake<!-- c -->Region", "Region"},
        {"Lake<![CDATA[Region]]>", "Region"},
        {"Z\xc3\xbcrich", "Z\xc3\xbcrich"},
        {"  ", "  "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.xml);
        Area area = NotValidating<Area>();
        EXPECT_TRUE(area.SetXmlString(
            Text("<Area Version=\"1.0\"><Name>%1</Name><ScriptID>%1</ScriptID></Area>").arg(Text(row.xml)),
            true));
        EXPECT_TEXT(area.GetName(), row.text);
        EXPECT_TEXT(area.GetScriptID(), row.text);
    }
}

TEST(Area, AnIncompleteCoordinateElementIsRefusedWhenValidatingAndWhatWasReadBeforeStays)
{
    const QString xml =
        QStringLiteral("<Area Version=\"1.0\"><Name>N</Name>"
                       "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
                       "<Coordinate><Latitude>3</Latitude></Coordinate><ScriptID>S</ScriptID></Area>");
    Area area;
    EXPECT_RG_THROW(area.SetXmlString(xml, true), "IncompleteDefinitionException", INCOMPLETE_ITEM);
    AreaState state;
    state.name = QStringLiteral("N");
    state.coordinates = {{1.0, 2.0}};
    state.initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(area, state);

    area.SetValidate(false);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_TRUE(area.SetXmlString(xml, true));
    state.coordinates.push_back({std::nullopt, 3.0});
    state.scriptID = QStringLiteral("S");
    EXPECT_STATE(area, state);
    EXPECT_LOG(logger, {"INFO: Area: Loading xml string.",
                        "WARNING: IncompleteDefinitionException: Area: Tried to append not completely "
                        "defined or invalid item Coordinate."});
}

TEST(Area, AnOutOfRangeCoordinateElementSpeaksThroughTheLoggerOfTheArea)
{
    const QString xml =
        QStringLiteral("<Area Version=\"1.0\"><Name>N</Name><Coordinate><Longitude>181</Longitude>"
                       "<Latitude>2</Latitude></Coordinate></Area>");
    Area area;
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_RG_THROW(area.SetXmlString(xml, true), "OutOfRangeException",
                    "Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'.");
    EXPECT_EQ(CountOf(area), 0);
    EXPECT_FALSE(area.IsCoordinateSet());
    EXPECT_LOG(logger, {"INFO: Area: Loading xml string.",
                        "FATAL ERROR: OutOfRangeException: Parameters for m_longitude are not set within "
                        "range (-180, 180) in 'Coordinate'."});

    logger->Reset(true);
    area.SetValidate(false);
    EXPECT_TRUE(area.SetXmlString(xml, true));
    EXPECT_EQ(CountOf(area), 1);
    EXPECT_LOG(logger, {"INFO: Area: Loading xml string.",
                        "WARNING: OutOfRangeException: Parameters for m_longitude are not set within range "
                        "(-180, 180) in 'Coordinate'."});
}

namespace {

/// A point that XML ends within is none, whether it validates or not. Those before it stay.
template <class Object>
void ExpectOnlyTheGoodPoint(const QString& xml)
{
    const QString error = ReaderError(xml);
    ASSERT_FALSE(error.isEmpty());
    AreaState state;
    state.name = QStringLiteral("N");
    state.coordinates = {{1.0, 2.0}};
    state.initialVersionLoaded = QStringLiteral("1.0");
    for (const bool validate : {true, false}) {
        Object area;
        area.SetValidate(validate);
        const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
        area.SetLogger(logger);
        EXPECT_RG_THROW(area.SetXmlString(xml, true), "RGException", error);
        EXPECT_STATE(static_cast<const Area&>(area), state);
        EXPECT_LOG(logger, QStringList(Text("FATAL ERROR: RGException: ") + error));
    }
}

} // namespace

TEST(Area, AMalformedCoordinateElementBehindAGoodOneIsNotTaken)
{
    for (const char* point : {
             "<Coordinate><Longitude>3</Longitude><Latitude>4</Latitude></Coordinat></Area>",
             "<Coordinate><Longitude>3</Longitude><Latitude>4</Latitude></Area>",
             "<Coordinate><Longitude>3</Longitude><Latitude>4</Longitude></Coordinate></Area>",
             "<Coordinate><Longitude>3</Longitude><Latitude>4</Coordinate></Area>",
             "<Coordinate><Longitude>3</Latitude><Latitude>4</Latitude></Coordinate></Area>",
             "<Coordinate><Longitude>3</Longitude><Latitude>4</Latitude>",
             "<Coordinate><Longitude>3</Longitude><Latitude>4",
             "<Coordinate><Longitude>3</Longitude><Latitude>4</Latitude><</Coordinate></Area>",
             "<Coordinate><Longitude>3</Longitude><Latitude>4</Latitude>&</Coordinate></Area>",
             "<Coordinate a><Longitude>3</Longitude><Latitude>4</Latitude></Coordinate></Area>",
         }) {
        SCOPED_TRACE(point);
        const QString xml = Text("<Area Version=\"1.0\"><Name>N</Name><Coordinate><Longitude>1</Longitude>"
                                 "<Latitude>2</Latitude></Coordinate>") +
                            Text(point);
        ExpectOnlyTheGoodPoint<Area>(xml);
        ExpectOnlyTheGoodPoint<StreamPathOnly<Area>>(xml);
    }
}

TEST(Area, BytesThatAreNotUtf8AreRefusedWhereverTheyStandInAText)
{
    for (const QByteArray& name :
         {QByteArray("\xfc"), QByteArray("a\xfc"), QByteArray("&amp;\xfc"), QByteArray("\xfc&amp;")}) {
        SCOPED_TRACE(name.constData());
        const QByteArray xml = "<Area Version=\"1.0\"><Name>" + name + "</Name></Area>";
        QXmlStreamReader reader(xml);
        while (!reader.atEnd())
            reader.readNext();
        Area area;
        StreamPathOnly<Area> derived;
        for (Area* object : {&area, static_cast<Area*>(&derived)}) {
            Support::OpenFile file(xml);
            EXPECT_RG_THROW(static_cast<REPORTGENERATOR::IRGObject*>(object)->LoadXml(file.Get()),
                            "RGException", reader.errorString());
            EXPECT_FALSE(object->IsNameSet());
        }
    }
}

namespace {

/// The second of three points; the others are good ones of the same shape.
struct OddPoint
{
    const char* fields;
    Support::CoordinateState state;
    const char* name;
    const char* error;
};

template <class Object>
void ExpectReported(const OddPoint& odd)
{
    SCOPED_TRACE(odd.fields);
    const QString xml = Text("<Area Version=\"1.0\"><Name>N</Name>"
                             "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>"
                             "<Coordinate>%1</Coordinate>"
                             "<Coordinate><Longitude>5</Longitude><Latitude>6</Latitude></Coordinate>"
                             "<ScriptID>S</ScriptID></Area>")
                            .arg(Text(odd.fields));
    AreaState state;
    state.name = QStringLiteral("N");
    state.coordinates = {{1.0, 2.0}};
    state.initialVersionLoaded = QStringLiteral("1.0");
    Object area;
    EXPECT_RG_THROW(area.SetXmlString(xml, true), odd.name, odd.error);
    EXPECT_STATE(static_cast<const Area&>(area), state);

    area.SetValidate(false);
    const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
    area.SetLogger(logger);
    EXPECT_TRUE(area.SetXmlString(xml, true));
    state.coordinates.push_back(odd.state);
    state.coordinates.push_back({5.0, 6.0});
    state.scriptID = QStringLiteral("S");
    EXPECT_STATE(static_cast<const Area&>(area), state);
    EXPECT_LOG(logger, QStringList(Text("WARNING: %1: %2").arg(Text(odd.name), Text(odd.error))));
}

} // namespace

TEST(Area, AnIncompleteOrOutOfRangeCoordinateElementBehindAGoodOneIsReported)
{
    const OddPoint points[] = {
        {"<Longitude>3</Longitude>", {3.0, std::nullopt}, "IncompleteDefinitionException", INCOMPLETE_ITEM},
        {"<Latitude>4</Latitude>", {std::nullopt, 4.0}, "IncompleteDefinitionException", INCOMPLETE_ITEM},
        {"<Longitudd>3</Longitudd><Latitude>4</Latitude>",
         {std::nullopt, 4.0},
         "IncompleteDefinitionException",
         INCOMPLETE_ITEM},
        {"<Longitude>3</Longitude><Latitude>95</Latitude>",
         {3.0, 95.0},
         "OutOfRangeException",
         "Parameters for m_latitude are not set within range (-90, 90) in 'Coordinate'."},
        {"<Longitude>200</Longitude><Latitude>4</Latitude>",
         {200.0, 4.0},
         "OutOfRangeException",
         "Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'."},
    };
    for (const OddPoint& odd : points) {
        ExpectReported<Area>(odd);
        ExpectReported<StreamPathOnly<Area>>(odd);
    }
}
