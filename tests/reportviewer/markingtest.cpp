#include "viewerwindow.h"

#include "reporttool/samples.h"

#include <reportviewer/bytespane.h>
#include <reportviewer/rowview.h>
#include <reportviewer/treepane.h>

#include <gtest/gtest.h>

#include <QtWidgets/QScrollBar>

namespace {

using ReportViewer::RowView;
using ViewerTest::ViewerWindow;

/// The full report has 22 rows of sixteen bytes.
class ViewerMarking : public testing::Test
{
protected:
    ViewerMarking()
    {
        m_viewer.Open(m_viewer.scratch.Write("report", ToolTest::FullPlain()));
        View().verticalScrollBar()->setValue(0);
        EXPECT_GE(Rows(), 4);
        EXPECT_LE(Rows(), 14);
    }

    RowView& View() { return *m_viewer.window.Bytes().View(); }
    int Top() { return View().verticalScrollBar()->value(); }
    int Rows() { return View().viewport()->height() / View().fontMetrics().height(); }

    ViewerWindow m_viewer;
};

TEST_F(ViewerMarking, AFieldOfSeveralRowsIsInSightAltogether)
{
    // From 0xe6 to 0x113.
    m_viewer.window.Tree().setCurrentIndex(m_viewer.At("area.coordinate[1]"));
    EXPECT_LE(Top(), 0xE);
    EXPECT_LT(0x11, Top() + Rows());
    // What is in sight already doesn't move.
    const int top = Top();
    m_viewer.window.Tree().setCurrentIndex(m_viewer.At("area.coordinate[1].longitude"));
    EXPECT_EQ(Top(), top);
    m_viewer.window.Tree().setCurrentIndex(m_viewer.At("frequency"));
    EXPECT_LE(Top(), 0x3);
    EXPECT_LT(0x8, Top() + Rows());
}

TEST_F(ViewerMarking, OfWhatIsLongerTheBeginningIsInSight)
{
    View().ShowMark({0x10, 0x154});
    EXPECT_EQ(Top(), 1);
    EXPECT_EQ(View().Cursor(), 0x10);
}

} // namespace
