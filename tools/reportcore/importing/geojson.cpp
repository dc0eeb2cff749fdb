#include <reportcore/importing/importing.h>

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

void AddGeometry(const QJsonObject& geometry, ImportedFeature& feature)
{
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

QJsonDocument Parse(const QByteArray& bytes, int line)
{
    QJsonParseError error{};
    const QJsonDocument document = ParseJson(bytes, error);
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

} // namespace

ImportedFeatures ReadGeoJson(const QByteArray& bytes)
{
    ImportedFeatures features;
    if (!IsOnLines(bytes)) {
        AddFeatures(Parse(bytes, 1).object(), features);
        return features;
    }
    const QList<QByteArray> lines = bytes.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        if (lines.at(i).trimmed().isEmpty())
            continue;
        try {
            AddFeatures(Parse(lines.at(i), i + 1).object(), features);
        } catch (const ImportError& error) {
            features.emplace_back();
            features.back().hindrance = error.text;
        }
    }
    return features;
}

} // namespace ReportCore
