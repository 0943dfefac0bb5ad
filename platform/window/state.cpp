// Visibility, enabling, position and size of windows.
#include <platform/display/tell.h>
#include <platform/window/core.h>

#include <algorithm>

namespace kv {
namespace {

void SetStyleBit(Window& window, DWORD bit, bool on) {
    const DWORD before = window.style;
    window.style = on ? before | bit : before & ~bit;
    TellStyleChange(window, before);
}

unsigned Word(LONG value) {
    return static_cast<unsigned>(value) & 0xFFFFu;
}

// Both messages follow the change, and only what changed is sent.
void MoveRecord(Window& window, const RECT& to) {
    const RECT from = window.rect;
    const bool moved = from.left != to.left || from.top != to.top;
    const LONG width = to.right - to.left;
    const LONG height = to.bottom - to.top;
    const bool sized = from.right - from.left != width || from.bottom - from.top != height;
    if (!moved && !sized) return;
    const HWND handle = window.handle;
    window.rect = to;
    TellChanged(handle, kChangedGeometry);
    if (sized) InvalidateRect(handle, nullptr, TRUE);
    if (moved) SendMessageA(handle, WM_MOVE, 0, MAKELPARAM(Word(to.left), Word(to.top)));
    if (sized && FindWindowRecord(handle)) {
        SendMessageA(handle, WM_SIZE, 0, MAKELPARAM(Word(width), Word(height)));
    }
}

// Sibling order is tab order. Null puts the window first; the platform's other special values
// (bottom is 1, the topmost ones are negative) put it last or first.
void Reorder(Window& window, HWND after) {
    Window* parent = FindWindowRecord(window.parent);
    if (!parent || after == window.handle) return;
    const std::vector<HWND> before = parent->children;
    const auto special = reinterpret_cast<INT_PTR>(after);
    Unlink(window);
    size_t position = special == 1 ? parent->children.size() : 0;
    const auto found = std::find(parent->children.begin(), parent->children.end(), after);
    if (found != parent->children.end()) {
        position = static_cast<size_t>(found - parent->children.begin()) + 1;
    }
    const auto offset = static_cast<std::ptrdiff_t>(position);
    parent->children.insert(parent->children.begin() + offset, window.handle);
    parent->childIds.insert(parent->childIds.begin() + offset, window.id);
    if (parent->children != before) TellChanged(window.handle, kChangedOrder);
}

}  // namespace

void TellStyleChange(Window& window, DWORD before) {
    const DWORD changed = window.style ^ before;
    unsigned changes = 0;
    if ((changed & WS_VISIBLE) != 0) changes |= kChangedVisible;
    if ((changed & WS_DISABLED) != 0) changes |= kChangedEnabled;
    if ((changed & ~DWORD{WS_VISIBLE | WS_DISABLED | WS_TABSTOP | WS_GROUP}) != 0) {
        changes |= kChangedStyle;
    }
    if (changes) TellChanged(window.handle, changes);
}

}  // namespace kv

using namespace kv;

BOOL WINAPI ShowWindow(HWND handle, int command) {
    Window* window = WindowFromHandle(handle);
    if (!window) return FALSE;
    const bool show = command != SW_HIDE;
    const bool wasVisible = window->IsVisibleStyle();
    if (show != wasVisible) {
        const CallScope scope;
        SendMessageA(handle, WM_SHOWWINDOW, show ? TRUE : FALSE, 0);
        window = FindWindowRecord(handle);
        if (!window) return wasVisible;
        SetStyleBit(*window, WS_VISIBLE, show);
        if (show) InvalidateRect(handle, nullptr, TRUE);
        if (!show) LeaveHiddenWindow(handle);
    }
    window = FindWindowRecord(handle);
    if (show && window && !window->parent && !window->IsDisabledStyle()) SetActiveWindow(handle);
    return wasVisible;
}

BOOL WINAPI EnableWindow(HWND handle, BOOL enable) {
    Window* window = WindowFromHandle(handle);
    if (!window) return FALSE;
    const bool wasDisabled = window->IsDisabledStyle();
    if (wasDisabled != (enable != FALSE)) return wasDisabled;
    const CallScope scope;
    // A disabled window cannot have the focus, and nobody else inherits it.
    if (!enable && GetFocus() == handle) SetFocus(nullptr);
    window = FindWindowRecord(handle);
    if (!window) return wasDisabled;
    SetStyleBit(*window, WS_DISABLED, !enable);
    SendMessageA(handle, WM_ENABLE, enable ? TRUE : FALSE, 0);
    return wasDisabled;
}

BOOL WINAPI MoveWindow(HWND handle, int x, int y, int width, int height, BOOL /*repaint*/) {
    return SetWindowPos(handle, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL WINAPI SetWindowPos(HWND handle, HWND insertAfter, int x, int y, int width, int height,
                         UINT flags) {
    Window* window = WindowFromHandle(handle);
    if (!window) return FALSE;
    const CallScope scope;
    if ((flags & SWP_NOZORDER) == 0) {
        if (!Guarded(false, [&] { return Reorder(*window, insertAfter), true; })) return FALSE;
    }
    RECT to = window->rect;
    if ((flags & SWP_NOMOVE) == 0) {
        to = {x, y, x + to.right - to.left, y + to.bottom - to.top};
    }
    if ((flags & SWP_NOSIZE) == 0) {
        to.right = to.left + std::max(width, 0);
        to.bottom = to.top + std::max(height, 0);
    }
    MoveRecord(*window, to);
    if ((flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) != 0 && FindWindowRecord(handle)) {
        ShowWindow(handle, (flags & SWP_SHOWWINDOW) != 0 ? SW_SHOW : SW_HIDE);
    }
    return TRUE;
}
