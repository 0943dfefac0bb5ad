// System-wide values and small services: metrics, colours, cursors, key state, the beep.
#include <platform/display/display.h>
#include <platform/gdi/objects.h>
#include <platform/gdi/surface.h>
#include <platform/window/core.h>
#include <platform/window/input.h>

#include <array>
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

// By COLOR_* index, until somebody sets others.
constexpr COLORREF kColors[] = {
    RGB(200, 200, 200),  // scroll bar
    RGB(0, 0, 0),        // desktop
    RGB(153, 180, 209),  // active caption
    RGB(191, 205, 219),  // inactive caption
    RGB(240, 240, 240),  // menu
    RGB(255, 255, 255),  // window
    RGB(100, 100, 100),  // window frame
    RGB(0, 0, 0),        // menu text
    RGB(0, 0, 0),        // window text
    RGB(0, 0, 0),        // caption text
    RGB(180, 180, 180),  // active border
    RGB(244, 247, 252),  // inactive border
    RGB(171, 171, 171),  // application work space
    RGB(0, 120, 215),    // highlight
    RGB(255, 255, 255),  // highlight text
    RGB(240, 240, 240),  // button face
    RGB(160, 160, 160),  // button shadow
    RGB(109, 109, 109),  // gray text
    RGB(0, 0, 0),        // button text
    RGB(0, 0, 0),        // inactive caption text
    RGB(255, 255, 255),  // button highlight
    RGB(105, 105, 105),  // dark shadow
    RGB(227, 227, 227),  // light edge
    RGB(0, 0, 0),        // tooltip text
    RGB(255, 255, 225),  // tooltip background
};
constexpr int kColorCount = static_cast<int>(std::size(kColors));
static_assert(kColorCount > COLOR_3DDKSHADOW);

std::array<COLORREF, kColorCount> colors = std::to_array(kColors);
std::array<HBRUSH, kColorCount> brushes;

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

DWORD WINAPI GetSysColor(int index) {
    return index >= 0 && index < kColorCount ? colors[static_cast<size_t>(index)] : 0;
}

HBRUSH WINAPI GetSysColorBrush(int index) {
    if (index < 0 || index >= kColorCount) return nullptr;
    HBRUSH& brush = brushes[static_cast<size_t>(index)];
    if (!brush) {
        brush = CreateSolidBrush(GetSysColor(index));
        MakePermanent(brush);
    }
    return brush;
}

// Brushes that were given out have the new colours too.
BOOL WINAPI SetSysColors(int count, const INT* indices, const COLORREF* values) {
    if (count < 0 || !indices || !values) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    for (int i = 0; i < count; ++i) {
        if (indices[i] < 0 || indices[i] >= kColorCount) continue;
        const auto index = static_cast<size_t>(indices[i]);
        colors[index] = values[i];
        if (auto* brush = ObjectOf<Brush>(brushes[index])) brush->color = values[i];
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

SHORT WINAPI GetKeyState(int virtualKey) {
    const unsigned modifiers = input::CurrentModifiers();
    const bool down = (virtualKey == VK_SHIFT && (modifiers & input::kShift) != 0) ||
                      (virtualKey == VK_CONTROL && (modifiers & input::kControl) != 0) ||
                      (virtualKey == VK_MENU && (modifiers & input::kAlt) != 0);
    return down ? static_cast<SHORT>(-0x8000) : SHORT{0};
}

BOOL WINAPI MessageBeep(UINT /*type*/) {
    CurrentDisplay().Beeped();
    return TRUE;
}
