#ifndef REPORTGENERATOR_REFLECTION_FIELDTEXTS_H
#define REPORTGENERATOR_REFLECTION_FIELDTEXTS_H

#include <reportgenerator/reflection/field.h>

#include <QtCore/QString>

namespace ReportCore {

/// The value of a field for people: a number, "true", a text in quotes, "null", or "not set".
QString ValueText(const QVariant& value);

/// The values of an object in one line, in reading order: "8.5 47.25".
QString ItemText(const REPORTGENERATOR::IRGObject& item, const ObjectInfo& info);

} // namespace ReportCore

#endif
