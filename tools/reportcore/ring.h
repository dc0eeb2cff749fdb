#ifndef REPORTCORE_RING_H
#define REPORTCORE_RING_H

#include <reportcore/exporting/geometry.h>

#include <reportgenerator/reflection/field.h>

#include <optional>

namespace ReportCore {

// The points of a list, joined by edges into a ring on the plane of longitude and latitude, as maps have it: `OpenRingOf`.

Points RingOf(const REPORTGENERATOR::IRGObject& parent, const Field& list);

/// Whether a point lies within the ring or on it.
bool Surrounds(const REPORTGENERATOR::IRGObject& parent, const Field& list, double longitude,
               double latitude);

/// Two edges, each by the point that it begins at.
struct EdgePair
{
    int first = 0;
    int second = 0;
};

/// Two edges of a ring that meet elsewhere than in the point between neighbours, as far as six decimals tell; nothing when
/// no edges do. Takes n log n.
std::optional<EdgePair> FindCrossing(const Points& ring);

} // namespace ReportCore

#endif
