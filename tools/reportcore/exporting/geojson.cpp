#include <reportcore/exporting/formats.h>

#include <reportcore/jsonwriting.h>

#include <reportgenerator/reflection/texts.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <cmath>

namespace ReportCore {

namespace {

QByteArray Position(const Point& point)
{
    return '[' + NumberText(point.longitude).toLatin1() + ',' + NumberText(point.latitude).toLatin1() + ']';
}

QByteArray Positions(const Points& points)
{
    QByteArray json = "[";
    for (const Point& point : points) {
        if (json.size() > 1)
            json += ',';
        json += Position(point);
    }
    return json + ']';
}

/// The coordinates of one part.
QByteArray Part(Geometry::Shape shape, const Points& points)
{
    switch (shape) {
    case Geometry::Shape::Point:
        return Position(points.front());
    case Geometry::Shape::Area:
        return '[' + Positions(points) + ']';
    default:
        return Positions(points);
    }
}

const char* TypeName(Geometry::Shape shape)
{
    switch (shape) {
    case Geometry::Shape::Point:
        return "Point";
    case Geometry::Shape::Area:
        return "Polygon";
    default:
        return "LineString";
    }
}

QByteArray GeometryJson(const Geometry& geometry)
{
    if (geometry.shape == Geometry::Shape::None)
        return "null";
    const bool isMulti = geometry.parts.size() > 1;
    QByteArray coordinates;
    for (const Points& part : geometry.parts) {
        if (!coordinates.isEmpty())
            coordinates += ',';
        coordinates += Part(geometry.shape, part);
    }
    if (isMulti)
        coordinates = '[' + coordinates + ']';
    return QByteArray(R"({"type":")") + (isMulti ? "Multi" : "") + TypeName(geometry.shape) +
           R"(","coordinates":)" + coordinates + '}';
}

QByteArray TextJson(const QString& text)
{
    const QByteArray array = JsonBytes(QJsonDocument(QJsonArray{text}), QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

/// Readers make a column of what they find in it. It stays one of numbers with a fraction: what is no number is null, like
/// what is not set.
QByteArray NumberJson(double number)
{
    return std::isfinite(number) ? FractionText(number).toLatin1() : "null";
}

QByteArray ValueJson(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Double:
        return NumberJson(value.toDouble());
    case QMetaType::Bool:
        return value.toBool() ? "true" : "false";
    case QMetaType::QString:
        return TextJson(value.toString());
    default:
        return "null";
    }
}

QByteArray PropertiesJson(const Feature& feature)
{
    QJsonObject name;
    InsertFileName(name, QStringLiteral("file"), feature.file);
    QByteArray json = JsonBytes(QJsonDocument(name), QJsonDocument::Compact);
    json.chop(1);
    for (std::size_t i = 0; i < feature.values.size(); ++i)
        json += ",\"" + PropertyTypes()[i].name.toUtf8() + "\":" + ValueJson(feature.values[i]);
    return json + '}';
}

/// The type stands in front and the coordinates at the end, so that readers that look at the beginning of a file see
/// what it is.
QByteArray FeatureJson(const Feature& feature)
{
    return QByteArray(R"({"type":"Feature","properties":)") + PropertiesJson(feature) + R"(,"geometry":)" +
           GeometryJson(GeometryOf(feature.outline)) + '}';
}

class GeoJson : public Exporter
{
public:
    QByteArray Begin() override { return "{\"type\":\"FeatureCollection\",\"features\":["; }

    ExportPiece Prepare(Feature feature) const override { return {{}, FeatureJson(feature)}; }

    QByteArray Add(const ExportPiece& piece) override
    {
        const char* const separator = m_isFirst ? "\n" : ",\n";
        m_isFirst = false;
        return separator + piece.text;
    }

    void End(const Write& write) override { write("\n]}\n"); }

private:
    bool m_isFirst = true;
};

class GeoJsonLines : public Exporter
{
public:
    ExportPiece Prepare(Feature feature) const override { return {{}, FeatureJson(feature) + '\n'}; }
};

} // namespace

std::unique_ptr<Exporter> MakeGeoJsonExporter()
{
    return std::make_unique<GeoJson>();
}

std::unique_ptr<Exporter> MakeGeoJsonLinesExporter()
{
    return std::make_unique<GeoJsonLines>();
}

} // namespace ReportCore
