// The system's colours: GetSysColor, its brushes, and how they change.
#pragma once

#include <windows.h>

namespace kv {

// Brushes that were given out have the new colour, too. Other numbers than COLOR_* are passed over.
void SetSystemColor(int index, COLORREF color);

}  // namespace kv
