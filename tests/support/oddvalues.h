#ifndef TESTS_SUPPORT_ODDVALUES_H
#define TESTS_SUPPORT_ODDVALUES_H

// Numbers and texts for objects and inputs that are made up by choices: plain ones mostly, and those that
// tell a careless writer or reader from a careful one.

#include "support/choices.h"

#include <QtCore/QString>

namespace Support {

/// A number in [-limit, limit], mostly of six decimals.
double NumberWithin(double limit, Choices& choices);

/// Any double: ties and their neighbours, the ends of the range of `double`, what is no number, random bits.
double AnyNumber(Choices& choices);

/// A tie of hundredths or millionths, or a neighbour of one.
double NumberNearTie(Choices& choices);

/// A text that is not null and holds nothing unusual.
QString PlainText(Choices& choices);

/// Any text: null, empty, long, with characters that XML escapes, drops or replaces, with half a pair of
/// surrogates or a NUL.
QString AnyText(Choices& choices);

/// What may stand where a number is read.
QString AnyNumberText(Choices& choices);

/// Decimal digits near the middle between two doubles, where rounding decides.
QString DigitsNearMiddle(Choices& choices);

/// The version of a `QDataStream`: from the first to the last that Qt 5 has.
int AnyStreamVersion(Choices& choices);

/// What may stand where the version of an area is read.
QString AnyVersionText(Choices& choices);

} // namespace Support

#endif
