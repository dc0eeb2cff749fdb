#ifndef REPORTTOOL_BOUNDS_H
#define REPORTTOOL_BOUNDS_H

#include <reportgenerator/reportbase/coordinate.h>

#include <QtCore/QVector>

namespace ReportTool {

/// Whether both values are set and lie within their ranges.
bool IsValidPoint(const REPORTGENERATOR::Coordinate& point);

/// The smallest box in degrees that holds the valid points; it doesn't wrap around the antimeridian.
struct Bounds
{
    bool isEmpty = true;
    double west = 0.0;
    double east = 0.0;
    double south = 0.0;
    double north = 0.0;
};

Bounds BoundsOf(const QVector<REPORTGENERATOR::Coordinate>& points);

} // namespace ReportTool

#endif
