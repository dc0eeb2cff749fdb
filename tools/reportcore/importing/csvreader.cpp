#include <reportcore/importing/csvreader.h>

#include <reportcore/importing/importing.h>

namespace ReportCore {

namespace {

class CsvReader
{
public:
    CsvReader(const QString& text, QChar separator) : m_text(text), m_separator(separator) {}

    /// The next line that holds anything. Returns whether there is one.
    bool Read(CsvLine& line)
    {
        while (m_place < m_text.size()) {
            line.number = m_line;
            line.cells = ReadCells();
            if (line.cells.size() > 1 || !line.cells.first().isEmpty())
                return true;
        }
        return false;
    }

private:
    QStringList ReadCells()
    {
        const int line = m_line;
        QStringList cells;
        for (;;) {
            cells << (At(QLatin1Char('"')) ? ReadQuoted(line) : ReadPlain());
            if (At(m_separator)) {
                ++m_place;
                continue;
            }
            if (m_place < m_text.size() && !TakeLineEnd())
                throw ImportError{QStringLiteral("line %1: text behind a closing quote").arg(line)};
            ++m_line;
            return cells;
        }
    }

    /// A carriage return, a line feed or both. Returns whether there was one.
    bool TakeLineEnd()
    {
        const auto begin = m_place;
        if (At(QLatin1Char('\r')))
            ++m_place;
        if (At(QLatin1Char('\n')))
            ++m_place;
        return m_place != begin;
    }

    static int LineEndsIn(const QString& piece)
    {
        return static_cast<int>(piece.count(QLatin1Char('\n')) + piece.count(QLatin1Char('\r')) -
                                piece.count(QLatin1String("\r\n")));
    }

    bool At(QChar character) const { return m_place < m_text.size() && m_text.at(m_place) == character; }

    QString ReadPlain()
    {
        const auto start = m_place;
        while (m_place < m_text.size() && !At(m_separator) && !At(QLatin1Char('\n')) &&
               !At(QLatin1Char('\r')))
            ++m_place;
        return m_place == start ? QString() : m_text.mid(start, m_place - start);
    }

    QString ReadQuoted(int line)
    {
        QString cell = QStringLiteral("");
        for (;;) {
            ++m_place;
            const auto end = m_text.indexOf(QLatin1Char('"'), m_place);
            if (end < 0)
                throw ImportError{QStringLiteral("line %1: a quote is never closed").arg(line)};
            const QString piece = m_text.mid(m_place, end - m_place);
            m_line += LineEndsIn(piece);
            cell += piece;
            m_place = end + 1;
            if (!At(QLatin1Char('"')))
                return cell;
            cell += QLatin1Char('"');
        }
    }

    const QString& m_text;
    QChar m_separator;
    decltype(QString().size()) m_place = 0;
    int m_line = 1;
};

} // namespace

std::vector<CsvLine> ReadCsvLines(const QString& text, QChar separator)
{
    CsvReader reader(text, separator);
    std::vector<CsvLine> lines;
    for (;;) {
        CsvLine line;
        if (!reader.Read(line))
            return lines;
        lines.push_back(line);
    }
}

QStringList ReadCsvHeader(const QString& text, QChar separator)
{
    CsvLine line;
    return CsvReader(text, separator).Read(line) ? line.cells : QStringList();
}

} // namespace ReportCore
