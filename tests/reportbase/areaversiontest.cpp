// The version of an area: what data of an older one, of a newer one or without one are read as, in each form.

#include "support/bytes.h"
#include "support/expect.h"
#include "support/points.h"
#include "support/recordclasses.h"
#include "support/recordelements.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using Support::AreaState;
using Support::Bytes;
using Support::Coordinates;
using Support::Int32;
using Support::Lake;
using Support::LakeState;
using Support::Name;
using Support::NOT_SET;
using Support::NotValidating;
using Support::NullString;
using Support::Point;
using Support::RawPoint;
using Support::ReadElement;
using Support::ReadElements;
using Support::ReadRawForm;
using Support::ScriptID;
using Support::String;
using Support::Text;
using Support::Version;
namespace Tag = Support::Tag;

constexpr int NAME_FLAG = 1;
constexpr int COORDINATES_FLAG = 2;
constexpr int SCRIPT_FLAG = 4;

/// Says that it is of a version of its own.
class OfVersion : public Area
{
public:
    explicit OfVersion(const QString& version) : m_version(version) {}
    const QString& GetVersion() const override { return m_version; }

private:
    QString m_version;
};

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

/// As it is read, without coordinates.
AreaState Read(const QString& version, const std::optional<QString>& name,
               const std::optional<QString>& scriptID = NOT_SET)
{
    return {name, {}, scriptID, version};
}

/// The lake that new data are read over, or what is left of it when they are older; both with a new script.
AreaState WithNewScript(const VersionRow& row)
{
    AreaState state = row.isOlder ? AreaState() : LakeState();
    state.scriptID = QStringLiteral("New");
    state.initialVersionLoaded = QString::fromUtf16(row.version);
    return state;
}

Area Loaded(const char* version)
{
    Area area = NotValidating<Area>();
    EXPECT_TRUE(
        area.SetXmlString(Text("<Area Version=\"%1\"><Name>N</Name></Area>").arg(Text(version)), true));
    EXPECT_STATE(area, Read(Text(version), Text("N")));
    return area;
}

} // namespace

// --- The object -------------------------------------------------------------------------------------------

TEST(Area, ResetKeepsBothVersions)
{
    for (const bool toDefault : {true, false}) {
        Area area = Loaded("7.5");
        toDefault ? area.ResetToDefault() : area.Reset();
        EXPECT_STATE(area, Read(Text("7.5"), NOT_SET));
        EXPECT_TEXT(area.GetVersion(), "1.0");
    }
}

TEST(Area, TheVersionThatWasLoadedDoesNotCount)
{
    EXPECT_TRUE(Loaded("0.9") == Loaded("1.0"));
    EXPECT_TRUE(Loaded("1.0") == Loaded("0.9"));
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

// --- Older data -------------------------------------------------------------------------------------------

TEST(Area, XmlOfAnOlderVersionStartsFromAnEmptyArea)
{
    for (const VersionRow& row : VERSIONS) {
        const QString version = QString::fromUtf16(row.version);
        SCOPED_TRACE(::testing::PrintToString(version));
        Area area = Lake();
        const QString xml =
            QStringLiteral("<Area Version=\"%1\"><ScriptID>New</ScriptID></Area>").arg(version);
        EXPECT_TEXT(ReadElement(area, xml), "</Area>");
        EXPECT_STATE(area, WithNewScript(row));
        EXPECT_TEXT(area.GetVersion(), "1.0");
    }
}

TEST(Area, AVersionElementOfOlderDataResetsWhatWasReadBeforeIt)
{
    for (const VersionRow& row : VERSIONS) {
        SCOPED_TRACE(::testing::PrintToString(QString::fromUtf16(row.version)));
        Area area;
        EXPECT_EQ(ReadElements(area, Name("Lake") + Coordinates(1, Point("1", "2")) + Version(row.version) +
                                         ScriptID("New")),
                  0);
        EXPECT_STATE(area, WithNewScript(row));
    }
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
        const AreaState older = {NOT_SET, {{3.0, 4.0}}, NOT_SET, version};
        const AreaState newer = {Text("Raw"), {{1.0, 2.0}, {3.0, 4.0}}, Text("New"), version};
        EXPECT_STATE(area, (row.isOlder ? older : newer));
    }
}

TEST(Area, DataWithoutVersionCountAsOlderInXmlAndInANullElement)
{
    for (const char* xml :
         {"<Area><ScriptID>New</ScriptID></Area>", "<Area version=\"1.0\"><ScriptID>New</ScriptID></Area>"}) {
        Area area = Lake();
        EXPECT_TEXT(ReadElement(area, Text(xml)), "</Area>");
        EXPECT_STATE(area, Read(QString(), NOT_SET, Text("New")));
    }
    Area area;
    EXPECT_EQ(ReadElements(area, Name("Lake") + Element(Tag::AREA_VERSION, NullString()) + ScriptID("New")),
              0);
    EXPECT_STATE(area, Read(QString(), NOT_SET, Text("New")));
}

TEST(Area, WithoutAVersionElementTheVersionLastLoadedStays)
{
    Area area = Loaded("0.7");
    EXPECT_EQ(ReadElements(area, Name("Lake")), 0);
    EXPECT_STATE(area, Read(Text("0.7"), Text("Lake")));
}

TEST(Area, VersionThatEndsWithinACharacterIsNoneAndEndsTheReading)
{
    for (const int size : {1, 0x8d, 0x7fffffff}) {
        SCOPED_TRACE(size);
        Area area = Lake();
        const Bytes elements = Element(Tag::AREA_VERSION, Int32(size)) + Name("New");
        EXPECT_RG_THROW(
            ReadElements(area, elements), "BinaryParsingException",
            "Area::SetBinary(...): Length error occurred during processing of binary representation");
        EXPECT_STATE(area, AreaState());
        EXPECT_TRUE(area.GetInitialVersionLoaded().isNull());
    }
}

// --- Unknown data -----------------------------------------------------------------------------------------

TEST(Area, UnknownChildrenOfDataThatIsNotOlderAreRefusedWhenValidating)
{
    for (const char* version : {"1.0", "1", "2.0"}) {
        SCOPED_TRACE(version);
        const QString xml =
            Text("<Area Version=\"%1\"><Name>N</Name><Foo/><ScriptID>S</ScriptID></Area>").arg(Text(version));
        Area area = Lake();
        EXPECT_RG_THROW(area.SetXmlString(xml, true), "InvalidXmlException", "Unknown Tag 'Foo' in 'Area'.");
        EXPECT_STATE(area, Read(Text(version), Text("N")));

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
        std::optional<QString> name;
        std::optional<QString> scriptID;
        std::vector<const char*> unknown;
        const char* end;
    };
    const std::vector<Row> rows = {
        {"<Foo/><ScriptID>S</ScriptID>", NOT_SET, NOT_SET, {"Foo"}, "</Foo>"},
        {"<Foo>text</Foo><ScriptID>S</ScriptID>", NOT_SET, NOT_SET, {"Foo"}, "</Foo>"},
        {"<Name>N</Name><Foo><ScriptID>inner</ScriptID></Foo><ScriptID>S</ScriptID>",
         Text("N"),
         Text("inner"),
         {"Foo"},
         "</Foo>"},
        {"<Foo><Name>N</Name><Bar/><ScriptID>S</ScriptID></Foo>",
         Text("N"),
         NOT_SET,
         {"Foo", "Bar"},
         "</Bar>"},
        {"<Foo><Foo><Name>N</Name></Foo><ScriptID>S</ScriptID></Foo>",
         Text("N"),
         NOT_SET,
         {"Foo", "Foo"},
         "</Foo>"},
        {"<Area Version=\"0.1\"><Name>N</Name></Area><ScriptID>S</ScriptID>",
         Text("N"),
         NOT_SET,
         {"Area"},
         "</Area>"},
        {"<name>x</name><Name>N</Name>", NOT_SET, NOT_SET, {"name"}, "</name>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.content);
        const QString xml = Text("<Area Version=\"1.0\">%1</Area>").arg(Text(row.content));
        Area area = NotValidating<Area>();
        const auto logger = Support::NewLogger();
        area.SetLogger(logger);
        EXPECT_TEXT(ReadElement(area, xml), row.end);
        EXPECT_STATE(area, Read(Text("1.0"), row.name, row.scriptID));
        QStringList lines;
        for (const char* unknown : row.unknown)
            lines << Text("WARNING: InvalidXmlException: Unknown Tag '%1' in 'Area'.").arg(Text(unknown));
        EXPECT_LOG(logger, lines);

        EXPECT_TRUE(area.SetXmlString(xml, true));
        EXPECT_STATE(area, Read(Text("1.0"), row.name, row.scriptID));
    }
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
