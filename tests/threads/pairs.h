#ifndef TESTS_THREADS_PAIRS_H
#define TESTS_THREADS_PAIRS_H

// Two threads with an operation each on one object, and a third one that copies the object.

#include "threads/operations.h"
#include "threads/workers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <utility>

#if defined(__SANITIZE_THREAD__)
#    define TESTS_THREADS_WATCHED
#elif defined(__has_feature)
#    if __has_feature(thread_sanitizer)
#        define TESTS_THREADS_WATCHED
#    endif
#endif

namespace Threads {

/// Each pair where races are watched. Otherwise they show by what comes out, and few will.
#if defined(TESTS_THREADS_WATCHED)
constexpr std::size_t STEP = 1;
#else
constexpr std::size_t STEP = 23;
#endif

/// A way in which an object has come to what it holds.
template <class T>
struct State
{
    const char* name;
    std::function<std::unique_ptr<T>()> make;
};

template <class T>
using States = std::vector<State<T>>;

/// What comes of an operation: what it tells or what it throws.
template <class T>
QByteArray OutcomeOf(const Operation<T>& operation, const T& object)
{
    try {
        return operation.run(object);
    } catch (const RGException& exception) {
        return exception.GetErrorName().toUtf8() + ": " + exception.GetErrorText().toUtf8();
    }
}

/// Uses copies that are made and given up meanwhile, by turns in each way.
template <class T>
void Copy(const T& object, std::size_t turn, const Operations<T>& operations,
          const std::function<void(T&)>& change)
{
    T copy(object);
    T assigned;
    assigned = object;
    switch (turn % 5) {
    case 0:
        break;
    case 1:
        OutcomeOf(operations[turn % operations.size()], copy);
        OutcomeOf(operations[turn % operations.size()], assigned);
        break;
    case 2:
        change(copy);
        change(assigned);
        break;
    case 3:
        copy = T(assigned);
        OutcomeOf(operations[turn % operations.size()], copy);
        break;
    default:
        copy.SetLogger(std::make_shared<CountingLogger>());
        copy.SetValidate(false);
        assigned.Reset();
    }
}

/// Two operations at the same time bring what they bring one after the other.
template <class T>
void ExpectPairsAreSafe(const States<T>& states, const Operations<T>& operations,
                        const std::function<void(T&)>& change)
{
    Workers workers(3);
    std::size_t pair = 0;
    const auto aloneOrAfter = [&](const State<T>& state, const Operation<T>& operation,
                                  const Operation<T>& other, const QByteArray& outcome) {
        if (outcome == OutcomeOf(operation, *state.make()))
            return true;
        const auto object = state.make();
        OutcomeOf(other, *object);
        return outcome == OutcomeOf(operation, *object);
    };
    for (const State<T>& state : states) {
        for (std::size_t i = 0; i < operations.size(); ++i) {
            for (std::size_t j = i; j < operations.size(); ++j) {
                if (++pair % STEP != 0)
                    continue;
                const auto object = state.make();
                QByteArray one;
                QByteArray other;
                workers.Run({[&] { one = OutcomeOf(operations[i], *object); },
                             [&] { other = OutcomeOf(operations[j], *object); },
                             [&] { Copy<T>(*object, pair / STEP, operations, change); }});
                EXPECT_TRUE(aloneOrAfter(state, operations[i], operations[j], one))
                    << state.name << ", " << operations[i].name << " beside " << operations[j].name << ": "
                    << one.constData();
                EXPECT_TRUE(aloneOrAfter(state, operations[j], operations[i], other))
                    << state.name << ", " << operations[j].name << " beside " << operations[i].name << ": "
                    << other.constData();
            }
        }
    }
    EXPECT_GT(pair, operations.size());
}

} // namespace Threads

#endif
