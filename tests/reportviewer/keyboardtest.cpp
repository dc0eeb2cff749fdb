#include "viewerwindow.h"

#include "reporttool/samples.h"

#include <reportviewer/bytespane.h>
#include <reportviewer/folderpane.h>
#include <reportviewer/mapview.h>
#include <reportviewer/problempane.h>
#include <reportviewer/rowview.h>
#include <reportviewer/treepane.h>

#include <gtest/gtest.h>

#include <QAction>
#include <QtCore/QDir>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

#include <set>

namespace {

using ViewerTest::ViewerWindow;
using ViewerTest::WaitFor;

/// Nobody touches the mouse here.
class ViewerByKeyboard : public testing::Test
{
protected:
    ViewerByKeyboard() { m_viewer.Open(m_viewer.scratch.Write("report.xml", ToolTest::FullXml())); }

    /// The part of the window that has the keyboard.
    QString Focus() const
    {
        const QWidget* const focus = QApplication::focusWidget();
        return focus ? focus->objectName() : QStringLiteral("nobody");
    }

    ViewerWindow m_viewer;
};

TEST_F(ViewerByKeyboard, GoesAroundAllPartsOfTheWindow)
{
    m_viewer.Press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_TEXT(Focus(), "tree");
    for (const char* const name : {"map", "problems", "text", "tree"}) {
        m_viewer.Press(Qt::Key_F6);
        EXPECT_TEXT(Focus(), name);
    }
    for (const char* const name : {"text", "problems", "map", "tree"}) {
        m_viewer.Press(Qt::Key_F6, Qt::ShiftModifier);
        EXPECT_TEXT(Focus(), name);
    }
    m_viewer.Press(Qt::Key_5, Qt::ControlModifier);
    EXPECT_TEXT(Focus(), "files");
    m_viewer.Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TEXT(Focus(), "filter");
}

TEST_F(ViewerByKeyboard, ChangesAValueUndoesAndSaves)
{
    m_viewer.Press(Qt::Key_1, Qt::ControlModifier);
    m_viewer.Press(Qt::Key_Home);
    while (m_viewer.window.Tree().CurrentPath() != QLatin1String("frequency.value")) {
        const QString before = m_viewer.window.Tree().CurrentPath();
        m_viewer.Press(Qt::Key_Down);
        ASSERT_NE(m_viewer.window.Tree().CurrentPath(), before);
    }
    m_viewer.Press(Qt::Key_F2);
    m_viewer.Type("118.1e6");
    m_viewer.Press(Qt::Key_Return);
    EXPECT_TEXT(m_viewer.Value("frequency.value"), "118100000");
    EXPECT_TEXT(Focus(), "tree");
    m_viewer.Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(m_viewer.scratch.Read("report.xml").contains(">118100000.00<"));
    m_viewer.Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TEXT(m_viewer.Value("frequency.value"), "121500000");
    m_viewer.Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TEXT(m_viewer.Value("frequency.value"), "118100000");
    m_viewer.Press(Qt::Key_Delete);
    EXPECT_TRUE(m_viewer.Value("frequency.value").isNull());
}

TEST_F(ViewerByKeyboard, EscapeLeavesAnEditorWithoutAChange)
{
    m_viewer.window.Tree().setFocus();
    m_viewer.window.Tree().setCurrentIndex(m_viewer.At("area.name"));
    m_viewer.Press(Qt::Key_Return);
    m_viewer.Type("other");
    m_viewer.Press(Qt::Key_Escape);
    EXPECT_TEXT(m_viewer.Value("area.name"), "Z\u00FCrichsee");
    EXPECT_FALSE(m_viewer.window.isWindowModified());
}

TEST_F(ViewerByKeyboard, AddsAndRemovesAPoint)
{
    m_viewer.window.Tree().setFocus();
    m_viewer.window.Tree().setCurrentIndex(m_viewer.At("area.coordinate[2]"));
    m_viewer.Press(Qt::Key_Insert);
    EXPECT_EQ(m_viewer.window.Model().rowCount(m_viewer.At("area.coordinate", 0)), 3);
    m_viewer.Press(Qt::Key_Delete);
    EXPECT_EQ(m_viewer.window.Model().rowCount(m_viewer.At("area.coordinate", 0)), 2);
}

TEST_F(ViewerByKeyboard, WalksThroughTheText)
{
    m_viewer.Press(Qt::Key_4, Qt::ControlModifier);
    ASSERT_EQ(Focus(), QStringLiteral("text"));
    m_viewer.Press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(m_viewer.window.Bytes().View()->Cursor(), 0);
    for (int line = 0; line < 5; ++line)
        m_viewer.Press(Qt::Key_Down);
    m_viewer.Press(Qt::Key_Home);
    for (int i = 0; i < 10; ++i)
        m_viewer.Press(Qt::Key_Right);
    EXPECT_TEXT(m_viewer.window.Tree().CurrentPath(), "area.name");
    EXPECT_TEXT(m_viewer.MarkedText(), "<Name>Z\u00FCrichsee</Name>");
    m_viewer.Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(m_viewer.window.Bytes().View()->Cursor(), m_viewer.window.Shown().Shown()->text.size() - 1);
    m_viewer.Press(Qt::Key_PageUp);
    EXPECT_LT(m_viewer.window.Bytes().View()->Cursor(), m_viewer.window.Shown().Shown()->text.size() - 1);
    // Enter leads to the field.
    m_viewer.Press(Qt::Key_Return);
    EXPECT_TEXT(Focus(), "tree");
}

TEST_F(ViewerByKeyboard, WalksThroughTheBytes)
{
    m_viewer.Open(m_viewer.scratch.Write("report", ToolTest::FullPlain()));
    m_viewer.Press(Qt::Key_4, Qt::ControlModifier);
    EXPECT_TEXT(Focus(), "hex");
    // Row 12 begins with 0xc0, in the text of the version; name's tag begins at 0xc4.
    for (int row = 0; row < 12; ++row)
        m_viewer.Press(Qt::Key_Down);
    EXPECT_EQ(m_viewer.window.Bytes().View()->Cursor(), 0xC0);
    EXPECT_TEXT(m_viewer.window.Tree().CurrentPath(), "area.version");
    for (int i = 0; i < 4; ++i)
        m_viewer.Press(Qt::Key_Right);
    EXPECT_TEXT(m_viewer.window.Tree().CurrentPath(), "area.name");
    EXPECT_EQ(m_viewer.Marked(), ToolTest::FullPlain().mid(0xC4, 0x16));
    m_viewer.Press(Qt::Key_End);
    EXPECT_EQ(m_viewer.window.Bytes().View()->Cursor(), 0xCF);
    m_viewer.Press(Qt::Key_Left);
    EXPECT_EQ(m_viewer.window.Bytes().View()->Cursor(), 0xCE);
}

TEST_F(ViewerByKeyboard, FindsAndMendsAProblem)
{
    m_viewer.Open(m_viewer.scratch.Write(
        "bad.xml", "<ReportBase><Area Version=\"1.0\"><Name>a</Name><Coordinate><Longitude>8"
                   "</Longitude><Latitude>200</Latitude></Coordinate></Area></ReportBase>"));
    m_viewer.Press(Qt::Key_3, Qt::ControlModifier);
    m_viewer.Press(Qt::Key_F8);
    EXPECT_TEXT(m_viewer.window.Tree().CurrentPath(), "area.coordinate[1].latitude");
    m_viewer.Press(Qt::Key_1, Qt::ControlModifier);
    m_viewer.Press(Qt::Key_Return);
    m_viewer.Type("47");
    m_viewer.Press(Qt::Key_Return);
    EXPECT_TEXT(m_viewer.Value("area.coordinate[1].latitude"), "47");
    m_viewer.Settle();
    EXPECT_FALSE(m_viewer.Problems().contains(QStringLiteral("problem")))
        << m_viewer.Problems().toStdString();
}

TEST_F(ViewerByKeyboard, MovesTheMapAndChoosesPoints)
{
    m_viewer.Press(Qt::Key_2, Qt::ControlModifier);
    ASSERT_EQ(Focus(), QStringLiteral("map"));
    const double before = m_viewer.window.Map().Scale().PixelsOfKilometre();
    m_viewer.Press(Qt::Key_Plus);
    EXPECT_GT(m_viewer.window.Map().Scale().PixelsOfKilometre(), before);
    m_viewer.Press(Qt::Key_PageDown);
    m_viewer.Press(Qt::Key_PageDown);
    EXPECT_TEXT(m_viewer.window.Tree().CurrentPath(), "area.coordinate[2]");
    m_viewer.Press(Qt::Key_Home);
    EXPECT_DOUBLE_EQ(m_viewer.window.Map().Scale().PixelsOfKilometre(), before);
}

TEST_F(ViewerByKeyboard, OpensTheNextFileOfAFolder)
{
    m_viewer.scratch.Write("second.plain", ToolTest::FullPlain());
    m_viewer.window.Open(m_viewer.scratch.Folder());
    ASSERT_TRUE(WaitFor([&] { return m_viewer.window.Folder().Folder() == m_viewer.scratch.Folder(); }));
    m_viewer.Press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(
        WaitFor([&] { return m_viewer.window.Shown().FileName() == m_viewer.scratch.Path("report.xml"); }));
    m_viewer.Settle();
    m_viewer.Press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(
        WaitFor([&] { return m_viewer.window.Shown().FileName() == m_viewer.scratch.Path("second.plain"); }));
}

/// All entries of menus, with those of menus within.
void Collect(const QMenu& menu, QList<QAction*>& actions)
{
    for (QAction* const action : menu.actions()) {
        if (action->menu())
            Collect(*action->menu(), actions);
        else if (!action->isSeparator())
            actions << action;
    }
}

TEST_F(ViewerByKeyboard, EveryMenuEntryHasALetterAndNoKeyDoesTwoThings)
{
    std::set<QString> keys;
    for (const QAction* const top : m_viewer.window.menuBar()->actions()) {
        EXPECT_TRUE(top->text().contains(QLatin1Char('&'))) << top->text().toStdString();
        std::set<QChar> letters;
        for (const QAction* const action : top->menu()->actions()) {
            if (action->isSeparator())
                continue;
            const auto mark = action->text().indexOf(QLatin1Char('&'));
            ASSERT_GE(mark, 0) << action->text().toStdString();
            EXPECT_TRUE(letters.insert(action->text().at(mark + 1).toLower()).second)
                << action->text().toStdString();
        }
        QList<QAction*> actions;
        Collect(*top->menu(), actions);
        for (const QAction* const action : actions) {
            for (const QKeySequence& key : action->shortcuts())
                EXPECT_TRUE(keys.insert(key.toString(QKeySequence::PortableText)).second)
                    << key.toString().toStdString();
        }
    }
}

/// The letters of a menu and of those within it.
void ExpectLetters(const QMenu& menu)
{
    std::set<QChar> letters;
    for (const QAction* const action : menu.actions()) {
        if (action->isSeparator())
            continue;
        const auto mark = action->text().indexOf(QLatin1Char('&'));
        ASSERT_GE(mark, 0) << action->text().toStdString();
        EXPECT_TRUE(letters.insert(action->text().at(mark + 1).toLower()).second)
            << action->text().toStdString();
        if (action->menu())
            ExpectLetters(*action->menu());
    }
}

TEST_F(ViewerByKeyboard, MenusWithinMenusHaveLettersToo)
{
    ReportViewer::RecentFiles recent;
    for (int i = 0; i < ReportViewer::RecentFiles::MOST; ++i)
        recent.Add(QString::number(i));
    ViewerWindow viewer;
    for (const QAction* const top : viewer.window.menuBar()->actions())
        ExpectLetters(*top->menu());
    recent.Clear();
}

TEST_F(ViewerByKeyboard, TheEntriesOfPanesAreCalledAsTheseAre)
{
    QStringList texts;
    for (const QAction* const top : m_viewer.window.menuBar()->actions()) {
        for (const QAction* const action : top->menu()->actions()) {
            if (action->text().startsWith(QLatin1String("Go to &")))
                texts << action->text();
        }
    }
    EXPECT_EQ(texts, QStringList({QStringLiteral("Go to &1 Report"), QStringLiteral("Go to &2 Map"),
                                  QStringLiteral("Go to &3 Problems"), QStringLiteral("Go to &4 Bytes"),
                                  QStringLiteral("Go to &5 Folder")}));
}

TEST_F(ViewerByKeyboard, EverythingThatTakesTheKeyboardHasAName)
{
    for (const QWidget* const widget : m_viewer.window.findChildren<QWidget*>()) {
        const bool isOwn = widget->focusPolicy() != Qt::NoFocus && widget->isVisibleTo(&m_viewer.window) &&
                           !widget->focusProxy() && !widget->objectName().startsWith(QLatin1String("qt_"));
        if (!isOwn || qobject_cast<const QMenuBar*>(widget))
            continue;
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        EXPECT_FALSE(widget->accessibleName().isEmpty() && (!button || button->text().isEmpty()))
            << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    }
}

} // namespace
