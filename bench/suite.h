#ifndef BENCH_SUITE_H
#define BENCH_SUITE_H

#include "contender.h"

#include <benchmark/benchmark.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Bench {

/// A report that everybody writes and reads.
struct Sample
{
    int coordinates = 0;
    PlainReport report;
};

/// A form that was written to a file.
struct WrittenFile
{
    QString path;
};

/// What was written, as it is compared and counted; a text as UTF-8.
QByteArray BytesOf(const QByteArray& bytes);
QByteArray BytesOf(const QString& text);
QByteArray BytesOf(const std::string& bytes);
QByteArray BytesOf(const WrittenFile& file);

/// All that is measured. A benchmark is named OPERATION/CONTENDER/COORDINATES.
///
/// Making an object or a text, and freeing it, belongs to each operation: whoever uses it pays for both.
class Suite
{
public:
    static constexpr int ALL = 1'000'000'000;

    /// With reports of up to `largest` coordinates.
    explicit Suite(int largest);

    /// Measures FORM_write and FORM_read. `write` makes of an object what the form is written as, of one type
    /// for all contenders, and `read` an object of that.
    template <class Object, class Write, class Read>
    void AddForm(const std::string& form, const Contender<Object>& contender, Write write, Read read,
                 int largest = ALL);

    /// Measures one call of `job` with what `prepare` has made of the plain values. `holds` tells whether its
    /// result is the right one.
    template <class Prepare, class Job, class Holds>
    void AddJob(const std::string& operation, const std::string& contender, Prepare prepare, Job job,
                Holds holds);

    /// Measures what needs no report; `task` tells whether it did what it should. `size` stands in the place
    /// of the number of coordinates.
    template <class Task>
    void AddTask(const std::string& operation, const std::string& contender, int size, Task task);

    /// Throws std::runtime_error unless all contenders write the same bytes of a form, read the values back,
    /// and do their jobs.
    void Verify();

private:
    /// Who has written the bytes that the others are compared with.
    struct Reference
    {
        std::string contender;
        QByteArray bytes;
    };
    using FormAndSize = std::pair<std::string, int>;

    void Register(const std::string& operation, const std::string& contender, int size,
                  std::function<void(benchmark::State&)> run);

    /// Throws std::runtime_error with what is told here unless it is good.
    static void Require(bool good, const std::string& contender, const char* failure,
                        const std::string& operation, int size);

    /// Throws std::runtime_error when another contender has written other bytes of the form.
    void RequireSameBytes(const std::string& form, const std::string& contender, int size,
                          const QByteArray& written);

    /// What the readers of a form read. It is made once, since all contenders write the same.
    template <class Make>
    const auto& Input(const std::string& form, const Sample& sample, Make make);

    std::deque<Sample> m_samples; ///< the benchmarks refer to them
    std::vector<std::function<void()>> m_checks;
    std::map<FormAndSize, Reference> m_references; ///< filled only while verifying
    std::map<FormAndSize, std::shared_ptr<const void>> m_inputs;
};

template <class Make>
const auto& Suite::Input(const std::string& form, const Sample& sample, Make make)
{
    using Written = decltype(make());
    std::shared_ptr<const void>& input = m_inputs[{form, sample.coordinates}];
    if (input == nullptr)
        input = std::make_shared<const Written>(make());
    return *static_cast<const Written*>(input.get());
}

template <class Object, class Write, class Read>
void Suite::AddForm(const std::string& form, const Contender<Object>& contender, Write write, Read read,
                    int largest)
{
    for (const Sample& sample : m_samples) {
        if (sample.coordinates > largest)
            continue;

        Register(form + "_write", contender.name, sample.coordinates, [=, &sample](benchmark::State& state) {
            const Object object = contender.fill(sample.report);
            for (auto _ : state) {
                auto written = write(object);
                benchmark::DoNotOptimize(written);
            }
        });

        Register(form + "_read", contender.name, sample.coordinates, [=, &sample](benchmark::State& state) {
            const auto& written = Input(form, sample, [&] { return write(contender.fill(sample.report)); });
            for (auto _ : state) {
                Object object = read(written);
                benchmark::DoNotOptimize(object);
            }
            state.counters["bytes"] = static_cast<double>(BytesOf(written).size());
        });

        m_checks.push_back([=, &sample] {
            const auto written = write(contender.fill(sample.report));
            RequireSameBytes(form, contender.name, sample.coordinates, BytesOf(written));
            Require(contender.values(read(written)) == sample.report, contender.name,
                    "reads other values from", form, sample.coordinates);
        });
    }
}

template <class Prepare, class Job, class Holds>
void Suite::AddJob(const std::string& operation, const std::string& contender, Prepare prepare, Job job,
                   Holds holds)
{
    for (const Sample& sample : m_samples) {
        Register(operation, contender, sample.coordinates, [=, &sample](benchmark::State& state) {
            const auto prepared = prepare(sample.report);
            for (auto _ : state) {
                auto result = job(prepared);
                benchmark::DoNotOptimize(result);
            }
        });

        m_checks.push_back([=, &sample] {
            const auto prepared = prepare(sample.report);
            Require(holds(job(prepared), sample.report), contender, "fails in", operation,
                    sample.coordinates);
        });
    }
}

template <class Task>
void Suite::AddTask(const std::string& operation, const std::string& contender, int size, Task task)
{
    Register(operation, contender, size, [task](benchmark::State& state) {
        for (auto _ : state) {
            bool done = task();
            benchmark::DoNotOptimize(done);
        }
    });
    m_checks.push_back([=] { Require(task(), contender, "fails in", operation, size); });
}

} // namespace Bench

#endif
