#ifndef REPORTCORE_LINT_H
#define REPORTCORE_LINT_H

#include <reportcore/problem.h>
#include <reportcore/reportfile.h>

#include <QtCore/QByteArray>

namespace ReportCore {

// What the library reads without complaint, but hardly anybody means. Their names:

/// A text that is no number, or no finite one, where a number belongs.
constexpr char NOT_A_NUMBER[] = "NotANumber";

/// An unknown element or attribute whose name is nearly that of a known one.
constexpr char MISSPELT_NAME[] = "MisspeltName";

/// An element that comes a second time, although there is place for one only.
constexpr char REPEATED_ELEMENT[] = "RepeatedElement";

/// A report behind the first one.
constexpr char SECOND_REPORT[] = "SecondReport";

/// A minimum above the maximum.
constexpr char MIN_ABOVE_MAX[] = "MinAboveMax";

/// A value below its own minimum or above its own maximum.
constexpr char OUTSIDE_BOUNDS[] = "OutsideBounds";

/// An entity that nothing is known of, so that it was left out.
constexpr char UNRESOLVED_ENTITY[] = "UnresolvedEntity";

/// An area of fewer than three points.
constexpr char TOO_FEW_POINTS[] = "TooFewPoints";

/// An area whose edges meet.
constexpr char CROSSING_EDGES[] = "CrossingEdges";

/// How closely a report is looked at.
enum class Look
{
    Quick,   ///< only at what isn't too large for a look that everybody pays for
    Thorough ///< whatever it takes
};

/// Looking for edges that meet takes some times as long as reading the points.
constexpr int EDGES_OF_QUICK_LOOK = 1000;

/// So does looking for elements that come twice in binary forms, and for the end of compressed data.
constexpr int BYTES_OF_QUICK_LOOK = 64 * 1024;

/// These of a report that was read from the bytes, in the order in which they stand there, as far as they have a place.
/// What is among the problems of the report isn't told again.
Problems FindLint(const QByteArray& bytes, const ReportFile& file, Look look);

} // namespace ReportCore

#endif
