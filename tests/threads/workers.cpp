#include "threads/workers.h"

namespace Threads {

Workers::Workers(int count)
{
    for (int i = 0; i < count; ++i)
        m_threads.emplace_back([this, i] { Work(static_cast<std::size_t>(i)); });
}

Workers::~Workers()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_jobs = nullptr;
        ++m_round;
    }
    m_begun.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
}

void Workers::Run(const std::vector<std::function<void()>>& jobs)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_jobs = &jobs;
    m_left = m_threads.size();
    m_arrived = 0;
    ++m_round;
    m_begun.notify_all();
    m_done.wait(lock, [this] { return m_left == 0; });
}

void Workers::Work(std::size_t index)
{
    int round = 0;
    while (true) {
        const std::vector<std::function<void()>>* jobs = nullptr;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_begun.wait(lock, [&] { return m_round != round; });
            round = m_round;
            jobs = m_jobs;
        }
        if (!jobs)
            return;
        // Nobody is ahead by the time that waking up takes.
        for (++m_arrived; m_arrived < m_threads.size();)
            std::this_thread::yield();
        (*jobs)[index]();
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (--m_left == 0)
            m_done.notify_one();
    }
}

} // namespace Threads
