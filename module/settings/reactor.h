// The settings reactor: keeps the fields that the rendering side reads consistent with the module's
// own settings.
#pragma once

#include "ui/sheet_context.h"

namespace kvui {

enum class ReactScope { kOneControl, kWholePage };

// After every accepted change of a control (kOneControl), or to derive everything again
// (kWholePage, control id 0).
void React(SheetContext& context, DWORD controlId, ReactScope scope);
// The two settings of several bits that are brought into a valid form wherever they change.
void NormaliseDistribution(PrivateDevmode& settings);
void NormaliseJobPassword(PrivateDevmode& settings);
// The reverse derivation, once per sheet.
void DeriveAtSheetStart(SheetContext& context);

}  // namespace kvui
