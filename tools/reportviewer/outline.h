#ifndef REPORTVIEWER_OUTLINE_H
#define REPORTVIEWER_OUTLINE_H

#include <reportcore/exporting/geometry.h>

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QString>

#include <vector>

namespace ReportViewer {

/// What the map shows of a report.
struct Outline
{
    /// A point of the area by its number in the list, from 0.
    struct Item
    {
        ReportCore::Point point;
        int index = 0;
    };

    /// Name of the area and the numbers of the report.
    QString title;

    /// Without cuts at the antimeridian; longitudes go on beyond 180 degrees.
    ReportCore::Geometry geometry;

    /// All valid points.
    std::vector<Item> items;
};

Outline OutlineOf(const REPORTGENERATOR::ReportBase& report);

} // namespace ReportViewer

#endif
