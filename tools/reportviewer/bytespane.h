#ifndef REPORTVIEWER_BYTESPANE_H
#define REPORTVIEWER_BYTESPANE_H

#include <reportviewer/contents.h>

#include <reportgenerator/reflection/fieldpath.h>

#include <QtWidgets/QWidget>

class QAction;
class QLabel;
class QStackedWidget;

namespace ReportViewer {

class HexView;
class RowView;
class TextView;

/// What a file holds: the text of XML, the bytes of other forms. A compressed form shows what it unpacks to, or its own
/// bytes.
class BytesPane : public QWidget
{
    Q_OBJECT

public:
    explicit BytesPane(QWidget* parent = nullptr);

    void SetContents(const ContentsPointer& contents);

    /// Marks the part of a field, or of what holds it where it doesn't stand in the file itself.
    void ShowField(const ReportCore::FieldPath& path);

    /// Goes to where a problem is.
    void ShowPlace(const ReportCore::FilePlace& place);

    /// Goes to where a text comes next in what is shown, or before. False where it doesn't come.
    bool Find(const QString& wanted, int direction);

    /// Switches between the packed bytes and what they unpack to.
    QAction* PackedAction() const { return m_packed; }

    /// For people: "line 12, column 7", "offset 0x1a2 of the uncompressed data".
    QString PlaceTextOf(qint64 place) const;

    /// The view that is shown.
    RowView* View() const;

Q_SIGNALS:
    /// The user has gone to a part of this field; its path is empty outside of all fields.
    void FieldChosen(const QString& path);

    /// The user has asked to see the field elsewhere.
    void FieldActivated();

    /// What is marked is there, or the cursor within it; empty when nothing is marked.
    void PlaceChanged(const QString& text);

private:
    void ShowRightView();
    void FollowCursor(qint64 place);
    void TellPlace(qint64 place);
    const QByteArray& ShownBytes() const;
    bool HasFields() const;
    Span MarkAt(qint64 place) const;

    ContentsPointer m_contents;
    QLabel* m_title;
    QStackedWidget* m_views;
    HexView* m_hex;
    TextView* m_text;
    QAction* m_packed;
};

} // namespace ReportViewer

#endif
