#ifndef REPORTGENERATOR_REFLECTION_REPORTFIELDS_H
#define REPORTGENERATOR_REFLECTION_REPORTFIELDS_H

#include <reportgenerator/reflection/field.h>
#include <reportgenerator/reflection/fieldpath.h>

#include <functional>

namespace ReportCore {

// The fields of objects, by their paths. Paths begin at the object that is handed over with them, which is a report
// with `ReportInfo()`, or an object of any other class with that class's.

/// The class of reports.
const ObjectInfo& ReportInfo();

/// The class among those of a report and what it holds whose objects bear the name; null for other names.
const ObjectInfo* FindObject(const QString& objectName);

/// Called with each field, in writing order. A member object, a list and each of its items come before what they hold.
using FieldVisitor = std::function<void(const FieldPath& path, const REPORTGENERATOR::IRGObject& parent)>;

/// Visits the fields of an object and, below those that are set, of what it holds.
void VisitFields(const REPORTGENERATOR::IRGObject& object, const ObjectInfo& info, const FieldVisitor& visit);

/// The object in which the last field of the path stands; null where one on the way is not there.
const REPORTGENERATOR::IRGObject* FindParent(const REPORTGENERATOR::IRGObject& object, const FieldPath& path);

/// Whether the value, the member object, the list or the item is there.
bool IsSet(const REPORTGENERATOR::IRGObject& object, const FieldPath& path);

/// Invalid when it isn't set.
QVariant ValueAt(const REPORTGENERATOR::IRGObject& object, const FieldPath& path);

/// Sets a value through the checks of the class's setter. Member objects on the way come into being; items don't. Throws
/// `RGException` for what is refused, with the object as it was.
void SetValue(REPORTGENERATOR::IRGObject& object, const FieldPath& path, const QVariant& value);

/// Unsets a value, a member object or a list, or takes an item out of its list. What isn't there stays away. Throws
/// `RGException` for what cannot be unset.
void Unset(REPORTGENERATOR::IRGObject& object, const FieldPath& path);

/// Calls `change` with a copy of the object in which the last field of the path stands, and puts it in its place.
/// Member objects on the way come into being. Throws what `change` throws, with the object as it was, and `RGException`
/// for an item that isn't there.
void ChangeParent(REPORTGENERATOR::IRGObject& object, const FieldPath& path,
                  const std::function<void(REPORTGENERATOR::IRGObject& parent)>& change);

} // namespace ReportCore

#endif
