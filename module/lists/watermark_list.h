// The list of watermarks as its page works it: what may be added, changed and deleted, and the
// record of the chosen one in the settings.
#pragma once

#include <vector>

#include "lists/list_room.h"
#include "sheet/sheet_context.h"

namespace kvui {

constexpr char kWatermarkSection[] = "Watermark";  // of the rules file
constexpr DWORD kFirstUserWatermark = 128;         // lower ids belong to the printer's description

// Null when the list could not be read.
inline ListHandle WatermarksOf(const SheetContext& context) {
    return context.shared->lists.handles[kListWatermark];
}
// In stored order, those of the scope that the caller sees.
std::vector<WatermarkRecord> VisibleWatermarks(const SheetContext& context);
bool IsCommonWatermark(const SheetContext& context, DWORD watermarkId);
ListRoom RoomForWatermarks(const SheetContext& context);
// The printer's own watermarks stay as they are, and common ones belong to administrators.
bool CanChangeWatermark(const SheetContext& context, DWORD watermarkId);
// Deletes the watermark from the sheet's copy of the list and chooses the one above it, or none.
void DeleteWatermark(SheetContext& context, DWORD watermarkId);
// The copy becomes the stored list and is read anew. False when it cannot be stored; what was
// changed is gone then.
bool CommitWatermarks(SheetContext& context);
// The record of the chosen watermark into the private settings, where the rendering side reads it.
// Zeros when no watermark is chosen and the list has no entry for that.
void CopyChosenWatermark(SheetContext& context);

}  // namespace kvui
