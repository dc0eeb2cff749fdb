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

#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using Support::AreaState;
using Support::At;
using Support::Bytes;
using Support::Coordinates;
using Support::Int32;
using Support::Lake;
using Support::LakeState;
using Support::Name;
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

} // namespace

// --- The object -------------------------------------------------------------------------------------------

TEST(Area, ResetKeepsBothVersions)
{
    for (const bool toDefault : {true, false}) {
        Area area = NotValidating<Area>();
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

TEST(Area, TheVersionThatWasLoadedDoesNotCount)
{
    Area old = NotValidating<Area>();
    EXPECT_TRUE(old.SetXmlString(QStringLiteral("<Area Version=\"0.9\"><Name>N</Name></Area>"), true));
    Area recent = NotValidating<Area>();
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

// --- XML --------------------------------------------------------------------------------------------------

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
        Area area = NotValidating<Area>();
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

// --- Tagged form ------------------------------------------------------------------------------------------

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
    Area area = NotValidating<Area>();
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

TEST(Area, VersionThatEndsWithinACharacterIsNoneAndEndsTheReading)
{
    for (const int size : {1, 0x8d, 0x7fffffff}) {
        SCOPED_TRACE(size);
        Area area = Lake();
        const Bytes elements = Element(Tag::AREA_VERSION, Int32(size)) + Name("New");
        EXPECT_RG_THROW(
            ReadElements(area, elements), "BinaryParsingException",
            "Area::SetBinary(...): Length error occurred during processing of binary representation");
        EXPECT_FALSE(area.IsNameSet());
        EXPECT_TRUE(area.GetInitialVersionLoaded().isNull());
    }
}

// --- Raw form ---------------------------------------------------------------------------------------------

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
