// The values that the controls of a list-entry edit dialog have: numbers of the code record that is
// selected in the control's list box. Used inside module/rules only.
#pragma once

#include <windows.h>

#include "rules/rules_file.h"
#include "settings/item_catalogue.h"

namespace kvui {

// 0 for a control that is bound to no list, or when nothing is selected.
LONG ReadEntryValue(HWND dialog, const ControlItem& item, const CodeRecord* entries);
// Writes nothing in those cases.
void WriteEntryValue(HWND dialog, const ControlItem& item, CodeRecord* entries, LONG value);

}  // namespace kvui
