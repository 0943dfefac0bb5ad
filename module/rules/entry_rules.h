// Rules of the list-entry edit dialogs, which edit the code records of a section instead of the
// settings record. Called by the code-record editor.
#pragma once

#include <windows.h>

#include "rules/rules_file.h"
#include "sheet/sheet_context.h"

namespace kvui {

// As ResolveConflicts, on the values that the dialog's controls show for the selected record.
// `entries` is the dialog's list, up to kMaxCodeRecords or to the first record without code and
// name.
int ResolveEntryConflicts(HWND dialog, SheetContext& context, DWORD controlId, CodeRecord* entries);

}  // namespace kvui
