#include <reportpicture/mapdrawing.h>

#include <reportpicture/mapscale.h>

#include <QtGui/QFont>
#include <QtGui/QFontInfo>
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

/// Between lines, and between the labels of longitudes, in pixels.
constexpr double LEAST_BETWEEN_LONGITUDES = 60.0;
constexpr double LEAST_BETWEEN_LABELS = 8.0;

/// The distance of lines on a map that shows so many degrees, each of so many pixels.
double StepFor(double degrees, double pixelsOfDegree, double leastPixels)
{
    double step = GraticuleStep(degrees);
    double more = 2.0 * degrees;
    while (step * pixelsOfDegree < leastPixels && more < TURN * TURN) {
        step = GraticuleStep(more);
        more *= 2.0;
    }
    return step;
}

QPen LinePen()
{
    return QPen(QColor(200, 200, 200), 1.0);
}

/// Calls the function with each multiple of the step from `low` to `high`.
template <class Function>
void ForEachLine(double low, double high, double step, const Function& function)
{
    for (auto i = static_cast<qint64>(std::ceil(low / step)); static_cast<double>(i) * step <= high; ++i)
        function(static_cast<double>(i) * step);
}

double WidestText(double low, double high, double step, const QFont& font, QString (*textOf)(double))
{
    const QFontMetricsF metrics(font);
    double widest = 0.0;
    ForEachLine(low, high, step, [&](double degrees) {
        widest = std::max(widest, metrics.horizontalAdvance(textOf(degrees)));
    });
    return widest;
}

/// So wide that the labels stand beside each other: the finer the lines, the more digits they have.
double StepOfLongitudes(const MapScale& scale, const QFont& font)
{
    const double degrees = scale.East() - scale.West();
    const double pixelsOfDegree = scale.Frame().width() / degrees;
    double least = LEAST_BETWEEN_LONGITUDES;
    while (true) {
        const double step = StepFor(degrees, pixelsOfDegree, least);
        const double needed =
            WidestText(scale.West(), scale.East(), step, font, LongitudeText) + LEAST_BETWEEN_LABELS;
        if (needed <= std::max(least, step * pixelsOfDegree))
            return step;
        least = needed;
    }
}

/// The font, or a smaller one in which a text of this width takes no more than the room.
QFont FittingFont(const QFont& font, double width, double room)
{
    constexpr int SMALLEST = 7;
    QFont fitting = font;
    if (width > room)
        fitting.setPixelSize(
            std::max(SMALLEST, static_cast<int>(QFontInfo(font).pixelSize() * room / width)));
    return fitting;
}

void DrawLongitudes(QPainter& painter, const MapScale& scale)
{
    const QRectF& frame = scale.Frame();
    const QFontMetricsF metrics(painter.font());
    const double south = std::max(scale.South(), -POLE);
    const double north = std::min(scale.North(), POLE);
    ForEachLine(scale.West(), scale.East(), StepOfLongitudes(scale, painter.font()), [&](double longitude) {
        painter.setPen(LinePen());
        painter.drawLine(scale.At({longitude, north}), scale.At({longitude, south}));
        painter.setPen(Ink());
        const QString text = LongitudeText(longitude);
        const double halfWidth = metrics.horizontalAdvance(text) / 2.0;
        // The last one stays within the picture.
        const double middle = std::min(scale.At({longitude, 0.0}).x(), frame.right() + MARGIN - halfWidth);
        painter.drawText(QRectF(middle - LABELS_LEFT, frame.bottom(), 2.0 * LABELS_LEFT, LABELS_BELOW),
                         Qt::AlignCenter, text);
    });
}

void DrawLatitudes(QPainter& painter, const MapScale& scale)
{
    const QRectF& frame = scale.Frame();
    const double south = std::max(scale.South(), -POLE);
    const double north = std::min(scale.North(), POLE);
    const double width = scale.East() - scale.West();
    const double step =
        StepFor(std::max(north - south, width / TURN), frame.height() / (scale.North() - scale.South()), ROW);
    constexpr double LABEL = LABELS_LEFT - BAR_HEIGHT;
    painter.save();
    painter.setFont(
        FittingFont(painter.font(), WidestText(south, north, step, painter.font(), LatitudeText), LABEL));
    ForEachLine(south, north, step, [&](double latitude) {
        const double y = scale.At({0.0, latitude}).y();
        painter.setPen(LinePen());
        painter.drawLine(QPointF(frame.left(), y), QPointF(frame.right(), y));
        painter.setPen(Ink());
        painter.drawText(QRectF(0.0, y - ROW, LABEL, 2.0 * ROW), Qt::AlignRight | Qt::AlignVCenter,
                         LatitudeText(latitude));
    });
    painter.restore();
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
    DrawLongitudes(painter, scale);
    DrawLatitudes(painter, scale);
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
