#ifndef REPORTGENERATOR_RECORDS_XMLREADING_H
#define REPORTGENERATOR_RECORDS_XMLREADING_H

#include <reportgenerator/reportbase/forms/xmlfields.h>
#include <reportgenerator/reportbase/frames/elementtext.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/rows.h>
#include <reportgenerator/reportbase/records/storing.h>

namespace REPORTGENERATOR {

// A record's rows from a caller's XML reader, which stands on a child element. Each function reads the child
// if it is the row's and returns whether it was.

template <class Object, class D, class T>
bool ReadRowXml(Object& object, QXmlStreamReader& reader, const Field<D, T, Flagged>& row)
{
    return ReadXmlElement(
        reader.name(), row, [&](T& value) { ReadElementText(object, reader, value); },
        [&object](const auto& field, const T& value) { StoreValue(object, field, value); });
}

template <class Object, class Data>
bool ReadRowXml(Object& /*object*/, QXmlStreamReader& /*reader*/, const FormatVersion<Data>& /*row*/)
{
    return false;
}

template <class Object, class Data, class T>
bool ReadRowXml(Object& object, QXmlStreamReader& reader, const Member<Data, T>& row)
{
    T& member = row.In(RecordAccess::Make(object));
    if (reader.name() != member.GetObjectName())
        return false;
    const auto record = RecordAccess::Hold(object);
    member.ProcessXml(reader);
    SetFlag(RecordAccess::Make(object), row.setBy);
    return true;
}

template <class Object, class Data, class Item>
bool ReadRowXml(Object& object, QXmlStreamReader& reader, const ItemList<Data, Item>& row)
{
    if (!(reader.name() == row.name))
        return false;
    ReadItem(object, row, [&reader](Item& item) { item.ProcessXml(reader); });
    return true;
}

/// Reads the child that the reader stands on. Returns whether it belongs to the object.
template <class Object>
bool ReadXmlChild(Object& object, QXmlStreamReader& reader)
{
    return AnyOfFields(RecordAccess::RowsOf(object),
                       [&](const auto& row) { return ReadRowXml(object, reader, row); });
}

} // namespace REPORTGENERATOR

#endif
