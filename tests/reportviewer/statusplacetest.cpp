#include "viewerwindow.h"

#include "reporttool/samples.h"

#include <reportviewer/bytespane.h>
#include <reportviewer/mapview.h>
#include <reportviewer/problempane.h>
#include <reportviewer/rowview.h>
#include <reportviewer/treepane.h>

#include <gtest/gtest.h>

#include <QtWidgets/QLabel>

namespace {

using ReportViewer::Questions;
using ViewerTest::ViewerWindow;

/// The status bar tells the place of what is marked in the bytes, and the coordinates of where the map is looked at.
class ViewerStatus : public testing::Test
{
protected:
    void Choose(const char* path) { m_viewer.window.Tree().setCurrentIndex(m_viewer.At(path)); }
    QString Place() { return m_viewer.Find<QLabel>("place")->text(); }
    QString Coordinates() { return m_viewer.Find<QLabel>("coordinates")->text(); }

    ViewerWindow m_viewer;
};

constexpr char XML[] =
    "<ReportBase>\n<Area Version=\"1.0\"><Name>a</Name>\n<Coordinate><Longitude>8</Longitude>"
    "<Latitude>200</Latitude></Coordinate></Area></ReportBase>";

TEST_F(ViewerStatus, OfPackedBytesAndOfWhatTheyUnpackTo)
{
    m_viewer.Open(m_viewer.scratch.Write("fm.compressed", ToolTest::FullCompressed()));
    EXPECT_TEXT(Place(), "");
    m_viewer.Press(Qt::Key_4, Qt::ControlModifier);
    m_viewer.Press(Qt::Key_K, Qt::ControlModifier);
    m_viewer.Press(Qt::Key_Down);
    m_viewer.Press(Qt::Key_Right);
    EXPECT_TEXT(Place(), "offset 0x11");
    Choose("area.name");
    EXPECT_TEXT(Place(), "offset 0x96 of the uncompressed data");
    m_viewer.Press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_TRUE(m_viewer.window.Bytes().View()->Mark().IsEmpty());
    EXPECT_TEXT(Place(), "");
}

TEST_F(ViewerStatus, OfAFieldThatIsChosenElsewhere)
{
    m_viewer.Open(m_viewer.scratch.Write("bad.xml", XML));
    m_viewer.Press(Qt::Key_4, Qt::ControlModifier);
    m_viewer.Press(Qt::Key_Right);
    EXPECT_TEXT(Place(), "line 1, column 2");
    Choose("area.name");
    EXPECT_TEXT(Place(), "line 2, column 21");
    Choose("area.coordinate[1].longitude");
    EXPECT_TEXT(Place(), "line 3, column 13");
    // It stands nowhere, but in the report.
    Choose("frequency.value");
    EXPECT_TEXT(Place(), "line 1, column 1");
}

TEST_F(ViewerStatus, OfAProblem)
{
    m_viewer.Open(m_viewer.scratch.Write("bad.xml", XML));
    m_viewer.window.Problems().ChooseNext(1);
    EXPECT_TEXT(Place(), "line 3, column 47");
    m_viewer.Open(m_viewer.scratch.Write("trailing", ToolTest::FullCompressed() + "more"));
    EXPECT_TEXT(Place(), "");
    m_viewer.window.Problems().ChooseNext(1);
    EXPECT_TEXT(Place(), QStringLiteral("offset 0x%1").arg(ToolTest::FullCompressed().size(), 0, 16));
}

TEST_F(ViewerStatus, OfAFieldThatHasMovedByAChange)
{
    m_viewer.Open(m_viewer.scratch.Write("report", ToolTest::FullPlain()));
    Choose("area.coordinate[1].longitude");
    EXPECT_TEXT(Place(), "offset 0xea");
    // A letter less takes a byte less.
    EXPECT_TRUE(m_viewer.Set("area.name", "Z\u00FCrichse"));
    m_viewer.Settle();
    EXPECT_EQ(m_viewer.window.Shown().Shown()->bytes.size(), ToolTest::FullPlain().size() - 1);
    EXPECT_TEXT(Place(), "offset 0xe9");
    m_viewer.answers->changes = Questions::Changes::Discard;
    m_viewer.window.New();
    EXPECT_TEXT(Place(), "");
}

TEST_F(ViewerStatus, CoordinatesThatKeysHaveToldAreForgotten)
{
    m_viewer.Open(m_viewer.scratch.Write("report.xml", ToolTest::FullXml()));
    m_viewer.Press(Qt::Key_2, Qt::ControlModifier);
    m_viewer.Press(Qt::Key_PageDown);
    EXPECT_FALSE(Coordinates().isEmpty());
    Choose("frequency.value");
    EXPECT_TEXT(Coordinates(), "");
    m_viewer.Press(Qt::Key_Plus);
    EXPECT_FALSE(Coordinates().isEmpty());
    m_viewer.Press(Qt::Key_F6);
    EXPECT_TEXT(Coordinates(), "");
}

} // namespace
