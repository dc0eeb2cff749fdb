#include <reportpicture/mapdrawing.h>
#include <reportpicture/mapscale.h>
#include <reportpicture/painters.h>

#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>

namespace {

using ReportCore::Feature;
using ReportCore::Points;

constexpr int WIDTH = 600;
constexpr int HEIGHT = 400;

QImage Drawn(const std::vector<Points>& outlines)
{
    const auto picture = ReportPicture::AllPainters().png({WIDTH, HEIGHT});
    QByteArray bytes = picture->Begin();
    for (const Points& outline : outlines) {
        Feature feature;
        feature.file = QStringLiteral("f");
        feature.outline = outline;
        feature.values.resize(ReportCore::PropertyTypes().size());
        bytes += picture->Add(picture->Prepare(feature));
    }
    picture->End([&bytes](const QByteArray& piece) { bytes += piece; });
    return QImage::fromData(bytes, "PNG");
}

bool IsColoured(QRgb pixel)
{
    return qRed(pixel) != qGreen(pixel) || qGreen(pixel) != qBlue(pixel);
}

/// How many pixels of a line of the map are coloured; the map ends above the labels of longitudes.
int ColouredInLine(const QImage& image, int y)
{
    int count = 0;
    for (int x = 70; x < WIDTH - 20; ++x)
        count += IsColoured(image.pixel(x, y)) ? 1 : 0;
    return count;
}

/// The middle of the map of one report: between the upper margin of 12, and the legend's row of 20 with its margin of 12
/// and the labels of 24 below.
constexpr int MIDDLE_Y = (12 + HEIGHT - 12 - 20 - 24) / 2;
constexpr int MIDDLE_X = (64 + WIDTH - 12) / 2;

TEST(Picture, AreaIsFilledAndWhatIsAroundItIsNot)
{
    const QImage image = Drawn({{{0, 0}, {1, 0}, {1, 1}, {0, 1}}});
    ASSERT_EQ(image.size(), QSize(WIDTH, HEIGHT));
    EXPECT_TRUE(IsColoured(image.pixel(MIDDLE_X, MIDDLE_Y)));
    EXPECT_FALSE(IsColoured(image.pixel(70, MIDDLE_Y)));
    EXPECT_FALSE(IsColoured(image.pixel(WIDTH - 20, MIDDLE_Y)));
    EXPECT_FALSE(IsColoured(image.pixel(MIDDLE_X, 15)));
    EXPECT_EQ(image.pixel(2, 2), qRgb(255, 255, 255));
}

TEST(Picture, AreaAcrossTheAntimeridianIsInOnePiece)
{
    // As wide as high: it fills no more than the middle, however far its numbers lie from one another.
    const QImage image = Drawn({{{179.5, 0}, {-179.5, 0}, {-179.5, 1}, {179.5, 1}}});
    EXPECT_TRUE(IsColoured(image.pixel(MIDDLE_X, MIDDLE_Y)));
    EXPECT_EQ(ColouredInLine(image, MIDDLE_Y),
              ColouredInLine(Drawn({{{0, 0}, {1, 0}, {1, 1}, {0, 1}}}), MIDDLE_Y));
}

TEST(Picture, AreasOnBothSidesOfTheAntimeridianStandBesideEachOther)
{
    const QImage image =
        Drawn({{{178, 0}, {179, 0}, {179, 1}, {178, 1}}, {{-179, 0}, {-178, 0}, {-178, 1}, {-179, 1}}});
    // One legend row more. Four degrees, of which the outer two are filled.
    const int y = MIDDLE_Y - 10;
    EXPECT_TRUE(IsColoured(image.pixel(MIDDLE_X - 150, y)));
    EXPECT_FALSE(IsColoured(image.pixel(MIDDLE_X + 5, y)));
    EXPECT_TRUE(IsColoured(image.pixel(MIDDLE_X + 150, y)));
}

TEST(Picture, PointAndLineAndNothingAreDrawn)
{
    EXPECT_TRUE(IsColoured(Drawn({{{8.5, 47.25}}}).pixel(MIDDLE_X, MIDDLE_Y)));
    EXPECT_TRUE(IsColoured(Drawn({{{8, 47}, {9, 47}}}).pixel(MIDDLE_X, MIDDLE_Y)));
    const QImage nothing = Drawn({{}});
    EXPECT_EQ(nothing.size(), QSize(WIDTH, HEIGHT));
    EXPECT_EQ(ColouredInLine(nothing, MIDDLE_Y), 0);
}

/// How many pixels of a column of the map are coloured.
int ColouredInColumn(const QImage& image, int x)
{
    int count = 0;
    for (int y = 14; y < HEIGHT - 60; ++y)
        count += IsColoured(image.pixel(x, y)) ? 1 : 0;
    return count;
}

TEST(Picture, AnAreaFillsThePictureHoweverSmallItIs)
{
    // The map is 332 pixels high, of which 8 in 116 on each side are free: 286, and a pixel of the line on either side.
    // The scale bar stands beside it.
    constexpr int FILLED = 288;
    const struct
    {
        const char* name;
        double latitude;
        double width;
        double height;
    } areas[] = {
        {"a country", 0.0, 5.0, 5.0},
        {"a field of 100 m", 0.0, 9e-4, 9e-4},
        {"a house of 10 m", 47.5, 9e-5, 9e-5},
        {"a table of 1 m", 47.5, 9e-6, 9e-6},
        // At 60 degrees, where a degree of longitude has half the length.
        {"a house in the north", 60.0, 1.8e-4, 9e-5},
    };
    for (const auto& area : areas) {
        SCOPED_TRACE(area.name);
        const double south = area.latitude;
        const double north = south + area.height;
        const QImage image =
            Drawn({{{9.0, south}, {9.0 + area.width, south}, {9.0 + area.width, north}, {9.0, north}}});
        EXPECT_NEAR(ColouredInColumn(image, MIDDLE_X), FILLED, 4);
    }
}

TEST(Picture, BoxesAreNeverEmpty)
{
    // A point has a map of two kilometres.
    const QRectF point = ReportPicture::BoxAround({{{9.0, 0.0}}});
    EXPECT_NEAR(point.height(), 0.02, 1e-12);
    EXPECT_NEAR(point.width(), 0.02, 1e-12);
    // What differs by less than the forms keep has one of 10 centimetres.
    const QRectF tiny = ReportPicture::BoxAround({{{9.0, 0.0}, {9.0, 1e-9}}});
    EXPECT_NEAR(tiny.height(), 1e-6, 1e-12);
    EXPECT_NEAR(tiny.center().y(), 5e-10, 1e-15);
}

bool IsInk(QRgb pixel)
{
    return qGray(pixel) < 128;
}

ReportPicture::MapStyle StyleOf(int pixels)
{
    ReportPicture::MapStyle style;
    style.font.setPixelSize(pixels);
    return style;
}

TEST(Picture, LabelsOfManyDigitsStayWithinThePicture)
{
    // Of a map of some metres lines stand at hundred thousandths of degrees. Where a label would be cut depends on the font.
    for (int size = 10; size <= 18; ++size) {
        QImage image(WIDTH, HEIGHT, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        const ReportPicture::MapStyle style = StyleOf(size);
        const QRectF frame(64.0, 12.0, 500.0, 340.0);
        ReportPicture::DrawGraticule(painter, {QRectF(9.5, 47.508, 1e-4, 1e-4), frame}, style);
        painter.end();
        int ink = 0;
        for (int y = 0; y < static_cast<int>(frame.bottom()); ++y) {
            EXPECT_FALSE(IsInk(image.pixel(0, y))) << size << " at " << y;
            for (int x = 1; x < static_cast<int>(frame.left()); ++x)
                ink += IsInk(image.pixel(x, y)) ? 1 : 0;
        }
        EXPECT_GT(ink, 100) << size;
    }
}

TEST(Picture, LabelsOfLongitudesStandApart)
{
    // Beside the pole a degree of longitude is short, and fractions of it have long labels.
    const QImage image = Drawn({{{-179.9, 89.99}}});
    constexpr int FRAME_BOTTOM = HEIGHT - 12 - 20 - 24;
    constexpr int WIDEST_LABEL = 110;
    int labels = 0;
    int begin = -1;
    int last = -10;
    for (int x = 0; x < WIDTH; ++x) {
        bool hasInk = false;
        for (int y = FRAME_BOTTOM + 4; y < FRAME_BOTTOM + 22; ++y)
            hasInk = hasInk || IsInk(image.pixel(x, y));
        if (!hasInk)
            continue;
        if (x - last > 6) {
            begin = x;
            ++labels;
        }
        last = x;
        ASSERT_LT(last - begin, WIDEST_LABEL);
    }
    EXPECT_GT(labels, 1);
    EXPECT_LT(last, WIDTH - 1);
}

/// Where there is ink on a white picture.
QRect Inked(const QImage& image)
{
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (IsInk(image.pixel(x, y)))
                inked |= QRect(x, y, 1, 1);
        }
    }
    return inked;
}

TEST(Picture, ScaleAndNoteAreAsLargeAsTheFont)
{
    // Of 400 pixels for 4 degrees, a quarter is 111 km: the bar of 100 km is 90 pixels long.
    const ReportPicture::MapScale scale(QRectF(0.0, -2.0, 4.0, 4.0), QRectF(0.0, 0.0, 400.0, 400.0));
    const auto drawn = [&scale](int pixels, const QString& note) {
        QImage image(400, 400, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        if (note.isEmpty())
            ReportPicture::DrawScaleBar(painter, scale, StyleOf(pixels));
        else
            ReportPicture::DrawNote(painter, scale, StyleOf(pixels), note);
        painter.end();
        return Inked(image);
    };
    const QRect usual = drawn(13, QString());
    const QRect large = drawn(39, QString());
    // Margins and what is on the map are three times as large; the bar is as long.
    EXPECT_NEAR(usual.left(), 12, 1);
    EXPECT_NEAR(large.left(), 36, 1);
    EXPECT_NEAR(399 - usual.bottom(), 12, 1);
    EXPECT_NEAR(399 - large.bottom(), 36, 1);
    EXPECT_NEAR(usual.width(), 90, 2);
    EXPECT_NEAR(large.height(), 3 * usual.height(), 6);

    const QRect note = drawn(13, QStringLiteral("HHHH"));
    const QRect largeNote = drawn(39, QStringLiteral("HHHH"));
    EXPECT_NEAR(largeNote.height(), 3 * note.height(), 4);
    EXPECT_NEAR(largeNote.width(), 3 * note.width(), 8);
    // What is longer than the map is wide goes on below.
    const QRect longNote = drawn(39, QStringLiteral("HHHH HHHH HHHH HHHH"));
    EXPECT_LE(longNote.right(), 400 - 36);
    EXPECT_GE(longNote.height(), 2 * largeNote.height());
}

TEST(Picture, MapsHaveTheColoursOfTheirStyle)
{
    ReportPicture::MapStyle style = StyleOf(13);
    style.paper = Qt::black;
    style.ink = Qt::white;
    style.lines = QColor(60, 60, 60);
    QImage image(400, 400, QImage::Format_RGB32);
    image.fill(style.paper);
    QPainter painter(&image);
    const ReportPicture::MapScale scale(QRectF(0.0, -2.0, 4.0, 4.0), QRectF(64.0, 12.0, 324.0, 324.0));
    ReportPicture::DrawGraticule(painter, scale, style);
    ReportPicture::DrawScaleBar(painter, scale, style);
    painter.end();
    const auto hasColour = [&image](int x, int top, int bottom, const QColor& colour) {
        for (int y = top; y <= bottom; ++y) {
            if (image.pixelColor(x, y) == colour)
                return true;
        }
        return false;
    };
    // The equator in the middle of the map, and its label beside.
    EXPECT_TRUE(hasColour(64 + 21, 12 + 160, 12 + 164, style.lines));
    EXPECT_FALSE(hasColour(64 + 21, 0, 399, Qt::lightGray));
    EXPECT_EQ(image.pixelColor(64 + 12 + 20, 12 + 324 - 12 - 3), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(395, 5), QColor(Qt::black));
}

} // namespace
