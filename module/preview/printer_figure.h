// The printer's figure: the machine with what is installed, and where paper comes from and goes to.
// Shown by the preview panel and by the mailbox dialog.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

void PaintPrinterFigure(SheetContext& context, HDC dc, SIZE size);

}  // namespace kvui
