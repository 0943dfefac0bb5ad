// How the core and the controls report a change to the display in use. Controls call TellChanged
// after something really changed; while their window has WM_SETREDRAW switched off, the reports are
// gathered and told once when it is switched on again.
#pragma once

#include <windows.h>

#include <platform/display/display.h>

namespace kv {

// `changes` is a combination of kChanged* values. A stale handle is ignored.
void TellChanged(HWND window, unsigned changes);

}  // namespace kv
