#ifndef REPORTGENERATOR_CODEC_NAMETABLE_H
#define REPORTGENERATOR_CODEC_NAMETABLE_H

#include <reportgenerator/reportbase/codec/name.h>

#include <cstddef>

namespace REPORTGENERATOR {

/// One row of a vocabulary: a number of the enumeration and its name.
///
/// A vocabulary with several spellings has rows of its own type, with `number`, `name` and one more `Name`
/// for each further spelling. The functions below take both.
template <class Number>
struct NamedNumber
{
    Number number;
    Name name;
};

/// What vocabularies write for a number without a name where reports must not hold an empty text. It stands
/// in no table, so that reading it gives no number.
constexpr Name UNDEFINED = REPORTBASE_NAME("undefined");

/// Whether each row has a greater number than the one before it.
template <class Row, std::size_t N>
constexpr bool IsAscending(const Row (&table)[N])
{
    for (std::size_t i = 1; i < N; ++i) {
        if (static_cast<int>(table[i].number) <= static_cast<int>(table[i - 1].number))
            return false;
    }
    return true;
}

/// The row of `number`, or null. The rows of `table` stand in ascending order of their numbers.
template <class Row, std::size_t N>
constexpr const Row* FindNumber(const Row (&table)[N], decltype(Row::number) number)
{
    std::size_t first = 0;
    std::size_t last = N;
    while (first < last) {
        const std::size_t middle = first + (last - first) / 2;
        if (static_cast<int>(table[middle].number) < static_cast<int>(number))
            first = middle + 1;
        else
            last = middle;
    }
    return first < N && table[first].number == number ? &table[first] : nullptr;
}

/// The first row whose text in the column `spelling` equals `text` exactly, or null.
template <class Row, std::size_t N>
const Row* FindName(const Row (&table)[N], const QString& text, Name Row::*spelling = &Row::name)
{
    for (const Row& row : table) {
        if (text == row.*spelling)
            return &row;
    }
    return nullptr;
}

} // namespace REPORTGENERATOR

#endif
