#ifndef BENCH_WORKLOAD_H
#define BENCH_WORKLOAD_H

#include <QtCore/QString>

// What all contenders are given besides the report.

namespace Bench {

/// A compressed form and the largest report that it is measured with. zlib's own time is nearly all of it;
/// what surrounds zlib shows at its default level, which has all sizes.
struct CompressedForm
{
    const char* name;
    int level;
    int largest;
};

constexpr CompressedForm COMPRESSED_FORMS[] = {
    {"compressed", -1, 1'000'000}, {"compressed_1", 1, 20'000}, {"compressed_9", 9, 100}};

/// Characters of the texts that a report refuses, since they hold none.
constexpr int REFUSED_SIZES[] = {1'000, 1'000'000};

/// A settings text of at least so many characters, without a report.
QString OtherSettings(int size);

} // namespace Bench

#endif
