// The settings reactor: keeps the fields that the rendering side reads consistent with the module's
// own settings.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

enum class ReactScope { kOneControl, kWholePage };

// After every accepted change of a control (kOneControl), or to derive everything again
// (kWholePage, control id 0).
void React(SheetContext& context, DWORD controlId, ReactScope scope);
// After a rule forced the control's setting; only job settings have followers then.
void ReactToForced(SheetContext& context, DWORD controlId);
// What pages call on its own, wherever the setting changes.
void DeriveColorMatching(PrivateDevmode& settings);
// The reverse derivation, once per sheet.
void DeriveAtSheetStart(SheetContext& context);

}  // namespace kvui
