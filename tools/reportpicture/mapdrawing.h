#ifndef REPORTPICTURE_MAPDRAWING_H
#define REPORTPICTURE_MAPDRAWING_H

// What maps consist of, whatever they show.

#include <reportcore/exporting/geometry.h>

#include <QtCore/QRectF>
#include <QtGui/QColor>
#include <QtGui/QPolygonF>

#include <cstddef>
#include <vector>

class QPainter;

namespace ReportPicture {

class MapScale;

// Of the labels of the graticule, in pixels

constexpr double LABELS_LEFT = 64.0;
constexpr double LABELS_BELOW = 24.0;

const QColor& Ink();

/// Of one of several areas. Neighbours in a list differ much, and the row never repeats.
QColor ColourOf(std::size_t number);

/// What a map of these outlines shows, with room around them; the whole earth where there are none. X is the longitude, y
/// the latitude.
QRectF BoxAround(const std::vector<ReportCore::Points>& outlines);

/// Where the points are on the map.
QPolygonF OnMap(const ReportCore::Points& points, const MapScale& scale);

/// Lines of longitudes and latitudes, with their degrees outside the frame.
void DrawGraticule(QPainter& painter, const MapScale& scale);

/// An outline, as it is on the map.
void DrawShape(QPainter& painter, ReportCore::Geometry::Shape shape, const QPolygonF& outline,
               const QColor& colour);

/// In the lower left corner of the frame.
void DrawScaleBar(QPainter& painter, const MapScale& scale);

} // namespace ReportPicture

#endif
