#ifndef REPORTGENERATOR_RECORDS_SCHEMARULES_H
#define REPORTGENERATOR_RECORDS_SCHEMARULES_H

#include <reportgenerator/reportbase/records/fields.h>
#include <reportgenerator/reportbase/records/recordaccess.h>

#include <climits>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

// What the compiler holds against each schema: a field that takes what is another's loses data without a word.

namespace REPORTGENERATOR::schema {

// --- Facts of fields, whatever their kind

template <class Field>
constexpr auto MemberOf(const Field& field)
{
    return field.member;
}

template <class Data>
constexpr auto MemberOf(const FormatVersion<Data>& field)
{
    return field.loaded;
}

template <class Field>
constexpr std::string_view NameOf(const Field& field)
{
    return {field.name.latin1, static_cast<std::size_t>(field.name.size)};
}

/// The element of a member bears the name of its class.
template <class Data, class Object>
constexpr std::string_view NameOf(const Member<Data, Object>& /*field*/)
{
    constexpr Name NAME = Schema<typename Object::RecordData>::NAME;
    return {NAME.latin1, static_cast<std::size_t>(NAME.size)};
}

template <class Field>
constexpr qint32 TagOf(const Field& field)
{
    return field.setBy.tag;
}

template <class Data>
constexpr qint32 TagOf(const FormatVersion<Data>& field)
{
    return field.tag;
}

/// Whether a pointer is to a member of that very class.
template <class Data, class Pointer>
constexpr bool IS_MEMBER_OF = false;
template <class Data, class T>
constexpr bool IS_MEMBER_OF<Data, T Data::*> = true;

/// Whether a field says by a bit of the flag byte that it is set, as those of a record do.
template <class Field>
constexpr bool IS_OF_RECORD = true;
template <class Data, class T, class SetBy>
constexpr bool IS_OF_RECORD<ScalarField<Data, T, SetBy>> = std::is_same_v<SetBy, PresenceBit>;

// --- Comparison of two fields

struct HaveSameMember
{
    template <class Left, class Right>
    constexpr bool operator()(const Left& left, const Right& right) const
    {
        if constexpr (std::is_same_v<decltype(MemberOf(left)), decltype(MemberOf(right))>)
            return MemberOf(left) == MemberOf(right);
        else
            return false;
    }
};

struct HaveSameName
{
    template <class Left, class Right>
    constexpr bool operator()(const Left& left, const Right& right) const
    {
        return NameOf(left) == NameOf(right);
    }
};

struct HaveSameTag
{
    template <class Left, class Right>
    constexpr bool operator()(const Left& left, const Right& right) const
    {
        return TagOf(left) == TagOf(right);
    }
};

struct HaveSameBit
{
    template <class Left, class Right>
    constexpr bool operator()(const Left& left, const Right& right) const
    {
        return BitOf(left) == BitOf(right);
    }
};

/// Whether each field is the same as none but itself.
template <class Same, class... Fields>
constexpr bool AreAllDifferent(const std::tuple<Fields...>& fields, Same same)
{
    const auto howMany = [&](const auto& field) {
        return std::apply([&](const Fields&... other) { return (0 + ... + int(same(field, other))); },
                          fields);
    };
    return std::apply([&](const Fields&... field) { return ((howMany(field) == 1) && ...); }, fields);
}

// --- The rules

template <class... Fields>
constexpr bool AreOfRecord(const std::tuple<Fields...>& /*fields*/)
{
    return (IS_OF_RECORD<Fields> && ...);
}

template <class Field>
constexpr bool IsBitInFlagByte(const Field& field)
{
    return 0 <= BitOf(field) && BitOf(field) < CHAR_BIT;
}

/// A version is always written and has no bit.
template <class Data>
constexpr bool IsBitInFlagByte(const FormatVersion<Data>& /*field*/)
{
    return true;
}

template <class... Fields>
constexpr bool AreBitsInFlagByte(const std::tuple<Fields...>& fields)
{
    return AllOfFields(fields, [](const auto& field) { return IsBitInFlagByte(field); });
}

/// Whether the raw form meets each bit: it goes through so many as there are fields.
template <class... Fields>
constexpr bool AreBitsInRawForm(const std::tuple<Fields...>& fields)
{
    return AllOfFields(fields, [](const auto& field) { return BitOf(field) < int(sizeof...(Fields)); });
}

// --- How many members a record has

struct AnyValue
{
    template <class T>
    operator T() const; // NOLINT(google-explicit-constructor): only named, by a list of initial values
};

template <class Data, class Indices, class = void>
constexpr bool TAKES_VALUES = false;
template <class Data, std::size_t... I>
constexpr bool TAKES_VALUES<Data, std::index_sequence<I...>,
                            std::void_t<decltype(Data{(static_cast<void>(I), AnyValue())...})>> = true;

/// As many as an initialiser may have values, without that of the base.
template <class Data, std::size_t COUNT = 0>
constexpr std::size_t CountMembers()
{
    if constexpr (TAKES_VALUES<Data, std::make_index_sequence<COUNT + 2>>)
        return CountMembers<Data, COUNT + 1>();
    else
        return COUNT;
}

/// How many fields are of members of the record itself, not of a base that it shares with others.
template <class Data, class... Fields>
constexpr std::size_t CountOwnFields(const std::tuple<Fields...>& fields)
{
    return std::apply(
        [](const Fields&... field) {
            return (std::size_t(0) + ... + std::size_t(IS_MEMBER_OF<Data, decltype(MemberOf(field))>));
        },
        fields);
}

/// Of the fields of a plain class.
template <class... Fields>
constexpr bool AreFieldsDistinct(const std::tuple<Fields...>& fields)
{
    return AreAllDifferent(fields, HaveSameName()) && AreAllDifferent(fields, HaveSameMember());
}

/// Compiles when the schema of a record is good.
template <class Data>
constexpr void Check()
{
    constexpr const auto& FIELDS = Schema<Data>::FIELDS;
    static_assert(AreAllDifferent(FIELDS, HaveSameMember()), "two fields are of the same member");
    static_assert(AreAllDifferent(FIELDS, HaveSameName()), "two fields have the same name");
    static_assert(CountMembers<Data>() == CountOwnFields<Data>(FIELDS), "a member of the record is no field");
    static_assert(AreOfRecord(FIELDS), "a field of a record is flagged by no bit");
    if constexpr (AreOfRecord(FIELDS)) {
        static_assert(AreAllDifferent(FIELDS, HaveSameTag()), "two fields have the same tag");
        static_assert(AreAllDifferent(FIELDS, HaveSameBit()), "two fields have the same bit");
        static_assert(AreBitsInFlagByte(FIELDS), "a bit lies outside of the flag byte");
        static_assert(!AreBitsInFlagByte(FIELDS) || AreBitsInRawForm(FIELDS),
                      "a bit lies outside of the raw form");
    }
}

} // namespace REPORTGENERATOR::schema

#endif
