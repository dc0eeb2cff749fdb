#include <reportgenerator/reportbase/forms/numbers.h>

namespace REPORTGENERATOR::numbers {

namespace {

constexpr int SHORTEST = -1;

} // namespace

QString ToFixedText(double number, NumberFormat format)
{
    return QString::number(number, 'f', format.decimals).rightJustified(format.width, QLatin1Char(' '));
}

QString ToText(double number, char format, int precision)
{
    return QString::number(number, format, precision);
}

QString ToShortestText(double number)
{
    return QStringLiteral("%1").arg(number, 0, 'g', SHORTEST);
}

double FromText(const QString& text)
{
    return text.toDouble();
}

float VersionFromText(const QString& text)
{
    return text.toFloat();
}

} // namespace REPORTGENERATOR::numbers
