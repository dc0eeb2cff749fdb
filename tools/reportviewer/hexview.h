#ifndef REPORTVIEWER_HEXVIEW_H
#define REPORTVIEWER_HEXVIEW_H

#include <reportviewer/rowview.h>

#include <QtCore/QByteArray>

namespace ReportViewer {

/// Bytes: where they are, in hexadecimal digits, and as ASCII.
class HexView : public RowView
{
    Q_OBJECT

public:
    explicit HexView(QWidget* parent = nullptr);

    void SetBytes(const QByteArray& bytes);

protected:
    qint64 Size() const override { return m_bytes.size(); }
    qint64 RowCount() const override;
    qint64 RowOf(qint64 place) const override;
    Span SpanOf(qint64 row) const override;
    int XOf(qint64 place) const override;
    qint64 PlaceAt(qint64 row, int x) const override;
    int Width() const override;
    void PaintRow(QPainter& painter, qint64 row, int top) const override;
    QString TextOf(const Span& span) const override;

private:
    int CharacterWidth() const;
    int XOfColumn(qint64 column) const;
    int XOfAscii(qint64 column) const;

    QByteArray m_bytes;
};

} // namespace ReportViewer

#endif
