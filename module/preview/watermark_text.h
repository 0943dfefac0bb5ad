// Text of a watermark on a small picture of a page: its font, its place and its repetition. Used by
// the Paper View and the Watermark View, which differ in small things.
#pragma once

#include <kvlist.h>
#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

// Font of a watermark on a picture of `scale` pixels per inch; without character set.
LOGFONTA WatermarkFont(const WatermarkRecord& record, int scale);

// Where a single text is drawn, aligned by the middle of its upper edge, so that the middle of the
// turned text is the centre moved by the record's offsets.
POINT WatermarkOrigin(POINT centre, int fontHeight, const WatermarkRecord& record, int scale);

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
