#ifndef REPORTCORE_BOUNDS_H
#define REPORTCORE_BOUNDS_H

#include <reportcore/field.h>

#include <reportgenerator/reportbase/coordinate.h>

#include <QtCore/QVector>

namespace ReportCore {

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

    /// Makes room for a point if it is valid.
    void Take(const REPORTGENERATOR::Coordinate& point);
};

Bounds BoundsOf(const QVector<REPORTGENERATOR::Coordinate>& points);

/// Whether a field is a list of coordinates.
bool HoldsPoints(const Field& field);

/// Of such a list.
Bounds BoundsOf(const REPORTGENERATOR::IRGObject& holder, const Field& list);

} // namespace ReportCore

#endif
