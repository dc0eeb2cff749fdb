#ifndef REPORTGENERATOR_RECORDS_ROWS_H
#define REPORTGENERATOR_RECORDS_ROWS_H

#include <reportgenerator/reportbase/forms/field.h>
#include <reportgenerator/reportbase/forms/wirefacts.h>
#include <reportgenerator/reportbase/recordholder.h>
#include <reportgenerator/reportbase/records/objectlist.h>

namespace REPORTGENERATOR {

// The kinds of rows that a record's description may have beside the field of one value.

/// A member object. Its element bears its own object name.
template <class Data, class Object>
struct Member
{
    Object Data::*member;
    Flagged setBy;

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
    Flagged setBy;

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

/// Values of the fields of a fresh record. Texts begin as null.
template <class Data>
const Data& FreshRecord()
{
    static const Data fresh;
    return fresh;
}

// Flags

constexpr int BIT_OF_VERSION = -1;

template <class Row>
constexpr int BitOf(const Row& row)
{
    return row.setBy.bit;
}

template <class Data>
constexpr int BitOf(const FormatVersion<Data>& /*row*/)
{
    return BIT_OF_VERSION;
}

template <class Data>
void SetFlag(Data& data, Flagged setBy)
{
    data.flags = static_cast<quint8>(data.flags | setBy.Mask());
}

template <class Data>
void ClearFlag(Data& data, Flagged setBy)
{
    data.flags = static_cast<quint8>(data.flags & ~setBy.Mask());
}

// Queries, of a record that may not be there. They never make it.

template <class Data, class Row>
bool IsRowSet(const Data* data, const Row& row)
{
    return data && row.IsSetIn(*data);
}

template <class Data, class... Rows>
bool IsAnyRowSet(const Data* data, const std::tuple<Rows...>& rows)
{
    return data && AnyOfFields(rows, [data](const auto& row) { return row.IsSetIn(*data); });
}

/// Whether everything is set without which an object is incomplete.
template <class Data, class... Rows>
bool AreMandatoryRowsSet(const Data* data, const std::tuple<Rows...>& rows)
{
    return data &&
           AllOfFields(rows, [data](const auto& row) { return !row.isMandatory || row.IsSetIn(*data); });
}

// First values

template <class Data, class D, class T>
void RestoreRow(Data& data, const Field<D, T, Flagged>& row)
{
    row.In(data) = row.In(FreshRecord<Data>());
}

template <class Data, class Object>
void RestoreRow(Data& data, const Member<Data, Object>& row)
{
    row.In(data) = Object();
}

template <class Data, class Item>
void RestoreRow(Data& data, const ItemList<Data, Item>& row)
{
    row.In(data).Clear();
}

/// What was loaded stays known.
template <class Data>
void RestoreRow(Data& /*data*/, const FormatVersion<Data>& /*row*/)
{
}

// Items of one's own

template <class Data, class Row>
void MakeItemsOwn(const Data& /*data*/, const Row& /*row*/)
{
}

template <class Data, class Item>
void MakeItemsOwn(const Data& data, const ItemList<Data, Item>& row)
{
    row.In(data).Items();
}

// Comparison

template <class Data, class Row>
bool IsRowEqual(const Data& left, const Data& right, const Row& row)
{
    const bool isSet = row.IsSetIn(left);
    if (isSet != row.IsSetIn(right))
        return false;
    return !isSet || row.In(left) == row.In(right);
}

/// Only the right side's flag counts, which is part of the interface.
template <class Data, class Item>
bool IsRowEqual(const Data& left, const Data& right, const ItemList<Data, Item>& row)
{
    return row.IsSetIn(right) ? row.In(left) == row.In(right) : row.In(left).Values().isEmpty();
}

template <class Data>
bool IsRowEqual(const Data& /*left*/, const Data& /*right*/, const FormatVersion<Data>& /*row*/)
{
    return true;
}

/// A field matches when it is set in neither record, or in both with equal values. What an unset field has
/// left behind doesn't count.
template <class Data, class... Rows>
bool AreRecordsEqual(const Data& left, const Data& right, const std::tuple<Rows...>& rows)
{
    return AllOfFields(rows, [&](const auto& row) { return IsRowEqual(left, right, row); });
}

} // namespace REPORTGENERATOR

#endif
