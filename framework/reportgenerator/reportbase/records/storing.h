#ifndef REPORTGENERATOR_RECORDS_STORING_H
#define REPORTGENERATOR_RECORDS_STORING_H

#include <reportgenerator/reportbase/codec/values.h>
#include <reportgenerator/reportbase/incompletedefinitionexception.h>
#include <reportgenerator/reportbase/messages_p.h>
#include <reportgenerator/reportbase/outofrangeexception.h>
#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
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

/// Apart from what stores, which is small enough to stand in each setter.
template <class Object, class FieldOfData, class T>
Q_NEVER_INLINE void ReportNotAdmitted(const Object& object, const FieldOfData& field, const T& value)
{
    reporting::WarnOrThrow(object, OutOfRangeException(NotAdmitted(object, field, value)));
}

template <class Object, class D, class T>
void StoreValue(Object& object, const ScalarField<D, T, PresenceBit>& field, const T& value)
{
    if constexpr (!std::is_same_v<T, bool>) {
        if (!IsAdmitted(field, value))
            ReportNotAdmitted(object, field, value);
    }
    auto& data = RecordAccess::Make(object);
    field.In(data) = value;
    SetFlag(data, field.setBy);
}

/// Unsets one field. Does nothing without a record.
template <class Object, class Field>
void ResetField(Object& object, const Field& field)
{
    if (!RecordAccess::Get(object))
        return;
    auto& data = RecordAccess::Make(object);
    RestoreField(data, field);
    ClearFlag(data, field.setBy);
}

/// Remembers the version of the data that are being read. Data of an older version start from an unset
/// object.
template <class Object, class Data>
void TakeVersion(Object& object, const FormatVersion<Data>& field, const QString& version)
{
    RecordAccess::Make(object).*(field.loaded) = version;
    if (field.IsOlderIn(*RecordAccess::Get(object)))
        object.Reset();
}

/// Appends a copy of the item, or, when validating, refuses it unless it is complete.
template <class Object, class Data, class Item>
void AppendItem(Object& object, const ItemList<Data, Item>& field, const Item& item)
{
    const bool isComplete = item.HasData();
    if (isComplete || !object.GetValidate()) {
        Data& data = RecordAccess::Make(object);
        field.In(data).Append(item);
        SetFlag(data, field.setBy);
    }
    if (!isComplete) {
        reporting::WarnOrThrow(
            object, IncompleteDefinitionException(field.incompleteAppended(object.GetObjectName())));
    }
}

/// Marks items that have been put behind the first so many, and gives them what copies of items with the
/// object's settings have.
template <class Object, class Data, class Item>
void SettleRawItems(Object& object, const ItemList<Data, Item>& field, int first)
{
    Data& data = RecordAccess::Make(object);
    const QVector<Item>& items = field.In(data).Values();
    if (items.size() == first)
        return;
    SetFlag(data, field.setBy);
    // New ones validate.
    if (!object.GetValidate())
        std::for_each(items.cbegin() + first, items.cend(), [](const Item& item) {
            ObjectAccess::SettingsOf(item).SetAlone(ObjectSettings(false));
        });
}

/// Has `read` fill an item with the object's settings, and appends it.
template <class Object, class Data, class Item, class Read>
void ReadItem(Object& object, const ItemList<Data, Item>& field, Read&& read)
{
    Item item;
    if (ObjectAccess::FastPathOf(object)) {
        ObjectAccess::SettingsOf(item).SetAlone(ObjectAccess::SettingsToPass(object));
    } else {
        item.SetValidate(object.GetValidate());
        item.SetLogger(object.GetLogger());
    }
    read(item);
    AppendItem(object, field, item);
}

/// Makes room for a list that is read at once; `possible` is what the input can hold at most.
template <class Object, class Data, class Item>
void ReserveItems(Object& object, const ItemList<Data, Item>& field, qint32 count, qint64 possible)
{
    ObjectList<Item>& items = field.In(RecordAccess::Make(object));
    if (items.Values().isEmpty() && count > 0)
        items.Reserve(static_cast<int>(std::min<qint64>(count, possible)));
}

} // namespace REPORTGENERATOR

#endif
