#ifndef REPORTCOLUMNS_SHAPE_H
#define REPORTCOLUMNS_SHAPE_H

#include "buffer.h"

#include <reportcore/exporting/geometry.h>

namespace ReportColumns {

/// Puts the outline behind what is in the buffer, as little-endian well-known binary of the geometry that
/// `ReportCore::GeometryOf` makes of it. The outline may be changed. Nothing, and false, for one without points.
bool PutShape(Buffer& out, ReportCore::Points& outline);

} // namespace ReportColumns

#endif
