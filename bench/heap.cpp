#include "heap.h"

#include <malloc.h>
#include <stdlib.h> // NOLINT(modernize-deprecated-headers): the functions that are replaced here are those outside std

#include <algorithm>
#include <cerrno>

namespace Bench::Heap {

namespace {

// glibc keeps its own functions reachable under these names for programs that replace them.
extern "C" {
void* GlibcMalloc(std::size_t size) __asm__("__libc_malloc");
void* GlibcCalloc(std::size_t count, std::size_t size) __asm__("__libc_calloc");
void* GlibcRealloc(void* block, std::size_t size) __asm__("__libc_realloc");
void* GlibcMemalign(std::size_t alignment, std::size_t size) __asm__("__libc_memalign");
void GlibcFree(void* block) __asm__("__libc_free");
}

// The program has one thread, so that plain numbers do.
std::size_t held = 0;
std::size_t peak = 0;

std::size_t SizeOf(void* block)
{
    return block == nullptr ? 0 : malloc_usable_size(block) + sizeof(std::size_t);
}

/// Whether a block has pages of its own; glibc notes that in the word in front of the block.
bool HasOwnPages(const void* block)
{
    const std::size_t mapped = 2;
    return block != nullptr && (*(static_cast<const std::size_t*>(block) - 1) & mapped) != 0;
}

void* Added(void* block)
{
    held += SizeOf(block);
    peak = std::max(peak, held);
    return block;
}

void Remove(void* block)
{
    held -= SizeOf(block);
}

void* Resized(void* block, std::size_t size)
{
    const std::size_t before = SizeOf(block);
    const bool copies = !HasOwnPages(block);
    void* const result = GlibcRealloc(block, size);
    if (result == nullptr && size > 0)
        return nullptr;

    // A block that moves is there twice for a moment, unless only its pages move.
    if (result != block && copies)
        peak = std::max(peak, held + SizeOf(result));
    held -= before;
    return Added(result);
}

} // namespace

std::size_t Held()
{
    return held;
}

std::size_t Peak()
{
    return peak;
}

void StartPeak()
{
    peak = held;
}

} // namespace Bench::Heap

#pragma GCC visibility push(default)

extern "C" {

void* malloc(std::size_t size) noexcept
{
    return Bench::Heap::Added(Bench::Heap::GlibcMalloc(size));
}

void* calloc(std::size_t count, std::size_t size) noexcept
{
    return Bench::Heap::Added(Bench::Heap::GlibcCalloc(count, size));
}

void* realloc(void* block, std::size_t size) noexcept
{
    return Bench::Heap::Resized(block, size);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept
{
    return Bench::Heap::Added(Bench::Heap::GlibcMemalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept
{
    *block = memalign(alignment, size);
    return *block == nullptr ? ENOMEM : 0;
}

void free(void* block) noexcept
{
    Bench::Heap::Remove(block);
    Bench::Heap::GlibcFree(block);
}

} // extern "C"

#pragma GCC visibility pop
