// Enlarged pictures: pixels stay rectangles of one colour, and shares add up.
#include <host/qt/enlarge.h>

#include <gtest/gtest.h>

#include <QColor>

namespace kvqt {
namespace {

QImage Stripes(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixelColor(x, y, (x + y) % 2 == 0 ? QColor(240, 0, 80) : QColor(0, 240, 80));
        }
    }
    return image;
}

TEST(EnlargeTest, WholeFactorsRepeatPixels) {
    const QImage small = Stripes(5, 3);
    const QImage large = Enlarge(small, {15, 9});
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 15; ++x) EXPECT_EQ(large.pixel(x, y), small.pixel(x / 3, y / 3));
    }
}

TEST(EnlargeTest, AtOddFactorsOnlyTheEdgesMix) {
    // One and a half: the middle pixel of three lies half over each of the two.
    const QImage large = Enlarge(Stripes(2, 1), {3, 1});
    EXPECT_EQ(large.pixelColor(0, 0), QColor(240, 0, 80));
    EXPECT_EQ(large.pixelColor(1, 0), QColor(120, 120, 80));
    EXPECT_EQ(large.pixelColor(2, 0), QColor(0, 240, 80));
    // Anywhere else: the blue that all pixels share stays as it is, and no row or column is lost.
    for (int width = 7; width < 40; ++width) {
        const QImage odd = Enlarge(Stripes(7, 7), {width, 19});
        for (int x = 0; x < width; ++x) EXPECT_NEAR(odd.pixelColor(x, 9).blue(), 80, 1) << width;
        EXPECT_EQ(odd.pixelColor(0, 0), QColor(240, 0, 80)) << width;
        EXPECT_EQ(odd.pixelColor(width - 1, 18), QColor(240, 0, 80)) << width;
    }
}

TEST(EnlargeTest, ColoursOfUnseenPixelsDoNotBleed) {
    QImage icon(2, 1, QImage::Format_ARGB32);
    icon.setPixelColor(0, 0, QColor(200, 100, 0, 255));
    icon.setPixelColor(1, 0, QColor(255, 255, 255, 0));
    const QColor edge = Enlarge(icon, {3, 1}).pixelColor(1, 0);
    EXPECT_NEAR(edge.alpha(), 127, 1);
    EXPECT_NEAR(edge.red(), 200, 2);
    EXPECT_NEAR(edge.green(), 100, 2);
}

}  // namespace
}  // namespace kvqt
