#include "digest/numbers.h"

#include <cstring>

namespace Digest {
namespace {

using Support::Choices;

constexpr int FRACTION_BITS = 52;
constexpr int EXPONENT_BIAS = 1023;
constexpr quint64 SIGN = Q_UINT64_C(1) << 63;
constexpr quint64 HIDDEN_BIT = Q_UINT64_C(1) << FRACTION_BITS;
constexpr quint64 MILLION = 1000000;

double WithAnySign(double number, Choices& choices)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return OfBits(choices.Below(2) == 0 ? bits : bits ^ SIGN);
}

/// The number itself, or one of the two next to it.
double Near(double number, Choices& choices)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    switch (choices.Below(3)) {
    case 1:
        return OfBits(bits + 1);
    case 2:
        return OfBits(bits - 1);
    default:
        return number;
    }
}

/// In the middle between two decimals of two or of six digits, as nearly as a double gets there.
double Tie(Choices& choices)
{
    const quint64 parts = choices.Of({Q_UINT64_C(200), 2 * MILLION});
    const quint64 limit = Q_UINT64_C(1) << choices.Below(FRACTION_BITS);
    const quint64 odd = 2 * (choices.Word() % limit) + 1;
    return Quotient(odd, parts);
}

/// Bits of numbers at which something changes.
double Extreme(Choices& choices)
{
    return OfBits(choices.Of({
        Q_UINT64_C(0x0000000000000000), // 0
        Q_UINT64_C(0x0000000000000001), // the least number
        Q_UINT64_C(0x000fffffffffffff), // the last without a hidden bit
        Q_UINT64_C(0x0010000000000000), // the first with one
        Q_UINT64_C(0x7fefffffffffffff), // the greatest
        Q_UINT64_C(0x7ff0000000000000), // infinity
        Q_UINT64_C(0x7ff8000000000000), // no number
        Q_UINT64_C(0x40fb207000000000), // 111111
        Q_UINT64_C(0x40fb2071c28f5c29), // 111111.11, which negative means "not set"
        Q_UINT64_C(0x4056800000000000), // 90
        Q_UINT64_C(0x4066800000000000), // 180
        Q_UINT64_C(0x41f0000000000000), // 2^32
        Q_UINT64_C(0x4340000000000000), // 2^53
        Q_UINT64_C(0x43e0000000000000), // 2^63
        Q_UINT64_C(0x43f0000000000000), // 2^64
        Q_UINT64_C(0x444b1ae4d6e2ef50), // 1e21
        Q_UINT64_C(0x4480f0cf064dd592), // 1e22
        Q_UINT64_C(0x54b249ad2594c37d), // 1e100
        Q_UINT64_C(0x3fb999999999999a), // 0.1
        Q_UINT64_C(0x3f747ae147ae147b), // 0.005
        Q_UINT64_C(0x3ea0c6f7a0b5ed8d)  // 0.0000005
    }));
}

/// Any fraction, of a size that occurs.
double OfUsualSize(Choices& choices)
{
    constexpr int SIZES = 96;
    const int exponent = EXPONENT_BIAS - SIZES / 2 + choices.Below(SIZES);
    return OfBits(static_cast<quint64>(exponent) << FRACTION_BITS | (choices.Word() & (HIDDEN_BIT - 1)));
}

} // namespace

double OfBits(quint64 bits)
{
    double number = 0.0;
    static_assert(sizeof number == sizeof bits, "eight bytes");
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

double Quotient(quint64 numerator, quint64 denominator)
{
    if (numerator == 0)
        return OfBits(0);

    quint64 quotient = numerator / denominator;
    quint64 remainder = numerator % denominator;
    bool isInexact = false;
    // One bit more than there is room for decides about rounding.
    constexpr quint64 ENOUGH = HIDDEN_BIT << 1;
    int exponent = 0;
    while (quotient < ENOUGH) {
        remainder *= 2;
        quotient *= 2;
        if (remainder >= denominator) {
            remainder -= denominator;
            ++quotient;
        }
        --exponent;
    }
    while (quotient >= 2 * ENOUGH) {
        isInexact = isInexact || (quotient & 1) != 0;
        quotient /= 2;
        ++exponent;
    }
    isInexact = isInexact || remainder != 0;

    const bool isHalfOrMore = (quotient & 1) != 0;
    quotient /= 2;
    ++exponent;
    if (isHalfOrMore && (isInexact || (quotient & 1) != 0))
        ++quotient;
    if (quotient == ENOUGH) {
        quotient /= 2;
        ++exponent;
    }
    exponent += FRACTION_BITS + EXPONENT_BIAS;
    return OfBits(static_cast<quint64>(exponent) << FRACTION_BITS | (quotient - HIDDEN_BIT));
}

double DecimalWithin(quint64 limit, Choices& choices)
{
    const quint64 parts = choices.Of({MILLION, Q_UINT64_C(1), Q_UINT64_C(100)});
    const quint64 numerator = choices.Word() % (limit * parts + 1);
    return WithAnySign(Quotient(numerator, parts), choices);
}

double NumberOfAnyKind(Choices& choices)
{
    constexpr quint64 USUAL = 30000;
    switch (choices.Below(6)) {
    case 1: {
        const double tie = Near(Tie(choices), choices);
        return WithAnySign(tie, choices);
    }
    case 2: {
        const double extreme = Near(Extreme(choices), choices);
        return WithAnySign(extreme, choices);
    }
    case 3:
        return OfBits(choices.Word());
    case 4: {
        const double number = OfUsualSize(choices);
        return WithAnySign(number, choices);
    }
    default:
        return DecimalWithin(USUAL, choices);
    }
}

} // namespace Digest
