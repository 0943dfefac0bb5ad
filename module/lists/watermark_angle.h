// The angle of diagonal watermarks follows the paper in force; pages that change the paper or its
// orientation call these.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// Degrees of the paper's diagonal; marks landscape and "diagonal known" in mdmOtherSettings.
double DiagonalAngle(SheetContext& context);
// Fetches a watermark's record, with a diagonal angle brought up to date in the list; false when
// the list has no such entry.
bool FetchWatermark(SheetContext& context, DWORD watermarkId, WatermarkRecord& record);
// The chosen watermark's record, up to date, into the private settings.
void UpdateChosenWatermark(SheetContext& context);

}  // namespace kvui
