#include <reportcore/importing/coordinatesystem.h>
#include <reportcore/importing/csvreader.h>
#include <reportcore/importing/decimalcomma.h>
#include <reportcore/importing/importing.h>
#include <reportcore/importing/wktreader.h>

#include <QtCore/QStringList>

#include <algorithm>
#include <utility>

namespace ReportCore {

namespace {

using CsvLines = std::vector<CsvLine>;

/// The place of a column; -1 where there is none.
int FindColumn(const QStringList& header, const char* name)
{
    const auto found = std::find_if(header.begin(), header.end(), [name](const QString& cell) {
        return cell.trimmed().compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
    });
    return found == header.end() ? -1 : static_cast<int>(found - header.begin());
}

/// Where a table holds geometries: in one column as WKT, or in two as numbers. Others are -1.
struct GeometryColumns
{
    int wkt = -1;
    int longitude = -1;
    int latitude = -1;

    bool AreThere() const { return wkt >= 0 || longitude >= 0; }
};

/// Of several the first one that is named here.
GeometryColumns FindGeometryColumns(const QStringList& header)
{
    for (const char* wkt : {"WKT", "wkt_geom", "geom", "the_geom", "geometry"}) {
        const int column = FindColumn(header, wkt);
        if (column >= 0)
            return {column, -1, -1};
    }
    constexpr std::pair<const char*, const char*> NUMBERS[] = {
        {"longitude", "latitude"}, {"lon", "lat"}, {"long", "lat"}, {"lng", "lat"}, {"x", "y"}};
    for (const auto& [x, y] : NUMBERS) {
        const int longitude = FindColumn(header, x);
        const int latitude = FindColumn(header, y);
        if (longitude >= 0 && latitude >= 0)
            return {-1, longitude, latitude};
    }
    return {};
}

GeometryColumns FindGeometryColumns(const QString& text, QChar separator)
{
    try {
        return FindGeometryColumns(ReadCsvHeader(text, separator));
    } catch (const ImportError&) {
        return {};
    }
}

/// The one with which the header has columns of geometries; a comma where there is none.
QChar FindSeparator(const QString& text)
{
    for (const char separator : {',', ';', '\t'}) {
        if (FindGeometryColumns(text, QLatin1Char(separator)).AreThere())
            return QLatin1Char(separator);
    }
    return QLatin1Char(',');
}

/// A comma too many moves all that stands behind it to other columns.
void RequireColumns(const QStringList& header, const QStringList& row)
{
    if (row.size() > header.size())
        throw ImportError{QStringLiteral("%1 cells under a header of %2").arg(row.size()).arg(header.size())};
}

ImportedFeature FeatureOf(const QStringList& header, const QStringList& row)
{
    ImportedFeature feature;
    for (int i = 0; i < std::min(header.size(), row.size()); ++i)
        feature.properties.emplace_back(header.at(i).trimmed(),
                                        row.at(i).isNull() ? QVariant() : QVariant(row.at(i)));
    return feature;
}

/// Notes what hinders a line from being taken in the feature that it belongs to. The first line to be hindered is told.
template <class TakeLine>
void Take(const CsvLine& line, ImportedFeature& feature, TakeLine&& take)
{
    try {
        take();
    } catch (const ImportError& error) {
        if (feature.hindrance.isEmpty())
            feature.hindrance = QStringLiteral("line %1: %2").arg(line.number).arg(error.text);
    }
}

ImportedFeatures FeaturesWithWkt(const CsvLines& lines, int wktColumn)
{
    ImportedFeatures features;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        features.push_back(FeatureOf(lines.front().cells, lines[i].cells));
        Take(lines[i], features.back(), [&] {
            RequireColumns(lines.front().cells, lines[i].cells);
            const QString wkt = lines[i].cells.value(wktColumn);
            if (wkt.trimmed().isEmpty())
                return;
            try {
                AddWkt(wkt, features.back());
            } catch (OtherSystem& system) {
                system.column = lines.front().cells.at(wktColumn).trimmed();
                throw;
            }
        });
    }
    return features;
}

double NumberOf(const QString& text)
{
    bool isNumber = false;
    const double number = WithDecimalPoint(text).toDouble(&isNumber);
    if (!isNumber)
        throw ImportError{QStringLiteral("'%1' is no longitude or latitude").arg(text)};
    return number;
}

/// A line is a point. Where points are numbered a report begins with each first one, else all are one report's.
ImportedFeatures FeaturesOfPoints(const CsvLines& lines, int longitudeColumn, int latitudeColumn)
{
    const QStringList& header = lines.front().cells;
    const int numberColumn = FindColumn(header, "point");
    ImportedFeatures features;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const QStringList& row = lines[i].cells;
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
    QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    const QByteArray again = text.toUtf8();
    if (again == content)
        return text;
    const auto wrong = std::mismatch(content.begin(), content.end(), again.begin(), again.end()).first;
    throw ImportError{QStringLiteral("line %1: not UTF-8").arg(1 + std::count(content.begin(), wrong, '\n'))};
}

} // namespace

ImportedFeatures ReadCsv(const ImportInput& input)
{
    const QString text = TextOf(input.bytes);
    const QChar separator = input.separator.isNull() ? FindSeparator(text) : input.separator;
    const CsvLines lines = ReadCsvLines(text, separator);
    if (lines.empty())
        throw ImportError{QStringLiteral("there is no header")};
    const GeometryColumns columns = FindGeometryColumns(lines.front().cells);
    if (!columns.AreThere())
        throw ImportError{
            QStringLiteral("the header has no column with geometries: WKT, or longitude and latitude")};
    return columns.wkt >= 0 ? FeaturesWithWkt(lines, columns.wkt)
                            : FeaturesOfPoints(lines, columns.longitude, columns.latitude);
}

} // namespace ReportCore
