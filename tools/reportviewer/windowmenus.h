#ifndef REPORTVIEWER_WINDOWMENUS_H
#define REPORTVIEWER_WINDOWMENUS_H

#include <QtCore/QObject>

#include <functional>

class QAction;
class QKeySequence;
class QMenu;

namespace ReportViewer {

class MainWindow;

/// All that can be done in the window, in its menus. Everything has a key.
class WindowMenus : public QObject
{
    Q_OBJECT

public:
    explicit WindowMenus(MainWindow& window);

private:
    using Function = std::function<void()>;

    QAction* Add(QMenu& menu, const QString& text, const QKeySequence& shortcut, const Function& function);
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeMapMenu();
    void MakeGoMenu();
    void MakeViewMenu();
    void MakeHelpMenu();
    void FillRecentMenu();
    void Find();
    void ShowAbout();

    MainWindow& m_window;
    QMenu* m_recent = nullptr;
};

} // namespace ReportViewer

#endif
