#include <reportcore/exporting/csvcells.h>

#include <reportcore/exporting/feature.h>
#include <reportcore/filenames.h>

#include <reportgenerator/reflection/texts.h>

#include <algorithm>

namespace ReportCore {

QString CsvCell(const QVariant& value)
{
    const auto isSpecial = [](QChar character) {
        return character == QLatin1Char('"') || character == QLatin1Char(',') ||
               character == QLatin1Char('\n') || character == QLatin1Char('\r');
    };
    const bool isNumber = value.userType() == QMetaType::Double;
    QString text = isNumber ? FractionText(value.toDouble()) : PropertyText(value);
    const bool isEmptyText = value.userType() == QMetaType::QString && text.isEmpty();
    if (!isEmptyText && std::none_of(text.begin(), text.end(), isSpecial))
        return text;
    text.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QByteArray CsvCells(const QStringList& cells)
{
    return ToUtf8(cells.join(QLatin1Char(',')));
}

QByteArray CsvCells(const QString& file, const QStringList& cells)
{
    return FileNameBytes(CsvCell(file)) + ',' + CsvCells(cells);
}

} // namespace ReportCore
