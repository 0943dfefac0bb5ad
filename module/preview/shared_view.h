// The preview panel that all pages of a sheet share. The pages say which views they offer, when they
// take the panel over and when it must repaint.
#pragma once

#include "ui/sheet_context.h"

namespace kvui {

// Which two views a page offers.
enum ViewKind : int { kViewPage = 1, kViewWatermark = 2, kViewQuality = 3, kViewDevice = 4 };

// Switches the shared view to the views of the page's kind.
void ShowViewKind(SheetContext& context, ViewKind kind);
// The page becomes the panel's parent.
void AttachSharedView(SheetContext& context);
// Repaints the panel after a change of a setting.
void UpdateSharedView(SheetContext& context);
// Sheet end.
void DestroySharedView(SharedSheet& shared);

}  // namespace kvui
