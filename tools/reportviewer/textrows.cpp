#include <reportviewer/textrows.h>

#include <algorithm>

namespace ReportViewer {

namespace {

/// Of the last beginning that isn't behind the place.
qint64 IndexOf(const std::vector<qint64>& beginnings, qint64 place)
{
    const auto next = std::upper_bound(beginnings.begin(), beginnings.end(), place);
    return std::max<qint64>(next - beginnings.begin() - 1, 0);
}

} // namespace

TextRows::TextRows(const QString& text) : m_rows{0}, m_lines{0}, m_size(text.size())
{
    for (int i = 0; i < text.size(); ++i) {
        const bool isFull = i - m_rows.back() >= LONGEST_ROW && !text.at(i).isLowSurrogate();
        if (isFull && text.at(i) != QLatin1Char('\n'))
            m_rows.push_back(i);
        if (text.at(i) == QLatin1Char('\n')) {
            m_lines.push_back(i + 1);
            m_rows.push_back(i + 1);
        }
    }
}

qint64 TextRows::RowOf(qint64 place) const
{
    return IndexOf(m_rows, place);
}

Span TextRows::SpanOf(qint64 row) const
{
    const auto index = static_cast<std::size_t>(row);
    return {m_rows[index], index + 1 < m_rows.size() ? m_rows[index + 1] : m_size};
}

qint64 TextRows::LineOf(qint64 place) const
{
    return IndexOf(m_lines, place) + 1;
}

bool TextRows::BeginsLine(qint64 row) const
{
    return std::binary_search(m_lines.begin(), m_lines.end(), m_rows[static_cast<std::size_t>(row)]);
}

qint64 TextRows::PlaceOf(const QString& text, qint64 line, qint64 column) const
{
    if (line < 1 || line > static_cast<qint64>(m_lines.size()))
        return m_size;
    qint64 place = m_lines[static_cast<std::size_t>(line - 1)];
    for (qint64 i = 1; i < column && place < m_size; ++i) {
        ++place;
        if (place < m_size && text.at(static_cast<int>(place)).isLowSurrogate())
            ++place;
    }
    return place;
}

} // namespace ReportViewer
