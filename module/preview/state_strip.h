// The strip below the large view: icons that tell at a glance whether an overlay, a watermark and
// colour are used, with tips that name the values.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

void PaintStateStrip(SheetContext& context, HDC dc, SIZE size);
// Gives the strip's frame tips, or brings their texts up to date.
void UpdateStateTips(SheetContext& context, HWND strip);
// The tips go with the panel.
void DestroyStateTips(SharedSheet& shared);
// The same in words, for people who do not see it.
void DescribeStates(SheetContext& context, char* text, std::size_t size);

}  // namespace kvui
