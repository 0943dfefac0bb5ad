// Creation and destruction of windows. Both send messages whose handlers may destroy the very
// window, so every step looks the record up anew.
#include <platform/display/display.h>
#include <platform/window/core.h>

namespace kv {
namespace {

// The record with everything that is known before the first message.
Window* MakeRecord(WindowCreation& creation, const WindowClass& windowClass) {
    const CREATESTRUCTA& from = creation.parameters;
    const DWORD style = static_cast<DWORD>(from.style);
    const bool child = (style & WS_CHILD) != 0;
    Window& window = AddWindowRecord();
    window.windowClass = &windowClass;
    window.procedure = windowClass.procedure;
    // A top-level window is shown when it is complete.
    window.style = child ? style : style & ~DWORD{WS_VISIBLE};
    window.exStyle = from.dwExStyle;
    window.instance = from.hInstance;
    window.rect = {from.x, from.y, from.x + from.cx, from.y + from.cy};
    if (!IS_INTRESOURCE(from.lpszName)) window.text = from.lpszName;
    window.font = creation.font;
    window.dialog = std::move(creation.dialog);
    window.extra.resize((static_cast<size_t>(windowClass.extraBytes) + 7) / 8);
    if (child) {
        window.id = static_cast<UINT>(reinterpret_cast<std::uintptr_t>(from.hMenu));
    } else {
        window.owner = OwnerRootOf(from.hwndParent);
    }
    Link(window, child ? from.hwndParent : nullptr, Place::kLast);
    return &window;
}

void SendFirstPlacement(HWND handle) {
    const Window* window = FindWindowRecord(handle);
    if (!window) return;
    const RECT rect = window->rect;
    SendMessageA(handle, WM_SIZE, 0,
                 MAKELPARAM(static_cast<unsigned>(rect.right - rect.left),
                            static_cast<unsigned>(rect.bottom - rect.top)));
    if (!FindWindowRecord(handle)) return;
    SendMessageA(handle, WM_MOVE, 0,
                 MAKELPARAM(static_cast<unsigned>(rect.left), static_cast<unsigned>(rect.top)));
}

void FreeTree(HWND handle) {
    for (;;) {
        const Window* window = FindWindowRecord(handle);
        if (!window) return;
        if (window->children.empty()) break;
        FreeTree(window->children.front());
    }
    SendMessageA(handle, WM_NCDESTROY, 0, 0);
    Window* window = FindWindowRecord(handle);
    if (!window) return;
    if (window->announced) CurrentDisplay().Destroyed(handle);
    ForgetWindow(handle);
    DropMessagesOf(handle);
    window = FindWindowRecord(handle);
    if (!window) return;
    Unlink(*window);
    RemoveWindowRecord(*window);
}

// Parents hear of it before their children, who are all still there then.
void SendDestroy(HWND handle) {
    Window* window = FindWindowRecord(handle);
    if (!window || window->destroying) return;
    window->destroying = true;
    SendMessageA(handle, WM_DESTROY, 0, 0);
    for (size_t i = 0;; ++i) {
        window = FindWindowRecord(handle);
        if (!window || i >= window->children.size()) return;
        const HWND child = window->children[i];
        SendDestroy(child);
        // A handler took children out: start over, those that know already are skipped.
        window = FindWindowRecord(handle);
        if (window && (i >= window->children.size() || window->children[i] != child)) i = SIZE_MAX;
    }
}

void DestroyOwned(HWND owner) {
    for (;;) {
        HWND owned{};
        for (HWND candidate : TopLevelList()) {
            const Window* window = FindWindowRecord(candidate);
            if (window && window->owner == owner && !window->destroying) owned = candidate;
        }
        if (!owned) return;
        DestroyWindow(owned);
    }
}

bool ParentsAllow(const CREATESTRUCTA& parameters) {
    const HWND parent = parameters.hwndParent;
    if ((static_cast<DWORD>(parameters.style) & WS_CHILD) != 0 && !parent) {
        SetLastError(kErrorChildWithoutParent);
        return false;
    }
    if (!parent) return true;
    const Window* window = WindowFromHandle(parent);
    if (window && window->destroying) SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return window && !window->destroying;
}

}  // namespace

HWND CreateWindowFrom(WindowCreation& creation) {
    CREATESTRUCTA& parameters = creation.parameters;
    const WindowClass* windowClass = FindClass(parameters.lpszClass);
    if (!windowClass || !ParentsAllow(parameters)) return nullptr;
    const CallScope scope;
    const HWND handle = MakeRecord(creation, *windowClass)->handle;
    const auto parametersPointer = reinterpret_cast<LPARAM>(&parameters);
    if (!SendMessageA(handle, WM_NCCREATE, 0, parametersPointer)) {
        if (FindWindowRecord(handle)) FreeTree(handle);
        return nullptr;
    }
    Window* window = FindWindowRecord(handle);
    if (!window) return nullptr;
    window->announced = true;
    CurrentDisplay().Created(handle);
    if (SendMessageA(handle, WM_CREATE, 0, parametersPointer) == -1) {
        DestroyWindow(handle);
        return nullptr;
    }
    SendFirstPlacement(handle);
    window = FindWindowRecord(handle);
    if (!window) return nullptr;
    if ((static_cast<DWORD>(parameters.style) & WS_VISIBLE) != 0) {
        if ((window->style & WS_CHILD) == 0) {
            ShowWindow(handle, SW_SHOW);
        } else {
            SendMessageA(handle, WM_SHOWWINDOW, TRUE, 0);
        }
    }
    return FindWindowRecord(handle) ? handle : nullptr;
}

}  // namespace kv

using namespace kv;

HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR text, DWORD style, int x, int y,
                            int width, int height, HWND parent, HMENU idOrMenu, HINSTANCE instance,
                            LPVOID param) {
    return Guarded(HWND{}, [&] {
        WindowCreation creation;
        creation.parameters = {
            param, instance,  idOrMenu, parent, height, width, y, x, static_cast<LONG>(style),
            text,  className, exStyle};
        return CreateWindowFrom(creation);
    });
}

BOOL WINAPI DestroyWindow(HWND handle) {
    Window* window = WindowFromHandle(handle);
    if (!window || window->destroying || IsDesktop(handle)) return FALSE;
    const CallScope scope;
    if (window->dialog && window->dialog->disabledOwner) {
        EnableWindow(std::exchange(window->dialog->disabledOwner, nullptr), TRUE);
    }
    if ((window = FindWindowRecord(handle))) {
        window->style &= ~DWORD{WS_VISIBLE};
        LeaveHiddenWindow(handle);
    }
    if (FindWindowRecord(handle)) DestroyOwned(handle);
    SendDestroy(handle);
    FreeTree(handle);
    return TRUE;
}

BOOL WINAPI IsWindow(HWND handle) {
    return FindWindowRecord(handle) != nullptr;
}
