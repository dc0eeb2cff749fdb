#ifndef TESTS_SUPPORT_AGAINSTQT_H
#define TESTS_SUPPORT_AGAINSTQT_H

// The quick way from numbers to texts and back, held against Qt's over numbers and texts drawn at random. The
// ordinary tests draw a million, a program of its own a hundred million.

#include <QtCore/QString>

#include <array>
#include <cstdint>
#include <random>
#include <string>

namespace Support {

using Random = std::mt19937_64;

/// A kind of numbers that are drawn.
struct NumberKind
{
    const char* name;
    double (*draw)(Random& random);
};

extern const std::array<NumberKind, 9> NUMBER_KINDS;

/// A text that is a number, or nearly one: signs, points, blanks and exponents at random places.
QString DrawNumberText(Random& random);

/// What became of the comparisons. One that differs is shown by Qt's text.
struct Comparisons
{
    std::int64_t agreed = 0;
    std::int64_t leftToQt = 0; ///< the quick way said that it can't tell
    std::int64_t differed = 0;
    std::string firstDifference;

    Comparisons& operator+=(const Comparisons& other);
};

/// Writes the number with that many decimals, in bytes and in units of UTF-16, and reads that again.
void CompareNumber(double number, int decimals, Comparisons& written, Comparisons& read);

/// Reads the text, in units of UTF-16 and, when it is Latin-1, in bytes.
void CompareText(const QString& text, Comparisons& read);

} // namespace Support

#endif
