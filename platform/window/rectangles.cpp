// Arithmetic on rectangles. Used by everybody.
#include <windows.h>

#include <algorithm>

BOOL WINAPI SetRect(RECT* rect, int left, int top, int right, int bottom) {
    if (!rect) return FALSE;
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL WINAPI InflateRect(RECT* rect, int dx, int dy) {
    if (!rect) return FALSE;
    *rect = {rect->left - dx, rect->top - dy, rect->right + dx, rect->bottom + dy};
    return TRUE;
}

BOOL WINAPI OffsetRect(RECT* rect, int dx, int dy) {
    if (!rect) return FALSE;
    *rect = {rect->left + dx, rect->top + dy, rect->right + dx, rect->bottom + dy};
    return TRUE;
}

// The right and the bottom edge lie outside.
BOOL WINAPI PtInRect(const RECT* rect, POINT point) {
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}

BOOL WINAPI IsRectEmpty(const RECT* rect) {
    return !rect || rect->right <= rect->left || rect->bottom <= rect->top;
}

BOOL WINAPI IntersectRect(RECT* result, const RECT* left, const RECT* right) {
    if (!result || !left || !right) return FALSE;
    const RECT both{std::max(left->left, right->left), std::max(left->top, right->top),
                    std::min(left->right, right->right), std::min(left->bottom, right->bottom)};
    const bool empty = IsRectEmpty(&both) || IsRectEmpty(left) || IsRectEmpty(right);
    *result = empty ? RECT{} : both;
    return !empty;
}
