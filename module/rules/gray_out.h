// What the rules file hides, disables or forces: show-by-option lines, hidden controls and gray-out
// rules. Called item by item from the refresh walk and the list fillers.
#pragma once

#include <windows.h>

#include "settings/item_catalogue.h"
#include "sheet/sheet_context.h"

namespace kvui {

struct CodeRecord;

// Whether the rules file has a line for it; what has none is always shown.
bool HasOptionLine(const char* key);
// 1 when the entry or control of that key is to be shown or enabled.
int IsShownByOptions(SheetContext& context, const char* key);
// Hides the control and its companions when its line is all zero; 1 when it was hidden already.
int HideControlByRule(SheetContext& context, HWND dialog, const ControlItem& item);
// Enables or disables the control by the gray-out rules and may force a setting; 1 when a rule
// disabled it.
int ApplyGrayOutIndex(SheetContext& context, HWND dialog, const ControlItem& item);
// One button of a list dialog; 1 when a rule disabled it.
int GrayButtonsByList(SheetContext& context, HWND dialog, const char* itemName, LONG value,
                      DWORD controlId, const char* listName);
// Whether a list-entry edit dialog may offer the value; see docs/rules.md.
int IsEntryValueAllowed(SheetContext& context, HWND dialog, DWORD controlId, LONG value,
                        LONG* replacement, LONG* hideCounter, const CodeRecord* entries);

}  // namespace kvui
