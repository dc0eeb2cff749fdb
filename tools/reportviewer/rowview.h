#ifndef REPORTVIEWER_ROWVIEW_H
#define REPORTVIEWER_ROWVIEW_H

#include <reportviewer/fieldmap.h>

#include <QtWidgets/QAbstractScrollArea>

namespace ReportViewer {

/// Rows of places, bytes or characters, of which one is under the cursor and a part is marked. However many there are,
/// only the visible rows are looked at.
class RowView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit RowView(QWidget* parent = nullptr);

    qint64 Cursor() const { return m_cursor; }
    const Span& Mark() const { return m_mark; }

    /// Puts the cursor to the beginning of the part, and the part into sight: all of it where there is room.
    void ShowMark(const Span& mark) { ShowMark(mark, mark.begin); }

    /// The same with the cursor elsewhere; it is in sight in any case.
    void ShowMark(const Span& mark, qint64 cursor);

    /// Marks it and leaves the cursor where it is.
    void SetMark(const Span& mark);

    void SetCursor(qint64 place);

Q_SIGNALS:
    /// By the user.
    void CursorMoved(qint64 place);

    /// The user has asked for what is at the cursor.
    void Activated(qint64 place);

protected:
    virtual qint64 Size() const = 0;
    virtual qint64 RowCount() const = 0;
    virtual qint64 RowOf(qint64 place) const = 0;
    virtual Span SpanOf(qint64 row) const = 0;

    /// Of the place in its row, in pixels from the left end of what can be scrolled to.
    virtual int XOf(qint64 place) const = 0;
    virtual qint64 PlaceAt(qint64 row, int x) const = 0;
    virtual int Width() const = 0;
    virtual void PaintRow(QPainter& painter, qint64 row, int top) const = 0;

    /// The next place to the right or left.
    virtual qint64 Beside(qint64 place, int direction) const;

    /// Of what is marked, for other programs.
    virtual QString TextOf(const Span& span) const = 0;

    /// A view gets it when it is made.
    static QFont FixedFont();

    /// There is something else to be shown.
    void Renew();
    int RowHeight() const;
    QColor MarkColour() const;

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int VisibleRows() const;
    void UpdateScrollBars();
    void Reveal(qint64 place);
    void MoveCursor(qint64 place);
    bool MoveByKey(const QKeyEvent& event);
    qint64 Below(qint64 rows) const;
    void FollowMouse(const QPoint& position);

    qint64 m_cursor = 0;
    Span m_mark;
};

} // namespace ReportViewer

#endif
