// Drawing and destroying icons.
#include <platform/gdi/canvas.h>
#include <platform/gdi/dib.h>
#include <platform/gdi/raster.h>

namespace kv {
namespace {

// Flags of DrawIconEx: which of an icon's two parts are used.
constexpr UINT kDrawMask = 0x0001;
constexpr UINT kDrawImage = 0x0002;

void LayOver(HDC dc, int x, int y, const SurfaceView& icon, UINT parts) {
    Canvas canvas(dc);
    const std::int64_t left = std::int64_t{x} + canvas.origin().x;
    const std::int64_t top = std::int64_t{y} + canvas.origin().y;
    if (!canvas || !canvas.Narrow(left, top, left + icon.width, top + icon.height)) return;
    const RECT& area = canvas.clip();
    const int count = area.right - area.left;
    for (int row = area.top; row < area.bottom; ++row) {
        const std::uint32_t* from = icon.Row(static_cast<int>(row - top)) + (area.left - left);
        std::uint32_t* target = canvas.Row(row) + area.left;
        if (parts == DI_NORMAL) {
            BlendAlphaRow(target, from, static_cast<std::size_t>(count));
            continue;
        }
        for (int i = 0; i < count; ++i) {
            const std::uint32_t mask = from[i] >> 24 >= 0x80 ? 0 : kWhitePixel;
            target[i] = parts == kDrawMask ? mask : from[i] & kColorBits;
        }
    }
}

}  // namespace
}  // namespace kv

using namespace kv;

extern "C" {

BOOL WINAPI DestroyIcon(HICON handle) {
    const Icon* icon = ObjectOf<Icon>(handle);
    if (icon == nullptr) return FALSE;
    if (icon->permanent) return TRUE;
    return RemoveFromTable(reinterpret_cast<std::uintptr_t>(handle));
}

BOOL WINAPI DrawIcon(HDC dc, int x, int y, HICON icon) {
    return DrawIconEx(dc, x, y, icon, 0, 0, 0, nullptr, DI_NORMAL);
}

BOOL WINAPI DrawIconEx(HDC dc, int x, int y, HICON handle, int width, int height, UINT,
                       HBRUSH flickerFree, UINT flags) {
    const Icon* icon = ObjectOf<Icon>(handle);
    if (icon == nullptr || ObjectOf<Dc>(dc) == nullptr) return FALSE;
    const UINT parts = flags & (kDrawMask | kDrawImage);
    if (width < 0 || height < 0 || width > kMaxSide || height > kMaxSide || parts == 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    SurfaceView view = icon->view;
    if (width == 0) width = view.width;
    if (height == 0) height = view.height;
    std::unique_ptr<Icon> scaled;
    if (width != view.width || height != view.height) {
        scaled = ScaleIcon(view, width, height);
        if (!scaled) return FALSE;
        view = scaled->view;
    }
    if (flickerFree != nullptr) {
        const HGDIOBJ previous = SelectObject(dc, flickerFree);
        if (previous == nullptr) return FALSE;
        PatBlt(dc, x, y, width, height, PATCOPY);
        SelectObject(dc, previous);
    }
    LayOver(dc, x, y, view, parts);
    return TRUE;
}
}
