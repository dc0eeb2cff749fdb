#ifndef REPORTVIEWER_MAPVIEW_H
#define REPORTVIEWER_MAPVIEW_H

#include <reportviewer/contents.h>

#include <reportpicture/mapdrawing.h>
#include <reportpicture/mapscale.h>

#include <QtCore/QPoint>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

#include <optional>

namespace ReportViewer {

/// The area of a report on a map that is moved and enlarged with the mouse or with keys: arrows, + and -, Home to see
/// all of it, Page Down and Page Up for the next point and the one before.
class MapView : public QWidget
{
    Q_OBJECT

public:
    explicit MapView(QWidget* parent = nullptr);

    /// Shows the outline of another report, all of it.
    void SetContents(const ContentsPointer& contents);

    /// Shows the same report after a change, at the same place.
    void Renew(const ContentsPointer& contents);

    /// Marks one of the points, and moves the map to where it is seen; nothing for numbers that don't exist.
    void MarkPoint(int index);
    int MarkedPoint() const { return m_marked; }

    void Enlarge(double factor);
    void FitArea();

    /// Marks the next point, or the one before, as if the user had chosen it.
    void ChooseNext(int direction);

    const ReportPicture::MapScale& Scale() const { return m_scale; }

    /// Where a point is on the map, on whichever turn around the earth it is drawn.
    QPointF PlaceOf(const ReportCore::Point& point) const;

    /// What the map says about points that it cannot draw; empty when it draws all of them.
    QString Note() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The coordinates under the pointer, or where keys have led, as a text; empty when that is over.
    void Hovered(const QString& text);

    /// The user has chosen a point by its number.
    void PointChosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    ReportPicture::MapStyle Style() const;
    QRectF Frame() const;
    void TakeFrame();
    void SetScale(const ReportPicture::MapScale& scale);
    void EnlargeAround(double factor, const QPointF& around);
    void Move(const QPoint& pixels);
    void TellPointAt(const QPointF& place);
    void TellPointer();
    const ReportCore::Point* FindItem(int index) const;
    const ReportCore::Point* ItemNear(const QPointF& place) const;
    void Choose(const ReportCore::Point& item);
    const QPixmap& Picture();
    void Redraw();
    void DrawOutline(QPainter& painter) const;
    void DrawMarked(QPainter& painter) const;

    ContentsPointer m_contents;
    ReportPicture::MapScale m_scale;
    double m_middle = 0.0; ///< longitude of the outline
    QPixmap m_picture;     ///< all but the mark and the frame, at this place; null when it isn't drawn yet
    int m_marked = -1;
    bool m_isFitted = true;
    std::optional<QPoint> m_pressed;
    QPoint m_dragged;
    bool m_isDragging = false;
};

} // namespace ReportViewer

#endif
