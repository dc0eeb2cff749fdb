#include "viewerwindow.h"

#include "reporttool/samples.h"

#include <gtest/gtest.h>

#include <QtWidgets/QLabel>

namespace {

using ViewerTest::ViewerWindow;

/// What is shown where nothing has changed since the file was read or written.
class ViewerSavedState : public testing::Test
{
protected:
    /// What stands in the window about the file.
    struct Seen
    {
        QByteArray bytes;
        QString problems;
        QString line;
    };

    Seen See()
    {
        m_viewer.Settle();
        return {m_viewer.window.Shown().Shown()->bytes, m_viewer.Problems(),
                m_viewer.Find<QLabel>("file")->text()};
    }

    void ExpectSame(const Seen& seen, const Seen& other)
    {
        EXPECT_EQ(seen.bytes, other.bytes);
        EXPECT_TEXT(seen.problems, other.problems);
        EXPECT_TEXT(seen.line, other.line);
    }

    void Undo() { m_viewer.window.ReportChanges().Stack().undo(); }
    void Redo() { m_viewer.window.ReportChanges().Stack().redo(); }

    ViewerWindow m_viewer;
    const ToolTest::Scratch& m_scratch = m_viewer.scratch;
};

TEST_F(ViewerSavedState, UndoingEverythingShowsADamagedFileAsItIs)
{
    const QByteArray damaged = ToolTest::FullPlain().left(300);
    m_viewer.Open(m_scratch.Write("cut", damaged));
    const Seen opened = See();
    EXPECT_EQ(opened.bytes, damaged);
    EXPECT_NE(opened.problems, QStringLiteral("No problems"));
    EXPECT_TRUE(m_viewer.Set("frequency.value", "118e6"));
    EXPECT_NE(See().bytes, damaged);
    Undo();
    ExpectSame(See(), opened);
    Redo();
    EXPECT_NE(See().bytes, damaged);
    // Before what has changed has been followed.
    EXPECT_TRUE(m_viewer.Set("frequency.value", "119e6"));
    Undo();
    Undo();
    ExpectSame(See(), opened);
}

TEST_F(ViewerSavedState, UndoingEverythingShowsWhatTheLibraryWouldNotWrite)
{
    const QByteArray xml =
        "<?xml version=\"1.0\"?>\n<!-- mine -->\n<ReportBase>\n\t<Frequency>3.00</Frequency>\n"
        "</ReportBase>\n";
    m_viewer.Open(m_scratch.Write("report.xml", xml));
    EXPECT_TRUE(m_viewer.Set("frequency.value", "4"));
    EXPECT_FALSE(See().bytes.contains("mine"));
    Undo();
    EXPECT_EQ(See().bytes, xml);
}

TEST_F(ViewerSavedState, WhatWasSavedIsShownAsTheFileHasIt)
{
    m_viewer.Open(m_scratch.Write("report.xml", ToolTest::FullXml()));
    EXPECT_TRUE(m_viewer.Set("area.name", "first"));
    EXPECT_TRUE(m_viewer.window.Save());
    const Seen saved = See();
    EXPECT_EQ(saved.bytes, m_scratch.Read("report.xml"));
    EXPECT_TRUE(m_viewer.Set("area.name", "second"));
    EXPECT_TRUE(See().bytes.contains("second"));
    Undo();
    ExpectSame(See(), saved);
    Undo();
    EXPECT_EQ(See().bytes, m_viewer.window.Model().Report().GetXmlString().toUtf8());
    EXPECT_FALSE(See().bytes.contains("first"));
    Redo();
    ExpectSame(See(), saved);
    // Before what was saved has been read.
    EXPECT_TRUE(m_viewer.Set("area.name", "third"));
    EXPECT_TRUE(m_viewer.window.Save());
    EXPECT_TRUE(m_viewer.Set("area.name", "fourth"));
    Undo();
    EXPECT_EQ(See().bytes, m_scratch.Read("report.xml"));
    EXPECT_TRUE(See().bytes.contains("third"));
}

} // namespace
