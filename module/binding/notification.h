// From a control's notification to a changed setting: the dispatcher that reads a control back by
// its type, and the command router of the pages.
#pragma once

#include "settings/item_catalogue.h"
#include "sheet/sheet_context.h"

namespace kvui {

// Private scroll code with which a slider's value edit says "store what I show".
constexpr WORD kScrollFromValueEdit = 1234;

// Reads the control back if the notification asks for it; true when a setting changed.
bool DispatchNotification(SheetContext& context, HWND page, DWORD controlId, WORD code);

// WM_COMMAND of a page or of a dialog that routes its commands: true when a setting changed.
bool RouteCommand(SheetContext& context, HWND page, DWORD controlId, WORD code);

// The item whose edit a spin control belongs to; null for other windows.
const ControlItem* ItemOfSpin(DWORD spinId);

}  // namespace kvui
