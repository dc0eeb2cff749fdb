#ifndef REPORTCOLUMNS_BATCHES_H
#define REPORTCOLUMNS_BATCHES_H

#include "column.h"
#include "workers.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <vector>

namespace ReportColumns {

/// Rows that become one batch, unless there is too much in them.
struct Part
{
    std::int64_t begin = 0;
    std::int64_t end = 0;
};

/// So many rows in parts of `batchRows` at most; in one for 0. No rows are one part, too.
inline std::vector<Part> PartsOf(std::int64_t length, std::int64_t batchRows)
{
    const std::int64_t step = batchRows > 0 ? batchRows : std::max<std::int64_t>(length, 1);
    std::vector<Part> parts;
    std::int64_t begin = 0;
    do {
        parts.push_back({begin, begin + std::min(step, length - begin)});
        begin = parts.back().end;
    } while (begin < length);
    return parts;
}

/// The batches that `job` makes for each number below `count`, in the order of the numbers.
template <class Job>
std::deque<SharedValues> InOrder(std::size_t count, int threads, const Checkpoint& checkpoint, Job&& job)
{
    std::vector<std::vector<SharedValues>> made(count);
    ForEach(
        count, threads, [&](std::size_t i) { made[i] = job(i); }, checkpoint);
    std::deque<SharedValues> all;
    for (std::vector<SharedValues>& batches : made)
        std::move(batches.begin(), batches.end(), std::back_inserter(all));
    return all;
}

/// The first batch, taken out; null where there is none.
inline SharedValues TakeFirst(std::deque<SharedValues>& batches)
{
    if (batches.empty())
        return nullptr;
    SharedValues first = std::move(batches.front());
    batches.pop_front();
    return first;
}

} // namespace ReportColumns

#endif
