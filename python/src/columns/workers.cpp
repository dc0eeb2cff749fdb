#include "workers.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace ReportColumns {

namespace {

class Work
{
public:
    Work(std::size_t count, const std::function<void(std::size_t)>& job) : m_count(count), m_job(job) {}

    void Run(const Checkpoint& checkpoint = {})
    {
        for (std::size_t next = m_next++; next < m_count; next = m_next++) {
            try {
                if (checkpoint)
                    checkpoint();
                m_job(next);
            } catch (...) {
                const std::lock_guard<std::mutex> lock(m_mutex);
                m_next = m_count;
                if (!m_failure || next < m_failed) {
                    m_failure = std::current_exception();
                    m_failed = next;
                }
            }
        }
    }

    void ThrowFailure() const
    {
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

private:
    const std::size_t m_count;
    const std::function<void(std::size_t)>& m_job;
    std::atomic<std::size_t> m_next{0};
    std::mutex m_mutex;
    std::exception_ptr m_failure;
    std::size_t m_failed = 0;
};

} // namespace

int ThreadsFor(int requested)
{
    return requested > 0 ? requested : std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

void ForEach(std::size_t count, int threads, const std::function<void(std::size_t)>& job,
             const Checkpoint& checkpoint)
{
    Work work(count, job);
    std::vector<std::thread> helpers;
    const std::size_t wanted = std::min(count, static_cast<std::size_t>(threads));
    try {
        while (helpers.size() + 1 < wanted)
            helpers.emplace_back([&work] { work.Run(); });
    } catch (const std::system_error&) {
        // Those that the system gives do.
    }
    work.Run(checkpoint);
    for (std::thread& helper : helpers)
        helper.join();
    work.ThrowFailure();
}

} // namespace ReportColumns
