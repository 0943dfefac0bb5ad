// Small things every control does: notifying its parent, reading the modifier keys, taking the
// focus. A handler of a notification may destroy the control, so what notifies also says whether
// the control still lives; after that its record must be looked up anew.
#pragma once

#include <platform/window/window.h>

#include <windows.h>

#include <string_view>

namespace kv {

// Sends WM_COMMAND with the code; false when the control is gone afterwards.
bool Notify(HWND control, WORD code);
// EN_SETFOCUS, EN_KILLFOCUS and their like. They come in pairs: a control that was passed over,
// since a handler moved the focus on before it arrived, says nothing.
enum class Focused { kNo, kYes };
LRESULT NotifyFocus(HWND control, Focused now, WORD code);
// Sends WM_NOTIFY with a structure that begins with `header`, whose fields are filled here.
LRESULT NotifyWith(HWND control, NMHDR& header, UINT code);

// Copies text out for messages that trust the caller's buffer, as CB_GETLBTEXT does.
LRESULT CopyOut(std::string_view text, LPARAM buffer);
// Never null, for texts that come in through a message.
inline const char* TextOf(LPARAM text) {
    return text ? reinterpret_cast<const char*>(text) : "";
}

// F1 asks for help in every control; that is the default procedure's work.
inline bool AsksForHelp(UINT message, WPARAM wParam) {
    return message == WM_KEYDOWN && wParam == VK_F1;
}
inline bool KeyIsDown(int virtualKey) {
    return GetKeyState(virtualKey) < 0;
}

// Moves the focus to a control that a mouse button went down in; false when a handler took it away
// again, which ends the click, or when the control is gone.
bool TakeFocus(HWND control);

inline unsigned TypeBits(const Window& window, DWORD mask) {
    return window.style & mask;
}
inline POINT PointOf(LPARAM lParam) {
    return {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
}
bool InClient(const Window& window, POINT point);

// Upper and lower case compare equal, also for the accented letters of the Western code page.
int CompareFolded(std::string_view left, std::string_view right);
bool StartsWithFolded(std::string_view text, std::string_view prefix);

}  // namespace kv
