#include <reportviewer/bytespane.h>

#include <reportviewer/finding.h>
#include <reportviewer/forms.h>
#include <reportviewer/hexview.h>
#include <reportviewer/textview.h>

#include <QAction>
#include <QtGui/QKeySequence>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

namespace ReportViewer {

using ReportCore::FieldPath;
using ReportCore::FilePlace;

BytesPane::BytesPane(QWidget* parent)
    : QWidget(parent), m_contents(std::make_shared<Contents>()), m_title(new QLabel(this)),
      m_views(new QStackedWidget(this)), m_hex(new HexView(this)), m_text(new TextView(this)),
      m_packed(new QAction(tr("Show Pac&ked Bytes"), this))
{
    m_hex->setObjectName(QStringLiteral("hex"));
    m_hex->setAccessibleName(tr("Bytes of the file"));
    m_text->setObjectName(QStringLiteral("text"));
    m_text->setAccessibleName(tr("Text of the file"));
    m_packed->setCheckable(true);
    m_packed->setShortcut(QKeySequence(QStringLiteral("Ctrl+K")));
    m_packed->setToolTip(tr("The bytes of the file instead of what they unpack to"));
    m_views->addWidget(m_hex);
    m_views->addWidget(m_text);

    auto* const button = new QToolButton(this);
    button->setDefaultAction(m_packed);
    button->setFocusPolicy(Qt::TabFocus);
    auto* const head = new QHBoxLayout;
    head->addWidget(m_title, 1);
    head->addWidget(button);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(head);
    layout->addWidget(m_views);
    connect(m_packed, &QAction::changed, button,
            [this, button] { button->setVisible(m_packed->isEnabled()); });
    connect(m_packed, &QAction::toggled, this, &BytesPane::ShowRightView);
    for (RowView* const view : {static_cast<RowView*>(m_hex), static_cast<RowView*>(m_text)}) {
        connect(view, &RowView::CursorMoved, this, &BytesPane::FollowCursor);
        connect(view, &RowView::Activated, this, &BytesPane::FieldActivated);
    }
    SetContents(m_contents);
}

RowView* BytesPane::View() const
{
    return static_cast<RowView*>(m_views->currentWidget());
}

void BytesPane::SetContents(const ContentsPointer& contents)
{
    m_contents = contents;
    m_text->SetContents(contents);
    m_packed->setEnabled(contents->IsUnpacked());
    if (!contents->IsUnpacked())
        m_packed->setChecked(false);
    ShowRightView();
}

void BytesPane::ShowRightView()
{
    if (m_contents->IsText()) {
        m_title->setText(tr("Text"));
        m_hex->SetBytes(QByteArray());
        m_views->setCurrentWidget(m_text);
        setFocusProxy(m_text);
        Q_EMIT PlaceChanged(QString());
        return;
    }
    const bool isUnpacked = m_contents->IsUnpacked() && !m_packed->isChecked();
    const QByteArray& bytes = ShownBytes();
    m_title->setText(isUnpacked ? tr("%1 unpacked bytes").arg(bytes.size()) : BytesText(bytes.size()));
    m_hex->SetBytes(bytes);
    m_views->setCurrentWidget(m_hex);
    setFocusProxy(m_hex);
    Q_EMIT PlaceChanged(QString());
}

/// Of what is no text.
const QByteArray& BytesPane::ShownBytes() const
{
    return m_contents->IsUnpacked() && HasFields() ? m_contents->unpacked : m_contents->bytes;
}

/// Whether the view shows what the fields stand in.
bool BytesPane::HasFields() const
{
    return !m_packed->isChecked();
}

void BytesPane::ShowField(const FieldPath& path)
{
    m_packed->setChecked(false);
    FieldPath next = path;
    std::optional<Span> span = m_contents->fields.Find(next);
    while (!span && !next.IsEmpty()) {
        next = next.Parent();
        span = m_contents->fields.Find(next);
    }
    if (span)
        View()->ShowMark(*span);
    else
        View()->SetMark({});
    Q_EMIT PlaceChanged(span ? PlaceTextOf(span->begin) : QString());
}

void BytesPane::ShowPlace(const FilePlace& place)
{
    if (!place.IsKnown())
        return;
    if (!m_contents->IsText())
        m_packed->setChecked(m_contents->IsUnpacked() && !place.isUncompressed);
    const qint64 at = m_contents->IsText()
                          ? m_contents->rows.PlaceOf(m_contents->text, place.line, place.column)
                          : place.offset;
    View()->ShowMark(MarkAt(at), at);
    Q_EMIT PlaceChanged(PlaceTextOf(at));
}

/// The field around the place, or only what is there.
Span BytesPane::MarkAt(qint64 place) const
{
    if (HasFields()) {
        const auto path = m_contents->fields.PathAt(place);
        // The whole report would be no help.
        if (path && !path->IsEmpty())
            return *m_contents->fields.SpanAt(place);
    }
    return {place, place + 1};
}

void BytesPane::FollowCursor(qint64 place)
{
    View()->SetMark(MarkAt(place));
    TellPlace(place);
}

bool BytesPane::Find(const QString& wanted, int direction)
{
    const qint64 from = View()->Cursor();
    const auto found = m_contents->IsText() ? FindInText(m_contents->text, wanted, from, direction)
                                            : FindInBytes(ShownBytes(), wanted, from, direction);
    if (!found)
        return false;
    View()->ShowMark(*found);
    TellPlace(found->begin);
    return true;
}

/// The user has got there.
void BytesPane::TellPlace(qint64 place)
{
    Q_EMIT PlaceChanged(PlaceTextOf(place));
    const auto path = HasFields() ? m_contents->fields.PathAt(place) : std::nullopt;
    Q_EMIT FieldChosen(path ? path->Text() : QString());
}

QString BytesPane::PlaceTextOf(qint64 place) const
{
    FilePlace found;
    if (m_contents->IsText()) {
        found.line = m_contents->rows.LineOf(place);
        found.column = m_contents->rows.ColumnOf(m_contents->text, place);
    } else {
        found.offset = place;
        found.isUncompressed = m_contents->IsUnpacked() && HasFields();
    }
    return ReportCore::PlaceText(found);
}

} // namespace ReportViewer
