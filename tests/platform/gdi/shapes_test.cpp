// Lines, rectangles, polygons, ellipses and the rectangle fills.
#include <tests/platform/gdi/drawing.h>

#include <climits>
#include <string>

namespace kv::test {
namespace {

// The picture as text: '.' black, 'x' the red of the pen, 'o' anything else.
std::string Show(const Drawing& drawing) {
    const SurfaceView view = ViewOf(drawing.bitmap);
    std::string text;
    for (int y = 0; y < view.height; ++y) {
        for (int x = 0; x < view.width; ++x) {
            const std::uint32_t pixel = drawing.At(x, y);
            text += pixel == 0 ? '.' : pixel == 0xFF0000 ? 'x' : 'o';
        }
        text += '\n';
    }
    return text;
}

class Shapes : public ::testing::Test {
 protected:
    Shapes() : drawing(8, 6) { UsePen(1); }
    ~Shapes() override {
        SelectObject(drawing.dc, GetStockObject(BLACK_PEN));
        EXPECT_TRUE(DeleteObject(pen_));
    }
    void UsePen(int width) {
        const HPEN pen = CreatePen(PS_SOLID, width, RGB(255, 0, 0));
        SelectObject(drawing.dc, pen);
        if (pen_ != nullptr) DeleteObject(pen_);
        pen_ = pen;
    }
    void Line(int x1, int y1, int x2, int y2) {
        MoveToEx(drawing.dc, x1, y1, nullptr);
        EXPECT_TRUE(LineTo(drawing.dc, x2, y2));
    }

    Drawing drawing;
    HPEN pen_{};
};

TEST_F(Shapes, ThinLinesLeaveOutTheirLastPoint) {
    Line(1, 1, 5, 1);
    Line(7, 5, 7, 2);
    Line(0, 5, 4, 3);
    EXPECT_EQ(Show(drawing),
              "........\n"
              ".xxxx...\n"
              "........\n"
              "...x...x\n"
              ".xx....x\n"
              "x......x\n");
}

TEST_F(Shapes, AWideLineLiesEvenlyAroundItsPath) {
    UsePen(2);
    Line(2, 2, 5, 2);
    EXPECT_EQ(Show(drawing),
              "........\n"
              ".xxxxx..\n"
              ".xxxxx..\n"
              "........\n"
              "........\n"
              "........\n");
}

TEST_F(Shapes, FarLinesCrossTheSurfaceWhereTheyShould) {
    Line(-1000000000, -1000000000, 1000000000, 1000000000);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(drawing.At(i, i), 0xFF0000u);
    Line(INT_MIN, 5, INT_MAX, 5);
    Line(INT_MAX, 0, INT_MIN, 0);
    for (int x = 0; x < 8; ++x) {
        EXPECT_EQ(drawing.At(x, 5), 0xFF0000u);
        EXPECT_EQ(drawing.At(x, 0), 0xFF0000u);
    }
    UsePen(INT_MAX);
    Line(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    POINT far[] = {{INT_MIN, INT_MIN}, {INT_MAX, INT_MIN}, {INT_MAX, INT_MAX}, {INT_MIN, INT_MAX}};
    SelectObject(drawing.dc, GetStockObject(NULL_PEN));
    EXPECT_TRUE(Polygon(drawing.dc, far, 4));
    EXPECT_EQ(drawing.At(3, 3), 0xFFFFFFu);
    EXPECT_TRUE(Ellipse(drawing.dc, INT_MIN, INT_MIN, INT_MAX, INT_MAX));
    EXPECT_TRUE(Rectangle(drawing.dc, INT_MIN, INT_MIN, INT_MAX, INT_MAX));
}

TEST_F(Shapes, RectanglesAreOutlinedInsideTheirBox) {
    Rectangle(drawing.dc, 1, 1, 6, 5);
    EXPECT_EQ(Show(drawing),
              "........\n"
              ".xxxxx..\n"
              ".xooox..\n"
              ".xooox..\n"
              ".xxxxx..\n"
              "........\n");
}

TEST_F(Shapes, PolygonsFillEvenOdd) {
    // A box with a hole, walked in one outline.
    SelectObject(drawing.dc, GetStockObject(NULL_PEN));
    const POINT points[] = {{0, 0}, {7, 0}, {7, 6}, {0, 6}, {0, 0},
                            {2, 2}, {2, 4}, {5, 4}, {5, 2}, {2, 2}};
    EXPECT_TRUE(Polygon(drawing.dc, points, 10));
    EXPECT_EQ(Show(drawing),
              "ooooooo.\n"
              "ooooooo.\n"
              "oo...oo.\n"
              "oo...oo.\n"
              "ooooooo.\n"
              "ooooooo.\n");
    EXPECT_FALSE(Polygon(drawing.dc, points, 1));
    EXPECT_FALSE(Polygon(drawing.dc, nullptr, 3));
}

TEST_F(Shapes, EllipsesAreSymmetricAndFillTheirBox) {
    for (const int width : {1, 2}) {
        UsePen(width);
        Drawing& d = drawing;
        d.Fill(0);
        Ellipse(d.dc, 0, 0, 8, 6);
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 8; ++x) {
                EXPECT_EQ(d.At(x, y), d.At(7 - x, y));
                EXPECT_EQ(d.At(x, y), d.At(x, 5 - y));
            }
        }
        EXPECT_EQ(d.At(0, 0), 0u);
        EXPECT_EQ(d.At(3, 0), 0xFF0000u);
        EXPECT_EQ(d.At(0, 2), 0xFF0000u);
        EXPECT_EQ(d.At(3, 2), 0xFFFFFFu);
    }
}

TEST_F(Shapes, FillAndFrameTakeBrushesAndSystemColours) {
    const RECT all{0, 0, 8, 6}, inner{2, 1, 6, 5};
    EXPECT_NE(FillRect(drawing.dc, &all,
                       reinterpret_cast<HBRUSH>(static_cast<std::uintptr_t>(COLOR_BTNFACE + 1))),
              0);
    EXPECT_EQ(GetPixel(drawing.dc, 7, 5), GetSysColor(COLOR_BTNFACE));
    drawing.Fill(0);
    EXPECT_NE(FrameRect(drawing.dc, &inner, Stock<HBRUSH>(WHITE_BRUSH)), 0);
    EXPECT_EQ(Show(drawing),
              "........\n"
              "..oooo..\n"
              "..o..o..\n"
              "..o..o..\n"
              "..oooo..\n"
              "........\n");
    const RECT huge{INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    EXPECT_NE(FrameRect(drawing.dc, &huge, Stock<HBRUSH>(WHITE_BRUSH)), 0);
    EXPECT_NE(FillRect(drawing.dc, &huge, Stock<HBRUSH>(WHITE_BRUSH)), 0);
    EXPECT_EQ(drawing.At(0, 0), 0xFFFFFFu);
}

TEST_F(Shapes, AFocusRectangleDrawnTwiceIsGone) {
    KV_RANDOM(random);
    drawing.Randomize(random);
    const auto before = drawing.Pixels();
    for (const RECT& rect : {RECT{1, 1, 7, 5}, RECT{2, 2, 3, 3}, RECT{2, 2, 3, 6},
                             RECT{-5, -5, 4, 4}, RECT{INT_MIN, 0, INT_MAX, 4}}) {
        EXPECT_TRUE(DrawFocusRect(drawing.dc, &rect));
        EXPECT_NE(drawing.Pixels(), before);
        EXPECT_TRUE(DrawFocusRect(drawing.dc, &rect));
        EXPECT_EQ(drawing.Pixels(), before);
    }
}

}  // namespace
}  // namespace kv::test
