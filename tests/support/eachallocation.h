#ifndef TESTS_SUPPORT_EACHALLOCATION_H
#define TESTS_SUPPORT_EACHALLOCATION_H

// Operations when memory runs out, at each of their allocations in turn. Nothing but `std::bad_alloc` may come of
// it, and nothing may be lost.
//
//     EachAllocation each;
//     each.Try("SetName", [](int number) {
//         Area area;
//         const Failure failure = FailOne(number, [&] { area.SetName(Text("Lake")); });
//         EXPECT_EQ(area.IsNameSet(), !failure.threw);
//         return failure;
//     });
//     each.Report();

#include <QtCore/QtGlobal>

#include <functional>
#include <set>

namespace Support {

/// How an operation has ended.
struct Failure
{
    bool hasFailed; ///< there was an allocation of that number
    bool threw;     ///< `std::bad_alloc`
};

/// Runs the operation with the allocation of that number failing; with 0 none fails.
Failure FailOne(int number, const std::function<void()>& operation);

/// The objects of Qt that an operation makes and that can't fail as they should: a reader loses its parser's stacks, a
/// writer its encoder, since a constructor that throws has no destructor to free them.
enum class QtObject : int
{
    None = 0,
    Reader = 1,
    Writer = 2,
    Both = 3
};

/// What these objects, made by themselves, lose in bytes.
std::set<qint64> LossesOf(QtObject objects);

class EachAllocation
{
public:
    /// Whether this platform's allocator can be made to fail and Qt then throws. Lists and readers of Qt 6 end the
    /// program instead.
    static bool IsPossible();

    /// What is said of the tests that are left out then.
    static constexpr const char* IMPOSSIBLE =
        "Qt 6 ends the program where memory runs out; other platforms' allocators don't fail";

    using Trial = std::function<Failure(int number)>;

    /// Runs the trial until no allocation fails any more; nothing may be lost but what these objects lose.
    void Try(const char* name, const Trial& trial, QtObject objects = QtObject::None);

    /// Expects that there was something to try, and records how much.
    void Report() const;

private:
    int m_failed = 0;
    int m_withoutWord = 0; ///< Qt has done without the memory
};

} // namespace Support

#endif
