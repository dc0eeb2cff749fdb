#ifndef REPORTCORE_DOUBTING_NEARNAME_H
#define REPORTCORE_DOUBTING_NEARNAME_H

#include <reportcore/field.h>

#include <QtCore/QString>

namespace ReportCore {

/// Whether a name is nearly a known one.
bool IsNear(const QString& name, const QString& known);

/// The known name of an element or attribute that is nearly this one; null for none.
QString NearestName(const ObjectInfo& info, REPORTGENERATOR::Place place, const QString& name);

} // namespace ReportCore

#endif
