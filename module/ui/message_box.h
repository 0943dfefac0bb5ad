// The one function that shows the module's message boxes; adds right-to-left reading where the
// system's language asks for it.
#pragma once

#include <windows.h>

namespace kvui {

int ShowMessage(HWND owner, const char* text, const char* caption, UINT style);
// Loads text and caption from the string table.
int ShowMessageString(HWND owner, HINSTANCE strings, UINT textId, UINT captionId, UINT style);

}  // namespace kvui
