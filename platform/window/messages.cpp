// Sending messages: to any window, to a procedure, and those that ask a parent.
#include <platform/window/core.h>

namespace kv {
void SendHelpFor(HWND control) {
    const Window* window = FindWindowRecord(control);
    if (!window) return;
    HELPINFO info{};
    info.cbSize = sizeof info;
    info.iContextType = HELPINFO_WINDOW;
    info.iCtrlId = static_cast<int>(window->id);
    info.hItemHandle = control;
    info.MousePos = ClientOrigin(control);
    SendMessageA(control, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
}

LRESULT NotifyParent(Window& control, WORD code) {
    if (!control.parent) return 0;
    return SendMessageA(control.parent, WM_COMMAND, MAKEWPARAM(control.id, code),
                        reinterpret_cast<LPARAM>(control.handle));
}

}  // namespace kv

using namespace kv;

LRESULT WINAPI SendMessageA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    const CallScope scope;
    return window->procedure(handle, message, wParam, lParam);
}

LRESULT WINAPI CallWindowProcA(WNDPROC procedure, HWND handle, UINT message, WPARAM wParam,
                               LPARAM lParam) {
    if (!procedure) return 0;
    const CallScope scope;
    return procedure(handle, message, wParam, lParam);
}
