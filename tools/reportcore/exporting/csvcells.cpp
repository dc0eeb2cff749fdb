#include <reportcore/exporting/csvcells.h>

#include <reportcore/exporting/feature.h>
#include <reportcore/texts.h>

#include <algorithm>

namespace ReportCore {

QString CsvCell(const QVariant& value)
{
    const auto isSpecial = [](QChar character) {
        return character == QLatin1Char('"') || character == QLatin1Char(',') ||
               character == QLatin1Char('\n') || character == QLatin1Char('\r');
    };
    const bool isNumber = value.userType() == QMetaType::Double;
    const QString text = isNumber ? FractionText(value.toDouble()) : PropertyText(value);
    const bool isEmptyText = value.userType() == QMetaType::QString && text.isEmpty();
    if (!isEmptyText && std::none_of(text.begin(), text.end(), isSpecial))
        return text;
    QString quoted = text;
    quoted.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

QString CsvFile(const QString& file)
{
    QString text;
    for (auto i = file.cbegin(); i != file.cend(); ++i) {
        if (i->isHighSurrogate() && i + 1 != file.cend() && (i + 1)->isLowSurrogate()) {
            text += *i;
            ++i;
            text += *i;
        } else {
            text += i->isSurrogate() ? Printable(*i) : QString(*i);
        }
    }
    return CsvCell(text);
}

QByteArray CsvCells(const QStringList& cells)
{
    return cells.join(QLatin1Char(',')).toUtf8();
}

} // namespace ReportCore
