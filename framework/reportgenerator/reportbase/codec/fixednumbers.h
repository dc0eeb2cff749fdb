#ifndef REPORTGENERATOR_CODEC_FIXEDNUMBERS_H
#define REPORTGENERATOR_CODEC_FIXEDNUMBERS_H

#include <QtCore/QtGlobal>

#include <array>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace REPORTGENERATOR::numbers {

// Numbers in fixed notation, straight between a double and the units of a text. Scaled by a power of ten such
// a number is an integer, and an integer is quickly written and read. What comes out is what Qt writes and
// reads, to the last digit and bit; where the scaled number does not settle that, the functions say so and
// the caller asks Qt.
//
// `Char` is the type of a text's unit: char for UTF-8 and Latin-1, any type of 16 bits for UTF-16.

/// The room that WriteFixed needs at most: a sign, a point and the digits of the greatest scaled number.
constexpr int MAX_FIXED = 18;

namespace fixed {

/// As far as a number of MAX_READ_DIGITS can have decimals. All of them are exact.
constexpr double POWERS_OF_TEN[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                    1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};

// --- Writing ----------------------------------------------------------------------------------------------

/// Where scaled numbers end. A product beyond it can be off by so much that it seldom settles a digit.
constexpr double MAX_SCALED = 1e15;

template <class Char>
constexpr std::array<Char, 200> MakePairs()
{
    std::array<Char, 200> pairs = {};
    for (std::size_t number = 0; number < 100; ++number) {
        pairs[2 * number] = static_cast<Char>('0' + number / 10);
        pairs[2 * number + 1] = static_cast<Char>('0' + number % 10);
    }
    return pairs;
}

/// The digits of 00, 01 and so on up to 99.
template <class Char>
constexpr std::array<Char, 200> PAIRS = MakePairs<Char>();

/// Exactly that many digits.
template <int Digits, class Char>
Char* WriteDigits(Char* out, std::uint32_t number)
{
    if constexpr (Digits == 0) {
        return out;
    } else if constexpr (Digits == 1) {
        *out = static_cast<Char>('0' + number);
        return out + 1;
    } else {
        out = WriteDigits<Digits - 2>(out, number / 100);
        const std::size_t pair = number % 100;
        std::memcpy(out, &PAIRS<Char>[2 * pair], 2 * sizeof(Char));
        return out + 2;
    }
}

/// A number below 1000. What would be a leading zero is written too and then written over: how long the
/// number is can't be foreseen, and a jump that is foreseen wrong costs more than a digit.
template <class Char>
Char* WriteShortInteger(Char* out, std::uint32_t number)
{
    *out = static_cast<Char>('0' + number / 100);
    out += number >= 100 ? 1 : 0;
    const std::size_t pair = number % 100;
    const std::size_t skipped = number >= 10 ? 0 : 1;
    std::memcpy(out, &PAIRS<Char>[2 * pair + skipped], 2 * sizeof(Char));
    return out + 2 - skipped;
}

/// Without leading zeros.
template <class Char>
Char* WriteInteger(Char* out, std::uint64_t number)
{
    if (number >= 1000000) {
        out = WriteInteger(out, number / 1000000);
        return WriteDigits<6>(out, static_cast<std::uint32_t>(number % 1000000));
    }
    const auto small = static_cast<std::uint32_t>(number);
    if (small >= 1000)
        return WriteDigits<3>(WriteShortInteger(out, small / 1000), small % 1000);
    return WriteShortInteger(out, small);
}

// --- Reading ----------------------------------------------------------------------------------------------

/// Up to here every integer is a double.
constexpr std::uint64_t MAX_MANTISSA = std::uint64_t(1) << DBL_MANT_DIG;

/// That many digits fit into 64 bits, whatever they are.
constexpr int MAX_READ_DIGITS = std::numeric_limits<std::uint64_t>::digits10;

/// Whether the result of an operation is rounded once, to a double. Where it goes through a wider type, the
/// quotient of two exact numbers can be one bit off.
constexpr bool IS_ROUNDED_ONCE = FLT_EVAL_METHOD == 0 || FLT_EVAL_METHOD == 1;

/// What the unit stands for; above 9 for one that is no digit.
template <class Char>
unsigned int DigitOf(Char unit)
{
    return static_cast<unsigned int>(unit) - static_cast<unsigned int>('0');
}

template <class Char>
bool IsAt(const Char* next, const Char* end, char character)
{
    return next != end && *next == static_cast<Char>(character);
}

/// Appends digits to `number` and returns their end. With too many of them the number is meaningless.
template <class Char>
const Char* ReadDigits(const Char* next, const Char* end, std::uint64_t& number)
{
    while (next != end && DigitOf(*next) <= 9) {
        number = 10 * number + DigitOf(*next);
        ++next;
    }
    return next;
}

} // namespace fixed

/// Writes the number with that many decimals, its exact value rounded half away from zero, and returns the
/// end of what was written; null when the quick way can't tell the digits (next to a tie, large, not a
/// number). What stands in the room of MAX_FIXED units behind that end, or behind `out` when there is none,
/// is undefined.
/// Apart from the choice between the numbers of decimals: together they would crowd every loop that writes.
template <int Decimals, class Char>
Q_NEVER_INLINE Char* WriteFixed(Char* out, double number)
{
    static_assert(Decimals > 0 && Decimals <= 6);
    constexpr double SCALE = fixed::POWERS_OF_TEN[Decimals];
    constexpr auto UNIT = static_cast<std::uint64_t>(SCALE);

    const double scaled = std::abs(number) * SCALE;
    if (!(scaled < fixed::MAX_SCALED))
        return nullptr;
    const auto floor = static_cast<std::int64_t>(scaled);
    const double behindTie = scaled - static_cast<double>(floor) - 0.5;
    // The product is off by at most half of the margin; fused operations and wider types bring it nearer.
    const double margin = scaled * DBL_EPSILON;
    if (std::abs(behindTie) <= margin)
        return nullptr;
    const auto rounded = static_cast<std::uint64_t>(floor) + (behindTie > 0.0 ? 1 : 0);

    *out = static_cast<Char>('-');
    out += number < 0.0 ? 1 : 0; // -0.0 has no sign in a text, what is rounded to zero has
    out = fixed::WriteInteger(out, rounded / UNIT);
    *out = static_cast<Char>('.');
    return fixed::WriteDigits<Decimals>(out + 1, static_cast<std::uint32_t>(rounded % UNIT));
}

/// The same for a number of decimals that only the running program knows; null also when no form has it.
template <class Char>
Char* WriteFixed(Char* out, double number, int decimals)
{
    switch (decimals) {
    case 2:
        return WriteFixed<2>(out, number);
    case 6:
        return WriteFixed<6>(out, number);
    default:
        return nullptr;
    }
}

/// Reads the number that a text begins with, an optional minus sign, digits and optionally a point with
/// digits behind it, into `value`. Returns the first unit that is neither digit nor point: it is for the
/// caller to look at, as it might go on with the number ("e5"). Null, and `value` as it was, when the text
/// does not begin like that or the quick way can't tell the nearest double.
template <class Char>
const Char* ReadFixedPrefix(const Char* begin, const Char* end, double& value)
{
    const bool isNegative = fixed::IsAt(begin, end, '-');
    const Char* const digits = begin + (isNegative ? 1 : 0);
    std::uint64_t mantissa = 0;
    const Char* next = fixed::ReadDigits(digits, end, mantissa);
    std::ptrdiff_t digitCount = next - digits;
    if (digitCount == 0)
        return nullptr;

    std::ptrdiff_t decimals = 0;
    if (fixed::IsAt(next, end, '.')) {
        const Char* const fraction = next + 1;
        next = fixed::ReadDigits(fraction, end, mantissa);
        decimals = next - fraction;
        digitCount += decimals;
        if (decimals == 0 || fixed::IsAt(next, end, '.'))
            return nullptr;
    }
    if (digitCount > fixed::MAX_READ_DIGITS || mantissa > fixed::MAX_MANTISSA)
        return nullptr;
    if (!fixed::IS_ROUNDED_ONCE && decimals > 0)
        return nullptr;

    // Both are exact, and so the quotient is the double nearest to the number. Signed integers convert
    // faster.
    const double magnitude =
        static_cast<double>(static_cast<std::int64_t>(mantissa)) / fixed::POWERS_OF_TEN[decimals];
    value = isNegative ? -magnitude : magnitude;
    return next;
}

/// Reads a text that is nothing but such a number. False, and `value` as it was, for every other text and
/// when the quick way can't tell the nearest double.
template <class Char>
bool ReadFixed(const Char* begin, const Char* end, double& value)
{
    double read = 0.0;
    if (begin == end || ReadFixedPrefix(begin, end, read) != end)
        return false;
    value = read;
    return true;
}

} // namespace REPORTGENERATOR::numbers

#endif
