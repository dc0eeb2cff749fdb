#include <reportcore/ring.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace {

using ReportCore::FindCrossing;
using ReportCore::Points;

/// A point of the small whole numbers that the rings below are made of.
struct Whole
{
    int x;
    int y;

    bool operator==(const Whole& other) const { return x == other.x && y == other.y; }
};

using WholeRing = std::vector<Whole>;

Points AsRing(const WholeRing& points)
{
    Points ring;
    for (const Whole& point : points)
        ring.push_back(
            {static_cast<double>(point.x), static_cast<double>(point.y), static_cast<int>(ring.size())});
    return ring;
}

int Side(const Whole& a, const Whole& b, const Whole& c)
{
    const int cross = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
    return (cross > 0) - (cross < 0);
}

bool IsOn(const Whole& point, const Whole& a, const Whole& b)
{
    return Side(a, b, point) == 0 && std::min(a.x, b.x) <= point.x && point.x <= std::max(a.x, b.x) &&
           std::min(a.y, b.y) <= point.y && point.y <= std::max(a.y, b.y);
}

bool Meet(const Whole& a, const Whole& b, const Whole& c, const Whole& d)
{
    return IsOn(a, c, d) || IsOn(b, c, d) || IsOn(c, a, b) || IsOn(d, a, b) ||
           (Side(a, b, c) * Side(a, b, d) < 0 && Side(c, d, a) * Side(c, d, b) < 0);
}

/// Each edge with each other one.
bool CrossesItself(const WholeRing& ring)
{
    const std::size_t size = ring.size();
    const auto at = [&ring, size](std::size_t i) { return ring[i % size]; };
    for (std::size_t i = 0; i < size; ++i) {
        if (IsOn(at(i), at(i + 1), at(i + 2)) || IsOn(at(i + 2), at(i), at(i + 1)))
            return true;
        for (std::size_t j = i + 2; j < size; ++j) {
            if (j + 1 != size + i && Meet(at(i), at(i + 1), at(j), at(j + 1)))
                return true;
        }
    }
    return false;
}

TEST(Ring, EdgesThatMeetAreFoundAsWhenEachIsComparedWithEach)
{
    std::mt19937 random(7);
    int crossing = 0;
    int simple = 0;
    for (int round = 0; round < 20000; ++round) {
        WholeRing ring;
        const std::size_t size = 3 + random() % 6;
        while (ring.size() < size) {
            const Whole point = {static_cast<int>(random() % 8), static_cast<int>(random() % 8)};
            if (ring.empty() || !(ring.back() == point))
                ring.push_back(point);
        }
        if (ring.front() == ring.back())
            continue;
        const bool isCrossing = CrossesItself(ring);
        ASSERT_EQ(FindCrossing(AsRing(ring)).has_value(), isCrossing) << "round " << round;
        ++(isCrossing ? crossing : simple);
    }
    EXPECT_GT(crossing, 1000);
    EXPECT_GT(simple, 1000);
}

TEST(Ring, FewPointsHaveNoEdgesThatMeet)
{
    EXPECT_FALSE(FindCrossing({}));
    EXPECT_FALSE(FindCrossing(AsRing({{1, 1}})));
    EXPECT_FALSE(FindCrossing(AsRing({{1, 1}, {2, 2}})));
}

TEST(Ring, EdgesAreNamedByThePointsThatTheyBeginAt)
{
    const auto pair = FindCrossing(AsRing({{0, 0}, {4, 4}, {4, 0}, {0, 4}}));
    ASSERT_TRUE(pair);
    EXPECT_EQ(pair->first, 0);
    EXPECT_EQ(pair->second, 2);
}

TEST(Ring, LargeRingsAreLookedThrough)
{
    Points ring;
    constexpr int SIZE = 100000;
    for (int i = 0; i < SIZE; ++i) {
        const double angle = 2.0 * std::acos(-1.0) * i / SIZE;
        ring.push_back({80.0 * std::cos(angle), 80.0 * std::sin(angle), i});
    }
    EXPECT_FALSE(FindCrossing(ring));
    std::swap(ring[50000], ring[50002]);
    EXPECT_TRUE(FindCrossing(ring));
}

} // namespace
