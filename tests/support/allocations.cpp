#include "support/allocations.h"

#include <algorithm>
#include <cstddef>

// With AddressSanitizer its allocator tells of each block. Otherwise the C library's functions are replaced
// by ones that count and hand on.
#if defined(__SANITIZE_ADDRESS__)
#    define TESTS_WATCH_SANITIZER
#elif defined(__has_feature)
#    if __has_feature(address_sanitizer)
#        define TESTS_WATCH_SANITIZER
#    endif
#endif

#if defined(TESTS_WATCH_SANITIZER)
// GCC has the functions and not the header that declares them.
extern "C" {
int __sanitizer_install_malloc_and_free_hooks(void (*taken)(const volatile void*, std::size_t),
                                              void (*freed)(const volatile void*));
std::size_t __sanitizer_get_allocated_size(const volatile void* block);
}
#elif defined(__GLIBC__)
#    define TESTS_REPLACE_ALLOCATOR
#    include <malloc.h>
#endif

namespace {

bool g_counting = false;
qint64 g_held = 0;
qint64 g_peak = 0;
int g_count = 0;

/// How many allocations are left up to the one that fails, none when there is no such one.
int g_untilFailure = 0;
bool g_lasts = false;
bool g_hasFailed = false;

[[maybe_unused]] bool MustFail()
{
    if (g_untilFailure == 0 || --g_untilFailure > 0)
        return false;
    g_hasFailed = true;
    g_untilFailure = g_lasts ? 1 : 0;
    return true;
}

[[maybe_unused]] void Count(qint64 bytes)
{
    if (!g_counting)
        return;
    g_held += bytes;
    g_peak = std::max(g_peak, g_held);
    g_count += bytes > 0 ? 1 : 0;
}

} // namespace

#if defined(TESTS_REPLACE_ALLOCATOR)

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming): names of the C library
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)

__attribute__((visibility("default"))) void* malloc(std::size_t size)
{
    if (MustFail())
        return nullptr;
    void* block = __libc_malloc(size);
    Count(static_cast<qint64>(malloc_usable_size(block)));
    return block;
}

__attribute__((visibility("default"))) void* calloc(std::size_t nmemb, std::size_t size)
{
    if (MustFail())
        return nullptr;
    void* block = __libc_calloc(nmemb, size);
    Count(static_cast<qint64>(malloc_usable_size(block)));
    return block;
}

/// A block that has to move exists twice meanwhile.
__attribute__((visibility("default"))) void* realloc(void* ptr, std::size_t size)
{
    if (MustFail())
        return nullptr;
    const auto before = static_cast<qint64>(malloc_usable_size(ptr));
    void* moved = __libc_realloc(ptr, size);
    if (moved == nullptr && size != 0)
        return nullptr;
    Count(static_cast<qint64>(malloc_usable_size(moved)));
    Count(-before);
    return moved;
}

__attribute__((visibility("default"))) void free(void* ptr)
{
    Count(-static_cast<qint64>(malloc_usable_size(ptr)));
    __libc_free(ptr);
}

} // extern "C"

#elif defined(TESTS_WATCH_SANITIZER)

namespace {

void Taken(const volatile void* /*block*/, std::size_t size)
{
    Count(static_cast<qint64>(size));
}

void Freed(const volatile void* block)
{
    if (g_counting && block != nullptr)
        Count(-static_cast<qint64>(__sanitizer_get_allocated_size(block)));
}

} // namespace

#endif

namespace Support {

Allocations::Allocations()
{
#if defined(TESTS_WATCH_SANITIZER)
    static const int watching = __sanitizer_install_malloc_and_free_hooks(Taken, Freed);
    g_counting = watching != 0;
#else
    g_counting = true;
#endif
    g_held = 0;
    g_peak = 0;
    g_count = 0;
}

Allocations::~Allocations()
{
    g_counting = false;
}

qint64 Allocations::Peak() const
{
    return g_peak;
}

qint64 Allocations::Held() const
{
    return g_held;
}

int Allocations::Count() const
{
    return g_count;
}

bool Allocations::AreCounted()
{
#if defined(TESTS_WATCH_SANITIZER) || defined(TESTS_REPLACE_ALLOCATOR)
    return true;
#else
    return false;
#endif
}

FailingAllocation::FailingAllocation(int number, bool lasts)
{
    g_hasFailed = false;
    g_lasts = lasts;
    g_untilFailure = number;
}

FailingAllocation::~FailingAllocation()
{
    g_untilFailure = 0;
}

bool FailingAllocation::HasFailed() const
{
    return g_hasFailed;
}

bool FailingAllocation::IsPossible()
{
#if defined(TESTS_REPLACE_ALLOCATOR)
    return true;
#else
    return false;
#endif
}

} // namespace Support
