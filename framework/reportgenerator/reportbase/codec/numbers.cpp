#include <reportgenerator/reportbase/codec/numbers.h>

#include <reportgenerator/reportbase/codec/fixednumbers.h>

namespace REPORTGENERATOR::numbers {

namespace {

constexpr int SHORTEST = -1;

QString Unfilled(double number, int decimals)
{
    char text[MAX_FIXED];
    const char* const end = WriteFixed(text, number, decimals);
    if (end == nullptr)
        return QString::number(number, 'f', decimals);
    return QString::fromLatin1(text, static_cast<int>(end - text));
}

} // namespace

QString ToFixedText(double number, NumberFormat format)
{
    return Unfilled(number, format.decimals).rightJustified(format.width, QLatin1Char(' '));
}

QString ToText(double number, char format, int precision)
{
    return QString::number(number, format, precision);
}

QString ToShortestText(double number)
{
    return QStringLiteral("%1").arg(number, 0, 'g', SHORTEST);
}

double FromText(QStringView text)
{
    double number = 0.0;
    if (ReadFixed(text.utf16(), text.utf16() + text.size(), number))
        return number;
    return text.toString().toDouble();
}

float VersionFromText(const QString& text)
{
    return text.toFloat();
}

} // namespace REPORTGENERATOR::numbers
