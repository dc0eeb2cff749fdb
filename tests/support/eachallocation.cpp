#include "support/eachallocation.h"

#include "support/allocations.h"

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace Support {

namespace {

/// The C library gives a block some bytes more when what would be left is too little for another one.
constexpr qint64 ROUNDING = 32;

bool IsAllowed(qint64 lost, const std::set<qint64>& allowed)
{
    return std::any_of(allowed.cbegin(), allowed.cend(),
                       [lost](qint64 loss) { return std::abs(lost - loss) <= ROUNDING; });
}

/// What is held afterwards, beyond what was held before.
qint64 LostBy(const std::function<void()>& trial)
{
    const Allocations allocations;
    trial();
    return allocations.Held();
}

bool IsOneOf(QtObject object, QtObject objects)
{
    return (static_cast<int>(objects) & static_cast<int>(object)) != 0;
}

/// What is lost when this can't be made, at any of its allocations.
void AddLosses(std::set<qint64>& losses, const std::function<void()>& make)
{
    // What a process sets up on first use isn't lost.
    make();
    bool hasFailed = true;
    for (int number = 1; hasFailed; ++number) {
        const qint64 lost = LostBy([&] { hasFailed = FailOne(number, make).hasFailed; });
        if (lost != 0)
            losses.insert(lost);
    }
}

} // namespace

Failure FailOne(int number, const std::function<void()>& operation)
{
    Failure failure = {false, false};
    const FailingAllocation failing(number);
    try {
        operation();
    } catch (const std::bad_alloc&) {
        failure.threw = true;
    }
    failure.hasFailed = failing.HasFailed();
    return failure;
}

std::set<qint64> LossesOf(QtObject objects)
{
    std::set<qint64> losses;
    if (IsOneOf(QtObject::Reader, objects)) {
        AddLosses(losses, [] { const QXmlStreamReader reader((QString())); });
        AddLosses(losses, [] {
            QBuffer buffer;
            const QXmlStreamReader reader(&buffer);
        });
    }
    if (IsOneOf(QtObject::Writer, objects)) {
        AddLosses(losses, [] {
            QString written;
            const QXmlStreamWriter writer(&written);
        });
        AddLosses(losses, [] {
            QByteArray written;
            const QXmlStreamWriter writer(&written);
        });
    }
    return losses;
}

bool EachAllocation::IsPossible()
{
    return FailingAllocation::IsPossible() && QT_VERSION_MAJOR < 6;
}

void EachAllocation::Try(const char* name, const Trial& trial, QtObject objects)
{
    trial(0);
    const std::set<qint64> allowed = LossesOf(objects);
    Failure failure = {true, false};
    for (int number = 1; failure.hasFailed && !testing::Test::HasFailure(); ++number) {
        SCOPED_TRACE(testing::Message() << name << ", allocation " << number);
        const auto run = [&] { failure = trial(number); };
        // What is set up on the first failure, such as Qt's messages, isn't lost either.
        if (const qint64 lost = LostBy(run); lost != 0 && !IsAllowed(lost, allowed)) {
            EXPECT_EQ(LostBy(run), 0);
        }
        EXPECT_TRUE(failure.hasFailed || !failure.threw);
        m_failed += failure.hasFailed;
        m_withoutWord += failure.hasFailed && !failure.threw;
    }
}

void EachAllocation::Report() const
{
    EXPECT_GT(m_failed, 0);
    testing::Test::RecordProperty("allocations", m_failed);
    testing::Test::RecordProperty("withoutword", m_withoutWord);
}

} // namespace Support
