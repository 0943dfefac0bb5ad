// The conflict check itself, over any store of control values: the settings record (the property
// pages) or the selected record of a list-entry edit dialog. Used inside module/rules only.
#pragma once

#include <windows.h>

#include "rules/parsed_rules.h"
#include "sheet/sheet_context.h"

namespace kvui {

class ConflictValues {
 public:
    virtual ~ConflictValues() = default;
    // False when the control has no readable value.
    virtual bool Read(const ItemField& where, LONG* value) const = 0;
    virtual void Write(const ItemField& where, LONG value) = 0;
    // Which rules are conflict rules here, and whether a target is waived.
    virtual bool Applies(const ParsedRule& rule) const = 0;
    virtual bool IsWaived(const ParsedTarget& target) const = 0;
    // After a target was forced, before its own rules are checked.
    virtual void AfterForcing() = 0;
};

// 1 when the control's value may stand, 0 when the user cancelled.
int CheckConflicts(SheetContext& context, ConflictValues& values, DWORD controlId, HWND owner);

}  // namespace kvui
