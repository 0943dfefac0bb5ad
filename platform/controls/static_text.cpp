// STATIC: texts, frames and pictures.
#include <platform/controls/classes.h>
#include <platform/controls/control_support.h>
#include <platform/display/tell.h>

#include <cstdlib>

namespace kv {
namespace {

constexpr WORD kStaticDoubleClicked = 1;

struct StaticState : ControlState {
    HANDLE image{};
    HBITMAP ownBitmap{};  // loaded by the control itself

    ~StaticState() override {
        if (ownBitmap) DeleteObject(ownBitmap);
    }
};

unsigned TypeOf(const Window& window) {
    return TypeBits(window, SS_TYPEMASK);
}

bool Holds(const Window& window, UINT imageType) {
    return TypeOf(window) == (imageType == IMAGE_ICON ? unsigned{SS_ICON} : unsigned{SS_BITMAP});
}

// A picture control takes the size of its picture, unless it centres it.
void FitToImage(Window& window, HANDLE image) {
    if (!image || (window.style & (SS_CENTERIMAGE | SS_REALSIZEIMAGE)) != 0) return;
    int width = GetSystemMetrics(SM_CXICON);
    int height = GetSystemMetrics(SM_CYICON);
    if (TypeOf(window) == SS_BITMAP) {
        BITMAP bitmap{};
        if (!GetObjectA(static_cast<HGDIOBJ>(image), sizeof bitmap, &bitmap)) return;
        width = bitmap.bmWidth;
        height = bitmap.bmHeight;
    }
    SetWindowPos(window.handle, nullptr, 0, 0, width, height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT SetImage(Window& window, UINT type, HANDLE image) {
    if (!Holds(window, type)) return 0;
    StaticState& state = StateOf<StaticState>(window);
    const HANDLE previous = state.image;
    if (previous != image) {
        state.image = image;
        FitToImage(window, image);
        TellChanged(window.handle, kChangedImage);
    }
    return reinterpret_cast<LRESULT>(previous);
}

LRESULT Image(Window& window, UINT type) {
    if (!Holds(window, type)) return 0;
    return reinterpret_cast<LRESULT>(StateOf<StaticState>(window).image);
}

// A picture control's text in the template names its resource: a name, or "#" and a number.
void LoadNamedImage(Window& window) {
    const bool icon = TypeOf(window) == SS_ICON;
    if ((!icon && TypeOf(window) != SS_BITMAP) || window.text.empty()) return;
    const bool numbered = window.text[0] == '#';
    const LPCSTR name = numbered ? MAKEINTRESOURCEA(static_cast<unsigned>(
                                       std::strtoul(window.text.c_str() + 1, nullptr, 10)))
                                 : window.text.c_str();
    StaticState& state = StateOf<StaticState>(window);
    if (icon) {
        state.image = LoadIconA(window.instance, name);
    } else {
        state.ownBitmap = LoadBitmapA(window.instance, name);
        state.image = state.ownBitmap;
    }
    window.text.clear();
    FitToImage(window, state.image);
}

}  // namespace

LRESULT StaticProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    const bool notifies = (window->style & SS_NOTIFY) != 0;
    switch (message) {
        case WM_CREATE:
            return LoadNamedImage(*window), 0;
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        case STM_SETICON:
            return SetImage(*window, IMAGE_ICON, reinterpret_cast<HANDLE>(wParam));
        case STM_GETICON:
            return Image(*window, IMAGE_ICON);
        case STM_SETIMAGE:
            return SetImage(*window, static_cast<UINT>(wParam), reinterpret_cast<HANDLE>(lParam));
        case STM_GETIMAGE:
            return Image(*window, static_cast<UINT>(wParam));
        case WM_LBUTTONDOWN:
            if (notifies) Notify(handle, STN_CLICKED);
            return 0;
        case WM_LBUTTONDBLCLK:
            if (notifies) Notify(handle, kStaticDoubleClicked);
            return 0;
        default:
            return DefWindowProcA(handle, message, wParam, lParam);
    }
}

}  // namespace kv
