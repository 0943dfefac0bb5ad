// What the window core, the input layer and the property sheet need of the dialog manager beyond
// the platform's own calls.
#pragma once

#include <windows.h>

namespace kv {

inline constexpr char kDialogClass[] = "#32770";

// Registers the dialog class; called by the window core at its first use.
void RegisterDialogClass();

// Moves the focus inside a dialog as the Tab key does: selects an edit's text and keeps the mark of
// the default button on the button that Enter would press.
void MoveDialogFocus(HWND root, HWND control);
// Puts the default button's mark on `focus` when it is a push button, else on the dialog's own.
void MarkDefaultButton(HWND root, HWND focus);

}  // namespace kv
