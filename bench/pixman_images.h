// Pictures of the module as pixman has them, decoded beforehand, and a screen to paint on. Used by
// the benchmarks of the views.
#pragma once

#include <pixman.h>
#include <platform/gdi/surface.h>
#include <windows.h>

#include <memory>

#include "preview/paper_plan.h"
#include "preview/view_hook.h"

namespace kvbench {

constexpr SIZE kView{kvui::kGroundWidth, kvui::kGroundHeight};

// What a display paints on.
struct Screen {
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateBitmap(kView.cx, kView.cy, 1, 32, nullptr);
    HGDIOBJ before = SelectObject(dc, bitmap);
    ~Screen() {
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }
};

struct Deleter {
    void operator()(pixman_image_t* image) const { pixman_image_unref(image); }
};
using Image = std::unique_ptr<pixman_image_t, Deleter>;

inline Image NewImage(int width, int height) {
    return Image(pixman_image_create_bits(PIXMAN_a8r8g8b8, width, height, nullptr, 0));
}

// A picture with its mask, or with white, as transparency.
inline Image Decoded(HINSTANCE module, kvui::PictureId id) {
    const HBITMAP picture = LoadBitmapA(module, MAKEINTRESOURCEA(id.picture));
    const HBITMAP mask = id.mask != 0 ? LoadBitmapA(module, MAKEINTRESOURCEA(id.mask)) : nullptr;
    const kv::SurfaceView from = kv::ViewOf(picture);
    const kv::SurfaceView hole = mask != nullptr ? kv::ViewOf(mask) : from;
    Image image = NewImage(from.width, from.height);
    for (int y = 0; y < from.height; ++y) {
        auto* row = pixman_image_get_data(image.get()) + std::ptrdiff_t{y} * from.width;
        for (int x = 0; x < from.width; ++x) {
            const bool clear = (hole.Row(y)[x] & 0xFFFFFF) == 0xFFFFFF;
            row[x] = clear ? 0 : 0xFF000000 | from.Row(y)[x];
        }
    }
    DeleteObject(picture);
    if (mask != nullptr) DeleteObject(mask);
    return image;
}

}  // namespace kvbench
