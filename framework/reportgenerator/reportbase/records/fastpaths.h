#ifndef REPORTGENERATOR_RECORDS_FASTPATHS_H
#define REPORTGENERATOR_RECORDS_FASTPATHS_H

#include <reportgenerator/reportbase/envelope/fastpath.h>
#include <reportgenerator/reportbase/records/checking.h>
#include <reportgenerator/reportbase/records/fastelements.h>
#include <reportgenerator/reportbase/records/fastxml.h>
#include <reportgenerator/reportbase/records/settingsof.h>
#include <reportgenerator/reportbase/records/tagged.h>
#include <reportgenerator/reportbase/records/xmlwriting.h>

namespace REPORTGENERATOR {

// --- Whether writing has nothing to tell ------------------------------------------------------------------

/// Whether the object is called like its class, and so are its members, and what is written has a record.
/// Objects that validate must have data; without validation XML warns of incomplete items.
template <class Object>
bool IsPlain(const Object& object, bool warnsOfItems);

template <class Data, class Field>
bool IsFieldPlain(const Data& /*data*/, const Field& /*field*/, bool /*warnsOfItems*/)
{
    return true;
}

template <class Data, class Object>
bool IsFieldPlain(const Data& data, const Member<Data, Object>& field, bool warnsOfItems)
{
    return !field.IsSetIn(data) || IsPlain(field.In(data), warnsOfItems);
}

template <class Data, class Item>
bool IsFieldPlain(const Data& data, const ItemList<Data, Item>& field, bool warnsOfItems)
{
    const ObjectIdentity* const identity = &ClassIdentity<typename Item::RecordData>();
    return AllOfItems(field.In(data).Values(), [&](const Item& item) {
        const auto* itemData = RecordAccess::Get(item);
        return itemData && ObjectAccess::HasIdentity(item, identity) &&
               (!warnsOfItems || AreMandatoryFieldsSet(itemData, Schema<typename Item::RecordData>::FIELDS));
    });
}

template <class Object>
bool IsPlain(const Object& object, bool warnsOfItems)
{
    using Data = typename Object::RecordData;
    const Data* data = RecordAccess::Get(object);
    if (!data || !ObjectAccess::HasIdentity(object, &ClassIdentity<Data>()))
        return false;
    const bool validates = ObjectAccess::Validates(object);
    if (validates && !object.Object::HasData())
        return false;
    return AllOfFields(Schema<Data>::FIELDS, [&](const auto& field) {
        return IsFieldPlain(*data, field, warnsOfItems && !validates);
    });
}

// --- Whether elements bear the names that are read ----------------------------------------------------------

/// Whether the members are called like their classes. Their own names are those of their elements, and stay when the
/// object is reset.
template <class Object>
bool HaveMembersClassNames(const Object& object);

template <class Data, class Field>
bool HasFieldClassName(const Data& /*data*/, const Field& /*field*/)
{
    return true;
}

template <class Data, class Object>
bool HasFieldClassName(const Data& data, const Member<Data, Object>& field)
{
    const Object& member = field.In(data);
    return ObjectAccess::HasIdentity(member, &ClassIdentity<typename Object::RecordData>()) &&
           HaveMembersClassNames(member);
}

template <class Object>
bool HaveMembersClassNames(const Object& object)
{
    const auto* data = RecordAccess::Get(object);
    return !data || AllOfFields(RecordAccess::FieldsOf(object),
                                [data](const auto& field) { return HasFieldClassName(*data, field); });
}

// --- The fast path ---------------------------------------------------------------------------------------------

template <class T>
struct FastPathFor
{
    using Data = typename T::RecordData;

    static const FastPath FAST_PATH;

private:
    static const T& From(const IRGObject& object) { return static_cast<const T&>(object); }
    static T& From(IRGObject& object) { return static_cast<T&>(object); }

    static void PassSettings(const IRGObject& object) { PassSettingsToMembers(From(object)); }

    template <class Container>
    static bool WriteXml(const IRGObject& object, Container& xml)
    {
        RecordAccess::Init(From(object));
        if (!IsPlain(From(object), true))
            return false;
        XmlText<Container> sink;
        WriteObjectXml(sink, From(object));
        xml = std::move(sink).Take();
        return true;
    }

    static bool WriteBody(const IRGObject& object, qint32 tag, bool withTag, Buffer<QByteArray>& out)
    {
        RecordAccess::Init(From(object));
        if (!IsPlain(From(object), false))
            return false;
        ElementBytes sink(out);
        WriteObjectBody(sink, From(object), tag, withTag);
        return true;
    }

    template <class Unit>
    static bool ReadXml(IRGObject& object, const Unit* begin, qint64 size)
    {
        if (!HaveMembersClassNames(From(object)))
            return false;
        Data data;
        if (!ReadDocument(XmlScanner<Unit>(begin, begin + size), data))
            return false;
        if (ObjectAccess::Validates(object) && !AreFieldsGood(data, Schema<Data>::FIELDS))
            return false;
        object.Reset();
        // An element without children passes nothing on; the check does.
        Take(object, data, data.flags != 0 || ObjectAccess::Validates(object));
        return true;
    }

    static bool ReadXmlText(IRGObject& object, const QString& xml)
    {
        return ReadXml(object, UnitsOf(xml), xml.size());
    }

    static bool ReadXmlBytes(IRGObject& object, const QByteArray& xml)
    {
        return ReadXml(object, xml.constData(), xml.size());
    }

    static bool ReadBody(IRGObject& object, const char* body, qint64 size)
    {
        Data data;
        if (!ReadRecord(ByteRange{body, body + size}, data))
            return false;
        object.Reset();
        Take(object, data, true);
        return true;
    }

    static void Take(IRGObject& object, Data& data, bool passesSettings)
    {
        RecordAccess::Init(From(object));
        TakeRecord(RecordAccess::Make(From(object)), data, object);
        if (passesSettings)
            PassSettings(object);
    }
};

template <class T>
const FastPath FastPathFor<T>::FAST_PATH = {&typeid(T), PassSettings, WriteXml<QString>, WriteXml<QByteArray>,
                                            WriteBody,  ReadXmlText,  ReadXmlBytes,      ReadBody};

} // namespace REPORTGENERATOR

#endif
