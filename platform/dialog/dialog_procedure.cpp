// The dialog class: its window procedure calls the program's dialog procedure first and does the
// rest.
#include <platform/dialog/dialog.h>
#include <platform/window/core.h>

namespace kv {
namespace {

// Messages whose result is what the dialog procedure returns, not DWLP_MSGRESULT.
bool ReturnsDirectly(UINT message) {
    switch (message) {
        case WM_INITDIALOG:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSTATIC:
            return true;
        default:
            return false;
    }
}

bool IsDisabledItem(HWND dialog, int id) {
    const Window* item = FindWindowRecord(GetDlgItem(dialog, id));
    return item && item->IsDisabledStyle();
}

LRESULT OnClose(HWND dialog) {
    if (IsDisabledItem(dialog, IDCANCEL)) {
        MessageBeep(0);
    } else {
        PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
    }
    return 0;
}

LRESULT OnErase(HWND dialog, HDC dc) {
    const LRESULT brush = SendMessageA(dialog, WM_CTLCOLORDLG, reinterpret_cast<WPARAM>(dc),
                                       reinterpret_cast<LPARAM>(dialog));
    RECT area{};
    if (brush && GetClientRect(dialog, &area)) FillRect(dc, &area, reinterpret_cast<HBRUSH>(brush));
    return TRUE;
}

// A dialog never keeps the focus itself: it goes to the control that had it, else to the first.
LRESULT OnSetFocus(HWND handle, Window& dialog) {
    const HWND saved = std::exchange(dialog.savedFocus, nullptr);
    if (saved && Contains(handle, saved) && IsWindowVisible(saved) && SetFocus(saved)) return 0;
    if (const HWND first = GetNextDlgTabItem(handle, nullptr, FALSE))
        MoveDialogFocus(handle, first);
    return 0;
}

LRESULT OnNextControl(HWND dialog, WPARAM wParam, bool isHandle) {
    const HWND root = RootOf(dialog);
    HWND next = reinterpret_cast<HWND>(wParam);
    if (!isHandle) next = GetNextDlgTabItem(dialog, GetFocus(), wParam != 0);
    if (next && FindWindowRecord(next)) MoveDialogFocus(root, next);
    return 0;
}

LRESULT SetDefaultId(HWND handle, Window& dialog, int id) {
    dialog.dialog->defaultId = id;
    MarkDefaultButton(handle, GetFocus());
    return TRUE;
}

LRESULT Default(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = FindWindowRecord(handle);
    if (!window) return 0;
    switch (message) {
        case WM_CLOSE:
            return OnClose(handle);
        case WM_ERASEBKGND:
            return OnErase(handle, reinterpret_cast<HDC>(wParam));
        case WM_SETFOCUS:
            return OnSetFocus(handle, *window);
        case WM_NEXTDLGCTL:
            return OnNextControl(handle, wParam, LOWORD(static_cast<std::uintptr_t>(lParam)) != 0);
        case DM_SETDEFID:
            return SetDefaultId(handle, *window, static_cast<int>(wParam));
        case DM_GETDEFID: {
            const int id = window->dialog->defaultId;
            return id ? MAKELONG(static_cast<unsigned>(id), DC_HASDEFID) : 0;
        }
        default:
            return DefWindowProcA(handle, message, wParam, lParam);
    }
}

}  // namespace

void RegisterDialogClass() {
    RegisterSystemClass(kDialogClass, "dialog", DefDlgProcA);
}

}  // namespace kv

using namespace kv;

LRESULT WINAPI DefDlgProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    if (!window->dialog) return DefWindowProcA(handle, message, wParam, lParam);
    if (const DLGPROC procedure = window->dialog->procedure) {
        window->dialog->messageResult = 0;
        const CallScope scope;
        const INT_PTR handled = procedure(handle, message, wParam, lParam);
        window = FindWindowRecord(handle);
        if (!window) return handled;
        if (handled) return ReturnsDirectly(message) ? handled : window->dialog->messageResult;
    }
    return Default(handle, message, wParam, lParam);
}
