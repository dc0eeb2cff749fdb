#ifndef REPORTCORE_BOUNDS_H
#define REPORTCORE_BOUNDS_H

#include <reportgenerator/reflection/field.h>

#include <reportgenerator/reportbase/coordinate.h>

namespace ReportCore {

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

/// Of a list of coordinates.
Bounds BoundsOf(const REPORTGENERATOR::IRGObject& parent, const Field& list);

} // namespace ReportCore

#endif
