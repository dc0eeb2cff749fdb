#ifndef TESTS_SUPPORT_ALLOCATIONS_H
#define TESTS_SUPPORT_ALLOCATIONS_H

// How much memory is held, as the allocator counts it: Qt's containers don't ask operator new.
//
//     Allocations allocations;
//     object.SetBinaryRepresentation(bytes);
//     EXPECT_LT(allocations.Peak(), 100 * bytes.size());
//
// One at a time, in one thread.

#include <QtCore/QtGlobal>

namespace Support {

/// What is said of the tests that are left out elsewhere.
constexpr const char* OTHER_ALLOCATOR =
    "a program can't replace the allocator of its libraries on this platform";

class Allocations
{
public:
    /// Counts from now on.
    Allocations();
    ~Allocations();
    Allocations(const Allocations&) = delete;
    Allocations& operator=(const Allocations&) = delete;

    /// The most that was held at once, beyond what was held at the start.
    qint64 Peak() const;

    /// What is held now, beyond what was held at the start.
    qint64 Held() const;

    /// How often memory was asked for.
    int Count() const;

    /// Whether this platform's allocator can be watched.
    static bool AreCounted();
};

/// Lets an allocation fail: the `number`-th from now on, counted from 1, and with it all behind it if that `lasts`.
///
///     FailingAllocation failing(3);
///     EXPECT_THROW(object.Check(), std::bad_alloc);
///
/// One at a time, in one thread.
class FailingAllocation
{
public:
    explicit FailingAllocation(int number, bool lasts = false);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    bool HasFailed() const;

    /// Whether this platform's allocator can be made to fail.
    static bool IsPossible();
};

} // namespace Support

#endif
