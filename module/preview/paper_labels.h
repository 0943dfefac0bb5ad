// The names of the paper and of the output paper over the Paper View.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

class PictureSet;

// A paper's name, and its dimensions when the name ends with them.
struct PaperLabel {
    char name[69];
    char dimensions[69];
};
// "A4 (210 x 297 mm)" is the name "A4 " and the dimensions "210 x 297 mm".
PaperLabel SplitPaperName(const char* paperName);

// Of the paper with a code; empty when the list has no such paper.
PaperLabel PaperLabelOf(const SheetContext& context, DWORD paperCode);

// Draws the labels in the font of the dialog that holds the view.
void DrawPaperLabels(SheetContext& context, HDC dc, SIZE view, PictureSet& pictures);

}  // namespace kvui
