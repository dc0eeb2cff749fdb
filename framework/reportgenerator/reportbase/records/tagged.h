#ifndef REPORTGENERATOR_RECORDS_TAGGED_H
#define REPORTGENERATOR_RECORDS_TAGGED_H

#include <reportgenerator/reportbase/codec/taggedsinks.h>
#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/storing.h>

namespace REPORTGENERATOR {

// A record's fields as tagged elements, for every sink. Members and items are written along their own fields; on
// a caller's stream by their own operation, which looks what they lack.

/// Bytes of the tagged body of an item whose texts have so many characters more than the shortest ones.
template <class Data, class Item>
constexpr qint64 SizeOfBody(const ItemList<Data, Item>& /*field*/, qint64 moreDigits)
{
    qint64 size = wire::WORD_SIZE;
    ForEachField(Schema<typename Item::RecordData>::FIELDS, [&size, moreDigits](const auto& field) {
        const qint64 digitsAndPoint = 2 + field.format.decimals;
        size += 3 * wire::WORD_SIZE + digitsAndPoint + moreDigits;
    });
    return size;
}

template <class Data, class Item>
constexpr qint64 ShortestBody(const ItemList<Data, Item>& field)
{
    return SizeOfBody(field, 0);
}

/// With three digits before the point and a sign, as most are at most.
template <class Data, class Item>
constexpr qint64 LongestBody(const ItemList<Data, Item>& field)
{
    return SizeOfBody(field, 3);
}

template <class Sink, class Object>
void WriteObjectBody(Sink& sink, const Object& object, qint32 tag, bool withTag);

template <class Object>
void WriteObjectBody(StreamElements& sink, const Object& object, qint32 tag, bool withTag)
{
    object.GetBinary(sink.Stream(), tag, withTag);
}

template <class Sink, class Item>
void WriteItemBody(Sink& sink, const Item& item, qint32 tag)
{
    WriteObjectBody(sink, item, tag, false);
}

/// The fields of an item all are numbers that are always written.
template <class Item>
void WriteItemBody(ElementBytes& sink, const Item& item, qint32 tag)
{
    using ItemData = typename Item::RecordData;
    constexpr auto& fields = Schema<ItemData>::FIELDS;
    const ItemData& data = *RecordAccess::Get(item);
    const bool isWritten =
        sink.NumbersBody(std::tuple_size_v<std::decay_t<decltype(fields)>>, [&](auto&& writeNumber) {
            return AllOfFields(fields, [&](const auto& field) {
                return writeNumber(field.setBy.tag, field.In(data), field.format);
            });
        });
    if (!isWritten)
        WriteObjectBody(sink, item, tag, false);
}

template <class Sink, class Data, class D, class T>
void WriteFieldElement(Sink& sink, const Data& data, const ScalarField<D, T, PresenceBit>& field)
{
    if (field.IsWrittenOf(data))
        sink.Element(field.setBy.tag, [&] { sink.Value(field.In(data), field.format); });
}

template <class Sink, class Data>
void WriteFieldElement(Sink& sink, const Data& /*data*/, const FormatVersion<Data>& field)
{
    sink.Element(field.tag, [&] { sink.Text(field.model.Text()); });
}

template <class Sink, class Data, class Object>
void WriteFieldElement(Sink& sink, const Data& data, const Member<Data, Object>& field)
{
    if (field.IsSetIn(data))
        WriteObjectBody(sink, field.In(data), field.setBy.tag, true);
}

template <class Sink, class Data, class Item>
void WriteFieldElement(Sink& sink, const Data& data, const ItemList<Data, Item>& field)
{
    // Held, since a logger or the stream's device may change the list.
    const QVector<Item> items = field.In(data).Values();
    sink.Element(field.setBy.tag, [&] {
        sink.Word(static_cast<qint32>(items.size()));
        if (!field.IsSetIn(data))
            return;
        sink.ExpectBodies(items.size(), LongestBody(field));
        for (const Item& item : items)
            WriteItemBody(sink, item, field.setBy.tag);
    });
}

template <class Sink, class Data, class... Fields>
void WriteRecordBody(Sink& sink, qint32 tag, bool withTag, const Data& data,
                     const std::tuple<Fields...>& fields)
{
    sink.Body(tag, withTag, [&] {
        ForEachField(fields, [&](const auto& field) { WriteFieldElement(sink, data, field); });
    });
}

template <class Sink, class Object>
void WriteObjectBody(Sink& sink, const Object& object, qint32 tag, bool withTag)
{
    WriteRecordBody(sink, tag, withTag, *RecordAccess::Get(object), RecordAccess::FieldsOf(object));
}

// Reading, from a stream. Each function reads the payload of the element `tag` if it is the field's and returns
// whether it was.

inline void ReadPayload(QDataStream& stream, double& value)
{
    value = numbers::FromText(elements::ReadUtf8(stream));
}

inline void ReadPayload(QDataStream& stream, bool& value)
{
    stream >> value;
}

inline void ReadPayload(QDataStream& stream, QString& value)
{
    value = elements::ReadUtf8(stream);
}

template <class Object, class D, class T>
bool ReadFieldElement(Object& object, QDataStream& stream, qint32 tag, qint32 /*length*/,
                      const ScalarField<D, T, PresenceBit>& field)
{
    if (tag != field.setBy.tag)
        return false;
    T value{};
    ReadPayload(stream, value);
    StoreValue(object, field, value);
    return true;
}

template <class Object, class Data>
bool ReadFieldElement(Object& object, QDataStream& stream, qint32 tag, qint32 /*length*/,
                      const FormatVersion<Data>& field)
{
    if (tag != field.tag)
        return false;
    TakeVersion(object, field, elements::ReadText(stream));
    return true;
}

template <class Object, class Data, class T>
bool ReadFieldElement(Object& object, QDataStream& stream, qint32 tag, qint32 length,
                      const Member<Data, T>& field)
{
    if (tag != field.setBy.tag)
        return false;
    T& member = field.In(RecordAccess::Make(object));
    const auto record = RecordAccess::Hold(object);
    member.SetBinary(stream, length);
    SetFlag(RecordAccess::Make(object), field.setBy);
    return true;
}

template <class Object, class Data, class Item>
bool ReadFieldElement(Object& object, QDataStream& stream, qint32 tag, qint32 /*length*/,
                      const ItemList<Data, Item>& field)
{
    if (tag != field.setBy.tag)
        return false;
    qint32 count = 0;
    stream >> count;
    ReserveItems(object, field, count, elements::BytesToMakeRoomFor(stream) / ShortestBody(field));
    for (qint32 i = 0; i < count; ++i) {
        qint32 length = 0;
        if (!elements::TakeWord(stream, length))
            reporting::ThrowLengthError(object);
        ReadItem(object, field, [&](Item& item) { item.SetBinary(stream, length); });
    }
    return true;
}

} // namespace REPORTGENERATOR

#endif
