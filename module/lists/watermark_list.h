// The list of watermarks as its page works it: what may be added, changed and deleted, and the
// record of the chosen one in the settings.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// No more watermarks may be added, common ones or the user's own.
bool IsWatermarkListFull(const SheetContext& context);
// The printer's own watermarks stay as they are, and common ones belong to administrators.
bool CanChangeWatermark(const SheetContext& context, DWORD watermarkId);
// Deletes the watermark from the sheet's copy of the list and chooses the one above it, or none.
void DeleteWatermark(SheetContext& context, DWORD watermarkId);
// The copy becomes the stored list and is read anew.
void CommitWatermarks(SheetContext& context);
// The record of the chosen watermark into the private settings, where the rendering side reads it.
// Zeros when no watermark is chosen and the list has no entry for that.
void CopyChosenWatermark(SheetContext& context);

}  // namespace kvui
