// The fields of an area: setting, comparing and merging them.

#include "support/expect.h"
#include "support/points.h"
#include "support/recordclasses.h"
#include "support/records.h"
#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QVector>

#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using Support::AreaState;
using Support::At;
using Support::Lake;
using Support::LakeState;
using Support::Made;
using Support::NOT_SET;
using Support::NotValidating;
using Support::OnlyLatitude;
using Support::OnlyLongitude;
using Support::OutOfRange;
using Support::ReadElement;
using Support::Text;
using Support::WithUnflaggedPoint;

constexpr int NAME_FLAG = 1;

const char* const NULL_NAME = "Area: Please set Name properly (origin: Setter).";
const char* const NULL_SCRIPT_ID = "Area: Please set ScriptID properly (origin: Setter).";
const char* const INCOMPLETE_ITEM =
    "Area: Tried to append not completely defined or invalid item Coordinate.";

AreaState WithPoints(const std::vector<Support::CoordinateState>& coordinates)
{
    return {NOT_SET, coordinates};
}

} // namespace

// --- Fields -----------------------------------------------------------------------------------------------

TEST(Area, DefaultsAreNullTextsWhichAloneAreInvalid)
{
    const Area area;
    EXPECT_TRUE(area.GetDefaultName().isNull());
    EXPECT_TRUE(area.GetDefaultScriptID().isNull());
    EXPECT_FALSE(area.IsValidName(QString()));
    EXPECT_FALSE(area.IsValidScriptID(QString()));
    for (const char* text : {"", " ", "Lake"}) {
        EXPECT_TRUE(area.IsValidName(Text(text)));
        EXPECT_TRUE(area.IsValidScriptID(Text(text)));
    }
    EXPECT_TRUE(area.IsValidCoordinate(Coordinate()));
    EXPECT_TRUE(area.IsValidCoordinate(OutOfRange(1000.0, 1000.0)));
    EXPECT_TRUE(area.IsValidCoordinate(QVector<Coordinate>()));
    EXPECT_TRUE(area.IsValidCoordinate(QVector<Coordinate>{Coordinate(), OnlyLatitude(1.0)}));
    EXPECT_FALSE(area.IsInitialized());
}

TEST(Area, NullTextsAreRefusedWhenValidatingAndNothingIsStored)
{
    for (const AreaState& state : {AreaState(), LakeState()}) {
        Area area = Made<Area>(state);
        const auto logger = Support::NewLogger();
        for (const bool isLogged : {false, true}) {
            if (isLogged)
                area.SetLogger(logger);
            EXPECT_RG_THROW(area.SetName(QString()), "OutOfRangeException", NULL_NAME);
            EXPECT_TRUE(area.IsInitialized());
            EXPECT_RG_THROW(area.SetScriptID(QString()), "OutOfRangeException", NULL_SCRIPT_ID);
            EXPECT_STATE(area, state);
        }
        area.SetName(QStringLiteral(""));
        area.SetScriptID(QStringLiteral(""));
        EXPECT_STATE(area, (AreaState{Text(""), state.coordinates, Text("")}));
        EXPECT_LOG(
            logger,
            {"FATAL ERROR: OutOfRangeException: Area: Please set Name properly (origin: Setter).",
             "FATAL ERROR: OutOfRangeException: Area: Please set ScriptID properly (origin: Setter)."});
    }
}

TEST(Area, NullTextsAreStoredAndSetAfterAWarningWhenNotValidating)
{
    Area area = Lake();
    area.SetValidate(false);
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_NO_RG_THROW(area.SetName(QString()));
    EXPECT_NO_RG_THROW(area.SetScriptID(QString()));
    EXPECT_STATE(area, (AreaState{QString(), {{1.0, 2.0}}, QString()}));
    EXPECT_FALSE(area.HasData());
    EXPECT_LOG(logger,
               {"WARNING: OutOfRangeException: Area: Please set Name properly (origin: Setter).",
                "WARNING: OutOfRangeException: Area: Please set ScriptID properly (origin: Setter)."});

    Area withoutLogger = NotValidating<Area>();
    EXPECT_NO_RG_THROW(withoutLogger.SetName(QString()));
    EXPECT_NO_RG_THROW(withoutLogger.SetScriptID(QString()));
    EXPECT_STATE(withoutLogger, (AreaState{QString(), {}, QString()}));
    EXPECT_FALSE(withoutLogger.AnyData());
}

TEST(Area, TheModifiableListIsTheListItselfAndAskingForItSetsTheCoordinates)
{
    Area area;
    EXPECT_TRUE(area.GetCoordinate().isEmpty());
    EXPECT_TRUE(area.IsCoordinateSet());
    EXPECT_FALSE(area.AnyData());
    area.GetCoordinate().append(At(1.0, 2.0));
    area.GetCoordinate()[0].SetLongitude(5.0);
    area.GetCoordinate().append(At(3.0, 4.0));
    EXPECT_STATE(area, WithPoints({{5.0, 2.0}, {3.0, 4.0}}));
    EXPECT_TRUE(area.AnyData());
    area.GetCoordinate().clear();
    EXPECT_TRUE(area.IsCoordinateSet());
    EXPECT_FALSE(area.AnyData());
}

TEST(Area, SetCoordinateReplacesTheListWithoutLookingAtItsElements)
{
    for (const bool validate : {true, false}) {
        Area area = Lake();
        area.SetValidate(validate);
        const auto logger = Support::NewLogger();
        area.SetLogger(logger);
        EXPECT_NO_RG_THROW(area.SetCoordinate({OnlyLatitude(5.0), Coordinate(), OutOfRange(1000.0, 3.0)}));
        EXPECT_STATE(area, (AreaState{Text("Lake"), {{NOT_SET, 5.0}, {}, {1000.0, 3.0}}, Text("S7")}));
        area.SetCoordinate({});
        EXPECT_STATE(area, (AreaState{Text("Lake"), {}, Text("S7"), QString(), true}));
        EXPECT_LOG(logger, {});
    }
}

TEST(Area, AppendedCoordinatesStandInTheirOrder)
{
    Area area;
    for (const Coordinate& coordinate : {At(1.0, 2.0), At(3.0, 4.0), At(1.0, 2.0)})
        area.AppendCoordinate(coordinate);
    EXPECT_STATE(area, WithPoints({{1.0, 2.0}, {3.0, 4.0}, {1.0, 2.0}}));

    Area unflagged = WithUnflaggedPoint();
    unflagged.AppendCoordinate(At(3.0, 4.0));
    EXPECT_STATE(std::as_const(unflagged).GetCoordinate().at(0), (Support::CoordinateState{1.0, 2.0}));
    EXPECT_EQ(std::as_const(unflagged).GetCoordinate().size(), 2);
    EXPECT_TRUE(unflagged.IsCoordinateSet());
}

/// The area is asked whether to validate, not the coordinate.
TEST(Area, AnIncompleteCoordinateIsNotAppendedWhenValidating)
{
    Coordinate unchecked = OnlyLatitude(1.0);
    unchecked.SetValidate(false);
    for (const Coordinate& item : {Coordinate(), OnlyLatitude(1.0), OnlyLongitude(1.0), unchecked}) {
        for (const AreaState& state : {AreaState(), LakeState()}) {
            Area area = Made<Area>(state);
            EXPECT_RG_THROW(area.AppendCoordinate(item), "IncompleteDefinitionException", INCOMPLETE_ITEM);
            EXPECT_TRUE(area.IsInitialized());
            const auto logger = Support::NewLogger();
            area.SetLogger(logger);
            EXPECT_RG_THROW(area.AppendCoordinate(item), "IncompleteDefinitionException", INCOMPLETE_ITEM);
            EXPECT_STATE(area, state);
            EXPECT_LOG(logger, {"FATAL ERROR: IncompleteDefinitionException: Area: Tried to append not "
                                "completely defined or invalid item Coordinate."});
        }
    }
}

TEST(Area, AnIncompleteCoordinateIsAppendedWithOneWarningWhenNotValidatingAndOneOutOfRangeWithNone)
{
    Area area = NotValidating<Area>();
    EXPECT_NO_RG_THROW(area.AppendCoordinate(Coordinate()));
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_NO_RG_THROW(area.AppendCoordinate(OnlyLatitude(1.0)));
    EXPECT_LOG(logger, {"WARNING: IncompleteDefinitionException: Area: Tried to append not completely "
                        "defined or invalid item Coordinate."});
    logger->Reset(true);
    area.SetValidate(true);
    EXPECT_NO_RG_THROW(area.AppendCoordinate(OutOfRange(1000.0, -1000.0)));
    EXPECT_LOG(logger, {});
    EXPECT_STATE(area, WithPoints({{}, {NOT_SET, 1.0}, {1000.0, -1000.0}}));
}

TEST(Area, AnyDataAndHasDataLookAtTheValuesAndNotAtTheFlags)
{
    struct Row
    {
        const char* name;
        Area area;
        bool anyData;
        bool hasData;
    };
    const QString empty = QStringLiteral("");
    const Row rows[] = {
        {"null texts", Made<Area>({QString(), {}, QString()}), false, false},
        {"script alone", Made<Area>({NOT_SET, {}, empty}), true, false},
        {"name alone", Made<Area>({empty}), true, false},
        {"point alone", Made<Area>(WithPoints({{1.0, 2.0}})), true, false},
        {"name and point", Made<Area>({empty, {{1.0, 2.0}}}), true, true},
        {"name and a point without data", Made<Area>({empty, {Support::CoordinateState()}}), true, true},
        {"point without a flag", WithUnflaggedPoint(), true, false},
        {"name and point without a flag", WithUnflaggedPoint(NAME_FLAG), true, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.area.AnyData(), row.anyData);
        EXPECT_EQ(row.area.HasData(), row.hasData);
    }
}

TEST(Area, ResettingAFieldUnsetsItAlone)
{
    Area area = Lake();
    area.ResetName();
    EXPECT_STATE(area, (AreaState{NOT_SET, {{1.0, 2.0}}, Text("S7")}));
    area.ResetCoordinate();
    EXPECT_STATE(area, (AreaState{NOT_SET, {}, Text("S7"), QString(), false}));
    area.ResetScriptID();
    EXPECT_STATE(area, AreaState());
    EXPECT_TRUE(area.GetName().isNull());
    EXPECT_TRUE(area.GetScriptID().isNull());
    EXPECT_TRUE(area.IsInitialized());
}

TEST(Area, ResettingUnflaggedCoordinatesEmptiesThem)
{
    for (const bool isAll : {false, true}) {
        Area area = WithUnflaggedPoint();
        isAll ? area.Reset() : area.ResetCoordinate();
        EXPECT_EQ(std::as_const(area).GetCoordinate().size(), 0);
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
    }
    const auto one = Made<Area>(WithPoints({{1.0, 2.0}, {3.0, 4.0}}));
    EXPECT_TRUE(one == Made<Area>(WithPoints({{1.0, 2.0}, {3.0, 4.0}})));
    EXPECT_FALSE(one == Made<Area>(WithPoints({{1.0, 2.0}, {3.0, 4.5}})));
    EXPECT_FALSE(one == Made<Area>(WithPoints({{3.0, 4.0}, {1.0, 2.0}})));
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
    const auto flagged = Made<Area>(WithPoints({{1.0, 2.0}}));
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
    EXPECT_FALSE(Area(area) == area);
    Area assigned;
    assigned = area;
    EXPECT_FALSE(assigned == area);
}

// --- Messages ---------------------------------------------------------------------------------------------

TEST(Area, MessagesBeginWithTheCurrentName)
{
    Support::Renamed<Area> area("Region");
    EXPECT_RG_THROW(area.SetName(QString()), "OutOfRangeException",
                    "Region: Please set Name properly (origin: Setter).");
    EXPECT_RG_THROW(area.AppendCoordinate(Coordinate()), "IncompleteDefinitionException",
                    "Region: Tried to append not completely defined or invalid item Coordinate.");
    EXPECT_RG_THROW(ReadElement(area, QStringLiteral("<Region Version=\"1.0\"><Foo/></Region>")),
                    "InvalidXmlException", "Unknown Tag 'Foo' in 'Region'.");
}

// --- Merging ----------------------------------------------------------------------------------------------

TEST(Area, MergingReplacesTheTextsAndAppendsTheCoordinates)
{
    struct Row
    {
        const char* name;
        AreaState other;
        AreaState merged;
    };
    const Row rows[] = {
        {"without script",
         {Text("Other"), {{3.0, 4.0}}},
         {Text("Other"), {{1.0, 2.0}, {3.0, 4.0}}, Text("S7")}},
        {"whole",
         {Text("Other"), {{3.0, 4.0}}, Text("New")},
         {Text("Other"), {{1.0, 2.0}, {3.0, 4.0}}, Text("New")}},
        // An element without text gives an empty one.
        {"without name", {NOT_SET, {}, Text("New")}, {Text(""), {{1.0, 2.0}}, Text("New")}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Area area = Lake();
        Area other = Made<Area>(row.other);
        other.SetValidate(false);
        EXPECT_TRUE(area.MergeRGObject(other));
        AreaState merged = row.merged;
        merged.initialVersionLoaded = QStringLiteral("1.0");
        EXPECT_STATE(area, merged);
    }
}

TEST(Area, MergingItselfDoublesTheCoordinates)
{
    Area area = Lake();
    EXPECT_TRUE(area.MergeRGObject(area));
    EXPECT_STATE(area, (AreaState{Text("Lake"), {{1.0, 2.0}, {1.0, 2.0}}, Text("S7"), Text("1.0")}));
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
