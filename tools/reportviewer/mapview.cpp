#include <reportviewer/mapview.h>

#include <reportviewer/clipping.h>

#include <QtGui/QPainter>
#include <QtGui/QPolygonF>

#include <algorithm>
#include <cmath>

namespace ReportViewer {

using ReportCore::Geometry;
using ReportCore::Point;
using ReportCore::TURN;
using ReportPicture::MapScale;

namespace {

// In pixels

constexpr double OUTSIDE = 50.0;
constexpr double MARK_RADIUS = 6.0;
constexpr double DOT_RADIUS = 2.5;
constexpr double DISTANCE_OF_DOTS = 12.0;
constexpr double NARROWEST = 20.0;

const QRectF& WholeEarth()
{
    static const QRectF box = ReportPicture::BoxAround({});
    return box;
}

/// A colour so far on the way to another one, from 0 to 1.
QColor Mixed(const QColor& colour, const QColor& other, double share)
{
    const auto mixed = [share](int from, int to) {
        return from + static_cast<int>(std::lround((to - from) * share));
    };
    return {mixed(colour.red(), other.red()), mixed(colour.green(), other.green()),
            mixed(colour.blue(), other.blue())};
}

} // namespace

MapView::MapView(QWidget* parent)
    : QWidget(parent), m_contents(std::make_shared<Contents>()),
      m_scale(WholeEarth(), QRectF(0.0, 0.0, 100.0, 100.0))
{
    setObjectName(QStringLiteral("map"));
    setAccessibleName(tr("Map of the area"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(160, 120);
}

QSize MapView::sizeHint() const
{
    return {460, 340};
}

void MapView::SetContents(const ContentsPointer& contents)
{
    m_marked = -1;
    m_isFitted = true;
    Renew(contents);
}

void MapView::Renew(const ContentsPointer& contents)
{
    m_contents = contents;
    m_middle = ReportPicture::BoxAround(m_contents->outline.geometry.parts).center().x();
    setAccessibleDescription(Note());
    if (m_isFitted)
        FitArea();
    Redraw();
}

ReportPicture::MapStyle MapView::Style() const
{
    constexpr double STRENGTH_OF_LINES = 0.25;
    ReportPicture::MapStyle style;
    style.font = font();
    style.paper = palette().color(QPalette::Base);
    style.ink = palette().color(QPalette::Text);
    style.lines = Mixed(style.paper, style.ink, STRENGTH_OF_LINES);
    return style;
}

QString MapView::Note() const
{
    const Outline& outline = m_contents->outline;
    return outline.Undrawn() == 0
               ? QString()
               : tr("%1 of %2 points cannot be drawn").arg(outline.Undrawn()).arg(outline.count);
}

QRectF MapView::Frame() const
{
    const ReportPicture::MapStyle style = Style();
    const QPointF from(style.LabelsLeft(), style.Margin());
    return QRectF(from, QPointF(std::max(width() - style.Margin(), from.x() + NARROWEST),
                                std::max(height() - style.LabelsBelow(), from.y() + NARROWEST)));
}

void MapView::FitArea()
{
    m_isFitted = true;
    m_scale = MapScale(ReportPicture::BoxAround(m_contents->outline.geometry.parts), Frame());
    Redraw();
}

void MapView::SetScale(const MapScale& scale)
{
    m_isFitted = false;
    m_scale = scale;
    Redraw();
}

void MapView::Enlarge(double factor)
{
    EnlargeAround(factor, m_scale.Frame().center());
}

void MapView::EnlargeAround(double factor, const QPointF& around)
{
    // From some turns around the earth down to a metre. A smaller area may be shown larger.
    constexpr double SMALLEST = 0.002;
    constexpr double LARGEST = 1e6;
    const double pixels = m_scale.PixelsOfKilometre() * factor;
    if (factor < 1.0 ? pixels >= SMALLEST : pixels <= LARGEST)
        SetScale(m_scale.Enlarged(factor, around));
}

void MapView::Move(const QPoint& pixels)
{
    SetScale(m_scale.MovedBy(pixels));
}

const Point* MapView::FindItem(int index) const
{
    const auto& items = m_contents->outline.items;
    const auto found = std::lower_bound(items.begin(), items.end(), index,
                                        [](const Point& item, int wanted) { return item.index < wanted; });
    return found == items.end() || found->index != index ? nullptr : &*found;
}

QPointF MapView::PlaceOf(const Point& point) const
{
    const double turns = std::round((m_middle - point.longitude) / TURN);
    return m_scale.At({point.longitude + turns * TURN, point.latitude});
}

void MapView::MarkPoint(int index)
{
    m_marked = index;
    if (const Point* const item = FindItem(index)) {
        const QPointF place = PlaceOf(*item);
        if (!m_scale.Frame().contains(place))
            SetScale(m_scale.MovedBy(m_scale.Frame().center() - place));
    }
    TellPointer();
    update();
}

void MapView::ChooseNext(int direction)
{
    const auto& items = m_contents->outline.items;
    if (items.empty())
        return;
    const auto count = static_cast<std::ptrdiff_t>(items.size());
    const Point* const marked = FindItem(m_marked);
    std::ptrdiff_t next = direction > 0 ? 0 : count - 1;
    if (marked)
        next = (marked - items.data() + direction + count) % count;
    Choose(items[static_cast<std::size_t>(next)]);
}

void MapView::Choose(const Point& item)
{
    MarkPoint(item.index);
    TellPointAt(PlaceOf(item));
    Q_EMIT PointChosen(item.index);
}

/// The nearest one that a pointer could mean.
const Point* MapView::ItemNear(const QPointF& place) const
{
    constexpr double REACH = 12.0;
    const Point* nearest = nullptr;
    double least = REACH;
    for (const Point& item : m_contents->outline.items) {
        const QPointF way = PlaceOf(item) - place;
        const double distance = std::hypot(way.x(), way.y());
        if (distance < least) {
            least = distance;
            nearest = &item;
        }
    }
    return nearest;
}

void MapView::TellPointAt(const QPointF& place)
{
    const Point point = m_scale.PointAt(place);
    if (!m_scale.Frame().contains(place) || std::abs(point.latitude) > WholeEarth().bottom()) {
        Q_EMIT Hovered(QString());
        return;
    }
    constexpr double DECIMALS = 1e5;
    const auto rounded = [](double degrees) { return std::round(degrees * DECIMALS) / DECIMALS; };
    Q_EMIT Hovered(ReportPicture::LatitudeText(rounded(point.latitude)) + QStringLiteral(", ") +
                   ReportPicture::LongitudeText(rounded(point.longitude)));
}

void MapView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, Picture());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.save();
    painter.setClipRect(m_scale.Frame());
    DrawMarked(painter);
    painter.restore();
    const ReportPicture::MapStyle style = Style();
    painter.setPen(
        QPen(hasFocus() ? palette().color(QPalette::Highlight) : style.ink, hasFocus() ? 2.0 : 1.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_scale.Frame());
    ReportPicture::DrawScaleBar(painter, m_scale, style);
    if (const QString note = Note(); !note.isEmpty())
        ReportPicture::DrawNote(painter, m_scale, style, note);
}

/// Going from point to point doesn't draw all of them again.
const QPixmap& MapView::Picture()
{
    const double ratio = devicePixelRatioF();
    const QSize size = (QSizeF(this->size()) * ratio).toSize();
    if (!m_picture.isNull() && m_picture.size() == size && m_picture.devicePixelRatio() == ratio)
        return m_picture;
    m_picture = QPixmap(size);
    m_picture.setDevicePixelRatio(ratio);
    const ReportPicture::MapStyle style = Style();
    m_picture.fill(style.paper);
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    ReportPicture::DrawGraticule(painter, m_scale, style);
    painter.setClipRect(m_scale.Frame());
    DrawOutline(painter);
    return m_picture;
}

/// The picture is another one.
void MapView::Redraw()
{
    m_picture = QPixmap();
    update();
}

void MapView::DrawOutline(QPainter& painter) const
{
    const Geometry& geometry = m_contents->outline.geometry;
    const QRectF seen = m_scale.Frame().adjusted(-OUTSIDE, -OUTSIDE, OUTSIDE, OUTSIDE);
    const QColor colour = ReportPicture::ColourOf(0);
    for (const auto& part : geometry.parts) {
        QPolygonF outline = Thinned(ReportPicture::OnMap(part, m_scale));
        if (geometry.shape == Geometry::Shape::Area)
            outline = ClippedArea(outline, seen);
        if (!outline.isEmpty())
            ReportPicture::DrawShape(painter, geometry.shape, outline, colour);
    }
    painter.setBrush(colour);
    painter.setPen(Qt::NoPen);
    QPointF last(-OUTSIDE, -OUTSIDE);
    for (const Point& item : m_contents->outline.items) {
        const QPointF place = PlaceOf(item);
        const QPointF way = place - last;
        if (!m_scale.Frame().contains(place) ||
            std::max(std::abs(way.x()), std::abs(way.y())) < DISTANCE_OF_DOTS)
            continue;
        painter.drawEllipse(place, DOT_RADIUS, DOT_RADIUS);
        last = place;
    }
}

void MapView::DrawMarked(QPainter& painter) const
{
    const Point* const item = FindItem(m_marked);
    if (!item)
        return;
    const QPointF place = PlaceOf(*item);
    painter.setBrush(Qt::yellow);
    painter.setPen(QPen(Qt::red, 2.0));
    painter.drawEllipse(place, MARK_RADIUS, MARK_RADIUS);
}

} // namespace ReportViewer
