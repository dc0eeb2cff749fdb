#ifndef REPORTGENERATOR_CODEC_NUMBERS_H
#define REPORTGENERATOR_CODEC_NUMBERS_H

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace REPORTGENERATOR {

/// How a number of the wire forms is written: fixed notation with `decimals` digits behind the point, filled
/// with blanks on the left up to `width` characters.
struct NumberFormat
{
    int decimals = 2;
    int width = 0;
};

namespace numbers {

/// The number in fixed notation, as it stands in the files: rounded half away from zero, independent of the
/// locale; "nan", "inf" and "-inf" for the numbers that have no digits.
QString ToFixedText(double number, NumberFormat format);

/// The number in the notation that a caller chose by a printf-like format character.
QString ToText(double number, char format, int precision);

/// The number in its shortest notation, as ranges stand in messages.
QString ToShortestText(double number);

/// The number that a text holds, independent of the locale; 0.0 when the text is not a number.
double FromText(QStringView text);

/// The version number that a text holds; 0 when the text is not a number. Versions are compared as numbers of
/// single precision, so "1" and "1.0" are the same version.
float VersionFromText(const QString& text);

} // namespace numbers
} // namespace REPORTGENERATOR

#endif
