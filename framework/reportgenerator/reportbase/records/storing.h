#ifndef REPORTGENERATOR_RECORDS_STORING_H
#define REPORTGENERATOR_RECORDS_STORING_H

#include <reportgenerator/reportbase/forms/values.h>
#include <reportgenerator/reportbase/incompletedefinitionexception.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/outofrangeexception.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/rows.h>
#include <reportgenerator/reportbase/reporting_p.h>

#include <algorithm>

namespace REPORTGENERATOR {

// What setters and readers do with a value: they report what is not admitted, which throws when validating,
// and store it.

template <class FieldOfData>
QString NotAdmitted(const IRGObject& object, const FieldOfData& field, double /*value*/)
{
    return messages::NotWithinRange(field.name, field.range.low, field.range.high, object.GetObjectName());
}

template <class FieldOfData>
QString NotAdmitted(const IRGObject& object, const FieldOfData& field, const QString& /*value*/)
{
    return messages::PleaseSetProperlyInSetter(object.GetObjectName(), field.name);
}

template <class Object, class D, class T>
void StoreValue(Object& object, const Field<D, T, Flagged>& row, const T& value)
{
    if constexpr (!std::is_same_v<T, bool>) {
        if (!IsAdmitted(row, value)) {
            reporting::Questionable(object, OutOfRangeException(NotAdmitted(object, row, value)));
        }
    }
    auto& data = RecordAccess::Make(object);
    row.In(data) = value;
    SetFlag(data, row.setBy);
}

/// Unsets one row. Does nothing without a record.
template <class Object, class Row>
void ResetRow(Object& object, const Row& row)
{
    if (!RecordAccess::Get(object))
        return;
    auto& data = RecordAccess::Make(object);
    RestoreRow(data, row);
    ClearFlag(data, row.setBy);
}

/// Remembers the version of the data that are being read. Data of an older version start from an unset
/// object.
template <class Object, class Data>
void TakeVersion(Object& object, const FormatVersion<Data>& row, const QString& version)
{
    RecordAccess::Make(object).*(row.loaded) = version;
    if (row.IsOlderIn(*RecordAccess::Get(object)))
        object.Reset();
}

/// Appends a copy of the item, or, when validating, refuses it unless it is complete.
template <class Object, class Data, class Item>
void AppendItem(Object& object, const ItemList<Data, Item>& row, const Item& item)
{
    const bool isComplete = item.HasData();
    if (isComplete || !object.GetValidate()) {
        Data& data = RecordAccess::Make(object);
        row.In(data).Append(item);
        SetFlag(data, row.setBy);
    }
    if (!isComplete) {
        reporting::Questionable(
            object, IncompleteDefinitionException(row.incompleteAppended(object.GetObjectName())));
    }
}

/// Marks items that have been put behind the first so many, and gives them what copies of items with the
/// object's settings have.
template <class Object, class Data, class Item>
void SettleRawItems(Object& object, const ItemList<Data, Item>& row, int first)
{
    Data& data = RecordAccess::Make(object);
    const QVector<Item>& items = row.In(data).Values();
    if (items.size() == first)
        return;
    SetFlag(data, row.setBy);
    // New ones validate.
    if (!object.GetValidate())
        std::for_each(items.cbegin() + first, items.cend(), [](const Item& item) {
            ObjectAccess::SettingsOf(item).SetAlone(ObjectSettings(false, nullptr, nullptr));
        });
}

/// Has `read` fill an item with the object's settings, and appends it.
template <class Object, class Data, class Item, class Read>
void ReadItem(Object& object, const ItemList<Data, Item>& row, Read&& read)
{
    Item item;
    if (ObjectAccess::RoadOf(object)) {
        ObjectAccess::SettingsOf(item).SetAlone(ObjectAccess::SettingsToPass(object));
    } else {
        item.SetValidate(object.GetValidate());
        item.SetLogger(object.GetLogger());
    }
    read(item);
    AppendItem(object, row, item);
}

/// Makes room for a list that is read at once; `possible` is what the input can hold at most.
template <class Object, class Data, class Item>
void ReserveItems(Object& object, const ItemList<Data, Item>& row, qint32 count, qint64 possible)
{
    ObjectList<Item>& items = row.In(RecordAccess::Make(object));
    if (items.Values().isEmpty() && count > 0)
        items.Reserve(static_cast<int>(std::min<qint64>(count, possible)));
}

} // namespace REPORTGENERATOR

#endif
