#ifndef TESTS_REPORTVIEWER_VIEWERWINDOW_H
#define TESTS_REPORTVIEWER_VIEWERWINDOW_H

// The program's window as a person uses it, with the answers that this person gives.
//
//     ViewerWindow viewer;
//     viewer.Open(viewer.scratch.Write("lake.xml", FullXml()));
//     EXPECT_TEXT(viewer.Value("frequency.value"), "121500000");
//     viewer.answers->changes = Questions::Changes::Discard;

#include "reporttool/toolrun.h"

#include <reportviewer/mainwindow.h>
#include <reportviewer/questions.h>

#include <functional>
#include <memory>

namespace ViewerTest {

using REPORTGENERATOR::ReportModel;
using ReportViewer::Questions;

/// Lets events be handled until it is so; false when it isn't for so long that it never will be.
bool WaitFor(const std::function<bool()>& isSo);

/// What a person answers, and what he was asked: "changes NAME", "replace OtherFile NAME", "lose NAME: ELEMENT; VALUE",
/// "target NAME".
class Answers : public Questions
{
public:
    Changes changes = Changes::Cancel;
    bool mayReplace = false;
    bool mayLose = false;
    QString file;
    QString folder;
    std::optional<Target> target;

    /// Named when the first one was refused.
    std::optional<Target> otherTarget;
    QStringList asked;

    /// What happens while a question is on the screen.
    std::function<void()> meanwhile;

    Changes AskAboutChanges(const QString& name) override;
    bool MayReplace(const QString& name, Loss loss) override;
    bool MayLose(const QString& name, const QStringList& what) override;
    QString AskForFile(const QString& folder) override;
    QString AskForFolder(const QString& folder) override;
    std::optional<Target> AskForTarget(const Target& proposal) override;

private:
    void Ask(const QString& question);

    bool m_hasRefused = false;
};

class ViewerWindow
{
public:
    ViewerWindow();

    /// Opens a file and waits until it is shown, or isn't.
    void Open(const QString& name);

    /// Waits until bytes and problems have followed the changes.
    void Settle();

    // What the tree shows

    QModelIndex At(const char* path, int column = ReportModel::ValueColumn);

    /// As an editor begins with it; null when it isn't set.
    QString Value(const char* path);
    bool Set(const char* path, const char* value);

    /// The bytes, or the text, that are marked.
    QByteArray Marked();
    QString MarkedText() { return QString::fromUtf8(Marked()); }
    QString Notice();
    QString Problems();

    /// Presses a key where the keyboard is.
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Type(const char* text);

    template <class Widget>
    Widget* Find(const char* name)
    {
        auto* const widget = window.findChild<Widget*>(QString::fromUtf8(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    const ToolTest::Scratch scratch;
    Answers* const answers; ///< the window's
    ReportViewer::MainWindow window;

private:
    explicit ViewerWindow(std::unique_ptr<Answers> given);
};

} // namespace ViewerTest

#endif
