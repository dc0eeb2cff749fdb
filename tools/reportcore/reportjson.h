#ifndef REPORTCORE_REPORTJSON_H
#define REPORTCORE_REPORTJSON_H

#include <reportcore/problem.h>

#include <reportgenerator/reflection/field.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QVariant>

namespace ReportCore {

/// A value of a field; null for what isn't set.
QJsonValue ValueToJson(const QVariant& value);

/// What JSON has of a list of coordinates.
enum class JsonPoints
{
    All,
    Count ///< only how many there are, as "points" in place of the list
};

/// The fields of an object by their keys, those of its members and items within. Every key is always there; what is not
/// set is null. JSON has no word for a number that is none: that is given as a text. A list of coordinates has the box
/// around its valid points beside it, as "bounds".
QJsonObject FieldsToJson(const REPORTGENERATOR::IRGObject& object, const ObjectInfo& info,
                         JsonPoints points = JsonPoints::All);

/// All that is known of a problem; what isn't known is null.
QJsonObject ProblemToJson(const Problem& problem);

QJsonArray ProblemsToJson(const Problems& problems);

} // namespace ReportCore

#endif
