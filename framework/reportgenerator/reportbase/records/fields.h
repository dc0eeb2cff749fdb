#ifndef REPORTGENERATOR_RECORDS_FIELDS_H
#define REPORTGENERATOR_RECORDS_FIELDS_H

#include <reportgenerator/reportbase/codec/scalarfield.h>
#include <reportgenerator/reportbase/codec/wireformat.h>
#include <reportgenerator/reportbase/recordholder.h>
#include <reportgenerator/reportbase/records/objectlist.h>

namespace REPORTGENERATOR {

// The kinds of fields that a record's schema may have beside the field of one value.

/// A member object. Its element bears its own object name.
template <class Data, class Object>
struct Member
{
    Object Data::*member;
    PresenceBit setBy;

    const Object& In(const Data& data) const { return data.*member; }
    Object& In(Data& data) const { return data.*member; }
    bool IsSetIn(const Data& data) const { return (data.flags & setBy.Mask()) != 0; }
};

/// A list of objects, whose elements bear their objects' name.
template <class Data, class Item>
struct ItemList
{
    ObjectList<Item> Data::*member;
    Name name;
    PresenceBit setBy;

    /// What is said of an incomplete item that is appended or written.
    QString (*incompleteAppended)(const QString& objectName);
    QString (*incompleteWritten)(const QString& objectName);

    const ObjectList<Item>& In(const Data& data) const { return data.*member; }
    ObjectList<Item>& In(Data& data) const { return data.*member; }
    bool IsSetIn(const Data& data) const { return (data.flags & setBy.Mask()) != 0; }
};

/// The version of the class's format. What is kept is the one found in the data last read; data of an older
/// one start from an unset object.
template <class Data>
struct FormatVersion
{
    QString Data::*loaded;
    Name name;
    qint32 tag;
    Name model;

    bool IsOlderIn(const Data& data) const
    {
        return numbers::VersionFromText(model.Text()) > numbers::VersionFromText(data.*loaded);
    }
};

/// Values of the fields of a new record. Texts begin as null.
template <class Data>
const Data& DefaultRecord()
{
    static const Data fresh;
    return fresh;
}

// Flags

constexpr int BIT_OF_VERSION = -1;

template <class Field>
constexpr int BitOf(const Field& field)
{
    return field.setBy.bit;
}

template <class Data>
constexpr int BitOf(const FormatVersion<Data>& /*field*/)
{
    return BIT_OF_VERSION;
}

template <class Data>
void SetFlag(Data& data, PresenceBit setBy)
{
    data.flags = static_cast<quint8>(data.flags | setBy.Mask());
}

template <class Data>
void ClearFlag(Data& data, PresenceBit setBy)
{
    data.flags = static_cast<quint8>(data.flags & ~setBy.Mask());
}

// Queries, of a record that may not be there. They never make it.

template <class Data, class Field>
bool IsFieldSet(const Data* data, const Field& field)
{
    return data && field.IsSetIn(*data);
}

template <class Data, class... Fields>
bool IsAnyFieldSet(const Data* data, const std::tuple<Fields...>& fields)
{
    return data && AnyOfFields(fields, [data](const auto& field) { return field.IsSetIn(*data); });
}

/// Whether everything is set without which an object is incomplete.
template <class Data, class... Fields>
bool AreMandatoryFieldsSet(const Data* data, const std::tuple<Fields...>& fields)
{
    return data && AllOfFields(fields, [data](const auto& field) {
               return !field.isMandatory || field.IsSetIn(*data);
           });
}

// What a record holds, whatever its presence bits say: a text that was set may be null, and an item that was
// added behind the list's back is there.

template <class Data, class D>
bool HoldsData(const Data& data, const ScalarField<D, QString, PresenceBit>& field)
{
    return !field.In(data).isNull();
}

template <class Data, class Object>
bool HoldsData(const Data& data, const Member<Data, Object>& field)
{
    return field.In(data).AnyData();
}

template <class Data, class Item>
bool HoldsData(const Data& data, const ItemList<Data, Item>& field)
{
    return !field.In(data).Values().isEmpty();
}

template <class Data>
bool HoldsData(const Data& /*data*/, const FormatVersion<Data>& /*field*/)
{
    return false;
}

template <class Data, class... Fields>
bool HoldsAnyData(const Data* data, const std::tuple<Fields...>& fields)
{
    return data && AnyOfFields(fields, [data](const auto& field) { return HoldsData(*data, field); });
}

// First values

template <class Data, class D, class T>
void RestoreField(Data& data, const ScalarField<D, T, PresenceBit>& field)
{
    field.In(data) = field.In(DefaultRecord<Data>());
}

template <class Data, class Object>
void RestoreField(Data& data, const Member<Data, Object>& field)
{
    // Without a record it is as a new one.
    if (field.In(data).IsInitialized())
        field.In(data) = Object();
}

template <class Data, class Item>
void RestoreField(Data& data, const ItemList<Data, Item>& field)
{
    field.In(data).Clear();
}

/// What was loaded stays known.
template <class Data>
void RestoreField(Data& /*data*/, const FormatVersion<Data>& /*field*/)
{
}

// Items of one's own

template <class Data, class Field>
void DetachItems(const Data& /*data*/, const Field& /*field*/)
{
}

template <class Data, class Item>
void DetachItems(const Data& data, const ItemList<Data, Item>& field)
{
    field.In(data).Items();
}

// Comparison

template <class Data, class Field>
bool IsFieldEqual(const Data& left, const Data& right, const Field& field)
{
    const bool isSet = field.IsSetIn(left);
    if (isSet != field.IsSetIn(right))
        return false;
    return !isSet || field.In(left) == field.In(right);
}

/// Only the right side's flag counts, which is part of the interface.
template <class Data, class Item>
bool IsFieldEqual(const Data& left, const Data& right, const ItemList<Data, Item>& field)
{
    return field.IsSetIn(right) ? field.In(left) == field.In(right) : field.In(left).Values().isEmpty();
}

template <class Data>
bool IsFieldEqual(const Data& /*left*/, const Data& /*right*/, const FormatVersion<Data>& /*field*/)
{
    return true;
}

/// A field matches when it is set in neither record, or in both with equal values. What an unset field has
/// left behind doesn't count.
template <class Data, class... Fields>
bool AreRecordsEqual(const Data& left, const Data& right, const std::tuple<Fields...>& fields)
{
    return AllOfFields(fields, [&](const auto& field) { return IsFieldEqual(left, right, field); });
}

} // namespace REPORTGENERATOR

#endif
