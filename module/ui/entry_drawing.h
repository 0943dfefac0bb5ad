// Owner-drawn entries of combo boxes: the entry's icon and its text.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// For WM_DRAWITEM; false when the control is no combo box of the catalogue.
bool DrawComboEntry(const SheetContext& context, const DRAWITEMSTRUCT& draw);

}  // namespace kvui
