#ifndef REPORTGENERATOR_RECORDS_DIRECTELEMENTS_H
#define REPORTGENERATOR_RECORDS_DIRECTELEMENTS_H

#include <reportgenerator/reportbase/forms/byterange.h>
#include <reportgenerator/reportbase/forms/taggedelements.h>
#include <reportgenerator/reportbase/records/freshrecord.h>
#include <reportgenerator/reportbase/records/tagged.h>

#include <QtCore/QVector>

namespace REPORTGENERATOR {

// A fresh record from tagged elements whose lengths fit together.

template <class Data>
bool ReadRecord(ByteRange body, Data& data);

inline bool ReadPayload(ByteRange payload, double& value)
{
    return payload.TakeSizeOfRest() && numbers::ReadFixed(payload.next, payload.end, value);
}

inline bool ReadPayload(ByteRange payload, bool& value)
{
    value = payload.Left() == 1 && *payload.next != 0;
    return payload.Left() == 1;
}

inline bool ReadPayload(ByteRange payload, QString& value)
{
    if (!payload.TakeSizeOfRest())
        return false;
    value = elements::TextOfUtf8(payload.next, payload.Left());
    // What is not UTF-8, or stands behind a NUL, does not come back.
    return value.toUtf8() == QByteArray::fromRawData(payload.next, static_cast<int>(payload.Left()));
}

template <class Data, class D, class T>
bool ReadElement(ByteRange payload, qint32 tag, Data& data, const Field<D, T, Flagged>& row)
{
    T value{};
    return tag == row.setBy.tag && ReadPayload(payload, value) && PutValue(data, row, value);
}

template <class Data>
bool ReadElement(ByteRange payload, qint32 tag, Data& data, const FormatVersion<Data>& row)
{
    const bool isSecond = !(data.*(row.loaded)).isNull();
    if (tag != row.tag || isSecond || !payload.TakeSizeOfRest() || !payload.HoldsText(row.model))
        return false;
    data.*(row.loaded) = row.model.Text();
    return true;
}

template <class Data, class Object>
bool ReadElement(ByteRange payload, qint32 tag, Data& data, const Member<Data, Object>& row)
{
    if (tag != row.setBy.tag || row.IsSetIn(data))
        return false;
    SetFlag(data, row.setBy);
    return ReadRecord(payload, RecordAccess::Make(row.In(data)));
}

/// Reads an item that holds all its numbers in the order in which they are written, as items do. Otherwise
/// the record is as it may.
template <class ItemData>
bool ReadNumbers(ByteRange body, ItemData& data)
{
    const bool isRead = AllOfFields(Description<ItemData>::ROWS, [&](const auto& row) {
        qint32 tag = 0;
        qint32 length = 0;
        ByteRange payload = {};
        double value = 0.0;
        return body.TakeWord(tag) && tag == row.setBy.tag && body.TakeWord(length) &&
               body.TakePart(length, payload) && ReadPayload(payload, value) && PutValue(data, row, value);
    });
    return isRead && body.Left() == 0;
}

template <class Data, class Item>
bool ReadElement(ByteRange payload, qint32 tag, Data& data, const ItemList<Data, Item>& row)
{
    qint32 count = 0;
    if (tag != row.setBy.tag || row.IsSetIn(data) || !payload.TakeWord(count) || count < 0 ||
        count > payload.Left() / ShortestBody(row))
        return false;
    if (count == 0)
        return payload.Left() == 0;
    QVector<Item> items(count);
    for (Item& item : items) {
        auto& itemData = RecordAccess::Make(item);
        qint32 length = 0;
        ByteRange body = {};
        if (!payload.TakeWord(length) || !payload.TakePart(length, body))
            return false;
        if (ReadNumbers(body, itemData))
            continue;
        itemData.flags = 0;
        if (!ReadRecord(body, itemData) ||
            !AreMandatoryRowsSet(&itemData, Description<typename Item::RecordData>::ROWS))
            return false;
    }
    row.In(data).Adopt(items);
    SetFlag(data, row.setBy);
    return payload.Left() == 0;
}

template <class Data>
bool ReadRecord(ByteRange body, Data& data)
{
    while (body.Left() > 0) {
        qint32 tag = 0;
        qint32 length = 0;
        ByteRange payload = {};
        if (!body.TakeWord(tag) || !body.TakeWord(length) || !body.TakePart(length, payload))
            return false;
        if (!AnyOfFields(Description<Data>::ROWS,
                         [&](const auto& row) { return ReadElement(payload, tag, data, row); }))
            return false;
    }
    return true;
}

} // namespace REPORTGENERATOR

#endif
