#ifndef REPORTPICTURE_MAP_H
#define REPORTPICTURE_MAP_H

#include <reportcore/exporting/feature.h>

#include <QtCore/QRectF>
#include <QtCore/QSize>

#include <vector>

class QPainter;

namespace ReportPicture {

class MapScale;
struct MapStyle;

/// The areas of reports on a graticule with degrees and a scale bar, and a legend with their names, frequencies and
/// bandwidths below.
class Map
{
public:
    Map(const std::vector<ReportCore::Feature>& features, QSize size);

    void Draw(QPainter& painter) const;

private:
    struct Entry
    {
        ReportCore::Geometry geometry;
        QString text;
    };

    QRectF Box() const;
    int LegendRows(const MapStyle& style) const;
    void DrawEntry(QPainter& painter, const MapScale& scale, std::size_t number) const;
    void DrawLegend(QPainter& painter, double top, const MapStyle& style) const;

    std::vector<Entry> m_entries;
    QSize m_size;
};

} // namespace ReportPicture

#endif
