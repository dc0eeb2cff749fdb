#ifndef REPORTGENERATOR_CODEC_SCALARFIELD_H
#define REPORTGENERATOR_CODEC_SCALARFIELD_H

#include <reportgenerator/reportbase/codec/name.h>
#include <reportgenerator/reportbase/codec/numbers.h>

#include <limits>
#include <tuple>

namespace REPORTGENERATOR {

/// Where a field stands in its object's element.
enum class Place
{
    Attribute,
    Element,
    Text
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

/// Of a record's field: the bit of the flag byte that says whether it is set, and the tag of its element.
struct PresenceBit
{
    int bit;
    qint32 tag;

    constexpr quint8 Mask() const { return static_cast<quint8>(1U << bit); }

    template <class Data, class T>
    bool IsSetIn(const Data& data, const T& /*value*/) const
    {
        return (data.flags & Mask()) != 0;
    }
};

template <class T>
bool IsValueSet(const T& value);

/// Of a plain class's field: it is set unless it holds the value that stands for "not set".
struct ByValue
{
    /// Whether an object has data when this field is set.
    bool isData = true;

    template <class Data, class T>
    bool IsSetIn(const Data& /*data*/, const T& value) const
    {
        return IsValueSet(value);
    }
};

/// Of a field that is no data by itself.
constexpr ByValue NO_DATA = {false};

/// All that there is to know of the form of one value: a number, a switch or a text. A class's schema is
/// a tuple of such fields in the order in which they are written.
///
///     constexpr auto MIN = AttributeField(&Record::min, REPORTBASE_NAME("Min"), PresenceBit{1, wire::Tag(0x4ECB4E58)});
///     constexpr auto STEP = ElementField(&ScanParameter::m_step, REPORTBASE_NAME("FrequencyStep")).Mandatory();
///
template <class Data, class T, class SetBy>
struct ScalarField
{
    using Value = T;

    T Data::*member;
    Name name;
    Place place;
    SetBy setBy;

    /// Written even when not set. An object without it is incomplete.
    bool isMandatory = false;
    NumberFormat format = {};
    Range range = {};

    constexpr ScalarField Mandatory() const
    {
        ScalarField field = *this;
        field.isMandatory = true;
        return field;
    }
    constexpr ScalarField Format(int decimals, int width) const
    {
        ScalarField field = *this;
        field.format = {decimals, width};
        return field;
    }
    constexpr ScalarField Within(double low, double high) const
    {
        ScalarField field = *this;
        field.range = {low, high};
        return field;
    }

    const T& In(const Data& data) const { return data.*member; }
    T& In(Data& data) const { return data.*member; }
    bool IsSetIn(const Data& data) const { return setBy.IsSetIn(data, In(data)); }
    bool IsWrittenOf(const Data& data) const { return isMandatory || IsSetIn(data); }
};

template <class Data, class T, class SetBy = ByValue>
constexpr ScalarField<Data, T, SetBy> AttributeField(T Data::*member, Name name, SetBy setBy = {})
{
    return {member, name, Place::Attribute, setBy};
}

template <class Data, class T, class SetBy = ByValue>
constexpr ScalarField<Data, T, SetBy> ElementField(T Data::*member, Name name, SetBy setBy = {})
{
    return {member, name, Place::Element, setBy};
}

template <class Data, class T, class SetBy = ByValue>
constexpr ScalarField<Data, T, SetBy> TextField(T Data::*member, Name name, SetBy setBy = {})
{
    return {member, name, Place::Text, setBy};
}

/// Calls `visit` with each field of a schema.
template <class Visit, class... Fields>
constexpr void ForEachField(const std::tuple<Fields...>& fields, Visit&& visit)
{
    std::apply([&visit](const Fields&... field) { (visit(field), ...); }, fields);
}

/// Whether `test` is true of every field; asks no further after the first that fails.
template <class Test, class... Fields>
constexpr bool AllOfFields(const std::tuple<Fields...>& fields, Test&& test)
{
    return std::apply([&test](const Fields&... field) { return (test(field) && ...); }, fields);
}

/// Whether `test` is true of a field; asks no further after the first.
template <class Test, class... Fields>
constexpr bool AnyOfFields(const std::tuple<Fields...>& fields, Test&& test)
{
    return std::apply([&test](const Fields&... field) { return (test(field) || ...); }, fields);
}

} // namespace REPORTGENERATOR

#endif
