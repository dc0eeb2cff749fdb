#ifndef REPORTCOLUMNS_WORKERS_H
#define REPORTCOLUMNS_WORKERS_H

#include <cstddef>
#include <functional>

namespace ReportColumns {

/// How many threads work for a request of so many: all cores for 0.
int ThreadsFor(int requested);

/// Calls `job` with each number below `count`, in so many threads, this one among them. Jobs begin in that order.
/// When one throws, no further ones begin; of what was thrown, that of the lowest number is thrown when none runs any more.
void ForEach(std::size_t count, int threads, const std::function<void(std::size_t)>& job);

} // namespace ReportColumns

#endif
