// The fields of an area: setting, comparing and merging them.

#include "support/bytes.h"
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
using Support::Bytes;
using Support::Lake;
using Support::LakeState;
using Support::NotValidating;
using Support::OnlyLatitude;
using Support::OutOfRange;
using Support::ReadElement;
using Support::ReadElements;
using Support::Text;
using Support::WithUnflaggedPoint;

constexpr int NAME_FLAG = 1;

const char* const NULL_NAME = "Area: Please set Name properly (origin: Setter).";
const char* const NULL_SCRIPT_ID = "Area: Please set ScriptID properly (origin: Setter).";
const char* const INCOMPLETE_ITEM =
    "Area: Tried to append not completely defined or invalid item Coordinate.";

int CountOf(const Area& area)
{
    return static_cast<int>(area.GetCoordinate().size());
}

} // namespace

// --- Fields -----------------------------------------------------------------------------------------------

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

    Area withoutLogger = NotValidating<Area>();
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
    Area area = NotValidating<Area>();
    const auto logger = Support::NewLogger();
    area.SetLogger(logger);
    EXPECT_NO_RG_THROW(area.AppendCoordinate(OnlyLatitude(1.0)));
    AreaState state;
    state.coordinates = {{std::nullopt, 1.0}};
    EXPECT_STATE(area, state);
    EXPECT_LOG(logger, {"WARNING: IncompleteDefinitionException: Area: Tried to append not completely "
                        "defined or invalid item Coordinate."});

    Area withoutLogger = NotValidating<Area>();
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

    Area incomplete = NotValidating<Area>();
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
    Support::Renamed<Area> area("Region");
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
        Area area = NotValidating<Area>();
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
    Area other = NotValidating<Area>();
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
