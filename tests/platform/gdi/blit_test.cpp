// BitBlt, StretchBlt and PatBlt: every clip against a pixel-by-pixel model, overlap, monochrome
// conversion, pattern origin.
#include <platform/gdi/raster.h>
#include <tests/platform/gdi/drawing.h>

#include <climits>

namespace kv::test {
namespace {

constexpr DWORD Rop(unsigned code) {
    return code << 16;
}

// What a blit must do, one pixel at a time; source pixels are read before any is written.
std::vector<std::uint32_t> Model(const Drawing& target, const Drawing& source, RECT clip,
                                 std::int64_t x, std::int64_t y, std::int64_t width,
                                 std::int64_t height, std::int64_t sourceX, std::int64_t sourceY,
                                 RopCode code) {
    std::vector<std::uint32_t> result = target.Pixels();
    const std::vector<std::uint32_t> from = source.Pixels();
    const SurfaceView tv = ViewOf(target.bitmap), sv = ViewOf(source.bitmap);
    for (int py = 0; py < tv.height; ++py) {
        for (int px = 0; px < tv.width; ++px) {
            const std::int64_t sx = px - x + sourceX, sy = py - y + sourceY;
            if (px < x || py < y || px >= x + width || py >= y + height || px < clip.left ||
                py < clip.top || px >= clip.right || py >= clip.bottom || sx < 0 || sy < 0 ||
                sx >= sv.width || sy >= sv.height) {
                continue;
            }
            std::uint32_t& pixel = result[static_cast<std::size_t>(py * tv.width + px)];
            pixel = EvaluateRop(code, 0, from[static_cast<std::size_t>(sy * sv.width + sx)], pixel);
        }
    }
    return result;
}

TEST(BitBlt, TouchesExactlyTheClippedPixels) {
    KV_RANDOM(random);
    const auto between = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 600; ++round) {
        Drawing target(between(1, 24), between(1, 24)), source(between(1, 24), between(1, 24));
        target.Randomize(random);
        source.Randomize(random);
        RECT clip{0, 0, 100, 100};
        if (round % 3 == 0) {
            clip = {between(-5, 20), between(-5, 20), between(-5, 30), between(-5, 30)};
            IntersectClipRect(target.dc, clip.left, clip.top, clip.right, clip.bottom);
        }
        const int x = between(-30, 30), y = between(-30, 30);
        const int width = between(0, 40), height = between(0, 40);
        const int sx = between(-30, 30), sy = between(-30, 30);
        // Codes that use no pattern repeat their lower half.
        const auto half = static_cast<unsigned>(between(0, 15));
        const unsigned code = half * 17;
        const auto expected =
            Model(target, source, clip, x, y, width, height, sx, sy, static_cast<RopCode>(code));
        if (!UsesSource(static_cast<RopCode>(code))) continue;
        EXPECT_TRUE(BitBlt(target.dc, x, y, width, height, source.dc, sx, sy, Rop(code)));
        ASSERT_EQ(target.Pixels(), expected) << "round " << round;
    }
}

TEST(BitBlt, CopiesWithinOneSurfaceAsIfThroughACopy) {
    KV_RANDOM(random);
    for (const auto& [dx, dy] :
         {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {3, 2}, {-3, 2}, {3, -2}, {-2, -3}, {0, 0}}) {
        for (const DWORD rop : {SRCCOPY, SRCINVERT, SRCPAINT}) {
            Drawing drawing(20, 20);
            drawing.Randomize(random);
            const auto expected =
                Model(drawing, drawing, {0, 0, 20, 20}, 4 + dx, 4 + dy, 12, 12, 4, 4, CodeOf(rop));
            BitBlt(drawing.dc, 4 + dx, 4 + dy, 12, 12, drawing.dc, 4, 4, rop);
            EXPECT_EQ(drawing.Pixels(), expected) << dx << "," << dy;
        }
    }
}

TEST(Blits, ExtremeCoordinatesAreClippedWithoutOverflow) {
    Drawing target(8, 8), source(8, 8);
    const int kExtremes[] = {INT_MIN, INT_MIN + 1, -8, 0, 3, INT_MAX - 1, INT_MAX};
    for (const int mode : {BLACKONWHITE, COLORONCOLOR, HALFTONE}) {
        SetStretchBltMode(target.dc, mode);
        for (const int a : kExtremes) {
            for (const int b : kExtremes) {
                for (const int c : kExtremes) {
                    EXPECT_TRUE(BitBlt(target.dc, a, b, c, a, source.dc, b, c, SRCINVERT));
                    EXPECT_TRUE(PatBlt(target.dc, a, b, c, a, PATINVERT));
                    EXPECT_TRUE(StretchBlt(target.dc, a, b, b, c, source.dc, c, a, c, b, SRCAND));
                }
            }
        }
    }
    // A huge picture of which a corner is seen.
    target.Fill(0);
    source.Fill(RGB(1, 2, 3));
    SetStretchBltMode(target.dc, COLORONCOLOR);
    StretchBlt(target.dc, INT_MIN, 0, INT_MAX, 8, source.dc, 0, 0, 8, 8, SRCCOPY);
    EXPECT_EQ(target.At(0, 0), 0u);  // ends one pixel before the surface
    StretchBlt(target.dc, -2000000000, 0, 2000000004, 8, source.dc, 0, 0, 8, 8, SRCCOPY);
    EXPECT_EQ(target.At(3, 7), 0x010203u);
    EXPECT_EQ(target.At(4, 7), 0u);
}

TEST(StretchBlt, EnlargesByWholePixelsAndMirrors) {
    Drawing source(2, 1), target(4, 2);
    SetPixel(source.dc, 0, 0, RGB(255, 0, 0));
    SetPixel(source.dc, 1, 0, RGB(0, 0, 255));
    for (const int mode : {BLACKONWHITE, COLORONCOLOR, HALFTONE}) {
        SetStretchBltMode(target.dc, mode);
        StretchBlt(target.dc, 0, 0, 4, 2, source.dc, 0, 0, 2, 1, SRCCOPY);
        const std::vector<std::uint32_t> row{0xFF0000, 0xFF0000, 0xFF, 0xFF};
        for (int x = 0; x < 4; ++x) EXPECT_EQ(target.At(x, 1), row[static_cast<std::size_t>(x)]);
        StretchBlt(target.dc, 3, 0, -4, 2, source.dc, 0, 0, 2, 1, SRCCOPY);
        EXPECT_EQ(target.At(0, 0), 0xFFu);  // covers -1..2
        EXPECT_EQ(target.At(2, 0), 0xFF0000u);
    }
}

TEST(StretchBlt, ReducingAveragesOrKeepsBlackByMode) {
    Drawing source(2, 2), target(1, 1);
    source.Fill(RGB(200, 100, 0));
    SetPixel(source.dc, 1, 1, RGB(0, 0, 0));
    SetStretchBltMode(target.dc, HALFTONE);
    StretchBlt(target.dc, 0, 0, 1, 1, source.dc, 0, 0, 2, 2, SRCCOPY);
    EXPECT_EQ(target.At(0, 0), Pixel(150, 75, 0));
    SetStretchBltMode(target.dc, BLACKONWHITE);
    StretchBlt(target.dc, 0, 0, 1, 1, source.dc, 0, 0, 2, 2, SRCCOPY);
    EXPECT_EQ(target.At(0, 0), 0u);
}

TEST(PatBlt, PatternsStartAtTheOriginOfTheDc) {
    Drawing tile(3, 2), target(10, 8);
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x) SetPixel(tile.dc, x, y, RGB(x, y, 7));
    }
    const HBRUSH brush = CreatePatternBrush(tile.bitmap);
    tile.Fill(0);  // the brush has its own copy
    const RECT area{1, 1, 9, 7};
    SetDcArea(target.dc, &area);
    const HGDIOBJ previous = SelectObject(target.dc, brush);
    PatBlt(target.dc, 2, 1, 100, 100, PATCOPY);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 10; ++x) {
            const bool inside = x >= 3 && x < 9 && y >= 2 && y < 7;
            EXPECT_EQ(target.At(x, y), inside ? Pixel((x - 1) % 3, (y - 1) % 2, 7) : 0u);
        }
    }
    SelectObject(target.dc, previous);
    EXPECT_TRUE(DeleteObject(brush));
}

TEST(Monochrome, TakesTextAndBackgroundColourOnColourSurfaces) {
    const BYTE bits[] = {0xA0, 0x00};  // white black white black
    const HBITMAP mask = CreateBitmap(4, 1, 1, 1, bits);
    const HDC maskDc = CreateCompatibleDC(nullptr);
    const HGDIOBJ initial = SelectObject(maskDc, mask);
    Drawing target(4, 1);
    SetTextColor(target.dc, RGB(10, 0, 0));
    SetBkColor(target.dc, RGB(0, 20, 0));
    BitBlt(target.dc, 0, 0, 4, 1, maskDc, 0, 0, SRCCOPY);
    EXPECT_EQ(target.At(0, 0), 0x001400u);
    EXPECT_EQ(target.At(1, 0), 0x0A0000u);

    // The way back: what has the source's background colour becomes white.
    SetBkColor(target.dc, RGB(10, 0, 0));
    BitBlt(maskDc, 0, 0, 4, 1, target.dc, 0, 0, SRCCOPY);
    EXPECT_EQ(GetPixel(maskDc, 0, 0), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(maskDc, 1, 0), RGB(255, 255, 255));
    SelectObject(maskDc, initial);
    DeleteDC(maskDc);
    DeleteObject(mask);
}

}  // namespace
}  // namespace kv::test
