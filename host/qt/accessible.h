// Windows as screen readers meet them where Qt's own widgets say too little: texts and pictures,
// arrows beside an edit, pages. Installed by the display.
#pragma once

#include <host/qt/qt_display.h>

namespace kvqt {

// At most one display is described at a time.
void DescribeDisplay(const QtDisplay* display);

// The picture of a window changed, and with it what it says. Does nothing while nobody listens.
void TellPictureChanged(QWidget* widget);

}  // namespace kvqt
