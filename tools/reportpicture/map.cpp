#include <reportpicture/map.h>

#include <reportpicture/mapscale.h>

#include <QtCore/QStringList>
#include <QtGui/QColor>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>

#include <algorithm>
#include <cmath>

namespace ReportPicture {

using ReportCore::Feature;
using ReportCore::FieldKind;
using ReportCore::FieldPath;
using ReportCore::Geometry;
using ReportCore::Points;

namespace {

constexpr double TURN = 360.0;
constexpr double POLE = 90.0;

// In pixels

constexpr int FONT = 13;
constexpr double MARGIN = 12.0;
constexpr double LABELS_LEFT = 64.0;
constexpr double LABELS_BELOW = 24.0;
constexpr double ROW = 20.0;
constexpr double SWATCH = 12.0;
constexpr double POINT_RADIUS = 5.0;
constexpr double OUTLINE = 2.0;
constexpr double BAR_HEIGHT = 5.0;

/// Of the picture's height, at most, for the legend.
constexpr double LEGEND = 0.35;

/// Of the map's width, at most, for the scale bar.
constexpr double BAR = 0.25;

/// Free room on each side of the areas, as a part of their extent.
constexpr double ROOM = 0.08;

/// Of a map that shows a single point, in degrees.
constexpr double LEAST_EXTENT = 0.02;

const QColor& Ink()
{
    static const QColor ink(40, 40, 40);
    return ink;
}

/// Neighbours in the legend differ much, and the row never repeats.
QColor ColourOf(std::size_t number)
{
    constexpr int FIRST = 210;
    constexpr int STEP = 137;
    return QColor::fromHsv(static_cast<int>((FIRST + number * STEP) % 360), 200, 190);
}

/// The numbers that a report must have, each with the name of the object that holds it: "frequency 121.5 MHz".
QStringList NumberTexts(const Feature& feature)
{
    QStringList texts;
    for (std::size_t i = 0; i < feature.values.size(); ++i) {
        const ReportCore::PropertyType& type = ReportCore::PropertyTypes()[i];
        const FieldPath::Step& last = type.path.Last();
        if (type.kind != FieldKind::Number || !last.field->Facts().isMandatory ||
            !feature.values[i].isValid())
            continue;
        const QString label =
            type.path.Size() > 1 ? type.path.At(type.path.Size() - 2).field->Label() : last.field->Label();
        texts << label + QLatin1Char(' ') + HertzText(feature.values[i].toDouble());
    }
    return texts;
}

QString LegendText(const Feature& feature, Geometry::Shape shape)
{
    QStringList texts{feature.name.isEmpty() ? feature.file : feature.name};
    texts << NumberTexts(feature);
    if (shape == Geometry::Shape::None)
        texts << QStringLiteral("no area");
    return texts.join(QStringLiteral(", ")).simplified();
}

double MiddleOf(const Geometry& geometry)
{
    const auto ends = std::minmax_element(
        geometry.parts.front().begin(), geometry.parts.front().end(),
        [](const auto& left, const auto& right) { return left.longitude < right.longitude; });
    return (ends.first->longitude + ends.second->longitude) / 2.0;
}

QPolygonF OnMap(const Points& points, const MapScale& scale)
{
    QPolygonF polygon;
    for (const ReportCore::Point& point : points)
        polygon << scale.At(point);
    return polygon;
}

} // namespace

Map::Map(const std::vector<Feature>& features, QSize size) : m_size(size)
{
    const Geometry* first = nullptr;
    m_entries.reserve(features.size());
    for (const Feature& feature : features) {
        Geometry geometry = ReportCore::UncutGeometryOf(feature.outline);
        m_entries.push_back({std::move(geometry), QString()});
        Entry& entry = m_entries.back();
        entry.text = LegendText(feature, entry.geometry.shape);
        if (entry.geometry.parts.empty())
            continue;
        // Areas on either side of the antimeridian stand beside each other.
        if (first) {
            const double shift = TURN * std::round((MiddleOf(*first) - MiddleOf(entry.geometry)) / TURN);
            for (ReportCore::Point& point : entry.geometry.parts.front())
                point.longitude += shift;
        } else {
            first = &entry.geometry;
        }
    }
}

void Map::Draw(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRect(QPoint(0, 0), m_size), Qt::white);
    QFont font = painter.font();
    font.setPixelSize(FONT);
    painter.setFont(font);

    const double legendTop = m_size.height() - MARGIN - LegendRows() * ROW;
    const QRectF frame(QPointF(LABELS_LEFT, MARGIN),
                       QPointF(m_size.width() - MARGIN, legendTop - LABELS_BELOW));
    const MapScale scale(Box(), frame);
    DrawGraticule(painter, scale);
    painter.save();
    painter.setClipRect(frame);
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        DrawEntry(painter, scale, i);
    painter.restore();
    painter.setPen(QPen(Ink(), 1.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
    DrawScaleBar(painter, scale);
    DrawLegend(painter, legendTop);
}

/// What the map is to show, with room around it; the whole earth where there is nothing to be seen.
QRectF Map::Box() const
{
    QPolygonF all;
    for (const Entry& entry : m_entries) {
        for (const Points& part : entry.geometry.parts) {
            for (const ReportCore::Point& point : part)
                all << QPointF(point.longitude, point.latitude);
        }
    }
    if (all.isEmpty())
        return {QPointF(-TURN / 2.0, -POLE), QPointF(TURN / 2.0, POLE)};
    const QRectF bounds = all.boundingRect();
    const double room = std::max(bounds.width(), bounds.height()) * ROOM + LEAST_EXTENT / 2.0;
    return bounds.adjusted(-room, -room, room, room);
}

/// The last one tells how many more there are.
int Map::LegendRows() const
{
    const int most = std::max(1, static_cast<int>(m_size.height() * LEGEND / ROW));
    return static_cast<int>(std::min(m_entries.size(), static_cast<std::size_t>(most)));
}

void Map::DrawGraticule(QPainter& painter, const MapScale& scale) const
{
    const QRectF& frame = scale.Frame();
    const QPen line(QColor(200, 200, 200), 1.0);
    const QPen ink(Ink());
    const double south = std::max(scale.South(), -POLE);
    const double north = std::min(scale.North(), POLE);
    const double width = scale.East() - scale.West();
    const double longitudeStep = GraticuleStep(width);
    for (double i = std::ceil(scale.West() / longitudeStep); i * longitudeStep <= scale.East(); i += 1.0) {
        const double longitude = i * longitudeStep;
        const double x = scale.At({longitude, 0.0}).x();
        painter.setPen(line);
        painter.drawLine(scale.At({longitude, north}), scale.At({longitude, south}));
        painter.setPen(ink);
        painter.drawText(QRectF(x - LABELS_LEFT, frame.bottom(), 2.0 * LABELS_LEFT, LABELS_BELOW),
                         Qt::AlignCenter, LongitudeText(longitude));
    }
    const double latitudeStep = GraticuleStep(std::max(north - south, width / TURN));
    for (double i = std::ceil(south / latitudeStep); i * latitudeStep <= north; i += 1.0) {
        const double y = scale.At({0.0, i * latitudeStep}).y();
        painter.setPen(line);
        painter.drawLine(QPointF(frame.left(), y), QPointF(frame.right(), y));
        painter.setPen(ink);
        painter.drawText(QRectF(0.0, y - ROW, LABELS_LEFT - BAR_HEIGHT, 2.0 * ROW),
                         Qt::AlignRight | Qt::AlignVCenter, LatitudeText(i * latitudeStep));
    }
}

void Map::DrawEntry(QPainter& painter, const MapScale& scale, std::size_t number) const
{
    constexpr int TRANSLUCENT = 70;
    const Geometry& geometry = m_entries[number].geometry;
    const QColor colour = ColourOf(number);
    QColor fill = colour;
    fill.setAlpha(TRANSLUCENT);
    painter.setPen(QPen(colour, OUTLINE));
    painter.setBrush(fill);
    for (const Points& part : geometry.parts) {
        const QPolygonF polygon = OnMap(part, scale);
        if (geometry.shape == Geometry::Shape::Area) {
            painter.drawPolygon(polygon);
        } else if (geometry.shape == Geometry::Shape::Line) {
            painter.drawPolyline(polygon);
        } else {
            painter.setBrush(colour);
            painter.drawEllipse(polygon.first(), POINT_RADIUS, POINT_RADIUS);
        }
    }
}

void Map::DrawScaleBar(QPainter& painter, const MapScale& scale) const
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

void Map::DrawLegend(QPainter& painter, double top) const
{
    const int rows = LegendRows();
    const auto left = static_cast<int>(m_entries.size()) - rows;
    const QFontMetricsF metrics(painter.font());
    for (int i = 0; i < rows; ++i) {
        const bool isRest = left > 0 && i == rows - 1;
        const auto number = static_cast<std::size_t>(i);
        const QRectF row(LABELS_LEFT + SWATCH + MARGIN, top + i * ROW,
                         m_size.width() - LABELS_LEFT - SWATCH - 2.0 * MARGIN, ROW);
        if (!isRest)
            painter.fillRect(QRectF(LABELS_LEFT, row.center().y() - SWATCH / 2.0, SWATCH, SWATCH),
                             ColourOf(number));
        painter.setPen(Ink());
        const QString text = isRest ? QStringLiteral("and %1 more").arg(left + 1) : m_entries[number].text;
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(text, Qt::ElideRight, row.width()));
    }
}

} // namespace ReportPicture
