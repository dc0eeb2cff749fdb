#include "support/oddvalues.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace Support {
namespace {

using Limits = std::numeric_limits<double>;

constexpr int MILLION = 1000000;

/// The number or one of its neighbours.
double Near(double number, Choices& choices)
{
    switch (choices.Below(4)) {
    case 1:
        return std::nextafter(number, Limits::infinity());
    case 2:
        return std::nextafter(number, -Limits::infinity());
    case 3:
        return -number;
    default:
        return number;
    }
}

double OfRandomBits(Choices& choices)
{
    const quint64 bits = choices.Word();
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

double OddNumber(Choices& choices)
{
    return Near(choices.Of({0.0,
                            -0.0,
                            Limits::quiet_NaN(),
                            Limits::infinity(),
                            Limits::denorm_min(),
                            Limits::min(),
                            Limits::max(),
                            -111111.11,
                            90.0,
                            180.0,
                            4294967295.0,
                            9007199254740992.0,
                            9007199254740993.0,
                            1e15,
                            1e16,
                            1e21,
                            1e22,
                            1e23,
                            1e100,
                            0.001,
                            0.004999,
                            0.0000005,
                            0.000000499,
                            99.999,
                            179.9999995,
                            89.99999949,
                            1.005,
                            4.35,
                            8333.33,
                            0.1 + 0.2}),
                choices);
}

QString OfUnits(std::initializer_list<ushort> units)
{
    QString text;
    for (const ushort unit : units)
        text += QChar(unit);
    return text;
}

QString OfRandomUnits(Choices& choices)
{
    QString text;
    for (int left = choices.Below(8) + 1; left > 0; --left)
        text += QChar(static_cast<ushort>(choices.Word()));
    return text;
}

QString LongText(Choices& choices)
{
    const QString piece = choices.Of({QStringLiteral("a"), QStringLiteral("\u00e4"), QStringLiteral("<&>"),
                                      QStringLiteral("\U0001f4e1"), QStringLiteral(" \n")});
    return piece.repeated(choices.Of({100, 128, 1000, 1024, 1025}));
}

QString OddText(Choices& choices)
{
    switch (choices.Below(16)) {
    case 0:
        return QLatin1String("");
    case 1:
        return QStringLiteral("<>&\"'");
    case 2:
        return QStringLiteral("\t\n\r");
    case 3:
        return QStringLiteral("  in blanks ");
    case 4:
        return OfUnits({'a', 0, 'b'});
    case 5:
        return OfUnits({'a', 0xd800, 'b'});
    case 6:
        return OfUnits({0xdc00});
    case 7:
        return OfUnits({'a', 0xfffe, 0xffff, 0xfdd0});
    case 8:
        return OfUnits({0xd83d, 0xdce1});
    case 9:
        return OfUnits({0xfeff, 'a'});
    case 10:
        return QStringLiteral("]]><!-- --><?x?><![CDATA[&lt;&#65;");
    case 11:
        return OfUnits({1, 7, 8, 0x0b, 0x0c, 0x1b, 0x7f, 0x85, 0xa0, 0x2028});
    case 12:
        return LongText(choices);
    case 13:
        return QStringLiteral("%1 %2");
    case 14:
        return QStringLiteral("\r\n\r");
    default:
        return OfRandomUnits(choices);
    }
}

QString OddNumberText(Choices& choices)
{
    static const std::vector<QString> texts = {
        QLatin1String(""),
        QStringLiteral(" "),
        QStringLiteral("0"),
        QStringLiteral("-0"),
        QStringLiteral("-0.000000"),
        QStringLiteral(" 7 "),
        QStringLiteral("\n\t7.5\r\n"),
        QStringLiteral("+12.25"),
        QStringLiteral("012.500000"),
        QStringLiteral(".5"),
        QStringLiteral("5."),
        QStringLiteral("."),
        QStringLiteral("-"),
        QStringLiteral("1e3"),
        QStringLiteral("1E+2"),
        QStringLiteral("25e-2"),
        QStringLiteral("1e400"),
        QStringLiteral("1e-400"),
        QStringLiteral("nan"),
        QStringLiteral("NaN"),
        QStringLiteral("-nan"),
        QStringLiteral("inf"),
        QStringLiteral("-inf"),
        QStringLiteral("infinity"),
        QStringLiteral("1,5"),
        QStringLiteral("1.000,5"),
        QStringLiteral("12abc"),
        QStringLiteral("12 34"),
        QStringLiteral("1.2.3"),
        QStringLiteral("--1"),
        QStringLiteral("+-1"),
        QStringLiteral("- 1"),
        QStringLiteral("0x10"),
        QStringLiteral("1.5e"),
        QStringLiteral("1_000"),
        QStringLiteral("true"),
        QStringLiteral("180.0000001"),
        QStringLiteral("-180.000000"),
        QStringLiteral("180.000001"),
        QStringLiteral("90.000000000000001"),
        QStringLiteral("90.1"),
        QStringLiteral("9007199254740993"),
        QStringLiteral("123456789012345678901234567890.123456"),
        QStringLiteral("0.1234567890123456789012345678901234567890"),
        QStringLiteral("\u0661\u0662"),
        QStringLiteral("\u22125"),
        QStringLiteral("\uff11"),
        QStringLiteral("\u00a07\u2003"),
        OfUnits({'7', 0, '8'}),
        OfUnits({0xfeff, '7'}),
    };
    return choices.Of(texts);
}

} // namespace

double NumberWithin(double limit, Choices& choices)
{
    const auto millionths = static_cast<quint64>(limit * MILLION);
    if (choices.OneIn(8))
        return choices.Of({0.0, limit, -limit, 0.5, -0.000001, -0.0});
    const quint64 steps = 2 * millionths + 1;
    const auto place = static_cast<qint64>(choices.Word() % steps) - static_cast<qint64>(millionths);
    const double number = static_cast<double>(place) / MILLION;
    if (!choices.OneIn(8))
        return number;
    const double remainder = std::fmod(OfRandomBits(choices), limit);
    return std::isfinite(remainder) ? remainder : number;
}

double NumberNearTie(Choices& choices)
{
    const double parts = choices.Of({2e2, 2e6});
    const quint64 limit = Q_UINT64_C(1) << choices.Below(53);
    const auto odd = static_cast<double>(2 * (choices.Word() % limit) + 1);
    return Near(Near(odd / parts, choices), choices);
}

double AnyNumber(Choices& choices)
{
    constexpr double ANY_ANGLE = 200.0;
    switch (choices.Below(6)) {
    case 1:
        return NumberNearTie(choices);
    case 2:
        return OddNumber(choices);
    case 3:
        return OfRandomBits(choices);
    case 4: {
        const auto digits = static_cast<double>(static_cast<qint64>(choices.Word()));
        return digits * std::pow(10.0, choices.Below(40) - 30);
    }
    default:
        return NumberWithin(ANY_ANGLE, choices);
    }
}

QString PlainText(Choices& choices)
{
    return choices.Of({QStringLiteral("Lake region"), QStringLiteral("script-7"),
                       QStringLiteral("Z\u00fcrich"), QStringLiteral("12.5"),
                       QStringLiteral("\u0416\u4e2d")});
}

QString AnyText(Choices& choices)
{
    switch (choices.Below(4)) {
    case 0:
        return PlainText(choices);
    case 1:
        return QString();
    case 2:
        return OddText(choices);
    default:
        break;
    }
    QString text = OddText(choices);
    text += PlainText(choices);
    return text + OddText(choices);
}

QString DigitsNearMiddle(Choices& choices)
{
    constexpr int MOST_DIGITS = 40;
    // Sixteen to eighteen digits are enough to tell two doubles apart; the rest decides on which side of the
    // middle the number lies.
    const double number = AnyNumber(choices);
    const double next = std::nextafter(number, Limits::infinity());
    const double middle = std::isfinite(next) ? number / 2 + next / 2 : number;
    const char format = choices.Of({'f', 'e'});
    QString text = QString::number(middle, format, choices.Below(MOST_DIGITS));
    const int exponent = static_cast<int>(text.indexOf(QLatin1Char('e')));
    const int end = exponent < 0 ? static_cast<int>(text.size()) : exponent;
    for (int i = choices.Below(4); i > 0; --i)
        text.insert(end, QLatin1Char(choices.Of({'0', '5', '1'})));
    return text;
}

QString AnyNumberText(Choices& choices)
{
    const double number = AnyNumber(choices);
    switch (choices.Below(4)) {
    case 0:
        return QString::number(number, 'f', choices.Of({6, 2, 0, 17}));
    case 1:
        return OddNumberText(choices);
    case 2:
        return QString::number(number, 'g', choices.Below(20));
    default:
        return DigitsNearMiddle(choices);
    }
}

int AnyStreamVersion(Choices& choices)
{
    constexpr int LAST = 19;
    return choices.Below(LAST) + 1;
}

QString AnyVersionText(Choices& choices)
{
    static const std::vector<QString> texts = {
        QStringLiteral("1.0"),
        QStringLiteral("1"),
        QStringLiteral("1.00"),
        QStringLiteral("2.0"),
        QStringLiteral("0.9"),
        QStringLiteral("1.0000001"),
        QStringLiteral("0.99999999999"),
        QStringLiteral(" 1.0 "),
        QStringLiteral("1.0 beta"),
        QStringLiteral("1,0"),
        QStringLiteral("v1"),
        QLatin1String(""),
        QString(),
        QStringLiteral("-1"),
        QStringLiteral("nan"),
        QStringLiteral("inf"),
        QStringLiteral("1e0"),
        QStringLiteral("1e40"),
        OfUnits({'1', '.', '0', 0}),
        OfUnits({0xd800}),
    };
    return choices.Of(texts);
}

} // namespace Support
