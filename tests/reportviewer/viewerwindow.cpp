#include "viewerwindow.h"

#include <reportviewer/bytespane.h>
#include <reportviewer/noticebar.h>
#include <reportviewer/problempane.h>
#include <reportviewer/rowview.h>

#include <QAction>

#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace ViewerTest {

using ReportViewer::Document;

bool WaitFor(const std::function<bool()>& isSo)
{
    // Only what never comes is waited for so long; a large file takes half a minute with sanitizers on a busy machine.
    constexpr qint64 FOREVER = 300'000;
    constexpr int PAUSE = 20;
    QElapsedTimer timer;
    timer.start();
    while (!isSo()) {
        if (timer.hasExpired(FOREVER))
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, PAUSE);
    }
    return true;
}

void Answers::Ask(const QString& question)
{
    asked << question;
    if (meanwhile)
        meanwhile();
}

Questions::Changes Answers::AskAboutChanges(const QString& name)
{
    Ask(QStringLiteral("changes ") + name);
    return changes;
}

bool Answers::MayReplace(const QString& name, Loss loss)
{
    const char* const losses[] = {"OtherFile", "ChangedFile"};
    Ask(QStringLiteral("replace %1 %2").arg(QLatin1String(losses[static_cast<int>(loss)]), name));
    m_hasRefused = !mayReplace;
    return mayReplace;
}

bool Answers::MayLose(const QString& name, const QStringList& what)
{
    Ask(QStringLiteral("lose %1: %2").arg(name, what.join(QStringLiteral("; "))));
    return mayLose;
}

QString Answers::AskForFile(const QString& /*folder*/)
{
    Ask(QStringLiteral("file"));
    return file;
}

QString Answers::AskForFolder(const QString& /*folder*/)
{
    Ask(QStringLiteral("folder"));
    return folder;
}

std::optional<Questions::Target> Answers::AskForTarget(const Target& proposal)
{
    Ask(QStringLiteral("target ") + proposal.name);
    const bool isAgain = m_hasRefused;
    m_hasRefused = false;
    return isAgain ? otherTarget : target;
}

ViewerWindow::ViewerWindow() : ViewerWindow(std::make_unique<Answers>()) {}

ViewerWindow::ViewerWindow(std::unique_ptr<Answers> given) : answers(given.get()), window(std::move(given))
{
    window.show();
    QApplication::setActiveWindow(&window);
    EXPECT_TRUE(WaitFor([this] { return window.isActiveWindow(); }));
}

void ViewerWindow::Open(const QString& name)
{
    bool isDone = false;
    QObject context;
    QObject::connect(&window.Shown(), &Document::ContentsChanged, &context, [&isDone] { isDone = true; });
    QObject::connect(&window.Shown(), &Document::OpeningFailed, &context, [&isDone] { isDone = true; });
    window.Open(name);
    // The bytes of an earlier change may come first.
    EXPECT_TRUE(WaitFor([&] { return isDone && !window.Shown().IsLoading(); }));
}

void ViewerWindow::Settle()
{
    EXPECT_TRUE(WaitFor([this] { return !window.Shown().IsFollowing() && !window.Shown().IsLoading(); }));
}

QModelIndex ViewerWindow::At(const char* path, int column)
{
    const QModelIndex index = window.Model().IndexOf(QString::fromUtf8(path), column);
    EXPECT_TRUE(index.isValid()) << path;
    return index;
}

QString ViewerWindow::Value(const char* path)
{
    const QVariant value = At(path).data(Qt::EditRole);
    return value.isValid() ? QLatin1String("") + value.toString() : QString();
}

bool ViewerWindow::Set(const char* path, const char* value)
{
    return window.Model().setData(At(path), QString::fromUtf8(value));
}

QByteArray ViewerWindow::Marked()
{
    const ReportViewer::ContentsPointer& contents = window.Shown().Shown();
    const ReportViewer::Span span = window.Bytes().View()->Mark();
    const int begin = static_cast<int>(span.begin);
    const int size = static_cast<int>(span.end - span.begin);
    if (contents->IsText())
        return contents->text.mid(begin, size).toUtf8();
    const bool isUnpacked = contents->IsUnpacked() && !window.Bytes().PackedAction()->isChecked();
    return (isUnpacked ? contents->unpacked : contents->bytes).mid(begin, size);
}

QString ViewerWindow::Notice()
{
    return window.Notice().Text();
}

QString ViewerWindow::Problems()
{
    return window.Problems().Summary();
}

void ViewerWindow::Press(int key, Qt::KeyboardModifiers modifiers)
{
    QWidget* const focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    QTest::keyClick(focus, static_cast<Qt::Key>(key), modifiers);
    // Editors are left a moment later.
    QCoreApplication::processEvents();
}

void ViewerWindow::Type(const char* text)
{
    QWidget* const focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    QTest::keyClicks(focus, QString::fromUtf8(text));
}

} // namespace ViewerTest
