#ifndef REPORTGENERATOR_RECORDS_RECORDACCESS_H
#define REPORTGENERATOR_RECORDS_RECORDACCESS_H

#include <reportgenerator/reportbase/codec/name.h>
#include <reportgenerator/reportbase/envelope/objectaccess.h>
#include <reportgenerator/reportbase/recordobject.h>
#include <reportgenerator/reportbase/records/fields.h>

namespace REPORTGENERATOR {

/// What a class with a record consists of; specialised next to the record with
/// - ID: the number that identifies the class,
/// - NAME: the name of its objects,
/// - FIELDS: a tuple of its fields in writing order.
template <class Data>
struct Schema;

/// What all objects of the class point at. Instantiated in the source of the class.
template <class Data>
const ObjectIdentity& ClassIdentity();

/// What the operations on fields know of an object with a record.
struct RecordAccess
{
    /// Null while there is none.
    template <class Data, class Storage>
    static const Data* Get(const RecordObject<Data, Storage>& object)
    {
        return object.m_record.Get();
    }

    /// Makes the record as an access to a field does.
    template <class Data, class Storage>
    static void Init(const RecordObject<Data, Storage>& object)
    {
        if (!Get(object))
            object.InitData();
    }

    /// The record for writing, made if there is none.
    template <class Data, class Storage>
    static Data& Make(RecordObject<Data, Storage>& object)
    {
        object.m_record.Make([](Data& /*data*/) {});
        return object.m_record.Own();
    }

    /// The record that the object has now, for whoever calls others before it is done.
    template <class Data, class Storage>
    static typename Storage::Hold Hold(const RecordObject<Data, Storage>& object)
    {
        return typename Storage::Hold(object.m_record);
    }

    /// The same for const operations of its members and items, which speak through their own loggers: the
    /// items are nobody else's.
    template <class Data, class Storage>
    static typename Storage::Hold HoldDetached(const RecordObject<Data, Storage>& object)
    {
        const Data& data = *object.m_record.Get();
        ForEachField(Schema<Data>::FIELDS, [&data](const auto& field) { DetachItems(data, field); });
        return Hold(object);
    }

    template <class Data, class Storage>
    static constexpr const auto& FieldsOf(const RecordObject<Data, Storage>& /*object*/)
    {
        return Schema<Data>::FIELDS;
    }

    template <class Data, class Storage>
    static constexpr const Name& NameOf(const RecordObject<Data, Storage>& /*object*/)
    {
        return Schema<Data>::NAME;
    }
};

} // namespace REPORTGENERATOR

#endif
