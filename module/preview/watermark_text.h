// Text of a watermark on a small picture of a page: its font, its colour, its place and its
// repetition. Used by the Paper View, the Watermark View and the editor's preview, which differ in
// small things.
#pragma once

#include <kvlist.h>
#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

// Font of a watermark on a picture of `scale` pixels per inch; its character set is that of the
// first font of the device that has the name.
LOGFONTA WatermarkFont(HDC dc, const WatermarkRecord& record, int scale);

// Grey, by its red part, where the job is not printed in colour.
COLORREF WatermarkColour(const WatermarkRecord& record, bool inColour);
// The Quality page's choice of colour.
bool WatermarkIsInColour(const SheetContext& context);

// Where a single text is drawn, aligned by the middle of its upper edge, so that the middle of the
// turned text is the centre moved by the record's offsets.
POINT WatermarkOrigin(POINT centre, int fontHeight, const WatermarkRecord& record, int scale);

// Font and colour for texts that are aligned by the middle of their upper edge.
void PrepareWatermarkText(HDC dc, HFONT font, COLORREF colour);

// What the two views do each in its own way.
struct WatermarkManner {
    int inset;         // of the clip, in pixels
    POINT tilesFrom;   // from the corner of the page to the first tile
    bool byPrintMode;  // grey by dmColor, else by the colour bit of mdmOtherSettings
    bool inInches;     // the scale is that of a paper measured in inches whatever its unit
};
constexpr WatermarkManner kInPaperView = {0, {0, 0}, true, false};
constexpr WatermarkManner kInWatermarkView = {4, {2, 3}, false, true};

// Draws the watermark into the cells of one sheet.
class WatermarkPen {
   public:
    // Fetches the record of mdmWatermark.
      explicit WatermarkPen(SheetContext& context, const WatermarkManner& manner = kInPaperView);
      void Draw(HDC dc, const RECT& cell) const;

   private:
    void DrawRepeated(HDC dc, const RECT& cell, SIZE extent) const;
    int ScaleFor(const RECT& cell) const;

    SheetContext& context_;
    const WatermarkManner& manner_;
    WatermarkRecord record_{};
    char text_[sizeof WatermarkRecord::text + 1] = "";
    int length_ = 0;         // 0: there is nothing to draw
    LONG paperHeight_ = 0;   // printable, in the paper's unit; 0 unknown
};

}  // namespace kvui
