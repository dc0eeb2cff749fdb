#include "support/bytes.h"
#include "support/expect.h"
#include "support/pipe.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using Support::AreaState;
using Support::BodyOf;
using Support::ByteArray;
using Support::Bytes;
using Support::CoordinateState;
using Support::Int32;
using Support::NullString;
using Support::Pipe;
using Support::ReadElement;
using Support::ReadElements;
using Support::ReadRawForm;
using Support::String;
using Support::Text;
using Support::Written;
namespace Tag = Support::Tag;

constexpr int NAME_FLAG = 1;
constexpr int COORDINATES_FLAG = 2;
constexpr int SCRIPT_FLAG = 4;
constexpr qint32 GREATEST = std::numeric_limits<qint32>::max();
constexpr qint32 LEAST = std::numeric_limits<qint32>::min();

const char* const SET_NAME = "Area: Please set Name properly.";
const char* const SET_COORDINATE = "Area: Please set Coordinate properly.";
const char* const SET_SCRIPT_ID = "Area: Please set ScriptID properly.";
const char* const NULL_NAME = "Area: Please set Name properly (origin: Setter).";
const char* const NULL_SCRIPT_ID = "Area: Please set ScriptID properly (origin: Setter).";
const char* const INCOMPLETE_ITEM =
    "Area: Tried to append not completely defined or invalid item Coordinate.";
const char* const INCOMPLETE_IN_XML = "Parameters for Coordinate are not set properly in 'Area'.";
const char* const LENGTH_ERROR =
    "Area::SetBinary(...): Length error occurred during processing of binary representation";

// --- Objects ----------------------------------------------------------------------------------------------

Coordinate At(double longitude, double latitude)
{
    Coordinate coordinate;
    coordinate.SetLongitude(longitude);
    coordinate.SetLatitude(latitude);
    return coordinate;
}

Coordinate OnlyLatitude(double latitude)
{
    Coordinate coordinate;
    coordinate.SetLatitude(latitude);
    return coordinate;
}

Coordinate OutOfRange(double longitude, double latitude)
{
    Coordinate coordinate;
    coordinate.SetValidate(false);
    coordinate.SetLongitude(longitude);
    coordinate.SetLatitude(latitude);
    return coordinate;
}

/// Name "Lake", one point, script "S7".
Area Lake()
{
    Area area;
    area.SetName(QStringLiteral("Lake"));
    area.AppendCoordinate(At(1.0, 2.0));
    area.SetScriptID(QStringLiteral("S7"));
    return area;
}

AreaState LakeState()
{
    AreaState state;
    state.name = QStringLiteral("Lake");
    state.coordinates = {{1.0, 2.0}};
    state.scriptID = QStringLiteral("S7");
    return state;
}

Area NotValidating()
{
    Area area;
    area.SetValidate(false);
    return area;
}

/// Holds one point, (1, 2), but counts the coordinates as not set. It doesn't validate.
Area WithUnflaggedPoint(int otherFlags = 0)
{
    Area area = NotValidating();
    area.AppendCoordinate(At(1.0, 2.0));
    Bytes raw = Support::Byte(otherFlags) + String(u"1.0");
    raw += otherFlags & NAME_FLAG ? String(u"Lake") : NullString();
    EXPECT_EQ(ReadRawForm(area, raw + Int32(0)), 0);
    EXPECT_FALSE(area.IsCoordinateSet());
    EXPECT_EQ(std::as_const(area).GetCoordinate().size(), 1);
    return area;
}

int CountOf(const Area& area)
{
    return static_cast<int>(area.GetCoordinate().size());
}

/// Finds nothing wrong.
class Lenient : public Area
{
public:
    void Check(bool) const override {}
    void Check() const override {}
};

class Renamed : public Area
{
public:
    Renamed() { SetObjectName(QStringLiteral("Region")); }
};

/// Says that it is of a version of its own.
class OfVersion : public Area
{
public:
    explicit OfVersion(const QString& version) : m_version(version) {}
    const QString& GetVersion() const override { return m_version; }

private:
    QString m_version;
};

// --- Bytes and texts --------------------------------------------------------------------------------------

Bytes Version(std::u16string_view version)
{
    return Element(Tag::AREA_VERSION, String(version));
}

Bytes Name(std::string_view name)
{
    return Element(Tag::AREA_NAME, ByteArray(name));
}

Bytes ScriptID(std::string_view scriptID)
{
    return Element(Tag::AREA_SCRIPT_ID, ByteArray(scriptID));
}

Bytes PointElements(const char* longitude, const char* latitude)
{
    return Element(Tag::COORDINATE_LONGITUDE, ByteArray(longitude)) +
           Element(Tag::COORDINATE_LATITUDE, ByteArray(latitude));
}

Bytes Point(const char* longitude, const char* latitude)
{
    return Support::Body(PointElements(longitude, latitude));
}

Bytes Coordinates(long long count, const Bytes& points)
{
    return Element(Tag::AREA_COORDINATES, Int32(count) + points);
}

Bytes RawPoint(int flags, double longitude, double latitude)
{
    return Support::Byte(flags) + Support::Double(longitude) + Support::Double(latitude);
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

/// How versions found in data compare with the model version, "1.0".
struct VersionRow
{
    const char16_t* version;
    bool isOlder;
};

const VersionRow VERSIONS[] = {
    {u"1.0", false},   {u"1", false},   {u"1.00", false}, {u"01.0", false}, {u"1e0", false},
    {u" 1.0 ", false}, {u"1.1", false}, {u"2", false},    {u"10.0", false}, {u"0.9", true},
    {u"0", true},      {u"-1", true},   {u"", true},      {u" ", true},     {u"abc", true},
    {u"1,0", true},    {u"2.0a", true}, {u"v2", true},    {u"1.0.0", true}, {u"0.5e0", true},
};

} // namespace

// --- Fields -----------------------------------------------------------------------------------------------

TEST(Area, ANewRecordHasNullTextsNoCoordinatesAndVersionOne)
{
    const Area area;
    EXPECT_TRUE(area.GetName().isNull());
    EXPECT_TRUE(area.IsInitialized());
    EXPECT_TRUE(area.GetScriptID().isNull());
    EXPECT_TRUE(area.GetCoordinate().isEmpty());
    EXPECT_TEXT(area.GetVersion(), "1.0");
    EXPECT_TEXT(area.GetInitialVersionLoaded(), "");
    EXPECT_FALSE(area.IsNameSet());
    EXPECT_FALSE(area.IsCoordinateSet());
    EXPECT_FALSE(area.IsScriptIDSet());
}

TEST(Area, DefaultsAreNullTextsAndDoNotMakeTheRecord)
{
    const Area area;
    EXPECT_TRUE(area.GetDefaultName().isNull());
    EXPECT_TRUE(area.GetDefaultScriptID().isNull());
    EXPECT_FALSE(area.IsInitialized());
}

TEST(Area, OnlyNullTextsAreInvalid)
{
    const Area area;
    EXPECT_FALSE(area.IsValidName(QString()));
    EXPECT_FALSE(area.IsValidScriptID(QString()));
    for (const QString& text : {QStringLiteral(""), QStringLiteral(" "), QStringLiteral("Lake")}) {
        EXPECT_TRUE(area.IsValidName(text));
        EXPECT_TRUE(area.IsValidScriptID(text));
    }
    EXPECT_FALSE(area.IsInitialized());
}

TEST(Area, EveryCoordinateIsValid)
{
    const Area area;
    EXPECT_TRUE(area.IsValidCoordinate(Coordinate()));
    EXPECT_TRUE(area.IsValidCoordinate(OutOfRange(1000.0, 1000.0)));
    EXPECT_TRUE(area.IsValidCoordinate(QVector<Coordinate>()));
    EXPECT_TRUE(area.IsValidCoordinate(QVector<Coordinate>{Coordinate(), OnlyLatitude(1.0)}));
    EXPECT_FALSE(area.IsInitialized());
}

TEST(Area, TextSettersStoreAndSetEveryTextThatIsNotNull)
{
    for (const bool validate : {true, false}) {
        for (const char* text : {"", " ", "Lake", "Z\xc3\xbcrich", "<&>"}) {
            SCOPED_TRACE(text);
            Area area;
            area.SetValidate(validate);
            const auto logger = Support::NewLogger();
            area.SetLogger(logger);
            area.SetName(Text(text));
            EXPECT_TEXT(area.GetName(), text);
            EXPECT_FALSE(area.GetName().isNull());
            EXPECT_TRUE(area.IsNameSet());
            EXPECT_FALSE(area.IsScriptIDSet());
            area.ResetName();
            area.SetScriptID(Text(text));
            EXPECT_TEXT(area.GetScriptID(), text);
            EXPECT_FALSE(area.GetScriptID().isNull());
            EXPECT_TRUE(area.IsScriptIDSet());
            EXPECT_FALSE(area.IsNameSet());
            EXPECT_LOG(logger, {});
        }
    }
}

TEST(Area, NullTextsAreRefusedWhenValidatingAndNothingIsStored)
{
    Area fresh;
    EXPECT_RG_THROW(fresh.SetName(QString()), "OutOfRangeException", NULL_NAME);
    EXPECT_RG_THROW(fresh.SetScriptID(QString()), "OutOfRangeException", NULL_SCRIPT_ID);
    EXPECT_TRUE(fresh.IsInitialized());
    EXPECT_STATE(fresh, AreaState());

    Area used = Lake();
    const auto logger = Support::NewLogger();
    used.SetLogger(logger);
    EXPECT_RG_THROW(used.SetName(QString()), "OutOfRangeException", NULL_NAME);
    EXPECT_RG_THROW(used.SetScriptID(QString()), "OutOfRangeException", NULL_SCRIPT_ID);
    EXPECT_STATE(used, LakeState());
    EXPECT_LOG(logger,
               {"FATAL ERROR: OutOfRangeException: Area: Please set Name properly (origin: Setter).",
                "FATAL ERROR: OutOfRangeException: Area: Please set ScriptID properly (origin: Setter)."});
}

TEST(Area, NullTextsAreStoredAndSetAfterAWarningWhenNotValidating)
{
    Area area = Lake();
    area.SetValidate(false);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_NO_RG_THROW(area.SetName(QString()));
    EXPECT_NO_RG_THROW(area.SetScriptID(QString()));
    EXPECT_TRUE(area.IsNameSet());
    EXPECT_TRUE(area.IsScriptIDSet());
    EXPECT_TRUE(area.GetName().isNull());
    EXPECT_TRUE(area.GetScriptID().isNull());
    EXPECT_FALSE(area.HasData());
    EXPECT_LOG(logger,
               {"WARNING: OutOfRangeException: Area: Please set Name properly (origin: Setter).",
                "WARNING: OutOfRangeException: Area: Please set ScriptID properly (origin: Setter)."});

    Area withoutLogger = NotValidating();
    EXPECT_NO_RG_THROW(withoutLogger.SetName(QString()));
    EXPECT_NO_RG_THROW(withoutLogger.SetScriptID(QString()));
    EXPECT_TRUE(withoutLogger.IsNameSet());
    EXPECT_TRUE(withoutLogger.IsScriptIDSet());
    EXPECT_FALSE(withoutLogger.AnyData());
}

TEST(Area, AskingForTheModifiableListSetsTheCoordinates)
{
    Area area;
    EXPECT_TRUE(area.GetCoordinate().isEmpty());
    EXPECT_TRUE(area.IsCoordinateSet());
    EXPECT_FALSE(area.AnyData());
    EXPECT_FALSE(area.HasData());

    area.GetCoordinate().append(At(1.0, 2.0));
    EXPECT_EQ(CountOf(area), 1);
    EXPECT_TRUE(area.AnyData());

    const Area untouched;
    EXPECT_TRUE(untouched.GetCoordinate().isEmpty());
    EXPECT_FALSE(untouched.IsCoordinateSet());
}

TEST(Area, TheModifiableListIsTheListItself)
{
    Area area = Lake();
    area.GetCoordinate()[0].SetLongitude(5.0);
    area.GetCoordinate().append(At(3.0, 4.0));
    AreaState state = LakeState();
    state.coordinates = {{5.0, 2.0}, {3.0, 4.0}};
    EXPECT_STATE(area, state);
    area.GetCoordinate().clear();
    EXPECT_TRUE(area.IsCoordinateSet());
    EXPECT_FALSE(area.HasData());
}

TEST(Area, SetCoordinateReplacesTheListWithoutLookingAtItsElements)
{
    for (const bool validate : {true, false}) {
        Area area = Lake();
        area.SetValidate(validate);
        const auto logger = Support::NewLogger();
        area.SetLogger(logger);
        EXPECT_NO_RG_THROW(area.SetCoordinate({OnlyLatitude(5.0), Coordinate(), OutOfRange(1000.0, 3.0)}));
        AreaState state = LakeState();
        state.coordinates = {{std::nullopt, 5.0}, {}, {1000.0, 3.0}};
        EXPECT_STATE(area, state);
        EXPECT_LOG(logger, {});
    }
}

TEST(Area, SetCoordinateOfAnEmptyListSetsIt)
{
    Area area;
    area.SetCoordinate({});
    EXPECT_TRUE(area.IsCoordinateSet());
    EXPECT_FALSE(area.AnyData());
}

TEST(Area, AppendedCoordinatesStandInTheirOrder)
{
    Area area;
    area.AppendCoordinate(At(1.0, 2.0));
    EXPECT_TRUE(area.IsCoordinateSet());
    EXPECT_FALSE(area.IsNameSet());
    area.AppendCoordinate(At(3.0, 4.0));
    area.AppendCoordinate(At(1.0, 2.0));
    AreaState state;
    state.coordinates = {{1.0, 2.0}, {3.0, 4.0}, {1.0, 2.0}};
    EXPECT_STATE(area, state);
}

TEST(Area, AnIncompleteCoordinateIsNotAppendedWhenValidating)
{
    Coordinate onlyLongitude;
    onlyLongitude.SetLongitude(1.0);
    for (const Coordinate& item : {Coordinate(), OnlyLatitude(1.0), onlyLongitude}) {
        Area fresh;
        EXPECT_RG_THROW(fresh.AppendCoordinate(item), "IncompleteDefinitionException", INCOMPLETE_ITEM);
        EXPECT_TRUE(fresh.IsInitialized());
        EXPECT_STATE(fresh, AreaState());

        Area used = Lake();
        const auto logger = Support::NewLogger();
        used.SetLogger(logger);
        EXPECT_RG_THROW(used.AppendCoordinate(item), "IncompleteDefinitionException", INCOMPLETE_ITEM);
        EXPECT_STATE(used, LakeState());
        EXPECT_LOG(logger, {"FATAL ERROR: IncompleteDefinitionException: Area: Tried to append not "
                            "completely defined or invalid item Coordinate."});
    }
}

TEST(Area, AnIncompleteCoordinateIsAppendedWithOneWarningWhenNotValidating)
{
    Area area = NotValidating();
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_NO_RG_THROW(area.AppendCoordinate(OnlyLatitude(1.0)));
    AreaState state;
    state.coordinates = {{std::nullopt, 1.0}};
    EXPECT_STATE(area, state);
    EXPECT_LOG(logger, {"WARNING: IncompleteDefinitionException: Area: Tried to append not completely "
                        "defined or invalid item Coordinate."});

    Area withoutLogger = NotValidating();
    EXPECT_NO_RG_THROW(withoutLogger.AppendCoordinate(Coordinate()));
    EXPECT_EQ(CountOf(withoutLogger), 1);
}

TEST(Area, AppendingDoesNotTestTheRangesAndAsksTheAreaWhetherToValidate)
{
    Area area;
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_NO_RG_THROW(area.AppendCoordinate(OutOfRange(1000.0, -1000.0)));
    EXPECT_EQ(CountOf(area), 1);
    EXPECT_LOG(logger, {});

    Coordinate unchecked = OnlyLatitude(1.0);
    unchecked.SetValidate(false);
    EXPECT_RG_THROW(area.AppendCoordinate(unchecked), "IncompleteDefinitionException", INCOMPLETE_ITEM);

    area.SetValidate(false);
    EXPECT_NO_RG_THROW(area.AppendCoordinate(OnlyLatitude(1.0)));
    EXPECT_EQ(CountOf(area), 2);
}

TEST(Area, AppendingGoesOnBehindWhatIsThereEvenWhenItIsNotMarkedAsSet)
{
    Area area = WithUnflaggedPoint();
    area.AppendCoordinate(At(3.0, 4.0));
    EXPECT_TRUE(area.IsCoordinateSet());
    EXPECT_EQ(CountOf(area), 2);
}

TEST(Area, AnyDataAndHasDataLookAtTheValuesAndNotAtTheFlags)
{
    Area area;
    area.SetScriptID(QStringLiteral(""));
    EXPECT_TRUE(area.AnyData());
    EXPECT_FALSE(area.HasData());
    area.Reset();
    area.SetName(QStringLiteral(""));
    EXPECT_TRUE(area.AnyData());
    EXPECT_FALSE(area.HasData());
    area.AppendCoordinate(At(1.0, 2.0));
    EXPECT_TRUE(area.HasData());
    area.ResetName();
    EXPECT_TRUE(area.AnyData());
    EXPECT_FALSE(area.HasData());

    const Area leftovers = WithUnflaggedPoint();
    EXPECT_TRUE(leftovers.AnyData());
    EXPECT_FALSE(leftovers.HasData());
    EXPECT_TRUE(WithUnflaggedPoint(NAME_FLAG).HasData());

    Area incomplete = NotValidating();
    incomplete.SetName(QStringLiteral("Lake"));
    incomplete.AppendCoordinate(Coordinate());
    EXPECT_TRUE(incomplete.HasData());
}

TEST(Area, ResettingAFieldUnsetsItAlone)
{
    Area area = Lake();
    area.ResetName();
    EXPECT_TRUE(area.GetName().isNull());
    AreaState state = LakeState();
    state.name.reset();
    EXPECT_STATE(area, state);

    area.ResetCoordinate();
    state.coordinates.clear();
    EXPECT_STATE(area, state);
    EXPECT_FALSE(area.IsCoordinateSet());

    area.ResetScriptID();
    EXPECT_TRUE(area.GetScriptID().isNull());
    EXPECT_STATE(area, AreaState());
    EXPECT_FALSE(area.AnyData());
    EXPECT_TRUE(area.IsInitialized());
}

TEST(Area, ResettingUnflaggedCoordinatesEmptiesThem)
{
    Area area = WithUnflaggedPoint();
    area.ResetCoordinate();
    EXPECT_EQ(CountOf(area), 0);
    area = WithUnflaggedPoint();
    area.Reset();
    EXPECT_EQ(CountOf(area), 0);
}

TEST(Area, ResetKeepsBothVersions)
{
    for (const bool toDefault : {true, false}) {
        Area area = NotValidating();
        EXPECT_TRUE(area.SetXmlString(QStringLiteral("<Area Version=\"7.5\"><Name>N</Name></Area>"), true));
        ASSERT_TRUE(area.GetInitialVersionLoaded() == QLatin1String("7.5"));
        if (toDefault)
            area.ResetToDefault();
        else
            area.Reset();
        AreaState state;
        state.initialVersionLoaded = QStringLiteral("7.5");
        EXPECT_STATE(area, state);
        EXPECT_TRUE(area.GetName().isNull());
        EXPECT_TEXT(area.GetVersion(), "1.0");
        EXPECT_TRUE(area.IsInitialized());
    }
}

// --- Comparison -------------------------------------------------------------------------------------------

TEST(Area, AllFieldsTakePartInTheComparison)
{
    EXPECT_TRUE(Lake() == Lake());
    EXPECT_FALSE(Lake() != Lake());
    const std::vector<std::function<void(Area&)>> changes = {
        [](Area& a) { a.SetName(QStringLiteral("lake")); },
        [](Area& a) { a.ResetName(); },
        [](Area& a) { a.SetScriptID(QStringLiteral("S8")); },
        [](Area& a) { a.ResetScriptID(); },
        [](Area& a) { a.AppendCoordinate(At(1.0, 2.0)); },
        [](Area& a) { a.SetCoordinate({At(1.0, 2.5)}); },
        [](Area& a) { a.SetCoordinate({}); },
        [](Area& a) { a.ResetCoordinate(); },
        [](Area& a) { a.GetCoordinate()[0].ResetLongitude(); },
        [](Area& a) { a.Reset(); },
        [](Area& a) { a = Area(); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        Area changed = Lake();
        changes[i](changed);
        EXPECT_FALSE(changed == Lake()) << i;
        EXPECT_FALSE(Lake() == changed) << i;
        EXPECT_TRUE(Lake() != changed) << i;
        EXPECT_FALSE(Lake() == changed) << i;
    }
}

TEST(Area, CoordinatesAreComparedInTheirOrder)
{
    Area one;
    one.SetCoordinate({At(1.0, 2.0), At(3.0, 4.0)});
    Area other;
    other.SetCoordinate({At(3.0, 4.0), At(1.0, 2.0)});
    EXPECT_FALSE(one == other);
    other.SetCoordinate({At(1.0, 2.0), At(3.0, 4.0)});
    EXPECT_TRUE(one == other);
    other.GetCoordinate()[1].SetLatitude(4.5);
    EXPECT_FALSE(one == other);
}

TEST(Area, TheVersionThatWasLoadedDoesNotCount)
{
    Area old = NotValidating();
    EXPECT_TRUE(old.SetXmlString(QStringLiteral("<Area Version=\"0.9\"><Name>N</Name></Area>"), true));
    Area recent = NotValidating();
    EXPECT_TRUE(recent.SetXmlString(QStringLiteral("<Area Version=\"1.0\"><Name>N</Name></Area>"), true));
    EXPECT_TRUE(old == recent);
    EXPECT_TRUE(recent == old);
}

TEST(Area, AreasOfDifferentVersionsDiffer)
{
    OfVersion area(QStringLiteral("1.0"));
    OfVersion same(QStringLiteral("1.0"));
    OfVersion other(QStringLiteral("1"));
    for (OfVersion* each : {&area, &same, &other})
        each->SetName(QStringLiteral("Lake"));
    EXPECT_TRUE(area == same);
    EXPECT_FALSE(area == other);
    EXPECT_TRUE(other != area);
}

TEST(Area, AnEmptyListMatchesWhetherItIsSetOrNot)
{
    Area flagged;
    flagged.GetCoordinate();
    EXPECT_TRUE(flagged == Area());
    EXPECT_TRUE(Area() == flagged);
}

TEST(Area, OnlyTheFlagOfTheRightSideIsConsulted)
{
    const Area unflagged = WithUnflaggedPoint();
    Area flagged;
    flagged.AppendCoordinate(At(1.0, 2.0));
    EXPECT_TRUE(unflagged == flagged);
    EXPECT_FALSE(flagged == unflagged);
    EXPECT_FALSE(unflagged == unflagged);
    EXPECT_FALSE(unflagged == Area());
    EXPECT_TRUE(Area() == unflagged);
    EXPECT_FALSE(unflagged != flagged);
    EXPECT_TRUE(flagged != unflagged);
}

TEST(Area, ACoordinateThatIsNoNumberMakesTheAreaUnequalToItself)
{
    Area area;
    area.SetCoordinate({OutOfRange(std::numeric_limits<double>::quiet_NaN(), 1.0)});
    EXPECT_FALSE(area == area);
    const Area copy(area);
    EXPECT_FALSE(copy == area);
    Area assigned;
    assigned = area;
    EXPECT_FALSE(assigned == area);
}

// --- Check ------------------------------------------------------------------------------------------------

TEST(Area, MessagesBeginWithTheCurrentName)
{
    Renamed area;
    EXPECT_RG_THROW(area.Check(), "OutOfRangeException", "Region: Please set Name properly.");
    EXPECT_RG_THROW(area.SetName(QString()), "OutOfRangeException",
                    "Region: Please set Name properly (origin: Setter).");
    EXPECT_RG_THROW(area.AppendCoordinate(Coordinate()), "IncompleteDefinitionException",
                    "Region: Tried to append not completely defined or invalid item Coordinate.");
    EXPECT_RG_THROW(ReadElements(area, 4, Bytes()), "BinaryParsingException",
                    "Region::SetBinary(...): Length error occurred during processing of binary "
                    "representation");
    EXPECT_RG_THROW(ReadElement(area, QStringLiteral("<Region Version=\"1.0\"><Foo/></Region>")),
                    "InvalidXmlException", "Unknown Tag 'Foo' in 'Region'.");
}

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

TEST(Area, XmlHoldsEmptyTextsThatAreSet)
{
    Area area;
    area.SetName(QStringLiteral(""));
    area.SetScriptID(QStringLiteral(""));
    area.AppendCoordinate(At(1.0, 2.0));
    EXPECT_XML(area, AreaXml(QStringLiteral("    <Name></Name>\n") + PointXml("1.000000", "2.000000") +
                             QStringLiteral("    <ScriptID></ScriptID>\n")));
}

TEST(Area, XmlTextsAreEscaped)
{
    Area area;
    area.SetName(Text("<a> & \"b\" 'c' Z\xc3\xbcrich \xf0\x9f\x93\xa1"));
    area.SetScriptID(QStringLiteral("]]>"));
    area.GetCoordinate().append(At(1.0, 2.0));
    const QString xml = area.GetXmlString();
    EXPECT_XML(area, AreaXml(Text("    <Name>&lt;a&gt; &amp; &quot;b&quot; 'c' Z\xc3\xbcrich "
                                  "\xf0\x9f\x93\xa1</Name>\n") +
                             PointXml("1.000000", "2.000000") + Text("    <ScriptID>]]&gt;</ScriptID>\n")));
    Area read;
    EXPECT_TRUE(read.SetXmlString(xml, true));
    EXPECT_TRUE(read == area);
}

TEST(Area, XmlTextsAreThoseOfQtsWriter)
{
    const ushort characters[] = {0x00,   0x01,   0x08,   0x09,   0x0a,   0x0b,   0x0c,   0x0d,  0x1f,
                                 0x20,   0x22,   0x26,   0x27,   0x3c,   0x3e,   0x7f,   0x85,  0xa0,
                                 0x2028, 0xd800, 0xdc00, 0xfdd0, 0xfeff, 0xfffd, 0xfffe, 0xffff};
    for (const ushort character : characters) {
        SCOPED_TRACE(character);
        const QString text = QLatin1Char('a') + QString(QChar(character)) + QLatin1Char('b');
        Area area = NotValidating();
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

TEST(Area, XmlHoldsTheNameEvenWhenItIsNotSetAndNothingElseOfAnEmptyArea)
{
    EXPECT_XML(NotValidating(), AreaXml(QStringLiteral("    <Name></Name>\n")));
    Area area = NotValidating();
    area.SetScriptID(QString());
    EXPECT_XML(area, AreaXml(QStringLiteral("    <Name></Name>\n    <ScriptID></ScriptID>\n")));
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
    Area area = NotValidating();
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
    Lenient area;
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

    Area area = NotValidating();
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
        Area area = NotValidating();
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
        Area area = NotValidating();
        EXPECT_TRUE(area.SetXmlString(
            Text("<Area Version=\"1.0\"><Name>%1</Name><ScriptID>%1</ScriptID></Area>").arg(Text(row.xml)),
            true));
        EXPECT_TEXT(area.GetName(), row.text);
        EXPECT_TEXT(area.GetScriptID(), row.text);
    }
}

TEST(Area, SetXmlStringResetsTheAreaWhateverTheVersion)
{
    for (const char* version : {"0.9", "1.0", "2.0"}) {
        Area area = Lake();
        area.SetValidate(false);
        EXPECT_TRUE(
            area.SetXmlString(Text("<Area Version=\"%1\"><Name>N</Name></Area>").arg(Text(version)), true));
        AreaState state;
        state.name = QStringLiteral("N");
        state.initialVersionLoaded = Text(version);
        EXPECT_STATE(area, state);
    }
}

TEST(Area, XmlOfAnOlderVersionStartsFromAnEmptyArea)
{
    for (const VersionRow& row : VERSIONS) {
        const QString version = QString::fromUtf16(row.version);
        SCOPED_TRACE(::testing::PrintToString(version));
        Area area = Lake();
        const QString xml =
            QStringLiteral("<Area Version=\"%1\"><ScriptID>New</ScriptID></Area>").arg(version);
        EXPECT_TEXT(ReadElement(area, xml), "</Area>");
        AreaState state = row.isOlder ? AreaState() : LakeState();
        state.scriptID = QStringLiteral("New");
        state.initialVersionLoaded = version;
        EXPECT_STATE(area, state);
        EXPECT_TEXT(area.GetVersion(), "1.0");
    }
}

TEST(Area, XmlWithoutVersionCountsAsOlder)
{
    for (const char* xml :
         {"<Area><ScriptID>New</ScriptID></Area>", "<Area version=\"1.0\"><ScriptID>New</ScriptID></Area>"}) {
        Area area = Lake();
        EXPECT_TEXT(ReadElement(area, Text(xml)), "</Area>");
        AreaState state;
        state.scriptID = QStringLiteral("New");
        EXPECT_STATE(area, state);
        EXPECT_TRUE(area.GetInitialVersionLoaded().isEmpty());
    }
}

TEST(Area, AnIncompleteElementFailsTheCheckWhenValidating)
{
    struct Row
    {
        const char* xml;
        const char* message;
    };
    const Row rows[] = {
        {"<Area/>", SET_NAME},
        {"<Area Version=\"1.0\"></Area>", SET_NAME},
        {"<Area Version=\"1.0\"><Name/></Area>", SET_COORDINATE},
        {"<Area><Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate></Area>", SET_NAME},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.xml);
        Area area;
        EXPECT_RG_THROW(area.SetXmlString(Text(row.xml), true), "OutOfRangeException", row.message);
        area.SetValidate(false);
        EXPECT_TRUE(area.SetXmlString(Text(row.xml), true));
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

TEST(Area, UnknownChildrenOfDataThatIsNotOlderAreRefusedWhenValidating)
{
    for (const char* version : {"1.0", "1", "2.0"}) {
        SCOPED_TRACE(version);
        const QString xml =
            Text("<Area Version=\"%1\"><Name>N</Name><Foo/><ScriptID>S</ScriptID></Area>").arg(Text(version));
        Area area = Lake();
        EXPECT_RG_THROW(area.SetXmlString(xml, true), "InvalidXmlException", "Unknown Tag 'Foo' in 'Area'.");
        AreaState state;
        state.name = QStringLiteral("N");
        state.initialVersionLoaded = Text(version);
        EXPECT_STATE(area, state);

        const auto logger = Support::NewLogger();
        area.SetLogger(logger);
        EXPECT_RG_THROW(area.SetXmlString(xml, true), "InvalidXmlException", "Unknown Tag 'Foo' in 'Area'.");
        EXPECT_LOG(logger, {"INFO: Area: Loading xml string.",
                            "FATAL ERROR: InvalidXmlException: Unknown Tag 'Foo' in 'Area'."});
    }
}

TEST(Area, AnUnknownChildOfDataThatIsNotOlderIsEnteredAndItsEndTagEndsTheReadingWhenNotValidating)
{
    struct Row
    {
        const char* content;
        const char* name;
        const char* scriptID;
        std::vector<const char*> unknown;
        const char* end;
    };
    const std::vector<Row> rows = {
        {"<Foo/><ScriptID>S</ScriptID>", nullptr, nullptr, {"Foo"}, "</Foo>"},
        {"<Foo>text</Foo><ScriptID>S</ScriptID>", nullptr, nullptr, {"Foo"}, "</Foo>"},
        {"<Name>N</Name><Foo><ScriptID>inner</ScriptID></Foo><ScriptID>S</ScriptID>",
         "N",
         "inner",
         {"Foo"},
         "</Foo>"},
        {"<Foo><Name>N</Name><Bar/><ScriptID>S</ScriptID></Foo>", "N", nullptr, {"Foo", "Bar"}, "</Bar>"},
        {"<Foo><Foo><Name>N</Name></Foo><ScriptID>S</ScriptID></Foo>",
         "N",
         nullptr,
         {"Foo", "Foo"},
         "</Foo>"},
        {"<Area Version=\"0.1\"><Name>N</Name></Area><ScriptID>S</ScriptID>",
         "N",
         nullptr,
         {"Area"},
         "</Area>"},
        {"<name>x</name><Name>N</Name>", nullptr, nullptr, {"name"}, "</name>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.content);
        const QString xml = Text("<Area Version=\"1.0\">%1</Area>").arg(Text(row.content));
        Area area = NotValidating();
        const auto logger = Support::NewLogger();
        area.SetLogger(logger);
        EXPECT_TEXT(ReadElement(area, xml), row.end);
        AreaState state;
        if (row.name)
            state.name = Text(row.name);
        if (row.scriptID)
            state.scriptID = Text(row.scriptID);
        state.initialVersionLoaded = QStringLiteral("1.0");
        EXPECT_STATE(area, state);
        QStringList lines;
        for (const char* unknown : row.unknown)
            lines << Text("WARNING: InvalidXmlException: Unknown Tag '%1' in 'Area'.").arg(Text(unknown));
        EXPECT_LOG(logger, lines);

        EXPECT_TRUE(area.SetXmlString(xml, true));
        EXPECT_STATE(area, state);
    }
}

// --- Tagged form, writing ---------------------------------------------------------------------------------

TEST(Area, BodyHoldsVersionNameCoordinatesAndScriptIdentifier)
{
    Area area = Lake();
    const Bytes head = Version(u"1.0") + Name("Lake");
    EXPECT_BYTES(BodyOf(area),
                 Element(1, head + Coordinates(1, Point("1.000000", "2.000000")) + ScriptID("S7")));
    area.ResetScriptID();
    area.AppendCoordinate(At(-3.5, 4.25));
    const Bytes points = Point("1.000000", "2.000000") + Point("-3.500000", "4.250000");
    EXPECT_BYTES(BodyOf(area), Element(1, head + Coordinates(2, points)));
    EXPECT_BYTES(BodyOf(area, 77, false), Support::Body(head + Coordinates(2, points)));
    Written([&](QDataStream& stream) { EXPECT_TRUE(area.GetBinary(stream, 1, true)); });
}

TEST(Area, BodyTellsNullTextsFromEmptyOnes)
{
    Area area = NotValidating();
    const Bytes nullName = Element(Tag::AREA_NAME, Support::NullByteArray());
    EXPECT_BYTES(BodyOf(area), Element(1, Version(u"1.0") + nullName + Coordinates(0, Bytes())));
    area.SetScriptID(QString());
    EXPECT_BYTES(BodyOf(area), Element(1, Version(u"1.0") + nullName + Coordinates(0, Bytes()) +
                                              Element(Tag::AREA_SCRIPT_ID, Support::NullByteArray())));
    area.SetName(QStringLiteral(""));
    area.SetScriptID(QStringLiteral(""));
    EXPECT_BYTES(BodyOf(area),
                 Element(1, Version(u"1.0") + Name("") + Coordinates(0, Bytes()) + ScriptID("")));
}

TEST(Area, BodyTextsAreUtf8)
{
    Area area = Lake();
    area.SetName(Text("Z\xc3\xbcrich \xf0\x9f\x93\xa1"));
    area.SetScriptID(Text("\xe2\x82\xac"));
    EXPECT_BYTES(BodyOf(area),
                 Element(1, Version(u"1.0") + Name("Z\xc3\xbcrich \xf0\x9f\x93\xa1") +
                                Coordinates(1, Point("1.000000", "2.000000")) + ScriptID("\xe2\x82\xac")));
}

TEST(Area, BodyHoldsIncompleteCoordinatesAsTheyStandWithoutAMessageWhenNotValidating)
{
    Area area = NotValidating();
    area.SetCoordinate({OnlyLatitude(2.0), Coordinate()});
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_BYTES(
        BodyOf(area),
        Element(1, Version(u"1.0") + Element(Tag::AREA_NAME, Support::NullByteArray()) +
                       Coordinates(2, Point("0.000000", "2.000000") + Point("0.000000", "0.000000"))));
    EXPECT_LOG(logger, {});
}

TEST(Area, BodyCountsCoordinatesThatAreNotMarkedAsSetButHoldsNoneOfThem)
{
    EXPECT_BYTES(BodyOf(WithUnflaggedPoint(NAME_FLAG)),
                 Element(1, Version(u"1.0") + Name("Lake") + Coordinates(1, Bytes())));
}

// --- Tagged form, reading ---------------------------------------------------------------------------------

TEST(Area, ElementsMayComeInAnyOrderTheLastTextCountsAndAllCoordinatesAreAppended)
{
    Area area;
    EXPECT_EQ(ReadElements(area, ScriptID("x") + Coordinates(1, Point("1", "2")) + Name("y") +
                                     Version(u"1.0") + ScriptID("S7") + Name("Lake") +
                                     Coordinates(2, Point("3", "4") + Point("5", "6"))),
              0);
    AreaState state = LakeState();
    state.coordinates = {{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}};
    state.initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(area, state);
}

TEST(Area, AVersionElementOfOlderDataResetsWhatWasReadBeforeIt)
{
    for (const VersionRow& row : VERSIONS) {
        const QString version = QString::fromUtf16(row.version);
        SCOPED_TRACE(::testing::PrintToString(version));
        Area area;
        EXPECT_EQ(ReadElements(area, Name("Lake") + Coordinates(1, Point("1", "2")) + Version(row.version) +
                                         ScriptID("New")),
                  0);
        AreaState state = row.isOlder ? AreaState() : LakeState();
        state.scriptID = QStringLiteral("New");
        state.initialVersionLoaded = version;
        EXPECT_STATE(area, state);
    }
}

TEST(Area, ANullVersionElementCountsAsOlder)
{
    Area area;
    EXPECT_EQ(ReadElements(area, Name("Lake") + Element(Tag::AREA_VERSION, NullString()) + ScriptID("New")),
              0);
    AreaState state;
    state.scriptID = QStringLiteral("New");
    EXPECT_STATE(area, state);
}

TEST(Area, WithoutAVersionElementTheVersionLastLoadedStays)
{
    Area area = NotValidating();
    EXPECT_TRUE(area.SetXmlString(QStringLiteral("<Area Version=\"0.7\"/>"), true));
    EXPECT_EQ(ReadElements(area, Name("Lake")), 0);
    AreaState state;
    state.name = QStringLiteral("Lake");
    state.initialVersionLoaded = QStringLiteral("0.7");
    EXPECT_STATE(area, state);
}

TEST(Area, UnknownElementsAreSkippedByTheirLengthWhateverTheVersion)
{
    for (const char16_t* version : {u"0.9", u"1.0", u"2.0"}) {
        Area area;
        const auto logger = Support::NewLogger();
        area.SetLogger(logger);
        const Bytes unknown = Element(Tag::UNKNOWN, Name("inner") + Support::Byte(1));
        EXPECT_EQ(ReadElements(area, unknown + Version(version) + unknown + Name("Lake") +
                                         Coordinates(1, Point("1", "2")) + unknown + ScriptID("S7") +
                                         Element(0, Bytes())),
                  0);
        EXPECT_TRUE(area == Lake());
        EXPECT_LOG(logger, {});
    }
}

TEST(Area, NullTextElementsAreRefusedWhenValidatingAndStoredWithAWarningOtherwise)
{
    const Bytes nullName = Element(Tag::AREA_NAME, Support::NullByteArray());
    const Bytes nullScript = Element(Tag::AREA_SCRIPT_ID, Support::NullByteArray());
    Area area = Lake();
    EXPECT_RG_THROW(ReadElements(area, ScriptID("S") + nullName), "OutOfRangeException", NULL_NAME);
    AreaState state;
    state.scriptID = QStringLiteral("S");
    EXPECT_STATE(area, state);
    EXPECT_RG_THROW(ReadElements(area, nullScript), "OutOfRangeException", NULL_SCRIPT_ID);
    EXPECT_STATE(area, AreaState());

    area.SetValidate(false);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_EQ(ReadElements(area, nullName + nullScript), 0);
    EXPECT_TRUE(area.IsNameSet());
    EXPECT_TRUE(area.GetName().isNull());
    EXPECT_TRUE(area.IsScriptIDSet());
    EXPECT_TRUE(area.GetScriptID().isNull());
    EXPECT_LOG(logger,
               {"WARNING: OutOfRangeException: Area: Please set Name properly (origin: Setter).",
                "WARNING: OutOfRangeException: Area: Please set ScriptID properly (origin: Setter)."});
}

TEST(Area, EmptyTextElementsAreEmptyButNotNull)
{
    Area area;
    EXPECT_EQ(ReadElements(area, Name("") + ScriptID("")), 0);
    EXPECT_TRUE(area.IsNameSet());
    EXPECT_FALSE(area.GetName().isNull());
    EXPECT_TRUE(area.IsScriptIDSet());
    EXPECT_FALSE(area.GetScriptID().isNull());
}

TEST(Area, TextElementsEndAtTheirFirstNulAndLoseAByteOrderMark)
{
    struct Row
    {
        std::string_view bytes;
        const char* text;
    };
    const Row rows[] = {
        {std::string_view("Lake\0Region", 11), "Lake"}, {std::string_view("\0Lake", 5), ""},
        {std::string_view("Lake\0", 5), "Lake"},        {"\xef\xbb\xbfLake", "Lake"},
        {"\xf0\x9f\x93\xa1", "\xf0\x9f\x93\xa1"},
    };
    for (const Row& row : rows) {
        Area area;
        EXPECT_EQ(ReadElements(area, Name(row.bytes) + ScriptID(row.bytes)), 0);
        EXPECT_TEXT(area.GetName(), row.text);
        EXPECT_FALSE(area.GetName().isNull());
        EXPECT_TEXT(area.GetScriptID(), row.text);
    }
}

TEST(Area, ACountOfZeroAddsNothing)
{
    Area area;
    EXPECT_EQ(ReadElements(area, Name("Lake") + Coordinates(0, Bytes())), 0);
    AreaState state;
    state.name = QStringLiteral("Lake");
    EXPECT_STATE(area, state);
    EXPECT_FALSE(area.IsCoordinateSet());
}

TEST(Area, ACountThatIsLargerThanWhatFollowsReadsWhatIsThereAndEndsInTheLengthErrorOfTheArea)
{
    for (const long long count : {3LL, 4LL, 100LL, 1000000LL, 0x01000000LL, (long long)GREATEST}) {
        for (int points = 0; points <= 2; ++points) {
            for (const bool validate : {true, false}) {
                SCOPED_TRACE(std::to_string(count) + " instead of " + std::to_string(points));
                Bytes bodies;
                AreaState state;
                state.name = QStringLiteral("Lake");
                for (int i = 0; i < points; ++i) {
                    bodies += Point("1", "2");
                    state.coordinates.push_back({1.0, 2.0});
                }
                Area area;
                area.SetValidate(validate);
                const auto logger = Support::NewLogger();
                area.SetLogger(logger);
                EXPECT_RG_THROW(ReadElements(area, Name("Lake") + Coordinates(count, bodies)),
                                "BinaryParsingException", LENGTH_ERROR);
                EXPECT_STATE(area, state);
                EXPECT_LOG(logger, QStringList{QStringLiteral("FATAL ERROR: BinaryParsingException: ") +
                                               Text(LENGTH_ERROR)});
                logger->Reset(true);

                area.ResetLogger();
                const Bytes claimed = ElementOfLength(Tag::AREA_COORDINATES, GREATEST, Int32(count) + bodies);
                EXPECT_RG_THROW(ReadElements(area, Name("Lake") + claimed), "BinaryParsingException",
                                LENGTH_ERROR);
                EXPECT_STATE(area, state);
            }
        }
    }
}

TEST(Area, ANegativeCountAddsNothing)
{
    for (const long long count : {-1LL, -2LL, (long long)LEAST}) {
        for (const bool validate : {true, false}) {
            SCOPED_TRACE(count);
            Area area;
            area.SetValidate(validate);
            EXPECT_EQ(ReadElements(area, Coordinates(count, Bytes()) + Name("Lake")), 0);
            AreaState state;
            state.name = QStringLiteral("Lake");
            EXPECT_STATE(area, state);
        }
    }
}

TEST(Area, ACountThatReachesIntoTheNextElementTakesItForACoordinate)
{
    for (const bool validate : {true, false}) {
        Area area;
        area.SetValidate(validate);
        EXPECT_RG_THROW(ReadElements(area, Coordinates(2, Point("1", "2")) + ScriptID("S")),
                        "BinaryParsingException",
                        "Coordinate::SetBinary(...): Length error occurred during processing of binary "
                        "representation");
        AreaState state;
        state.coordinates = {{1.0, 2.0}};
        EXPECT_STATE(area, state);
    }
}

TEST(Area, ACountThatIsSmallerLeavesTheOtherBodiesOnTheStream)
{
    Area area;
    const Bytes point = Point("1", "2");
    EXPECT_EQ(ReadElements(area, Coordinates(1, point + point)), point.Size());
    AreaState state;
    state.coordinates = {{1.0, 2.0}};
    EXPECT_STATE(area, state);
}

TEST(Area, AnIncompleteCoordinateBodyIsRefusedWhenValidatingAndAppendedWithAWarningOtherwise)
{
    const Bytes onlyLatitude = Support::Body(Element(Tag::COORDINATE_LATITUDE, ByteArray("3")));
    const Bytes elements =
        Name("N") + Coordinates(4, Point("1", "2") + onlyLatitude + Support::Body(Bytes()) + Point("5", "6"));
    Area area;
    EXPECT_RG_THROW(ReadElements(area, elements), "IncompleteDefinitionException", INCOMPLETE_ITEM);
    AreaState state;
    state.name = QStringLiteral("N");
    state.coordinates = {{1.0, 2.0}};
    EXPECT_STATE(area, state);

    area.SetValidate(false);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_EQ(ReadElements(area, elements), 0);
    state.coordinates = {{1.0, 2.0}, {std::nullopt, 3.0}, {}, {5.0, 6.0}};
    EXPECT_STATE(area, state);
    const QString warning =
        QStringLiteral("WARNING: IncompleteDefinitionException: ") + Text(INCOMPLETE_ITEM);
    EXPECT_LOG(logger, QStringList({warning, warning}));
}

TEST(Area, AnOutOfRangeCoordinateBodySpeaksThroughTheLoggerOfTheArea)
{
    const Bytes elements = Coordinates(2, Point("1", "2") + Point("181", "4"));
    Area area;
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_RG_THROW(ReadElements(area, elements), "OutOfRangeException",
                    "Parameters for m_longitude are not set within range (-180, 180) in 'Coordinate'.");
    EXPECT_EQ(CountOf(area), 1);
    area.SetValidate(false);
    EXPECT_EQ(ReadElements(area, elements), 0);
    EXPECT_EQ(CountOf(area), 2);
    EXPECT_LOG(logger, {"FATAL ERROR: OutOfRangeException: Parameters for m_longitude are not set within "
                        "range (-180, 180) in 'Coordinate'.",
                        "WARNING: OutOfRangeException: Parameters for m_longitude are not set within range "
                        "(-180, 180) in 'Coordinate'."});
}

TEST(Area, ACoordinatesOwnLengthErrorEndsTheReading)
{
    for (const bool validate : {true, false}) {
        Area area;
        area.SetValidate(validate);
        const Bytes broken =
            Support::BodyOfLength(PointElements("3", "4").Size() - 1, PointElements("3", "4"));
        EXPECT_RG_THROW(ReadElements(area, Coordinates(2, Point("1", "2") + broken) + Name("N")),
                        "BinaryParsingException",
                        "Coordinate::SetBinary(...): Length error occurred during processing of binary "
                        "representation");
        AreaState state;
        state.coordinates = {{1.0, 2.0}};
        EXPECT_STATE(area, state);
    }
}

TEST(Area, DeclaredLengthsOfKnownElementsOnlyCountAgainstTheBudget)
{
    Area area;
    const Bytes point = Point("1", "2");
    EXPECT_EQ(ReadElements(
                  area, ElementOfLength(Tag::AREA_NAME, 6, ByteArray("Lake")) +
                            ElementOfLength(Tag::AREA_COORDINATES, 4 + point.Size() + 2, Int32(1) + point)),
              0);
    AreaState state;
    state.name = QStringLiteral("Lake");
    state.coordinates = {{1.0, 2.0}};
    EXPECT_STATE(area, state);
}

// --- Raw form ---------------------------------------------------------------------------------------------

TEST(Area, RawFormHoldsFlagsVersionNameCoordinatesAndScriptIdentifier)
{
    Area area = Lake();
    area.AppendCoordinate(At(1.0 / 3.0, -0.0));
    const Bytes raw = Support::Byte(NAME_FLAG | COORDINATES_FLAG | SCRIPT_FLAG) + String(u"1.0") +
                      String(u"Lake") + Int32(2) + RawPoint(3, 1.0, 2.0) + RawPoint(3, 1.0 / 3.0, -0.0) +
                      String(u"S7");
    EXPECT_BYTES(Support::RawFormOf(area), raw);

    Area read;
    EXPECT_EQ(ReadRawForm(read, raw + Support::Byte(5)), 1);
    EXPECT_TRUE(read == area);
    EXPECT_TEXT(read.GetInitialVersionLoaded(), "1.0");
    EXPECT_BYTES(Support::RawFormOf(read), raw);
}

TEST(Area, RawFormOfANewAreaAndOfEmptyTexts)
{
    EXPECT_BYTES(Support::RawFormOf(Area()), Support::Byte(0) + String(u"1.0") + NullString() + Int32(0));
    Area area = NotValidating();
    area.SetName(QStringLiteral(""));
    area.SetScriptID(QStringLiteral(""));
    EXPECT_BYTES(Support::RawFormOf(area), Support::Byte(NAME_FLAG | SCRIPT_FLAG) + String(u"1.0") +
                                               String(u"") + Int32(0) + String(u""));
    area.SetScriptID(QString());
    EXPECT_BYTES(Support::RawFormOf(area), Support::Byte(NAME_FLAG | SCRIPT_FLAG) + String(u"1.0") +
                                               String(u"") + Int32(0) + NullString());
}

TEST(Area, RawFormCountsCoordinatesThatAreNotMarkedAsSetButHoldsNoneOfThem)
{
    EXPECT_BYTES(Support::RawFormOf(WithUnflaggedPoint(NAME_FLAG)),
                 Support::Byte(NAME_FLAG) + String(u"1.0") + String(u"Lake") + Int32(1));
}

TEST(Area, RawReadingDoesNotResetButReplacesNameAndFlagsAndAppends)
{
    Area area = Lake();
    EXPECT_EQ(ReadRawForm(area, Support::Byte(0) + String(u"1.0") + String(u"Raw") + Int32(1) +
                                    RawPoint(3, 3.0, 4.0)),
              0);
    EXPECT_TEXT(area.GetName(), "Raw");
    EXPECT_FALSE(area.IsNameSet());
    EXPECT_TEXT(area.GetScriptID(), "S7");
    EXPECT_FALSE(area.IsScriptIDSet());
    EXPECT_TRUE(area.IsCoordinateSet());
    AreaState state;
    state.coordinates = {{1.0, 2.0}, {3.0, 4.0}};
    state.initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(area, state);
}

TEST(Area, RawReadingTakesTheScriptIdentifierOnlyWhenItsFlagIsThere)
{
    Area area;
    const Bytes rest = String(u"1.0") + String(u"N") + Int32(0) + String(u"S");
    EXPECT_EQ(ReadRawForm(area, Support::Byte(NAME_FLAG) + rest), 6);
    EXPECT_TRUE(area.GetScriptID().isNull());
    EXPECT_EQ(ReadRawForm(area, Support::Byte(NAME_FLAG | SCRIPT_FLAG) + rest), 0);
    EXPECT_TEXT(area.GetScriptID(), "S");
}

TEST(Area, RawReadingTellsNullTextsFromEmptyOnes)
{
    Area area;
    EXPECT_EQ(ReadRawForm(area, Support::Byte(NAME_FLAG | SCRIPT_FLAG) + String(u"1.0") + String(u"") +
                                    Int32(0) + String(u"")),
              0);
    EXPECT_FALSE(area.GetName().isNull());
    EXPECT_FALSE(area.GetScriptID().isNull());
    EXPECT_EQ(ReadRawForm(area, Support::Byte(NAME_FLAG | SCRIPT_FLAG) + String(u"1.0") + NullString() +
                                    Int32(0) + NullString()),
              0);
    EXPECT_TRUE(area.GetName().isNull());
    EXPECT_TRUE(area.GetScriptID().isNull());
    EXPECT_TRUE(area.IsNameSet());
}

TEST(Area, RawDataOfAnOlderVersionStartFromAnEmptyAreaWithoutFlags)
{
    for (const VersionRow& row : VERSIONS) {
        const QString version = QString::fromUtf16(row.version);
        SCOPED_TRACE(::testing::PrintToString(version));
        Area area = Lake();
        const Bytes raw = Support::Byte(NAME_FLAG | COORDINATES_FLAG | SCRIPT_FLAG) + String(row.version) +
                          String(u"Raw") + Int32(1) + RawPoint(3, 3.0, 4.0) + String(u"New");
        EXPECT_EQ(ReadRawForm(area, raw), row.isOlder ? 4 + 6 : 0);
        EXPECT_TEXT(area.GetName(), "Raw");
        AreaState state;
        state.coordinates = {{3.0, 4.0}};
        if (!row.isOlder) {
            state.name = QStringLiteral("Raw");
            state.coordinates = {{1.0, 2.0}, {3.0, 4.0}};
            state.scriptID = QStringLiteral("New");
        }
        state.initialVersionLoaded = version;
        EXPECT_STATE(area, state);
    }
}

TEST(Area, RawCoordinatesThatAreIncompleteAreRefusedWhenValidatingAndAppendedWithAWarningOtherwise)
{
    const Bytes raw = Support::Byte(NAME_FLAG | COORDINATES_FLAG) + String(u"1.0") + String(u"N") + Int32(3) +
                      RawPoint(3, 1.0, 2.0) + RawPoint(1, 3.0, 4.0) + RawPoint(3, 5.0, 6.0);
    Area area;
    EXPECT_RG_THROW(ReadRawForm(area, raw), "IncompleteDefinitionException", INCOMPLETE_ITEM);
    AreaState state;
    state.name = QStringLiteral("N");
    state.coordinates = {{1.0, 2.0}};
    state.initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(area, state);

    Area unchecked = NotValidating();
    const auto logger = Support::NewLogger();
    unchecked.SetLogger(logger);
    EXPECT_EQ(ReadRawForm(unchecked, raw), 0);
    state.coordinates = {{1.0, 2.0}, {3.0, std::nullopt}, {5.0, 6.0}};
    EXPECT_STATE(unchecked, state);
    EXPECT_LOG(logger, QStringList{QStringLiteral("WARNING: IncompleteDefinitionException: ") +
                                   Text(INCOMPLETE_ITEM)});
}

// A pipe hands its bytes over in pieces; an area that is longer than one of them is not at its end there.

TEST(Area, LongListIsReadWholeFromAPipe)
{
    Area area = Lake();
    area.SetCoordinate(QVector<Coordinate>(5000, At(3.0, 4.0)));
    Pipe pipe(area.GetBinaryRepresentationAsQByteArray());
    QDataStream stream(&pipe);
    Area read;
    bool known = false;
    EXPECT_NO_RG_THROW(known = read.SetBinaryRepresentation(stream));
    EXPECT_TRUE(known);
    EXPECT_EQ(CountOf(read), 5000);
    EXPECT_TRUE(read == area);
}

TEST(Area, ListThatIsCutOffInAPipeEndsInTheLengthError)
{
    Area area = Lake();
    area.SetCoordinate(QVector<Coordinate>(5000, At(3.0, 4.0)));
    const QByteArray bytes = area.GetBinaryRepresentationAsQByteArray();
    // A coordinate takes 44 bytes: its length, and two elements of 12 bytes and a text of 8. The first one
    // ends 28 bytes behind the beginning of its first text; two bytes of a next one are left.
    Pipe pipe(bytes.left(bytes.indexOf("3.000000") + 3000 * 44 + 28 + 2));
    QDataStream stream(&pipe);
    Area read;
    EXPECT_RG_THROW(read.SetBinaryRepresentation(stream), "BinaryParsingException", LENGTH_ERROR);
    EXPECT_EQ(CountOf(read), 3001);
}

TEST(Area, LongRawListIsReadWholeFromAPipe)
{
    Area area = Lake();
    area.SetCoordinate(QVector<Coordinate>(5000, At(3.0, 4.0)));
    Pipe pipe(Written([&](QDataStream& stream) { area.GetVersionSpecificBinaryWithoutValidation(stream); }));
    QDataStream stream(&pipe);
    stream.setVersion(QDataStream::Qt_4_6);
    Area read;
    EXPECT_NO_RG_THROW(read.SetVersionSpecificBinaryWithoutValidation(stream));
    EXPECT_EQ(CountOf(read), 5000);
    EXPECT_TRUE(read == area);
}

TEST(Area, VersionThatEndsWithinACharacterIsNoneAndReadingGoesOnBehindItsSize)
{
    for (const int size : {1, 0x8d, 0x7fffffff}) {
        SCOPED_TRACE(size);
        Area area = Lake();
        const Bytes elements = Element(Tag::AREA_VERSION, Int32(size)) + Name("New");
        EXPECT_EQ(ReadElements(area, elements), 0);
        EXPECT_TEXT(area.GetName(), "New");
        EXPECT_TRUE(area.GetInitialVersionLoaded().isNull());
    }
}

// --- Settings of the coordinates --------------------------------------------------------------------------

TEST(Area, ReadingAChildAppliesTheSettingsAgainToCoordinatesThatWereGivenOthers)
{
    const auto logger = Support::NewLogger();
    const std::vector<std::pair<const char*, std::function<void(Area&)>>> disturbances = {
        {"through the constant list",
         [](Area& a) {
             std::as_const(a).GetCoordinate().at(0).SetValidate(true);
             std::as_const(a).GetCoordinate().at(0).SetLogger(Support::NewLogger());
         }},
        {"through the modifiable list",
         [](Area& a) {
             a.GetCoordinate()[0].SetValidate(true);
             a.GetCoordinate()[0].SetLogger(nullptr);
         }},
        {"by another list", [](Area& a) { a.SetCoordinate({At(1.0, 2.0)}); }},
        {"by an assignment and an appended coordinate",
         [](Area& a) {
             Area other = Lake();
             a = other;
             a.AppendCoordinate(At(3.0, 4.0));
         }},
    };
    for (const auto& [name, disturb] : disturbances) {
        SCOPED_TRACE(name);
        Area area = NotValidating();
        area.SetLogger(logger);
        area.AppendCoordinate(At(1.0, 2.0));
        const QString xml = QStringLiteral("<Area Version=\"1.0\"><Name>N</Name></Area>");
        ReadElement(area, xml);
        disturb(area);
        ReadElement(area, xml);
        for (const Coordinate& coordinate : std::as_const(area).GetCoordinate()) {
            EXPECT_EQ(coordinate.GetLogger(), logger);
            EXPECT_FALSE(coordinate.GetValidate());
        }
    }
}

// --- Merging ----------------------------------------------------------------------------------------------

TEST(Area, MergingReplacesTheTextsAndAppendsTheCoordinates)
{
    Area area = Lake();
    Area other;
    other.SetName(QStringLiteral("Other"));
    other.AppendCoordinate(At(3.0, 4.0));
    EXPECT_TRUE(area.MergeRGObject(other));
    AreaState state = LakeState();
    state.name = QStringLiteral("Other");
    state.coordinates = {{1.0, 2.0}, {3.0, 4.0}};
    state.initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(area, state);

    other.SetScriptID(QStringLiteral("New"));
    EXPECT_TRUE(area.MergeRGObject(other));
    state.coordinates.push_back({3.0, 4.0});
    state.scriptID = QStringLiteral("New");
    EXPECT_STATE(area, state);
}

TEST(Area, MergingItselfDoublesTheCoordinates)
{
    Area area = Lake();
    EXPECT_TRUE(area.MergeRGObject(area));
    AreaState state = LakeState();
    state.coordinates.push_back({1.0, 2.0});
    state.initialVersionLoaded = QStringLiteral("1.0");
    EXPECT_STATE(area, state);
}

TEST(Area, MergingAnAreaWithoutNameEmptiesTheName)
{
    Area area = Lake();
    Area other = NotValidating();
    other.SetScriptID(QStringLiteral("New"));
    EXPECT_TRUE(area.MergeRGObject(other));
    EXPECT_TRUE(area.IsNameSet());
    EXPECT_TEXT(area.GetName(), "");
    EXPECT_TEXT(area.GetScriptID(), "New");
    EXPECT_EQ(CountOf(area), 1);
}

TEST(Area, MergingAnAreaThatWritesNothingChangesNothing)
{
    Area area = Lake();
    Area other;
    other.SetName(QStringLiteral("Other"));
    other.GetCoordinate();
    EXPECT_TRUE(area.MergeRGObject(other));
    EXPECT_STATE(area, LakeState());
}

TEST(Area, MergingComparesVersionsAsNumbers)
{
    struct Row
    {
        const char* version;
        const char* otherVersion;
        bool isMerged;
    };
    const Row rows[] = {
        {"1.0", "1", true},  {"1.0", "1.00", true}, {"", "", true},     {"", "0", true},
        {"abc", "0", true},  {"1.0", "1.1", false}, {"1.0", "", false}, {"2", "1.0", false},
        {"1,0", "1", false}, {"10", "1e1", true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.version) + " and " + row.otherVersion);
        OfVersion area(Text(row.version));
        OfVersion other(Text(row.otherVersion));
        other.SetName(QStringLiteral("N"));
        other.AppendCoordinate(At(3.0, 4.0));
        const auto logger = Support::NewLogger();
        area.SetLogger(logger);
        EXPECT_EQ(area.MergeRGObject(other), row.isMerged);
        EXPECT_EQ(area.IsNameSet(), row.isMerged);
        if (row.isMerged)
            EXPECT_LOG(logger, {});
        else
            EXPECT_LOG(logger,
                       {"WARNING: Area: Merging will be aborted, because a version mismatch occurred."});
    }
}
