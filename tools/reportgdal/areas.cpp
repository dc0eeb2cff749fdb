#include <reportgdal/areas.h>

#include <reportcore/importing/wktreader.h>

#include <utility>

namespace ReportGdal {

using ReportCore::Geometry;
using ReportCore::Points;

namespace {

void SetPoints(OGRSimpleCurve& curve, const Points& points)
{
    curve.setNumPoints(static_cast<int>(points.size()), FALSE);
    int index = 0;
    for (const ReportCore::Point& point : points)
        curve.setPoint(index++, point.longitude, point.latitude);
}

std::unique_ptr<OGRGeometry> PartFor(Geometry::Shape shape, const Points& points)
{
    if (shape == Geometry::Shape::Point)
        return std::make_unique<OGRPoint>(points.front().longitude, points.front().latitude);
    if (shape == Geometry::Shape::Line) {
        auto line = std::make_unique<OGRLineString>();
        SetPoints(*line, points);
        return line;
    }
    auto ring = std::make_unique<OGRLinearRing>();
    SetPoints(*ring, points);
    auto area = std::make_unique<OGRPolygon>();
    area->addRingDirectly(ring.release());
    return area;
}

std::unique_ptr<OGRGeometryCollection> CollectionFor(Geometry::Shape shape)
{
    if (shape == Geometry::Shape::Line)
        return std::make_unique<OGRMultiLineString>();
    return std::make_unique<OGRMultiPolygon>();
}

} // namespace

CoordinateSystem Wgs84()
{
    CoordinateSystem system(new OGRSpatialReference);
    system->SetWellKnownGeogCS("WGS84");
    system->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return system;
}

bool IsWgs84(const OGRSpatialReference* system)
{
    const char* const options[] = {"CRITERION=EQUIVALENT_EXCEPT_AXIS_ORDER_GEOGCRS",
                                   "IGNORE_DATA_AXIS_TO_SRS_AXIS_MAPPING=YES", nullptr};
    return !system || system->IsEmpty() || Wgs84()->IsSame(system, options) != 0;
}

std::unique_ptr<OGRGeometry> GeometryFor(const Geometry& geometry)
{
    if (geometry.shape == Geometry::Shape::None)
        return nullptr;
    if (geometry.parts.size() == 1)
        return PartFor(geometry.shape, geometry.parts.front());
    std::unique_ptr<OGRGeometryCollection> collection = CollectionFor(geometry.shape);
    for (const Points& part : geometry.parts)
        collection->addGeometryDirectly(PartFor(geometry.shape, part).release());
    return collection;
}

void AddOutlines(const OGRGeometry& geometry, ReportCore::ImportedFeature& feature)
{
    // As many digits as tell any two numbers apart.
    OGRWktOptions options;
    options.variant = wkbVariantIso;
    options.precision = 17;
    options.round = false;
    ReportCore::AddWkt(QString::fromStdString(geometry.exportToWkt(options)), feature);
}

} // namespace ReportGdal
