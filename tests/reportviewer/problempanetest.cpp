#include "viewerwindow.h"

#include <reportviewer/problemmodel.h>

#include <gtest/gtest.h>

#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTreeView>

#include <set>

namespace {

using ReportViewer::ProblemModel;
using ViewerTest::ViewerWindow;

/// Latitudes and longitudes that are no numbers.
QByteArray NoNumbers()
{
    QByteArray xml = "<ReportBase>\n<Area Version=\"1.0\"><Name>a</Name>\n";
    for (int i = 1; i <= 15; ++i)
        xml += "<Coordinate><Longitude>8</Longitude><Latitude>north-" + QByteArray::number(i) +
               "</Latitude></Coordinate>\n";
    return xml + "</Area></ReportBase>";
}

TEST(ViewerProblemPane, KindFieldValueAndPlaceAreSeenAtOnce)
{
    ViewerWindow viewer;
    viewer.Open(viewer.scratch.Write("bad.xml", NoNumbers()));
    const QTreeView& list = *viewer.Find<QTreeView>("problems");
    const QHeaderView& header = *list.header();
    ASSERT_GE(list.model()->rowCount(), 15);
    for (const int column :
         {ProblemModel::KindColumn, ProblemModel::FieldColumn, ProblemModel::PlaceColumn}) {
        const int left = header.sectionViewportPosition(column);
        EXPECT_GE(left, 0) << column;
        EXPECT_LE(left + header.sectionSize(column), list.viewport()->width()) << column;
        const QAbstractItemView& view = list;
        EXPECT_GE(header.sectionSize(column), view.sizeHintForColumn(column)) << column;
    }
    std::set<QString> seen;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        const QString field = list.model()->index(row, ProblemModel::FieldColumn).data().toString();
        const QString place = list.model()->index(row, ProblemModel::PlaceColumn).data().toString();
        EXPECT_TRUE(seen.insert(field + place).second) << row;
    }
}

TEST(ViewerProblemPane, TheToolTipShowsWhatTheFileHasAsItIs)
{
    ViewerWindow viewer;
    viewer.Open(viewer.scratch.Write(
        "bad.xml", "<ReportBase><Area Version=\"1.0\"><Name>a</Name><Coordinate><Longitude>8</Longitude>"
                   "<Latitude>&lt;b>no&lt;/b>  &amp;lt;</Latitude></Coordinate></Area></ReportBase>"));
    const QTreeView& list = *viewer.Find<QTreeView>("problems");
    QStringList seen;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        const QString tip =
            list.model()->index(row, ProblemModel::TextColumn).data(Qt::ToolTipRole).toString();
        EXPECT_TRUE(Qt::mightBeRichText(tip));
        seen << QTextDocumentFragment::fromHtml(tip).toPlainText();
    }
    EXPECT_TRUE(seen.contains(QStringLiteral("latitude is no number and reads as 0\n"
                                             "area.coordinate[1].latitude = \"<b>no</b>  &lt;\"\n"
                                             "NotANumber, line 1, column 93")))
        << seen.join(QLatin1Char('\n')).toStdString();
}

} // namespace
