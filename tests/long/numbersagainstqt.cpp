// Holds the quick way between numbers and texts against Qt's, over as many numbers as the command line says.
// Prints what agreed and what was left to Qt; the exit code is 1 when anything differed.
//
//     numbers_against_qt [COUNT]

#include "support/againstqt.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <thread>
#include <vector>

namespace {

using Support::Comparisons;
using Support::Random;

constexpr std::int64_t DEFAULT_COUNT = 100000000;
constexpr std::size_t THREADS = 2;

/// Those of the reports' forms; a number is written with all of them.
constexpr int FORM_DECIMALS[] = {2, 6};

struct KindResult
{
    std::int64_t numbers = 0;
    Comparisons written;
    Comparisons read;
};

/// One row for each kind of numbers and one for the texts.
using Results = std::array<KindResult, Support::NUMBER_KINDS.size() + 1>;

void CompareOne(double number, KindResult& result)
{
    ++result.numbers;
    for (const int decimals : FORM_DECIMALS)
        Support::CompareNumber(number, decimals, result.written, result.read);
}

/// Draws `count` numbers, the kinds in turn, and as many texts.
void Compare(std::uint64_t seed, std::int64_t count, Results& results)
{
    Random random(seed);
    std::size_t kind = 0;
    for (std::int64_t i = 0; i < count; ++i) {
        CompareOne(Support::NUMBER_KINDS[kind].draw(random), results[kind]);
        ++results.back().numbers;
        Support::CompareText(Support::DrawNumberText(random), results.back().read);
        kind = (kind + 1) % Support::NUMBER_KINDS.size();
    }
}

Results CompareInThreads(std::int64_t count)
{
    std::array<Results, THREADS> results = {};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < THREADS; ++i) {
        const std::int64_t share =
            (count + static_cast<std::int64_t>(i)) / static_cast<std::int64_t>(THREADS);
        threads.emplace_back([i, share, &results] { Compare(i + 1, share, results[i]); });
    }
    Results sum = {};
    for (std::size_t i = 0; i < THREADS; ++i) {
        threads[i].join();
        for (std::size_t row = 0; row < sum.size(); ++row) {
            sum[row].numbers += results[i][row].numbers;
            sum[row].written += results[i][row].written;
            sum[row].read += results[i][row].read;
        }
    }
    return sum;
}

void PrintComparisons(const Comparisons& comparisons)
{
    std::printf(" %12lld %12lld %9lld", static_cast<long long>(comparisons.agreed),
                static_cast<long long>(comparisons.leftToQt), static_cast<long long>(comparisons.differed));
}

void PrintRow(const char* name, const KindResult& result)
{
    std::printf("%-26s %12lld", name, static_cast<long long>(result.numbers));
    PrintComparisons(result.written);
    PrintComparisons(result.read);
    std::printf("\n");
    for (const Comparisons* comparisons : {&result.written, &result.read}) {
        if (comparisons->differed > 0)
            std::printf("    first difference: %s\n", comparisons->firstDifference.c_str());
    }
}

} // namespace

int main(int argc, char** argv)
{
    const std::int64_t count = argc > 1 ? std::atoll(argv[1]) : DEFAULT_COUNT;
    if (argc > 2 || count <= 0) {
        std::fprintf(stderr, "usage: numbers_against_qt [COUNT]\n");
        return 2;
    }
    const Results results = CompareInThreads(count);

    std::printf("%-26s %12s %12s %12s %9s %12s %12s %9s\n", "", "drawn", "written same", "left to Qt",
                "different", "read same", "left to Qt", "different");
    KindResult numbers;
    for (std::size_t kind = 0; kind < Support::NUMBER_KINDS.size(); ++kind) {
        PrintRow(Support::NUMBER_KINDS[kind].name, results[kind]);
        numbers.numbers += results[kind].numbers;
        numbers.written += results[kind].written;
        numbers.read += results[kind].read;
    }
    PrintRow("all numbers", numbers);
    PrintRow("texts of every shape", results.back());
    const bool isSame = numbers.written.differed + numbers.read.differed + results.back().read.differed == 0;
    return isSame ? 0 : 1;
}
