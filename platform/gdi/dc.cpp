// Device contexts: creation, selected objects, saved states, clip rectangle and text attributes.
#include <platform/gdi/canvas.h>
#include <platform/gdi/objects.h>

#include <algorithm>
#include <utility>

namespace kv {
namespace {

// The picture a memory DC has before anything is selected into it; shared by all of them.
HBITMAP DefaultBitmap() {
    static const HBITMAP bitmap = [] {
        const HBITMAP made = CreateBitmap(1, 1, 1, 1, nullptr);
        MakePermanent(made);
        return made;
    }();
    return bitmap;
}

void Count(HGDIOBJ handle, int change) {
    if (GdiObject* object = FindInTable(reinterpret_cast<std::uintptr_t>(handle))) {
        object->selections += change;
    }
}

void CountSelected(const DcState& state, int change) {
    for (HGDIOBJ object : std::initializer_list<HGDIOBJ>{state.bitmap, state.brush, state.pen,
                                                         state.font}) {
        Count(object, change);
    }
}

template <class Handle>
HGDIOBJ Replace(Handle& selected, HGDIOBJ object) {
    const Handle previous = selected;
    Count(previous, -1);
    Count(object, +1);
    selected = static_cast<Handle>(object);
    return previous;
}

template <class Handle>
Handle Stock(int index) {
    return static_cast<Handle>(GetStockObject(index));
}

bool IsAlive(HGDIOBJ handle) {
    return FindInTable(reinterpret_cast<std::uintptr_t>(handle)) != nullptr;
}

// A saved state may name objects that were deleted since, or a bitmap that another DC took.
void MendState(DcState& state) {
    if (!IsAlive(state.brush)) state.brush = Stock<HBRUSH>(WHITE_BRUSH);
    if (!IsAlive(state.pen)) state.pen = Stock<HPEN>(BLACK_PEN);
    if (!IsAlive(state.font)) state.font = Stock<HFONT>(SYSTEM_FONT);
    const Bitmap* bitmap = ObjectOf<Bitmap>(state.bitmap);
    if (bitmap == nullptr || (!bitmap->permanent && bitmap->selections > 0)) {
        state.bitmap = DefaultBitmap();
    }
}

RECT Intersect(const RECT& a, const RECT& b) {
    RECT both{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
              std::min(a.bottom, b.bottom)};
    if (both.right <= both.left || both.bottom <= both.top) both = {};
    return both;
}

int KindOfRegion(const Dc& dc) {
    const RECT clip = SurfaceClip(dc, nullptr);
    return clip.right > clip.left ? SIMPLEREGION : NULLREGION;
}

template <typename Value>
Value Exchange(HDC handle, Value DcState::*member, Value value, Value failure) {
    Dc* dc = ObjectOf<Dc>(handle);
    return dc != nullptr ? std::exchange(dc->state.*member, value) : failure;
}

}  // namespace

HDC ScreenDc() {
    const HDC handle = CreateCompatibleDC(nullptr);
    if (Dc* dc = ObjectOf<Dc>(handle)) dc->isScreen = true;
    return handle;
}

bool SetDcArea(HDC handle, const RECT* area) {
    Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return false;
    if (area != nullptr) {
        const auto near = [](LONG value) {
            return static_cast<LONG>(std::clamp<std::int64_t>(value, -kFar, kFar));
        };
        dc->area = RECT{near(area->left), near(area->top), near(area->right), near(area->bottom)};
    } else {
        dc->area.reset();
    }
    return true;
}

}  // namespace kv

using namespace kv;

extern "C" {

HDC WINAPI CreateCompatibleDC(HDC like) {
    if (like != nullptr && ObjectOf<Dc>(like) == nullptr) return nullptr;
    auto dc = std::make_unique<Dc>();
    dc->state.bitmap = DefaultBitmap();
    dc->state.brush = Stock<HBRUSH>(WHITE_BRUSH);
    dc->state.pen = Stock<HPEN>(BLACK_PEN);
    dc->state.font = Stock<HFONT>(SYSTEM_FONT);
    CountSelected(dc->state, +1);
    return NewHandle<HDC>(std::move(dc));
}

BOOL WINAPI DeleteDC(HDC handle) {
    const Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return FALSE;
    CountSelected(dc->state, -1);
    return RemoveFromTable(reinterpret_cast<std::uintptr_t>(handle));
}

int WINAPI SaveDC(HDC handle) {
    Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return 0;
    dc->saved.push_back(dc->state);
    return static_cast<int>(dc->saved.size());
}

BOOL WINAPI RestoreDC(HDC handle, int level) {
    Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return FALSE;
    const int count = static_cast<int>(dc->saved.size());
    const int index = level < 0 ? count + level : level - 1;  // -1 is the last one saved
    if (level == 0 || index < 0 || index >= count) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    DcState state = dc->saved[static_cast<std::size_t>(index)];
    dc->saved.resize(static_cast<std::size_t>(index));
    CountSelected(dc->state, -1);
    MendState(state);
    dc->state = state;
    CountSelected(dc->state, +1);
    return TRUE;
}

int WINAPI GetDeviceCaps(HDC handle, int index) {
    if (ObjectOf<Dc>(handle) == nullptr) return 0;
    switch (index) {
        case HORZRES:
            return 1280;
        case VERTRES:
            return 1024;
        case BITSPIXEL:
            return 32;
        case LOGPIXELSX:
        case LOGPIXELSY:
            return 96;
        default:
            return 0;
    }
}

HGDIOBJ WINAPI SelectObject(HDC handle, HGDIOBJ object) {
    Dc* dc = ObjectOf<Dc>(handle);
    GdiObject* found = FindInTable(reinterpret_cast<std::uintptr_t>(object));
    if (dc == nullptr || found == nullptr) return nullptr;
    switch (found->kind) {
        case ObjectKind::kBitmap:
            // A bitmap can be selected into one DC at a time.
            if (!found->permanent && found->selections > 0 && dc->state.bitmap != object) {
                return nullptr;
            }
            return Replace(dc->state.bitmap, object);
        case ObjectKind::kBrush:
            return Replace(dc->state.brush, object);
        case ObjectKind::kPen:
            return Replace(dc->state.pen, object);
        case ObjectKind::kFont:
            return Replace(dc->state.font, object);
        case ObjectKind::kRegion:  // answers the kind of region, like SelectClipRgn
            return reinterpret_cast<HGDIOBJ>(static_cast<INT_PTR>(SelectClipRgn(handle, static_cast<HRGN>(object))));
        default:
            SetLastError(ERROR_INVALID_HANDLE);
            return nullptr;
    }
}

int WINAPI SelectClipRgn(HDC handle, HRGN region) {
    Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return RGN_ERROR;
    if (region == nullptr) {
        dc->state.clip.reset();
        return KindOfRegion(*dc);
    }
    const Region* found = ObjectOf<Region>(region);
    if (found == nullptr) return RGN_ERROR;
    dc->state.clip = found->rect;
    return KindOfRegion(*dc);
}

int WINAPI IntersectClipRect(HDC handle, int left, int top, int right, int bottom) {
    Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return RGN_ERROR;
    const RECT rect{left, top, right, bottom};
    dc->state.clip = Intersect(dc->state.clip.value_or(rect), rect);
    return KindOfRegion(*dc);
}

int WINAPI GetClipBox(HDC handle, RECT* rect) {
    Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr || rect == nullptr) return RGN_ERROR;
    POINT origin{};
    *rect = SurfaceClip(*dc, &origin);
    if (rect->right <= rect->left) {
        *rect = {};
        return NULLREGION;
    }
    *rect = {rect->left - origin.x, rect->top - origin.y, rect->right - origin.x,
             rect->bottom - origin.y};
    return SIMPLEREGION;
}

COLORREF WINAPI SetTextColor(HDC dc, COLORREF color) {
    return Exchange(dc, &DcState::textColor, color & kColorBits, CLR_INVALID);
}

COLORREF WINAPI SetBkColor(HDC dc, COLORREF color) {
    return Exchange(dc, &DcState::backColor, color & kColorBits, CLR_INVALID);
}

int WINAPI SetBkMode(HDC dc, int mode) {
    if (mode != TRANSPARENT && mode != OPAQUE) return 0;
    return Exchange(dc, &DcState::backMode, mode, 0);
}

UINT WINAPI SetTextAlign(HDC dc, UINT align) {
    return Exchange(dc, &DcState::textAlign, align, static_cast<UINT>(GDI_ERROR));
}

UINT WINAPI GetTextAlign(HDC handle) {
    const Dc* dc = ObjectOf<Dc>(handle);
    return dc != nullptr ? dc->state.textAlign : static_cast<UINT>(GDI_ERROR);
}

int WINAPI SetStretchBltMode(HDC dc, int mode) {
    if (mode < BLACKONWHITE || mode > HALFTONE) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    return Exchange(dc, &DcState::stretchMode, mode, 0);
}
}
