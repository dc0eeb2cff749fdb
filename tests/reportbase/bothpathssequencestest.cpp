// The library's own classes and their subclasses come to the same after every step of a row of operations, whatever
// these are. See support/sequences.h.
//
// `./dev sequences` has the same test try more of them, from where it is told.

#include "support/expect.h"
#include "support/sequences.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

using Support::Kind;

/// A number of the environment.
quint64 Asked(const char* variable, quint64 otherwise)
{
    const char* const text = std::getenv(variable);
    return text != nullptr ? std::stoull(text) : otherwise;
}

class BothPathsSequences : public ::testing::TestWithParam<Kind>
{
};

TEST_P(BothPathsSequences, ComeToTheSameAfterEachStep)
{
    constexpr quint64 USUAL = 400;
    const quint64 first = Asked("REPORTGENERATOR_TEST_FIRST_SEED", 1);
    const quint64 count = Asked("REPORTGENERATOR_TEST_SEQUENCES", USUAL);
    for (quint64 seed = first; seed < first + count; ++seed) {
        ASSERT_EQ(Support::SequenceDifference(GetParam(), Support::SequenceOfSeed(seed)), "")
            << "seed " << seed;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryClass, BothPathsSequences, ::testing::ValuesIn(Support::ALL_KINDS),
                         [](const auto& kind) { return Support::NameOf(kind.param).toStdString(); });

} // namespace
