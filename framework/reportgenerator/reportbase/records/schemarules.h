#ifndef REPORTGENERATOR_RECORDS_SCHEMARULES_H
#define REPORTGENERATOR_RECORDS_SCHEMARULES_H

#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/records/rows.h>

#include <climits>
#include <string_view>
#include <type_traits>

// What the compiler holds against each description: a row that takes what is another's loses data without a word.

namespace REPORTGENERATOR::schema {

// --- Facts of rows, whatever their kind

template <class Row>
constexpr auto MemberOf(const Row& row)
{
    return row.member;
}

template <class Data>
constexpr auto MemberOf(const FormatVersion<Data>& row)
{
    return row.loaded;
}

template <class Row>
constexpr std::string_view NameOf(const Row& row)
{
    return {row.name.latin1, static_cast<std::size_t>(row.name.size)};
}

/// The element of a member bears the name of its class.
template <class Data, class Object>
constexpr std::string_view NameOf(const Member<Data, Object>& /*row*/)
{
    constexpr Name NAME = Description<typename Object::RecordData>::NAME;
    return {NAME.latin1, static_cast<std::size_t>(NAME.size)};
}

template <class Row>
constexpr qint32 TagOf(const Row& row)
{
    return row.setBy.tag;
}

template <class Data>
constexpr qint32 TagOf(const FormatVersion<Data>& row)
{
    return row.tag;
}

/// Whether a row says by a bit of the flag byte that it is set, as those of a record do.
template <class Row>
constexpr bool IS_OF_RECORD = true;
template <class Data, class T, class SetBy>
constexpr bool IS_OF_RECORD<Field<Data, T, SetBy>> = std::is_same_v<SetBy, Flagged>;

// --- Comparison of two rows

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

/// Whether each row is the same as none but itself.
template <class Same, class... Rows>
constexpr bool AreAllDifferent(const std::tuple<Rows...>& rows, Same same)
{
    const auto howMany = [&](const auto& row) {
        return std::apply([&](const Rows&... other) { return (0 + ... + int(same(row, other))); }, rows);
    };
    return std::apply([&](const Rows&... row) { return ((howMany(row) == 1) && ...); }, rows);
}

// --- The rules

template <class... Rows>
constexpr bool AreOfRecord(const std::tuple<Rows...>& /*rows*/)
{
    return (IS_OF_RECORD<Rows> && ...);
}

template <class Row>
constexpr bool IsBitInFlagByte(const Row& row)
{
    return 0 <= BitOf(row) && BitOf(row) < CHAR_BIT;
}

/// A version is always written and has no bit.
template <class Data>
constexpr bool IsBitInFlagByte(const FormatVersion<Data>& /*row*/)
{
    return true;
}

template <class... Rows>
constexpr bool AreBitsInFlagByte(const std::tuple<Rows...>& rows)
{
    return AllOfFields(rows, [](const auto& row) { return IsBitInFlagByte(row); });
}

/// Whether the raw form meets each bit: it goes through so many as there are rows.
template <class... Rows>
constexpr bool AreBitsInRawForm(const std::tuple<Rows...>& rows)
{
    return AllOfFields(rows, [](const auto& row) { return BitOf(row) < int(sizeof...(Rows)); });
}

/// Of the rows of a plain class.
template <class... Rows>
constexpr bool AreFieldsDistinct(const std::tuple<Rows...>& rows)
{
    return AreAllDifferent(rows, HaveSameName()) && AreAllDifferent(rows, HaveSameMember());
}

/// Compiles when the description of a record is good.
template <class Data>
constexpr void Check()
{
    constexpr const auto& ROWS = Description<Data>::ROWS;
    static_assert(AreAllDifferent(ROWS, HaveSameMember()), "two rows are of the same member");
    static_assert(AreAllDifferent(ROWS, HaveSameName()), "two rows have the same name");
    static_assert(AreOfRecord(ROWS), "a field of a record is flagged by no bit");
    if constexpr (AreOfRecord(ROWS)) {
        static_assert(AreAllDifferent(ROWS, HaveSameTag()), "two rows have the same tag");
        static_assert(AreAllDifferent(ROWS, HaveSameBit()), "two rows have the same bit");
        static_assert(AreBitsInFlagByte(ROWS), "a bit lies outside of the flag byte");
        static_assert(!AreBitsInFlagByte(ROWS) || AreBitsInRawForm(ROWS),
                      "a bit lies outside of the raw form");
    }
}

} // namespace REPORTGENERATOR::schema

#endif
