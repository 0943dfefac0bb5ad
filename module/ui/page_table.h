// The property-sheet pages that the module offers to the UI host, and the captions of their tabs.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// Gives the sheet's tabs their captions where they still show template names.
void SetTabCaptions(const SheetContext& context);

}  // namespace kvui
