#include <reportviewer/mapview.h>

#include <QtGui/QCursor>
#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

#include <cmath>

namespace ReportViewer {

namespace {

/// By which a step of the wheel or a key enlarges.
constexpr double ENLARGING = 1.25;

/// By which a key moves, in pixels.
constexpr int KEY_MOVE = 40;

} // namespace

void MapView::resizeEvent(QResizeEvent* /*event*/)
{
    TakeFrame();
}

/// There is another room for the map.
void MapView::TakeFrame()
{
    if (m_isFitted)
        FitArea();
    else
        m_scale = m_scale.WithFrame(Frame());
    Redraw();
}

void MapView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        TakeFrame();
    else if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        Redraw();
}

void MapView::wheelEvent(QWheelEvent* event)
{
    constexpr double STEP = 120.0;
    const double steps = event->angleDelta().y() / STEP;
    if (steps != 0.0)
        EnlargeAround(std::pow(ENLARGING, steps), event->position());
    event->accept();
}

void MapView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = event->pos();
    m_dragged = event->pos();
    m_isDragging = false;
}

void MapView::mouseMoveEvent(QMouseEvent* event)
{
    TellPointAt(event->pos());
    if (!m_pressed)
        return;
    m_isDragging =
        m_isDragging || (event->pos() - *m_pressed).manhattanLength() >= QApplication::startDragDistance();
    if (!m_isDragging)
        return;
    setCursor(Qt::ClosedHandCursor);
    Move(event->pos() - m_dragged);
    m_dragged = event->pos();
}

void MapView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    m_pressed.reset();
    unsetCursor();
    if (m_isDragging)
        return;
    if (const ReportCore::Point* const item = ItemNear(event->pos()))
        Choose(*item);
}

void MapView::leaveEvent(QEvent* /*event*/)
{
    Q_EMIT Hovered(QString());
}

void MapView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    TellPointer();
}

/// What keys have told is over.
void MapView::TellPointer()
{
    if (underMouse())
        TellPointAt(mapFromGlobal(QCursor::pos()));
    else
        Q_EMIT Hovered(QString());
}

void MapView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        Enlarge(ENLARGING);
        break;
    case Qt::Key_Minus:
        Enlarge(1.0 / ENLARGING);
        break;
    case Qt::Key_Home:
    case Qt::Key_0:
        FitArea();
        break;
    case Qt::Key_Left:
        Move({KEY_MOVE, 0});
        break;
    case Qt::Key_Right:
        Move({-KEY_MOVE, 0});
        break;
    case Qt::Key_Up:
        Move({0, KEY_MOVE});
        break;
    case Qt::Key_Down:
        Move({0, -KEY_MOVE});
        break;
    case Qt::Key_PageDown:
        ChooseNext(1);
        return;
    case Qt::Key_PageUp:
        ChooseNext(-1);
        return;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    TellPointAt(Scale().Frame().center());
}

} // namespace ReportViewer
