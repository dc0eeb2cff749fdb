#ifndef REPORTGENERATOR_RECORDS_RECORD_H
#define REPORTGENERATOR_RECORDS_RECORD_H

#include <reportgenerator/reportbase/forms/name.h>
#include <reportgenerator/reportbase/forms/numbers.h>

#include <QtCore/QSharedData>
#include <QtCore/QSharedDataPointer>
#include <QtCore/QString>

#include <limits>
#include <tuple>
#include <type_traits>

namespace REPORTGENERATOR {

/// The private record of an object: its fields, shared by copies until one of them changes something.
///
/// Each field has a bit in the flag byte that says whether it is set. The byte is also the first byte of the
/// raw form, read back as it stands: bits that belong to no field are kept and mean nothing.
struct Record : QSharedData
{
    quint8 flags = 0;
};

/// Where a field stands in its object's element.
enum class Place
{
    Attribute,
    Element,
    Text
};

/// Whether a field that is not set is left out. A field that is always written must also be set for the
/// object to be complete.
enum class Written
{
    WhenSet,
    Always
};

/// A closed range of numbers. The default one admits every number, NaN included.
struct Range
{
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();

    constexpr bool IsUnbounded() const
    {
        return low == -std::numeric_limits<double>::infinity() &&
               high == std::numeric_limits<double>::infinity();
    }
    constexpr bool Contains(double number) const
    {
        return IsUnbounded() || (low <= number && number <= high);
    }
};

/// All that there is to know of a field. A class's description is a tuple of its fields in the order in which
/// they are written; the raw form goes by ascending bits.
template <class Data, class T>
struct Field
{
    using Value = T;

    int bit;
    T Data::*member;
    Name name;
    Place place;
    Written written;
    qint32 tag;
    /// Numbers only.
    NumberFormat format = {};
    Range range = {};

    constexpr quint8 Mask() const { return static_cast<quint8>(1U << bit); }
    bool IsSetIn(const Data& data) const { return (data.flags & Mask()) != 0; }
};

/// Values of the fields of a fresh record. Texts begin as null.
template <class Data>
const Data& FreshRecord()
{
    static const Data fresh;
    return fresh;
}

template <class Visit, class... Fields>
constexpr void ForEachField(const std::tuple<Fields...>& fields, Visit&& visit)
{
    std::apply([&visit](const Fields&... field) { (visit(field), ...); }, fields);
}

/// The bits of all fields.
template <class... Fields>
constexpr quint8 AllBits(const std::tuple<Fields...>& fields)
{
    return std::apply([](const Fields&... field) { return static_cast<quint8>((field.Mask() | ...)); },
                      fields);
}

/// The bits of the fields without which an object is incomplete.
template <class... Fields>
constexpr quint8 MandatoryBits(const std::tuple<Fields...>& fields)
{
    quint8 bits = 0;
    ForEachField(fields, [&bits](const auto& field) {
        if (field.written == Written::Always)
            bits = static_cast<quint8>(bits | field.Mask());
    });
    return bits;
}

// Queries. They never create the record.

template <class Data>
bool HasFlag(const QSharedDataPointer<Data>& data, quint8 mask)
{
    return data.constData() != nullptr && (data.constData()->flags & mask) != 0;
}

template <class Data, class FieldOfData>
bool IsSet(const QSharedDataPointer<Data>& data, const FieldOfData& field)
{
    return HasFlag(data, field.Mask());
}

template <class Data, class... Fields>
bool IsAnySet(const QSharedDataPointer<Data>& data, const std::tuple<Fields...>& fields)
{
    return HasFlag(data, AllBits(fields));
}

template <class Data, class... Fields>
bool AreMandatorySet(const QSharedDataPointer<Data>& data, const std::tuple<Fields...>& fields)
{
    const quint8 mandatory = MandatoryBits(fields);
    return data.constData() != nullptr && (data.constData()->flags & mandatory) == mandatory;
}

/// Whether a value may be set: a number within its range, a text that is not null, and anything of another
/// type.
template <class FieldOfData>
bool IsAdmitted(const FieldOfData& field, double value)
{
    return field.range.Contains(value);
}

template <class FieldOfData>
bool IsAdmitted(const FieldOfData& /*field*/, const QString& value)
{
    return !value.isNull();
}

template <class FieldOfData, class Value>
bool IsAdmitted(const FieldOfData& /*field*/, const Value& /*value*/)
{
    return true;
}

// Changes of a record that is private to its object.

template <class Data>
void SetFlag(Data& data, quint8 mask)
{
    data.flags = static_cast<quint8>(data.flags | mask);
}

template <class Data>
void ClearFlag(Data& data, quint8 mask)
{
    data.flags = static_cast<quint8>(data.flags & ~mask);
}

template <class Data, class FieldOfData, class Value>
void StoreField(Data& data, const FieldOfData& field, const Value& value)
{
    data.*(field.member) = value;
    SetFlag(data, field.Mask());
}

/// Unsets one field. Does nothing without a record.
template <class Data, class FieldOfData>
void ResetField(QSharedDataPointer<Data>& data, const FieldOfData& field)
{
    if (data.constData() == nullptr)
        return;
    (*data).*(field.member) = FreshRecord<Data>().*(field.member);
    ClearFlag(*data, field.Mask());
}

/// Gives all fields their first values; the flags stay.
template <class Data, class... Fields>
void RestoreFields(Data& data, const std::tuple<Fields...>& fields)
{
    ForEachField(fields,
                 [&data](const auto& field) { data.*(field.member) = FreshRecord<Data>().*(field.member); });
}

/// Whether the field is set in neither record, or in both with equal values.
template <class Data, class FieldOfData>
bool IsFieldEqual(const Data& left, const Data& right, const FieldOfData& field)
{
    const bool isSet = field.IsSetIn(left);
    if (isSet != field.IsSetIn(right))
        return false;
    return !isSet || left.*(field.member) == right.*(field.member);
}

template <class Data, class... Fields>
bool AreFieldsEqual(const Data& left, const Data& right, const std::tuple<Fields...>& fields)
{
    return std::apply([&](const Fields&... field) { return (IsFieldEqual(left, right, field) && ...); },
                      fields);
}

} // namespace REPORTGENERATOR

#endif
