// An area in XML. What all records have in common there stands in recordxmltest.cpp, what hangs on the
// version in areaversiontest.cpp.

#include "support/bytes.h"
#include "support/expect.h"
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
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamWriter>

#include <optional>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using Support::AreaState;
using Support::At;
using Support::Int32;
using Support::Lenient;
using Support::NOT_SET;
using Support::NotValidating;
using Support::NullString;
using Support::OnlyLatitude;
using Support::ReaderError;
using Support::ReadRawForm;
using Support::StreamPathOnly;
using Support::String;
using Support::Text;
using Support::UnindentedXmlOf;
using Support::WithUnflaggedPoint;

constexpr int NAME_FLAG = 1;

const char* const INCOMPLETE = "Parameters for Coordinate are not set properly in 'Area'.";
const char* const INCOMPLETE_WARNING =
    "WARNING: IncompleteDefinitionException: Parameters for Coordinate are "
    "not set properly in 'Area'.";
const char* const INCOMPLETE_FATAL = "FATAL ERROR: IncompleteDefinitionException: Parameters for Coordinate "
                                     "are not set properly in 'Area'.";
const char* const INCOMPLETE_ITEM =
    "Area: Tried to append not completely defined or invalid item Coordinate.";

const char* const GOOD_POINT = "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate>";

/// Read from an element whose good point is the first.
AreaState AreaWith(const std::vector<Support::CoordinateState>& coordinates,
                   const std::optional<QString>& scriptID = NOT_SET)
{
    return {Text("N"), coordinates, scriptID, Text("1.0")};
}

} // namespace

// --- Writing ----------------------------------------------------------------------------------------------

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
        Support::Written([&](QDataStream& stream) { EXPECT_FALSE(area.GetBinary(stream, 1, true)); });
    EXPECT_EQ(bytes.size(), 0);
    EXPECT_BYTES(area.GetBinaryRepresentationAsQByteArray(), String(u"IRGObject") + String(u"Area"));

    area.SetValidate(false);
    EXPECT_TEXT(UnindentedXmlOf(area), "<Area Version=\"1.0\"><Name>Lake</Name></Area>");
}

TEST(Area, XmlOfIncompleteCoordinatesIsWrittenAfterOneWarningEachWhenNotValidating)
{
    Area area = NotValidating<Area>();
    area.SetCoordinate({OnlyLatitude(2.0), At(1.0, 2.0), Coordinate()});
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_TEXT(
        UnindentedXmlOf(area),
        "<Area Version=\"1.0\"><Name></Name>"
        "<Coordinate><Longitude>0.000000</Longitude><Latitude>2.000000</Latitude></Coordinate>"
        "<Coordinate><Longitude>1.000000</Longitude><Latitude>2.000000</Latitude></Coordinate>"
        "<Coordinate><Longitude>0.000000</Longitude><Latitude>0.000000</Latitude></Coordinate></Area>");
    EXPECT_LOG(logger, {INCOMPLETE_WARNING, INCOMPLETE_WARNING});
}

TEST(Area, XmlOfAnIncompleteCoordinateIsRefusedWhenValidatingThoughTheCheckLetItPass)
{
    Lenient<Area> area;
    area.SetName(QStringLiteral("Lake"));
    area.SetCoordinate({At(1.0, 2.0), OnlyLatitude(2.0)});
    EXPECT_RG_THROW(area.GetXmlString(), "IncompleteDefinitionException", INCOMPLETE);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_RG_THROW(area.GetXmlString(), "IncompleteDefinitionException", INCOMPLETE);
    EXPECT_LOG(logger, {"INFO: Area: Generating xml string.", INCOMPLETE_FATAL});
}

TEST(Area, XmlHoldsNoCoordinatesThatAreNotMarkedAsSetButWarnsOfIncompleteOnes)
{
    EXPECT_TEXT(UnindentedXmlOf(WithUnflaggedPoint(NAME_FLAG)),
                "<Area Version=\"1.0\"><Name>Lake</Name></Area>");

    Area area = NotValidating<Area>();
    area.SetCoordinate({OnlyLatitude(1.0)});
    EXPECT_EQ(ReadRawForm(area, Support::Byte(0) + String(u"1.0") + NullString() + Int32(0)), 0);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_XML(area, "\n<Area Version=\"1.0\">\n    <Name></Name>\n</Area>");
    EXPECT_LOG(logger, {"INFO: Area: Generating xml string.", INCOMPLETE_WARNING});
}

// --- Reading ----------------------------------------------------------------------------------------------

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
        // What is empty isn't null.
        {"", ""},
        {"<!-- none -->", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.xml);
        Area area = NotValidating<Area>();
        const auto logger = Support::NewLogger();
        area.SetLogger(logger);
        EXPECT_TRUE(area.SetXmlString(
            Text("<Area Version=\"1.0\"><Name>%1</Name><ScriptID>%1</ScriptID></Area>").arg(Text(row.xml)),
            true));
        EXPECT_STATE(area, (AreaState{Text(row.text), {}, Text(row.text), Text("1.0")}));
        EXPECT_LOG(logger, {"INFO: Area: Loading xml string."});
    }
}

namespace {

/// A point that XML ends within is none, whether it validates or not. Those before it stay.
template <class Object>
void ExpectOnlyTheGoodPoint(const QString& xml)
{
    const QString error = ReaderError(xml);
    ASSERT_FALSE(error.isEmpty());
    for (const bool validate : {true, false}) {
        Object area;
        area.SetValidate(validate);
        const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
        area.SetLogger(logger);
        EXPECT_RG_THROW(area.SetXmlString(xml, true), "RGException", error);
        EXPECT_STATE(static_cast<const Area&>(area), AreaWith({{1.0, 2.0}}));
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
        const QString xml = Text("<Area Version=\"1.0\"><Name>N</Name>") + Text(GOOD_POINT) + Text(point);
        ExpectOnlyTheGoodPoint<Area>(xml);
        ExpectOnlyTheGoodPoint<StreamPathOnly<Area>>(xml);
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
    const QString xml = Text("<Area Version=\"1.0\"><Name>N</Name>%1<Coordinate>%2</Coordinate>"
                             "<Coordinate><Longitude>5</Longitude><Latitude>6</Latitude></Coordinate>"
                             "<ScriptID>S</ScriptID></Area>")
                            .arg(Text(GOOD_POINT), Text(odd.fields));
    const QString problem = Text("%1: %2").arg(Text(odd.name), Text(odd.error));
    const auto logger = Support::NewLogger(REPORTGENERATOR::WARNING);
    Object area;
    EXPECT_RG_THROW(area.SetXmlString(xml, true), odd.name, odd.error);
    EXPECT_STATE(static_cast<const Area&>(area), AreaWith({{1.0, 2.0}}));
    area.SetLogger(logger);
    EXPECT_RG_THROW(area.SetXmlString(xml, true), odd.name, odd.error);
    EXPECT_STATE(static_cast<const Area&>(area), AreaWith({{1.0, 2.0}}));
    area.SetValidate(false);
    EXPECT_TRUE(area.SetXmlString(xml, true));
    EXPECT_STATE(static_cast<const Area&>(area), AreaWith({{1.0, 2.0}, odd.state, {5.0, 6.0}}, Text("S")));
    EXPECT_LOG(logger, QStringList({Text("FATAL ERROR: ") + problem, Text("WARNING: ") + problem}));
}

} // namespace

TEST(Area, AnIncompleteOrOutOfRangeCoordinateElementBehindAGoodOneIsReported)
{
    const OddPoint points[] = {
        {"<Longitude>3</Longitude>", {3.0, NOT_SET}, "IncompleteDefinitionException", INCOMPLETE_ITEM},
        {"<Latitude>4</Latitude>", {NOT_SET, 4.0}, "IncompleteDefinitionException", INCOMPLETE_ITEM},
        {"<Longitudd>3</Longitudd><Latitude>4</Latitude>",
         {NOT_SET, 4.0},
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
