// Fills controls from the settings record: one filler per item type, called at initialisation and
// from the refresh walk.
#pragma once

#include "settings/item_catalogue.h"
#include "sheet/sheet_context.h"

namespace kvui {

// Fills the item's control on a dialog; nothing happens when the dialog has no such control.
void FillControl(SheetContext& context, HWND dialog, const ControlItem& item);
// Fills every item of a dialog, type after type.
void InitialiseControls(SheetContext& context, HWND dialog, const char* dialogName);
// Fills every item of a dialog in one walk in table order (first-page and combination dialogs).
void InitialiseInTableOrder(SheetContext& context, HWND dialog, const char* dialogName);

// The refresh walk: hidden controls, contents, gray-out; a second pass when a rule forced
// something.
void RefreshDialog(SheetContext& context, HWND dialog, const char* dialogName);

// The item's part of its setting; 0 for items that edit nothing.
DWORD ItemValue(const SheetContext& context, const ControlItem& item);
// Shows an icon in a picture control that the refresh walk also serves.
void ShowPicture(SheetContext& context, HWND picture, DWORD icon);
// Shows the icon of a value in the item's picture control.
void ShowItemPicture(SheetContext& context, HWND dialog, const ControlItem& item, DWORD value);

}  // namespace kvui
