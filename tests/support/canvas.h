// A picture in memory that is drawn on through a DC, and its pixels.
#pragma once

#include <windows.h>

#include <vector>

namespace kvtest {

struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<DWORD> values;  // 0x00RRGGBB from the top down

    DWORD At(int x, int y) const { return values[static_cast<size_t>(y) * width + x]; }
    bool operator==(const Pixels&) const = default;
};

class Canvas {
 public:
    Canvas(int width, int height) : width_(width), height_(height) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        before_ = SelectObject(dc, bitmap_);
        Fill(RGB(255, 255, 255));
    }
    ~Canvas() {
        SelectObject(dc, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    void Fill(COLORREF ground) {
        const HBRUSH brush = CreateSolidBrush(ground);
        const RECT all{0, 0, width_, height_};
        FillRect(dc, &all, brush);
        DeleteObject(brush);
    }
    Pixels Read() const {
        const auto* from = static_cast<const DWORD*>(bits_);
        Pixels pixels{width_, height_, {from, from + static_cast<size_t>(width_) * height_}};
        for (DWORD& pixel : pixels.values) pixel &= 0xFFFFFF;
        return pixels;
    }

    const HDC dc = CreateCompatibleDC(nullptr);

 private:
    int width_, height_;
    LPVOID bits_ = nullptr;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

}  // namespace kvtest
