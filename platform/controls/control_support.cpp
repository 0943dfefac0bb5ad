// Implementation of the helpers that the control procedures share.
#include <platform/controls/control_support.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace kv {

bool Notify(HWND control, WORD code) {
    Window* window = WindowFromHandle(control);
    if (!window) return false;
    NotifyParent(*window, code);
    return WindowFromHandle(control) != nullptr;
}

LRESULT NotifyFocus(HWND control, Focused now, WORD code) {
    const Window* window = WindowFromHandle(control);
    if (!window || !window->state) return 0;
    const bool focused = now == Focused::kYes;
    if (std::exchange(window->state->focused, focused) != focused) Notify(control, code);
    return 0;
}

LRESULT NotifyWith(HWND control, NMHDR& header, UINT code) {
    const Window* window = WindowFromHandle(control);
    if (!window) return 0;
    header = {control, window->id, code};
    const UINT id = window->id;
    return SendMessageA(GetParent(control), WM_NOTIFY, id, reinterpret_cast<LPARAM>(&header));
}

LRESULT CopyOut(std::string_view text, LPARAM buffer) {
    if (auto* out = reinterpret_cast<char*>(buffer)) {
        std::memcpy(out, text.data(), text.size());
        out[text.size()] = '\0';
    }
    return static_cast<LRESULT>(text.size());
}

bool TakeFocus(HWND control) {
    if (GetFocus() != control) SetFocus(control);
    return WindowFromHandle(control) && GetFocus() == control;
}

bool InClient(const Window& window, POINT point) {
    return point.x >= 0 && point.y >= 0 && point.x < window.rect.right - window.rect.left &&
           point.y < window.rect.bottom - window.rect.top;
}

namespace {

unsigned char Fold(char letter) {
    const auto code = static_cast<unsigned char>(letter);
    const bool accented = code >= 0xC0 && code <= 0xDE && code != 0xD7;
    return (code >= 'A' && code <= 'Z') || accented ? code + 0x20 : code;
}

}  // namespace

int CompareFolded(std::string_view left, std::string_view right) {
    const size_t common = std::min(left.size(), right.size());
    for (size_t i = 0; i < common; ++i) {
        const int difference = Fold(left[i]) - Fold(right[i]);
        if (difference != 0) return difference;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

bool StartsWithFolded(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() &&
           CompareFolded(text.substr(0, prefix.size()), prefix) == 0;
}

}  // namespace kv
