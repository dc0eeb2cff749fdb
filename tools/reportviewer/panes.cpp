#include <reportviewer/panes.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>

namespace ReportViewer {

void Panes::Add(QWidget* focused, QDockWidget* dock)
{
    m_panes.append({focused, dock});
}

int Panes::Current() const
{
    const QWidget* const focus = QApplication::focusWidget();
    for (int i = 0; focus && i < Count(); ++i) {
        const QWidget* const whole = m_panes.at(i).dock ? m_panes.at(i).dock : m_panes.at(i).focused;
        if (whole == focus || whole->isAncestorOf(focus))
            return i;
    }
    return -1;
}

void Panes::GoOn(int direction) const
{
    const int count = Count();
    const int current = Current();
    for (int i = 1; i <= count; ++i) {
        const int next = current < 0 && direction > 0 ? i - 1 : (current + direction * i + 2 * count) % count;
        if (m_panes.at(next).focused->isVisible()) {
            m_panes.at(next).focused->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

const QWidget* Panes::Focused() const
{
    const int current = Current();
    return current < 0 ? nullptr : m_panes.at(current).focused;
}

QString Panes::TitleOf(int number) const
{
    const Pane& pane = m_panes.at(number);
    return pane.dock ? pane.dock->windowTitle() : pane.focused->accessibleName();
}

void Panes::GoTo(int number) const
{
    const Pane& pane = m_panes.at(number);
    if (pane.dock) {
        pane.dock->show();
        pane.dock->raise();
    }
    pane.focused->setFocus(Qt::ShortcutFocusReason);
}

} // namespace ReportViewer
