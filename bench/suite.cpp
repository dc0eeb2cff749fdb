#include "suite.h"

#include "files.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Bench {

namespace {

/// Where two arrays differ first.
qsizetype FirstDifference(const QByteArray& left, const QByteArray& right)
{
    const auto ends = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return ends.first - left.begin();
}

} // namespace

QByteArray BytesOf(const QByteArray& bytes)
{
    return bytes;
}

QByteArray BytesOf(const QString& text)
{
    return text.toUtf8();
}

QByteArray BytesOf(const std::string& bytes)
{
    return QByteArray(bytes.data(), static_cast<int>(bytes.size()));
}

QByteArray BytesOf(const WrittenFile& file)
{
    return ReadFile(file.path);
}

Suite::Suite(int largest)
{
    for (const int coordinates : {0, 100, 20'000, 200'000}) {
        if (coordinates <= largest)
            m_samples.push_back({coordinates, MakePlainReport(coordinates)});
    }
}

void Suite::Verify()
{
    for (const std::function<void()>& check : m_checks)
        check();
    m_references.clear();
}

void Suite::Require(bool good, const std::string& contender, const char* failure,
                    const std::string& operation, int size)
{
    if (!good)
        throw std::runtime_error(contender + ' ' + failure + ' ' + operation + " (size " +
                                 std::to_string(size) + ')');
}

void Suite::RequireSameBytes(const std::string& form, const std::string& contender, int size,
                             const QByteArray& written)
{
    const Reference& reference = m_references.insert({{form, size}, {contender, written}}).first->second;
    if (written == reference.bytes)
        return;

    const std::string failure = "writes other bytes than " + reference.contender + " from " +
                                std::to_string(FirstDifference(reference.bytes, written)) + " on in";
    Require(false, contender, failure.c_str(), form, size);
}

void Suite::Register(const std::string& operation, const std::string& contender, int size,
                     std::function<void(benchmark::State&)> run)
{
    const std::string name = operation + '/' + contender + '/' + std::to_string(size);
    benchmark::RegisterBenchmark(name.c_str(), std::move(run));
}

} // namespace Bench
