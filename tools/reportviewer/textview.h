#ifndef REPORTVIEWER_TEXTVIEW_H
#define REPORTVIEWER_TEXTVIEW_H

#include <reportviewer/contents.h>
#include <reportviewer/rowview.h>

class QTextLayout;

namespace ReportViewer {

/// A text with the numbers of its lines.
class TextView : public RowView
{
    Q_OBJECT

public:
    explicit TextView(QWidget* parent = nullptr);

    /// Shows the text of a file.
    void SetContents(const ContentsPointer& contents);

protected:
    qint64 Size() const override;
    qint64 RowCount() const override;
    qint64 RowOf(qint64 place) const override;
    Span SpanOf(qint64 row) const override;
    int XOf(qint64 place) const override;
    qint64 PlaceAt(qint64 row, int x) const override;
    int Width() const override;
    void PaintRow(QPainter& painter, qint64 row, int top) const override;
    qint64 Beside(qint64 place, int direction) const override;
    QString TextOf(const Span& span) const override;

private:
    int NumbersWidth() const;
    QString RowText(const Span& span) const;
    void Lay(QTextLayout& layout) const;

    ContentsPointer m_contents;
};

} // namespace ReportViewer

#endif
