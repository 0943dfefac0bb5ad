// BUTTON: push buttons, check boxes, radio buttons, group boxes and owner-drawn buttons.
#include <platform/controls/classes.h>
#include <platform/controls/control_support.h>
#include <platform/display/tell.h>

#include <algorithm>
#include <vector>

namespace kv {
namespace {

constexpr LRESULT kStatePushed = 0x0004;
constexpr LRESULT kStateFocus = 0x0008;

struct ButtonState : ControlState {
    UINT check = BST_UNCHECKED;
    bool pushed = false;    // drawn as pressed
    bool tracking = false;  // a mouse button or the space bar went down in it
};

struct ButtonKind {
    DWORD type;
    bool checkable;
    bool radio;
    LRESULT dialogCode;
};

constexpr ButtonKind kKinds[] = {
    {BS_PUSHBUTTON, false, false, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON},
    {BS_DEFPUSHBUTTON, false, false, DLGC_BUTTON | DLGC_DEFPUSHBUTTON},
    {BS_CHECKBOX, true, false, DLGC_BUTTON},
    {BS_AUTOCHECKBOX, true, false, DLGC_BUTTON},
    {BS_RADIOBUTTON, true, true, DLGC_BUTTON | DLGC_RADIOBUTTON},
    {BS_AUTORADIOBUTTON, true, true, DLGC_BUTTON | DLGC_RADIOBUTTON},
    {BS_GROUPBOX, false, false, DLGC_STATIC},
    {BS_OWNERDRAW, false, false, DLGC_BUTTON},
};

const ButtonKind& KindFor(const Window& window) {
    for (const ButtonKind& kind : kKinds) {
        if (kind.type == TypeBits(window, BS_TYPEMASK)) return kind;
    }
    return kKinds[0];
}

bool IsType(const Window& window, DWORD type) {
    return TypeBits(window, BS_TYPEMASK) == type;
}

void Redraw(const Window& window) {
    if (IsType(window, BS_OWNERDRAW)) InvalidateRect(window.handle, nullptr, TRUE);
}

void SetPushed(Window& window, bool pushed) {
    ButtonState& state = StateOf<ButtonState>(window);
    if (state.pushed == pushed) return;
    state.pushed = pushed;
    Redraw(window);
}

void SetCheck(Window& window, UINT check) {
    const ButtonKind& kind = KindFor(window);
    if (!kind.checkable) return;
    check = check != BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED;
    // The tab key stops at the checked button of a group.
    if (kind.radio) {
        window.style = check ? window.style | WS_TABSTOP : window.style & ~DWORD{WS_TABSTOP};
    }
    ButtonState& state = StateOf<ButtonState>(window);
    if (state.check == check) return;
    state.check = check;
    TellChanged(window.handle, kChangedCheck);
}

// A group runs from a sibling with WS_GROUP to the one before the next; the radio buttons in it
// exclude each other.
void ClearOthersOfGroup(const Window& button) {
    const Window* parent = WindowFromHandle(button.parent);
    if (!parent) return;
    const std::vector<HWND>& siblings = parent->children;
    const auto self = std::find(siblings.begin(), siblings.end(), button.handle);
    if (self == siblings.end()) return;
    const size_t position = static_cast<size_t>(self - siblings.begin());
    auto startsGroup = [&siblings](size_t index) {
        const Window* window = WindowFromHandle(siblings[index]);
        return window && (window->style & WS_GROUP) != 0;
    };
    size_t first = position;
    while (first > 0 && !startsGroup(first)) --first;
    // By index, because a subclassed sibling might create windows meanwhile.
    for (size_t i = first; i < siblings.size() && (i <= position || !startsGroup(i)); ++i) {
        const Window* sibling = WindowFromHandle(siblings[i]);
        if (!sibling || i == position || KindOf(siblings[i]) != "button") continue;
        if (IsType(*sibling, BS_AUTORADIOBUTTON)) {
            SendMessageA(siblings[i], BM_SETCHECK, BST_UNCHECKED, 0);
        }
    }
}

void CarryOutClick(HWND handle) {
    Window* window = WindowFromHandle(handle);
    if (!window || IsType(*window, BS_GROUPBOX)) return;
    if (IsType(*window, BS_AUTOCHECKBOX)) {
        const UINT check = StateOf<ButtonState>(*window).check;
        SendMessageA(handle, BM_SETCHECK, check ? BST_UNCHECKED : BST_CHECKED, 0);
    } else if (IsType(*window, BS_AUTORADIOBUTTON)) {
        ClearOthersOfGroup(*window);
        SendMessageA(handle, BM_SETCHECK, BST_CHECKED, 0);
    }
    Notify(handle, BN_CLICKED);
}

void Press(HWND handle) {
    if (Window* window = WindowFromHandle(handle)) {
        StateOf<ButtonState>(*window).tracking = true;
        SetPushed(*window, true);
    }
}

enum class Release { kInside, kOutside };

void LetGo(HWND handle, Release where) {
    Window* window = WindowFromHandle(handle);
    if (!window || !StateOf<ButtonState>(*window).tracking) return;
    StateOf<ButtonState>(*window).tracking = false;
    SetPushed(*window, false);
    if (where == Release::kInside) CarryOutClick(handle);
}

void OnMouseDown(HWND handle) {
    const Window* window = WindowFromHandle(handle);
    if (IsType(*window, BS_GROUPBOX)) return;
    if (TakeFocus(handle)) Press(handle);
}

// The second click of a double click is an ordinary one, save for the kinds that report it.
void OnDoubleClick(HWND handle) {
    const Window* window = WindowFromHandle(handle);
    if (IsType(*window, BS_OWNERDRAW) || IsType(*window, BS_RADIOBUTTON)) {
        Notify(handle, BN_DOUBLECLICKED);
    } else {
        OnMouseDown(handle);
    }
}

void OnMouseMove(Window& window, LPARAM lParam) {
    if (StateOf<ButtonState>(window).tracking) {
        SetPushed(window, InClient(window, PointOf(lParam)));
    }
}

LRESULT StateBits(Window& window) {
    const ButtonState& state = StateOf<ButtonState>(window);
    return static_cast<LRESULT>(state.check) | (state.pushed ? kStatePushed : 0) |
           (GetFocus() == window.handle ? kStateFocus : 0);
}

void SetType(Window& window, WPARAM style) {
    const DWORD type = static_cast<DWORD>(style) & BS_TYPEMASK;
    if (IsType(window, type)) return;
    window.style = (window.style & ~DWORD{BS_TYPEMASK}) | type;
    TellChanged(window.handle, kChangedStyle);
    Redraw(window);
}

LRESULT OnFocusChange(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (message == WM_KILLFOCUS) LetGo(handle, Release::kOutside);
    Redraw(*window);
    return DefWindowProcA(handle, message, wParam, lParam);
}

LRESULT OnDefault(Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND handle = window.handle;
    const LRESULT result = DefWindowProcA(handle, message, wParam, lParam);
    if (message == WM_SETTEXT || message == WM_ENABLE) {
        if (const Window* after = WindowFromHandle(handle)) Redraw(*after);
    }
    return result;
}

}  // namespace

LRESULT ButtonProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    if (AsksForHelp(message, wParam)) return DefWindowProcA(handle, message, wParam, lParam);
    switch (message) {
        case WM_GETDLGCODE:
            return KindFor(*window).dialogCode;
        case BM_GETCHECK:
            return static_cast<LRESULT>(StateOf<ButtonState>(*window).check);
        case BM_SETCHECK:
            return SetCheck(*window, static_cast<UINT>(wParam)), 0;
        case BM_GETSTATE:
            return StateBits(*window);
        case BM_SETSTATE:
            return SetPushed(*window, wParam != 0), 0;
        case BM_SETSTYLE:
            return SetType(*window, wParam), 0;
        case BM_CLICK:
            OnMouseDown(handle);
            return LetGo(handle, Release::kInside), 0;
        case WM_LBUTTONDOWN:
            return OnMouseDown(handle), 0;
        case WM_LBUTTONDBLCLK:
            return OnDoubleClick(handle), 0;
        case WM_MOUSEMOVE:
            return OnMouseMove(*window, lParam), 0;
        case WM_LBUTTONUP: {
            const bool inside = InClient(*window, PointOf(lParam));
            return LetGo(handle, inside ? Release::kInside : Release::kOutside), 0;
        }
        case WM_KEYDOWN:
            if (wParam == VK_SPACE) Press(handle);
            return 0;
        case WM_KEYUP:
            if (wParam == VK_SPACE) LetGo(handle, Release::kInside);
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            return OnFocusChange(handle, message, wParam, lParam);
        default:
            return OnDefault(*window, message, wParam, lParam);
    }
}

}  // namespace kv
