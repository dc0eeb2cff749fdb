#ifndef REPORTGENERATOR_RECORDS_TAGGED_H
#define REPORTGENERATOR_RECORDS_TAGGED_H

#include <reportgenerator/reportbase/forms/taggedsinks.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/rows.h>
#include <reportgenerator/reportbase/records/storing.h>

namespace REPORTGENERATOR {

// A record's rows as tagged elements, for every sink. Members and items are written along their own rows; on
// a caller's stream by their own operation, which looks what they lack.

/// Bytes of the tagged body of an item whose texts have so many characters more than the shortest ones.
template <class Data, class Item>
constexpr qint64 SizeOfBody(const ItemList<Data, Item>& /*row*/, qint64 moreDigits)
{
    qint64 size = wire::WORD_SIZE;
    ForEachField(Description<typename Item::RecordData>::ROWS, [&size, moreDigits](const auto& field) {
        const qint64 digitsAndPoint = 2 + field.format.decimals;
        size += 3 * wire::WORD_SIZE + digitsAndPoint + moreDigits;
    });
    return size;
}

template <class Data, class Item>
constexpr qint64 ShortestBody(const ItemList<Data, Item>& row)
{
    return SizeOfBody(row, 0);
}

/// With three digits before the point and a sign, as most are at most.
template <class Data, class Item>
constexpr qint64 LongestBody(const ItemList<Data, Item>& row)
{
    return SizeOfBody(row, 3);
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
    constexpr auto& rows = Description<ItemData>::ROWS;
    const ItemData& data = *RecordAccess::Get(item);
    const bool isWritten =
        sink.NumbersBody(std::tuple_size_v<std::decay_t<decltype(rows)>>, [&](auto&& writeNumber) {
            return AllOfFields(
                rows, [&](const auto& row) { return writeNumber(row.setBy.tag, row.In(data), row.format); });
        });
    if (!isWritten)
        WriteObjectBody(sink, item, tag, false);
}

template <class Sink, class Data, class D, class T>
void WriteRowElement(Sink& sink, const Data& data, const Field<D, T, Flagged>& row)
{
    if (row.IsWrittenOf(data))
        sink.Element(row.setBy.tag, [&] { sink.Value(row.In(data), row.format); });
}

template <class Sink, class Data>
void WriteRowElement(Sink& sink, const Data& /*data*/, const FormatVersion<Data>& row)
{
    sink.Element(row.tag, [&] { sink.Text(row.model.Text()); });
}

template <class Sink, class Data, class Object>
void WriteRowElement(Sink& sink, const Data& data, const Member<Data, Object>& row)
{
    if (row.IsSetIn(data))
        WriteObjectBody(sink, row.In(data), row.setBy.tag, true);
}

template <class Sink, class Data, class Item>
void WriteRowElement(Sink& sink, const Data& data, const ItemList<Data, Item>& row)
{
    // Held, since a logger or the stream's device may change the list.
    const QVector<Item> items = row.In(data).Values();
    sink.Element(row.setBy.tag, [&] {
        sink.Word(static_cast<qint32>(items.size()));
        if (!row.IsSetIn(data))
            return;
        sink.ExpectBodies(items.size(), LongestBody(row));
        for (const Item& item : items)
            WriteItemBody(sink, item, row.setBy.tag);
    });
}

template <class Sink, class Data, class... Rows>
void WriteRecordBody(Sink& sink, qint32 tag, bool withTag, const Data& data, const std::tuple<Rows...>& rows)
{
    sink.Body(tag, withTag,
              [&] { ForEachField(rows, [&](const auto& row) { WriteRowElement(sink, data, row); }); });
}

template <class Sink, class Object>
void WriteObjectBody(Sink& sink, const Object& object, qint32 tag, bool withTag)
{
    WriteRecordBody(sink, tag, withTag, *RecordAccess::Get(object), RecordAccess::RowsOf(object));
}

// Reading, from a stream. Each function reads the payload of the element `tag` if it is the row's and returns
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
bool ReadRowElement(Object& object, QDataStream& stream, qint32 tag, qint32 /*length*/,
                    const Field<D, T, Flagged>& row)
{
    if (tag != row.setBy.tag)
        return false;
    T value{};
    ReadPayload(stream, value);
    StoreValue(object, row, value);
    return true;
}

template <class Object, class Data>
bool ReadRowElement(Object& object, QDataStream& stream, qint32 tag, qint32 /*length*/,
                    const FormatVersion<Data>& row)
{
    if (tag != row.tag)
        return false;
    TakeVersion(object, row, elements::ReadText(stream));
    return true;
}

template <class Object, class Data, class T>
bool ReadRowElement(Object& object, QDataStream& stream, qint32 tag, qint32 length,
                    const Member<Data, T>& row)
{
    if (tag != row.setBy.tag)
        return false;
    T& member = row.In(RecordAccess::Make(object));
    const auto record = RecordAccess::Hold(object);
    member.SetBinary(stream, length);
    SetFlag(RecordAccess::Make(object), row.setBy);
    return true;
}

template <class Object, class Data, class Item>
bool ReadRowElement(Object& object, QDataStream& stream, qint32 tag, qint32 /*length*/,
                    const ItemList<Data, Item>& row)
{
    if (tag != row.setBy.tag)
        return false;
    qint32 count = 0;
    stream >> count;
    ReserveItems(object, row, count, elements::BytesToMakeRoomFor(stream) / ShortestBody(row));
    for (qint32 i = 0; i < count; ++i) {
        qint32 length = 0;
        if (!elements::TakeWord(stream, length))
            reporting::ThrowLengthError(object);
        ReadItem(object, row, [&](Item& item) { item.SetBinary(stream, length); });
    }
    return true;
}

} // namespace REPORTGENERATOR

#endif
