#ifndef REPORTGENERATOR_RECORDS_CHECKING_H
#define REPORTGENERATOR_RECORDS_CHECKING_H

#include <reportgenerator/reportbase/codec/values.h>
#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/reporting_p.h>

namespace REPORTGENERATOR {

// Completeness. `IsRecordGood` only looks; `CheckField` reports what is missing: with a logger and `logOnly`
// the failure is logged, otherwise thrown.

template <class Object>
bool IsRecordGood(const Object& object);

/// A field must be set if it is mandatory, and hold something that is admitted if it is set.
template <class Data, class D, class T>
bool IsFieldGood(const Data& data, const ScalarField<D, T, PresenceBit>& field)
{
    return field.IsSetIn(data) ? IsAdmitted(field, field.In(data)) : !field.isMandatory;
}

template <class Data, class Object>
bool IsFieldGood(const Data& data, const Member<Data, Object>& field)
{
    return !field.IsSetIn(data) || IsRecordGood(field.In(data));
}

template <class Data, class Item>
bool IsFieldGood(const Data& data, const ItemList<Data, Item>& field)
{
    return field.IsSetIn(data) &&
           AllOfItems(field.In(data).Values(), [](const Item& item) { return IsRecordGood(item); });
}

template <class Data>
bool IsFieldGood(const Data& /*data*/, const FormatVersion<Data>& /*field*/)
{
    return true;
}

template <class Data, class... Fields>
bool AreFieldsGood(const Data& data, const std::tuple<Fields...>& fields)
{
    return AllOfFields(fields, [&data](const auto& field) { return IsFieldGood(data, field); });
}

/// Whether the object has nothing to report. An object without record has to make one first.
template <class Object>
bool IsRecordGood(const Object& object)
{
    const auto* data = RecordAccess::Get(object);
    return data && AreFieldsGood(*data, RecordAccess::FieldsOf(object));
}

template <class Data, class D, class T>
void CheckField(const IRGObject& object, const Data& data, const ScalarField<D, T, PresenceBit>& field,
                bool logOnly)
{
    if (!IsFieldGood(data, field))
        reporting::ReportMissing(object, field.name, logOnly);
}

template <class Data, class Object>
void CheckField(const IRGObject& /*object*/, const Data& data, const Member<Data, Object>& field,
                bool logOnly)
{
    if (field.IsSetIn(data))
        field.In(data).Check(logOnly);
}

template <class Data, class Item>
void CheckField(const IRGObject& object, const Data& data, const ItemList<Data, Item>& field, bool logOnly)
{
    if (!field.IsSetIn(data))
        reporting::ReportMissing(object, field.name, logOnly);
    // Held, since a logger may change the list.
    const QVector<Item> items = field.In(data).Values();
    for (const Item& item : items)
        item.Check(logOnly);
}

template <class Data>
void CheckField(const IRGObject& /*object*/, const Data& /*data*/, const FormatVersion<Data>& /*field*/,
                bool /*logOnly*/)
{
}

} // namespace REPORTGENERATOR

#endif
