#include <reportcore/sequences.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <vector>

namespace {

using ReportCore::CommonRun;
using ReportCore::FindCommonRuns;
using Sequence = std::vector<int>;

/// How many items are in common; a failed expectation when they aren't, or not in their order.
int CountCommon(const Sequence& left, const Sequence& right)
{
    int common = 0;
    int leftNext = 0;
    int rightNext = 0;
    for (const CommonRun& run : FindCommonRuns(left, right)) {
        EXPECT_GT(run.size, 0);
        EXPECT_GE(run.left, leftNext);
        EXPECT_GE(run.right, rightNext);
        for (int i = 0; i < run.size; ++i)
            EXPECT_EQ(left.at(static_cast<std::size_t>(run.left + i)),
                      right.at(static_cast<std::size_t>(run.right + i)));
        leftNext = run.left + run.size;
        rightNext = run.right + run.size;
        common += run.size;
    }
    return common;
}

/// The length of the longest common subsequence by its definition.
int LongestCommon(const Sequence& left, const Sequence& right)
{
    std::vector<std::vector<int>> longest(left.size() + 1, std::vector<int>(right.size() + 1, 0));
    for (std::size_t i = 1; i <= left.size(); ++i) {
        for (std::size_t j = 1; j <= right.size(); ++j)
            longest[i][j] = left[i - 1] == right[j - 1] ? longest[i - 1][j - 1] + 1
                                                        : std::max(longest[i - 1][j], longest[i][j - 1]);
    }
    return longest[left.size()][right.size()];
}

TEST(Sequences, EndsAreMatched)
{
    EXPECT_EQ(CountCommon({}, {}), 0);
    EXPECT_EQ(CountCommon({1}, {}), 0);
    EXPECT_EQ(CountCommon({}, {1}), 0);
    EXPECT_EQ(CountCommon({1, 2, 3}, {1, 2, 3}), 3);
    EXPECT_EQ(CountCommon({1, 2, 3}, {4, 5, 6}), 0);
    EXPECT_EQ(CountCommon({1, 1, 1}, {1, 1}), 2);
}

TEST(Sequences, ShortOnesHaveAsMuchInCommonAsThereIs)
{
    std::mt19937 random(20);
    for (int round = 0; round < 3000; ++round) {
        const int kinds = 1 + round % 7;
        Sequence left;
        Sequence right;
        for (std::size_t i = random() % 14; i > 0; --i)
            left.push_back(static_cast<int>(random()) & 0x7FFFFFFF);
        for (std::size_t i = random() % 14; i > 0; --i)
            right.push_back(static_cast<int>(random()) & 0x7FFFFFFF);
        for (Sequence* sequence : {&left, &right}) {
            for (int& item : *sequence)
                item %= kinds;
        }
        ASSERT_EQ(CountCommon(left, right), LongestCommon(left, right)) << "round " << round;
    }
}

TEST(Sequences, LongOnesWithFewDifferencesAreMatchedWhole)
{
    Sequence left;
    for (int i = 0; i < 200000; ++i)
        left.push_back(i % 1000);
    Sequence right = left;
    right.insert(right.begin() + 100000, 5000);
    right.erase(right.begin() + 150000);
    right[50000] = 5001;
    EXPECT_EQ(CountCommon(left, right), 199998);
}

TEST(Sequences, LongOnesWithManyDifferencesAreMatchedByWhatOccursOnce)
{
    // Every other item is another one.
    Sequence left;
    Sequence right;
    for (int i = 0; i < 200000; ++i) {
        left.push_back(i);
        right.push_back(i % 2 == 0 ? i : 200000 + i);
    }
    EXPECT_EQ(CountCommon(left, right), 100000);
}

TEST(Sequences, LongOnesWithNothingInCommonAreNotMatched)
{
    Sequence left;
    Sequence right;
    for (int i = 0; i < 200000; ++i) {
        left.push_back(i);
        right.push_back(200000 + i);
    }
    EXPECT_EQ(CountCommon(left, right), 0);
    // The first in reverse: of those that occur once, only one is in order.
    EXPECT_EQ(CountCommon(left, {left.rbegin(), left.rend()}), 1);
}

} // namespace
