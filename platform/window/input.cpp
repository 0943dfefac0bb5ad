// User input: mouse and keyboard, see input.h. Composite actions are in input_composite.cpp.
#include <platform/dialog/dialog.h>
#include <platform/window/core.h>
#include <platform/window/input.h>
#include <platform/window/input_scope.h>

#include <string>

namespace kv::input {
namespace {

// Where a button press on `window` arrives: labels and frames let it through to their parent.
struct MouseTarget {
    HWND window{};
    POINT point{};
};

bool LetsMouseThrough(const Window& window) {
    if (window.windowClass->kind == "static") return (window.style & SS_NOTIFY) == 0;
    return window.windowClass->kind == "button" && (window.style & BS_TYPEMASK) == BS_GROUPBOX;
}

MouseTarget TargetAt(HWND handle, POINT point) {
    const Window* window = FindWindowRecord(handle);
    while (window && LetsMouseThrough(*window) && FindWindowRecord(window->parent)) {
        point.x += window->rect.left;
        point.y += window->rect.top;
        window = FindWindowRecord(window->parent);
    }
    return {window ? window->handle : nullptr, point};
}

struct MouseEvent {
    UINT message;
    WPARAM button;  // which button is down during the message
};

WPARAM MouseKeys(WPARAM button, unsigned modifiers) {
    if ((modifiers & kShift) != 0) button |= MK_SHIFT;
    if ((modifiers & kControl) != 0) button |= MK_CONTROL;
    return button;
}

POINT CentreOf(HWND handle) {
    RECT client{};
    GetClientRect(handle, &client);
    return {client.right / 2, client.bottom / 2};
}

// Sends the events one after the other; the rest is dropped when one of them puts a dialog in front
// or takes the window away.
template <size_t Count>
bool Mouse(HWND window, POINT point, unsigned modifiers, const MouseEvent (&events)[Count]) {
    if (!CanReach(window)) return false;
    const MouseTarget target = TargetAt(window, point);
    const ActionScope scope(modifiers, target.window);
    const HWND root = RootOf(target.window);
    SetActiveWindow(root);
    for (const MouseEvent& event : events) {
        if (!CanReach(target.window)) break;
        SendMessageA(target.window, event.message, MouseKeys(event.button, modifiers),
                     MAKELPARAM(static_cast<unsigned>(target.point.x),
                                static_cast<unsigned>(target.point.y)));
    }
    MarkDefaultButton(root, GetFocus());
    PumpPendingMessages();
    return true;
}

HWND KeyTarget() {
    const HWND focus = GetFocus();
    return focus ? focus : ActiveWindow();
}

// A key or character goes the way that a message loop sends it.
void Deliver(HWND target, UINT message, WPARAM wParam) {
    MSG key{target, message, wParam, 1, 0, {}};
    if (!IsDialogMessageA(RootOf(target), &key)) DispatchMessageA(&key);
    PumpPendingMessages();
}

struct TypedKey {
    char character;
    int key;
};
constexpr TypedKey kTypedKeys[] = {
    {'\b', VK_BACK},   {'\t', VK_TAB},      {'\r', VK_RETURN},
    {'\n', VK_RETURN}, {'\x1B', VK_ESCAPE}, {' ', VK_SPACE},
};

bool TypeOne(char character) {
    for (const TypedKey& entry : kTypedKeys) {
        if (entry.character == character) return Key(entry.key);
    }
    if (character >= 'a' && character <= 'z') return Key(character - ('a' - 'A'));
    if (character >= 'A' && character <= 'Z') return Key(character, kShift);
    if (character >= '0' && character <= '9') return Key(character);
    const HWND target = KeyTarget();
    if (!CanReach(target)) return false;
    const ActionScope scope(kNoModifier, target);
    Deliver(target, WM_CHAR, static_cast<unsigned char>(character));
    return true;
}

}  // namespace

bool CanReach(HWND handle) {
    const Window* window = FindWindowRecord(handle);
    if (!window) return false;
    for (;;) {
        if (!window->IsVisibleStyle() || window->IsDisabledStyle() || window->destroying) {
            return false;
        }
        const Window* parent = FindWindowRecord(window->parent);
        if (!parent) return !IsBehindModal(window->handle);
        window = parent;
    }
}

bool Click(HWND window, unsigned modifiers) {
    return ClickAt(window, CentreOf(window), modifiers);
}

bool ClickAt(HWND window, POINT clientPoint, unsigned modifiers) {
    constexpr MouseEvent kEvents[] = {{WM_LBUTTONDOWN, MK_LBUTTON}, {WM_LBUTTONUP, 0}};
    return Mouse(window, clientPoint, modifiers, kEvents);
}

bool DoubleClick(HWND window, unsigned modifiers) {
    constexpr MouseEvent kEvents[] = {
        {WM_LBUTTONDOWN, MK_LBUTTON},
        {WM_LBUTTONUP, 0},
        {WM_LBUTTONDBLCLK, MK_LBUTTON},
        {WM_LBUTTONUP, 0},
    };
    return Mouse(window, CentreOf(window), modifiers, kEvents);
}

bool SecondClickAt(HWND window, POINT clientPoint, unsigned modifiers) {
    constexpr MouseEvent kEvents[] = {{WM_LBUTTONDBLCLK, MK_LBUTTON}, {WM_LBUTTONUP, 0}};
    return Mouse(window, clientPoint, modifiers, kEvents);
}

bool RightClick(HWND window, unsigned modifiers) {
    return RightClickAt(window, CentreOf(window), modifiers);
}

bool RightClickAt(HWND window, POINT clientPoint, unsigned modifiers) {
    constexpr MouseEvent kEvents[] = {{WM_RBUTTONDOWN, MK_RBUTTON}, {WM_RBUTTONUP, 0}};
    return Mouse(window, clientPoint, modifiers, kEvents);
}

bool MoveTo(HWND window, POINT clientPoint) {
    if (!CanReach(window)) return false;
    constexpr unsigned kInClientArea = 1;  // HTCLIENT
    const ActionScope scope(kNoModifier);
    const MouseTarget target = TargetAt(window, clientPoint);
    SendMessageA(target.window, WM_SETCURSOR, reinterpret_cast<WPARAM>(target.window),
                 MAKELPARAM(kInClientArea, WM_MOUSEMOVE));
    SendMessageA(
        target.window, WM_MOUSEMOVE, 0,
        MAKELPARAM(static_cast<unsigned>(target.point.x), static_cast<unsigned>(target.point.y)));
    PumpPendingMessages();
    return true;
}

bool Focus(HWND window) {
    if (!CanReach(window)) return false;
    if ((SendMessageA(window, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) != 0) return false;
    const ActionScope scope(kNoModifier, window);
    const HWND root = RootOf(window);
    if (!Contains(window, GetFocus())) SetFocus(window);
    MarkDefaultButton(root, GetFocus());
    PumpPendingMessages();
    return Contains(window, GetFocus());
}

bool Key(int virtualKey, unsigned modifiers) {
    HWND target = KeyTarget();
    if (!CanReach(target)) return false;
    const ActionScope scope(modifiers, target);
    const bool alt = (modifiers & kAlt) != 0;
    Deliver(target, alt ? WM_SYSKEYDOWN : WM_KEYDOWN, static_cast<WPARAM>(virtualKey));
    // Letting go reaches whoever has the focus by then.
    target = KeyTarget();
    if (CanReach(target)) Deliver(target, WM_KEYUP, static_cast<WPARAM>(virtualKey));
    return true;
}

bool Type(std::string_view text) {
    for (char character : text) {
        if (!TypeOne(character)) return false;
    }
    return true;
}

}  // namespace kv::input
