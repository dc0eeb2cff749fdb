#include <reportcore/importing/importing.h>

#include <reportcore/importing/coordinatesystem.h>
#include <reportcore/jsonreading.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <iterator>

namespace ReportCore {

namespace {

constexpr char TYPE[] = "type";
constexpr char COORDINATES[] = "coordinates";

Point PointOf(const QJsonValue& position)
{
    const QJsonArray numbers = position.toArray();
    // Behind them there may be a height, which no report has.
    if (numbers.size() < 2 || !numbers.at(0).isDouble() || !numbers.at(1).isDouble())
        throw ImportError{QStringLiteral("a position is an array of longitude and latitude")};
    return {numbers.at(0).toDouble(), numbers.at(1).toDouble()};
}

/// The outline that `points` gives, or what hinders it from being one.
template <class MakePoints>
ImportedPart PartOf(MakePoints&& points)
{
    try {
        return {points(), {}};
    } catch (const ImportError& error) {
        return {{}, error.text};
    }
}

Points PointsOf(const QJsonValue& positions)
{
    const QJsonArray array = positions.toArray();
    Points points;
    std::transform(array.begin(), array.end(), std::back_inserter(points), PointOf);
    return points;
}

void AddPolygon(const QJsonValue& rings, ImportedFeature& feature)
{
    const QJsonArray array = rings.toArray();
    if (array.isEmpty())
        return;
    feature.parts.push_back(PartOf([&array] { return PointsOf(array.first()); }));
    if (array.size() > 1)
        feature.parts.back().hindrance = QStringLiteral("an area has no holes");
}

/// What stands in "coordinates" of a geometry that is not made of several.
void AddSimple(const QString& type, const QJsonValue& coordinates, ImportedFeature& feature)
{
    if (type == QLatin1String("Point"))
        feature.parts.push_back(PartOf([&coordinates] { return Points{PointOf(coordinates)}; }));
    else if (type == QLatin1String("LineString"))
        feature.parts.push_back(PartOf([&coordinates] { return PointsOf(coordinates); }));
    else if (type == QLatin1String("Polygon"))
        AddPolygon(coordinates, feature);
    else
        feature.hindrance = QStringLiteral("'%1' is no type of a geometry").arg(type);
}

/// Older GeoJSON may name a coordinate system with anything: by its name, by a link or by its number. Longitude comes first
/// in any of them, whatever order of axes it has by itself.
void RequireWgs84In(const QJsonObject& json)
{
    const QJsonValue system = json.value(QLatin1String("crs"));
    if (system.isUndefined() || system.isNull())
        return;
    const QJsonObject properties = system.toObject().value(QLatin1String("properties")).toObject();
    QString name = system.toString();
    for (const char* const key : {"name", "href", "url", "urn", "code"}) {
        if (name.isEmpty())
            name = properties.value(QLatin1String(key)).toVariant().toString();
    }
    if (name.isEmpty())
        throw ImportError{QStringLiteral("the member 'crs' names no coordinate system")};
    RequireWgs84(name);
}

void AddGeometry(const QJsonObject& geometry, ImportedFeature& feature)
{
    RequireWgs84In(geometry);
    const QString type = geometry.value(QLatin1String(TYPE)).toString();
    const QString multi = QStringLiteral("Multi");
    if (type == QLatin1String("GeometryCollection")) {
        feature.hindrance = QStringLiteral("an area is one outline, not a collection of geometries");
    } else if (type.startsWith(multi)) {
        const QJsonArray parts = geometry.value(QLatin1String(COORDINATES)).toArray();
        for (const QJsonValue part : parts)
            AddSimple(type.mid(multi.size()), part, feature);
    } else {
        AddSimple(type, geometry.value(QLatin1String(COORDINATES)), feature);
    }
}

ImportedFeature FeatureOf(const QJsonObject& json)
{
    RequireWgs84In(json);
    ImportedFeature feature;
    const QJsonObject properties = json.value(QLatin1String("properties")).toObject();
    for (auto i = properties.begin(); i != properties.end(); ++i)
        feature.properties.emplace_back(i.key(), i.value().isNull() ? QVariant() : i.value().toVariant());
    const QJsonValue geometry = json.value(QLatin1String("geometry"));
    if (geometry.isObject())
        AddGeometry(geometry.toObject(), feature);
    return feature;
}

void AddFeatures(const QJsonObject& json, ImportedFeatures& features)
{
    const QString type = json.value(QLatin1String(TYPE)).toString();
    if (type == QLatin1String("FeatureCollection")) {
        RequireWgs84In(json);
        const QJsonArray members = json.value(QLatin1String("features")).toArray();
        for (const QJsonValue member : members)
            features.push_back(FeatureOf(member.toObject()));
    } else if (type == QLatin1String("Feature")) {
        features.push_back(FeatureOf(json));
    } else if (json.contains(QLatin1String(COORDINATES)) || type == QLatin1String("GeometryCollection")) {
        features.emplace_back();
        AddGeometry(json, features.back());
    } else {
        throw ImportError{QStringLiteral("not GeoJSON: no feature, feature collection or geometry")};
    }
}

QJsonDocument Parse(const QByteArray& bytes, qint64 line)
{
    QJsonParseError error{};
    QJsonDocument document = ParseJson(bytes, error);
    if (document.isNull()) {
        const auto before = std::count(bytes.begin(), bytes.begin() + error.offset, '\n');
        throw ImportError{
            QStringLiteral("not JSON: line %1: %2").arg(line + before).arg(error.errorString())};
    }
    return document;
}

/// Whether the first line is an object of its own and another one follows.
bool IsOnLines(const QByteArray& bytes)
{
    const auto end = bytes.indexOf('\n');
    return end > 0 && !bytes.mid(end).trimmed().isEmpty() &&
           QJsonDocument::fromJson(bytes.left(end)).isObject();
}

/// What stands between the texts of a file with several: each begins with a character of its own (RFC 8142), or ends with
/// its line. NUL where it holds one text.
char SeparatorOf(const QByteArray& bytes)
{
    constexpr char RECORD_SEPARATOR = '\x1E';
    if (bytes.trimmed().startsWith(RECORD_SEPARATOR))
        return RECORD_SEPARATOR;
    return IsOnLines(bytes) ? '\n' : '\0';
}

} // namespace

ImportedFeatures ReadGeoJson(const ImportInput& input)
{
    ImportedFeatures features;
    const char separator = SeparatorOf(input.bytes);
    if (separator == '\0') {
        AddFeatures(Parse(input.bytes, 1).object(), features);
        return features;
    }
    qint64 line = 1;
    for (const QByteArray& text : input.bytes.split(separator)) {
        try {
            if (!text.trimmed().isEmpty())
                AddFeatures(Parse(text, line).object(), features);
        } catch (const ImportError& error) {
            features.emplace_back();
            features.back().hindrance = error.text;
        }
        line += separator == '\n' ? 1 : text.count('\n');
    }
    return features;
}

} // namespace ReportCore
