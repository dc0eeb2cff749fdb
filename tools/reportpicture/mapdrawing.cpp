#include <reportpicture/mapdrawing.h>

#include <reportpicture/mapscale.h>

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace ReportPicture {

using ReportCore::Geometry;
using ReportCore::POLE;
using ReportCore::TURN;

namespace {

// In pixels

constexpr double MARGIN = 12.0;
constexpr double ROW = 20.0;
constexpr double POINT_RADIUS = 5.0;
constexpr double OUTLINE = 2.0;
constexpr double BAR_HEIGHT = 5.0;

/// Of the map's width, at most, for the scale bar.
constexpr double BAR = 0.25;

/// Free room on each side of the areas, as a part of their extent.
constexpr double ROOM = 0.08;

/// Of a map that shows a single point, in degrees.
constexpr double LEAST_EXTENT = 0.02;

/// So that their labels stand beside each other, in pixels.
constexpr double LEAST_BETWEEN_LONGITUDES = 60.0;

/// The distance of lines on a map that shows so many degrees, each of so many pixels.
double StepFor(double degrees, double pixelsOfDegree, double leastPixels)
{
    double step = GraticuleStep(degrees);
    for (double more = 2.0 * degrees; step * pixelsOfDegree < leastPixels && more < TURN * TURN; more *= 2.0)
        step = GraticuleStep(more);
    return step;
}

} // namespace

const QColor& Ink()
{
    static const QColor ink(40, 40, 40);
    return ink;
}

QColor ColourOf(std::size_t number)
{
    constexpr int FIRST = 210;
    constexpr int STEP = 137;
    return QColor::fromHsv(static_cast<int>((FIRST + number * STEP) % 360), 200, 190);
}

QRectF BoxAround(const std::vector<ReportCore::Points>& outlines)
{
    QPolygonF points;
    for (const ReportCore::Points& outline : outlines) {
        for (const ReportCore::Point& point : outline)
            points << QPointF(point.longitude, point.latitude);
    }
    if (points.isEmpty())
        return {QPointF(-TURN / 2.0, -POLE), QPointF(TURN / 2.0, POLE)};
    const QRectF bounds = points.boundingRect();
    const double room = std::max(bounds.width(), bounds.height()) * ROOM + LEAST_EXTENT / 2.0;
    return bounds.adjusted(-room, -room, room, room);
}

QPolygonF OnMap(const ReportCore::Points& points, const MapScale& scale)
{
    QPolygonF polygon;
    for (const ReportCore::Point& point : points)
        polygon << scale.At(point);
    return polygon;
}

void DrawGraticule(QPainter& painter, const MapScale& scale)
{
    const QRectF& frame = scale.Frame();
    const QPen line(QColor(200, 200, 200), 1.0);
    const QPen ink(Ink());
    const double south = std::max(scale.South(), -POLE);
    const double north = std::min(scale.North(), POLE);
    const double width = scale.East() - scale.West();
    const double longitudeStep = StepFor(width, frame.width() / width, LEAST_BETWEEN_LONGITUDES);
    for (double i = std::ceil(scale.West() / longitudeStep); i * longitudeStep <= scale.East(); i += 1.0) {
        const double longitude = i * longitudeStep;
        const double x = scale.At({longitude, 0.0}).x();
        painter.setPen(line);
        painter.drawLine(scale.At({longitude, north}), scale.At({longitude, south}));
        painter.setPen(ink);
        painter.drawText(QRectF(x - LABELS_LEFT, frame.bottom(), 2.0 * LABELS_LEFT, LABELS_BELOW),
                         Qt::AlignCenter, LongitudeText(longitude));
    }
    const double latitudeStep =
        StepFor(std::max(north - south, width / TURN), frame.height() / (scale.North() - scale.South()), ROW);
    for (double i = std::ceil(south / latitudeStep); i * latitudeStep <= north; i += 1.0) {
        const double y = scale.At({0.0, i * latitudeStep}).y();
        painter.setPen(line);
        painter.drawLine(QPointF(frame.left(), y), QPointF(frame.right(), y));
        painter.setPen(ink);
        painter.drawText(QRectF(0.0, y - ROW, LABELS_LEFT - BAR_HEIGHT, 2.0 * ROW),
                         Qt::AlignRight | Qt::AlignVCenter, LatitudeText(i * latitudeStep));
    }
}

void DrawShape(QPainter& painter, Geometry::Shape shape, const QPolygonF& outline, const QColor& colour)
{
    constexpr int TRANSLUCENT = 70;
    QColor fill = colour;
    fill.setAlpha(TRANSLUCENT);
    painter.setPen(QPen(colour, OUTLINE));
    painter.setBrush(fill);
    if (shape == Geometry::Shape::Area) {
        painter.drawPolygon(outline);
    } else if (shape == Geometry::Shape::Line) {
        painter.drawPolyline(outline);
    } else {
        painter.setBrush(colour);
        painter.drawEllipse(outline.first(), POINT_RADIUS, POINT_RADIUS);
    }
}

void DrawScaleBar(QPainter& painter, const MapScale& scale)
{
    const QRectF& frame = scale.Frame();
    const double length = RoundStep(frame.width() * BAR / scale.PixelsOfKilometre());
    const QRectF bar(frame.left() + MARGIN, frame.bottom() - MARGIN - BAR_HEIGHT,
                     length * scale.PixelsOfKilometre(), BAR_HEIGHT);
    const QString text = LengthText(length);
    const QRectF label(bar.left(), bar.top() - ROW,
                       std::max(bar.width(), QFontMetricsF(painter.font()).horizontalAdvance(text) + MARGIN),
                       ROW);
    painter.fillRect(bar.united(label).adjusted(-BAR_HEIGHT, 0.0, BAR_HEIGHT, BAR_HEIGHT),
                     QColor(255, 255, 255, 220));
    painter.fillRect(bar, Ink());
    painter.setPen(Ink());
    painter.drawText(label, Qt::AlignLeft | Qt::AlignVCenter, text);
}

} // namespace ReportPicture
