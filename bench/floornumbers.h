#ifndef BENCH_FLOORNUMBERS_H
#define BENCH_FLOORNUMBERS_H

#include <QtCore/QtGlobal>

#include <cstring>
#include <stdexcept>

// Numbers as text and back, for numbers that have no more than DECIMALS decimals: a scaled integer is exact
// there.

namespace Bench::Floor {

constexpr qint64 PowerOfTen(int exponent)
{
    return exponent == 0 ? 1 : 10 * PowerOfTen(exponent - 1);
}

/// The texts of 00 to 99, one behind the other.
template <class Char>
struct DigitPairs
{
    Char digits[200];

    constexpr DigitPairs() : digits()
    {
        for (int i = 0; i < 100; ++i) {
            digits[2 * i] = static_cast<Char>('0' + i / 10);
            digits[2 * i + 1] = static_cast<Char>('0' + i % 10);
        }
    }
};

template <class Char>
constexpr DigitPairs<Char> DIGIT_PAIRS;

template <class Char>
void PutPair(Char* out, quint32 number)
{
    std::memcpy(out, DIGIT_PAIRS<Char>.digits + 2 * number, 2 * sizeof(Char));
}

template <class Char>
Char* PutWhole(Char* out, quint32 number)
{
    int digits = 1;
    for (quint32 rest = number; rest >= 10; rest /= 10)
        ++digits;
    Char* place = out + digits;
    for (; number >= 100; number /= 100)
        PutPair(place -= 2, number % 100);
    if (number >= 10)
        PutPair(place - 2, number);
    else
        *(place - 1) = static_cast<Char>('0' + number);
    return out + digits;
}

/// DECIMALS is even, and what stands in front of the point has 32 bits.
template <int DECIMALS, class Char>
Char* PutNumber(Char* out, double number)
{
    constexpr quint32 SCALE = PowerOfTen(DECIMALS);
    if (number < 0) {
        *out++ = '-';
        number = -number;
    }
    const auto scaled = static_cast<quint64>(number * SCALE + 0.5);
    out = PutWhole(out, static_cast<quint32>(scaled / SCALE));
    *out++ = '.';
    auto fraction = static_cast<quint32>(scaled % SCALE);
    for (int i = DECIMALS - 2; i >= 0; i -= 2) {
        PutPair(out + i, fraction % 100);
        fraction /= 100;
    }
    return out + DECIMALS;
}

template <int DECIMALS, class Char>
double TakeNumber(const Char*& in)
{
    const bool negative = *in == '-';
    if (negative)
        ++in;
    qint64 whole = 0;
    while (*in >= '0' && *in <= '9')
        whole = 10 * whole + (*in++ - '0');
    if (*in++ != '.')
        throw std::runtime_error("no number");
    qint64 fraction = 0;
    for (int i = 0; i < DECIMALS; ++i)
        fraction += (in[i] - '0') * PowerOfTen(DECIMALS - 1 - i);
    in += DECIMALS;
    const qint64 scaled = whole * PowerOfTen(DECIMALS) + fraction;
    return static_cast<double>(negative ? -scaled : scaled) / static_cast<double>(PowerOfTen(DECIMALS));
}

} // namespace Bench::Floor

#endif
