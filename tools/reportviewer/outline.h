#ifndef REPORTVIEWER_OUTLINE_H
#define REPORTVIEWER_OUTLINE_H

#include <reportcore/exporting/geometry.h>

#include <reportgenerator/reportbase/reportbase.h>

namespace ReportViewer {

/// What the map shows of a report.
struct Outline
{
    /// Without cuts at the antimeridian; longitudes go on beyond 180 degrees.
    ReportCore::Geometry geometry;

    /// All valid points, with their numbers in the list from 0.
    ReportCore::Points items;

    /// Of the list, with those that cannot be drawn since they aren't valid.
    int count = 0;

    int Undrawn() const { return count - static_cast<int>(items.size()); }
};

Outline OutlineOf(const REPORTGENERATOR::ReportBase& report);

} // namespace ReportViewer

#endif
