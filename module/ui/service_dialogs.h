// The dialogs that a service technician opens from the Device Options page.
#pragma once

#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

// "_ADVANCEDSETTINGS"; its creation parameter is the page's SheetContext.
INT_PTR CALLBACK AdvancedSettingsDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// Shows "_HUECORRECTION" over the window: the printer's colours for six hues. Cancel keeps what was
// stored while it was open.
void CorrectHues(SheetContext& context, HWND owner);

}  // namespace kvui
