#ifndef REPORTCORE_RING_H
#define REPORTCORE_RING_H

#include <reportcore/field.h>

#include <optional>
#include <vector>

namespace ReportCore {

// The points of a list, joined by edges into a ring, on the plane of longitude and latitude. From each point the way to
// the next one is the shorter one, so that a ring may lie across the antimeridian.

/// A point of a ring. Longitudes go on beyond 180 degrees where the ring does.
struct RingPoint
{
    double longitude = 0.0;
    double latitude = 0.0;
    int index = 0; ///< in the list
};

/// The valid points. One that is the same as the one before it is left out, and so is the last when it is the first.
std::vector<RingPoint> RingOf(const REPORTGENERATOR::IRGObject& holder, const Field& list);

/// Whether a point lies within the ring or on it.
bool Surrounds(const REPORTGENERATOR::IRGObject& holder, const Field& list, double longitude,
               double latitude);

/// Two edges, each by the point that it begins at.
struct EdgePair
{
    int first = 0;
    int second = 0;
};

/// Two edges of a ring that meet elsewhere than in the point between neighbours, as far as six decimals tell; nothing when
/// no edges do. Takes n log n.
std::optional<EdgePair> FindCrossing(const std::vector<RingPoint>& ring);

} // namespace ReportCore

#endif
