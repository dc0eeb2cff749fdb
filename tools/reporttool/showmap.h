#ifndef REPORTTOOL_SHOWMAP_H
#define REPORTTOOL_SHOWMAP_H

#include <reportcore/exporting/geometry.h>

#include <QtCore/QStringList>

namespace ReportTool {

/// Draws an outline in characters: a frame with "*" for the outline and "." for what it encloses, the latitudes of the
/// upper and the lower row beside it and the longitudes of the first and the last column below. Nothing for no points.
QStringList MapLines(const ReportCore::Points& outline);

} // namespace ReportTool

#endif
