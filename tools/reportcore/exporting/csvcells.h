#ifndef REPORTCORE_EXPORTING_CSVCELLS_H
#define REPORTCORE_EXPORTING_CSVCELLS_H

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

namespace ReportCore {

// CSV as RFC 4180 has it, in UTF-8.

/// Empty for what isn't set; an empty text stands in quotes. A number of a field has a fraction, so that readers who guess
/// types come to the same ones each time.
QString CsvCell(const QVariant& value);

/// The name of a file. What stands for a byte of it that is no UTF-8 has no bytes of its own and becomes its escape.
QString CsvFile(const QString& file);

/// A line without its end.
QByteArray CsvCells(const QStringList& cells);

constexpr char CSV_LINE_END[] = "\r\n";

} // namespace ReportCore

#endif
