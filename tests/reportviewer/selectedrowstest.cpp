#include "viewerwindow.h"

#include "reporttool/samples.h"

#include <reportviewer/changes.h>
#include <reportviewer/treepane.h>

#include <gtest/gtest.h>

#include <QAction>
#include <QtCore/QItemSelectionModel>

namespace {

using ViewerTest::ViewerWindow;

class ViewerSelectedRows : public testing::Test
{
protected:
    ViewerSelectedRows() { m_viewer.Open(m_viewer.scratch.Write("report.xml", ToolTest::FullXml())); }

    QUndoStack& Stack() { return m_viewer.window.ReportChanges().Stack(); }
    int Points() { return m_viewer.window.Model().rowCount(m_viewer.At("area.coordinate", 0)); }

    void Choose(std::initializer_list<const char*> paths)
    {
        m_viewer.window.Tree().setFocus();
        m_viewer.window.Tree().setCurrentIndex(m_viewer.At(*paths.begin()));
        for (const char* const path : paths)
            m_viewer.window.Tree().selectionModel()->select(m_viewer.At(path), QItemSelectionModel::Select |
                                                                                   QItemSelectionModel::Rows);
    }

    ViewerWindow m_viewer;
};

TEST_F(ViewerSelectedRows, AllOfThemAreUnsetAtOnce)
{
    Choose({"frequency.min"});
    while (m_viewer.window.Tree().selectionModel()->selectedRows().size() < 3)
        m_viewer.Press(Qt::Key_Down, Qt::ShiftModifier);
    const QModelIndexList rows = m_viewer.window.Tree().selectionModel()->selectedRows();
    QVector<QPersistentModelIndex> selected(rows.begin(), rows.end());
    m_viewer.Press(Qt::Key_Delete);
    for (const QPersistentModelIndex& row : selected)
        EXPECT_FALSE(row.data(ViewerTest::ReportModel::IsSetRole).toBool())
            << row.data().toString().toStdString();
    EXPECT_EQ(Stack().count(), 1);
    Stack().undo();
    for (const QPersistentModelIndex& row : selected)
        EXPECT_TRUE(row.data(ViewerTest::ReportModel::IsSetRole).toBool())
            << row.data().toString().toStdString();
}

TEST_F(ViewerSelectedRows, TheWholeReportIsEmptiedAndUndone)
{
    m_viewer.window.Tree().setFocus();
    m_viewer.Press(Qt::Key_A, Qt::ControlModifier);
    m_viewer.Press(Qt::Key_Delete);
    m_viewer.Settle();
    EXPECT_TRUE(m_viewer.Value("frequency.value").isNull());
    EXPECT_TRUE(m_viewer.Value("ifBandwidth.value").isNull());
    EXPECT_TRUE(m_viewer.Value("area.name").isNull());
    EXPECT_EQ(Points(), 0);
    EXPECT_FALSE(m_viewer.window.Tree().UnsetAction()->isEnabled());
    EXPECT_EQ(Stack().count(), 1);
    Stack().undo();
    EXPECT_TEXT(m_viewer.Value("frequency.value"), "121500000");
    EXPECT_TEXT(m_viewer.Value("ifBandwidth.value"), "8333.33");
    EXPECT_TEXT(m_viewer.Value("area.name"), "Z\u00FCrichsee");
    EXPECT_EQ(Points(), 2);
    EXPECT_FALSE(m_viewer.window.isWindowModified());
}

TEST_F(ViewerSelectedRows, FieldsAndItemsGoTogether)
{
    // Behind the second point two more: 47.1 and 47.2.
    for (const char* const latitude : {"47.2", "47.1"}) {
        EXPECT_TRUE(
            m_viewer.window.Model().InsertItem(m_viewer.At("area.coordinate", 0), 2,
                                               {{QStringLiteral("longitude"), QStringLiteral("8")},
                                                {QStringLiteral("latitude"), QString::fromUtf8(latitude)}}));
    }
    const int before = Stack().count();
    Choose({"frequency.use", "area.coordinate[1]", "area.coordinate[1].latitude", "area.coordinate[2]",
            "area.coordinate[4]"});
    m_viewer.window.Tree().UnsetAction()->trigger();
    EXPECT_TRUE(m_viewer.Value("frequency.use").isNull());
    ASSERT_EQ(Points(), 1);
    EXPECT_TEXT(m_viewer.Value("area.coordinate[1].latitude"), "47.1");
    EXPECT_EQ(Stack().count(), before + 1);
    Stack().undo();
    EXPECT_TEXT(m_viewer.Value("frequency.use"), "true");
    ASSERT_EQ(Points(), 4);
    EXPECT_TEXT(m_viewer.Value("area.coordinate[1].latitude"), "47.36");
    EXPECT_TEXT(m_viewer.Value("area.coordinate[4].latitude"), "47.2");
}

TEST_F(ViewerSelectedRows, WhatOneOfThemRefusesChangesNothing)
{
    Choose({"area.name", "area.version"});
    m_viewer.window.Tree().UnsetAction()->trigger();
    EXPECT_TEXT(m_viewer.Notice(), "area.version: version cannot be unset");
    EXPECT_TEXT(m_viewer.Value("area.name"), "Z\u00FCrichsee");
    EXPECT_EQ(Stack().count(), 0);
    EXPECT_FALSE(m_viewer.window.isWindowModified());
}

TEST_F(ViewerSelectedRows, OneThatIsSetIsEnough)
{
    Choose({"area.name"});
    m_viewer.window.Tree().UnsetAction()->trigger();
    EXPECT_FALSE(m_viewer.window.Tree().UnsetAction()->isEnabled());
    Choose({"area.name", "frequency.use"});
    m_viewer.window.Tree().setFocus();
    EXPECT_TRUE(m_viewer.window.Tree().UnsetAction()->isEnabled());
    m_viewer.window.Tree().UnsetAction()->trigger();
    EXPECT_TRUE(m_viewer.Value("frequency.use").isNull());
}

} // namespace
