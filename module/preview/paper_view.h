// The Paper View: a drawing of the printed sheet with the settings in force. The preview panel and the
// pages-per-sheet dialog show it.
#pragma once

#include "preview/paper_plan.h"
#include "sheet/sheet_context.h"

namespace kvui {

PaperSettings PaperSettingsOf(const SheetContext& context);
void PaintPaperView(SheetContext& context, HDC dc, SIZE size);

}  // namespace kvui
