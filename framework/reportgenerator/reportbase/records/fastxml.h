#ifndef REPORTGENERATOR_RECORDS_FASTXML_H
#define REPORTGENERATOR_RECORDS_FASTXML_H

#include <reportgenerator/reportbase/codec/xmlscanner.h>
#include <reportgenerator/reportbase/records/stagingrecord.h>

#include <QtCore/QVector>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <tuple>

namespace REPORTGENERATOR {

// A staging record from XML of the shape that the library writes.

template <class Unit, class Data>
bool ReadRecord(XmlScanner<Unit>& scanner, const Name& name, Data& data);

/// Fields that are attributes. One that isn't there is none.
template <class Unit, class Data, class Field>
bool ReadAttribute(XmlScanner<Unit>& /*scanner*/, Data& /*data*/, const Field& /*field*/)
{
    return true;
}

template <class Unit, class Data, class D, class T>
bool ReadAttribute(XmlScanner<Unit>& scanner, Data& data, const ScalarField<D, T, PresenceBit>& field)
{
    if (field.place == Place::Attribute) {
        T value{};
        if (scanner.Attribute(field.name, [&value](auto& source) { return source.Read(value); }))
            return PutValue(data, field, value);
    }
    return true;
}

template <class Unit, class Data>
bool ReadAttribute(XmlScanner<Unit>& scanner, Data& data, const FormatVersion<Data>& field)
{
    if (!scanner.Attribute(field.name, [&field](auto& source) { return source.Take(field.model); }))
        return false;
    data.*(field.loaded) = field.model.Text();
    return true;
}

/// Fields that are child elements or the element's text. A child that isn't there is none.
template <class Unit, class Data>
bool ReadContent(XmlScanner<Unit>& /*scanner*/, Data& /*data*/, const FormatVersion<Data>& /*field*/)
{
    return true;
}

template <class Unit, class Data, class D, class T>
bool ReadContent(XmlScanner<Unit>& scanner, Data& data, const ScalarField<D, T, PresenceBit>& field)
{
    if (field.place == Place::Attribute)
        return true;
    if (field.place == Place::Element && !scanner.EnterTag(field.name))
        return true;
    T value{};
    if (field.place == Place::Element && !scanner.LeaveTag())
        return false;
    if (!scanner.Read(value) || !PutValue(data, field, value))
        return false;
    return field.place == Place::Text || scanner.TakeEndTag(field.name);
}

template <class Unit, class Data, class Object>
bool ReadContent(XmlScanner<Unit>& scanner, Data& data, const Member<Data, Object>& field)
{
    Object& member = field.In(data);
    if (!scanner.EnterTag(RecordAccess::NameOf(member)))
        return true;
    SetFlag(data, field.setBy);
    return ReadRecord(scanner, RecordAccess::NameOf(member), RecordAccess::Make(member));
}

/// What stands around the values of an item. Items that a program writes differ in their values only.
template <class Unit, std::size_t Count>
struct ItemPattern
{
    struct Piece
    {
        const Unit* begin = nullptr;
        const Unit* end = nullptr;

        bool IsAt(const Unit* next, const Unit* textEnd) const
        {
            const auto size = end - begin;
            return textEnd - next >= size && std::memcmp(begin, next, std::size_t(size) * sizeof(Unit)) == 0;
        }
    };

    Piece before[Count];
    Piece behind;
    bool isKnown = false;
};

/// Reads an item whose fields all are numbers in elements of their own, one by one, and learns the pattern.
template <class Unit, class Data, class Pattern>
bool ReadItemByTags(XmlScanner<Unit>& scanner, const Name& name, Data& data, Pattern& pattern)
{
    const Unit* piece = scanner.Next();
    if (!scanner.EnterTag(name) || !scanner.LeaveTag())
        return false;
    std::size_t index = 0;
    const bool isGood = AllOfFields(Schema<Data>::FIELDS, [&](const auto& field) {
        double value = 0.0;
        if (!scanner.EnterTag(field.name) || !scanner.LeaveTag())
            return false;
        pattern.before[index++] = {piece, scanner.Next()};
        if (!scanner.Read(value) || !PutValue(data, field, value))
            return false;
        piece = scanner.Next();
        return scanner.TakeEndTag(field.name);
    });
    if (!isGood || !scanner.EndTag(name))
        return false;
    pattern.behind = {piece, scanner.Next()};
    pattern.isKnown = true;
    return true;
}

/// Reads an item that looks like the one before. Otherwise the scanner stays where it is, and the record is
/// as it may.
template <class Unit, class Data, class Pattern>
bool ReadItemByPattern(XmlScanner<Unit>& scanner, Data& data, const Pattern& pattern)
{
    const Unit* next = scanner.Next();
    std::size_t index = 0;
    const bool isGood = AllOfFields(Schema<Data>::FIELDS, [&](const auto& field) {
        const auto& piece = pattern.before[index++];
        if (!piece.IsAt(next, scanner.End()))
            return false;
        double value = 0.0;
        next = numbers::ReadFixedPrefix(next + (piece.end - piece.begin), scanner.End(), value);
        return next && PutValue(data, field, value);
    });
    if (!isGood || !pattern.behind.IsAt(next, scanner.End()))
        return false;
    scanner.SetNext(next + (pattern.behind.end - pattern.behind.begin));
    return true;
}

/// At most so many items of that name can follow: each has a tag of its own, and so has each of its fields.
template <class ItemData, class Unit>
int MostItems(const XmlScanner<Unit>& scanner)
{
    constexpr auto tagsOfItem = 2 * (1 + std::tuple_size_v<std::decay_t<decltype(Schema<ItemData>::FIELDS)>>);
    return static_cast<int>(scanner.CountTags() / qint64(tagsOfItem));
}

template <class Unit, class Data, class Item>
bool ReadContent(XmlScanner<Unit>& scanner, Data& data, const ItemList<Data, Item>& field)
{
    using ItemData = typename Item::RecordData;
    ItemPattern<Unit, std::tuple_size_v<std::decay_t<decltype(Schema<ItemData>::FIELDS)>>> pattern;
    QVector<Item> items(MostItems<ItemData>(scanner));
    int count = 0;
    while (count < items.size()) {
        ItemData& item = RecordAccess::Make(items[count]);
        if (pattern.isKnown && ReadItemByPattern(scanner, item, pattern)) {
            ++count;
            continue;
        }
        // What stands behind them may look like the items before.
        if (scanner.PassComments())
            continue;
        item.flags = 0;
        const Unit* const before = scanner.Next();
        if (!scanner.EnterTag(field.name))
            break;
        scanner.SetNext(before);
        if (!ReadItemByTags(scanner, field.name, item, pattern))
            return false;
        ++count;
    }
    if (count == 0)
        return true;
    items.resize(count);
    field.In(data).Take(items);
    SetFlag(data, field.setBy);
    return true;
}

/// Reads the fields of an element whose tag has been entered, up to its end.
template <class Unit, class Data>
bool ReadRecord(XmlScanner<Unit>& scanner, const Name& name, Data& data)
{
    const auto& fields = Schema<Data>::FIELDS;
    return AllOfFields(fields, [&](const auto& field) { return ReadAttribute(scanner, data, field); }) &&
           scanner.LeaveTag() &&
           AllOfFields(fields, [&](const auto& field) { return ReadContent(scanner, data, field); }) &&
           scanner.EndTag(name);
}

/// Reads a text that holds one element and nothing else.
template <class Unit, class Data>
bool ReadDocument(XmlScanner<Unit> scanner, Data& data)
{
    const Name& name = Schema<Data>::NAME;
    return scanner.EnterTag(name) && ReadRecord(scanner, name, data) && scanner.IsAtEndOfBlanks();
}

} // namespace REPORTGENERATOR

#endif
