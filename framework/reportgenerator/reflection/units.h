#ifndef REPORTGENERATOR_REFLECTION_UNITS_H
#define REPORTGENERATOR_REFLECTION_UNITS_H

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace ReportCore {

// Units of frequencies and bandwidths, which are kept in Hz. Case counts.

/// "Hz", "kHz", "MHz", "GHz".
const QStringList& UnitNames();

/// A number as people write it, with what stands behind it: "121.5 MHz", "25kHz".
struct Quantity
{
    QString number;
    QString unit; ///< letters; empty where there are none
};

/// Nothing of a text that doesn't begin with a number, or where something else than letters follows.
std::optional<Quantity> QuantityIn(const QString& text);

/// In Hz, as though the number were written with as many digits more; nothing for a unit that isn't known.
std::optional<double> InHertz(const Quantity& quantity);

/// For people, in the largest unit of which there is one at least: "121.5 MHz".
QString HertzText(double hertz);

} // namespace ReportCore

#endif
