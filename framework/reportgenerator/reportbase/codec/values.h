#ifndef REPORTGENERATOR_CODEC_VALUES_H
#define REPORTGENERATOR_CODEC_VALUES_H

#include <reportgenerator/reportbase/codec/numbers.h>
#include <reportgenerator/reportbase/codec/scalarfield.h>
#include <reportgenerator/reportbase/converters.h>

#include <QtCore/QString>

namespace REPORTGENERATOR {

// The values that fields have, numbers, switches, texts and times: what is admitted, and their form as a text,
// which XML and tagged form share. A type without these functions does not compile.

/// Whether a value may be set: a number within its range, a text that is not null, any switch.
template <class FieldOfData>
bool IsAdmitted(const FieldOfData& field, double value)
{
    return field.range.Contains(value);
}

template <class FieldOfData>
bool IsAdmitted(const FieldOfData& /*field*/, const QString& value)
{
    return !value.isNull();
}

template <class FieldOfData>
bool IsAdmitted(const FieldOfData& /*field*/, bool /*value*/)
{
    return true;
}

inline QString ToText(double value, NumberFormat format)
{
    return numbers::ToFixedText(value, format);
}

inline QString ToText(bool value, NumberFormat /*format*/)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

inline QString ToText(const QString& value, NumberFormat /*format*/)
{
    return value;
}

inline QString ToText(const QDateTime& value, NumberFormat /*format*/)
{
    return Converters::ToString(value);
}

inline QString ToText(const Name& value, NumberFormat /*format*/)
{
    return value.Text();
}

inline void FromText(const QString& text, double& value)
{
    value = numbers::FromText(text);
}

/// Only "0" and "false", in any case, are false.
inline void FromText(const QString& text, bool& value)
{
    const QString lower = text.toLower();
    value = lower != QLatin1String("0") && lower != QLatin1String("false");
}

/// The text of an element is never null.
inline void FromText(const QString& text, QString& value)
{
    value = text.isNull() ? QLatin1String("") : text;
}

inline void FromText(const QString& text, QDateTime& value)
{
    value = Converters::ToDateTime(text);
}

} // namespace REPORTGENERATOR

#endif
