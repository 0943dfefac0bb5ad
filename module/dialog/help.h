// Page help (a topic of the help file) and popup help of a control.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

void ShowPageHelp(const SheetContext& context, HWND page, int topic);
// For WM_HELP; controls without a help id get nothing.
void ShowPopupHelp(const SheetContext& context, HWND page, const HELPINFO* info);

}  // namespace kvui
