// Edits bound to settings: limits, text form, typing filter and read-back.
#pragma once

#include <string>

#include "settings/item_catalogue.h"
#include "sheet/sheet_context.h"

namespace kvui {

struct EditLimits {
    LONG maxCharacters;
    LONG minimum;
    LONG maximum;
};
// The catalogue's limits, or the rules file's where it overrides them.
EditLimits LimitsOf(const ControlItem& item);

void FillEdit(SheetContext& context, HWND dialog, const ControlItem& item);
// Removes what the edit does not accept, with a beep for each character; called while typing.
void FilterTyping(HWND edit, const ControlItem& item);

// The decimal number that a text begins with, 0 without one. The point is one in every locale.
double NumberOfText(const char* text);

struct EditReading {
    bool valid;  // false: nothing to write (an empty job number was reported instead)
    DWORD value;
};
// The typed number, scaled and clamped.
EditReading ReadEdit(SheetContext& context, HWND dialog, const ControlItem& item);
// The user name goes into the private settings as text; true when it changed.
bool ReadUserName(SheetContext& context, HWND edit);

}  // namespace kvui
