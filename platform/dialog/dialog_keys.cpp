// The keys of dialogs: Tab, arrows, Enter, Escape, F1 and mnemonic letters, and the default
// button's mark that follows the focus.
#include <platform/controls/property_sheet.h>
#include <platform/dialog/dialog.h>
#include <platform/dialog/dialog_order.h>
#include <platform/window/core.h>
#include <platform/window/input.h>

namespace kv {
namespace {

constexpr LRESULT kPushButton = DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;

bool IsMarked(const Window& window) {
    return window.windowClass->kind == "button" && (window.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
}

HWND FindMarked(const Window& parent, HWND except) {
    for (HWND handle : parent.children) {
        const Window* child = FindWindowRecord(handle);
        if (!child) continue;
        if (handle != except && IsMarked(*child)) return handle;
        if (child->children.empty()) continue;
        if (const HWND marked = FindMarked(*child, except)) return marked;
    }
    return nullptr;
}

// Asked of dialogs only: to other windows the number is a message of their own.
int DefaultIdOf(HWND dialog) {
    const Window* window = FindWindowRecord(dialog);
    if (!window || !window->dialog) return IDOK;
    const auto answer = static_cast<std::uintptr_t>(SendMessageA(dialog, DM_GETDEFID, 0, 0));
    return HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : IDOK;
}

LRESULT CodeOf(HWND control, const MSG* message) {
    return SendMessageA(control, WM_GETDLGCODE, message ? message->wParam : 0,
                        reinterpret_cast<LPARAM>(message));
}

// Presses a button by its command, unless it is disabled. A missing button still sends its number:
// dialogs answer Escape without having a Cancel button.
bool Command(HWND dialog, int id) {
    const HWND button = GetDlgItem(dialog, id);
    const Window* window = FindWindowRecord(button);
    if (window && window->IsDisabledStyle()) {
        MessageBeep(0);
        return true;
    }
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(static_cast<unsigned>(id), BN_CLICKED),
                 reinterpret_cast<LPARAM>(button));
    return true;
}

bool OnEnter(HWND dialog, HWND focus, LRESULT code) {
    const Window* window = FindWindowRecord(focus);
    // The button with the focus carries the mark; on a nested page its own parent gets the command.
    if (window && (code & DLGC_DEFPUSHBUTTON) != 0) {
        return Command(window->parent, static_cast<int>(window->id));
    }
    return Command(dialog, DefaultIdOf(dialog));
}

// A handler of the loss may have sent the focus back: then the key has done all it can.
bool HasFocus(HWND control) {
    return FindWindowRecord(control) && GetFocus() == control;
}

bool OnArrow(HWND dialog, HWND focus, WPARAM key) {
    if (focus == dialog) return true;
    const bool back = key == VK_LEFT || key == VK_UP;
    const HWND next = NextInGroup(dialog, focus, back);
    if (!next || next == focus) return true;
    const LRESULT code = CodeOf(next, nullptr);
    MoveDialogFocus(dialog, next);
    // Walking through radio buttons chooses each.
    if ((code & DLGC_RADIOBUTTON) != 0 && HasFocus(next)) SendMessageA(next, BM_CLICK, 0, 0);
    return true;
}

bool OnTab(HWND dialog, HWND focus) {
    if (GetKeyState(VK_CONTROL) < 0) return false;
    const HWND next = GetNextDlgTabItem(dialog, focus, GetKeyState(VK_SHIFT) < 0);
    if (next && next != focus) MoveDialogFocus(dialog, next);
    return true;
}

bool OnKeyDown(HWND dialog, const MSG& message) {
    const HWND focus = message.hwnd;
    if (message.wParam == VK_F1) return SendHelpFor(focus), true;
    const LRESULT code = CodeOf(focus, &message);
    if ((code & DLGC_WANTALLKEYS) != 0) return false;
    switch (message.wParam) {
        case VK_TAB:
            return (code & DLGC_WANTTAB) == 0 && OnTab(dialog, focus);
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN:
            return (code & DLGC_WANTARROWS) == 0 && OnArrow(dialog, focus, message.wParam);
        case VK_RETURN:
            return OnEnter(dialog, focus, code);
        case VK_ESCAPE:
            return Command(dialog, IDCANCEL);
        default:
            return false;
    }
}

bool OnMnemonic(HWND dialog, HWND focus, char letter) {
    const MnemonicTarget target = FindMnemonic(dialog, focus, letter);
    if (!target.control) return false;
    const LRESULT code = CodeOf(target.control, nullptr);
    MoveDialogFocus(dialog, target.control);
    // With one letter on several controls it only walks among them.
    if (target.itsOwn && target.unique && (code & (DLGC_BUTTON | kPushButton)) != 0 &&
        HasFocus(target.control)) {
        SendMessageA(target.control, BM_CLICK, 0, 0);
    }
    return true;
}

bool OnCharacter(HWND dialog, const MSG& message) {
    const char letter = static_cast<char>(message.wParam);
    if (static_cast<unsigned char>(letter) <= ' ') return false;
    if (message.message == WM_SYSCHAR) {
        if (!OnMnemonic(dialog, message.hwnd, letter)) MessageBeep(0);
        return true;
    }
    const LRESULT code = CodeOf(message.hwnd, &message);
    if ((code & (DLGC_WANTCHARS | DLGC_WANTALLKEYS)) != 0) return false;
    return OnMnemonic(dialog, message.hwnd, letter);
}

bool IsUsedUp(HWND dialog, const MSG& message) {
    const bool key = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
    if (key && KindOf(dialog) == "sheet" &&
        SheetHandlesKey(dialog, static_cast<int>(message.wParam), input::CurrentModifiers())) {
        return true;
    }
    switch (message.message) {
        case WM_KEYDOWN:
            return OnKeyDown(dialog, message);
        case WM_CHAR:
        case WM_SYSCHAR:
            return OnCharacter(dialog, message);
        default:
            return false;
    }
}

}  // namespace

void MarkDefaultButton(HWND root, HWND focus) {
    root = RootOf(root);
    const Window* window = FindWindowRecord(root);
    if (!window || !window->dialog) return;
    const bool push = focus && Contains(root, focus) && (CodeOf(focus, nullptr) & kPushButton) != 0;
    const HWND wanted = push ? focus : GetDlgItem(root, DefaultIdOf(root));
    // One message may take windows away, so the search starts anew after each.
    while ((window = FindWindowRecord(root))) {
        const HWND marked = FindMarked(*window, wanted);
        if (!marked) break;
        SendMessageA(marked, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
        const Window* after = FindWindowRecord(marked);
        if (after && IsMarked(*after)) break;  // a subclass keeps it
    }
    const Window* button = FindWindowRecord(wanted);
    if (button && !IsMarked(*button) && (CodeOf(wanted, nullptr) & kPushButton) != 0) {
        SendMessageA(wanted, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    }
}

void MoveDialogFocus(HWND root, HWND control) {
    if ((CodeOf(control, nullptr) & DLGC_HASSETSEL) != 0) {
        SendMessageA(control, EM_SETSEL, 0, -1);
    }
    SetFocus(control);
    MarkDefaultButton(root, GetFocus());
}

}  // namespace kv

using namespace kv;

BOOL WINAPI IsDialogMessageA(HWND dialog, MSG* message) {
    if (!message || !FindWindowRecord(dialog) || !Contains(dialog, message->hwnd)) return FALSE;
    const CallScope scope;
    if (!IsUsedUp(dialog, *message)) {
        TranslateMessage(message);
        DispatchMessageA(message);
    }
    return TRUE;
}
