// Enlarged pictures: pixels keep their colour where they are, and shares add up.
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

TEST(EnlargeTest, PixelsKeepTheirColourAndPassIntoEachOther) {
    const QImage small = Stripes(5, 3);
    const QImage large = Enlarge(small, {25, 15});
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 5; ++x) {
            EXPECT_EQ(large.pixel(5 * x + 2, 5 * y + 2), small.pixel(x, y));
        }
    }
    // From the middle of the first pixel of the middle row to that of the next: a steady way.
    for (int x = 7; x < 12; ++x) {
        EXPECT_LT(large.pixelColor(x, 7).green(), large.pixelColor(x + 1, 7).green() + 1) << x;
    }
    EXPECT_EQ(Enlarge(small, small.size()), small);
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
