#ifndef REPORTVIEWER_PANES_H
#define REPORTVIEWER_PANES_H

#include <QtCore/QString>
#include <QtCore/QVector>

class QDockWidget;
class QWidget;

namespace ReportViewer {

/// The parts of a window that the keyboard goes around between, in their order.
class Panes
{
public:
    /// `focused` takes the keyboard; a dock that is not seen is left out, or shown when it is asked for.
    void Add(QWidget* focused, QDockWidget* dock = nullptr);

    /// To the next visible one, or the one before.
    void GoOn(int direction) const;

    void GoTo(int number) const;

    /// What takes the keyboard in the part that has it; null where none of them has it.
    const QWidget* Focused() const;

    /// For people.
    QString TitleOf(int number) const;
    int Count() const { return static_cast<int>(m_panes.size()); }

private:
    struct Pane
    {
        QWidget* focused = nullptr;
        QDockWidget* dock = nullptr;
    };

    int Current() const;

    QVector<Pane> m_panes;
};

} // namespace ReportViewer

#endif
