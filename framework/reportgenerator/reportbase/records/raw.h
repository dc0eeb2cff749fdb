#ifndef REPORTGENERATOR_RECORDS_RAW_H
#define REPORTGENERATOR_RECORDS_RAW_H

#include <reportgenerator/reportbase/codec/streampiece.h>
#include <reportgenerator/reportbase/codec/taggedelements.h>
#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/storing.h>

#include <QtCore/QtEndian>

namespace REPORTGENERATOR {

// The raw form: the flag byte, then the fields in the order of their bits as plain stream values. The version
// has no bit and stands in front.

template <class Visit, class... Fields>
void ForEachFieldByBit(const std::tuple<Fields...>& fields, Visit&& visit)
{
    for (int bit = BIT_OF_VERSION; bit < static_cast<int>(sizeof...(Fields)); ++bit) {
        ForEachField(fields, [&](const auto& field) {
            if (BitOf(field) == bit)
                visit(field);
        });
    }
}

// Items whose fields all are numbers have a raw form of always the same size: a list of them goes in one
// piece where the stream takes it.

/// Bytes of the raw form of an item.
template <class ItemData>
constexpr qint64 RawSize()
{
    qint64 size = sizeof(quint8);
    ForEachField(Schema<ItemData>::FIELDS, [&size](const auto& field) {
        size += qint64(sizeof(typename std::decay_t<decltype(field)>::Value));
    });
    return size;
}

template <class Item>
bool WriteItemsAtOnce(QDataStream& stream, const QVector<Item>& items)
{
    using ItemData = typename Item::RecordData;
    if (!streampiece::CanWrite(stream) || !streampiece::HasDoubles(stream))
        return false;
    Buffer<QByteArray> bytes;
    char* next = bytes.Room(items.size() * RawSize<ItemData>());
    for (const Item& item : items) {
        const ItemData* const data = RecordAccess::Get(item);
        if (!data)
            return false;
        *next++ = static_cast<char>(data->flags);
        ForEachField(Schema<ItemData>::FIELDS, [&](const auto& field) {
            qToBigEndian(field.In(*data), next);
            next += sizeof(field.In(*data));
        });
    }
    bytes.SetEnd(next);
    streampiece::Write(stream, bytes);
    return true;
}

/// Reads items from their bytes. Returns false when one lacks a field.
template <class Item>
bool TakeRawItems(const char* bytes, Item* begin, Item* end)
{
    using ItemData = typename Item::RecordData;
    for (Item* item = begin; item != end; ++item) {
        ItemData& data = RecordAccess::Make(*item);
        data.flags = static_cast<quint8>(*bytes++);
        ForEachField(Schema<ItemData>::FIELDS, [&](const auto& field) {
            field.In(data) = qFromBigEndian<double>(bytes);
            bytes += sizeof(field.In(data));
        });
        if (!AreMandatoryFieldsSet(&data, Schema<ItemData>::FIELDS))
            return false;
    }
    return true;
}

/// So many are read at once, so that their bytes need little room.
constexpr qint32 ITEMS_AT_ONCE = 4096;

/// Appends up to so many items, as far as the stream holds them whole and each has all its fields. Returns
/// how many.
template <class Object, class Data, class Item>
qint32 ReadItemsAtOnce(Object& object, QDataStream& stream, const ItemList<Data, Item>& field, qint32 count)
{
    if (count <= 0 || !ObjectAccess::FastPathOf(object) || !streampiece::HasDoubles(stream))
        return 0;
    QVector<Item>& items = field.In(RecordAccess::Make(object)).Detached();
    const auto before = items.size();
    bool isRead = true;
    for (qint32 done = 0; done < count && isRead;) {
        const qint32 piece = std::min(count - done, ITEMS_AT_ONCE);
        isRead =
            streampiece::Read(stream, piece * RawSize<typename Item::RecordData>(), [&](const char* bytes) {
                const auto first = items.size();
                items.resize(first + piece);
                const bool isGood = TakeRawItems(bytes, items.data() + first, items.data() + items.size());
                if (!isGood)
                    items.resize(first);
                return isGood;
            });
        done += isRead ? piece : 0;
    }
    SettleRawItems(object, field, static_cast<int>(before));
    return static_cast<qint32>(items.size() - before);
}

// Writing

template <class Data, class D, class T>
void WriteFieldRaw(QDataStream& stream, const Data& data, const ScalarField<D, T, PresenceBit>& field)
{
    if (!field.IsWrittenOf(data))
        return;
    // Held, since the stream's device may change a text.
    const T value = field.In(data);
    stream << value;
}

template <class Data>
void WriteFieldRaw(QDataStream& stream, const Data& /*data*/, const FormatVersion<Data>& field)
{
    stream << field.model.Text();
}

template <class Data, class Object>
void WriteFieldRaw(QDataStream& stream, const Data& data, const Member<Data, Object>& field)
{
    if (field.IsSetIn(data))
        field.In(data).GetVersionSpecificBinaryWithoutValidation(stream);
}

template <class Data, class Item>
void WriteFieldRaw(QDataStream& stream, const Data& data, const ItemList<Data, Item>& field)
{
    const QVector<Item> items = field.In(data).Values();
    stream << static_cast<qint32>(items.size());
    if (!field.IsSetIn(data) || WriteItemsAtOnce(stream, items))
        return;
    for (const Item& item : items)
        item.GetVersionSpecificBinaryWithoutValidation(stream);
}

// Reading

inline void ReadRawValue(QDataStream& stream, double& value)
{
    stream >> value;
}

inline void ReadRawValue(QDataStream& stream, bool& value)
{
    stream >> value;
}

inline void ReadRawValue(QDataStream& stream, QString& value)
{
    value = elements::ReadText(stream);
}

template <class Object, class D, class T>
void ReadFieldRaw(Object& object, QDataStream& stream, const ScalarField<D, T, PresenceBit>& field)
{
    if (!field.IsWrittenOf(RecordAccess::Make(object)))
        return;
    T value{};
    ReadRawValue(stream, value);
    field.In(RecordAccess::Make(object)) = value;
}

template <class Object, class Data>
void ReadFieldRaw(Object& object, QDataStream& stream, const FormatVersion<Data>& field)
{
    TakeVersion(object, field, elements::ReadText(stream));
}

template <class Object, class Data, class T>
void ReadFieldRaw(Object& object, QDataStream& stream, const Member<Data, T>& field)
{
    Data& data = RecordAccess::Make(object);
    const auto record = RecordAccess::Hold(object);
    if (field.IsSetIn(data))
        field.In(data).SetVersionSpecificBinaryWithoutValidation(stream);
}

template <class Object, class Data, class Item>
void ReadFieldRaw(Object& object, QDataStream& stream, const ItemList<Data, Item>& field)
{
    qint32 count = 0;
    stream >> count;
    ReserveItems(object, field, count,
                 elements::BytesToMakeRoomFor(stream) / RawSize<typename Item::RecordData>());
    bool isLast = false;
    for (qint32 i = ReadItemsAtOnce(object, stream, field, count); i < count && !isLast; ++i) {
        // The first one that is missing is offered like the others: it reads as an empty one.
        isLast = !elements::HasByte(stream);
        ReadItem(object, field, [&](Item& item) { item.SetVersionSpecificBinaryWithoutValidation(stream); });
    }
}

} // namespace REPORTGENERATOR

#endif
