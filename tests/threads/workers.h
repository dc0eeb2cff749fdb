#ifndef TESTS_THREADS_WORKERS_H
#define TESTS_THREADS_WORKERS_H

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace Threads {

/// Threads that begin their jobs at the same moment, again and again.
class Workers
{
public:
    explicit Workers(int count);
    ~Workers();
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    /// Runs one job in each thread and returns when all are done.
    void Run(const std::vector<std::function<void()>>& jobs);

private:
    void Work(std::size_t index);

    std::mutex m_mutex;
    std::condition_variable m_begun;
    std::condition_variable m_done;
    const std::vector<std::function<void()>>* m_jobs = nullptr;
    int m_round = 0;
    std::size_t m_left = 0;
    std::atomic<std::size_t> m_arrived{0};
    std::vector<std::thread> m_threads;
};

} // namespace Threads

#endif
