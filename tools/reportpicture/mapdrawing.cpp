#include <reportpicture/mapdrawing.h>

#include <reportpicture/mapscale.h>

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

/// Of the font beside which others are large or small.
constexpr double USUAL_FONT = 13.0;

constexpr double POINT_RADIUS = 5.0;
constexpr double OUTLINE = 2.0;
constexpr double BAR_HEIGHT = 5.0;

/// Of the map's width, at most, for the scale bar.
constexpr double BAR = 0.25;

/// Free room on each side of the areas, as a part of their extent.
constexpr double ROOM = 0.08;

/// Of a map that shows a single point, in degrees of latitude.
constexpr double EXTENT_AROUND_POINT = 0.02;

/// Of any other map: less than that, no form but the binary ones tells points apart.
constexpr double LEAST_EXTENT = 1e-6;

/// Between lines, and between the labels of longitudes, in pixels beside the usual font.
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
double StepOfLongitudes(const MapScale& scale, const MapStyle& style)
{
    const double degrees = scale.East() - scale.West();
    const double pixelsOfDegree = scale.Frame().width() / degrees;
    double least = LEAST_BETWEEN_LONGITUDES * style.Enlargement();
    while (true) {
        const double step = StepFor(degrees, pixelsOfDegree, least);
        const double needed = WidestText(scale.West(), scale.East(), step, style.font, LongitudeText) +
                              LEAST_BETWEEN_LABELS * style.Enlargement();
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

void DrawLongitudes(QPainter& painter, const MapScale& scale, const MapStyle& style)
{
    const QRectF& frame = scale.Frame();
    const QFontMetricsF metrics(style.font);
    const double south = std::max(scale.South(), -POLE);
    const double north = std::min(scale.North(), POLE);
    painter.setFont(style.font);
    ForEachLine(scale.West(), scale.East(), StepOfLongitudes(scale, style), [&](double longitude) {
        painter.setPen(QPen(style.lines, 1.0));
        painter.drawLine(scale.At({longitude, north}), scale.At({longitude, south}));
        painter.setPen(style.ink);
        const QString text = LongitudeText(longitude);
        const double halfWidth = metrics.horizontalAdvance(text) / 2.0;
        // The last one stays within the picture.
        const double middle =
            std::min(scale.At({longitude, 0.0}).x(), frame.right() + style.Margin() - halfWidth);
        painter.drawText(
            QRectF(middle - halfWidth - 1.0, frame.bottom(), 2.0 * halfWidth + 2.0, style.LabelsBelow()),
            Qt::AlignCenter, text);
    });
}

void DrawLatitudes(QPainter& painter, const MapScale& scale, const MapStyle& style)
{
    const QRectF& frame = scale.Frame();
    const double south = std::max(scale.South(), -POLE);
    const double north = std::min(scale.North(), POLE);
    const double width = scale.East() - scale.West();
    const double step = StepFor(std::max(north - south, width / TURN),
                                frame.height() / (scale.North() - scale.South()), style.Row());
    const double room = frame.left() - BAR_HEIGHT;
    painter.setFont(FittingFont(style.font, WidestText(south, north, step, style.font, LatitudeText), room));
    ForEachLine(south, north, step, [&](double latitude) {
        const double y = scale.At({0.0, latitude}).y();
        painter.setPen(QPen(style.lines, 1.0));
        painter.drawLine(QPointF(frame.left(), y), QPointF(frame.right(), y));
        painter.setPen(style.ink);
        painter.drawText(QRectF(0.0, y - style.Row(), room, 2.0 * style.Row()),
                         Qt::AlignRight | Qt::AlignVCenter, LatitudeText(latitude));
    });
}

/// What stands on a map and is to be read all the same.
void DrawPlate(QPainter& painter, const QRectF& plate, const MapStyle& style)
{
    constexpr int HARDLY_TRANSLUCENT = 220;
    QColor colour = style.paper;
    colour.setAlpha(HARDLY_TRANSLUCENT);
    painter.fillRect(plate, colour);
}

} // namespace

double MapStyle::Enlargement() const
{
    return QFontInfo(font).pixelSize() / USUAL_FONT;
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
    // A degree of longitude is shorter than one of latitude.
    const double narrowing = ReportCore::Narrowing(bounds.center().y());
    const double extent = std::max(bounds.width() * narrowing, bounds.height());
    const double least = extent > 0.0 ? LEAST_EXTENT : EXTENT_AROUND_POINT;
    const double room = std::max(extent * ROOM, (least - extent) / 2.0);
    return bounds.adjusted(-room / narrowing, -room, room / narrowing, room);
}

QPolygonF OnMap(const ReportCore::Points& points, const MapScale& scale)
{
    QPolygonF polygon;
    for (const ReportCore::Point& point : points)
        polygon << scale.At(point);
    return polygon;
}

void DrawGraticule(QPainter& painter, const MapScale& scale, const MapStyle& style)
{
    DrawLongitudes(painter, scale, style);
    DrawLatitudes(painter, scale, style);
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

void DrawScaleBar(QPainter& painter, const MapScale& scale, const MapStyle& style)
{
    const QRectF& frame = scale.Frame();
    const double length = RoundStep(frame.width() * BAR / scale.PixelsOfKilometre());
    const double height = BAR_HEIGHT * style.Enlargement();
    const QRectF bar(frame.left() + style.Margin(), frame.bottom() - style.Margin() - height,
                     length * scale.PixelsOfKilometre(), height);
    const QString text = LengthText(length);
    const QRectF label(
        bar.left(), bar.top() - style.Row(),
        std::max(bar.width(), QFontMetricsF(style.font).horizontalAdvance(text) + style.Margin()),
        style.Row());
    DrawPlate(painter, bar.united(label).adjusted(-height, 0.0, height, height), style);
    painter.fillRect(bar, style.ink);
    painter.setFont(style.font);
    painter.setPen(style.ink);
    painter.drawText(label, Qt::AlignLeft | Qt::AlignVCenter, text);
}

void DrawNote(QPainter& painter, const MapScale& scale, const MapStyle& style, const QString& text)
{
    constexpr int FLAGS = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
    const double margin = style.Margin();
    const QRectF room = scale.Frame().adjusted(margin, margin / 2.0, -margin, -margin);
    const QRectF label = QFontMetricsF(style.font).boundingRect(room, FLAGS, text);
    DrawPlate(painter, label.adjusted(-BAR_HEIGHT, 0.0, BAR_HEIGHT, 0.0), style);
    painter.setFont(style.font);
    painter.setPen(style.ink);
    painter.drawText(room, FLAGS, text);
}

} // namespace ReportPicture
