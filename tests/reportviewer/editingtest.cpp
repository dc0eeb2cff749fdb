#include "viewerwindow.h"

#include "reporttool/samples.h"

#include <reportviewer/bytespane.h>
#include <reportviewer/changes.h>
#include <reportviewer/mapview.h>
#include <reportviewer/rowview.h>
#include <reportviewer/treepane.h>

#include <gtest/gtest.h>

#include <QAction>
#include <QtCore/QItemSelectionModel>

namespace {

using ReportViewer::Questions;
using ViewerTest::ViewerWindow;

class ViewerEditing : public testing::Test
{
protected:
    ViewerEditing() { m_viewer.Open(m_viewer.scratch.Write("report.xml", ToolTest::FullXml())); }

    QUndoStack& Stack() { return m_viewer.window.ReportChanges().Stack(); }
    void Choose(const char* path) { m_viewer.window.Tree().setCurrentIndex(m_viewer.At(path)); }
    int Points() { return m_viewer.window.Model().rowCount(m_viewer.At("area.coordinate", 0)); }

    ViewerWindow m_viewer;
};

TEST_F(ViewerEditing, AChangeIsDoneUndoneAndDoneAgain)
{
    EXPECT_TRUE(m_viewer.Set("frequency.value", "118100000"));
    EXPECT_TEXT(m_viewer.Value("frequency.value"), "118100000");
    EXPECT_TRUE(m_viewer.window.isWindowModified());
    EXPECT_TEXT(Stack().undoText(), "change of frequency.value");
    Stack().undo();
    EXPECT_TEXT(m_viewer.Value("frequency.value"), "121500000");
    EXPECT_FALSE(m_viewer.window.isWindowModified());
    Stack().redo();
    EXPECT_TEXT(m_viewer.Value("frequency.value"), "118100000");
    EXPECT_TRUE(m_viewer.window.isWindowModified());
}

TEST_F(ViewerEditing, WhatASetterRefusesIsSaidInItsWordsAndChangesNothing)
{
    EXPECT_FALSE(m_viewer.Set("area.coordinate[1].latitude", "91"));
    EXPECT_TEXT(m_viewer.Notice(), "area.coordinate[1].latitude: Parameters for m_latitude are not set "
                                   "within range (-90, 90) in 'Coordinate'.");
    EXPECT_TEXT(m_viewer.Value("area.coordinate[1].latitude"), "47.36");
    EXPECT_EQ(Stack().count(), 0);
    EXPECT_FALSE(m_viewer.window.isWindowModified());
    // The next change says that this is over.
    EXPECT_TRUE(m_viewer.Set("area.coordinate[1].latitude", "46"));
    EXPECT_TEXT(m_viewer.Notice(), "");
}

TEST_F(ViewerEditing, BytesAndProblemsFollow)
{
    Choose("area.name");
    m_viewer.window.Tree().UnsetAction()->trigger();
    m_viewer.Settle();
    EXPECT_TRUE(m_viewer.Problems().startsWith(QStringLiteral("1 problem")))
        << m_viewer.Problems().toStdString();
    EXPECT_TRUE(m_viewer.window.Shown().Shown()->bytes.contains("<Name></Name>"));
    Stack().undo();
    m_viewer.Settle();
    EXPECT_TEXT(m_viewer.Problems(), "1 warning");
    EXPECT_TEXT(m_viewer.MarkedText(), "<Name>Z\u00FCrichsee</Name>");
}

TEST_F(ViewerEditing, PointsAreAddedAndRemoved)
{
    Choose("area.coordinate[1]");
    m_viewer.window.Tree().AddAction()->trigger();
    EXPECT_EQ(Points(), 3);
    EXPECT_TEXT(m_viewer.window.Tree().CurrentPath(), "area.coordinate[2]");
    EXPECT_TEXT(m_viewer.Value("area.coordinate[2].latitude"), "47.36");
    EXPECT_TRUE(m_viewer.Set("area.coordinate[2].latitude", "47.5"));
    m_viewer.Settle();
    EXPECT_EQ(m_viewer.window.Shown().Shown()->outline.items.size(), 3U);
    EXPECT_TEXT(m_viewer.Problems(), "No problems");

    Choose("area.coordinate[1]");
    m_viewer.window.Tree().UnsetAction()->trigger();
    EXPECT_EQ(Points(), 2);
    EXPECT_TEXT(m_viewer.Value("area.coordinate[1].latitude"), "47.5");
    EXPECT_TEXT(Stack().undoText(), "removal of area.coordinate[1]");
    Stack().undo();
    Stack().undo();
    Stack().undo();
    EXPECT_EQ(Points(), 2);
    EXPECT_TEXT(m_viewer.Value("area.coordinate[1].latitude"), "47.36");
    EXPECT_FALSE(Stack().canUndo());
}

TEST_F(ViewerEditing, SelectedPointsAreRemovedAtOnce)
{
    Choose("area.coordinate[1]");
    const QModelIndex first = m_viewer.At("area.coordinate[1]", 0);
    const QModelIndex last = m_viewer.At("area.coordinate[2]", 1);
    m_viewer.window.Tree().selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::Select);
    m_viewer.window.Tree().UnsetAction()->trigger();
    EXPECT_EQ(Points(), 0);
    EXPECT_EQ(Stack().count(), 1);
    Stack().undo();
    EXPECT_EQ(Points(), 2);
}

TEST_F(ViewerEditing, OnlyWhatCanBeDoneIsOffered)
{
    const ReportViewer::TreePane& tree = m_viewer.window.Tree();
    Choose("frequency");
    EXPECT_FALSE(tree.EditAction()->isEnabled());
    EXPECT_TRUE(tree.UnsetAction()->isEnabled());
    EXPECT_FALSE(tree.AddAction()->isEnabled());
    Choose("area.version");
    EXPECT_FALSE(tree.EditAction()->isEnabled());
    Choose("area.coordinate");
    EXPECT_TRUE(tree.AddAction()->isEnabled());
    Choose("area.coordinate[1].latitude");
    EXPECT_TRUE(tree.EditAction()->isEnabled());
    EXPECT_TRUE(tree.AddAction()->isEnabled());
    Choose("area.name");
    tree.UnsetAction()->trigger();
    EXPECT_FALSE(tree.UnsetAction()->isEnabled());
    EXPECT_TRUE(tree.EditAction()->isEnabled());
}

TEST_F(ViewerEditing, ALaterChangeForgetsWhatWasUndone)
{
    EXPECT_TRUE(m_viewer.Set("area.name", "first"));
    EXPECT_TRUE(m_viewer.Set("area.name", "second"));
    Stack().undo();
    EXPECT_TEXT(m_viewer.Value("area.name"), "first");
    EXPECT_TRUE(m_viewer.Set("area.name", "third"));
    EXPECT_FALSE(Stack().canRedo());
    Stack().undo();
    EXPECT_TEXT(m_viewer.Value("area.name"), "first");
}

TEST_F(ViewerEditing, OpeningAnotherReportForgetsTheChanges)
{
    EXPECT_TRUE(m_viewer.Set("area.name", "first"));
    m_viewer.answers->changes = Questions::Changes::Discard;
    m_viewer.Open(m_viewer.scratch.Write("other.xml", ToolTest::FullXml()));
    EXPECT_EQ(m_viewer.answers->asked,
              QStringList{QStringLiteral("changes ") + m_viewer.scratch.Path("report.xml")});
    EXPECT_FALSE(Stack().canUndo());
    EXPECT_FALSE(m_viewer.window.isWindowModified());
    EXPECT_TEXT(m_viewer.Value("area.name"), "Z\u00FCrichsee");
}

TEST_F(ViewerEditing, AChangeIsNotLostToAFileThatIsOnItsWay)
{
    m_viewer.window.Open(m_viewer.scratch.Write("other.xml", "<ReportBase/>"));
    ASSERT_TRUE(m_viewer.window.Shown().IsLoading());
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    EXPECT_FALSE(m_viewer.window.Shown().IsLoading());
    EXPECT_TEXT(m_viewer.Notice(), "Opening was cancelled, since this report has been changed");
    m_viewer.Settle();
    EXPECT_TEXT(m_viewer.Value("area.name"), "changed");
    EXPECT_TEXT(m_viewer.window.Shown().FileName(), m_viewer.scratch.Path("report.xml"));
}

TEST_F(ViewerEditing, ANewReportIsFilledFieldByField)
{
    m_viewer.window.New();
    EXPECT_TEXT(m_viewer.window.windowTitle(), "New report[*] - reportviewer");
    EXPECT_TRUE(m_viewer.Set("frequency.value", "121.5e6"));
    EXPECT_TRUE(m_viewer.Set("area.name", "Lake"));
    Choose("area.coordinate");
    m_viewer.window.Tree().AddAction()->trigger();
    EXPECT_EQ(Points(), 1);
    m_viewer.Settle();
    EXPECT_EQ(m_viewer.window.Shown().Shown()->outline.items.size(), 1U);
}

TEST_F(ViewerEditing, NothingIsLostUnlessThePersonWantsIt)
{
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    m_viewer.answers->changes = Questions::Changes::Cancel;
    m_viewer.window.Open(m_viewer.scratch.Write("other.xml", ToolTest::FullXml()));
    m_viewer.window.New();
    m_viewer.window.Reload();
    EXPECT_FALSE(m_viewer.window.close());
    EXPECT_FALSE(m_viewer.window.Shown().IsLoading());
    EXPECT_TEXT(m_viewer.Value("area.name"), "changed");
    EXPECT_EQ(m_viewer.answers->asked.size(), 4);
    m_viewer.answers->changes = Questions::Changes::Discard;
    EXPECT_TRUE(m_viewer.window.close());
}

} // namespace
