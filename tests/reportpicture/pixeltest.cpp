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

bool IsInk(QRgb pixel)
{
    return qGray(pixel) < 128;
}

TEST(Picture, LabelsOfManyDigitsStayWithinThePicture)
{
    // Of a map of some metres lines stand at hundred thousandths of degrees. Where a label would be cut depends on the font.
    for (int size = 10; size <= 18; ++size) {
        QImage image(WIDTH, HEIGHT, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QFont font = painter.font();
        font.setPixelSize(size);
        painter.setFont(font);
        const QRectF frame(ReportPicture::LABELS_LEFT, 12.0, 500.0, 340.0);
        ReportPicture::DrawGraticule(painter, {QRectF(9.5, 47.508, 1e-4, 1e-4), frame});
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

} // namespace
