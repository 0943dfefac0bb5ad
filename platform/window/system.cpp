// System-wide values and small services: metrics, cursors, the beep, and who hears of new colours.
#include <platform/display/display.h>
#include <platform/gdi/system_colors.h>
#include <platform/window/core.h>

#include <utility>

namespace kv {
namespace {

struct Metric {
    int index;
    int value;
};
constexpr Metric kMetrics[] = {
    {0, 1280},  // SM_CXSCREEN, as GetDeviceCaps answers
    {1, 1024},  // SM_CYSCREEN
    {2, 17},    // SM_CXVSCROLL
    {3, 17},    // SM_CYHSCROLL
    {4, 23},    // SM_CYCAPTION
    {5, 1},     // SM_CXBORDER
    {6, 1},     // SM_CYBORDER
    {7, 3},     // SM_CXDLGFRAME
    {8, 3},     // SM_CYDLGFRAME
    {49, 16},   // SM_CXSMICON
    {50, 16},   // SM_CYSMICON
    {SM_CXICON, 32}, {SM_CYICON, 32}, {SM_CXEDGE, 2},
    {SM_CYEDGE, 2},  {SM_CXFRAME, 4}, {SM_CYFRAME, 4},
};

// A system cursor's handle is its resource number with a mark no pointer and no other handle has.
constexpr std::uintptr_t kCursorMark = std::uintptr_t{6} << 58;
constexpr unsigned kCursors[] = {32512, 32513, 32514, 32515, 32649};

HCURSOR currentCursor{};

}  // namespace

unsigned SystemCursorId(HCURSOR cursor) {
    const auto value = reinterpret_cast<std::uintptr_t>(cursor);
    for (unsigned id : kCursors) {
        if (value == (kCursorMark | (id << 4))) return id;
    }
    return 0;
}

}  // namespace kv

using namespace kv;

int WINAPI GetSystemMetrics(int index) {
    for (const Metric& metric : kMetrics) {
        if (metric.index == index) return metric.value;
    }
    return 0;
}

BOOL WINAPI SetSysColors(int count, const INT* indices, const COLORREF* values) {
    if (count < 0 || !indices || !values) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    for (int i = 0; i < count; ++i) {
        SetSystemColor(indices[i], values[i]);
    }
    for (HWND window : TopLevelWindows()) SendMessageA(window, WM_SYSCOLORCHANGE, 0, 0);
    return TRUE;
}

HCURSOR WINAPI LoadCursorA(HINSTANCE instance, LPCSTR name) {
    const auto number = reinterpret_cast<std::uintptr_t>(name);
    for (unsigned id : kCursors) {
        if (!instance && number == id) {
            return reinterpret_cast<HCURSOR>(kCursorMark | (number << 4));
        }
    }
    // Libraries of this layer carry no cursors of their own.
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
}

HCURSOR WINAPI SetCursor(HCURSOR cursor) {
    const HCURSOR previous = std::exchange(currentCursor, cursor);
    if (previous != cursor) CurrentDisplay().CursorChanged(cursor);
    return previous;
}

BOOL WINAPI MessageBeep(UINT /*type*/) {
    CurrentDisplay().Beeped();
    return TRUE;
}

// The display owns the loudspeaker: it knows neither frequency nor length.
BOOL WINAPI Beep(DWORD frequency, DWORD) {
    if (frequency < 37 || frequency > 32767) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    CurrentDisplay().Beeped();
    return TRUE;
}
