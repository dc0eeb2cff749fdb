#include "support/againstqt.h"

#include <reportgenerator/reportbase/codec/fixednumbers.h>

#include <QtCore/QByteArray>
#include <QtCore/QStringView>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>

namespace Support {

namespace {

using REPORTGENERATOR::numbers::MAX_FIXED;
using REPORTGENERATOR::numbers::ReadFixed;
using REPORTGENERATOR::numbers::ReadFixedPrefix;
using REPORTGENERATOR::numbers::WriteFixed;

// --- Drawing ----------------------------------------------------------------------------------------------

// One draw to a statement: every compiler shall draw the same.

/// In [0, count).
std::int64_t Below(Random& random, std::int64_t count)
{
    return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(count));
}

/// In [first, last].
std::int64_t Between(Random& random, std::int64_t first, std::int64_t last)
{
    return first + Below(random, last - first + 1);
}

/// In [0, 1), in steps of all bits that a mantissa has.
double Fraction(Random& random)
{
    return std::ldexp(static_cast<double>(random() >> 11), -53);
}

double WithAnySign(Random& random, double number)
{
    return random() % 2 == 0 ? number : -number;
}

/// The number or one of its next neighbours.
double Near(Random& random, double number)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const std::int64_t steps = Between(random, -4, 4);
    for (std::int64_t step = 0; step < std::abs(steps); ++step)
        number = std::nextafter(number, steps > 0 ? infinity : -infinity);
    return number;
}

double PowerOfTen(Random& random, int first, int last)
{
    return std::pow(10.0, static_cast<double>(Between(random, first, last)));
}

double DrawDegree(Random& random)
{
    return static_cast<double>(Between(random, -180000000, 180000000)) / 1e6;
}

double DrawHertz(Random& random)
{
    return static_cast<double>(Between(random, -100000000, 30000000000000)) / 1e2;
}

double DrawUniform(Random& random)
{
    return 360.0 * Fraction(random) - 180.0;
}

double DrawBits(Random& random)
{
    const std::uint64_t bits = random();
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

/// k + 0.5 units of some decimal: seldom a tie as a number, always one as a text.
double DrawTextTie(Random& random)
{
    const double scale = PowerOfTen(random, 0, 6);
    const std::int64_t units = Below(random, static_cast<std::int64_t>(PowerOfTen(random, 1, 14)));
    return WithAnySign(random, Near(random, (static_cast<double>(units) + 0.5) / scale));
}

/// An odd multiple of a power of two: a tie for the decimal that has its last digit.
double DrawExactTie(Random& random)
{
    const auto places = static_cast<int>(Between(random, 1, 8));
    const std::int64_t odd = 2 * Below(random, static_cast<std::int64_t>(PowerOfTen(random, 1, 14))) + 1;
    return WithAnySign(random, Near(random, std::ldexp(static_cast<double>(odd), -places)));
}

double DrawPowerOfTwo(Random& random)
{
    const auto exponent = static_cast<int>(Between(random, -1074, 1023));
    return WithAnySign(random, Near(random, std::ldexp(1.0, exponent)));
}

double DrawLarge(Random& random)
{
    const double power = PowerOfTen(random, 6, 17);
    return WithAnySign(random, power * (1.0 + Fraction(random)));
}

double DrawSmall(Random& random)
{
    const double power = PowerOfTen(random, -8, 0);
    return WithAnySign(random, power * Fraction(random));
}

void AppendDigits(QString& text, Random& random, std::int64_t count)
{
    for (std::int64_t i = 0; i < count; ++i)
        text += QLatin1Char(static_cast<char>('0' + Below(random, 10)));
}

// --- Comparing --------------------------------------------------------------------------------------------

std::uint64_t BitsIn(double number)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

enum class Outcome
{
    LEFT_TO_QT,
    SAME,
    OTHER
};

/// What the quick way wrote; nothing when it left that to Qt.
template <class Char>
struct Written
{
    Written(double number, int decimals) : end(WriteFixed(text, number, decimals)) {}

    Outcome ComparedWith(const QString& expected) const
    {
        if (end == nullptr)
            return Outcome::LEFT_TO_QT;
        const auto isSame = [](Char unit, QChar character) { return unit == character.unicode(); };
        const Char* const begin = text;
        return std::equal(begin, end, expected.begin(), expected.end(), isSame) ? Outcome::SAME
                                                                                : Outcome::OTHER;
    }

    Char text[MAX_FIXED];
    const Char* end;
};

/// Reads up to `end`; one more unit, which is no part of the number, stands behind it, as in XML. `expected`
/// is what Qt reads, `isNumber` whether it takes the text for a number at all.
template <class Char>
Outcome Reading(const Char* begin, const Char* end, bool isNumber, double expected)
{
    double whole = 0.0;
    double prefix = 0.0;
    const bool isWhole = ReadFixed(begin, end, whole);
    const bool isPrefix = ReadFixedPrefix(begin, end + 1, prefix) == end;
    if (!isWhole && !isPrefix)
        return Outcome::LEFT_TO_QT;
    const bool isSame = BitsIn(whole) == BitsIn(expected) && BitsIn(prefix) == BitsIn(expected);
    return isWhole && isPrefix && isNumber && isSame ? Outcome::SAME : Outcome::OTHER;
}

/// Both kinds of units have the same outcome or something is wrong.
void Count(Outcome bytes, Outcome units, Comparisons& comparisons, const QString& what)
{
    if (bytes != units || bytes == Outcome::OTHER) {
        if (comparisons.differed++ == 0)
            comparisons.firstDifference = what.toStdString();
    } else if (bytes == Outcome::SAME) {
        ++comparisons.agreed;
    } else {
        ++comparisons.leftToQt;
    }
}

} // namespace

const std::array<NumberKind, 9> NUMBER_KINDS = {{
    {"degrees with six decimals", &DrawDegree},
    {"hertz with two decimals", &DrawHertz},
    {"uniform in [-180, 180)", &DrawUniform},
    {"any bits", &DrawBits},
    {"around ties of the text", &DrawTextTie},
    {"around exact ties", &DrawExactTie},
    {"around powers of two", &DrawPowerOfTwo},
    {"large", &DrawLarge},
    {"small", &DrawSmall},
}};

QString DrawNumberText(Random& random)
{
    QString text;
    if (random() % 2 == 0)
        text += QLatin1Char('-');
    AppendDigits(text, random, Between(random, 0, 11));
    if (random() % 4 != 0) {
        text += QLatin1Char('.');
        AppendDigits(text, random, Between(random, 0, 11));
    }
    // Some with a unit that does not belong there, or perhaps does.
    constexpr char16_t ODD[] = u"+-.,eE \t\nx_09aN\u0130\u0660\uFF11\u00A0";
    constexpr int ODD_COUNT = int(std::size(ODD)) - 1;
    if (random() % 4 == 0) {
        const auto place = static_cast<int>(Between(random, 0, text.size()));
        text.insert(place, QChar(ODD[Below(random, ODD_COUNT)]));
    }
    return text;
}

Comparisons& Comparisons::operator+=(const Comparisons& other)
{
    if (differed == 0)
        firstDifference = other.firstDifference;
    agreed += other.agreed;
    leftToQt += other.leftToQt;
    differed += other.differed;
    return *this;
}

void CompareNumber(double number, int decimals, Comparisons& written, Comparisons& read)
{
    const Written<char> bytes(number, decimals);
    const Written<char16_t> units(number, decimals);
    if (bytes.end == nullptr && units.end == nullptr) {
        ++written.leftToQt;
        return;
    }
    const QString expected = QString::number(number, 'f', decimals);
    Count(bytes.ComparedWith(expected), units.ComparedWith(expected), written, expected);
    CompareText(expected, read);
}

void CompareText(const QString& text, Comparisons& read)
{
    bool isNumber = false;
    const double expected = text.toDouble(&isNumber);
    const QString element = text + QLatin1Char('<');
    const QStringView view(element);
    const Outcome units = Reading(view.utf16(), view.utf16() + text.size(), isNumber, expected);
    // A text that is not Latin-1 has no bytes that would hold it.
    const QByteArray bytes = element.toLatin1();
    const bool isLatin1 = QLatin1String(bytes) == element;
    Count(isLatin1 ? Reading(bytes.constData(), bytes.constData() + text.size(), isNumber, expected) : units,
          units, read, text);
}

} // namespace Support
