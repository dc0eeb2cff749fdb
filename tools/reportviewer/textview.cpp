#include <reportviewer/textview.h>

#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include <algorithm>

namespace ReportViewer {

namespace {

/// Digits of the number of a line, at least.
constexpr int FEWEST_DIGITS = 4;

/// What ends a line or has no look of its own is shown as a blank, so that each unit keeps its place.
QString Visible(QString text)
{
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    }
    return text;
}

} // namespace

TextView::TextView(QWidget* parent) : RowView(parent), m_contents(std::make_shared<Contents>())
{
    setFont(FixedFont());
}

void TextView::SetContents(const ContentsPointer& contents)
{
    m_contents = contents;
    Renew();
}

qint64 TextView::Size() const
{
    return m_contents->text.size();
}

qint64 TextView::RowCount() const
{
    return m_contents->rows.Count();
}

qint64 TextView::RowOf(qint64 place) const
{
    return m_contents->rows.RowOf(place);
}

Span TextView::SpanOf(qint64 row) const
{
    return m_contents->rows.SpanOf(row);
}

int TextView::NumbersWidth() const
{
    const auto digits = QString::number(m_contents->rows.LineOf(Size())).size();
    return (std::max<int>(static_cast<int>(digits), FEWEST_DIGITS) + 2) *
           fontMetrics().horizontalAdvance(QLatin1Char('0'));
}

QString TextView::RowText(const Span& span) const
{
    return Visible(
        m_contents->text.mid(static_cast<int>(span.begin), static_cast<int>(span.end - span.begin)));
}

void TextView::Lay(QTextLayout& layout) const
{
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
}

int TextView::XOf(qint64 place) const
{
    const Span span = SpanOf(RowOf(place));
    QTextLayout layout(RowText(span), font());
    Lay(layout);
    return NumbersWidth() +
           static_cast<int>(layout.lineAt(0).cursorToX(static_cast<int>(place - span.begin)));
}

qint64 TextView::PlaceAt(qint64 row, int x) const
{
    const Span span = SpanOf(row);
    QTextLayout layout(RowText(span), font());
    Lay(layout);
    const int column = layout.lineAt(0).xToCursor(x - NumbersWidth(), QTextLine::CursorOnCharacter);
    return std::clamp<qint64>(span.begin + column, span.begin, std::max(span.end - 1, span.begin));
}

int TextView::Width() const
{
    // Other characters than Latin ones may be twice as wide.
    return NumbersWidth() + (TextRows::LONGEST_ROW + 1) * fontMetrics().horizontalAdvance(QLatin1Char('0'));
}

void TextView::PaintRow(QPainter& painter, qint64 row, int top) const
{
    const Span span = SpanOf(row);
    const int left = NumbersWidth();
    if (m_contents->rows.BeginsLine(row)) {
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        const QRect number(0, top, left - fontMetrics().horizontalAdvance(QLatin1Char('0')), RowHeight());
        painter.drawText(number, Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(m_contents->rows.LineOf(span.begin)));
    }
    painter.setPen(palette().color(QPalette::Text));
    QTextLayout layout(RowText(span), font());
    Lay(layout);
    const QTextLine line = layout.lineAt(0);
    const auto xOf = [&](qint64 place) {
        return left + line.cursorToX(static_cast<int>(place - span.begin));
    };
    const Span marked = {std::max(Mark().begin, span.begin), std::min(Mark().end, span.end)};
    if (!marked.IsEmpty()) {
        const qreal begin = xOf(marked.begin);
        painter.fillRect(QRectF(begin, top, xOf(marked.end) - begin, RowHeight()), MarkColour());
    }
    layout.draw(&painter, QPointF(left, top));
    if (Size() > 0 && span.Holds(Cursor())) {
        const qreal begin = xOf(Cursor());
        painter.drawRect(
            QRectF(begin, top, std::max<qreal>(xOf(Beside(Cursor(), 1)) - begin, 1.0), RowHeight() - 1));
    }
}

/// Halves of a character that takes two units are no places.
qint64 TextView::Beside(qint64 place, int direction) const
{
    qint64 next = place + direction;
    if (next > 0 && next < Size() && m_contents->text.at(static_cast<int>(next)).isLowSurrogate())
        next += direction;
    return next;
}

QString TextView::TextOf(const Span& span) const
{
    return m_contents->text.mid(static_cast<int>(span.begin), static_cast<int>(span.end - span.begin));
}

} // namespace ReportViewer
