#include <reportviewer/textrows.h>

#include <algorithm>

namespace ReportViewer {

namespace {

/// Both halves of a character that takes two units are one.
qint64 CountCharacters(const QString& text, qint64 begin, qint64 end)
{
    qint64 count = 0;
    for (qint64 place = begin; place < end; ++place)
        count += text.at(static_cast<int>(place)).isLowSurrogate() ? 0 : 1;
    return count;
}

} // namespace

TextRows::TextRows(const QString& text) : m_rows{{0, 0}}, m_lines{0}, m_size(text.size())
{
    qint64 characters = 0;
    for (int i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        const bool isFull = i - m_rows.back().begin >= LONGEST_ROW && !unit.isLowSurrogate();
        if (isFull && unit != QLatin1Char('\n'))
            m_rows.push_back({i, characters});
        if (!unit.isLowSurrogate())
            ++characters;
        if (unit == QLatin1Char('\n')) {
            characters = 0;
            m_lines.push_back(i + 1);
            m_rows.push_back({i + 1, characters});
        }
    }
}

qint64 TextRows::RowOf(qint64 place) const
{
    const auto next = std::upper_bound(m_rows.begin(), m_rows.end(), place,
                                       [](qint64 wanted, const Row& row) { return wanted < row.begin; });
    return std::max<qint64>(next - m_rows.begin() - 1, 0);
}

Span TextRows::SpanOf(qint64 row) const
{
    const auto index = static_cast<std::size_t>(row);
    return {m_rows[index].begin, index + 1 < m_rows.size() ? m_rows[index + 1].begin : m_size};
}

qint64 TextRows::LineOf(qint64 place) const
{
    const auto next = std::upper_bound(m_lines.begin(), m_lines.end(), place);
    return std::max<qint64>(next - m_lines.begin(), 1);
}

bool TextRows::BeginsLine(qint64 row) const
{
    return std::binary_search(m_lines.begin(), m_lines.end(), m_rows[static_cast<std::size_t>(row)].begin);
}

qint64 TextRows::ColumnOf(const QString& text, qint64 place) const
{
    const Row& row = m_rows[static_cast<std::size_t>(RowOf(place))];
    return row.before + CountCharacters(text, row.begin, place) + 1;
}

qint64 TextRows::PlaceOf(const QString& text, qint64 line, qint64 column) const
{
    if (line < 1 || line > static_cast<qint64>(m_lines.size()))
        return m_size;
    const qint64 begin = m_lines[static_cast<std::size_t>(line - 1)];
    const qint64 end =
        line < static_cast<qint64>(m_lines.size()) ? m_lines[static_cast<std::size_t>(line)] : m_size + 1;
    const auto rows = m_rows.begin() + static_cast<std::ptrdiff_t>(RowOf(begin));
    const auto last = std::lower_bound(rows, m_rows.end(), end,
                                       [](const Row& row, qint64 wanted) { return row.begin < wanted; });
    const auto behind = std::upper_bound(rows, last, column - 1,
                                         [](qint64 wanted, const Row& row) { return wanted < row.before; });
    const Row& row = *(behind == rows ? rows : behind - 1);
    qint64 place = row.begin;
    for (qint64 i = row.before + 1; i < column && place < m_size; ++i) {
        ++place;
        if (place < m_size && text.at(static_cast<int>(place)).isLowSurrogate())
            ++place;
    }
    return place;
}

} // namespace ReportViewer
