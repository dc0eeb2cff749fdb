#include <reportcore/importing/decimalcomma.h>

#include <QtCore/QRegularExpression>

namespace ReportCore {

QString WithDecimalPoint(const QString& text)
{
    const QChar comma = QLatin1Char(',');
    if (text.count(comma) != 1 || text.contains(QLatin1Char('.')))
        return text;
    QString changed = text;
    return changed.replace(comma, QLatin1Char('.'));
}

bool IsAmbiguous(const QString& text)
{
    static const QRegularExpression thousands(QStringLiteral("^\\s*[+-]?[1-9][0-9]{0,2},[0-9]{3}\\s*$"));
    return thousands.match(text).hasMatch();
}

} // namespace ReportCore
