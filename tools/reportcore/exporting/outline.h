#ifndef REPORTCORE_EXPORTING_OUTLINE_H
#define REPORTCORE_EXPORTING_OUTLINE_H

#include <reportcore/exporting/geometry.h>

#include <utility>
#include <vector>

namespace ReportCore {

// Calculating with the points of an outline, whose longitudes may go on beyond 180 degrees.

/// Without digits beyond a tenth of a millimetre, which come out of calculations.
double Rounded(double degrees);

/// Without points that repeat the one before them.
Points WithoutRepeated(Points points);

/// Without ways along a meridian that lead back at once.
Points WithoutReturns(const Points& points);

/// A ring without the point that closes it.
Points Opened(Points points);

/// Twice the area that a ring encloses, positive when it runs counterclockwise.
double SignedArea(const Points& ring);

/// The points with longitudes beyond 180 degrees where they go across the antimeridian.
Points Unwrapped(Points points);

/// West and east ends.
std::pair<double, double> SpanOf(const Points& points);

double MeanLatitude(const Points& points);

/// The antimeridians within a span.
std::vector<double> Antimeridians(const Points& points);

/// Where the way between two points meets a meridian.
Point Crossing(const Point& from, const Point& to, double meridian);

/// The longitude, moved by whole turns, that is nearest to another one.
double Near(double longitude, double other);

} // namespace ReportCore

#endif
