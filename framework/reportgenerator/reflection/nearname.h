#ifndef REPORTGENERATOR_REFLECTION_NEARNAME_H
#define REPORTGENERATOR_REFLECTION_NEARNAME_H

#include <reportgenerator/reflection/field.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ReportCore {

/// Whether a name is nearly a known one.
bool IsNear(const QString& name, const QString& known);

/// The known name that is nearest to this one, the first of several; null where none is near.
QString NearestOf(const QStringList& known, const QString& name);

/// ", did you mean 'value'?", or nothing: what an error adds that tells of a name that there isn't.
QString Suggestion(const QStringList& known, const QString& name);

/// The known name of an element or attribute that is nearest to this one; null for none.
QString NearestName(const ObjectInfo& info, REPORTGENERATOR::Place place, const QString& name);

} // namespace ReportCore

#endif
