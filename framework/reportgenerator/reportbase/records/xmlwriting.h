#ifndef REPORTGENERATOR_RECORDS_XMLWRITING_H
#define REPORTGENERATOR_RECORDS_XMLWRITING_H

#include <reportgenerator/reportbase/forms/xmlfields.h>
#include <reportgenerator/reportbase/incompletedefinitionexception.h>
#include <reportgenerator/reportbase/records/itemtexts.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/rows.h>
#include <reportgenerator/reportbase/reporting_p.h>

namespace REPORTGENERATOR {

// A record's rows as XML, for every sink. Members and items are written along their own rows, or, carefully,
// by their own operation, which looks what they lack.

/// Members and items write themselves to a caller's writer.
struct CarefulXml : XmlWriterSink
{
    using XmlWriterSink::XmlWriterSink;
};

template <class Sink, class Object>
void WriteObjectXml(Sink& sink, const Object& object);

template <class Object>
void WriteObjectXml(CarefulXml& sink, const Object& object)
{
    object.GetXml(sink.Writer());
}

template <class Sink, class Item, class Data>
void LookAtItem(Sink& /*sink*/, const IRGObject& /*holder*/, const ItemList<Data, Item>& /*row*/,
                const Item& /*item*/)
{
}

template <class Item, class Data>
void LookAtItem(CarefulXml& /*sink*/, const IRGObject& holder, const ItemList<Data, Item>& row,
                const Item& item)
{
    if (item.HasData())
        return;
    reporting::Questionable(holder,
                            IncompleteDefinitionException(row.incompleteWritten(holder.GetObjectName())));
}

template <class Sink, class Data, class D, class T>
void WriteRowXml(Sink& sink, const IRGObject& /*object*/, const Data& data, const Field<D, T, Flagged>& row)
{
    WriteXmlField(sink, data, row);
}

template <class Sink, class Data>
void WriteRowXml(Sink& sink, const IRGObject& /*object*/, const Data& /*data*/,
                 const FormatVersion<Data>& row)
{
    sink.Attribute(row.name, row.model, NumberFormat());
}

template <class Sink, class Data, class Object>
void WriteRowXml(Sink& sink, const IRGObject& /*object*/, const Data& data, const Member<Data, Object>& row)
{
    if (row.IsSetIn(data))
        WriteObjectXml(sink, row.In(data));
}

template <class Sink, class Data, class Item>
void WriteRowXml(Sink& sink, const IRGObject& object, const Data& data, const ItemList<Data, Item>& row)
{
    // Held, since a logger or the writer's device may change the list.
    const QVector<Item> items = row.In(data).Values();
    for (const Item& item : items) {
        LookAtItem(sink, object, row, item);
        if (row.IsSetIn(data))
            WriteObjectXml(sink, item);
    }
}

template <class Container, class Data, class Item>
void WriteRowXml(XmlText<Container>& sink, const IRGObject& /*object*/, const Data& data,
                 const ItemList<Data, Item>& row)
{
    const QVector<Item>& items = row.In(data).Values();
    if (items.isEmpty() || !row.IsSetIn(data))
        return;
    ItemTexts<Container, typename Item::RecordData> texts(sink);
    texts.WriteFirst(row.name, *RecordAccess::Get(items.first()), items.size());
    std::for_each(items.cbegin() + 1, items.cend(), [&](const Item& item) {
        if (!texts.Write(*RecordAccess::Get(item)))
            WriteObjectXml(sink, item);
    });
}

/// Writes an element called `name` with the rows of the record.
template <class Sink, class ElementName, class Data, class... Rows>
void WriteElementXml(Sink& sink, const ElementName& name, const IRGObject& object, const Data& data,
                     const std::tuple<Rows...>& rows)
{
    sink.Start(name);
    ForEachField(rows, [&](const auto& row) { WriteRowXml(sink, object, data, row); });
    sink.End(name);
}

/// Writes an object that bears the name of its class.
template <class Sink, class Object>
void WriteObjectXml(Sink& sink, const Object& object)
{
    WriteElementXml(sink, RecordAccess::NameOf(object), object, *RecordAccess::Get(object),
                    RecordAccess::RowsOf(object));
}

} // namespace REPORTGENERATOR

#endif
