#ifndef REPORTVIEWER_MAINWINDOW_H
#define REPORTVIEWER_MAINWINDOW_H

#include <reportviewer/changes.h>
#include <reportviewer/document.h>
#include <reportviewer/markedmodel.h>
#include <reportviewer/panes.h>
#include <reportviewer/questions.h>
#include <reportviewer/recentfiles.h>
#include <reportviewer/saving.h>

#include <QtWidgets/QMainWindow>

#include <memory>

class QDockWidget;

namespace ReportViewer {

class BytesPane;
class FindBar;
class FolderPane;
class MapView;
class NoticeBar;
class ProblemPane;
class Selection;
class StatusLine;
class TreePane;
class WindowMenus;

/// The window of the program: one report at a time.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(std::unique_ptr<Questions> questions = nullptr, QWidget* parent = nullptr);
    ~MainWindow() override;

    // Opening asks first where changes would get lost.

    /// A file, or a folder whose files are listed.
    void Open(const QString& name);

    /// One of them, and lists them all where there are several.
    void Open(const QStringList& names);
    void OpenOther();
    void OpenFolder();
    void Reload();
    void New();

    bool Save() { return m_saving.Save(); }
    bool SaveAs() { return m_saving.SaveAs(); }

    // The parts

    Document& Shown() { return m_document; }
    REPORTGENERATOR::ReportModel& Model() { return m_model; }
    Changes& ReportChanges() { return m_changes; }
    const RecentFiles& Recent() const { return m_recent; }
    void ForgetRecentFiles() { m_recent.Clear(); }

    /// What is opened from now on is no file that the user would look for.
    void RememberNoFiles() { m_recent.TakeNoMore(); }
    TreePane& Tree() { return *m_tree; }
    MapView& Map() { return *m_map; }
    BytesPane& Bytes() { return *m_bytes; }
    ProblemPane& Problems() { return *m_problems; }
    FolderPane& Folder() { return *m_folder; }
    NoticeBar& Notice() { return *m_notice; }
    FindBar& Finder() { return *m_finder; }
    const Panes& AllPanes() const { return m_panes; }
    const QVector<QDockWidget*>& Docks() const { return m_docks; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void Arrange();
    QDockWidget* AddDock(const char* name, const QString& title, QWidget* widget, Qt::DockWidgetArea area);
    void Connect();
    void Load(const QString& name);
    void FollowChange();
    void ShowReport();
    void ShowContents();
    void UpdateTitle();
    void UpdateFileText();
    QString CurrentFolder() const;

    std::unique_ptr<Questions> m_questions;
    Document m_document;
    MarkedModel m_model;
    Changes m_changes;
    RecentFiles m_recent;
    TreePane* m_tree;
    NoticeBar* m_notice;
    MapView* m_map;
    BytesPane* m_bytes;
    FindBar* m_finder;
    ProblemPane* m_problems;
    FolderPane* m_folder;
    StatusLine* m_status;
    Selection* m_selection;
    Saving m_saving;
    Panes m_panes;
    QVector<QDockWidget*> m_docks;
    QDockWidget* m_folderDock = nullptr;
    WindowMenus* m_menus = nullptr;
    bool m_isAnotherReport = true;
};

} // namespace ReportViewer

#endif
