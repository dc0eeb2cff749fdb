#ifndef BENCH_PLAINREPORT_H
#define BENCH_PLAINREPORT_H

#include <QtCore/QString>
#include <QtCore/QTypeInfo>
#include <QtCore/QVector>

namespace Bench {

struct Point
{
    double longitude = 0.0;
    double latitude = 0.0;
};

inline bool operator==(const Point& left, const Point& right)
{
    return left.longitude == right.longitude && left.latitude == right.latitude;
}

/// What a report holds, without the library: the object of bare Qt and of the floor, and what all other
/// objects are filled from.
struct PlainReport
{
    double frequency = 0.0;
    double frequencyMin = 0.0;
    double frequencyMax = 0.0;
    bool frequencyUse = false;
    double bandwidth = 0.0;
    double bandwidthMin = 0.0;
    QString areaName; ///< a report without area has no points
    QVector<Point> points;

    bool HasArea() const { return !points.isEmpty(); }
};

bool operator==(const PlainReport& left, const PlainReport& right);

/// For those who work on the plain values themselves.
inline PlainReport Itself(const PlainReport& report)
{
    return report;
}

/// The report of a run: the same numbers on every machine, frequencies with two decimals and coordinates with
/// six, as the forms keep them.
PlainReport MakePlainReport(int coordinates);

/// Takes the place of the first longitude, or of the frequency of a report without area.
constexpr double CHANGED_NUMBER = 12.5;

/// A copy with that number.
PlainReport ChangedCopy(const PlainReport& report);

} // namespace Bench

Q_DECLARE_TYPEINFO(Bench::Point, Q_PRIMITIVE_TYPE);

#endif
