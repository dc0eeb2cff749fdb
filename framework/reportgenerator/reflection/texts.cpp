#include <reportgenerator/reflection/texts.h>

#include <QtCore/QLocale>

#include <cmath>

namespace ReportCore {

namespace {

constexpr int HEXADECIMAL = 16;
constexpr int SHORT_ESCAPE_DIGITS = 4;
constexpr int LONG_ESCAPE_DIGITS = 8;
constexpr uint FIRST_OF_LONG_ESCAPES = 0x10000;

bool IsVisible(uint character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

QString Escape(uint character)
{
    if (character == u'\n')
        return QStringLiteral("\\n");
    if (character == u'\t')
        return QStringLiteral("\\t");
    if (character < FIRST_OF_LONG_ESCAPES)
        return QStringLiteral("\\u%1").arg(character, SHORT_ESCAPE_DIGITS, HEXADECIMAL, QLatin1Char('0'));
    return QStringLiteral("\\U%1").arg(character, LONG_ESCAPE_DIGITS, HEXADECIMAL, QLatin1Char('0'));
}

} // namespace

QString Printable(const QString& text)
{
    QString printable;
    for (auto i = text.cbegin(); i != text.cend(); ++i) {
        const bool isPair = i->isHighSurrogate() && i + 1 != text.cend() && (i + 1)->isLowSurrogate();
        const uint character = isPair ? QChar::surrogateToUcs4(*i, *(i + 1)) : i->unicode();
        if (!IsVisible(character))
            printable += Escape(character);
        else
            printable.append(&*i, isPair ? 2 : 1);
        if (isPair)
            ++i;
    }
    return printable;
}

QString Quoted(const QString& text)
{
    QString escaped = text;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\"))
        .replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1Char('"') + Printable(escaped) + QLatin1Char('"');
}

QString NumberText(double number)
{
    return QString::number(number, 'f', QLocale::FloatingPointShortest);
}

QString FractionText(double number)
{
    const QString text = NumberText(number);
    const bool isWhole = std::isfinite(number) && !text.contains(QLatin1Char('.'));
    return isWhole ? text + QStringLiteral(".0") : text;
}

QString WellFormed(QString text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (!text.at(i).isSurrogate())
            continue;
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        else
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

QByteArray ToUtf8(const QString& text)
{
    return WellFormed(text).toUtf8();
}

} // namespace ReportCore
