#include "plainreport.h"

#include <cstdint>

namespace Bench {

namespace {

/// SplitMix64: the standard library's distributions differ from one implementation to the next.
class Generator
{
public:
    /// A number in [-limit, limit].
    qint64 Next(qint64 limit)
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t bits = m_state;
        bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
        bits ^= bits >> 31U;
        return static_cast<qint64>(bits % (2 * static_cast<std::uint64_t>(limit) + 1)) - limit;
    }

private:
    std::uint64_t m_state = 20140703;
};

} // namespace

bool operator==(const PlainReport& left, const PlainReport& right)
{
    return left.frequency == right.frequency && left.frequencyMin == right.frequencyMin &&
           left.frequencyMax == right.frequencyMax && left.frequencyUse == right.frequencyUse &&
           left.bandwidth == right.bandwidth && left.bandwidthMin == right.bandwidthMin &&
           left.areaName == right.areaName && left.points == right.points;
}

PlainReport MakePlainReport(int coordinates)
{
    PlainReport report;
    report.frequency = 121500000.0;
    report.frequencyMin = 117975000.0;
    report.frequencyMax = 137000000.0;
    report.frequencyUse = true;
    report.bandwidth = 8333.33;
    report.bandwidthMin = 1.5;
    if (coordinates == 0)
        return report;

    report.areaName = QString::fromUtf8("Z\xc3\xbcrichsee");
    report.points.reserve(coordinates);
    const double microdegrees = 1e6;
    Generator generator;
    for (int i = 0; i < coordinates; ++i) {
        const qint64 longitude = generator.Next(180'000'000);
        const qint64 latitude = generator.Next(90'000'000);
        report.points.append(
            {static_cast<double>(longitude) / microdegrees, static_cast<double>(latitude) / microdegrees});
    }
    return report;
}

PlainReport ChangedCopy(const PlainReport& report)
{
    PlainReport copy = report;
    if (copy.HasArea())
        copy.points.first().longitude = CHANGED_NUMBER;
    else
        copy.frequency = CHANGED_NUMBER;
    return copy;
}

} // namespace Bench
