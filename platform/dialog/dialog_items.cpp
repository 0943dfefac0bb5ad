// Controls of a dialog by their numbers, and dialog units.
#include <platform/window/core.h>

#include <algorithm>
#include <cstdio>
#include <limits>

namespace kv {
namespace {

constexpr int kUnitWidth = 6;
constexpr int kUnitHeight = 13;

struct Parsed {
    bool valid = false;
    UINT value = 0;
};

// Leading blanks, a sign if allowed, digits; whatever follows the digits is ignored.
Parsed ParseNumber(const char* text, BOOL isSigned) {
    while (*text == ' ' || *text == '\t') ++text;
    const bool negative = isSigned && *text == '-';
    if (negative) ++text;
    if (*text < '0' || *text > '9') return {};
    const std::uint64_t limit = !isSigned  ? std::numeric_limits<UINT>::max()
                                : negative ? std::uint64_t{1} << 31
                                           : std::numeric_limits<INT>::max();
    std::uint64_t value = 0;
    for (; *text >= '0' && *text <= '9'; ++text) {
        value = value * 10 + static_cast<unsigned>(*text - '0');
        if (value > limit) return {};
    }
    const UINT bits = static_cast<UINT>(value);
    return {true, negative ? 0u - bits : bits};
}

}  // namespace
}  // namespace kv

using namespace kv;

HWND WINAPI GetDlgItem(HWND dialog, int id) {
    const Window* window = WindowFromHandle(dialog);
    if (!window) return nullptr;
    const std::vector<UINT>& ids = window->childIds;
    const auto found = std::find(ids.begin(), ids.end(), static_cast<UINT>(id));
    if (found != ids.end()) return window->children[static_cast<size_t>(found - ids.begin())];
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return nullptr;
}

int WINAPI GetDlgCtrlID(HWND handle) {
    const Window* window = WindowFromHandle(handle);
    return window ? static_cast<int>(window->id) : 0;
}

LRESULT WINAPI SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam,
                                   LPARAM lParam) {
    const HWND control = GetDlgItem(dialog, id);
    return control ? SendMessageA(control, message, wParam, lParam) : 0;
}

BOOL WINAPI SetDlgItemTextA(HWND dialog, int id, LPCSTR text) {
    const HWND control = GetDlgItem(dialog, id);
    return control && SetWindowTextA(control, text);
}

UINT WINAPI GetDlgItemTextA(HWND dialog, int id, LPSTR buffer, int size) {
    if (buffer && size > 0) buffer[0] = '\0';
    const HWND control = GetDlgItem(dialog, id);
    return control ? static_cast<UINT>(GetWindowTextA(control, buffer, size)) : 0;
}

BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned) {
    char text[16];
    if (isSigned) {
        std::snprintf(text, sizeof text, "%d", static_cast<int>(value));
    } else {
        std::snprintf(text, sizeof text, "%u", value);
    }
    return SetDlgItemTextA(dialog, id, text);
}

UINT WINAPI GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned) {
    char text[256];
    Parsed parsed;
    if (GetDlgItemTextA(dialog, id, text, sizeof text) > 0) parsed = ParseNumber(text, isSigned);
    if (translated) *translated = parsed.valid;
    return parsed.value;
}

BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check) {
    const HWND control = GetDlgItem(dialog, id);
    if (!control) return FALSE;
    SendMessageA(control, BM_SETCHECK, check, 0);
    return TRUE;
}

UINT WINAPI IsDlgButtonChecked(HWND dialog, int id) {
    return static_cast<UINT>(SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int checked) {
    Window* window = WindowFromHandle(dialog);
    if (!window) return FALSE;
    const CallScope scope;
    for (size_t i = 0; window && i < window->childIds.size(); ++i) {
        const int id = static_cast<int>(window->childIds[i]);
        if (id < first || id > last) continue;
        const HWND button = window->children[i];
        SendMessageA(button, BM_SETCHECK, id == checked ? BST_CHECKED : BST_UNCHECKED, 0);
        window = FindWindowRecord(dialog);
    }
    return TRUE;
}

BOOL WINAPI MapDialogRect(HWND dialog, RECT* rect) {
    const Window* window = WindowFromHandle(dialog);
    if (!window || !rect) return FALSE;
    if (!window->dialog) {
        SetLastError(kErrorDialogParameter);
        return FALSE;
    }
    *rect = {MulDiv(rect->left, kUnitWidth, 4), MulDiv(rect->top, kUnitHeight, 8),
             MulDiv(rect->right, kUnitWidth, 4), MulDiv(rect->bottom, kUnitHeight, 8)};
    return TRUE;
}

LONG WINAPI GetDialogBaseUnits() {
    return MAKELONG(kUnitWidth, kUnitHeight);
}
