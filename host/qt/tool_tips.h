// The texts of the core's tooltip controls.
#pragma once

#include <windows.h>

#include <QString>

namespace kvqt {

// The tip for a place in a window's client area; empty when no tool is there.
QString ToolTipAt(HWND window, POINT place);
// Why the control there is disabled; else that tip, or else in words what a picture at the place
// shows.
QString TipAt(HWND window, POINT place);

}  // namespace kvqt
