#ifndef REPORTCORE_IMPORTING_CSVREADER_H
#define REPORTCORE_IMPORTING_CSVREADER_H

#include <QtCore/QChar>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

namespace ReportCore {

/// A line of a table.
struct CsvLine
{
    int number = 0; ///< from 1 on

    /// Null for an empty cell without quotes: a value that is not set.
    QStringList cells;
};

/// All lines that hold anything. Cells may stand in quotes. Throws `ImportError` for what is no table.
std::vector<CsvLine> ReadCsvLines(const QString& text, QChar separator);

/// The cells of the first of them; none where there is none.
QStringList ReadCsvHeader(const QString& text, QChar separator);

} // namespace ReportCore

#endif
