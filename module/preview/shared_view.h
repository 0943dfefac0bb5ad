// The preview panel that all pages of a sheet share. The pages say which views they offer, when they
// take the panel over and when it must repaint.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// Which two views a page offers. Pages without views of their own leave the panel as it is.
enum ViewKind : int {
    kViewNone = 0,
    kViewPage = 1,
    kViewWatermark = 2,
    kViewQuality = 3,
    kViewDevice = 4
};

// Creates the hidden panel, once per sheet.
void CreateSharedView(SheetContext& context);
// Switches the shared view to the views of the page's kind, starting with the printer figure where the
// page is about the device and with the page's own view elsewhere.
void ShowViewKind(SheetContext& context, ViewKind kind);
// The page becomes the panel's parent.
void AttachSharedView(SheetContext& context);
// Repaints the panel after a change of a setting.
void UpdateSharedView(SheetContext& context);
// Sheet end.
void DestroySharedView(SharedSheet& shared);

// What the colour sample of the quality view shows.
enum SampleMode : int { kSampleColour = 1, kSampleMonochrome = 8 };
void SetSampleMode(SheetContext& context, SampleMode mode);

// Makes a static frame of a dialog show the Paper View of the current settings until the frame is
// destroyed; the dialog invalidates the frame after each change.
void HookPaperView(SheetContext& context, HWND frame);
// The same with the printer figure.
void HookPrinterFigure(SheetContext& context, HWND frame);

}  // namespace kvui
