#ifndef BENCH_LIBRARYOBJECTS_H
#define BENCH_LIBRARYOBJECTS_H

#include "contender.h"

#include <reportgenerator/reportbase/reportbase.h>

namespace Bench {

/// Names the area and appends its points one by one.
void FillArea(REPORTGENERATOR::Area& area, const PlainReport& plain);

/// A report with that validate flag that carries nothing yet.
REPORTGENERATOR::ReportBase EmptyReport(bool validate);

REPORTGENERATOR::ReportBase MakeReport(const PlainReport& plain, bool validate);

template <bool VALIDATE>
REPORTGENERATOR::ReportBase MakeReport(const PlainReport& plain)
{
    return MakeReport(plain, VALIDATE);
}

QVector<Point> PointsOf(const REPORTGENERATOR::Area& area);
PlainReport ValuesOf(const REPORTGENERATOR::ReportBase& report);

/// The library's objects, validating or not.
template <bool VALIDATE>
const Contender<REPORTGENERATOR::ReportBase> LIBRARY{VALIDATE ? "library" : "library_unchecked",
                                                     MakeReport<VALIDATE>, ValuesOf};

} // namespace Bench

#endif
