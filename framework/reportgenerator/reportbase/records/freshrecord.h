#ifndef REPORTGENERATOR_RECORDS_FRESHRECORD_H
#define REPORTGENERATOR_RECORDS_FRESHRECORD_H

#include <reportgenerator/reportbase/forms/values.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/rows.h>

namespace REPORTGENERATOR {

// Reading past Qt's stream classes goes aside, into a fresh record, which is taken over when all of it has
// been read and found good. Each function that reads returns false for whatever is odd.

/// Puts the value into a record that doesn't have it yet.
template <class Data, class D, class T>
bool PutValue(Data& data, const Field<D, T, Flagged>& row, const T& value)
{
    if (row.IsSetIn(data) || !IsAdmitted(row, value))
        return false;
    row.In(data) = value;
    SetFlag(data, row.setBy);
    return true;
}

/// Items get the settings.
template <class Data>
void AdoptRecord(Data& to, Data& from, const ObjectSettings& settings);

template <class Data, class D, class T>
void AdoptRow(Data& to, Data& from, const Field<D, T, Flagged>& row, const ObjectSettings& /*settings*/)
{
    row.In(to) = row.In(from);
}

template <class Data>
void AdoptRow(Data& to, Data& from, const FormatVersion<Data>& row, const ObjectSettings& /*settings*/)
{
    // Data without a version leave the one that was loaded before.
    if (!(from.*(row.loaded)).isNull())
        to.*(row.loaded) = from.*(row.loaded);
}

template <class Data, class Object>
void AdoptRow(Data& to, Data& from, const Member<Data, Object>& row, const ObjectSettings& settings)
{
    if (row.IsSetIn(from))
        AdoptRecord(RecordAccess::Make(row.In(to)), RecordAccess::Make(row.In(from)), settings);
}

template <class Data, class Item>
void AdoptRow(Data& to, Data& from, const ItemList<Data, Item>& row, const ObjectSettings& settings)
{
    if (row.IsSetIn(from))
        row.In(to).Adopt(row.In(from).Own(), settings);
}

/// Takes what was read over into a record in which nothing is set.
template <class Data>
void AdoptRecord(Data& to, Data& from, const ObjectSettings& settings)
{
    ForEachField(Description<Data>::ROWS, [&](const auto& row) { AdoptRow(to, from, row, settings); });
    to.flags = from.flags;
}

} // namespace REPORTGENERATOR

#endif
