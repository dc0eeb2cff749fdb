#ifndef REPORTCORE_IMPORTING_WKTREADER_H
#define REPORTCORE_IMPORTING_WKTREADER_H

#include <reportcore/importing/importing.h>

namespace ReportCore {

/// Adds the geometry that a well-known text stands for, and what hinders it from being an area. Throws `ImportError`
/// and `OtherSystem`.
void AddWkt(const QString& text, ImportedFeature& feature);

} // namespace ReportCore

#endif
