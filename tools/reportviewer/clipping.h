#ifndef REPORTVIEWER_CLIPPING_H
#define REPORTVIEWER_CLIPPING_H

#include <QtCore/QRectF>
#include <QtGui/QPolygonF>

namespace ReportViewer {

/// An area as far as it lies within the frame. What is cut off is replaced by the frame's edges.
QPolygonF ClippedArea(const QPolygonF& area, const QRectF& frame);

/// Without points that nobody could tell from those before them: less than half a pixel away.
QPolygonF Thinned(const QPolygonF& outline);

} // namespace ReportViewer

#endif
