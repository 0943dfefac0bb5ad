// DefWindowProcA: what every window does with a message that its own procedure leaves alone.
#include <platform/display/tell.h>
#include <platform/window/core.h>

#include <algorithm>
#include <cstring>

namespace kv {
namespace {

constexpr WPARAM kCloseCommand = 0xF060;  // SC_CLOSE of WM_SYSCOMMAND

LRESULT SetText(Window& window, LPCSTR text) {
    if (!text) text = "";
    if (window.text == text) return TRUE;
    return Guarded(LRESULT{FALSE}, [&]() -> LRESULT {
        window.text = text;
        TellChanged(window.handle, kChangedText);
        return TRUE;
    });
}

LRESULT CopyText(const Window& window, WPARAM size, char* buffer) {
    if (size == 0 || !buffer) return 0;
    const size_t length = std::min(window.text.size(), static_cast<size_t>(size) - 1);
    std::memcpy(buffer, window.text.data(), length);
    buffer[length] = '\0';
    return static_cast<LRESULT>(length);
}

LRESULT SetRedraw(Window& window, bool on) {
    if (window.redraw == on) return 0;
    window.redraw = on;
    if (!on) return 0;
    const HWND handle = window.handle;
    if (const unsigned changes = std::exchange(window.deferredChanges, 0u)) {
        TellChanged(handle, changes);
    }
    return 0;
}

LRESULT SetFont(Window& window, HFONT font) {
    if (window.font == font) return 0;
    window.font = font;
    TellChanged(window.handle, kChangedFont);
    return 0;
}

LRESULT PassToParent(const Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND above = window.parent ? window.parent : window.owner;
    return above ? SendMessageA(above, message, wParam, lParam) : 0;
}

// Controls on the dialog's own colour or on that of entry fields.
LRESULT ColorControl(UINT message, HDC dc) {
    const bool field = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
    const int background = field ? COLOR_WINDOW : COLOR_BTNFACE;
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(background));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(background));
}

LRESULT EraseBackground(const Window& window, HDC dc) {
    HBRUSH brush = window.windowClass->background;
    if (!brush) return FALSE;
    // A class may name a system colour plus one instead of a brush.
    const auto number = reinterpret_cast<std::uintptr_t>(brush);
    if (number <= 32) brush = GetSysColorBrush(static_cast<int>(number) - 1);
    RECT area{};
    GetClientRect(window.handle, &area);
    FillRect(dc, &area, brush);
    return TRUE;
}

// The parents decide first, then the class.
LRESULT ChooseCursor(const Window& window, WPARAM wParam, LPARAM lParam) {
    const HWND handle = window.handle;
    if (window.parent && SendMessageA(window.parent, WM_SETCURSOR, wParam, lParam)) return TRUE;
    const Window* after = FindWindowRecord(handle);
    // Only the window under the pointer falls back to a cursor of its class.
    if (!after || reinterpret_cast<HWND>(wParam) != handle) return FALSE;
    const HCURSOR cursor = after->windowClass->cursor;
    SetCursor(cursor ? cursor : LoadCursorA(nullptr, IDC_ARROW));
    return FALSE;
}

LRESULT AskForContextMenu(HWND handle, LPARAM lParam) {
    POINT point{static_cast<SHORT>(LOWORD(static_cast<std::uintptr_t>(lParam))),
                static_cast<SHORT>(HIWORD(static_cast<std::uintptr_t>(lParam)))};
    ClientToScreen(handle, &point);
    return SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle),
                        MAKELPARAM(static_cast<unsigned>(point.x), static_cast<unsigned>(point.y)));
}

LRESULT DefaultKey(HWND handle, UINT message, WPARAM wParam) {
    if (message == WM_KEYDOWN && wParam == VK_F1) SendHelpFor(handle);
    if (message == WM_SYSKEYDOWN && wParam == VK_F4) {
        SendMessageA(RootOf(handle), WM_SYSCOMMAND, kCloseCommand, 0);
    }
    return 0;
}

}  // namespace
}  // namespace kv

using namespace kv;

LRESULT WINAPI DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    switch (message) {
        case WM_NCCREATE:
            return TRUE;
        case WM_SETTEXT:
            return SetText(*window, reinterpret_cast<LPCSTR>(lParam));
        case WM_GETTEXT:
            return CopyText(*window, wParam, reinterpret_cast<char*>(lParam));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(window->text.size());
        case WM_SETREDRAW:
            return SetRedraw(*window, wParam != 0);
        case WM_SETFONT:
            return SetFont(*window, reinterpret_cast<HFONT>(wParam));
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(window->font);
        case WM_CLOSE:
            return DestroyWindow(handle), 0;
        case WM_SYSCOMMAND:
            // The low four bits belong to the system.
            if ((wParam & 0xFFF0) == kCloseCommand) SendMessageA(handle, WM_CLOSE, 0, 0);
            return 0;
        case WM_HELP:
        case WM_CONTEXTMENU:
            return PassToParent(*window, message, wParam, lParam);
        case WM_RBUTTONUP:
            return AskForContextMenu(handle, lParam);
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            return DefaultKey(handle, message, wParam);
        case WM_SETCURSOR:
            return ChooseCursor(*window, wParam, lParam);
        case WM_ERASEBKGND:
            return EraseBackground(*window, reinterpret_cast<HDC>(wParam));
        case WM_PAINT:
            return window->invalid = false, 0;
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSTATIC:
            return ColorControl(message, reinterpret_cast<HDC>(wParam));
        default:
            return 0;
    }
}
