#ifndef REPORTGDAL_AREAS_H
#define REPORTGDAL_AREAS_H

#include <reportcore/exporting/geometry.h>
#include <reportcore/importing/importing.h>

#include <ogr_geometry.h>
#include <ogr_spatialref.h>

#include <memory>

namespace ReportGdal {

struct ReleaseSystem
{
    void operator()(OGRSpatialReference* system) const { system->Release(); }
};
using CoordinateSystem = std::unique_ptr<OGRSpatialReference, ReleaseSystem>;

/// That of all areas: WGS 84, longitude first.
CoordinateSystem Wgs84();

/// Whether the numbers of its points are those of WGS 84, longitude first; nothing is taken for that.
bool IsWgs84(const OGRSpatialReference* system);

/// Null for no geometry.
std::unique_ptr<OGRGeometry> GeometryFor(const ReportCore::Geometry& geometry);

/// Adds the outlines of a geometry, and what hinders them from being an area.
void AddOutlines(const OGRGeometry& geometry, ReportCore::ImportedFeature& feature);

} // namespace ReportGdal

#endif
