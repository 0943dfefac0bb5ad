// Keyboard focus and activation: who gets the keys, and what happens to it when windows are hidden,
// disabled or destroyed.
#include <platform/display/display.h>
#include <platform/window/core.h>

namespace kv {
namespace {

struct FocusState {
    HWND focus{};
    HWND active{};
    HWND told{};  // the focus that the display knows
};
FocusState state;

void TellFocus() {
    if (state.told == state.focus) return;
    state.told = state.focus;
    CurrentDisplay().FocusMoved(state.focus);
}

// Neither a window nor one of its parents may be disabled.
bool AcceptsFocus(HWND handle) {
    for (const Window* window = FindWindowRecord(handle); window;
         window = FindWindowRecord(window->parent)) {
        if (window->IsDisabledStyle() || window->destroying) return false;
    }
    return true;
}

// Handlers of a focus message move the focus again, show message boxes, turn pages. A window is not
// told the same thing a second time while it still handles the first: two windows that send the
// focus back to themselves would go on without end. What it believes is put right afterwards. The
// record outlives the window, see CallScope.
class FocusMessage {
 public:
    FocusMessage(Window& window, bool& underWay) : window_(window), underWay_(underWay) {
        underWay_ = true;
    }
    ~FocusMessage() {
        underWay_ = false;
        const bool has = state.focus == window_.handle;
        window_.knowsFocus = has;
        if (window_.state) window_.state->focused = has;
    }
    FocusMessage(const FocusMessage&) = delete;
    FocusMessage& operator=(const FocusMessage&) = delete;

 private:
    Window& window_;
    bool& underWay_;
};

void TellLoser(HWND from, HWND to) {
    Window* window = FindWindowRecord(from);
    if (!window || window->hearsLoss) return;
    window->knowsFocus = false;
    const FocusMessage message(*window, window->hearsLoss);
    SendMessageA(from, WM_KILLFOCUS, reinterpret_cast<WPARAM>(to), 0);
}

void TellWinner(HWND to, HWND from) {
    Window* window = FindWindowRecord(to);
    if (!window || window->hearsGain || window->knowsFocus) return;
    window->knowsFocus = true;
    const FocusMessage message(*window, window->hearsGain);
    SendMessageA(to, WM_SETFOCUS, reinterpret_cast<WPARAM>(from), 0);
}

// The loser hears first, while GetFocus already answers the winner. Its handler may move the focus
// elsewhere; then the winner hears nothing.
void MoveFocus(HWND to) {
    const CallScope scope;
    const HWND from = std::exchange(state.focus, to);
    TellLoser(from, to);
    if (state.focus == to) TellWinner(to, from);
    TellFocus();
}

bool CanActivate(const Window& window) {
    return window.IsVisibleStyle() && !window.IsDisabledStyle() && !window.destroying;
}

// Who comes to the front when a top-level window leaves: its owner, else the newest other one.
HWND Successor(const Window& leaving) {
    const Window* owner = FindWindowRecord(leaving.owner);
    if (owner && CanActivate(*owner)) return owner->handle;
    const std::vector<HWND>& all = TopLevelList();
    for (size_t i = all.size(); i-- > 0;) {
        const Window* window = FindWindowRecord(all[i]);
        if (window && window != &leaving && CanActivate(*window)) return all[i];
    }
    return nullptr;
}

}  // namespace

HWND ActiveWindow() {
    return state.active;
}

void Activate(HWND root) {
    if (state.active == root) return;
    Window* leaving = FindWindowRecord(state.active);
    if (leaving && state.focus && Contains(state.active, state.focus)) {
        leaving->savedFocus = state.focus;
    }
    state.active = root;
}

void LeaveHiddenWindow(HWND handle) {
    const Window* window = FindWindowRecord(handle);
    if (!window) return;
    const bool holdsFocus = state.focus && Contains(handle, state.focus);
    if (window->parent) {
        if (!holdsFocus) return;
        SetFocus(AcceptsFocus(window->parent) ? window->parent : nullptr);
        return;
    }
    if (state.active != handle) {
        if (holdsFocus) SetFocus(nullptr);
        return;
    }
    const HWND next = Successor(*window);
    if (next) {
        SetActiveWindow(next);
    } else {
        if (state.focus) MoveFocus(nullptr);
        if (state.active == handle) state.active = nullptr;
    }
}

void ForgetWindow(HWND handle) {
    if (state.active == handle) state.active = nullptr;
    if (state.focus == handle) state.focus = nullptr;
    TellFocus();
}

}  // namespace kv

using namespace kv;

HWND WINAPI GetFocus() {
    return state.focus;
}

HWND WINAPI SetFocus(HWND handle) {
    const HWND previous = state.focus;
    if (!handle) {
        if (previous) MoveFocus(nullptr);
        return previous;
    }
    if (!WindowFromHandle(handle) || !AcceptsFocus(handle)) return nullptr;
    Activate(RootOf(handle));
    if (previous != handle) MoveFocus(handle);
    return previous;
}

HWND WINAPI GetActiveWindow() {
    return state.active;
}

HWND WINAPI SetActiveWindow(HWND handle) {
    Window* window = WindowFromHandle(handle);
    if (!window || window->parent || window->destroying) return nullptr;
    const HWND previous = state.active;
    if (previous == handle) return previous;
    Activate(handle);
    const HWND saved = std::exchange(window->savedFocus, nullptr);
    if (saved && Contains(handle, saved) && IsWindowVisible(saved) && AcceptsFocus(saved)) {
        SetFocus(saved);
    } else if (AcceptsFocus(handle)) {
        SetFocus(handle);
    } else if (state.focus) {
        MoveFocus(nullptr);
    }
    return previous;
}
