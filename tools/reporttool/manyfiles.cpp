#include <reporttool/manyfiles.h>

#include <reporttool/console.h>
#include <reporttool/exitcodes.h>
#include <reporttool/interruption.h>
#include <reporttool/progress.h>

#include <reportcore/files.h>

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QStringList>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace ReportTool {

namespace {

/// How many files each thread may be ahead of the one whose turn it is to be told about.
constexpr int FILES_AHEAD = 256;

/// Nobody begins with another file while what waits to be told is larger than this.
constexpr qint64 BYTES_AHEAD = qint64(64) * 1024 * 1024;

/// Who tells is woken for so many outcomes at once, but looks for fewer ones after a little while, too.
constexpr int OUTCOMES_AT_ONCE = 64;
constexpr std::chrono::milliseconds GLANCE(20);

/// What one file has come to.
struct Outcome
{
    FileResult result;
    QByteArray output;
    QByteArray errors;
    std::exception_ptr failure;

    qint64 Size() const { return result.size + output.size() + errors.size(); }
};

Outcome OutcomeOf(int number, const ResultWork& work, Console& whole)
{
    Outcome outcome;
    QBuffer output(&outcome.output);
    QBuffer errors(&outcome.errors);
    output.open(QIODevice::WriteOnly);
    errors.open(QIODevice::WriteOnly);
    TextOutput outputText(output, whole.Output());
    TextOutput errorText(errors, whole.Errors());
    Console console(outputText, errorText);
    try {
        outcome.result = work(number, console);
        outputText.Flush();
        errorText.Flush();
    } catch (...) {
        outcome.failure = std::current_exception();
    }
    return outcome;
}

/// Threads that work on the files, each on the next that nobody has begun. Where the system allows fewer than there are
/// processors these do the work, and where it allows none, whoever asks for outcomes.
class WorkerPool
{
public:
    WorkerPool(int count, const ResultWork& work, Console& console)
        : m_count(count), m_work(work), m_console(console)
    {
        const int processors = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
        const int threads = std::min(processors, count);
        m_ahead = threads * FILES_AHEAD;
        m_threads.reserve(static_cast<std::size_t>(threads));
        try {
            for (int i = 0; i < threads; ++i)
                m_threads.emplace_back([this] { Work(); });
        } catch (const std::system_error&) {
            // Those that there are do it.
        }
    }

    ~WorkerPool()
    {
        Stop();
        for (std::thread& thread : m_threads)
            thread.join();
    }

    WorkerPool(const WorkerPool& other) = delete;
    WorkerPool& operator=(const WorkerPool& other) = delete;

    /// No further file is begun.
    void Stop()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopped = true;
        m_hasRoom.notify_all();
    }

    /// The outcomes of the next files in their order, after a little wait; none if they aren't there yet.
    std::vector<Outcome> Next()
    {
        if (m_threads.empty())
            WorkOnNext();
        std::unique_lock<std::mutex> lock(m_mutex);
        m_hasOutcomes.wait_for(lock, GLANCE, [this] { return HasEnough(); });
        std::vector<Outcome> outcomes;
        while (HasNext()) {
            m_bytes -= m_outcomes.front()->Size();
            outcomes.push_back(std::move(*m_outcomes.front()));
            m_outcomes.pop_front();
        }
        m_told += static_cast<int>(outcomes.size());
        m_done -= static_cast<int>(outcomes.size());
        m_ready = 0;
        if (!outcomes.empty())
            m_hasRoom.notify_all();
        return outcomes;
    }

    /// Whether it has been stopped and all that was begun has been told.
    bool IsAtEnd()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_isStopped && m_told == m_begun;
    }

private:
    bool HasNext() const { return !m_outcomes.empty() && m_outcomes.front(); }

    /// Nobody waits for others while there is nothing else to do.
    bool HasEnough() const
    {
        return m_ready >= OUTCOMES_AT_ONCE || (m_ready > 0 && m_bytes >= BYTES_AHEAD) ||
               (HasNext() && m_begun - m_told == m_done);
    }

    /// All that stand before a file that has been begun have been begun, too: nobody waits for ever.
    bool HasRoom() const { return m_isStopped || (m_begun - m_told < m_ahead && m_bytes < BYTES_AHEAD); }

    /// The next file to work on; -1 when there is none left.
    int Begin()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_hasRoom.wait(lock, [this] { return HasRoom(); });
        if (m_isStopped || m_begun == m_count)
            return -1;
        m_outcomes.emplace_back();
        return m_begun++;
    }

    void Keep(int index, Outcome outcome)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_bytes += outcome.Size();
        m_outcomes[static_cast<std::size_t>(index - m_told)] = std::move(outcome);
        ++m_done;
        while (m_ready < static_cast<int>(m_outcomes.size()) && m_outcomes[static_cast<std::size_t>(m_ready)])
            ++m_ready;
        if (HasEnough())
            m_hasOutcomes.notify_one();
    }

    /// Returns whether there was a file to work on.
    bool WorkOnNext()
    {
        const int index = Begin();
        if (index >= 0)
            Keep(index, OutcomeOf(index, m_work, m_console));
        return index >= 0;
    }

    void Work()
    {
        while (WorkOnNext()) {
        }
    }

    const int m_count;
    const ResultWork& m_work;
    Console& m_console; ///< only asked who looks at it
    std::vector<std::thread> m_threads;
    std::mutex m_mutex;
    std::condition_variable m_hasOutcomes;
    std::condition_variable m_hasRoom;
    std::deque<std::optional<Outcome>> m_outcomes; ///< of the files that have been begun and not told
    int m_ready = 0;                               ///< how many there are before the first that is missing
    int m_done = 0;                                ///< how many there are
    qint64 m_bytes = 0;                            ///< and how large they are
    int m_ahead = 0;
    int m_begun = 0;
    int m_told = 0;
    bool m_isStopped = false;
};

void Tell(Outcome& outcome, const TakeResult& take, Progress& progress, Console& console)
{
    if (outcome.failure)
        std::rethrow_exception(outcome.failure);
    if (!outcome.output.isEmpty() || !outcome.errors.isEmpty())
        progress.Clear();
    console.Output().Bytes(outcome.output);
    if (!outcome.errors.isEmpty()) {
        console.Output().Flush();
        console.Errors().Bytes(outcome.errors);
        console.Errors().Flush();
    }
    take(outcome.result.result);
}

std::vector<int> DoForMany(int count, Console& console, const ResultWork& work, const TakeResult& take)
{
    std::vector<int> exitCodes;
    Progress progress(console.Errors(), count);
    const Interruption interruption;
    {
        WorkerPool pool(count, work, console);
        while (static_cast<int>(exitCodes.size()) < count && !pool.IsAtEnd()) {
            for (Outcome& outcome : pool.Next()) {
                Tell(outcome, take, progress, console);
                exitCodes.push_back(outcome.result.exitCode);
            }
            if (Interruption::HasCome())
                pool.Stop();
            progress.Show(static_cast<qint64>(exitCodes.size()));
        }
    }
    progress.Clear();
    if (static_cast<int>(exitCodes.size()) < count)
        console.Complain(QStringLiteral("interrupted after %1 of %2 files").arg(exitCodes.size()).arg(count));
    return exitCodes;
}

} // namespace

std::vector<int> DoForEach(int count, Console& console, const FileWork& work)
{
    return DoForEach(
        count, console,
        [&work](int number, Console& fileConsole) { return FileResult{work(number, fileConsole)}; },
        [](std::any& /*result*/) {});
}

std::vector<int> DoForEach(int count, Console& console, const ResultWork& work, const TakeResult& take)
{
    if (count > 1)
        return DoForMany(count, console, work, take);
    std::vector<int> exitCodes;
    for (int number = 0; number < count; ++number) {
        FileResult result = work(number, console);
        take(result.result);
        exitCodes.push_back(result.exitCode);
    }
    return exitCodes;
}

ResultWork Complaining(ResultWork work)
{
    return [work = std::move(work)](int number, Console& console) {
        try {
            return work(number, console);
        } catch (const ReportCore::UnusableFile& unusable) {
            console.Complain(unusable.file, unusable.text);
            return FileResult{EXIT_UNUSABLE};
        }
    };
}

int ExitCodeOf(const std::vector<int>& exitCodes, int count)
{
    if (static_cast<int>(exitCodes.size()) < count)
        return EXIT_UNUSABLE;
    return exitCodes.empty() ? EXIT_GOOD : *std::max_element(exitCodes.begin(), exitCodes.end());
}

qint64 CountOf(const std::vector<int>& exitCodes, int exitCode)
{
    return static_cast<qint64>(std::count(exitCodes.begin(), exitCodes.end(), exitCode));
}

void Summarise(const std::vector<int>& exitCodes, std::initializer_list<Share> shares, Console& console)
{
    QStringList parts;
    for (const Share& share : shares)
        parts << QString::number(share.count) + QLatin1Char(' ') + QLatin1String(share.what);
    console.Output().Flush();
    console.ErrorLine(
        QStringLiteral("%1 files: %2").arg(exitCodes.size()).arg(parts.join(QLatin1String(", "))));
}

} // namespace ReportTool
