// The signs of message boxes. The platform has no pictures for them; a display brings its own.
#pragma once

#include <host/picture/control_view.h>

namespace kvhost {

// Draws the sign of the message box that the control stands in; nothing in other dialogs.
void DrawMessageIcon(Painter& painter, const ControlView& control);

}  // namespace kvhost
