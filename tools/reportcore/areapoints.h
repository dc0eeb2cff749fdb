#ifndef REPORTCORE_AREAPOINTS_H
#define REPORTCORE_AREAPOINTS_H

#include <reportcore/exporting/geometry.h>

#include <reportgenerator/reflection/fieldpath.h>
#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/reportbase.h>

namespace ReportCore {

/// Whether a field is a list of coordinates.
bool HoldsPoints(const Field& field);

/// Where the points of a report's area stand: the path of their list; with an index, of one of them.
FieldPath PathOfPoints(int index = FieldPath::WHOLE);

/// Whether both values are set and lie within their ranges.
bool IsValidPoint(const REPORTGENERATOR::Coordinate& point);

/// How many a report's area has, valid or not.
int CountPoints(const REPORTGENERATOR::ReportBase& report);

/// The valid points of a list of coordinates, with their numbers in it.
Points ValidPoints(const REPORTGENERATOR::IRGObject& parent, const Field& list);

/// Those of a report's area; none where it has none.
Points ValidPoints(const REPORTGENERATOR::ReportBase& report);

} // namespace ReportCore

#endif
