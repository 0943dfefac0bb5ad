// Conflict detection and resolution: after a control's new value is in the record, its rules are
// checked, the user is asked, and conflicting settings are forced to their rule's value.
#pragma once

#include <windows.h>

#include "rules/condition_set.h"
#include "sheet/sheet_context.h"

namespace kvui {

// 1 when the change may stand, 0 when the user cancelled (the control's setting is then back at the
// value it had at the call).
int ResolveConflicts(SheetContext& context, DWORD controlId, HWND page);

// Number of rules of the control; 0 when it has no conflict key or no rules.
int CountConflictRules(SheetContext& context, DWORD controlId);

// The additional condition of a target. An empty key is false.
bool EvaluateAddCondition(SheetContext& context, const char* key);

// Asks whether a target may be changed: 1 Resolve, 2 Cancel.
int AskConflictResolution(HWND page, SheetContext& context, LONG targetNegate, LONG targetAll,
                          DWORD triggerId, LONG triggerValue, DWORD targetId, LONG targetValue,
                          LONG forcedValue);

// The item's name and the text of one of its values, as the user sees them; buffers of
// kReportTextSize.
void DescribeItemValue(SheetContext& context, DWORD controlId, LONG value, LONG bitValue,
                       char* name, char* text);

}  // namespace kvui
