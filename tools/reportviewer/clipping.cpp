#include <reportviewer/clipping.h>

#include <algorithm>
#include <cmath>

namespace ReportViewer {

namespace {

/// Cuts off what lies beyond one edge. `depth` tells how far within the edge a point is.
template <class Depth>
QPolygonF ClippedAt(const QPolygonF& area, const Depth& depth)
{
    QPolygonF clipped;
    for (int i = 0; i < area.size(); ++i) {
        const QPointF& from = area.at(i);
        const QPointF& to = area.at(i + 1 < area.size() ? i + 1 : 0);
        const double fromDepth = depth(from);
        const double toDepth = depth(to);
        if (fromDepth >= 0.0)
            clipped << from;
        if ((fromDepth < 0.0) != (toDepth < 0.0))
            clipped << from + (to - from) * (fromDepth / (fromDepth - toDepth));
    }
    return clipped;
}

} // namespace

QPolygonF ClippedArea(const QPolygonF& area, const QRectF& frame)
{
    if (frame.contains(area.boundingRect()))
        return area;
    QPolygonF clipped = ClippedAt(area, [&frame](const QPointF& point) { return point.x() - frame.left(); });
    clipped = ClippedAt(clipped, [&frame](const QPointF& point) { return frame.right() - point.x(); });
    clipped = ClippedAt(clipped, [&frame](const QPointF& point) { return point.y() - frame.top(); });
    return ClippedAt(clipped, [&frame](const QPointF& point) { return frame.bottom() - point.y(); });
}

QPolygonF Thinned(const QPolygonF& outline)
{
    constexpr double LEAST = 0.5;
    QPolygonF thinned;
    for (const QPointF& point : outline) {
        const QPointF way = thinned.isEmpty() ? QPointF() : point - thinned.last();
        if (thinned.isEmpty() || std::max(std::abs(way.x()), std::abs(way.y())) >= LEAST)
            thinned << point;
    }
    return thinned;
}

} // namespace ReportViewer
