#include <reportviewer/clipping.h>

#include <gtest/gtest.h>

namespace {

using ReportViewer::ClippedArea;
using ReportViewer::Thinned;

const QRectF FRAME(0.0, 0.0, 10.0, 10.0);

TEST(Clipping, WhatLiesWithinStaysAsItIs)
{
    const QPolygonF area(QVector<QPointF>{{1.0, 1.0}, {9.0, 1.0}, {5.0, 9.0}});
    EXPECT_EQ(ClippedArea(area, FRAME), area);
}

TEST(Clipping, WhatLiesOutsideIsGone)
{
    EXPECT_TRUE(
        ClippedArea(QPolygonF(QVector<QPointF>{{11.0, 1.0}, {19.0, 1.0}, {15.0, 9.0}}), FRAME).isEmpty());
}

TEST(Clipping, AFrameWithinTheAreaBecomesTheArea)
{
    const QPolygonF area(QVector<QPointF>{{-1e7, -1e7}, {1e7, -1e7}, {1e7, 1e7}, {-1e7, 1e7}});
    const QPolygonF clipped = ClippedArea(area, FRAME);
    EXPECT_EQ(clipped.boundingRect(), FRAME);
    EXPECT_TRUE(clipped.containsPoint({5.0, 5.0}, Qt::OddEvenFill));
}

TEST(Clipping, EdgesAreCutWhereTheyLeaveTheFrame)
{
    // A triangle whose tip sticks out to the right: its edges pass x = 10 at y = 2.5 and y = 7.5.
    const QPolygonF area(QVector<QPointF>{{5.0, 0.0}, {15.0, 5.0}, {5.0, 10.0}});
    EXPECT_EQ(ClippedArea(area, FRAME),
              QPolygonF(QVector<QPointF>{{5.0, 0.0}, {10.0, 2.5}, {10.0, 7.5}, {5.0, 10.0}}));
}

TEST(Clipping, ThinnedOutlinesHaveNoPointsThatNobodyCouldTellApart)
{
    const QPolygonF outline(QVector<QPointF>{{0.0, 0.0}, {0.2, 0.2}, {0.4, 0.4}, {0.6, 0.0}, {5.0, 5.0}});
    EXPECT_EQ(Thinned(outline), QPolygonF(QVector<QPointF>{{0.0, 0.0}, {0.6, 0.0}, {5.0, 5.0}}));
}

} // namespace
