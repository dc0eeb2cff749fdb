#include "support/expect.h"

#include "viewerwindow.h"

#include <reportviewer/mapview.h>

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace {

using ReportViewer::ContentsPointer;
using ReportViewer::MapView;

constexpr char LAKE[] =
    "<ReportBase><Area Version=\"1.0\"><Name>Lake</Name>"
    "<Coordinate><Longitude>9</Longitude><Latitude>47</Latitude></Coordinate>"
    "<Coordinate><Longitude>10</Longitude><Latitude>47</Latitude></Coordinate>"
    "<Coordinate><Longitude>10</Longitude><Latitude>48</Latitude></Coordinate>"
    "<Coordinate><Longitude>9</Longitude><Latitude>48</Latitude></Coordinate></Area></ReportBase>";

constexpr char ACROSS_THE_ANTIMERIDIAN[] =
    "<ReportBase><Area Version=\"1.0\"><Name>Sea</Name>"
    "<Coordinate><Longitude>179</Longitude><Latitude>-1</Latitude></Coordinate>"
    "<Coordinate><Longitude>-179</Longitude><Latitude>-1</Latitude></Coordinate>"
    "<Coordinate><Longitude>-179</Longitude><Latitude>1</Latitude></Coordinate></Area></ReportBase>";

ContentsPointer Read(const QByteArray& bytes)
{
    return ReportViewer::ReadContents(bytes, [](const QString& /*step*/, int /*percent*/) {});
}

class ViewerMap : public testing::Test
{
protected:
    ViewerMap()
    {
        QObject::connect(&m_map, &MapView::Hovered, [this](const QString& text) { m_hovered = text; });
        QObject::connect(&m_map, &MapView::PointChosen, [this](int index) { m_chosen = index; });
        m_map.setFont(FontOf(13));
        m_map.resize(500, 400);
        m_map.SetContents(Read(LAKE));
        m_map.show();
        EXPECT_TRUE(ViewerTest::WaitFor([this] { return m_map.isVisible(); }));
    }

    QPoint PlaceOf(double longitude, double latitude) const
    {
        return m_map.PlaceOf({longitude, latitude}).toPoint();
    }

    void Wheel(const QPoint& place, int steps)
    {
        QWheelEvent event(place, m_map.mapToGlobal(place), QPoint(), QPoint(0, steps * 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&m_map, &event);
    }

    /// With the left button held down.
    void Mouse(QEvent::Type type, const QPoint& place, Qt::MouseButton button)
    {
        const bool isRelease = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, place, m_map.mapToGlobal(place), button,
                          isRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&m_map, &event);
    }

    static QFont FontOf(int pixels)
    {
        QFont font;
        font.setPixelSize(pixels);
        return font;
    }

    bool IsSeen(double longitude, double latitude) const
    {
        return m_map.Scale().Frame().contains(m_map.PlaceOf({longitude, latitude}));
    }

    MapView m_map;
    QString m_hovered;
    int m_chosen = -1;
};

TEST_F(ViewerMap, ShowsAllOfTheArea)
{
    EXPECT_TRUE(IsSeen(9.0, 47.0));
    EXPECT_TRUE(IsSeen(10.0, 48.0));
    EXPECT_FALSE(IsSeen(20.0, 47.0));
}

TEST_F(ViewerMap, TellsTheCoordinatesUnderThePointer)
{
    // The map is drawn from 64 to 488 and from 12 to 376, with the middle of the area in its middle.
    QTest::mouseMove(&m_map, QPoint(276, 194));
    EXPECT_TEXT(m_hovered, "47.5\u00B0 N, 9.5\u00B0 E");
    QTest::mouseMove(&m_map, QPoint(5, 5));
    EXPECT_TEXT(m_hovered, "");

    // Of the whole earth, 360 degrees are as wide as the map: 53 pixels are 45 degrees.
    m_map.SetContents(Read("<ReportBase/>"));
    QTest::mouseMove(&m_map, QPoint(276 + 53, 194 - 53));
    EXPECT_TEXT(m_hovered, "45\u00B0 N, 45\u00B0 E");
    QTest::mouseMove(&m_map, QPoint(276 - 106, 194 + 53));
    EXPECT_TEXT(m_hovered, "45\u00B0 S, 90\u00B0 W");
    // Beyond the pole
    QTest::mouseMove(&m_map, QPoint(276, 194 - 107));
    EXPECT_TEXT(m_hovered, "");
    m_map.Enlarge(2.0);
    QTest::mouseMove(&m_map, QPoint(276 + 53, 194 - 106));
    EXPECT_TEXT(m_hovered, "45\u00B0 N, 22.5\u00B0 E");
}

TEST_F(ViewerMap, TheWheelEnlargesAroundThePointer)
{
    const QPoint place = PlaceOf(9.25, 47.75);
    const ReportCore::Point before = m_map.Scale().PointAt(place);
    const double pixels = m_map.Scale().PixelsOfKilometre();
    Wheel(place, 2);
    EXPECT_NEAR(m_map.Scale().PixelsOfKilometre(), pixels * 1.25 * 1.25, pixels * 1e-9);
    EXPECT_NEAR(m_map.Scale().PointAt(place).longitude, before.longitude, 1e-9);
    EXPECT_NEAR(m_map.Scale().PointAt(place).latitude, before.latitude, 1e-9);
    Wheel(place, -2);
    EXPECT_NEAR(m_map.Scale().PixelsOfKilometre(), pixels, pixels * 1e-9);
}

TEST_F(ViewerMap, CannotBeEnlargedWithoutEnd)
{
    for (int i = 0; i < 500; ++i)
        m_map.Enlarge(10.0);
    EXPECT_LE(m_map.Scale().PixelsOfKilometre(), 1e6);
    EXPECT_FALSE(m_map.grab().isNull());
    for (int i = 0; i < 500; ++i)
        m_map.Enlarge(0.1);
    EXPECT_GE(m_map.Scale().PixelsOfKilometre(), 0.002);
    EXPECT_FALSE(m_map.grab().isNull());
}

TEST_F(ViewerMap, DraggingMovesIt)
{
    const QPoint from = PlaceOf(9.5, 47.5);
    const QPoint to = from + QPoint(60, 30);
    const ReportCore::Point held = m_map.Scale().PointAt(from);
    Mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
    Mouse(QEvent::MouseMove, from + QPoint(30, 15), Qt::NoButton);
    Mouse(QEvent::MouseMove, to, Qt::NoButton);
    Mouse(QEvent::MouseButtonRelease, to, Qt::LeftButton);
    EXPECT_NEAR(m_map.Scale().PointAt(to).longitude, held.longitude, 1e-9);
    EXPECT_NEAR(m_map.Scale().PointAt(to).latitude, held.latitude, 1e-9);
    EXPECT_EQ(m_chosen, -1);
}

TEST_F(ViewerMap, AClickChoosesThePointUnderIt)
{
    QTest::mouseClick(&m_map, Qt::LeftButton, Qt::NoModifier, PlaceOf(10.0, 48.0) + QPoint(3, -3));
    EXPECT_EQ(m_chosen, 2);
    EXPECT_EQ(m_map.MarkedPoint(), 2);
    m_chosen = -1;
    QTest::mouseClick(&m_map, Qt::LeftButton, Qt::NoModifier, PlaceOf(9.5, 47.5));
    EXPECT_EQ(m_chosen, -1);
}

TEST_F(ViewerMap, KeysMoveEnlargeAndChoose)
{
    const double west = m_map.Scale().West();
    const double north = m_map.Scale().North();
    QTest::keyClick(&m_map, Qt::Key_Right);
    EXPECT_GT(m_map.Scale().West(), west);
    QTest::keyClick(&m_map, Qt::Key_Up);
    EXPECT_GT(m_map.Scale().North(), north);
    QTest::keyClick(&m_map, Qt::Key_Left);
    QTest::keyClick(&m_map, Qt::Key_Down);
    EXPECT_NEAR(m_map.Scale().West(), west, 1e-9);
    EXPECT_NEAR(m_map.Scale().North(), north, 1e-9);
    QTest::keyClick(&m_map, Qt::Key_PageUp);
    EXPECT_EQ(m_chosen, 3);
    QTest::keyClick(&m_map, Qt::Key_PageDown);
    EXPECT_EQ(m_chosen, 0);
    EXPECT_TEXT(m_hovered, "47\u00B0 N, 9\u00B0 E");
}

TEST_F(ViewerMap, AMarkedPointComesIntoSight)
{
    for (int i = 0; i < 20; ++i)
        Wheel(PlaceOf(9.0, 47.0), 1);
    EXPECT_FALSE(IsSeen(10.0, 48.0));
    m_map.MarkPoint(2);
    EXPECT_TRUE(IsSeen(10.0, 48.0));
}

TEST_F(ViewerMap, PointsOnBothSidesOfTheAntimeridianLieBesideEachOther)
{
    m_map.SetContents(Read(ACROSS_THE_ANTIMERIDIAN));
    const QPointF east = m_map.PlaceOf({179.0, -1.0});
    const QPointF west = m_map.PlaceOf({-179.0, -1.0});
    EXPECT_TRUE(m_map.Scale().Frame().contains(east));
    EXPECT_TRUE(m_map.Scale().Frame().contains(west));
    EXPECT_GT(west.x(), east.x());
}

TEST_F(ViewerMap, TheAreaIsDrawnAndTheMarkedPointStandsOut)
{
    m_map.MarkPoint(0);
    const QImage image = m_map.grab().toImage();
    const QColor inside = image.pixelColor(PlaceOf(9.53, 47.53));
    EXPECT_GT(inside.saturation(), 20) << inside.name().toStdString();
    const QColor outside = image.pixelColor(PlaceOf(8.965, 47.53));
    EXPECT_LT(outside.saturation(), 20) << outside.name().toStdString();
    EXPECT_EQ(image.pixelColor(PlaceOf(9.0, 47.0)), QColor(Qt::yellow));
}

TEST_F(ViewerMap, ShowsTheEarthWhereThereIsNoArea)
{
    m_map.SetContents(Read("<ReportBase/>"));
    EXPECT_TRUE(IsSeen(0.0, 80.0));
    EXPECT_TRUE(IsSeen(-170.0, -80.0));
    EXPECT_FALSE(m_map.grab().isNull());
    QTest::keyClick(&m_map, Qt::Key_PageDown);
    EXPECT_EQ(m_chosen, -1);
}

TEST_F(ViewerMap, AChangeKeepsThePlace)
{
    m_map.Enlarge(3.0);
    const double west = m_map.Scale().West();
    m_map.Renew(Read(ACROSS_THE_ANTIMERIDIAN));
    EXPECT_DOUBLE_EQ(m_map.Scale().West(), west);
    m_map.SetContents(Read(ACROSS_THE_ANTIMERIDIAN));
    EXPECT_NE(m_map.Scale().West(), west);
}

TEST_F(ViewerMap, SaysHowManyPointsItCannotDraw)
{
    EXPECT_TEXT(m_map.Note(), "");
    const QImage whole = m_map.grab().toImage();
    QByteArray xml(LAKE);
    xml.replace("<Latitude>48</Latitude>", "<Latitude>98</Latitude>");
    m_map.SetContents(Read(xml));
    EXPECT_TEXT(m_map.Note(), "2 of 4 points cannot be drawn");
    EXPECT_TEXT(m_map.accessibleDescription(), "2 of 4 points cannot be drawn");
    // In the upper left corner of the map, which had nothing there but a line before.
    const auto inkIn = [](const QImage& image, const QRect& part) {
        int count = 0;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x)
                count += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
        }
        return count;
    };
    const QRect corner(64 + 12, 12 + 6, 150, 20);
    EXPECT_EQ(inkIn(whole, corner), 0);
    EXPECT_GT(inkIn(m_map.grab().toImage(), corner), 100);
    // What isn't there can be drawn.
    m_map.SetContents(Read("<ReportBase/>"));
    EXPECT_TEXT(m_map.Note(), "");
}

TEST_F(ViewerMap, HasTheColoursOfItsPalette)
{
    QPalette dark = m_map.palette();
    dark.setColor(QPalette::Base, QColor(20, 20, 30));
    dark.setColor(QPalette::Text, QColor(230, 230, 220));
    m_map.grab();
    m_map.setPalette(dark);
    const QImage image = m_map.grab().toImage();
    EXPECT_EQ(image.pixelColor(2, 2), QColor(20, 20, 30));
    // The bar of the scale, which is five pixels high above the margin.
    EXPECT_EQ(image.pixelColor(64 + 12 + 10, 376 - 12 - 3), QColor(230, 230, 220));
}

TEST_F(ViewerMap, LeavesMoreRoomForLabelsInALargeFont)
{
    EXPECT_EQ(m_map.Scale().Frame(), QRectF(QPointF(64, 12), QPointF(488, 376)));
    m_map.setFont(FontOf(26));
    EXPECT_EQ(m_map.Scale().Frame(), QRectF(QPointF(128, 24), QPointF(476, 352)));
    EXPECT_TRUE(IsSeen(9.0, 47.0));
    EXPECT_TRUE(IsSeen(10.0, 48.0));
    m_map.Enlarge(2.0);
    const QPointF middle = m_map.PlaceOf({9.5, 47.5});
    m_map.setFont(FontOf(13));
    EXPECT_EQ(m_map.Scale().Frame(), QRectF(QPointF(64, 12), QPointF(488, 376)));
    EXPECT_NEAR(m_map.PlaceOf({9.5, 47.5}).x() - 276.0, middle.x() - 302.0, 1e-6);
}

TEST_F(ViewerMap, ASmallAreaCanBeReduced)
{
    QByteArray xml(LAKE);
    xml.replace("<Longitude>10</Longitude>", "<Longitude>9.000001</Longitude>");
    xml.replace("<Latitude>48</Latitude>", "<Latitude>47.000001</Latitude>");
    m_map.SetContents(Read(xml));
    const double pixels = m_map.Scale().PixelsOfKilometre();
    EXPECT_GT(pixels, 1e6);
    m_map.Enlarge(2.0);
    EXPECT_DOUBLE_EQ(m_map.Scale().PixelsOfKilometre(), pixels);
    m_map.Enlarge(0.5);
    EXPECT_DOUBLE_EQ(m_map.Scale().PixelsOfKilometre(), pixels / 2.0);
}

} // namespace
