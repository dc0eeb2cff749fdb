#include <reportviewer/mainwindow.h>

#include <reportviewer/bytespane.h>
#include <reportviewer/findbar.h>
#include <reportviewer/folderpane.h>
#include <reportviewer/forms.h>
#include <reportviewer/mapview.h>
#include <reportviewer/noticebar.h>
#include <reportviewer/problempane.h>
#include <reportviewer/selection.h>
#include <reportviewer/statusline.h>
#include <reportviewer/treepane.h>
#include <reportviewer/windowmenus.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtCore/QUrl>
#include <QtGui/QCloseEvent>
#include <QtGui/QDragEnterEvent>
#include <QtGui/QDropEvent>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QVBoxLayout>

namespace ReportViewer {

using REPORTGENERATOR::ReportModel;

namespace {

const QLatin1String GEOMETRY("geometry");
const QLatin1String STATE("state");

QStringList LocalFiles(const QMimeData& data)
{
    QStringList names;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            names << url.toLocalFile();
    }
    return names;
}

} // namespace

MainWindow::MainWindow(std::unique_ptr<Questions> questions, QWidget* parent)
    : QMainWindow(parent),
      m_questions(questions ? std::move(questions) : std::make_unique<QuestionDialogs>(this)),
      m_changes(m_model), m_tree(new TreePane(m_model)), m_notice(new NoticeBar), m_map(new MapView),
      m_bytes(new BytesPane), m_finder(new FindBar(m_model, *m_tree, *m_bytes)), m_problems(new ProblemPane),
      m_folder(new FolderPane), m_status(new StatusLine(*statusBar())),
      m_selection(new Selection(*m_tree, *m_map, *m_bytes, *m_problems, this)),
      m_saving(m_document, m_model, m_changes, *m_tree, *m_questions, *m_notice)
{
    setAcceptDrops(true);
    m_model.SetReadOnly(false);
    Arrange();
    Connect();
    m_menus = new WindowMenus(*this);
    ShowReport();
    ShowContents();
    const QSettings settings;
    restoreGeometry(settings.value(GEOMETRY).toByteArray());
    restoreState(settings.value(STATE).toByteArray());
}

MainWindow::~MainWindow()
{
    // The changes are forgotten when there is nobody left to be told.
    m_changes.Stack().disconnect(this);
    // It shows the model, which is gone before the other parts are.
    delete m_tree;
}

void MainWindow::Arrange()
{
    auto* const middle = new QWidget;
    auto* const layout = new QVBoxLayout(middle);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_notice);
    layout->addWidget(m_tree);
    layout->addWidget(m_finder);
    setCentralWidget(middle);
    m_panes.Add(m_tree);
    AddDock("mapDock", tr("Map"), m_map, Qt::RightDockWidgetArea);
    AddDock("problemDock", tr("Problems"), m_problems, Qt::BottomDockWidgetArea);
    AddDock("bytesDock", tr("Bytes"), m_bytes, Qt::BottomDockWidgetArea);
    m_folderDock = AddDock("folderDock", tr("Folder"), m_folder, Qt::LeftDockWidgetArea);
    m_folderDock->hide();
    resize(1280, 800);
    // Sixteen bytes fit beside each other, and field, value and place of a problem.
    resizeDocks({m_docks.at(1), m_docks.at(2)}, {590, 690}, Qt::Horizontal);
    resizeDocks({m_docks.at(1)}, {250}, Qt::Vertical);
}

QDockWidget* MainWindow::AddDock(const char* name, const QString& title, QWidget* widget,
                                 Qt::DockWidgetArea area)
{
    auto* const dock = new QDockWidget(title, this);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(widget);
    addDockWidget(area, dock);
    m_docks << dock;
    m_panes.Add(widget, dock);
    return dock;
}

void MainWindow::Connect()
{
    connect(&m_document, &Document::Progressed, m_status, &StatusLine::ShowProgress);
    connect(&m_document, &Document::Opened, this, &MainWindow::ShowReport);
    connect(&m_document, &Document::ContentsChanged, this, &MainWindow::ShowContents);
    connect(&m_document, &Document::OpeningFailed, this, [this](const QString& name, const QString& text) {
        m_status->EndProgress();
        m_notice->Say(tr("Not opened: %1").arg(text));
        if (!QFileInfo::exists(name))
            m_recent.Remove(name);
        UpdateTitle();
    });
    connect(&m_document, &Document::FollowingProgressed, m_status, &StatusLine::ShowUpdate);
    connect(&m_document, &Document::FollowingFailed, m_status, &StatusLine::ShowOutdated);
    connect(&m_document, &Document::ContentsChanged, m_status, &StatusLine::EndUpdate);
    connect(&m_document, &Document::Saved, this, [this] {
        m_recent.Add(m_document.FileName());
        m_status->EndProgress();
        UpdateTitle();
    });
    connect(&m_document, &Document::LoadingCancelled, this, [this] {
        m_status->EndProgress();
        m_folder->SetCurrentFile(m_document.FileName());
    });
    connect(m_status, &StatusLine::LoadingCancelled, &m_document, &Document::CancelLoading);
    connect(&m_model, &ReportModel::ReportChanged, this, &MainWindow::FollowChange);
    connect(&m_model, &ReportModel::Refused, this, [this](const QModelIndex& index, const QString& text) {
        m_notice->Say(QStringLiteral("%1: %2").arg(m_model.PathOf(index), text));
    });
    connect(&m_changes.Stack(), &QUndoStack::cleanChanged, this, [this](bool isClean) {
        setWindowModified(!isClean);
        if (isClean)
            m_document.ShowFile();
    });
    connect(m_map, &MapView::Hovered, m_status, &StatusLine::ShowCoordinates);
    connect(m_bytes, &BytesPane::PlaceChanged, m_status, &StatusLine::ShowPlace);
    connect(m_folder, &FolderPane::Chosen, this, qOverload<const QString&>(&MainWindow::Open));
}

void MainWindow::Open(const QStringList& names)
{
    if (names.isEmpty())
        return;
    if (names.size() > 1) {
        m_folder->ShowFiles(names);
        m_folderDock->show();
    }
    Open(names.constFirst());
}

void MainWindow::Open(const QString& name)
{
    if (QFileInfo(name).isDir()) {
        m_folder->Open(QFileInfo(name).absoluteFilePath());
        m_folderDock->show();
        m_folder->setFocus(Qt::OtherFocusReason);
    } else if (m_saving.MayLeave()) {
        Load(QFileInfo(name).absoluteFilePath());
    } else {
        m_folder->SetCurrentFile(m_document.FileName());
    }
}

void MainWindow::Load(const QString& name)
{
    m_notice->Clear();
    m_document.Open(name);
}

void MainWindow::FollowChange()
{
    m_notice->Clear();
    if (m_document.IsLoading()) {
        // The file that is on its way would take the change with it.
        m_document.CancelLoading();
        m_notice->Say(tr("Opening was cancelled, since this report has been changed"));
    }
    m_document.Follow(m_model.Report());
}

void MainWindow::OpenOther()
{
    const QString name = m_questions->AskForFile(CurrentFolder());
    if (!name.isEmpty())
        Open(name);
}

void MainWindow::OpenFolder()
{
    const QString name = m_questions->AskForFolder(CurrentFolder());
    if (!name.isEmpty())
        Open(name);
}

void MainWindow::Reload()
{
    if (!m_document.FileName().isEmpty() && m_saving.MayLeave())
        Load(m_document.FileName());
}

void MainWindow::New()
{
    if (m_saving.MayLeave())
        m_document.Clear();
}

QString MainWindow::CurrentFolder() const
{
    if (!m_document.FileName().isEmpty())
        return QFileInfo(m_document.FileName()).absolutePath();
    return m_folder->Folder().isEmpty() ? QDir::currentPath() : m_folder->Folder();
}

/// Another file has been opened, or there is none.
void MainWindow::ShowReport()
{
    m_status->EndProgress();
    m_isAnotherReport = true;
    m_model.SetReport(m_document.Shown()->file.report);
    m_changes.Forget();
    m_tree->ExpandAll();
    m_folder->SetCurrentFile(m_document.FileName());
    if (!m_document.FileName().isEmpty())
        m_recent.Add(m_document.FileName());
    UpdateTitle();
}

void MainWindow::ShowContents()
{
    const ContentsPointer& contents = m_document.Shown();
    if (m_isAnotherReport)
        m_map->SetContents(contents);
    else
        m_map->Renew(contents);
    m_isAnotherReport = false;
    m_bytes->SetContents(contents);
    m_problems->SetContents(contents);
    m_model.SetContents(contents);
    m_tree->viewport()->update();
    m_selection->Renew();
    UpdateFileText();
    UpdateTitle();
}

void MainWindow::UpdateTitle()
{
    const QString& name = m_document.FileName();
    setWindowFilePath(name);
    setWindowTitle(
        tr("%1[*] - reportviewer").arg(name.isEmpty() ? tr("New report") : QFileInfo(name).fileName()));
    setWindowModified(!m_changes.Stack().isClean());
}

void MainWindow::UpdateFileText()
{
    const ContentsPointer& contents = m_document.Shown();
    if (m_document.FileName().isEmpty() && contents->bytes.isEmpty()) {
        m_status->ShowFile(QString());
        return;
    }
    m_status->ShowFile(
        tr("%1, %2, %3")
            .arg(FormText(contents->file.form), BytesText(contents->bytes.size()), m_problems->Summary()));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!m_saving.MayLeave()) {
        event->ignore();
        return;
    }
    m_document.CancelLoading();
    QSettings settings;
    settings.setValue(GEOMETRY, saveGeometry());
    settings.setValue(STATE, saveState());
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!LocalFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    Open(LocalFiles(*event->mimeData()));
}

} // namespace ReportViewer
