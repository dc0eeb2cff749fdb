#ifndef REPORTCOLUMNS_WORKERS_H
#define REPORTCOLUMNS_WORKERS_H

#include <cstddef>
#include <functional>

namespace ReportColumns {

/// How many threads work for a request of so many: all cores for 0.
int ThreadsFor(int requested);

/// Called between two jobs where it isn't empty; throws when no more are wanted.
using Checkpoint = std::function<void()>;

/// Calls `job` with each number below `count`, in so many threads, this one among them. Jobs begin in that order. `checkpoint` is
/// called in this thread, before each of its jobs. When one of them throws, no further jobs begin; of what was thrown, that of the lowest
/// number is thrown when none runs any more.
void ForEach(std::size_t count, int threads, const std::function<void(std::size_t)>& job,
             const Checkpoint& checkpoint = {});

} // namespace ReportColumns

#endif
