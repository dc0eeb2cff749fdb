#ifndef TESTS_SUPPORT_VOCABULARIES_H
#define TESTS_SUPPORT_VOCABULARIES_H

// What tests of numbers with names need again and again.
//
//     for (const int number : NumbersAround({std::numeric_limits<int>::min() + 9}))
//         EXPECT_TEXT(TaskTypeToName(static_cast<TaskTypeValue>(number)), ExpectedName(number));
//     for (const QString& text : NearMisses(QStringLiteral("Pool")))
//         EXPECT_EQ(NameToTaskType(text), -1);

#include <gtest/gtest.h>

#include <QtCore/QString>

#include <future>
#include <vector>

namespace Support {

/// The numbers around a list of up to 60, and those that would fall into it if only a part of their bits
/// counted.
std::vector<int> NumbersAround(const std::vector<int>& others);

/// Texts that differ little from `name`.
std::vector<QString> NearMisses(const QString& name);

/// Look-ups have no state that threads could disturb.
template <class Answers>
void ExpectTheSameOnSeveralThreadsAtOnce(Answers answers)
{
    const auto expected = answers();
    std::vector<std::future<decltype(answers())>> threads;
    for (int i = 0; i < 4; ++i)
        threads.push_back(std::async(std::launch::async, answers));
    for (auto& thread : threads)
        EXPECT_EQ(thread.get(), expected);
}

} // namespace Support

#endif
