// What a display may want to know of a message box beyond its controls.
#pragma once

#include <windows.h>

namespace kv {

// The MB_* flags that a message box was opened with; false when the dialog is none.
bool GetMessageBoxType(HWND dialog, UINT* type);

}  // namespace kv
