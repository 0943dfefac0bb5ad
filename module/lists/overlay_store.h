// Overlay definitions in printer data, as far as every page needs them: the chosen overlay's file.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// Text of an overlay's entry ("%d=%s" entries, each zero-terminated) in a printer value; false and
// an empty text when there is none. Cut at a ";" and at the buffer's size.
bool ReadOverlayEntry(const SheetContext& context, const char* valueName, DWORD overlayId,
                      char* text, DWORD textSize);
// Reads the file path of the chosen overlay into the page state.
void ReadChosenOverlayPath(SheetContext& context);

}  // namespace kvui
