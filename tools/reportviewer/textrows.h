#ifndef REPORTVIEWER_TEXTROWS_H
#define REPORTVIEWER_TEXTROWS_H

#include <reportviewer/fieldmap.h>

#include <QtCore/QString>

#include <vector>

namespace ReportViewer {

/// Where the lines of a text begin, and where the rows in which it is shown: a long line takes several of them.
class TextRows
{
public:
    /// Most units in a row.
    static constexpr int LONGEST_ROW = 120;

    TextRows() = default;
    explicit TextRows(const QString& text);

    qint64 Count() const { return static_cast<qint64>(m_rows.size()); }
    qint64 RowOf(qint64 place) const;

    /// With the character that ends the line.
    Span SpanOf(qint64 row) const;

    /// Counted from 1.
    qint64 LineOf(qint64 place) const;
    bool BeginsLine(qint64 row) const;

    // Lines and columns are counted from 1, columns in characters. However long a line is, no more than a row is counted.

    /// In the line of the place.
    qint64 ColumnOf(const QString& text, qint64 place) const;
    qint64 PlaceOf(const QString& text, qint64 line, qint64 column) const;

private:
    struct Row
    {
        qint64 begin = 0;
        qint64 before = 0; ///< characters of its line in front of it
    };

    std::vector<Row> m_rows;
    std::vector<qint64> m_lines;
    qint64 m_size = 0;
};

} // namespace ReportViewer

#endif
