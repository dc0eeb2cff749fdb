#include <reportviewer/windowmenus.h>

#include <reportviewer/bytespane.h>
#include <reportviewer/findbar.h>
#include <reportviewer/folderpane.h>
#include <reportviewer/mainwindow.h>
#include <reportviewer/mapview.h>
#include <reportviewer/problempane.h>
#include <reportviewer/treepane.h>

#include <QAction>
#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtGui/QKeySequence>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>

namespace ReportViewer {

namespace {

/// By which the map is enlarged at once.
constexpr double ENLARGING = 1.5;

/// A name in a menu, in which "&" would mark a letter.
QString MenuText(int number, const QString& name)
{
    QString text = name;
    text.replace(QLatin1Char('&'), QLatin1String("&&"));
    QString digits = QString::number(number);
    return digits.insert(digits.size() - 1, QLatin1Char('&')) + QLatin1Char(' ') + text;
}

} // namespace

WindowMenus::WindowMenus(MainWindow& window) : QObject(&window), m_window(window)
{
    MakeFileMenu();
    MakeEditMenu();
    MakeMapMenu();
    MakeGoMenu();
    MakeViewMenu();
    MakeHelpMenu();
}

QAction* WindowMenus::Add(QMenu& menu, const QString& text, const QKeySequence& shortcut,
                          const Function& function)
{
    QAction* const action = menu.addAction(text);
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, &m_window, function);
    return action;
}

void WindowMenus::MakeFileMenu()
{
    QMenu& menu = *m_window.menuBar()->addMenu(tr("&File"));
    Add(menu, tr("&New"), QKeySequence::New, [this] { m_window.New(); });
    Add(menu, tr("&Open..."), QKeySequence::Open, [this] { m_window.OpenOther(); });
    Add(menu, tr("Open &Folder..."), QKeySequence(QStringLiteral("Ctrl+Shift+O")),
        [this] { m_window.OpenFolder(); });
    m_recent = menu.addMenu(tr("Open &Recent"));
    m_recent->setObjectName(QStringLiteral("recent"));
    connect(m_recent, &QMenu::aboutToShow, this, &WindowMenus::FillRecentMenu);
    FillRecentMenu();
    Add(menu, tr("Re&load"), QKeySequence(Qt::Key_F5), [this] { m_window.Reload(); });
    menu.addSeparator();
    Add(menu, tr("&Save"), QKeySequence::Save, [this] { m_window.Save(); });
    Add(menu, tr("Save &As..."), QKeySequence(QStringLiteral("Ctrl+Shift+S")), [this] { m_window.SaveAs(); });
    menu.addSeparator();
    Add(menu, tr("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), [this] { m_window.close(); });
}

void WindowMenus::FillRecentMenu()
{
    m_recent->clear();
    int number = 0;
    for (const QString& name : m_window.Recent().Names())
        Add(*m_recent, MenuText(++number, name), QKeySequence(), [this, name] { m_window.Open(name); });
    m_recent->addSeparator();
    QAction* const forget =
        Add(*m_recent, tr("&Clear List"), QKeySequence(), [this] { m_window.ForgetRecentFiles(); });
    forget->setEnabled(number > 0);
}

void WindowMenus::MakeEditMenu()
{
    QMenu& menu = *m_window.menuBar()->addMenu(tr("&Edit"));
    QUndoStack& stack = m_window.ReportChanges().Stack();
    QAction* const undo = stack.createUndoAction(this, tr("&Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* const redo = stack.createRedoAction(this, tr("&Redo"));
    redo->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    menu.addActions({undo, redo});
    menu.addSeparator();
    TreePane& tree = m_window.Tree();
    Add(menu, tr("&Find..."), QKeySequence(QStringLiteral("Ctrl+F")), [this] { Find(); });
    FindBar& finder = m_window.Finder();
    Add(menu, tr("Find Ne&xt"), QKeySequence(Qt::Key_F3), [&finder] { finder.FindNext(1); });
    Add(menu, tr("Find Pre&vious"), QKeySequence(QStringLiteral("Shift+F3")),
        [&finder] { finder.FindNext(-1); });
    menu.addSeparator();
    menu.addActions({tree.EditAction(), tree.AddAction(), tree.UnsetAction(), tree.CopyPathAction()});
}

/// In what has the keyboard: the names of files, the bytes, or else the fields.
void WindowMenus::Find()
{
    const QWidget* const focused = m_window.AllPanes().Focused();
    if (focused == &m_window.Folder())
        m_window.Folder().Filter()->setFocus(Qt::ShortcutFocusReason);
    else if (m_window.Finder().HasKeyboard())
        m_window.Finder().Open();
    else
        m_window.Finder().Open(focused == &m_window.Bytes() ? FindBar::Where::Bytes : FindBar::Where::Fields);
}

void WindowMenus::MakeMapMenu()
{
    QMenu& menu = *m_window.menuBar()->addMenu(tr("&Map"));
    MapView& map = m_window.Map();
    Add(menu, tr("&Enlarge"), QKeySequence::ZoomIn, [&map] { map.Enlarge(ENLARGING); });
    Add(menu, tr("&Reduce"), QKeySequence::ZoomOut, [&map] { map.Enlarge(1.0 / ENLARGING); });
    Add(menu, tr("Show Whole &Area"), QKeySequence(QStringLiteral("Ctrl+0")), [&map] { map.FitArea(); });
    menu.addSeparator();
    Add(menu, tr("&Next Point"), QKeySequence(QStringLiteral("Ctrl+.")), [&map] { map.ChooseNext(1); });
    Add(menu, tr("&Previous Point"), QKeySequence(QStringLiteral("Ctrl+,")), [&map] { map.ChooseNext(-1); });
}

void WindowMenus::MakeGoMenu()
{
    QMenu& menu = *m_window.menuBar()->addMenu(tr("&Go"));
    ProblemPane& problems = m_window.Problems();
    Add(menu, tr("&Next Problem"), QKeySequence(Qt::Key_F8), [&problems] { problems.ChooseNext(1); });
    Add(menu, tr("&Previous Problem"), QKeySequence(QStringLiteral("Shift+F8")),
        [&problems] { problems.ChooseNext(-1); });
    menu.addSeparator();
    FolderPane& folder = m_window.Folder();
    Add(menu, tr("Next &File"), QKeySequence(QStringLiteral("Alt+Down")),
        [&folder] { folder.ChooseNext(1); });
    Add(menu, tr("Previous Fi&le"), QKeySequence(QStringLiteral("Alt+Up")),
        [&folder] { folder.ChooseNext(-1); });
}

void WindowMenus::MakeViewMenu()
{
    QMenu& menu = *m_window.menuBar()->addMenu(tr("&View"));
    Add(menu, tr("&Next Pane"), QKeySequence(Qt::Key_F6), [this] { m_window.AllPanes().GoOn(1); });
    Add(menu, tr("&Previous Pane"), QKeySequence(QStringLiteral("Shift+F6")),
        [this] { m_window.AllPanes().GoOn(-1); });
    menu.addSeparator();
    for (int i = 0; i < m_window.AllPanes().Count(); ++i) {
        Add(menu, tr("Go to &%1 %2").arg(i + 1).arg(m_window.AllPanes().TitleOf(i)),
            QKeySequence(QStringLiteral("Ctrl+%1").arg(i + 1)), [this, i] { m_window.AllPanes().GoTo(i); });
    }
    menu.addSeparator();
    QMenu& shown = *menu.addMenu(tr("&Shown Panes"));
    for (const QDockWidget* const dock : m_window.Docks()) {
        QAction* const action = dock->toggleViewAction();
        action->setText(QLatin1Char('&') + dock->windowTitle());
        shown.addAction(action);
    }
    menu.addSeparator();
    menu.addAction(m_window.Bytes().PackedAction());
}

void WindowMenus::MakeHelpMenu()
{
    QMenu& menu = *m_window.menuBar()->addMenu(tr("&Help"));
    Add(menu, tr("&About reportviewer"), QKeySequence(Qt::Key_F1), [this] { ShowAbout(); });
}

void WindowMenus::ShowAbout()
{
    QMessageBox::about(&m_window, tr("About reportviewer"),
                       tr("reportviewer %1\n\nShows, checks and changes reports in every form.")
                           .arg(QCoreApplication::applicationVersion()));
}

} // namespace ReportViewer
