// Subclassing of view frames and their double-buffered painting.
#include "preview/view_hook.h"

#include <cstring>

#include "preview/gdi_scope.h"
#include "resources/picture_ids.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

constexpr char kHookProperty[] = "KvuiView";

struct ViewHook {
    WNDPROC previous;
    SheetContext* context;
    View view;
};

ViewHook* HookOf(HWND frame) { return static_cast<ViewHook*>(GetPropA(frame, kHookProperty)); }

void FillBox(HDC dc, const RECT& box, HBRUSH brush) { FillRect(dc, &box, brush); }

// The view looks sunk into the panel: a line along its top and one along its left edge.
void PaintEdges(HDC dc, SIZE size) {
    const HBRUSH shadow = GetSysColorBrush(COLOR_3DDKSHADOW);
    FillBox(dc, {0, 0, size.cx, GetSystemMetrics(SM_CYEDGE)}, shadow);
    FillBox(dc, {0, 0, GetSystemMetrics(SM_CXEDGE), size.cy}, shadow);
}

// One copy to the screen, so that the view does not flicker. Without memory it stays unpainted.
void PaintBuffered(HWND frame, const ViewHook& hook, HDC screen, SIZE size) {
    const MemoryDc memory(screen);
    const OwnedObject<HBITMAP> bitmap(CreateCompatibleBitmap(screen, size.cx, size.cy));
    if (!memory || !bitmap) return;
    const Selection picture(memory.get(), bitmap.get());
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageA(frame, WM_GETFONT, 0, 0));
    const Selection dialogFont(memory.get(), font != nullptr ? font : GetStockObject(SYSTEM_FONT));
    FillBox(memory.get(), {0, 0, size.cx, size.cy},
            static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    hook.view.painter(*hook.context, memory.get(), size);
    if (hook.view.edge == ViewEdge::kSunken) PaintEdges(memory.get(), size);
    BitBlt(screen, 0, 0, size.cx, size.cy, memory.get(), 0, 0, SRCCOPY);
}

void OnPaint(HWND frame, const ViewHook& hook) {
    PAINTSTRUCT paint;
    const HDC screen = BeginPaint(frame, &paint);
    if (screen == nullptr) return;
    RECT client{};
    GetClientRect(frame, &client);
    if (client.right > 0 && client.bottom > 0) {
        PaintBuffered(frame, hook, screen, {client.right, client.bottom});
    }
    EndPaint(frame, &paint);
}

// The words are found when they are asked for, so that a change of a setting costs nothing.
struct Words {
    explicit Words(const ViewHook& hook) { hook.view.words(*hook.context, text, sizeof text); }
    char text[512] = "";
};

LRESULT CopyWords(const ViewHook& hook, WPARAM size, LPARAM target) {
    if (size == 0) return 0;
    const Words words(hook);
    auto* text = reinterpret_cast<char*>(target);
    CopyText(text, size, words.text);
    return static_cast<LRESULT>(std::strlen(text));
}

LRESULT CALLBACK ViewProc(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
    ViewHook* hook = HookOf(frame);
    if (hook == nullptr) return DefWindowProcA(frame, message, wParam, lParam);
    const WNDPROC previous = hook->previous;
    if (message == WM_PAINT) {
        OnPaint(frame, *hook);
        return 0;
    }
    const bool hasWords = hook->view.words != nullptr;
    if (message == WM_GETTEXT && hasWords) return CopyWords(*hook, wParam, lParam);
    if (message == WM_GETTEXTLENGTH && hasWords) {
        return static_cast<LRESULT>(std::strlen(Words(*hook).text));
    }
    if (message == WM_DESTROY) {
        SetWindowLongPtrA(frame, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
        RemovePropA(frame, kHookProperty);
        delete hook;
    }
    return CallWindowProcA(previous, frame, message, wParam, lParam);
}

}  // namespace

void HookView(HWND frame, SheetContext& context, const View& view) {
    if (frame == nullptr) return;
    if (ViewHook* hook = HookOf(frame)) {
        hook->context = &context;
        hook->view = view;
    } else {
        hook = new ViewHook{nullptr, &context, view};
        if (!SetPropA(frame, kHookProperty, hook)) {
            delete hook;
            return;
        }
        hook->previous = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(frame, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ViewProc)));
    }
    InvalidateRect(frame, nullptr, FALSE);
}

void ResizeView(HWND frame, int width, int height) {
    SetWindowPos(frame, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PaintGround(SheetContext& context, HDC dc, SIZE size) {
    const OwnedObject<HBITMAP> tile(
        LoadBitmapA(context.resources, MAKEINTRESOURCEA(IDB_VIEW_TILE)));
    if (!tile) return;
    const OwnedObject<HBRUSH> brush(CreatePatternBrush(tile.get()));
    if (brush) FillBox(dc, {0, 0, size.cx, size.cy}, brush.get());
}

void PaintLowerGround(SheetContext& context, HDC dc, SIZE size) {
    const OwnedObject<HBITMAP> tile(
        LoadBitmapA(context.resources, MAKEINTRESOURCEA(IDB_VIEW_TILE)));
    BITMAP description{};
    if (!tile || GetObjectA(tile.get(), sizeof description, &description) == 0) return;
    const MemoryDc source(dc);
    const Selection selection(source.get(), tile.get());
    BitBlt(dc, 0, 0, description.bmWidth, size.cy, source.get(), 0,
           description.bmHeight > size.cy ? description.bmHeight - size.cy : 0, SRCCOPY);
}

}  // namespace kvui
