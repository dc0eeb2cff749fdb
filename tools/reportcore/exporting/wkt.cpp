#include <reportcore/exporting/formats.h>
#include <reportcore/exporting/wkttext.h>

#include <reportgenerator/reflection/texts.h>

namespace ReportCore {

namespace {

QByteArray Positions(const Points& points)
{
    QByteArray text = "(";
    for (const Point& point : points) {
        if (text.size() > 1)
            text += ", ";
        text += NumberText(point.longitude).toLatin1() + ' ' + NumberText(point.latitude).toLatin1();
    }
    return text + ')';
}

const char* Keyword(Geometry::Shape shape)
{
    switch (shape) {
    case Geometry::Shape::Point:
        return "POINT ";
    case Geometry::Shape::Area:
        return "POLYGON ";
    default:
        return "LINESTRING ";
    }
}

class Wkt : public Exporter
{
public:
    ExportPiece Prepare(Feature feature) const override
    {
        const QByteArray text = WktText(GeometryOf(feature.outline));
        return {{}, (text.isEmpty() ? QByteArray("GEOMETRYCOLLECTION EMPTY") : text) + '\n'};
    }
};

} // namespace

QByteArray WktText(const Geometry& geometry)
{
    if (geometry.shape == Geometry::Shape::None)
        return QByteArray();
    const bool isArea = geometry.shape == Geometry::Shape::Area;
    QByteArray text;
    for (const Points& part : geometry.parts) {
        if (!text.isEmpty())
            text += ", ";
        text += isArea ? '(' + Positions(part) + ')' : Positions(part);
    }
    const QByteArray keyword = Keyword(geometry.shape);
    return geometry.parts.size() > 1 ? "MULTI" + keyword + '(' + text + ')' : keyword + text;
}

std::unique_ptr<Exporter> MakeWktExporter()
{
    return std::make_unique<Wkt>();
}

} // namespace ReportCore
