// The Watermark View: the current paper with the chosen watermark on its one page, once or
// repeated, and marks at its corners when an overlay is chosen.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

void PaintWatermarkView(SheetContext& context, HDC dc, SIZE size);

}  // namespace kvui
