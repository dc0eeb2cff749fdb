#include <reportcore/importing/importing.h>
#include <reportcore/importing/wktreader.h>

#include <QtCore/QStringList>

#include <algorithm>

namespace ReportCore {

namespace {

/// Null for an empty cell without quotes: a value that is not set.
using Row = QStringList;

struct Line
{
    int number = 0; ///< from 1 on
    Row row;
};

using Lines = std::vector<Line>;

/// The rows of comma-separated values, with or without quotes around them.
class CsvReader
{
public:
    explicit CsvReader(const QString& text) : m_text(text) {}

    Lines Read()
    {
        Lines lines;
        while (m_place < m_text.size()) {
            const int line = m_line;
            Row row = ReadRow(line);
            // A line without anything is none.
            if (row.size() > 1 || !row.first().isEmpty())
                lines.push_back({line, std::move(row)});
        }
        return lines;
    }

private:
    Row ReadRow(int line)
    {
        Row row;
        for (;;) {
            row << (At(QLatin1Char('"')) ? ReadQuoted(line) : ReadPlain());
            if (At(QLatin1Char(','))) {
                ++m_place;
                continue;
            }
            if (m_place < m_text.size() && !TakeLineEnd())
                throw ImportError{QStringLiteral("line %1: text behind a closing quote").arg(line)};
            ++m_line;
            return row;
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

    bool At(QLatin1Char character) const
    {
        return m_place < m_text.size() && m_text.at(m_place) == character;
    }

    QString ReadPlain()
    {
        const auto start = m_place;
        while (m_place < m_text.size() && !At(QLatin1Char(',')) && !At(QLatin1Char('\n')) &&
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
    decltype(QString().size()) m_place = 0;
    int m_line = 1;
};

/// The place of a column; -1 where there is none.
int FindColumn(const Row& header, std::initializer_list<const char*> names)
{
    const auto found = std::find_if(header.begin(), header.end(), [&names](const QString& cell) {
        return std::any_of(names.begin(), names.end(), [&cell](const char* name) {
            return cell.trimmed().compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
        });
    });
    return found == header.end() ? -1 : static_cast<int>(found - header.begin());
}

/// A comma too many moves all that stands behind it to other columns.
void RequireColumns(const Row& header, const Row& row)
{
    if (row.size() > header.size())
        throw ImportError{QStringLiteral("%1 cells under a header of %2").arg(row.size()).arg(header.size())};
}

ImportedFeature FeatureOf(const Row& header, const Row& row)
{
    ImportedFeature feature;
    for (int i = 0; i < std::min(header.size(), row.size()); ++i)
        feature.properties.emplace_back(header.at(i).trimmed(),
                                        row.at(i).isNull() ? QVariant() : QVariant(row.at(i)));
    return feature;
}

/// Notes what hinders a line from being taken in the feature that it belongs to. The first line to be hindered is told.
template <class TakeLine>
void Take(const Line& line, ImportedFeature& feature, TakeLine&& take)
{
    try {
        take();
    } catch (const ImportError& error) {
        if (feature.hindrance.isEmpty())
            feature.hindrance = QStringLiteral("line %1: %2").arg(line.number).arg(error.text);
    }
}

ImportedFeatures FeaturesWithWkt(const Lines& lines, int wktColumn)
{
    ImportedFeatures features;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        features.push_back(FeatureOf(lines.front().row, lines[i].row));
        Take(lines[i], features.back(), [&] {
            RequireColumns(lines.front().row, lines[i].row);
            const QString wkt = lines[i].row.value(wktColumn);
            if (!wkt.trimmed().isEmpty())
                AddWkt(wkt, features.back());
        });
    }
    return features;
}

double NumberOf(const QString& text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (!isNumber)
        throw ImportError{QStringLiteral("'%1' is no longitude or latitude").arg(text)};
    return number;
}

/// A line is a point. Where points are numbered a report begins with each first one, else all are one report's.
ImportedFeatures FeaturesOfPoints(const Lines& lines, int longitudeColumn, int latitudeColumn)
{
    const Row& header = lines.front().row;
    const int numberColumn = FindColumn(header, {"point"});
    ImportedFeatures features;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const Row& row = lines[i].row;
        const QString number = row.value(numberColumn).trimmed();
        const bool isFirst = number.isEmpty() || number == QLatin1String("1");
        if (features.empty() || (numberColumn >= 0 && isFirst))
            features.push_back(FeatureOf(header, row));
        ImportedFeature& feature = features.back();
        Take(lines[i], feature, [&] {
            RequireColumns(header, row);
            const QString longitude = row.value(longitudeColumn).trimmed();
            const QString latitude = row.value(latitudeColumn).trimmed();
            if (longitude.isEmpty() && latitude.isEmpty())
                return;
            if (feature.parts.empty())
                feature.parts.emplace_back();
            feature.parts.front().points.push_back({NumberOf(longitude), NumberOf(latitude)});
        });
    }
    return features;
}

/// Throws `ImportError` for bytes that are no UTF-8.
QString TextOf(const QByteArray& bytes)
{
    const QByteArray mark = "\xEF\xBB\xBF";
    const QByteArray content = bytes.startsWith(mark) ? bytes.mid(mark.size()) : bytes;
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    const QByteArray again = text.toUtf8();
    if (again == content)
        return text;
    const auto wrong = std::mismatch(content.begin(), content.end(), again.begin(), again.end()).first;
    throw ImportError{QStringLiteral("line %1: not UTF-8").arg(1 + std::count(content.begin(), wrong, '\n'))};
}

} // namespace

ImportedFeatures ReadCsv(const QByteArray& bytes)
{
    const QString text = TextOf(bytes);
    const Lines lines = CsvReader(text).Read();
    if (lines.empty())
        throw ImportError{QStringLiteral("there is no header")};
    const Row& header = lines.front().row;
    const int wkt = FindColumn(header, {"WKT"});
    const int longitude = FindColumn(header, {"longitude", "lon"});
    const int latitude = FindColumn(header, {"latitude", "lat"});
    if (wkt < 0 && (longitude < 0 || latitude < 0))
        throw ImportError{
            QStringLiteral("the header has neither a column 'WKT' nor 'longitude' and 'latitude'")};
    return wkt >= 0 ? FeaturesWithWkt(lines, wkt) : FeaturesOfPoints(lines, longitude, latitude);
}

} // namespace ReportCore
