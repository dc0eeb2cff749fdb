// Measures what the library's operations cost beside the same done by others, in one process. `./dev bench`
// runs it and makes tables of what it finds.

#include "contenders.h"
#include "peers/peers.h"
#include "suite.h"

#include <benchmark/benchmark.h>

#include <QtCore/QtGlobal>

#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>

namespace {

constexpr char LARGEST_OPTION[] = "--largest=";

/// Takes --largest=N out of the arguments that Google Benchmark has left: reports with more coordinates are
/// left out.
int TakeLargest(int& argc, char** argv)
{
    const std::size_t length = std::strlen(LARGEST_OPTION);
    if (argc < 2 || std::strncmp(argv[1], LARGEST_OPTION, length) != 0)
        return Bench::Suite::ALL;

    const int largest = std::atoi(argv[1] + length);
    std::copy(argv + 2, argv + argc, argv + 1);
    --argc;
    return largest;
}

void AddContext()
{
#if defined(__clang__)
    benchmark::AddCustomContext("compiler", "Clang " __clang_version__);
#elif defined(__GNUC__)
    benchmark::AddCustomContext("compiler", "GCC " __VERSION__);
#endif
    benchmark::AddCustomContext("qt", qVersion());
    benchmark::AddCustomContext("zlib", zlibVersion());
    benchmark::AddCustomContext("left_out", Bench::MissingPeers());
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    const int largest = TakeLargest(argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;

    try {
        Bench::Suite suite(largest);
        Bench::AddLibraryForms(suite);
        Bench::AddLibraryJobs(suite);
        Bench::AddBareQt(suite);
        Bench::AddFloor(suite);
        Bench::AddPeers(suite);
        suite.Verify();

        AddContext();
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& exception) {
        std::cerr << "bench: " << exception.what() << '\n';
        return 1;
    }
    return 0;
}
