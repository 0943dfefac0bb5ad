// Size of a paper by its code: papers of the printer description and the user's own.
#pragma once

#include <kvcore.h>

#include "ui/sheet_context.h"

namespace kvui {

constexpr LONG kFirstCustomPaper = 512;

bool CurrentPaperSize(SheetContext& context, LONG paperCode, PaperSizeInfo& size);

}  // namespace kvui
