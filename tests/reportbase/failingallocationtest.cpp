// Objects when memory runs out in the middle of an operation: each allocation fails in turn.

#include "support/allocations.h"
#include "support/bytes.h"
#include "support/expect.h"
#include "support/points.h"
#include "support/records.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/double.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>
#include <memory>
#include <new>
#include <utility>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Coordinate;
using REPORTGENERATOR::Double;
using REPORTGENERATOR::IRGObject;
using REPORTGENERATOR::ReportBase;
using Support::Allocations;
using Support::At;
using Support::FailingAllocation;

/// Not copied without being looked at all.
constexpr int SOME_POINTS = 1000;

Area Lake(int points = 3)
{
    Area area;
    area.SetName(QStringLiteral("Lake"));
    for (int i = 0; i < points; ++i)
        area.AppendCoordinate(At(i % 90, 2.0));
    return area;
}

enum class Failure : int
{
    Passes,
    Lasts
};

/// Gives `attempt` a turn for each of its allocations to fail, until none does. It says what it does by the
/// function that it is given; what it expects afterwards it looks up after that.
void FailEach(const std::function<void(const std::function<void(const std::function<void()>&)>&)>& attempt,
              Failure failure = Failure::Passes)
{
    if (!FailingAllocation::IsPossible())
        GTEST_SKIP() << Support::OTHER_ALLOCATOR;
    bool hasFailed = true;
    int number = 0;
    while (hasFailed && !testing::Test::HasFailure()) {
        SCOPED_TRACE(++number);
        hasFailed = false;
        attempt([&](const std::function<void()>& operation) {
            bool threw = false;
            const FailingAllocation failing(number, failure == Failure::Lasts);
            try {
                operation();
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            hasFailed = failing.HasFailed();
            EXPECT_EQ(threw, hasFailed);
        });
    }
    EXPECT_GT(number, 1) << "nothing is allocated";
}

TEST(FailingAllocation, LeavesACopyWithoutWhatItsSourceHas)
{
    const auto logger = Support::NewLogger();
    FailEach([&](const auto& run) {
        const Area source = Lake();
        source.SetValidate(false);
        source.SetLogger(logger);
        const Area copy(source);
        copy.SetValidate(true);
        run([&] { copy.GetCoordinate(); });
        for (const Coordinate& point : copy.GetCoordinate()) {
            EXPECT_EQ(point.GetLogger(), nullptr);
            EXPECT_TRUE(point.GetValidate());
        }
        for (const Coordinate& point : source.GetCoordinate())
            EXPECT_EQ(point.GetLogger(), logger);
        EXPECT_TRUE(copy == source);
    });
}

TEST(FailingAllocation, LeavesAnAreaAsItWasThatIsAssigned)
{
    const Area source = Lake(5);
    FailEach([&](const auto& run) {
        Area target = Lake(1);
        bool isDone = false;
        run([&] {
            target = source;
            isDone = true;
        });
        EXPECT_TRUE(target == (isDone ? source : Lake(1)));
    });
}

TEST(FailingAllocation, LeavesAReportAsItWasThatIsAssignedOrGivenAnArea)
{
    ReportBase source;
    source.SetArea(Lake(5));
    FailEach([&](const auto& run) {
        ReportBase target;
        target.GetFrequency().SetValue(1.0);
        const ReportBase before(target);
        bool isDone = false;
        run([&] {
            target = source;
            isDone = true;
        });
        EXPECT_TRUE(target == (isDone ? source : before));
    });
    FailEach([&](const auto& run) {
        ReportBase target;
        target.SetArea(Lake(1));
        const ReportBase before(target);
        bool isDone = false;
        run([&] {
            target.SetArea(std::as_const(source).GetArea());
            isDone = true;
        });
        EXPECT_TRUE(target == (isDone ? source : before));
    });
}

TEST(FailingAllocation, LeavesTheCoordinatesAsTheyWere)
{
    const QVector<Coordinate> points = {At(7.0, 8.0)};
    const std::pair<const char*, std::function<void(Area&)>> changes[] = {
        {"AppendCoordinate", [](Area& area) { area.AppendCoordinate(At(7.0, 8.0)); }},
        {"SetCoordinate", [&](Area& area) { area.SetCoordinate(points); }},
        {"GetCoordinate", [](Area& area) { area.GetCoordinate(); }},
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        FailEach([&, &change = change](const auto& run) {
            const Area source = Lake();
            Area copy(source);
            bool isDone = false;
            run([&] {
                change(copy);
                isDone = true;
            });
            EXPECT_TRUE(isDone || copy == Lake());
            EXPECT_TRUE(source == Lake());
        });
    }
}

/// Qt gives nothing for want of memory, as it does for damaged data.
TEST(FailingAllocation, IsNotTakenForDamagedOrEmptyData)
{
    const QByteArray content(SOME_POINTS, 'c');
    const QByteArray compressed = IRGObject::Compress(content, 9);
    QByteArray result;
    FailEach(
        [&](const auto& run) {
            result = content;
            run([&] { result = IRGObject::UncompressBinary(compressed); });
            EXPECT_EQ(result, content);
        },
        Failure::Lasts);
    FailEach([&](const auto& run) {
        result = compressed;
        run([&] { result = IRGObject::Compress(content, 9); });
        EXPECT_EQ(result, compressed);
    });
}

/// Copies everything, its name and its logger too.
TEST(FailingAllocation, LeaksNothingOfACopy)
{
    Double number;
    number.SetName(QStringLiteral("N"));
    number.SetLogger(Support::NewLogger());
    FailEach([&](const auto& run) {
        const Allocations allocations;
        run([&] { const Double copy(number); });
        EXPECT_EQ(allocations.Held(), 0);
    });
}

// --- What needs no memory ---------------------------------------------------------------------------------

/// A list takes at least 40 bytes for each point. What a process sets up on first use is allowed for.
constexpr qint64 FAR_BELOW_A_LIST = qint64(4) * SOME_POINTS;

/// What the operation takes at most on a copy of an area, whose source is there.
qint64 PeakOn(const std::function<void(Area&)>& operation)
{
    const Area source = Lake(SOME_POINTS);
    Area copy(source);
    const Allocations allocations;
    operation(copy);
    return allocations.Peak();
}

TEST(CopiedList, IsNotCopiedToBeGivenUp)
{
    if (!Allocations::AreCounted())
        GTEST_SKIP() << Support::OTHER_ALLOCATOR;
    EXPECT_LT(PeakOn([](Area& area) { area.Reset(); }), FAR_BELOW_A_LIST);
    EXPECT_LT(PeakOn([](Area& area) { area.ResetCoordinate(); }), FAR_BELOW_A_LIST);
    EXPECT_LT(PeakOn([](Area& area) { area.ResetToDefault(); }), FAR_BELOW_A_LIST);
    EXPECT_LT(PeakOn([](Area& area) { area = Area(); }), FAR_BELOW_A_LIST);
    EXPECT_LT(PeakOn([](Area& area) { Support::ReadElements(area, Support::Bytes()); }), FAR_BELOW_A_LIST);
    EXPECT_LT(
        PeakOn([](Area& area) { Support::ReadElement(area, QStringLiteral("<Area Version=\"0.5\"/>")); }),
        30 * SOME_POINTS);
}

TEST(CopiedList, IsSharedByEachCopy)
{
    if (!Allocations::AreCounted())
        GTEST_SKIP() << Support::OTHER_ALLOCATOR;
    const Area source = Lake(SOME_POINTS);
    const Area first(source);
    const Allocations allocations;
    const Area second(source);
    const Area third(second);
    EXPECT_LT(allocations.Peak(), FAR_BELOW_A_LIST);
}

TEST(CopiedList, IsNotCopiedForASourceWhenTheCopyIsGivenUp)
{
    if (!Allocations::AreCounted())
        GTEST_SKIP() << Support::OTHER_ALLOCATOR;
    Area source = Lake(SOME_POINTS);
    Area copy(source);
    copy.Reset();
    const Allocations allocations;
    source.GetCoordinate()[0].SetLongitude(9.0);
    EXPECT_LT(allocations.Peak(), FAR_BELOW_A_LIST);
}

TEST(CopiedList, IsNotCopiedWhenItsSourceIsGivenUp)
{
    if (!Allocations::AreCounted())
        GTEST_SKIP() << Support::OTHER_ALLOCATOR;
    Area source = Lake(SOME_POINTS);
    source.SetLogger(Support::NewLogger());
    const Area copy(source);
    const Allocations allocations;
    source.Reset();
    EXPECT_LT(allocations.Peak(), FAR_BELOW_A_LIST);
    EXPECT_EQ(copy.GetCoordinate().size(), SOME_POINTS);
}

} // namespace
