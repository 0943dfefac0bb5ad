// What a window carries: text, the numbered words of GetWindowLongPtrA, and properties.
#include <platform/display/tell.h>
#include <platform/window/core.h>

#include <cstring>

namespace kv {
namespace {

LONG_PTR AsLong(std::uintptr_t value) {
    return static_cast<LONG_PTR>(value);
}

LONG_PTR* DialogWord(Window& window, int index) {
    if (!window.dialog) return nullptr;
    if (index == DWLP_MSGRESULT) return &window.dialog->messageResult;
    if (index == DWLP_USER) return &window.dialog->user;
    return nullptr;
}

// The word at a class's extra byte offset; only whole words are kept.
LONG_PTR* ExtraWord(Window& window, int index) {
    if (LONG_PTR* word = DialogWord(window, index)) return word;
    const auto slot = static_cast<size_t>(index) / sizeof(LONG_PTR);
    if (index < 0 || static_cast<size_t>(index) % sizeof(LONG_PTR) != 0 ||
        slot >= window.extra.size()) {
        return nullptr;
    }
    return &window.extra[slot];
}

LONG_PTR SetStyle(Window& window, DWORD style) {
    const DWORD before = std::exchange(window.style, style);
    TellStyleChange(window, before);
    return static_cast<LONG_PTR>(static_cast<LONG>(before));
}

LONG_PTR SetExStyle(Window& window, DWORD exStyle) {
    const DWORD before = std::exchange(window.exStyle, exStyle);
    if (before != exStyle) TellChanged(window.handle, kChangedStyle);
    return static_cast<LONG_PTR>(static_cast<LONG>(before));
}

LONG_PTR SetId(Window& window, UINT id) {
    const UINT before = window.id;
    SetWindowId(window, id);
    return static_cast<LONG_PTR>(before);
}

LONG_PTR InvalidIndex() {
    SetLastError(kErrorInvalidIndex);
    return 0;
}

bool IsDialogProcedure(const Window& window, int index) {
    return index == DWLP_DLGPROC && window.dialog;
}

}  // namespace

}  // namespace kv

using namespace kv;

BOOL WINAPI SetWindowTextA(HWND handle, LPCSTR text) {
    if (!WindowFromHandle(handle)) return FALSE;
    return SendMessageA(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text ? text : "")) != 0;
}

int WINAPI GetWindowTextA(HWND handle, LPSTR buffer, int size) {
    if (!buffer || size <= 0) return 0;
    buffer[0] = '\0';
    return static_cast<int>(SendMessageA(handle, WM_GETTEXT, static_cast<WPARAM>(size),
                                         reinterpret_cast<LPARAM>(buffer)));
}

int WINAPI GetWindowTextLengthA(HWND handle) {
    return static_cast<int>(SendMessageA(handle, WM_GETTEXTLENGTH, 0, 0));
}

LONG_PTR WINAPI GetWindowLongPtrA(HWND handle, int index) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    switch (index) {
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(window->procedure);
        case GWLP_HINSTANCE:
            return reinterpret_cast<LONG_PTR>(window->instance);
        case GWLP_HWNDPARENT:
            return reinterpret_cast<LONG_PTR>(GetParent(handle));
        case GWLP_ID:
            return AsLong(window->id);
        case GWL_STYLE:
            return static_cast<LONG>(window->style);
        case GWL_EXSTYLE:
            return static_cast<LONG>(window->exStyle);
        case GWLP_USERDATA:
            return window->userData;
        default:
            break;
    }
    if (IsDialogProcedure(*window, index)) {
        return reinterpret_cast<LONG_PTR>(window->dialog->procedure);
    }
    const LONG_PTR* word = ExtraWord(*window, index);
    return word ? *word : InvalidIndex();
}

LONG_PTR WINAPI SetWindowLongPtrA(HWND handle, int index, LONG_PTR value) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    switch (index) {
        case GWLP_WNDPROC:
            if (!value) return InvalidIndex();
            return reinterpret_cast<LONG_PTR>(
                std::exchange(window->procedure, reinterpret_cast<WNDPROC>(value)));
        case GWLP_HINSTANCE:
            return reinterpret_cast<LONG_PTR>(
                std::exchange(window->instance, reinterpret_cast<HINSTANCE>(value)));
        case GWLP_HWNDPARENT:
            if (window->parent)
                return reinterpret_cast<LONG_PTR>(SetParent(handle, reinterpret_cast<HWND>(value)));
            return reinterpret_cast<LONG_PTR>(
                std::exchange(window->owner, OwnerRootOf(reinterpret_cast<HWND>(value))));
        case GWLP_ID:
            return SetId(*window, static_cast<UINT>(value));
        case GWL_STYLE:
            return SetStyle(*window, static_cast<DWORD>(value));
        case GWL_EXSTYLE:
            return SetExStyle(*window, static_cast<DWORD>(value));
        case GWLP_USERDATA:
            return std::exchange(window->userData, value);
        default:
            break;
    }
    if (IsDialogProcedure(*window, index)) {
        return reinterpret_cast<LONG_PTR>(
            std::exchange(window->dialog->procedure, reinterpret_cast<DLGPROC>(value)));
    }
    LONG_PTR* word = ExtraWord(*window, index);
    return word ? std::exchange(*word, value) : InvalidIndex();
}

LONG WINAPI GetWindowLongA(HWND handle, int index) {
    return static_cast<LONG>(GetWindowLongPtrA(handle, index));
}

LONG WINAPI SetWindowLongA(HWND handle, int index, LONG value) {
    // A procedure does not fit; the genuine call fails for it in a 64-bit process, too.
    if (index == GWLP_WNDPROC || index == GWLP_HINSTANCE || index == GWLP_HWNDPARENT) {
        return static_cast<LONG>(InvalidIndex());
    }
    return static_cast<LONG>(SetWindowLongPtrA(handle, index, value));
}

BOOL WINAPI SetPropA(HWND handle, LPCSTR name, HANDLE data) {
    Window* window = WindowFromHandle(handle);
    if (!window || IS_INTRESOURCE(name)) return FALSE;
    return Guarded(FALSE, [&]() -> BOOL {
        const auto found = window->properties.find(name);
        if (found != window->properties.end()) {
            found->second = data;
        } else {
            window->properties.emplace(name, data);
        }
        return TRUE;
    });
}

HANDLE WINAPI GetPropA(HWND handle, LPCSTR name) {
    const Window* window = WindowFromHandle(handle);
    if (!window || IS_INTRESOURCE(name)) return nullptr;
    const auto found = window->properties.find(name);
    return found != window->properties.end() ? found->second : nullptr;
}

HANDLE WINAPI RemovePropA(HWND handle, LPCSTR name) {
    Window* window = WindowFromHandle(handle);
    if (!window || IS_INTRESOURCE(name)) return nullptr;
    const auto found = window->properties.find(name);
    if (found == window->properties.end()) return nullptr;
    const HANDLE data = found->second;
    window->properties.erase(found);
    return data;
}
