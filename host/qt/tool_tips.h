// The texts of the core's tooltip controls.
#pragma once

#include <windows.h>

#include <QString>

namespace kvqt {

// The tip for a place in a window's client area; empty when no tool is there.
QString ToolTipAt(HWND window, POINT place);

}  // namespace kvqt
