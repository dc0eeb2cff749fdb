#include <reportviewer/noticebar.h>

#include <QtGui/QAccessible>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolButton>

namespace ReportViewer {

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), m_text(new QLabel(this))
{
    setObjectName(QStringLiteral("notice"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_text->setForegroundRole(QPalette::ToolTipText);
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setAccessibleName(tr("Notice"));
    auto* const icon = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    auto* const close = new QToolButton(this);
    close->setText(tr("Close"));
    close->setAccessibleName(tr("Close the notice"));
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::TabFocus);
    connect(close, &QToolButton::clicked, this, &NoticeBar::Clear);
    auto* const layout = new QHBoxLayout(this);
    layout->addWidget(icon);
    layout->addWidget(m_text, 1);
    layout->addWidget(close);
    hide();
}

void NoticeBar::Say(const QString& text)
{
    m_text->setText(text);
    show();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void NoticeBar::Clear()
{
    m_text->clear();
    hide();
}

QString NoticeBar::Text() const
{
    return m_text->text();
}

} // namespace ReportViewer
