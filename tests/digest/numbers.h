#ifndef TESTS_DIGEST_NUMBERS_H
#define TESTS_DIGEST_NUMBERS_H

// Doubles that are put together of integers: every platform makes the same ones, however it calculates.

#include "support/choices.h"

#include <QtCore/QtGlobal>

namespace Digest {

double OfBits(quint64 bits);

/// The double that is nearest to the quotient, a tie going to the even one. The denominator is from 1 to 2^62.
double Quotient(quint64 numerator, quint64 denominator);

/// A number of up to six decimals in [-limit, limit].
double DecimalWithin(quint64 limit, Support::Choices& choices);

/// Any double: decimals, ties of the decimals that are written and their neighbours, the ends of the range of
/// `double`, what is no number, random bits.
double NumberOfAnyKind(Support::Choices& choices);

} // namespace Digest

#endif
