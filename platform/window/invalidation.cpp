// Invalid windows: those whose picture the display has to fetch anew.
#include <platform/display/display.h>
#include <platform/window/core.h>

namespace kv {
namespace {

void MarkInvalid(Window& window) {
    if (window.invalid) return;
    window.invalid = true;
    if (window.announced) CurrentDisplay().Invalidated(window.handle);
}

bool Overlaps(const RECT& area, const RECT& child) {
    return area.left < child.right && child.left < area.right && area.top < child.bottom &&
           child.top < area.bottom;
}

// A child stands in its parent's picture, so what covers it is drawn again together with it.
void InvalidateTree(HWND handle, const RECT* area) {
    Window* window = FindWindowRecord(handle);
    if (!window || !window->redraw) return;
    MarkInvalid(*window);
    window = FindWindowRecord(handle);
    if (!window || (window->style & WS_CLIPCHILDREN) != 0) return;
    for (size_t i = 0; window && i < window->children.size(); ++i) {
        const Window* child = FindWindowRecord(window->children[i]);
        if (!child || !child->IsVisibleStyle()) continue;
        if (!area) {
            InvalidateTree(child->handle, nullptr);
        } else if (Overlaps(*area, child->rect)) {
            RECT inside = *area;
            OffsetRect(&inside, -child->rect.left, -child->rect.top);
            InvalidateTree(child->handle, &inside);
        }
        window = FindWindowRecord(handle);
    }
}

}  // namespace
}  // namespace kv

using namespace kv;

BOOL WINAPI InvalidateRect(HWND handle, const RECT* rect, BOOL /*erase*/) {
    if (!WindowFromHandle(handle)) return FALSE;
    InvalidateTree(handle, rect);
    return TRUE;
}
