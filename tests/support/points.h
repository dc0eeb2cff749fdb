#ifndef TESTS_SUPPORT_POINTS_H
#define TESTS_SUPPORT_POINTS_H

// Coordinates and areas that tests need again and again.
//
//     area.AppendCoordinate(At(8.5, 47.25));
//     area.SetCoordinate({OnlyLatitude(1.0), OutOfRange(1000.0, 3.0)});
//     Area area = Lake();                            // "Lake", the point (1, 2), script "S7"

#include "support/states.h"

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/coordinate.h>

namespace Support {

REPORTGENERATOR::Coordinate At(double longitude, double latitude);
REPORTGENERATOR::Coordinate OnlyLongitude(double longitude);
REPORTGENERATOR::Coordinate OnlyLatitude(double latitude);

/// Doesn't validate, so that it takes any numbers.
REPORTGENERATOR::Coordinate OutOfRange(double longitude, double latitude);

/// Name "Lake", one point, (1, 2), script "S7".
REPORTGENERATOR::Area Lake();
AreaState LakeState();

/// Holds one point, (1, 2), but counts the coordinates as not set; with the flag of the name it is called
/// "Lake". It doesn't validate.
REPORTGENERATOR::Area WithUnflaggedPoint(int otherFlags = 0);

} // namespace Support

#endif
