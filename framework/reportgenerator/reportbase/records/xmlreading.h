#ifndef REPORTGENERATOR_RECORDS_XMLREADING_H
#define REPORTGENERATOR_RECORDS_XMLREADING_H

#include <reportgenerator/reportbase/codec/xmlfields.h>
#include <reportgenerator/reportbase/envelope/elementtext.h>
#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/storing.h>

namespace REPORTGENERATOR {

// A record's fields from a caller's XML reader, which stands on a child element. Each function reads the child
// if it is the field's and returns whether it was.

template <class Object, class D, class T>
bool ReadFieldXml(Object& object, QXmlStreamReader& reader, const ScalarField<D, T, PresenceBit>& field)
{
    return ReadXmlElement(
        reader.name(), field, [&](T& value) { ReadElementText(object, reader, value); },
        [&object](const auto& read, const T& value) { StoreValue(object, read, value); });
}

template <class Object, class Data>
bool ReadFieldXml(Object& /*object*/, QXmlStreamReader& /*reader*/, const FormatVersion<Data>& /*field*/)
{
    return false;
}

template <class Object, class Data, class T>
bool ReadFieldXml(Object& object, QXmlStreamReader& reader, const Member<Data, T>& field)
{
    T& member = field.In(RecordAccess::Make(object));
    if (reader.name() != member.GetObjectName())
        return false;
    const auto record = RecordAccess::Hold(object);
    member.ProcessXml(reader);
    SetFlag(RecordAccess::Make(object), field.setBy);
    return true;
}

template <class Object, class Data, class Item>
bool ReadFieldXml(Object& object, QXmlStreamReader& reader, const ItemList<Data, Item>& field)
{
    if (!(reader.name() == field.name))
        return false;
    ReadItem(object, field, [&reader](Item& item) { item.ProcessXml(reader); });
    return true;
}

/// Reads the child that the reader stands on. Returns whether it belongs to the object.
template <class Object>
bool ReadXmlChild(Object& object, QXmlStreamReader& reader)
{
    return AnyOfFields(RecordAccess::FieldsOf(object),
                       [&](const auto& field) { return ReadFieldXml(object, reader, field); });
}

} // namespace REPORTGENERATOR

#endif
