#ifndef BENCH_HEAP_H
#define BENCH_HEAP_H

#include <cstddef>

// What the program holds on the heap, as the allocator counts it: whole blocks, each with the allocator's own
// word. For that the program brings its own malloc() and relatives, which Qt and the standard library call
// too. glibc only.

namespace Bench::Heap {

/// Bytes held now.
std::size_t Held();

/// The most bytes held since the last `StartPeak`.
std::size_t Peak();
void StartPeak();

} // namespace Bench::Heap

#endif
