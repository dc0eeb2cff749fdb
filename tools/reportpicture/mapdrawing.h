#ifndef REPORTPICTURE_MAPDRAWING_H
#define REPORTPICTURE_MAPDRAWING_H

// What maps consist of, whatever they show.

#include <reportcore/exporting/geometry.h>

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QPolygonF>

#include <cstddef>
#include <vector>

class QPainter;

namespace ReportPicture {

class MapScale;

/// The font and the colours of a map. Labels, and the room that is left for them, are as large as the font asks for.
struct MapStyle
{
    QFont font;
    QColor paper = QColor(255, 255, 255);
    QColor ink = QColor(40, 40, 40);
    QColor lines = QColor(200, 200, 200);

    // In pixels

    /// Around everything.
    double Margin() const { return 12.0 * Enlargement(); }

    /// Of a line of text.
    double Row() const { return 20.0 * Enlargement(); }

    /// Beside the frame, for the labels of latitudes.
    double LabelsLeft() const { return 64.0 * Enlargement(); }

    /// Below the frame, for the labels of longitudes.
    double LabelsBelow() const { return 24.0 * Enlargement(); }

    /// Beside a font of 13 pixels.
    double Enlargement() const;
};

/// Of one of several areas. Neighbours in a list differ much, and the row never repeats.
QColor ColourOf(std::size_t number);

/// What a map of these outlines shows, with room around them; the whole earth where there are none. X is the longitude, y
/// the latitude.
QRectF BoxAround(const std::vector<ReportCore::Points>& outlines);

/// Where the points are on the map.
QPolygonF OnMap(const ReportCore::Points& points, const MapScale& scale);

/// Lines of longitudes and latitudes, with their degrees outside the frame.
void DrawGraticule(QPainter& painter, const MapScale& scale, const MapStyle& style);

/// An outline, as it is on the map.
void DrawShape(QPainter& painter, ReportCore::Geometry::Shape shape, const QPolygonF& outline,
               const QColor& colour);

/// In the lower left corner of the frame.
void DrawScaleBar(QPainter& painter, const MapScale& scale, const MapStyle& style);

/// A text in the upper left corner of the frame, on as many lines as it needs.
void DrawNote(QPainter& painter, const MapScale& scale, const MapStyle& style, const QString& text);

} // namespace ReportPicture

#endif
