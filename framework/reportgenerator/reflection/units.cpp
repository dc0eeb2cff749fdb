#include <reportgenerator/reflection/units.h>

#include <reportgenerator/reflection/texts.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace ReportCore {

namespace {

struct KnownUnit
{
    const char* name;
    int exponent; ///< of ten, in Hz
    double factor;
};

constexpr KnownUnit UNITS[] = {{"Hz", 0, 1.0}, {"kHz", 3, 1e3}, {"MHz", 6, 1e6}, {"GHz", 9, 1e9}};

bool IsNumber(const QString& text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && std::isfinite(number);
}

} // namespace

const QStringList& UnitNames()
{
    static const QStringList names = [] {
        QStringList all;
        for (const KnownUnit& unit : UNITS)
            all << QLatin1String(unit.name);
        return all;
    }();
    return names;
}

std::optional<Quantity> QuantityIn(const QString& text)
{
    auto end = text.size();
    while (end > 0 && text.at(end - 1).isLetter())
        --end;
    const Quantity quantity = {text.left(end).trimmed(), text.mid(end)};
    return IsNumber(quantity.number) ? std::optional<Quantity>(quantity) : std::nullopt;
}

/// Multiplying would round once more: 1.001 MHz are 1001000 Hz, not 1000999.9999999999.
std::optional<double> InHertz(const Quantity& quantity)
{
    const auto* const unit = std::find_if(std::begin(UNITS), std::end(UNITS), [&](const KnownUnit& known) {
        return quantity.unit == QLatin1String(known.name);
    });
    if (unit == std::end(UNITS))
        return std::nullopt;
    const QString number = quantity.number.toLower();
    const int exponent = number.section(QLatin1Char('e'), 1).toInt() + unit->exponent;
    const QString scaled =
        number.section(QLatin1Char('e'), 0, 0) + QLatin1Char('e') + QString::number(exponent);
    return scaled.toDouble();
}

QString HertzText(double hertz)
{
    const auto unit = std::find_if(std::rbegin(UNITS), std::rend(UNITS), [hertz](const KnownUnit& known) {
        return std::abs(hertz) >= known.factor;
    });
    const KnownUnit& best = unit == std::rend(UNITS) ? UNITS[0] : *unit;
    return NumberText(hertz / best.factor) + QLatin1Char(' ') + QLatin1String(best.name);
}

} // namespace ReportCore
