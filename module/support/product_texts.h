// The texts that tell which product this is, on the Troubleshooting page and in the about box.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// The model's name, larger and bold, and the module's version. Again after the controls got their
// captions anew.
void ShowProductTexts(const SheetContext& context, HWND dialog);
// When the dialog is destroyed.
void ReleaseProductTexts(HWND dialog);

}  // namespace kvui
