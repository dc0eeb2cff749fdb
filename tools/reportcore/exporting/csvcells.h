#ifndef REPORTCORE_EXPORTING_CSVCELLS_H
#define REPORTCORE_EXPORTING_CSVCELLS_H

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

namespace ReportCore {

// CSV as RFC 4180 has it, in UTF-8, but for names of files that are none.

/// Empty for what isn't set; an empty text stands in quotes. A number of a field has a fraction, so that readers who guess
/// types come to the same ones each time.
QString CsvCell(const QVariant& value);

/// A line without its end.
QByteArray CsvCells(const QStringList& cells);

/// The same with the name of a file in front, in its own bytes: programs find it by them.
QByteArray CsvCells(const QString& file, const QStringList& cells);

constexpr char CSV_LINE_END[] = "\r\n";

} // namespace ReportCore

#endif
