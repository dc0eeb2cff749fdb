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

    /// Both counted from 1, the columns in characters.
    qint64 PlaceOf(const QString& text, qint64 line, qint64 column) const;

private:
    std::vector<qint64> m_rows;
    std::vector<qint64> m_lines;
    qint64 m_size = 0;
};

} // namespace ReportViewer

#endif
