// Which keys the core's dialog manager decides on, and which the native widgets keep.
#pragma once

#include <host/qt/qt_display.h>

#include <QKeyEvent>
#include <QWidget>

namespace kvqt {

// For key presses and the question that precedes them (QEvent::ShortcutOverride). True when the
// core took the key.
bool HandleKey(QtDisplay& display, QWidget& widget, QKeyEvent& event);

// Whether arrows beside an edit turn its number.
bool HasArrows(HWND edit);

}  // namespace kvqt
