#include <reportpicture/map.h>

#include <reportpicture/mapdrawing.h>
#include <reportpicture/mapscale.h>

#include <reportcore/exporting/outline.h>

#include <reportgenerator/reflection/units.h>

#include <QtCore/QStringList>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace ReportPicture {

using ReportCore::Feature;
using ReportCore::FieldKind;
using ReportCore::FieldPath;
using ReportCore::Geometry;
using ReportCore::Points;
using ReportCore::TURN;

namespace {

// In pixels

constexpr int FONT = 13;
constexpr double SWATCH = 12.0;

/// Of the picture's height, at most, for the legend.
constexpr double LEGEND = 0.35;

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
        texts << label + QLatin1Char(' ') + ReportCore::HertzText(feature.values[i].toDouble());
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
    const auto [west, east] = ReportCore::SpanOf(geometry.parts.front());
    return (west + east) / 2.0;
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
    MapStyle style;
    style.font = painter.font();
    style.font.setPixelSize(FONT);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRect(QPoint(0, 0), m_size), style.paper);

    const double legendTop = m_size.height() - style.Margin() - LegendRows(style) * style.Row();
    const QRectF frame(QPointF(style.LabelsLeft(), style.Margin()),
                       QPointF(m_size.width() - style.Margin(), legendTop - style.LabelsBelow()));
    const MapScale scale(Box(), frame);
    DrawGraticule(painter, scale, style);
    painter.save();
    painter.setClipRect(frame);
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        DrawEntry(painter, scale, i);
    painter.restore();
    painter.setPen(QPen(style.ink, 1.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
    DrawScaleBar(painter, scale, style);
    DrawLegend(painter, legendTop, style);
}

QRectF Map::Box() const
{
    std::vector<Points> all;
    for (const Entry& entry : m_entries)
        all.insert(all.end(), entry.geometry.parts.begin(), entry.geometry.parts.end());
    return BoxAround(all);
}

/// The last one tells how many more there are.
int Map::LegendRows(const MapStyle& style) const
{
    const int most = std::max(1, static_cast<int>(m_size.height() * LEGEND / style.Row()));
    return static_cast<int>(std::min(m_entries.size(), static_cast<std::size_t>(most)));
}

void Map::DrawEntry(QPainter& painter, const MapScale& scale, std::size_t number) const
{
    const Geometry& geometry = m_entries[number].geometry;
    for (const Points& part : geometry.parts)
        DrawShape(painter, geometry.shape, OnMap(part, scale), ColourOf(number));
}

void Map::DrawLegend(QPainter& painter, double top, const MapStyle& style) const
{
    const int rows = LegendRows(style);
    const auto left = static_cast<int>(m_entries.size()) - rows;
    const QFontMetricsF metrics(style.font);
    const double indent = style.LabelsLeft();
    painter.setFont(style.font);
    painter.setPen(style.ink);
    for (int i = 0; i < rows; ++i) {
        const bool isRest = left > 0 && i == rows - 1;
        const auto number = static_cast<std::size_t>(i);
        const QRectF row(indent + SWATCH + style.Margin(), top + i * style.Row(),
                         m_size.width() - indent - SWATCH - 2.0 * style.Margin(), style.Row());
        if (!isRest)
            painter.fillRect(QRectF(indent, row.center().y() - SWATCH / 2.0, SWATCH, SWATCH),
                             ColourOf(number));
        const QString text = isRest ? QStringLiteral("and %1 more").arg(left + 1) : m_entries[number].text;
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(text, Qt::ElideRight, row.width()));
    }
}

} // namespace ReportPicture
