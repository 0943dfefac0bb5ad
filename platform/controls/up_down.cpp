// Up-down controls: a number in a range, shown in a buddy edit whose text counts as the position.
#include <platform/controls/classes.h>
#include <platform/controls/control_input.h>
#include <platform/controls/control_support.h>
#include <platform/controls/up_down.h>
#include <platform/display/tell.h>

#include <commctrl.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <limits>
#include <optional>

namespace kv {
namespace {

constexpr char kBuddyProperty[] = "KvUpDown";
constexpr LONG kArrowWidth = 17;
constexpr LONG kTextSize = 32;

struct UpDownState : ControlState {
    LONG lower = 100;  // the platform starts with an inverted range
    LONG upper = 0;
    LONG position = 0;
    HWND buddy{};
    bool scrolling = false;  // SB_ENDSCROLL is owed
};

UpDownState& StateFor(Window& window) {
    return StateOf<UpDownState>(window);
}

UpDownState* StateFor(HWND handle) {
    Window* window = WindowFromHandle(handle);
    return window ? &StateFor(*window) : nullptr;
}

LONG Least(const UpDownState& state) {
    return std::min(state.lower, state.upper);
}
LONG Most(const UpDownState& state) {
    return std::max(state.lower, state.upper);
}

bool ShowsNumber(const Window& window) {
    return (window.style & UDS_SETBUDDYINT) != 0;
}

// Digits with an optional sign and thousands separators; anything else is no number.
std::optional<LONG> ParseNumber(const char* text) {
    char digits[kTextSize];
    size_t length = 0;
    for (const char* at = text; *at; ++at) {
        if (*at == ',' && at != text) continue;
        if (length + 1 >= sizeof digits) return std::nullopt;
        digits[length++] = *at;
    }
    LONG number = 0;
    const auto [end, error] = std::from_chars(digits, digits + length, number);
    if (error != std::errc() || end != digits + length || length == 0) return std::nullopt;
    return number;
}

void FormatNumber(LONG number, bool separators, char (&out)[kTextSize]) {
    char digits[kTextSize];
    std::snprintf(digits, sizeof digits, "%d", number);
    if (!separators) {
        std::snprintf(out, sizeof out, "%s", digits);
        return;
    }
    const size_t length = std::strlen(digits);
    size_t at = 0;
    for (size_t i = 0; i < length; ++i) {
        const bool behindDigit = i > 0 && digits[i - 1] != '-';
        if (behindDigit && (length - i) % 3 == 0) out[at++] = ',';
        out[at++] = digits[i];
    }
    out[at] = '\0';
}

// The user may have typed into the buddy since: its text counts, if it is a number in the range.
// False when it is not; the position then stays the last good one.
bool ReadBuddy(Window& window) {
    UpDownState& state = StateFor(window);
    if (!ShowsNumber(window) || !IsWindow(state.buddy)) return true;
    char text[kTextSize];
    GetWindowTextA(state.buddy, text, sizeof text);
    const std::optional<LONG> number = ParseNumber(text);
    if (!number || *number < Least(state) || *number > Most(state)) return false;
    state.position = *number;
    return true;
}

// Answers whether the up-down control still lives: the edit's notifications reach the page.
bool WriteBuddy(HWND handle) {
    Window& window = *WindowFromHandle(handle);
    const UpDownState& state = StateFor(window);
    if (!ShowsNumber(window) || !IsWindow(state.buddy)) return true;
    char wanted[kTextSize];
    FormatNumber(state.position, (window.style & UDS_NOTHOUSANDS) == 0, wanted);
    char shown[kTextSize];
    GetWindowTextA(state.buddy, shown, sizeof shown);
    if (std::strcmp(shown, wanted) != 0) SetWindowTextA(state.buddy, wanted);
    return WindowFromHandle(handle) != nullptr;
}

LONG Clamp(const UpDownState& state, LONGLONG position) {
    return static_cast<LONG>(
        std::clamp<LONGLONG>(position, LONGLONG{Least(state)}, LONGLONG{Most(state)}));
}

void SetPosition(Window& window, LONG position) {
    UpDownState& state = StateFor(window);
    if (state.position == position) return;
    state.position = position;
    TellChanged(window.handle, kChangedPosition);
}

LRESULT SetByProgram(HWND handle, LONG position) {
    Window& window = *WindowFromHandle(handle);
    const LONG previous = StateFor(window).position;
    SetPosition(window, Clamp(StateFor(window), position));
    WriteBuddy(handle);
    return previous;
}

LRESULT Position16(Window& window) {
    const bool good = ReadBuddy(window);
    const LONG position = StateFor(window).position;
    return MAKELPARAM(static_cast<unsigned>(position), good ? 0u : 1u);
}

LRESULT Position32(Window& window, LPARAM lParam) {
    const bool good = ReadBuddy(window);
    if (auto* failed = reinterpret_cast<BOOL*>(lParam)) *failed = good ? FALSE : TRUE;
    return StateFor(window).position;
}

LRESULT SetRange(Window& window, LONG lower, LONG upper) {
    UpDownState& state = StateFor(window);
    if (state.lower == lower && state.upper == upper) return 0;
    state.lower = lower;
    state.upper = upper;
    TellChanged(window.handle, kChangedRange);
    return 0;
}

LRESULT Range32(const UpDownState& state, WPARAM wParam, LPARAM lParam) {
    if (auto* lower = reinterpret_cast<LONG*>(wParam)) *lower = state.lower;
    if (auto* upper = reinterpret_cast<LONG*>(lParam)) *upper = state.upper;
    return 0;
}

void ReportScroll(HWND handle, WORD code) {
    Window* window = WindowFromHandle(handle);
    if (!window) return;
    const LONG position = code == SB_THUMBPOSITION ? StateFor(*window).position : 0;
    const bool horizontal = (window->style & UDS_HORZ) != 0;
    SendMessageA(GetParent(handle), horizontal ? WM_HSCROLL : WM_VSCROLL,
                 MAKEWPARAM(code, static_cast<unsigned>(position)),
                 reinterpret_cast<LPARAM>(handle));
}

LONG Advance(const Window& window, const UpDownState& state, LONGLONG position) {
    const bool wraps = (window.style & UDS_WRAP) != 0;
    if (wraps && position > Most(state)) return Least(state);
    if (wraps && position < Least(state)) return Most(state);
    return Clamp(state, position);
}

// One notch: the parent may refuse or alter it, then position, buddy and parent follow in this
// order.
void StepOnce(HWND handle, int direction) {
    Window* window = WindowFromHandle(handle);
    if (!window) return;
    ReadBuddy(*window);
    const UpDownState& before = StateFor(*window);
    NMUPDOWN notice{};
    notice.iPos = before.position;
    notice.iDelta = before.upper >= before.lower ? direction : -direction;
    if (NotifyWith(handle, notice.hdr, UDN_DELTAPOS) != 0) return;
    window = WindowFromHandle(handle);
    if (!window) return;
    const LONGLONG target = LONGLONG{notice.iPos} + notice.iDelta;
    SetPosition(*window, Advance(*window, StateFor(*window), target));
    if (!WriteBuddy(handle)) return;
    StateFor(handle)->scrolling = true;
    ReportScroll(handle, SB_THUMBPOSITION);
}

void EndScroll(HWND handle) {
    UpDownState* state = StateFor(handle);
    if (!state || !state->scrolling) return;
    state->scrolling = false;
    ReportScroll(handle, SB_ENDSCROLL);
}

// The arrows work for the edit: it takes the focus, and while it is disabled they are dead.
bool PrepareStep(HWND handle) {
    const UpDownState* state = StateFor(handle);
    if (!state || !IsWindow(state->buddy)) return state != nullptr;
    const HWND buddy = state->buddy;
    if (!IsWindowEnabled(buddy)) return false;
    if (GetFocus() != buddy && IsWindowVisible(buddy)) SetFocus(buddy);
    return StateFor(handle) != nullptr;
}

LRESULT Step(HWND handle, int notches) {
    if (!PrepareStep(handle)) return 0;
    const int direction = notches < 0 ? -1 : 1;
    for (int i = 0; i != notches; i += direction) StepOnce(handle, direction);
    EndScroll(handle);
    return 1;
}

LRESULT OnMouseDown(HWND handle, LPARAM lParam) {
    if (!PrepareStep(handle)) return 0;
    const Window& window = *WindowFromHandle(handle);
    const POINT point = PointOf(lParam);
    const bool horizontal = (window.style & UDS_HORZ) != 0;
    const LONG middleX = (window.rect.right - window.rect.left) / 2;
    const LONG middleY = (window.rect.bottom - window.rect.top) / 2;
    const bool up = horizontal ? point.x >= middleX : point.y < middleY;
    StepOnce(handle, up ? 1 : -1);
    return 0;
}

// UDS_ALIGNRIGHT and UDS_ALIGNLEFT: the arrows stand inside the room that the buddy had.
void AlignToBuddy(Window& window, HWND buddy) {
    const DWORD alignment = window.style & (UDS_ALIGNRIGHT | UDS_ALIGNLEFT);
    const Window* edit = WindowFromHandle(buddy);
    if (alignment == 0 || !edit) return;
    const RECT room = edit->rect;
    const LONG given = window.rect.right - window.rect.left;
    const LONG width = given > 0 && given < room.right - room.left ? given : kArrowWidth;
    const bool right = (alignment & UDS_ALIGNRIGHT) != 0;
    const LONG height = room.bottom - room.top;
    MoveWindow(buddy, right ? room.left : room.left + width, room.top,
               room.right - room.left - width, height, TRUE);
    MoveWindow(window.handle, right ? room.right - width : room.left, room.top, width, height,
               TRUE);
}

void ForgetBuddy(UpDownState& state, HWND handle) {
    if (!IsWindow(state.buddy)) return;
    if (GetPropA(state.buddy, kBuddyProperty) == reinterpret_cast<HANDLE>(handle)) {
        RemovePropA(state.buddy, kBuddyProperty);
    }
}

LRESULT SetBuddy(Window& window, HWND buddy) {
    UpDownState& state = StateFor(window);
    const HWND previous = state.buddy;
    ForgetBuddy(state, window.handle);
    state.buddy = buddy;
    if (IsWindow(buddy)) {
        if ((window.style & UDS_ARROWKEYS) != 0) {
            SetPropA(buddy, kBuddyProperty, reinterpret_cast<HANDLE>(window.handle));
        }
        AlignToBuddy(window, buddy);
    }
    return reinterpret_cast<LRESULT>(previous);
}

// UDS_AUTOBUDDY: the sibling created just before this control.
LRESULT OnCreate(Window& window) {
    StateFor(window);
    if ((window.style & UDS_AUTOBUDDY) == 0) return 0;
    const Window* parent = WindowFromHandle(window.parent);
    if (!parent) return 0;
    const auto& siblings = parent->children;
    const auto self = std::find(siblings.begin(), siblings.end(), window.handle);
    if (self != siblings.begin()) SetBuddy(window, *(self - 1));
    return 0;
}

}  // namespace

bool StepBuddy(HWND edit, int notches) {
    const auto upDown = reinterpret_cast<HWND>(GetPropA(edit, kBuddyProperty));
    if (!upDown || !IsWindow(upDown) || !IsWindowEnabled(upDown)) return false;
    return SendMessageA(upDown, KVM_STEP, 0, notches) != 0;
}

LRESULT UpDownProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    UpDownState& state = StateFor(*window);
    switch (message) {
        case WM_CREATE:
            return OnCreate(*window);
        case WM_DESTROY:
            return ForgetBuddy(state, handle), 0;
        case UDM_SETRANGE:
            return SetRange(*window, static_cast<SHORT>(HIWORD(lParam)),
                            static_cast<SHORT>(LOWORD(lParam)));
        case UDM_GETRANGE:
            return MAKELPARAM(static_cast<unsigned>(state.upper),
                              static_cast<unsigned>(state.lower));
        case UDM_SETRANGE32:
            return SetRange(*window, static_cast<LONG>(wParam), static_cast<LONG>(lParam));
        case UDM_GETRANGE32:
            return Range32(state, wParam, lParam);
        case UDM_SETPOS:
            return SetByProgram(handle, static_cast<SHORT>(LOWORD(lParam)));
        case UDM_SETPOS32:
            return SetByProgram(handle, static_cast<LONG>(lParam));
        case UDM_GETPOS:
            return Position16(*window);
        case UDM_GETPOS32:
            return Position32(*window, lParam);
        case UDM_SETBUDDY:
            return SetBuddy(*window, reinterpret_cast<HWND>(wParam));
        case UDM_GETBUDDY:
            return reinterpret_cast<LRESULT>(state.buddy);
        case KVM_STEP:
            return Step(handle, static_cast<int>(lParam));
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            return OnMouseDown(handle, lParam);
        case WM_LBUTTONUP:
            return EndScroll(handle), 0;
        default:
            return DefWindowProcA(handle, message, wParam, lParam);
    }
}

}  // namespace kv
