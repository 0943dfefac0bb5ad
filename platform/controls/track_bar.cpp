// Track bars: a position in a range, moved by dragging the thumb, by clicks beside it and by keys.
#include <platform/controls/classes.h>
#include <platform/controls/control_input.h>
#include <platform/controls/control_support.h>
#include <platform/display/tell.h>

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace kv {
namespace {

constexpr LONG kThumbReach = 6;      // how far from its centre the mouse still holds the thumb
constexpr LONG kChannelMargin = 10;  // the thumb's centre keeps this distance from both ends

struct TrackBarState : ControlState {
    LONG minimum = 0;
    LONG maximum = 100;
    LONG position = 0;
    LONG lineSize = 1;
    LONG pageSize = 20;
    bool pageSizeGiven = false;
    LONG tickFrequency = 1;
    bool dragging = false;   // the mouse holds the thumb
    bool scrolling = false;  // TB_ENDTRACK is owed
};

TrackBarState& StateFor(Window& window) {
    return StateOf<TrackBarState>(window);
}

bool IsVertical(const Window& window) {
    return (window.style & TBS_VERT) != 0;
}

// Reports a movement to the parent; false when the track bar is gone afterwards. Only the two thumb
// codes carry the position.
bool Scroll(HWND handle, WORD code) {
    Window* window = WindowFromHandle(handle);
    if (!window) return false;
    const bool thumb = code == TB_THUMBPOSITION || code == TB_THUMBTRACK;
    const LONG position = thumb ? StateFor(*window).position : 0;
    SendMessageA(GetParent(handle), IsVertical(*window) ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(code, static_cast<unsigned>(position)),
                 reinterpret_cast<LPARAM>(handle));
    return WindowFromHandle(handle) != nullptr;
}

bool MoveTo(Window& window, LONGLONG position) {
    TrackBarState& state = StateFor(window);
    const auto low = static_cast<LONGLONG>(state.minimum);
    const auto high = static_cast<LONGLONG>(std::max(state.minimum, state.maximum));
    const LONG target = static_cast<LONG>(std::clamp(position, low, high));
    if (state.position == target) return false;
    state.position = target;
    TellChanged(window.handle, kChangedPosition);
    return true;
}

LRESULT SetRange(Window& window, LONG minimum, LONG maximum) {
    TrackBarState& state = StateFor(window);
    if (state.minimum == minimum && state.maximum == maximum) return 0;
    state.minimum = minimum;
    state.maximum = maximum;
    if (!state.pageSizeGiven) {
        state.pageSize = std::max<LONG>(static_cast<LONG>((LONGLONG{maximum} - minimum) / 5), 1);
    }
    TellChanged(window.handle, kChangedRange);
    MoveTo(window, state.position);
    return 0;
}

LRESULT Exchange(Window& window, LONG& member, LPARAM value) {
    const LONG previous = std::exchange(member, static_cast<LONG>(value));
    if (previous != member) TellChanged(window.handle, kChangedRange);
    return previous;
}

LRESULT SetPageSize(Window& window, LPARAM value) {
    TrackBarState& state = StateFor(window);
    state.pageSizeGiven = true;
    return Exchange(window, state.pageSize, value);
}

LRESULT DragTo(HWND handle, WPARAM wParam, LPARAM lParam) {
    const LONG steps = std::max<LONG>(static_cast<LONG>(wParam), 1);
    const LONGLONG start = StateFor(*WindowFromHandle(handle)).position;
    const LONGLONG distance = static_cast<LONG>(lParam) - start;
    for (LONG step = 1; step <= steps; ++step) {
        Window* window = WindowFromHandle(handle);
        if (!window) return 1;
        const bool moved = MoveTo(*window, start + distance * step / steps);
        if (moved && !Scroll(handle, TB_THUMBTRACK)) return 1;
    }
    if (Scroll(handle, TB_THUMBPOSITION)) Scroll(handle, TB_ENDTRACK);
    return 1;
}

// A thumb that is still held reports every movement; DragTo reports the end.
LRESULT TrackTo(HWND handle, LPARAM lParam) {
    if (MoveTo(*WindowFromHandle(handle), static_cast<LONG>(lParam))) {
        Scroll(handle, TB_THUMBTRACK);
    }
    return 1;
}

struct KeyStep {
    int virtualKey;
    WORD code;
};

// What a key means in a bar without TBS_DOWNISLEFT.
constexpr KeyStep kKeySteps[] = {
    {VK_LEFT, TB_LINEUP},  {VK_UP, TB_LINEUP},     {VK_RIGHT, TB_LINEDOWN}, {VK_DOWN, TB_LINEDOWN},
    {VK_PRIOR, TB_PAGEUP}, {VK_NEXT, TB_PAGEDOWN}, {VK_HOME, TB_TOP},       {VK_END, TB_BOTTOM},
};

// With TBS_DOWNISLEFT the keys across the bar's direction work the other way round.
int TurnKey(const Window& window, int virtualKey) {
    if ((window.style & TBS_DOWNISLEFT) == 0) return virtualKey;
    if (IsVertical(window)) {
        return virtualKey == VK_LEFT ? VK_RIGHT : virtualKey == VK_RIGHT ? VK_LEFT : virtualKey;
    }
    switch (virtualKey) {
        case VK_UP:
            return VK_DOWN;
        case VK_DOWN:
            return VK_UP;
        case VK_PRIOR:
            return VK_NEXT;
        case VK_NEXT:
            return VK_PRIOR;
        default:
            return virtualKey;
    }
}

void ScrollBy(HWND handle, WORD code) {
    Window& window = *WindowFromHandle(handle);
    TrackBarState& state = StateFor(window);
    const LONGLONG position = state.position;
    switch (code) {
        case TB_LINEUP:
            MoveTo(window, position - state.lineSize);
            break;
        case TB_LINEDOWN:
            MoveTo(window, position + state.lineSize);
            break;
        case TB_PAGEUP:
            MoveTo(window, position - state.pageSize);
            break;
        case TB_PAGEDOWN:
            MoveTo(window, position + state.pageSize);
            break;
        case TB_TOP:
            MoveTo(window, state.minimum);
            break;
        default:
            MoveTo(window, state.maximum);
            break;
    }
    state.scrolling = true;
    Scroll(handle, code);
}

LRESULT OnKeyDown(Window& window, int virtualKey) {
    virtualKey = TurnKey(window, virtualKey);
    for (const KeyStep& step : kKeySteps) {
        if (step.virtualKey == virtualKey) return ScrollBy(window.handle, step.code), 0;
    }
    return 0;
}

LRESULT EndScroll(HWND handle) {
    Window* window = WindowFromHandle(handle);
    if (window && std::exchange(StateFor(*window).scrolling, false)) Scroll(handle, TB_ENDTRACK);
    return 0;
}

// Pixels along the bar. The channel begins at kChannelMargin and the position grows along it in
// proportion.
LONG Along(const Window& window, POINT point) {
    return IsVertical(window) ? point.y : point.x;
}

LONG ChannelLength(const Window& window) {
    const LONG length = IsVertical(window) ? window.rect.bottom - window.rect.top
                                           : window.rect.right - window.rect.left;
    return std::max<LONG>(length - 2 * kChannelMargin, 1);
}

LONGLONG Range(const TrackBarState& state) {
    return std::max<LONGLONG>(LONGLONG{state.maximum} - state.minimum, 1);
}

LONG ThumbCentre(Window& window) {
    const TrackBarState& state = StateFor(window);
    const LONGLONG offset = LONGLONG{state.position} - state.minimum;
    return kChannelMargin + static_cast<LONG>(offset * ChannelLength(window) / Range(state));
}

LONGLONG PositionAt(Window& window, LONG along) {
    const TrackBarState& state = StateFor(window);
    const LONG length = ChannelLength(window);
    const LONGLONG scaled = LONGLONG{along - kChannelMargin} * Range(state);
    return state.minimum + (scaled + length / 2) / length;
}

LRESULT OnMouseDown(HWND handle, LPARAM lParam) {
    if (!TakeFocus(handle)) return 0;
    Window& window = *WindowFromHandle(handle);
    const LONG distance = Along(window, PointOf(lParam)) - ThumbCentre(window);
    if (distance >= -kThumbReach && distance <= kThumbReach) {
        StateFor(window).dragging = true;
    } else {
        ScrollBy(handle, distance < 0 ? TB_PAGEUP : TB_PAGEDOWN);
    }
    return 0;
}

LRESULT OnMouseMove(Window& window, LPARAM lParam) {
    if (!StateFor(window).dragging) return 0;
    if (MoveTo(window, PositionAt(window, Along(window, PointOf(lParam))))) {
        Scroll(window.handle, TB_THUMBTRACK);
    }
    return 0;
}

LRESULT OnMouseUp(HWND handle) {
    Window* window = WindowFromHandle(handle);
    if (!std::exchange(StateFor(*window).dragging, false)) return EndScroll(handle);
    if (Scroll(handle, TB_THUMBPOSITION)) Scroll(handle, TB_ENDTRACK);
    return 0;
}

}  // namespace

LRESULT TrackBarProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    if (AsksForHelp(message, wParam)) return DefWindowProcA(handle, message, wParam, lParam);
    TrackBarState& state = StateFor(*window);
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        case TBM_GETPOS:
            return state.position;
        case TBM_SETPOS:
            return MoveTo(*window, static_cast<LONG>(lParam)), 0;
        case TBM_GETRANGEMIN:
            return state.minimum;
        case TBM_GETRANGEMAX:
            return state.maximum;
        case TBM_SETRANGE:
            return SetRange(*window, static_cast<SHORT>(LOWORD(lParam)),
                            static_cast<SHORT>(HIWORD(lParam)));
        case TBM_SETRANGEMIN:
            return SetRange(*window, static_cast<LONG>(lParam), state.maximum);
        case TBM_SETRANGEMAX:
            return SetRange(*window, state.minimum, static_cast<LONG>(lParam));
        case TBM_SETTICFREQ:
            return Exchange(*window, state.tickFrequency, static_cast<LPARAM>(wParam)), 0;
        case TBM_SETPAGESIZE:
            return SetPageSize(*window, lParam);
        case TBM_GETPAGESIZE:
            return state.pageSize;
        case TBM_SETLINESIZE:
            return Exchange(*window, state.lineSize, lParam);
        case TBM_GETLINESIZE:
            return state.lineSize;
        case KVM_GETTICKFREQ:
            return state.tickFrequency;
        case KVM_DRAGTO:
            return DragTo(handle, wParam, lParam);
        case KVM_TRACKTO:
            return TrackTo(handle, lParam);
        case WM_KEYDOWN:
            return OnKeyDown(*window, static_cast<int>(wParam));
        case WM_KEYUP:
            return EndScroll(handle);
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            return OnMouseDown(handle, lParam);
        case WM_MOUSEMOVE:
            return OnMouseMove(*window, lParam);
        case WM_LBUTTONUP:
            return OnMouseUp(handle);
        case WM_KILLFOCUS:
            return EndScroll(handle);
        default:
            return DefWindowProcA(handle, message, wParam, lParam);
    }
}

}  // namespace kv
