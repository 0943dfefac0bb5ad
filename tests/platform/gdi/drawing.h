// A surface with a DC on it, and random numbers with a printed seed, for the graphics tests.
#pragma once

#include <platform/gdi/surface.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <vector>

namespace kv::test {

// The value of a pixel by its components.
constexpr std::uint32_t Pixel(int red, int green, int blue) {
    return static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
}

// A stock object as what it is.
template <class Handle>
Handle Stock(int index) {
    return static_cast<Handle>(GetStockObject(index));
}

class Drawing {
 public:
    Drawing(int width, int height) : dc(CreateCompatibleDC(nullptr)) {
        bitmap = CreateBitmap(width, height, 1, 32, nullptr);
        initial_ = SelectObject(dc, bitmap);
        SetStretchBltMode(dc, COLORONCOLOR);
    }
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;
    ~Drawing() {
        DeleteDC(dc);
        DeleteObject(bitmap);
    }

    std::uint32_t At(int x, int y) const { return ViewOf(bitmap).Row(y)[x] & 0xFFFFFF; }
    void Fill(COLORREF color) {
        const RECT all{0, 0, ViewOf(bitmap).width, ViewOf(bitmap).height};
        const HBRUSH brush = CreateSolidBrush(color);
        FillRect(dc, &all, brush);
        DeleteObject(brush);
    }
    void Randomize(std::mt19937& random) {
        const SurfaceView view = ViewOf(bitmap);
        for (int y = 0; y < view.height; ++y) {
            for (int x = 0; x < view.width; ++x) {
                view.Row(y)[x] = static_cast<std::uint32_t>(random());
            }
        }
    }
    std::vector<std::uint32_t> Pixels() const {
        std::vector<std::uint32_t> pixels;
        const SurfaceView view = ViewOf(bitmap);
        for (int y = 0; y < view.height; ++y) {
            pixels.insert(pixels.end(), view.Row(y), view.Row(y) + view.width);
        }
        return pixels;
    }
    // The smallest box around every pixel that differs from `background`; all zero when none does.
    RECT Ink(std::uint32_t background) const {
        RECT box{};
        const SurfaceView view = ViewOf(bitmap);
        for (int y = 0; y < view.height; ++y) {
            for (int x = 0; x < view.width; ++x) {
                if (At(x, y) == background) continue;
                if (box.right == 0) box = {x, y, x + 1, y + 1};
                box = {std::min(box.left, x), box.top, std::max(box.right, x + 1), y + 1};
            }
        }
        return box;
    }

    HDC dc;
    HBITMAP bitmap;

 private:
    HGDIOBJ initial_;
};

// Seeded from KV_TEST_SEED when it is set; a failing test prints the seed.
inline unsigned TestSeed() {
    const char* text = std::getenv("KV_TEST_SEED");
    return text != nullptr ? static_cast<unsigned>(std::strtoul(text, nullptr, 0)) : 20011u;
}

#define KV_RANDOM(name)                                                              \
    SCOPED_TRACE(::testing::Message() << "KV_TEST_SEED=" << ::kv::test::TestSeed()); \
    std::mt19937 name(::kv::test::TestSeed())

}  // namespace kv::test
