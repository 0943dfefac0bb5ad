// See watermark_view.h.
#include "preview/watermark_view.h"

#include <kvcore.h>

#include <algorithm>
#include <initializer_list>

#include "lists/paper_size.h"
#include "preview/gdi_scope.h"
#include "preview/watermark_text.h"

namespace kvui {
namespace {

constexpr SHORT kLandscape = 2;
constexpr int kLeastMargin = 10;
constexpr int kCornerMark = 8;

// A paper as the page is read, in tenths of a millimetre.
struct Sheet {
    LONG width, height;
    RECT printable;
};

LONG Tenths(const PaperSizeInfo& paper, LONG length) {
    return paper.unit == kPaperUnitInch ? MulDiv(length, 254, 100) : length;
}

// False when the paper is not known.
bool SheetOf(SheetContext& context, Sheet& sheet) {
    const LONG code = context.settings->dmPaperSize;
    PaperSizeInfo paper{};
    if (!PaperSizeOfCode(context, code, paper)) return false;
    const LONG width = Tenths(paper, paper.width), length = Tenths(paper, paper.length);
    sheet = {width, length, {0, 0, width, length}};
    // The user's own papers have no area; they are printed on to their edges.
    if (const PaperArea* area = QDMGetPaperArea(context.printer, code)) {
        sheet.printable = {area->left, area->top, area->right, area->bottom};
    }
    if (context.settings->dmOrientation != kLandscape) return width > 0 && length > 0;
    const RECT upright = sheet.printable;
    sheet = {
        length, width, {upright.top, width - upright.right, upright.bottom, width - upright.left}};
    return width > 0 && length > 0;
}

// In the middle of the view, as large as its margin allows.
RECT PlaceOf(const Sheet& sheet, SIZE view) {
    const LONG room[] = {std::max<LONG>(view.cx - 2 * kLeastMargin, 1),
                         std::max<LONG>(view.cy - 2 * kLeastMargin, 1)};
    LONG width = room[0], height = MulDiv(sheet.height, width, sheet.width);
    if (height > room[1]) {
        height = room[1];
        width = MulDiv(sheet.width, height, sheet.height);
    }
    const LONG x = (view.cx - width) / 2, y = (view.cy - height) / 2;
    return {x, y, x + width, y + height};
}

RECT PageOn(const Sheet& sheet, const RECT& place) {
    const LONG width = place.right - place.left, height = place.bottom - place.top;
    return {place.left + MulDiv(sheet.printable.left, width, sheet.width),
            place.top + MulDiv(sheet.printable.top, height, sheet.height),
            place.left + MulDiv(sheet.printable.right, width, sheet.width),
            place.top + MulDiv(sheet.printable.bottom, height, sheet.height)};
}

// Two strokes, at the corner and towards the inside.
void MarkCorner(HDC dc, LONG x, LONG y, LONG inwardX, LONG inwardY) {
    MoveToEx(dc, x + inwardX * kCornerMark, y, nullptr);
    LineTo(dc, x, y);
    LineTo(dc, x, y + inwardY * kCornerMark);
}

void MarkCorners(HDC dc, const RECT& paper) {
    const OwnedObject<HPEN> pen(CreatePen(PS_SOLID, 2, GetSysColor(COLOR_HIGHLIGHT)));
    const Selection selection(dc, pen.get());
    for (const int inwardX : {1, -1}) {
        for (const int inwardY : {1, -1}) {
            MarkCorner(dc, inwardX > 0 ? paper.left : paper.right - 1,
                       inwardY > 0 ? paper.top : paper.bottom - 1, inwardX, inwardY);
        }
    }
}

}  // namespace

void PaintWatermarkView(SheetContext& context, HDC dc, SIZE size) {
    Sheet sheet{};
    if (!SheetOf(context, sheet)) return;
    const RECT paper = PlaceOf(sheet, size);
    FrameRect(dc, &paper, GetSysColorBrush(COLOR_3DDKSHADOW));
    WatermarkPen(context, kInWatermarkView).Draw(dc, PageOn(sheet, paper));
    if (context.privateSettings->mdmOverlay != 0) MarkCorners(dc, paper);
}

}  // namespace kvui
