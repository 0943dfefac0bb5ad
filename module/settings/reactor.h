// The settings reactor: keeps the fields that the rendering side reads consistent with the module's
// own settings.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

enum class ReactScope { kOneControl, kWholePage };

// After every accepted change of a control (kOneControl), or to derive everything again
// (kWholePage, control id 0).
void React(SheetContext& context, DWORD controlId, ReactScope scope);
// What rules and pages call on its own, wherever these settings change.
void DeriveColorMatching(PrivateDevmode& settings);
void NormaliseDistribution(PrivateDevmode& settings);
void NormaliseJobPassword(PrivateDevmode& settings);
// The reverse derivation, once per sheet.
void DeriveAtSheetStart(SheetContext& context);

}  // namespace kvui
