// Device contexts of windows, and the pictures of windows that paint themselves.
#include <platform/display/display.h>
#include <platform/gdi/surface.h>
#include <platform/window/core.h>
#include <platform/window/paint.h>

namespace kv {
namespace {

constexpr LRESULT kStatePushed = 0x0004;  // of BM_GETSTATE
constexpr UINT kSolidBrush = 0;           // lbStyle

enum class Owner { kNobody, kButton, kStatic };

Owner OwnerDrawnAs(const Window& window) {
    const std::string_view kind = window.windowClass->kind;
    if (kind == "button" && (window.style & BS_TYPEMASK) == BS_OWNERDRAW) return Owner::kButton;
    if (kind == "static" && (window.style & SS_TYPEMASK) == SS_OWNERDRAW) return Owner::kStatic;
    return Owner::kNobody;
}

// Controls that draw nothing of their own leave it to the display unless somebody subclassed them.
bool MayPaintItself(const Window& window) {
    return window.windowClass->kind.empty() || window.procedure != window.windowClass->procedure;
}

// The surface of a window in its present size; null when there is no memory for it.
WindowSurface* SurfaceOf(Window& window) {
    const SIZE size{window.rect.right - window.rect.left, window.rect.bottom - window.rect.top};
    if (!window.surface) {
        auto surface = std::make_unique<WindowSurface>();
        surface->dc = CreateCompatibleDC(nullptr);
        if (!surface->dc) return nullptr;
        window.surface = std::move(surface);
    }
    WindowSurface& surface = *window.surface;
    if (surface.bitmap && surface.size.cx == size.cx && surface.size.cy == size.cy) return &surface;
    const HBITMAP bitmap =
        CreateBitmap(size.cx > 0 ? size.cx : 1, size.cy > 0 ? size.cy : 1, 1, 32, nullptr);
    if (!bitmap) return surface.bitmap ? &surface : nullptr;
    const HGDIOBJ previous = SelectObject(surface.dc, bitmap);
    if (surface.bitmap) {
        DeleteObject(surface.bitmap);
    } else {
        surface.previous = previous;
    }
    surface.bitmap = bitmap;
    surface.size = size;
    return &surface;
}

// Restores what a painter changed in a DC that goes on being used.
class DcScope {
 public:
    explicit DcScope(HDC dc) : dc_(dc), level_(SaveDC(dc)) {}
    // By level: a window destroyed between BeginPaint and EndPaint leaves a state of its own
    // behind.
    ~DcScope() { RestoreDC(dc_, level_); }
    DcScope(const DcScope&) = delete;
    DcScope& operator=(const DcScope&) = delete;

 private:
    HDC dc_;
    int level_;
};

bool SendPaint(HWND handle, HDC dc) {
    Window* window = FindWindowRecord(handle);
    const HDC outer = std::exchange(window->paintTarget, dc);
    window->painted = false;
    SendMessageA(handle, WM_PAINT, 0, 0);
    window = FindWindowRecord(handle);
    if (!window) return true;
    window->paintTarget = outer;
    return window->painted;
}

void SendDrawItem(Window& window, Owner owner, HDC dc) {
    const HWND handle = window.handle;
    const HWND parent = window.parent;
    if (owner == Owner::kButton) {
        SendMessageA(parent, WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc),
                     reinterpret_cast<LPARAM>(handle));
        if (!FindWindowRecord(handle)) return;
    }
    DRAWITEMSTRUCT item{};
    item.CtlType = owner == Owner::kButton ? ODT_BUTTON : ODT_STATIC;
    item.CtlID = window.id;
    item.itemAction = ODA_DRAWENTIRE;
    if (!IsWindowEnabled(handle)) item.itemState |= ODS_DISABLED;
    if (GetFocus() == handle) item.itemState |= ODS_FOCUS;
    if (owner == Owner::kButton && (SendMessageA(handle, BM_GETSTATE, 0, 0) & kStatePushed) != 0) {
        item.itemState |= ODS_SELECTED;
    }
    item.hwndItem = handle;
    item.hDC = dc;
    GetClientRect(handle, &item.rcItem);
    SendMessageA(window.parent, WM_DRAWITEM, window.id, reinterpret_cast<LPARAM>(&item));
}

// What a control asks its parent before it is drawn; 0 for one that does not ask. Push buttons are
// always drawn in the system's colours, and what cannot be typed into counts as a text.
UINT ColorMessage(const Window& window) {
    const std::string_view kind = window.windowClass->kind;
    if (kind == "list") return WM_CTLCOLORLISTBOX;
    if (kind == "static") return WM_CTLCOLORSTATIC;
    if (kind == "edit") {
        const bool typed = !window.IsDisabledStyle() && (window.style & ES_READONLY) == 0;
        return typed ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC;
    }
    if (kind == "combo") {
        return window.IsDisabledStyle() ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT;
    }
    if (kind != "button") return 0;
    switch (window.style & BS_TYPEMASK) {
        case BS_PUSHBUTTON:
        case BS_DEFPUSHBUTTON:
            return 0;
        case BS_OWNERDRAW:
            return WM_CTLCOLORBTN;
        default:
            return WM_CTLCOLORSTATIC;
    }
}

bool ParentPaints(const Window& window, HDC dc) {
    if (window.windowClass->kind != "static" || !window.parent) return false;
    const LRESULT brush =
        SendMessageA(window.parent, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                     reinterpret_cast<LPARAM>(window.handle));
    return reinterpret_cast<HGDIOBJ>(brush) == GetStockObject(NULL_BRUSH);
}

}  // namespace

Painting PaintWindow(HWND handle, HDC dc) {
    Window* window = WindowFromHandle(handle);
    if (!window || !dc) return Painting::kPlain;
    const CallScope scope;
    const DcScope dcScope(dc);
    if (window->font) SelectObject(dc, window->font);
    if (MayPaintItself(*window) && SendPaint(handle, dc)) return Painting::kSelf;
    window = FindWindowRecord(handle);
    if (!window) return Painting::kPlain;
    window->invalid = false;
    const Owner owner = OwnerDrawnAs(*window);
    if (owner != Owner::kNobody) {
        SendDrawItem(*window, owner, dc);
        return Painting::kOwnerDrawn;
    }
    return ParentPaints(*window, dc) ? Painting::kByParent : Painting::kPlain;
}

ControlColors ColorsOf(HWND control) {
    const Window* window = FindWindowRecord(control);
    const HWND parent = window ? window->parent : nullptr;
    const UINT message = window ? ColorMessage(*window) : 0;
    if (!parent || message == 0) return {};
    const CallScope scope;
    static const HDC dc = CreateCompatibleDC(nullptr);
    const DcScope dcScope(dc);
    const auto target = reinterpret_cast<LPARAM>(control);
    // What the parent would answer by default, to tell its own wishes from that.
    const auto usual = reinterpret_cast<HBRUSH>(
        DefWindowProcA(parent, message, reinterpret_cast<WPARAM>(dc), target));
    const COLORREF usualText = SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    const COLORREF usualBack = SetBkColor(dc, 0);
    SetBkColor(dc, usualBack);
    auto brush = reinterpret_cast<HBRUSH>(
        SendMessageA(parent, message, reinterpret_cast<WPARAM>(dc), target));
    ControlColors colors;
    const COLORREF text = SetTextColor(dc, usualText);
    const COLORREF back = SetBkColor(dc, usualBack);
    if (!brush) return colors;
    if (text != usualText) colors.text = text;
    LOGBRUSH description{};
    if (brush != usual && GetObjectA(brush, sizeof description, &description) != 0 &&
        description.lbStyle == kSolidBrush) {
        colors.face = description.lbColor;
    } else if (back != usualBack) {
        colors.face = back;
    }
    return colors;
}

bool PaintItem(HWND control, int item, HDC dc, const RECT& rect, UINT itemState) {
    const Window* window = WindowFromHandle(control);
    if (!window || !dc) return false;
    const bool combo = window->windowClass->kind == "combo";
    const DWORD ownerStyles =
        combo ? CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE : LBS_OWNERDRAWFIXED;
    if ((!combo && window->windowClass->kind != "list") || (window->style & ownerStyles) == 0) {
        return false;
    }
    const CallScope scope;
    const DcScope dcScope(dc);
    if (window->font) SelectObject(dc, window->font);
    if (item < 0 && combo) {
        item = static_cast<int>(SendMessageA(control, CB_GETCURSEL, 0, 0));
        itemState |= ODS_COMBOBOXEDIT;
    }
    DRAWITEMSTRUCT draw{};
    draw.CtlType = combo ? ODT_COMBOBOX : ODT_LISTBOX;
    draw.CtlID = window->id;
    draw.itemID = static_cast<UINT>(item);
    draw.itemAction = ODA_DRAWENTIRE;
    draw.itemState = itemState;
    draw.hwndItem = control;
    draw.hDC = dc;
    draw.rcItem = rect;
    if (item >= 0) {
        draw.itemData = static_cast<ULONG_PTR>(SendMessageA(
            control, combo ? CB_GETITEMDATA : LB_GETITEMDATA, static_cast<WPARAM>(item), 0));
    }
    if (!FindWindowRecord(control)) return false;
    SendMessageA(window->parent, WM_DRAWITEM, window->id, reinterpret_cast<LPARAM>(&draw));
    return true;
}

}  // namespace kv

using namespace kv;

BOOL WINAPI UpdateWindow(HWND handle) {
    Window* window = WindowFromHandle(handle);
    if (!window) return FALSE;
    if (!window->invalid || !IsWindowVisible(handle)) return TRUE;
    if (!MayPaintItself(*window) && OwnerDrawnAs(*window) == Owner::kNobody) return TRUE;
    return Guarded(FALSE, [&]() -> BOOL {
        const WindowSurface* surface = SurfaceOf(*window);
        if (surface) PaintWindow(handle, surface->dc);
        return surface != nullptr;
    });
}

BOOL WINAPI RedrawWindow(HWND handle, const RECT* rect, HRGN /*region*/, UINT flags) {
    if (!WindowFromHandle(handle)) return FALSE;
    if ((flags & RDW_INVALIDATE) != 0) InvalidateRect(handle, rect, (flags & RDW_ERASE) != 0);
    if ((flags & RDW_UPDATENOW) == 0) return TRUE;
    UpdateWindow(handle);
    if ((flags & RDW_ALLCHILDREN) != 0) {
        EnumChildWindows(
            handle, [](HWND child, LPARAM) -> BOOL { return UpdateWindow(child), TRUE; }, 0);
    }
    return TRUE;
}

HDC WINAPI BeginPaint(HWND handle, PAINTSTRUCT* paint) {
    Window* window = WindowFromHandle(handle);
    if (!window || !paint) return nullptr;
    *paint = {};
    HDC dc = window->paintTarget;
    if (dc) {
        SaveDC(dc);
    } else {
        dc = GetDC(handle);
    }
    if (!dc) return nullptr;
    window->painted = true;
    window->invalid = false;
    paint->hdc = dc;
    GetClientRect(handle, &paint->rcPaint);
    paint->fErase = !SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
    return dc;
}

BOOL WINAPI EndPaint(HWND handle, const PAINTSTRUCT* paint) {
    if (!WindowFromHandle(handle) || !paint || !paint->hdc) return FALSE;
    RestoreDC(paint->hdc, -1);
    return TRUE;
}

HDC WINAPI GetDC(HWND handle) {
    // The screen: nobody draws on it here, callers measure.
    if (!handle || IsDesktop(handle)) return ScreenDc();
    Window* window = WindowFromHandle(handle);
    if (!window) return nullptr;
    return Guarded(HDC{}, [&]() -> HDC {
        const WindowSurface* surface = SurfaceOf(*window);
        if (!surface) return nullptr;
        SaveDC(surface->dc);
        return surface->dc;
    });
}

int WINAPI ReleaseDC(HWND handle, HDC dc) {
    if (!handle || IsDesktop(handle)) return DeleteDC(dc);
    const Window* window = WindowFromHandle(handle);
    if (!window || !window->surface || window->surface->dc != dc) return 0;
    return RestoreDC(dc, -1);
}
