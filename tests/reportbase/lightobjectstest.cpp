// What objects share behind the scenes must not show: identity, settings, and the coordinates of copied
// areas.

#include "support/expect.h"
#include "support/points.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::ReportBase;
using Support::At;

/// An area whose list nobody has been handed.
Area Pair()
{
    Area area;
    area.SetName(QStringLiteral("N"));
    area.AppendCoordinate(At(1.0, 2.0));
    area.AppendCoordinate(At(3.0, 4.0));
    return area;
}

const Coordinate& First(const Area& area)
{
    return area.GetCoordinate().at(0);
}

// --- Copied areas ------------------------------------------------------------------------------------------

TEST(CopiedArea, OutlivesItsSourceWithItsOwnSettings)
{
    const auto logger = Support::NewLogger();
    std::optional<Area> source = Pair();
    source->SetValidate(false);
    source->SetLogger(logger);
    source->Check(true);
    const Area copy(*source);
    source.reset();
    EXPECT_EQ(copy.GetCoordinate().size(), 2);
    EXPECT_EQ(First(copy).GetLogger(), nullptr);
    EXPECT_FALSE(First(copy).GetValidate());
    EXPECT_EQ(First(copy).GetLatitude(), 2.0);
}

/// The logger may belong to another thread.
TEST(CopiedArea, HoldsNoLoggerOfItsSource)
{
    const std::pair<const char*, std::function<void(Area&)>> ways[] = {
        {"destroyed", [](Area&) {}},
        {"reset", [](Area& area) { area.Reset(); }},
        {"assigned", [](Area& area) { area = Pair(); }},
        {"given others", [](Area& area) { area.SetCoordinate({At(5.0, 6.0)}); }},
        {"appended to", [](Area& area) { area.AppendCoordinate(At(5.0, 6.0)); }},
        {"handed out", [](Area& area) { area.GetCoordinate()[0].SetLongitude(9.0); }},
        {"read",
         [](Area& area) {
             area.SetXmlString(QStringLiteral("<Area Version=\"1.0\"><Name>M</Name></Area>"), true);
         }},
    };
    for (const auto& [name, leave] : ways) {
        SCOPED_TRACE(name);
        auto logger = Support::NewLogger();
        const std::weak_ptr<REPORTGENERATOR::ListLogger> left = logger;
        std::optional<ReportBase> source = ReportBase();
        source->SetArea(Pair());
        source->SetValidate(false);
        source->SetLogger(logger);
        const ReportBase copy(*source);
        const Area area(std::as_const(*source).GetArea());
        logger.reset();
        leave(source->GetArea());
        source.reset();
        EXPECT_TRUE(left.expired());
        EXPECT_EQ(First(area).GetLongitude(), 1.0);
        EXPECT_FALSE(First(area).GetValidate());
        EXPECT_EQ(First(copy.GetArea()).GetLongitude(), 1.0);
    }
}

TEST(CopiedArea, AssignedMembersHaveNoLoggerOfTheirSource)
{
    ReportBase source;
    source.SetArea(Pair());
    source.SetLogger(Support::NewLogger());
    ReportBase assigned;
    assigned = source;
    EXPECT_EQ(std::as_const(source).GetArea().GetLogger(), source.GetLogger());
    EXPECT_EQ(std::as_const(assigned).GetArea().GetLogger(), nullptr);
    EXPECT_EQ(First(std::as_const(assigned).GetArea()).GetLogger(), nullptr);
}

TEST(CopiedArea, PassesWhatItWasToldBeforeAnybodyLooked)
{
    const auto logger = Support::NewLogger();
    const Area source = Pair();
    Area copy(source);
    copy.SetValidate(false);
    copy.SetLogger(logger);
    Area copyOfCopy(copy);
    EXPECT_FALSE(First(copyOfCopy).GetValidate());
    EXPECT_EQ(First(copyOfCopy).GetLogger(), nullptr);
    EXPECT_FALSE(First(copy).GetValidate());
    EXPECT_EQ(First(copy).GetLogger(), logger);
    EXPECT_TRUE(First(source).GetValidate());
}

TEST(CopiedArea, DoesNotSeeWhatIsDoneThroughAHeldCoordinate)
{
    Area source = Pair();
    source.SetLogger(Support::NewLogger());
    Coordinate& held = source.GetCoordinate()[0];
    Area copy(source);
    held.SetLongitude(9.0);
    EXPECT_EQ(First(copy).GetLongitude(), 1.0);
    EXPECT_EQ(First(source).GetLongitude(), 9.0);

    const Coordinate& heldOfCopy = First(copy);
    const Area copyOfCopy(copy);
    heldOfCopy.SetValidate(false);
    EXPECT_TRUE(First(copyOfCopy).GetValidate());
}

TEST(CopiedArea, LeavesHeldListsOfItsSourceInTheirPlace)
{
    Area source = Pair();
    const QVector<Coordinate>& held = std::as_const(source).GetCoordinate();
    const Coordinate* first = held.constData();
    {
        const Area copy(source);
        source.SetName(QStringLiteral("M"));
        source.SetValidate(false);
        EXPECT_EQ(copy.GetCoordinate().size(), 2);
    }
    EXPECT_EQ(&std::as_const(source).GetCoordinate(), &held);
    EXPECT_EQ(held.constData(), first);
    EXPECT_FALSE(held.at(0).GetValidate());
}

TEST(CopiedArea, WritesAndComparesWithoutBeingLookedAt)
{
    Area source = Pair();
    const Area copy(source);
    EXPECT_TRUE(copy == source);
    EXPECT_XML(copy, source.GetXmlString());
    source.AppendCoordinate(At(5.0, 6.0));
    EXPECT_FALSE(copy == source);
    EXPECT_NO_RG_THROW(copy.Check());
    EXPECT_EQ(copy.GetCoordinate().size(), 2);
}

TEST(CopiedArea, AssignedReportsGoTheirOwnWays)
{
    const auto logger = Support::NewLogger();
    ReportBase source;
    source.SetLogger(logger);
    source.SetArea(Pair());
    ReportBase assigned;
    assigned.SetValidate(false);
    assigned = source;
    const ReportBase copy(source);
    source.GetArea().GetCoordinate()[0].SetLongitude(9.0);
    EXPECT_EQ(First(std::as_const(assigned).GetArea()).GetLongitude(), 1.0);
    EXPECT_EQ(First(copy.GetArea()).GetLongitude(), 1.0);
    EXPECT_NO_RG_THROW(assigned.GetXmlString());
    EXPECT_FALSE(First(std::as_const(assigned).GetArea()).GetValidate());
    EXPECT_EQ(First(std::as_const(assigned).GetArea()).GetLogger(), nullptr);
}

// --- Settings ----------------------------------------------------------------------------------------------

TEST(SharedSettings, OneCoordinateChangesItsOwnOnly)
{
    const auto logger = Support::NewLogger();
    Area area = Pair();
    area.SetLogger(logger);
    area.SetValidate(false);
    QVector<Coordinate>& coordinates = area.GetCoordinate();
    coordinates[0].SetValidate(true);
    coordinates[1].ResetLogger();
    EXPECT_FALSE(area.GetValidate());
    EXPECT_EQ(area.GetLogger(), logger);
    EXPECT_EQ(coordinates[0].GetLogger(), logger);
    EXPECT_FALSE(coordinates[1].GetValidate());
    EXPECT_EQ(coordinates[1].GetLogger(), nullptr);
}

TEST(SharedSettings, TheLoggerGoesWithTheLastObjectThatHasIt)
{
    std::weak_ptr<REPORTGENERATOR::ListLogger> gone;
    {
        Area area = Pair();
        const auto logger = Support::NewLogger();
        gone = logger;
        area.SetLogger(logger);
        area.Check();
        area.ResetLogger();
        EXPECT_EQ(First(area).GetLogger(), logger);
        area.Check();
        EXPECT_EQ(First(area).GetLogger(), nullptr);
        EXPECT_EQ(logger.use_count(), 1);
    }
    EXPECT_TRUE(gone.expired());
}

// --- Identity ----------------------------------------------------------------------------------------------

class Renamed : public Coordinate
{
public:
    using Coordinate::SetObjectId;
    using Coordinate::SetObjectName;
};

TEST(SharedIdentity, OneObjectIsRenamedAlone)
{
    Renamed renamed;
    renamed.SetObjectName(QStringLiteral("Point"));
    renamed.SetObjectId(7);
    EXPECT_TEXT(renamed.GetObjectName(), "Point");
    EXPECT_EQ(renamed.GetObjectId(), 7);
    EXPECT_TEXT(Coordinate().GetObjectName(), "Coordinate");
    EXPECT_EQ(Coordinate().GetObjectId(), Coordinate::GetId());
    EXPECT_TEXT(Coordinate(renamed).GetObjectName(), "Coordinate");
}

TEST(SharedIdentity, ANameThatIsHeldStaysAsLongAsTheObject)
{
    Double number;
    number.SetName(QStringLiteral("A"));
    const QString& held = number.GetName();
    number.SetName(QStringLiteral("B"));
    EXPECT_TEXT(held, "B");
    Double other;
    other.SetName(QStringLiteral("C"));
    number = other;
    EXPECT_TEXT(held, "C");
    number = Double();
    EXPECT_TEXT(held, "AnyType");
    EXPECT_TEXT(other.GetName(), "C");
}

} // namespace
