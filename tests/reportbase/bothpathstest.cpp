// The library's own classes and their subclasses come to the same on whatever way they write and read:
// objects and inputs made up by choices, every form. See support/paths.h.

#include "support/expect.h"
#include "support/journeys.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Support::Choices;
using Support::Form;
using Support::Input;
using Support::Kind;
using Support::Trip;

/// Of each kind in each form.
constexpr int INPUTS = 200;
constexpr int OBJECTS = 1500;

quint64 SeedOf(int number, int what)
{
    return static_cast<quint64>(number) * 1000 + static_cast<quint64>(what);
}

std::string Where(Kind kind, quint64 seed)
{
    return Support::NameOf(kind).toStdString() + ", seed " + std::to_string(seed);
}

class BothPaths : public ::testing::TestWithParam<Form>
{
};

TEST_P(BothPaths, ReadTheSameFromTheSameInput)
{
    const Form form = GetParam();
    int taken = 0;
    int tried = 0;
    for (const Kind kind : Support::ALL_KINDS) {
        for (int number = 0; number < INPUTS; ++number) {
            const quint64 seed = SeedOf(number, static_cast<int>(form));
            const Trip trip = Trip::OfSeed(seed);
            const Input input = Support::ComposeInput(form, kind, trip, Choices(seed));
            ASSERT_EQ(Support::ReadingDifference(form, kind, input, trip), "") << Where(kind, seed);
            ++tried;
            taken += Support::IsTaken(form, kind, input, trip) ? 1 : 0;
        }
    }
    // Inputs that are all good or nearly all bad would show little.
    EXPECT_GT(taken, tried / 10);
    EXPECT_LT(taken, tried);
}

std::string FormName(const ::testing::TestParamInfo<Form>& info)
{
    std::string name;
    bool isStart = true;
    for (const char* c = Support::NameOf(info.param); *c != '\0'; ++c) {
        if (*c == ' ' || *c == '\'') {
            isStart = *c == ' ';
            continue;
        }
        name += static_cast<char>(isStart && *c >= 'a' ? *c - 'a' + 'A' : *c);
        isStart = false;
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(EveryForm, BothPaths,
                         ::testing::Values(Form::XmlString, Form::XmlFile, Form::Reader, Form::PlainArray,
                                           Form::PlainStream, Form::CompressedArray, Form::CompressedStream,
                                           Form::BinaryFile, Form::Body, Form::Raw, Form::Converter,
                                           Form::Notifier),
                         FormName);

TEST(BothPathsWriting, WriteTheSameOfTheSameObject)
{
    for (const Kind kind : Support::ALL_KINDS) {
        for (int number = 0; number < OBJECTS; ++number) {
            const quint64 seed = SeedOf(number, static_cast<int>(kind));
            ASSERT_EQ(Support::WritingDifference(kind, Trip::OfSeed(seed)), "") << Where(kind, seed);
        }
    }
}

} // namespace
