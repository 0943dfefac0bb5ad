// The quality view: a printed photograph that shows the effect of the image adjustments. Shown by the
// preview panel on the Quality page.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// The adjustments as the settings record holds them.
struct ImageAdjustment {
    LONG contrast;    // -50 to 50
    LONG lightness;   // -50 to 50
    LONG saturation;  // -50 to 50
    LONG sharpness;   // 0 to 100
    bool monochrome;
};

// Adjusts a picture of 32-bit pixels (0x00RRGGBB). Values beyond their range count as its ends.
void AdjustImage(const ImageAdjustment& adjustment, DWORD* pixels, int width, int height);

void PaintColourSample(SheetContext& context, HDC dc, SIZE size);

}  // namespace kvui
