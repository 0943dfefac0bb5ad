// What a display may want to know of a message box beyond its controls.
#pragma once

#include <windows.h>

#include <initializer_list>

namespace kv {

// A message box whose buttons, those that `type` names, have captions of their own. Answers what
// MessageBoxA answers.
struct ButtonText {
    int id;
    const char* text;
};
int AskWithButtons(HWND owner, const char* text, const char* caption, UINT type,
                   std::initializer_list<ButtonText> buttons);

// The MB_* flags that a message box was opened with; false when the dialog is none.
bool GetMessageBoxType(HWND dialog, UINT* type);

}  // namespace kv
