#ifndef REPORTGENERATOR_RECORDS_STAGINGRECORD_H
#define REPORTGENERATOR_RECORDS_STAGINGRECORD_H

#include <reportgenerator/reportbase/codec/values.h>
#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>

namespace REPORTGENERATOR {

// Reading past Qt's stream classes goes aside, into a staging record, which is taken over when all of it has
// been read and found good. Each function that reads returns false for whatever is odd.

/// Puts the value into a record that doesn't have it yet.
template <class Data, class D, class T>
bool PutValue(Data& data, const ScalarField<D, T, PresenceBit>& field, const T& value)
{
    if (field.IsSetIn(data) || !IsAdmitted(field, value))
        return false;
    field.In(data) = value;
    SetFlag(data, field.setBy);
    return true;
}

/// Items get the settings of the object that is read.
template <class Data>
void TakeRecord(Data& to, Data& from, const IRGObject& object);

template <class Data, class D, class T>
void TakeField(Data& to, Data& from, const ScalarField<D, T, PresenceBit>& field, const IRGObject& /*object*/)
{
    field.In(to) = field.In(from);
}

template <class Data>
void TakeField(Data& to, Data& from, const FormatVersion<Data>& field, const IRGObject& /*object*/)
{
    // Data without a version leave the one that was loaded before.
    if (!(from.*(field.loaded)).isNull())
        to.*(field.loaded) = from.*(field.loaded);
}

template <class Data, class Object>
void TakeField(Data& to, Data& from, const Member<Data, Object>& field, const IRGObject& object)
{
    if (field.IsSetIn(from))
        TakeRecord(RecordAccess::Make(field.In(to)), RecordAccess::Make(field.In(from)), object);
}

template <class Data, class Item>
void TakeField(Data& to, Data& from, const ItemList<Data, Item>& field, const IRGObject& object)
{
    if (field.IsSetIn(from))
        field.In(to).Take(field.In(from).Detached(), ObjectAccess::SettingsToPass(object));
}

/// Takes what was read over into a record in which nothing is set.
template <class Data>
void TakeRecord(Data& to, Data& from, const IRGObject& object)
{
    ForEachField(Schema<Data>::FIELDS, [&](const auto& field) { TakeField(to, from, field, object); });
    to.flags = from.flags;
}

} // namespace REPORTGENERATOR

#endif
