// Size of a paper by its code: papers of the printer description and the user's own. Asked by the
// paper conditions of the rules and by the watermark's diagonal.
#pragma once

#include <kvcore.h>

#include <vector>

#include "sheet/sheet_context.h"

namespace kvui {

constexpr LONG kFirstCustomPaper = 512;

// False when there is no such paper. The unit is the one its maker worked in.
bool PaperSizeOfCode(const SheetContext& context, LONG paperCode, PaperSizeInfo& size);

// Papers of the scope that the caller may see, in stored order.
std::vector<CustomPaperRecord> VisiblePapers(SheetContext& context);

}  // namespace kvui
