#include <reportviewer/hexview.h>

#include <QtGui/QPainter>

#include <algorithm>

namespace ReportViewer {

namespace {

constexpr qint64 BYTES_OF_ROW = 16;

/// Behind so many bytes there is a gap.
constexpr qint64 GROUP = 8;

constexpr int OFFSET_DIGITS = 8;
constexpr int HEXADECIMAL = 16;

// In characters

constexpr int OFFSET_WIDTH = OFFSET_DIGITS + 2;
constexpr int BYTE_WIDTH = 3;
constexpr int ASCII_COLUMN = OFFSET_WIDTH + BYTE_WIDTH * static_cast<int>(BYTES_OF_ROW) + 2;

QChar AsciiOf(char byte)
{
    const bool isPrintable = byte >= ' ' && byte <= '~';
    return isPrintable ? QLatin1Char(byte) : QLatin1Char('.');
}

} // namespace

HexView::HexView(QWidget* parent) : RowView(parent)
{
    setFont(FixedFont());
}

void HexView::SetBytes(const QByteArray& bytes)
{
    m_bytes = bytes;
    Renew();
}

qint64 HexView::RowCount() const
{
    return (Size() + BYTES_OF_ROW - 1) / BYTES_OF_ROW;
}

qint64 HexView::RowOf(qint64 place) const
{
    return place / BYTES_OF_ROW;
}

Span HexView::SpanOf(qint64 row) const
{
    return {row * BYTES_OF_ROW, std::min((row + 1) * BYTES_OF_ROW, Size())};
}

int HexView::CharacterWidth() const
{
    return std::max(fontMetrics().horizontalAdvance(QLatin1Char('0')), 1);
}

int HexView::XOfColumn(qint64 column) const
{
    const int gap = column >= GROUP ? 1 : 0;
    return (OFFSET_WIDTH + static_cast<int>(column) * BYTE_WIDTH + gap) * CharacterWidth();
}

int HexView::XOfAscii(qint64 column) const
{
    return (ASCII_COLUMN + static_cast<int>(column)) * CharacterWidth();
}

int HexView::XOf(qint64 place) const
{
    return XOfColumn(place % BYTES_OF_ROW);
}

qint64 HexView::PlaceAt(qint64 row, int x) const
{
    const Span span = SpanOf(row);
    qint64 column = 0;
    if (x >= XOfAscii(0)) {
        column = (x - XOfAscii(0)) / CharacterWidth();
    } else {
        while (column + 1 < BYTES_OF_ROW && x >= XOfColumn(column + 1))
            ++column;
    }
    return std::min(span.begin + column, span.end - 1);
}

int HexView::Width() const
{
    return XOfAscii(BYTES_OF_ROW) + CharacterWidth();
}

void HexView::PaintRow(QPainter& painter, qint64 row, int top) const
{
    const int height = RowHeight();
    const int width = CharacterWidth();
    const int base = top + fontMetrics().ascent();
    const QColor mark = MarkColour();
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(
        0, base, QStringLiteral("%1").arg(row * BYTES_OF_ROW, OFFSET_DIGITS, HEXADECIMAL, QLatin1Char('0')));
    painter.setPen(palette().color(QPalette::Text));
    const Span span = SpanOf(row);
    for (qint64 place = span.begin; place < span.end; ++place) {
        const qint64 column = place - span.begin;
        const QRect hex(XOfColumn(column), top, 2 * width, height);
        const QRect ascii(XOfAscii(column), top, width, height);
        if (Mark().Holds(place)) {
            const bool goesOn = Mark().Holds(place + 1) && column + 1 < BYTES_OF_ROW;
            painter.fillRect(
                goesOn ? QRect(hex.topLeft(), QPoint(XOfColumn(column + 1) - 1, hex.bottom())) : hex, mark);
            painter.fillRect(ascii, mark);
        }
        const char byte = m_bytes.at(static_cast<int>(place));
        painter.drawText(
            hex.left(), base,
            QStringLiteral("%1").arg(static_cast<quint8>(byte), 2, HEXADECIMAL, QLatin1Char('0')));
        painter.drawText(ascii.left(), base, AsciiOf(byte));
        if (place == Cursor()) {
            painter.drawRect(hex.adjusted(-1, 0, 0, -1));
            painter.drawRect(ascii.adjusted(0, 0, 0, -1));
        }
    }
}

QString HexView::TextOf(const Span& span) const
{
    return QString::fromLatin1(
        m_bytes.mid(static_cast<int>(span.begin), static_cast<int>(span.end - span.begin)).toHex(' '));
}

} // namespace ReportViewer
