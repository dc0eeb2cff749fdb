#include <reportviewer/rowview.h>

#include <QtGui/QClipboard>
#include <QtGui/QFontDatabase>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <limits>

namespace ReportViewer {

RowView::RowView(QWidget* parent) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, viewport(), [this] { viewport()->update(); });
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, viewport(), [this] { viewport()->update(); });
}

void RowView::ShowMark(const Span& mark, qint64 cursor)
{
    m_mark = mark;
    if (!mark.IsEmpty() && mark.end <= Size()) {
        const qint64 first = RowOf(mark.begin);
        const qint64 last = RowOf(mark.end - 1);
        const qint64 rows = std::max(VisibleRows(), 1);
        const qint64 top = verticalScrollBar()->value();
        if (first < top)
            verticalScrollBar()->setValue(static_cast<int>(first));
        else if (last >= top + rows)
            verticalScrollBar()->setValue(static_cast<int>(std::min(first, last - rows + 1)));
    }
    SetCursor(cursor);
}

void RowView::SetMark(const Span& mark)
{
    m_mark = mark;
    viewport()->update();
}

void RowView::SetCursor(qint64 place)
{
    m_cursor = std::clamp<qint64>(place, 0, std::max<qint64>(Size() - 1, 0));
    Reveal(m_cursor);
    viewport()->update();
}

QFont RowView::FixedFont()
{
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

qint64 RowView::Beside(qint64 place, int direction) const
{
    return place + direction;
}

void RowView::Renew()
{
    m_mark = {};
    m_cursor = 0;
    UpdateScrollBars();
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    viewport()->update();
}

int RowView::RowHeight() const
{
    return fontMetrics().height();
}

QColor RowView::MarkColour() const
{
    constexpr int TRANSLUCENT = 90;
    QColor colour = palette().color(QPalette::Active, QPalette::Highlight);
    colour.setAlpha(TRANSLUCENT);
    return colour;
}

void RowView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    painter.translate(-horizontalScrollBar()->value(), 0);
    const qint64 first = verticalScrollBar()->value();
    const qint64 last = std::min(RowCount(), first + VisibleRows() + 1);
    for (qint64 row = first; row < last; ++row)
        PaintRow(painter, row, static_cast<int>(row - first) * RowHeight());
}

void RowView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollBars();
}

void RowView::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        UpdateScrollBars();
}

void RowView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(TextOf(m_mark.IsEmpty() ? Span{m_cursor, m_cursor + 1} : m_mark));
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT Activated(m_cursor);
    } else if (!MoveByKey(*event)) {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

bool RowView::MoveByKey(const QKeyEvent& event)
{
    const bool isFar = (event.modifiers() & Qt::ControlModifier) != 0;
    const Span row = Size() == 0 ? Span() : SpanOf(RowOf(m_cursor));
    switch (event.key()) {
    case Qt::Key_Left:
        MoveCursor(Beside(m_cursor, -1));
        return true;
    case Qt::Key_Right:
        MoveCursor(Beside(m_cursor, 1));
        return true;
    case Qt::Key_Up:
        MoveCursor(Below(-1));
        return true;
    case Qt::Key_Down:
        MoveCursor(Below(1));
        return true;
    case Qt::Key_PageUp:
        MoveCursor(Below(-std::max(VisibleRows() - 1, 1)));
        return true;
    case Qt::Key_PageDown:
        MoveCursor(Below(std::max(VisibleRows() - 1, 1)));
        return true;
    case Qt::Key_Home:
        MoveCursor(isFar ? 0 : row.begin);
        return true;
    case Qt::Key_End:
        MoveCursor(isFar ? Size() - 1 : Beside(row.end, -1));
        return true;
    default:
        return false;
    }
}

/// The place so many rows below the cursor.
qint64 RowView::Below(qint64 rows) const
{
    if (Size() == 0)
        return 0;
    const qint64 row = std::clamp<qint64>(RowOf(m_cursor) + rows, 0, RowCount() - 1);
    return PlaceAt(row, XOf(m_cursor));
}

void RowView::MoveCursor(qint64 place)
{
    if (Size() == 0)
        return;
    SetCursor(place);
    Q_EMIT CursorMoved(m_cursor);
}

void RowView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        FollowMouse(event->pos());
}

void RowView::mouseMoveEvent(QMouseEvent* event)
{
    if ((event->buttons() & Qt::LeftButton) != 0)
        FollowMouse(event->pos());
}

void RowView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && Size() > 0)
        Q_EMIT Activated(m_cursor);
}

void RowView::FollowMouse(const QPoint& position)
{
    const qint64 row = verticalScrollBar()->value() + position.y() / RowHeight();
    if (row >= 0 && row < RowCount())
        MoveCursor(PlaceAt(row, position.x() + horizontalScrollBar()->value()));
}

int RowView::VisibleRows() const
{
    return viewport()->height() / RowHeight();
}

void RowView::UpdateScrollBars()
{
    constexpr qint64 MOST = std::numeric_limits<int>::max();
    const int rows = VisibleRows();
    verticalScrollBar()->setRange(0, static_cast<int>(std::clamp<qint64>(RowCount() - rows, 0, MOST)));
    verticalScrollBar()->setPageStep(std::max(rows, 1));
    horizontalScrollBar()->setRange(0, std::max(Width() - viewport()->width(), 0));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(fontMetrics().averageCharWidth());
}

void RowView::Reveal(qint64 place)
{
    if (Size() == 0)
        return;
    const qint64 row = RowOf(place);
    const qint64 first = verticalScrollBar()->value();
    const int rows = std::max(VisibleRows(), 1);
    if (row < first)
        verticalScrollBar()->setValue(static_cast<int>(row));
    else if (row >= first + rows)
        verticalScrollBar()->setValue(static_cast<int>(row - rows + 1));
    constexpr int ROOM = 3;
    const int x = XOf(place);
    const int left = horizontalScrollBar()->value();
    const int room = ROOM * fontMetrics().averageCharWidth();
    if (x < left)
        horizontalScrollBar()->setValue(std::max(x - room, 0));
    else if (x + room > left + viewport()->width())
        horizontalScrollBar()->setValue(x + room - viewport()->width());
}

} // namespace ReportViewer
