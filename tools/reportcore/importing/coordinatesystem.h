#ifndef REPORTCORE_IMPORTING_COORDINATESYSTEM_H
#define REPORTCORE_IMPORTING_COORDINATESYSTEM_H

#include <reportcore/importing/importing.h>

#include <QtCore/QString>

namespace ReportCore {

/// Coordinates that are no longitudes and latitudes in WGS 84. It speaks for the whole file.
struct OtherSystem
{
    QString name;        ///< "EPSG:25832", or as the file has it
    QString column = {}; ///< of a table: the one with the geometries
};

/// Throws `OtherSystem` unless the name is that of WGS 84: "EPSG:4326", "urn:ogc:def:crs:OGC:1.3:CRS84", "4326" and others.
void RequireWgs84(const QString& name);

/// Why a file in another system is refused, with the command that converts it.
QString RefusalOf(const OtherSystem& system, const ImportInput& input);

/// What is wrong with points that are beyond the poles or the antimeridian, and the likely cause; empty when none is.
QString FindOutOfRange(const Points& points);

} // namespace ReportCore

#endif
