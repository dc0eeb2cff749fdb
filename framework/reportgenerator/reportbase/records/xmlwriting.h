#ifndef REPORTGENERATOR_RECORDS_XMLWRITING_H
#define REPORTGENERATOR_RECORDS_XMLWRITING_H

#include <reportgenerator/reportbase/codec/xmlfields.h>
#include <reportgenerator/reportbase/incompletedefinitionexception.h>
#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/itemtexts.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/reporting_p.h>

namespace REPORTGENERATOR {

// A record's fields as XML, for every sink. Members and items are written along their own fields, or, carefully,
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
void LookAtItem(Sink& /*sink*/, const IRGObject& /*parent*/, const ItemList<Data, Item>& /*field*/,
                const Item& /*item*/)
{
}

template <class Item, class Data>
void LookAtItem(CarefulXml& /*sink*/, const IRGObject& parent, const ItemList<Data, Item>& field,
                const Item& item)
{
    if (item.HasData())
        return;
    reporting::WarnOrThrow(parent,
                           IncompleteDefinitionException(field.incompleteWritten(parent.GetObjectName())));
}

template <class Sink, class Data, class D, class T>
void WriteFieldXml(Sink& sink, const IRGObject& /*object*/, const Data& data,
                   const ScalarField<D, T, PresenceBit>& field)
{
    WriteXmlField(sink, data, field);
}

template <class Sink, class Data>
void WriteFieldXml(Sink& sink, const IRGObject& /*object*/, const Data& /*data*/,
                   const FormatVersion<Data>& field)
{
    sink.Attribute(field.name, field.model, NumberFormat());
}

template <class Sink, class Data, class Object>
void WriteFieldXml(Sink& sink, const IRGObject& /*object*/, const Data& data,
                   const Member<Data, Object>& field)
{
    if (field.IsSetIn(data))
        WriteObjectXml(sink, field.In(data));
}

template <class Sink, class Data, class Item>
void WriteFieldXml(Sink& sink, const IRGObject& object, const Data& data, const ItemList<Data, Item>& field)
{
    // Held, since a logger or the writer's device may change the list.
    const QVector<Item> items = field.In(data).Values();
    for (const Item& item : items) {
        LookAtItem(sink, object, field, item);
        if (field.IsSetIn(data))
            WriteObjectXml(sink, item);
    }
}

template <class Container, class Data, class Item>
void WriteFieldXml(XmlText<Container>& sink, const IRGObject& /*object*/, const Data& data,
                   const ItemList<Data, Item>& field)
{
    const QVector<Item>& items = field.In(data).Values();
    if (items.isEmpty() || !field.IsSetIn(data))
        return;
    ItemTexts<Container, typename Item::RecordData> texts(sink);
    texts.WriteFirst(field.name, *RecordAccess::Get(items.first()), items.size());
    std::for_each(items.cbegin() + 1, items.cend(), [&](const Item& item) {
        if (!texts.Write(*RecordAccess::Get(item)))
            WriteObjectXml(sink, item);
    });
}

/// Writes an element called `name` with the fields of the record.
template <class Sink, class ElementName, class Data, class... Fields>
void WriteElementXml(Sink& sink, const ElementName& name, const IRGObject& object, const Data& data,
                     const std::tuple<Fields...>& fields)
{
    sink.Start(name);
    ForEachField(fields, [&](const auto& field) { WriteFieldXml(sink, object, data, field); });
    sink.End(name);
}

/// Writes an object that bears the name of its class.
template <class Sink, class Object>
void WriteObjectXml(Sink& sink, const Object& object)
{
    WriteElementXml(sink, RecordAccess::NameOf(object), object, *RecordAccess::Get(object),
                    RecordAccess::FieldsOf(object));
}

} // namespace REPORTGENERATOR

#endif
