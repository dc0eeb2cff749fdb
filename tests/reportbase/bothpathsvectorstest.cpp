// The golden vectors, whole and damaged, are the same to the library's own classes and to their subclasses.

#include "support/expect.h"
#include "support/vectorwalk.h"

#include <gtest/gtest.h>

namespace {

using Support::Form;
using Support::Trip;
using Support::VectorInput;

TEST(BothPathsVectors, AreTheSameOnBothWhole)
{
    constexpr quint64 TRIPS = 6;
    const std::vector<VectorInput> inputs = Support::VectorInputs();
    ASSERT_FALSE(inputs.empty());
    for (const VectorInput& vector : inputs) {
        for (const Form form : vector.forms) {
            for (quint64 seed = 0; seed < TRIPS; ++seed) {
                ASSERT_EQ(Support::ReadingDifference(form, vector.kind,
                                                     Support::InputFor(form, vector.kind, vector.bytes),
                                                     Trip::OfSeed(seed)),
                          "")
                    << vector.path << ", " << Support::NameOf(form) << ", seed " << seed;
            }
        }
    }
}

TEST(BothPathsVectors, AreTheSameOnBothDamaged)
{
    constexpr int EVERY = 25;
    const Support::Walk walk = Support::WalkVectors(EVERY);
    EXPECT_EQ(walk.difference, "");
    EXPECT_GT(walk.cases, 1000);
}

} // namespace
