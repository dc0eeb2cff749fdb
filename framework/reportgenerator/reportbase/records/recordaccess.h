#ifndef REPORTGENERATOR_RECORDS_RECORDACCESS_H
#define REPORTGENERATOR_RECORDS_RECORDACCESS_H

#include <reportgenerator/reportbase/forms/name.h>
#include <reportgenerator/reportbase/frames/objectaccess.h>
#include <reportgenerator/reportbase/recordobject.h>
#include <reportgenerator/reportbase/records/rows.h>

namespace REPORTGENERATOR {

/// What a class with a record consists of; specialised next to the record with
/// - ID: the number that identifies the class,
/// - NAME: the name of its objects,
/// - ROWS: a tuple of its rows in writing order.
template <class Data>
struct Description;

/// What all objects of the class point at. Instantiated in the source of the class.
template <class Data>
const ObjectIdentity& ClassIdentity();

/// What the walks along the rows know of an object with a record.
struct RecordAccess
{
    /// Null while there is none.
    template <class Data, class Holder>
    static const Data* Get(const RecordObject<Data, Holder>& object)
    {
        return object.m_record.Get();
    }

    /// Makes the record as an access to a field does.
    template <class Data, class Holder>
    static void Init(const RecordObject<Data, Holder>& object)
    {
        object.InitData();
    }

    /// The record for writing, made if there is none.
    template <class Data, class Holder>
    static Data& Make(RecordObject<Data, Holder>& object)
    {
        object.m_record.Make([](Data& /*data*/) {});
        return object.m_record.Own();
    }

    /// The record that the object has now, for whoever calls others before it is done.
    template <class Data, class Holder>
    static typename Holder::Hold Hold(const RecordObject<Data, Holder>& object)
    {
        return typename Holder::Hold(object.m_record);
    }

    /// The same for const operations of its members and items, which speak through their own loggers: the
    /// items are nobody else's.
    template <class Data, class Holder>
    static typename Holder::Hold HoldWithOwnItems(const RecordObject<Data, Holder>& object)
    {
        const Data& data = *object.m_record.Get();
        ForEachField(Description<Data>::ROWS, [&data](const auto& row) { MakeItemsOwn(data, row); });
        return Hold(object);
    }

    template <class Data, class Holder>
    static constexpr const auto& RowsOf(const RecordObject<Data, Holder>& /*object*/)
    {
        return Description<Data>::ROWS;
    }

    template <class Data, class Holder>
    static constexpr const Name& NameOf(const RecordObject<Data, Holder>& /*object*/)
    {
        return Description<Data>::NAME;
    }
};

} // namespace REPORTGENERATOR

#endif
