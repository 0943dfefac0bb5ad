// The editor's preview of a watermark: one page of the paper in force, in a frame of the dialog.
// The geometry turns offsets into per cent of half the page and into places of the sliders.
#pragma once

#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

// A paper as the page is read, on the screen.
struct WatermarkPaper {
    int scale;  // pixels per inch; 0: nothing can be shown
    SIZE size;  // in pixels
};
WatermarkPaper WatermarkPaperOf(SheetContext& context);

// One direction of the page: `pixels` of the picture are its width or its height. Offsets are in
// points (1/72 inch) from the middle of the page to that of the text, per cent of half the page.
struct WatermarkAxis {
    int scale;
    LONG pixels;

    double ExactPercentOf(LONG offset) const;  // within the range
    LONG PercentOf(LONG offset) const;         // rounded
    LONG OffsetOfPercent(LONG percent) const;
    LONG OffsetOfSlider(LONG percent) const;
};
constexpr LONG kMostPercent = 100;

// What the editor and its preview work on. Fields are reached by their places.
struct WatermarkEdit {
    bool isNew;
    int number;  // of the name that a new one is offered
    alignas(DWORD) WatermarkRecord record;
    WatermarkPaper paper;
    int colourRow;
    COLORREF otherColour;
    bool isShowing;  // fields are filled by the editor, not by the user
};

// Moves the picture to the middle of the frame, in the paper's size, and shows the preview there
// until the dialog goes.
void PlaceWatermarkPreview(SheetContext& context, HWND dialog, int frameId, int pictureId);
void DrawWatermarkPreview(SheetContext& context, const WatermarkEdit& edit, HDC dc, SIZE size);

}  // namespace kvui
