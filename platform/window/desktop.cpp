// The desktop, which stands for the parent that a top-level window does not have, and SetParent.
#include <platform/display/tell.h>
#include <platform/window/core.h>

using namespace kv;

HWND WINAPI GetDesktopWindow() {
    static const HWND desktop = [] {
        static WindowClass desktopClass;
        desktopClass.name = "#32769";
        desktopClass.procedure = DefWindowProcA;
        Window& window = AddWindowRecord();
        window.windowClass = &desktopClass;
        window.procedure = desktopClass.procedure;
        window.style = WS_VISIBLE;
        window.rect = {0, 0, GetSystemMetrics(0), GetSystemMetrics(1)};
        SetDesktop(window.handle);
        return window.handle;
    }();
    return desktop;
}

HWND WINAPI SetParent(HWND handle, HWND newParent) {
    Window* window = WindowFromHandle(handle);
    if (!window) return nullptr;
    const HWND desktop = GetDesktopWindow();
    if (newParent == desktop) newParent = nullptr;
    if (newParent && !WindowFromHandle(newParent)) return nullptr;
    if (handle == desktop || Contains(handle, newParent)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const HWND previous = window->parent;
    if (previous != newParent) {
        Guarded(0, [&] {
            Unlink(*window);
            Link(*window, newParent, Place::kFirst);
            return 0;
        });
        TellChanged(handle, kChangedParent);
        InvalidateRect(handle, nullptr, TRUE);
    }
    return previous ? previous : desktop;
}
