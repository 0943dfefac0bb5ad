// The one function that shows the module's message boxes; adds right-to-left reading where the
// system's language asks for it.
#pragma once

#include <windows.h>

namespace kvui {

int ShowMessage(HWND owner, const char* text, const char* caption, UINT style);
// Loads text and caption from the string table.
int ShowMessageString(HWND owner, HINSTANCE strings, UINT textId, UINT captionId, UINT style);
// The same with a text that names something, by one %s.
int ShowMessageNaming(HWND owner, HINSTANCE strings, UINT textId, UINT captionId, const char* name,
                      UINT style);
// A control of a type that the calling code does not expect; `line` names the place. Goes on after.
void ShowDriverHalt(int line);
// A notification of a control whose type has no reader.
void ShowUnknownType(HWND owner);

}  // namespace kvui
