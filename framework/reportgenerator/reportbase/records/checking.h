#ifndef REPORTGENERATOR_RECORDS_CHECKING_H
#define REPORTGENERATOR_RECORDS_CHECKING_H

#include <reportgenerator/reportbase/forms/values.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/rows.h>
#include <reportgenerator/reportbase/reporting_p.h>

namespace REPORTGENERATOR {

// Completeness. `IsRecordGood` only looks; `CheckRow` reports what is missing: with a logger and `logOnly`
// the failure is logged, otherwise thrown.

template <class Object>
bool IsRecordGood(const Object& object);

/// A field must be set if it is mandatory, and hold something that is admitted if it is set.
template <class Data, class D, class T>
bool IsRowGood(const Data& data, const Field<D, T, Flagged>& row)
{
    return row.IsSetIn(data) ? IsAdmitted(row, row.In(data)) : !row.isMandatory;
}

template <class Data, class Object>
bool IsRowGood(const Data& data, const Member<Data, Object>& row)
{
    return !row.IsSetIn(data) || IsRecordGood(row.In(data));
}

template <class Data, class Item>
bool IsRowGood(const Data& data, const ItemList<Data, Item>& row)
{
    const QVector<Item>& items = row.In(data).Values();
    return row.IsSetIn(data) && std::all_of(items.cbegin(), items.cend(), IsRecordGood<Item>);
}

template <class Data>
bool IsRowGood(const Data& /*data*/, const FormatVersion<Data>& /*row*/)
{
    return true;
}

template <class Data, class... Rows>
bool AreRowsGood(const Data& data, const std::tuple<Rows...>& rows)
{
    return AllOfFields(rows, [&data](const auto& row) { return IsRowGood(data, row); });
}

/// Whether the object has nothing to report. An object without record has to make one first.
template <class Object>
bool IsRecordGood(const Object& object)
{
    const auto* data = RecordAccess::Get(object);
    return data && AreRowsGood(*data, RecordAccess::RowsOf(object));
}

template <class Data, class D, class T>
void CheckRow(const IRGObject& object, const Data& data, const Field<D, T, Flagged>& row, bool logOnly)
{
    if (!IsRowGood(data, row))
        reporting::Missing(object, row.name, logOnly);
}

template <class Data, class Object>
void CheckRow(const IRGObject& /*object*/, const Data& data, const Member<Data, Object>& row, bool logOnly)
{
    if (row.IsSetIn(data))
        row.In(data).Check(logOnly);
}

template <class Data, class Item>
void CheckRow(const IRGObject& object, const Data& data, const ItemList<Data, Item>& row, bool logOnly)
{
    if (!row.IsSetIn(data))
        reporting::Missing(object, row.name, logOnly);
    // Held, since a logger may change the list.
    const QVector<Item> items = row.In(data).Values();
    for (const Item& item : items)
        item.Check(logOnly);
}

template <class Data>
void CheckRow(const IRGObject& /*object*/, const Data& /*data*/, const FormatVersion<Data>& /*row*/,
              bool /*logOnly*/)
{
}

} // namespace REPORTGENERATOR

#endif
