// Filled and framed rectangles, single pixels and the focus rectangle.
#include <platform/gdi/blit.h>
#include <platform/gdi/canvas.h>

#include <algorithm>

namespace kv {
namespace {

// Callers may pass a system colour number plus one in place of a brush.
const Brush* BrushOrSystemColor(HBRUSH handle, Brush& systemBrush) {
    const auto value = reinterpret_cast<std::uintptr_t>(handle);
    if (value == 0 || value > 32) return ObjectOf<Brush>(handle);
    systemBrush.color = GetSysColor(static_cast<int>(value) - 1);
    return &systemBrush;
}

bool FillWith(HDC dc, std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom,
              const Brush& brush) {
    Canvas canvas(dc);
    if (!canvas) return false;
    if (brush.style == Brush::Style::kNull || right <= left || bottom <= top) return true;
    const POINT origin = canvas.origin();
    return FillArea(canvas, left + origin.x, top + origin.y, right - left, bottom - top,
                    CodeOf(PATCOPY), &brush);
}

void InvertDots(const Canvas& canvas, std::int64_t left, std::int64_t top, std::int64_t right,
                std::int64_t bottom) {
    const RECT& clip = canvas.clip();
    for (std::int64_t y = std::max<std::int64_t>(top, clip.top);
         y < std::min<std::int64_t>(bottom, clip.bottom); ++y) {
        std::uint32_t* row = canvas.Row(static_cast<int>(y));
        for (std::int64_t x = std::max<std::int64_t>(left, clip.left);
             x < std::min<std::int64_t>(right, clip.right); ++x) {
            if ((x + y) % 2 == 0) row[x] ^= kWhitePixel;
        }
    }
}

}  // namespace
}  // namespace kv

using namespace kv;

extern "C" {

int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH handle) {
    Brush systemBrush;
    const Brush* brush = BrushOrSystemColor(handle, systemBrush);
    if (brush == nullptr || rect == nullptr) return 0;
    return FillWith(dc, rect->left, rect->top, rect->right, rect->bottom, *brush) ? 1 : 0;
}

int WINAPI FrameRect(HDC dc, const RECT* rect, HBRUSH handle) {
    Brush systemBrush;
    const Brush* brush = BrushOrSystemColor(handle, systemBrush);
    if (brush == nullptr || rect == nullptr) return 0;
    const std::int64_t left = rect->left, top = rect->top, right = rect->right,
                       bottom = rect->bottom;
    if (right <= left || bottom <= top) return ObjectOf<Dc>(dc) != nullptr ? 1 : 0;
    return FillWith(dc, left, top, right, top + 1, *brush) &&
                   FillWith(dc, left, bottom - 1, right, bottom, *brush) &&
                   FillWith(dc, left, top, left + 1, bottom, *brush) &&
                   FillWith(dc, right - 1, top, right, bottom, *brush)
               ? 1
               : 0;
}

BOOL WINAPI DrawFocusRect(HDC dc, const RECT* rect) {
    Canvas canvas(dc);
    if (!canvas || rect == nullptr) return FALSE;
    const std::int64_t left = canvas.X(rect->left), top = canvas.Y(rect->top),
                       right = canvas.X(rect->right), bottom = canvas.Y(rect->bottom);
    if (right <= left || bottom <= top) return TRUE;
    // Exclusive-or, so that drawing it again takes it away: no pixel may be visited twice.
    InvertDots(canvas, left, top, right, top + 1);
    if (bottom - top > 1) InvertDots(canvas, left, bottom - 1, right, bottom);
    InvertDots(canvas, left, top + 1, left + 1, bottom - 1);
    if (right - left > 1) InvertDots(canvas, right - 1, top + 1, right, bottom - 1);
    return TRUE;
}

COLORREF WINAPI SetPixel(HDC dc, int x, int y, COLORREF color) {
    Canvas canvas(dc);
    if (!canvas) return CLR_INVALID;
    const std::int64_t px = canvas.X(x), py = canvas.Y(y);
    if (!canvas.Narrow(px, py, px + 1, py + 1)) return CLR_INVALID;
    canvas.FillSpan(py, px, px + 1, PixelOf(color & kColorBits));
    return color & kColorBits;
}

COLORREF WINAPI GetPixel(HDC handle, int x, int y) {
    const Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return CLR_INVALID;
    POINT origin{};
    const RECT clip = SurfaceClip(*dc, &origin);
    const std::int64_t px = std::int64_t{x} + origin.x, py = std::int64_t{y} + origin.y;
    if (px < clip.left || px >= clip.right || py < clip.top || py >= clip.bottom) {
        return CLR_INVALID;
    }
    return ColorOf(ViewOf(dc->state.bitmap).Row(static_cast<int>(py))[px] & kColorBits);
}
}
