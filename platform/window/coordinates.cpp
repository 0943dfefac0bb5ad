// Positions of windows and conversions between them. A window's client area is all of it: frames
// are the display's affair and lie outside.
#include <platform/window/core.h>

namespace kv {

POINT ClientOrigin(HWND handle) {
    POINT origin{};
    for (const Window* window = FindWindowRecord(handle); window;
         window = FindWindowRecord(window->parent)) {
        origin.x += window->rect.left;
        origin.y += window->rect.top;
    }
    return origin;
}

namespace {

BOOL Shift(HWND handle, POINT* point, int sign) {
    if (!point || !WindowFromHandle(handle)) return FALSE;
    const POINT origin = ClientOrigin(handle);
    point->x += sign * origin.x;
    point->y += sign * origin.y;
    return TRUE;
}

}  // namespace
}  // namespace kv

using namespace kv;

BOOL WINAPI GetWindowRect(HWND handle, RECT* rect) {
    const Window* window = WindowFromHandle(handle);
    if (!window || !rect) return FALSE;
    const POINT origin = ClientOrigin(handle);
    const RECT& own = window->rect;
    *rect = {origin.x, origin.y, origin.x + own.right - own.left, origin.y + own.bottom - own.top};
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, RECT* rect) {
    const Window* window = WindowFromHandle(handle);
    if (!window || !rect) return FALSE;
    const RECT& own = window->rect;
    *rect = {0, 0, own.right - own.left, own.bottom - own.top};
    return TRUE;
}

BOOL WINAPI ScreenToClient(HWND handle, POINT* point) {
    return Shift(handle, point, -1);
}

BOOL WINAPI ClientToScreen(HWND handle, POINT* point) {
    return Shift(handle, point, +1);
}

int WINAPI MapWindowPoints(HWND from, HWND to, POINT* points, UINT count) {
    if ((from && !WindowFromHandle(from)) || (to && !WindowFromHandle(to)) || !points) return 0;
    const POINT source = ClientOrigin(from);
    const POINT target = ClientOrigin(to);
    const LONG dx = source.x - target.x;
    const LONG dy = source.y - target.y;
    for (UINT i = 0; i < count; ++i) {
        points[i].x += dx;
        points[i].y += dy;
    }
    return static_cast<int>(MAKELONG(static_cast<unsigned>(dx), static_cast<unsigned>(dy)));
}
