#ifndef REPORTGENERATOR_RECORDS_FASTELEMENTS_H
#define REPORTGENERATOR_RECORDS_FASTELEMENTS_H

#include <reportgenerator/reportbase/codec/byterange.h>
#include <reportgenerator/reportbase/codec/taggedelements.h>
#include <reportgenerator/reportbase/records/stagingrecord.h>
#include <reportgenerator/reportbase/records/tagged.h>

#include <QtCore/QVector>

namespace REPORTGENERATOR {

// A staging record from tagged elements whose lengths fit together.

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
bool ReadElement(ByteRange payload, qint32 tag, Data& data, const ScalarField<D, T, PresenceBit>& field)
{
    T value{};
    return tag == field.setBy.tag && ReadPayload(payload, value) && PutValue(data, field, value);
}

template <class Data>
bool ReadElement(ByteRange payload, qint32 tag, Data& data, const FormatVersion<Data>& field)
{
    const bool isSecond = !(data.*(field.loaded)).isNull();
    if (tag != field.tag || isSecond || !payload.TakeSizeOfRest() || !payload.HoldsText(field.model))
        return false;
    data.*(field.loaded) = field.model.Text();
    return true;
}

template <class Data, class Object>
bool ReadElement(ByteRange payload, qint32 tag, Data& data, const Member<Data, Object>& field)
{
    if (tag != field.setBy.tag || field.IsSetIn(data))
        return false;
    SetFlag(data, field.setBy);
    return ReadRecord(payload, RecordAccess::Make(field.In(data)));
}

/// Reads an item that holds all its numbers in the order in which they are written, as items do. Otherwise
/// the record is as it may.
template <class ItemData>
bool ReadNumbers(ByteRange body, ItemData& data)
{
    const bool isRead = AllOfFields(Schema<ItemData>::FIELDS, [&](const auto& field) {
        qint32 tag = 0;
        qint32 length = 0;
        ByteRange payload = {};
        double value = 0.0;
        return body.TakeWord(tag) && tag == field.setBy.tag && body.TakeWord(length) &&
               body.TakePart(length, payload) && ReadPayload(payload, value) && PutValue(data, field, value);
    });
    return isRead && body.Left() == 0;
}

template <class Data, class Item>
bool ReadElement(ByteRange payload, qint32 tag, Data& data, const ItemList<Data, Item>& field)
{
    qint32 count = 0;
    if (tag != field.setBy.tag || field.IsSetIn(data) || !payload.TakeWord(count) || count < 0 ||
        count > payload.Left() / ShortestBody(field))
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
            !AreMandatoryFieldsSet(&itemData, Schema<typename Item::RecordData>::FIELDS))
            return false;
    }
    field.In(data).Take(items);
    SetFlag(data, field.setBy);
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
        if (!AnyOfFields(Schema<Data>::FIELDS,
                         [&](const auto& field) { return ReadElement(payload, tag, data, field); }))
            return false;
    }
    return true;
}

} // namespace REPORTGENERATOR

#endif
