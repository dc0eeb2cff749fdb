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
#include <QtCore/QFile>
#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDragEnterEvent>
#include <QtGui/QDropEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QTreeView>

namespace {

using ReportViewer::Questions;
using ViewerTest::ViewerWindow;
using ViewerTest::WaitFor;

class ViewerOpening : public testing::Test
{
protected:
    ViewerWindow m_viewer;
    const ToolTest::Scratch& m_scratch = m_viewer.scratch;
};

TEST_F(ViewerOpening, EveryFormShowsTheSameReport)
{
    const struct
    {
        const char* form;
        QByteArray bytes;
    } forms[] = {{"XML", ToolTest::FullXml()},
                 {"Plain", ToolTest::FullPlain()},
                 {"Compressed", ToolTest::FullCompressed()},
                 {"Binary file", ToolTest::InFile(ToolTest::FullPlain())},
                 {"Compressed binary file", ToolTest::InFile(ToolTest::FullCompressed())}};
    for (const auto& form : forms) {
        m_viewer.Open(m_scratch.Write("report", form.bytes));
        EXPECT_TEXT(m_viewer.Value("frequency.value"), "121500000");
        EXPECT_TEXT(m_viewer.Value("frequency.use"), "true");
        EXPECT_TEXT(m_viewer.Value("ifBandwidth.value"), "8333.33");
        EXPECT_TEXT(m_viewer.Value("area.name"), "Z\u00FCrichsee");
        EXPECT_TEXT(m_viewer.Value("area.coordinate[2].latitude"), "47.258");
        EXPECT_TEXT(
            m_viewer.Find<QLabel>("file")->text(),
            QStringLiteral("%1, %2 bytes, 1 warning").arg(QLatin1String(form.form)).arg(form.bytes.size()));
        EXPECT_TEXT(m_viewer.window.windowTitle(), "report[*] - reportviewer");
        EXPECT_FALSE(m_viewer.window.isWindowModified());
    }
}

TEST_F(ViewerOpening, FileNamesOutsideOfAscii)
{
    const QString name = m_scratch.Write("\u7121\u7DDA \u00FC.xml", ToolTest::FullXml());
    m_viewer.Open(name);
    EXPECT_TEXT(m_viewer.window.windowTitle(), "\u7121\u7DDA \u00FC.xml[*] - reportviewer");
    EXPECT_EQ(m_viewer.window.Recent().Names().value(0), name);
}

TEST_F(ViewerOpening, WhatIsNoReportIsShownAsBytes)
{
    m_viewer.Open(m_scratch.Write("noise", "no report"));
    EXPECT_TEXT(m_viewer.Problems(), "1 problem");
    EXPECT_TEXT(m_viewer.Find<QLabel>("file")->text(), "Unknown form, 9 bytes, 1 problem");
    EXPECT_TRUE(m_viewer.Find<QWidget>("hex")->isVisible());
    m_viewer.Open(m_scratch.Write("empty", ""));
    EXPECT_TEXT(m_viewer.Problems(), "1 problem");
}

TEST_F(ViewerOpening, AFileThatCannotBeOpenedIsSaidAndWhatWasShownStays)
{
    m_viewer.Open(m_scratch.Write("report.xml", ToolTest::FullXml()));
    m_viewer.Open(m_scratch.Path("missing.xml"));
    EXPECT_TEXT(m_viewer.Notice(),
                QStringLiteral("Not opened: %1: no such file").arg(m_scratch.Path("missing.xml")));
    EXPECT_TRUE(m_viewer.Find<QWidget>("notice")->isVisible());
    EXPECT_TEXT(m_viewer.Value("area.name"), "Z\u00FCrichsee");
    m_viewer.Open(m_scratch.Write("report.xml", ToolTest::FullXml()));
    EXPECT_FALSE(m_viewer.Find<QWidget>("notice")->isVisible());
}

TEST_F(ViewerOpening, AProblemOfXmlLeadsToItsFieldAndItsText)
{
    m_viewer.Open(m_scratch.Write(
        "bad.xml", "<ReportBase>\n<Area Version=\"1.0\"><Name>a</Name>\n<Coordinate><Longitude>8</Longitude>"
                   "<Latitude>200</Latitude></Coordinate></Area></ReportBase>"));
    ASSERT_TRUE(m_viewer.Problems().startsWith(QStringLiteral("1 problem")));
    auto* const list = m_viewer.Find<QTreeView>("problems");
    EXPECT_TEXT(list->model()->index(0, 2).data().toString(), "area.coordinate[1].latitude = \"200\"");
    EXPECT_TEXT(list->model()->index(0, 3).data().toString(), "line 3, column 47");
    m_viewer.window.Problems().ChooseNext(1);
    EXPECT_TEXT(m_viewer.window.Tree().CurrentPath(), "area.coordinate[1].latitude");
    EXPECT_TEXT(m_viewer.MarkedText(), "<Latitude>200</Latitude>");
    EXPECT_TEXT(m_viewer.window.Bytes().PlaceTextOf(m_viewer.window.Bytes().View()->Cursor()),
                "line 3, column 47");
}

TEST_F(ViewerOpening, AProblemInAnAreaThatComesTwiceLeadsToItsText)
{
    m_viewer.Open(m_scratch.Write(
        "twice.xml", "<ReportBase><Area Version=\"1.0\"><Name>a</Name><Coordinate><Longitude>abc</Longitude>"
                     "<Latitude>47</Latitude></Coordinate></Area><Frequency>3.00</Frequency>"
                     "<Area Version=\"1.0\"><Name>b</Name></Area></ReportBase>"));
    m_viewer.window.Problems().ChooseNext(1);
    EXPECT_TEXT(m_viewer.MarkedText(), "<Longitude>abc</Longitude>");
}

TEST_F(ViewerOpening, AProblemOfABinaryFormLeadsToItsBytes)
{
    QByteArray bytes = ToolTest::FullPlain();
    bytes.replace("47.258000", "97.258000");
    m_viewer.Open(m_scratch.Write("bad", bytes));
    m_viewer.window.Problems().ChooseNext(1);
    EXPECT_TEXT(m_viewer.window.Tree().CurrentPath(), "area.coordinate[2].latitude");
    EXPECT_EQ(m_viewer.Marked(), bytes.mid(0x12B, 0x15));
    EXPECT_TRUE(m_viewer.window.Bytes().View()->Mark().Holds(m_viewer.window.Bytes().View()->Cursor()));
}

TEST_F(ViewerOpening, AProblemOfThePackedBytesShowsThem)
{
    m_viewer.Open(m_scratch.Write("trailing", ToolTest::FullCompressed() + "more"));
    m_viewer.window.Problems().ChooseNext(1);
    EXPECT_TRUE(m_viewer.window.Bytes().PackedAction()->isChecked());
    EXPECT_EQ(m_viewer.window.Bytes().View()->Cursor(), ToolTest::FullCompressed().size());
    // A field stands in what was unpacked.
    m_viewer.window.Tree().setCurrentIndex(m_viewer.At("area.name"));
    EXPECT_FALSE(m_viewer.window.Bytes().PackedAction()->isChecked());
    EXPECT_EQ(m_viewer.Marked(), ToolTest::FullBody().mid(0xC4 - 0x2E, 0x16));
}

TEST_F(ViewerOpening, EveryTruncationOpens)
{
    const QByteArray whole = ToolTest::FullPlain();
    for (int size = 0; size < whole.size(); size += 7) {
        m_viewer.Open(m_scratch.Write("cut", whole.left(size)));
        EXPECT_NE(m_viewer.Problems(), QStringLiteral("No problems")) << size;
        m_viewer.window.Problems().ChooseNext(1);
    }
}

TEST_F(ViewerOpening, AClickOnAProblemLeadsThereToo)
{
    m_viewer.Open(m_scratch.Write(
        "bad.xml", "<ReportBase><Area Version=\"1.0\"><Name></Name><Coordinate><Longitude>-181</Longitude>"
                   "<Latitude>2</Latitude></Coordinate></Area></ReportBase>"));
    auto* const list = m_viewer.Find<QTreeView>("problems");
    Q_EMIT list->activated(list->model()->index(0, 0));
    EXPECT_TEXT(m_viewer.window.Tree().CurrentPath(), "area.coordinate[1].longitude");
    EXPECT_TEXT(m_viewer.MarkedText(), "<Longitude>-181</Longitude>");
}

TEST_F(ViewerOpening, SelectingAFieldMarksItEverywhere)
{
    m_viewer.Open(m_scratch.Write("report", ToolTest::FullPlain()));
    m_viewer.window.Tree().setCurrentIndex(m_viewer.At("area.coordinate[2].longitude"));
    EXPECT_EQ(m_viewer.Marked(), ToolTest::FullPlain().mid(0x117, 0x14));
    EXPECT_EQ(m_viewer.window.Map().MarkedPoint(), 1);
    m_viewer.window.Tree().setCurrentIndex(m_viewer.At("ifBandwidth"));
    EXPECT_EQ(m_viewer.Marked(), ToolTest::FullPlain().mid(0x8F, 0x1B));
    EXPECT_EQ(m_viewer.window.Map().MarkedPoint(), -1);
}

TEST_F(ViewerOpening, TheLastFilesAreRemembered)
{
    const QString first = m_scratch.Write("first & only.xml", ToolTest::FullXml());
    const QString second = m_scratch.Write("second.xml", ToolTest::FullXml());
    m_viewer.window.ForgetRecentFiles();
    m_viewer.Open(first);
    m_viewer.Open(second);
    m_viewer.Open(first);
    EXPECT_EQ(m_viewer.window.Recent().Names(), QStringList({first, second}));

    auto* const menu = m_viewer.Find<QMenu>("recent");
    Q_EMIT menu->aboutToShow();
    EXPECT_EQ(menu->actions().at(0)->text(),
              QStringLiteral("&1 ") + QString(first).replace(QLatin1Char('&'), QLatin1String("&&")));
    menu->actions().at(1)->trigger();
    ASSERT_TRUE(WaitFor([&] { return m_viewer.window.Shown().FileName() == second; }));

    // Another window of the same program knows them.
    EXPECT_EQ(ViewerWindow().window.Recent().Names(), QStringList({second, first}));
    m_viewer.window.ForgetRecentFiles();
    EXPECT_TRUE(m_viewer.window.Recent().Names().isEmpty());
}

TEST_F(ViewerOpening, AFileThatIsGoneIsForgotten)
{
    const QString gone = m_scratch.Write("gone.xml", ToolTest::FullXml());
    m_viewer.Open(gone);
    m_viewer.Open(m_scratch.Write("other.xml", ToolTest::FullXml()));
    ASSERT_TRUE(m_viewer.window.Recent().Names().contains(gone));
    ASSERT_TRUE(QFile::remove(gone));
    m_viewer.Open(gone);
    EXPECT_FALSE(m_viewer.window.Recent().Names().contains(gone));
    EXPECT_TRUE(m_viewer.window.Recent().Names().contains(m_scratch.Path("other.xml")));
}

TEST_F(ViewerOpening, NoMoreThanTenFilesAreRemembered)
{
    ReportViewer::RecentFiles recent;
    for (int i = 0; i < 15; ++i)
        recent.Add(QString::number(i));
    EXPECT_EQ(recent.Names().size(), 10);
    EXPECT_TEXT(recent.Names().constFirst(), "14");
    EXPECT_TEXT(recent.Names().constLast(), "5");
    recent.Remove(QStringLiteral("14"));
    EXPECT_TEXT(recent.Names().constFirst(), "13");
    recent.Clear();
}

QStringList Listed(const QListView& list)
{
    QStringList names;
    for (int row = 0; row < list.model()->rowCount(); ++row)
        names << list.model()->index(row, 0).data().toString();
    return names;
}

TEST_F(ViewerOpening, AFolderIsListedAndFiltered)
{
    m_scratch.Write("a.xml", ToolTest::FullXml());
    m_scratch.Write("b.plain", ToolTest::FullPlain());
    m_scratch.Write("c.xml", "<ReportBase/>");
    bool isListed = false;
    QObject::connect(&m_viewer.window.Folder(), &ReportViewer::FolderPane::Listed,
                     [&isListed] { isListed = true; });
    m_viewer.window.Open(m_scratch.Folder());
    ASSERT_TRUE(WaitFor([&isListed] { return isListed; }));
    auto* const list = m_viewer.Find<QListView>("files");
    EXPECT_TRUE(list->isVisible());
    EXPECT_EQ(Listed(*list),
              QStringList({QStringLiteral("a.xml"), QStringLiteral("b.plain"), QStringLiteral("c.xml")}));
    auto* const filter = m_viewer.Find<QLineEdit>("filter");
    filter->setText(QStringLiteral("*.XML"));
    EXPECT_EQ(Listed(*list), QStringList({QStringLiteral("a.xml"), QStringLiteral("c.xml")}));
    filter->setText(QStringLiteral("pla"));
    EXPECT_EQ(Listed(*list), QStringList{QStringLiteral("b.plain")});
    filter->setText(QStringLiteral("?.x*"));

    m_viewer.window.Folder().ChooseNext(1);
    ASSERT_TRUE(WaitFor([&] { return m_viewer.window.Shown().FileName() == m_scratch.Path("a.xml"); }));
    m_viewer.window.Folder().ChooseNext(1);
    ASSERT_TRUE(WaitFor([&] { return m_viewer.window.Shown().FileName() == m_scratch.Path("c.xml"); }));
    filter->clear();
    EXPECT_EQ(Listed(*list).size(), 3);
}

TEST_F(ViewerOpening, SeveralFilesAreListed)
{
    const QString first = m_scratch.Write("a.xml", ToolTest::FullXml());
    const QString second = m_scratch.Write("b.plain", ToolTest::FullPlain());
    m_viewer.window.Open(QStringList{first, second});
    ASSERT_TRUE(WaitFor([&] { return m_viewer.window.Shown().FileName() == first; }));
    EXPECT_EQ(Listed(*m_viewer.Find<QListView>("files")), QStringList({first, second}));
    m_viewer.window.Folder().ChooseNext(1);
    ASSERT_TRUE(WaitFor([&] { return m_viewer.window.Shown().FileName() == second; }));
}

TEST_F(ViewerOpening, TheFileThatIsShownIsMarkedInTheList)
{
    const QString first = m_scratch.Write("a.xml", ToolTest::FullXml());
    const QString second = m_scratch.Write("b.xml", ToolTest::FullXml());
    m_viewer.window.Folder().ShowFiles({first, second});
    m_viewer.Open(first);
    const auto marked = [this] {
        return m_viewer.Find<QListView>("files")->currentIndex().data().toString();
    };
    EXPECT_TEXT(marked(), first);

    // Loading is cancelled
    m_viewer.window.Folder().ChooseNext(1);
    EXPECT_TEXT(marked(), second);
    ASSERT_TRUE(m_viewer.window.Shown().IsLoading());
    m_viewer.window.Shown().CancelLoading();
    EXPECT_TEXT(marked(), first);

    // The user stays with his changes
    EXPECT_TRUE(m_viewer.Set("area.name", "changed"));
    m_viewer.window.Folder().ChooseNext(1);
    EXPECT_TEXT(marked(), first);

    // What is shown isn't listed
    m_viewer.answers->changes = Questions::Changes::Discard;
    m_viewer.Open(m_scratch.Write("c.xml", ToolTest::FullXml()));
    EXPECT_TEXT(marked(), "");
}

TEST_F(ViewerOpening, ASingleByteIsCountedAsOne)
{
    m_viewer.Open(m_scratch.Write("one", "1"));
    EXPECT_TEXT(m_viewer.Find<QLabel>("file")->text(), "Unknown form, 1 byte, 1 problem");
}

TEST_F(ViewerOpening, FilesOfSeveralFoldersAreFilteredByTheirOwnNames)
{
    ReportViewer::FolderPane& folder = m_viewer.window.Folder();
    folder.ShowFiles({QStringLiteral("reports/lake.xml"), QStringLiteral("/far/away/Lake.plain"),
                      QStringLiteral("lakes/sea.xml")});
    const auto* const list = m_viewer.Find<QListView>("files");
    folder.Filter()->setText(QStringLiteral("*"));
    EXPECT_EQ(Listed(*list).size(), 3);
    folder.Filter()->setText(QStringLiteral("*.xml"));
    EXPECT_EQ(Listed(*list),
              QStringList({QStringLiteral("reports/lake.xml"), QStringLiteral("lakes/sea.xml")}));
    folder.Filter()->setText(QStringLiteral("LAKE"));
    EXPECT_EQ(Listed(*list),
              QStringList({QStringLiteral("reports/lake.xml"), QStringLiteral("/far/away/Lake.plain")}));
    folder.Filter()->setText(QStringLiteral("s?a*"));
    EXPECT_EQ(Listed(*list), QStringList{QStringLiteral("lakes/sea.xml")});
}

TEST_F(ViewerOpening, ADroppedFileIsOpened)
{
    const QString name = m_scratch.Write("a.xml", ToolTest::FullXml());
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(name)});
    QDragEnterEvent entering(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&m_viewer.window, &entering);
    EXPECT_TRUE(entering.isAccepted());
    QDropEvent event(QPointF(10.0, 10.0), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&m_viewer.window, &event);
    ASSERT_TRUE(WaitFor([&] { return m_viewer.window.Shown().FileName() == name; }));
}

TEST_F(ViewerOpening, DialogsNameFileAndFolder)
{
    m_viewer.answers->file = m_scratch.Write("a.xml", ToolTest::FullXml());
    m_viewer.window.OpenOther();
    ASSERT_TRUE(WaitFor([&] { return m_viewer.window.Shown().FileName() == m_viewer.answers->file; }));
    m_viewer.answers->folder = m_scratch.Folder();
    m_viewer.window.OpenFolder();
    ASSERT_TRUE(WaitFor([&] { return m_viewer.window.Folder().Folder() == m_scratch.Folder(); }));
    EXPECT_EQ(m_viewer.answers->asked, QStringList({QStringLiteral("file"), QStringLiteral("folder")}));
}

} // namespace
