#include "viewerwindow.h"

#include "reporttool/samples.h"

#include <gtest/gtest.h>

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>

namespace {

using ReportViewer::Document;
using ViewerTest::ViewerWindow;

class ViewerFollowing : public testing::Test
{
protected:
    ViewerFollowing() { m_viewer.Open(m_viewer.scratch.Write("report.xml", ToolTest::FullXml())); }

    /// What the status bar says of map, problems and bytes.
    QString Update()
    {
        const QLabel& label = *m_viewer.Find<QLabel>("update");
        EXPECT_EQ(label.isVisible(), !label.text().isEmpty());
        return label.text();
    }

    ViewerWindow m_viewer;
};

TEST_F(ViewerFollowing, TheStatusBarSaysThatMapProblemsAndBytesAreBehind)
{
    EXPECT_TEXT(Update(), "");
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    EXPECT_TEXT(Update(), "Updating map, problems and bytes: 0 %");
    EXPECT_FALSE(m_viewer.window.Shown().Shown()->bytes.contains("changed"));
    EXPECT_FALSE(m_viewer.Find<QAbstractButton>("cancel")->isVisible());
    m_viewer.Settle();
    EXPECT_TEXT(Update(), "");
    EXPECT_TRUE(m_viewer.window.Shown().Shown()->bytes.contains("<Name>changed</Name>"));
}

TEST_F(ViewerFollowing, TheStatusBarSaysHowFarItHasGot)
{
    QStringList told;
    QObject context;
    QObject::connect(&m_viewer.window.Shown(), &Document::FollowingProgressed, &context,
                     [&] { told << Update(); });
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    m_viewer.Settle();
    const QString text = QStringLiteral("Updating map, problems and bytes: %1 %");
    // Writing and checking, looking for doubts, finding the fields as a step and at the first of them, drawing.
    EXPECT_EQ(told, QStringList(
                        {text.arg(0), text.arg(20), text.arg(45), text.arg(60), text.arg(60), text.arg(95)}));
}

TEST_F(ViewerFollowing, EachChangeIsFollowed)
{
    for (const char* const name : {"first", "second", "third"}) {
        EXPECT_TRUE(m_viewer.Set("area.name", name));
        EXPECT_FALSE(Update().isEmpty());
    }
    m_viewer.Settle();
    EXPECT_TEXT(Update(), "");
    EXPECT_TRUE(m_viewer.window.Shown().Shown()->bytes.contains("<Name>third</Name>"));
}

TEST_F(ViewerFollowing, AnotherReportIsNotBehind)
{
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    EXPECT_FALSE(Update().isEmpty());
    m_viewer.answers->changes = ReportViewer::Questions::Changes::Discard;
    m_viewer.window.New();
    EXPECT_TEXT(Update(), "");
}

TEST_F(ViewerFollowing, WhatCannotBeFollowedIsSaidToBeOutOfDate)
{
    Q_EMIT m_viewer.window.Shown().FollowingFailed(QStringLiteral("<b>too</b> long"));
    EXPECT_TEXT(Update(), "Map, problems and bytes are out of date: <b>too</b> long");
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    m_viewer.Settle();
    EXPECT_TEXT(Update(), "");
}

} // namespace
