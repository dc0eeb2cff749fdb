#ifndef REPORTCORE_EXPORTING_WKTTEXT_H
#define REPORTCORE_EXPORTING_WKTTEXT_H

#include <reportcore/exporting/geometry.h>

#include <QtCore/QByteArray>

namespace ReportCore {

/// Well-known text; empty for no geometry.
QByteArray WktText(const Geometry& geometry);

} // namespace ReportCore

#endif
