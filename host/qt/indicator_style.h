// The desktop's style with boxes and circles that can be told from their ground. Installed by the
// display.
#pragma once

namespace kvqt {

// For the style that desktops without one of their own get; others are left as they are.
void UseClearIndicators();

}  // namespace kvqt
