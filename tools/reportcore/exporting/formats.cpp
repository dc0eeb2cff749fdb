#include <reportcore/exporting/formats.h>

namespace ReportCore {

const std::vector<ExportFormat>& ExportFormats()
{
    static const std::vector<ExportFormat> formats = {
        {"geojson", "one GeoJSON feature collection", MakeGeoJsonExporter},
        {"geojsonl", "a GeoJSON feature on each line", MakeGeoJsonLinesExporter},
        {"csv", "a header and a line for each report, with its outline as WKT", MakeCsvExporter},
        {"csv-points", "a header and a line for each point", MakeCsvPointsExporter},
        {"wkt", "the outline of each report on a line, as well-known text", MakeWktExporter},
        {"kml", "KML 2.2, a placemark for each report", MakeKmlExporter},
        {"gpx", "GPX 1.1, a track for each area, a waypoint for a single point", MakeGpxExporter},
        {"svg", "a picture: a map with degrees, a scale and a legend", nullptr, &Painters::svg},
        {"png", "the same picture as pixels", nullptr, &Painters::png, false},
    };
    return formats;
}

} // namespace ReportCore
