// See watermark_text.h.
#include "preview/watermark_text.h"

#include <kvcore.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "lists/paper_size.h"
#include "preview/gdi_scope.h"
#include "preview/paper_plan.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

constexpr int kPointsPerInch = 72;
constexpr int kSmallestFont = 3;
constexpr DWORD kLargestSize = 200;
// Text that lies farther away than this is out of every view.
constexpr double kFarAway = 30000;

constexpr SHORT kLandscape = 2;
constexpr SHORT kColour = 2;

// From here on grey is too light to be seen on white.
constexpr BYTE kTooLight = 224;
constexpr COLORREF kLightest = 0xDFDFDF;

int Whole(double value) { return static_cast<int>(std::clamp(value, -kFarAway, kFarAway)); }

BYTE CharacterSetOf(HDC dc, const char* typeface) {
    LOGFONTA wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    CopyText(wanted.lfFaceName, typeface);
    BYTE found = DEFAULT_CHARSET;
    EnumFontFamiliesExA(
        dc, &wanted,
        [](const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM param) {
            *reinterpret_cast<BYTE*>(param) = font->lfCharSet;
            return 0;  // the first one is enough
        },
        reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

bool PrintsInColour(const SheetContext& context, const WatermarkManner& manner) {
    return manner.byPrintMode ? context.settings->dmColor == kColour : WatermarkIsInColour(context);
}

// Printable height of the paper as the page is read, in hundredths of an inch or tenths of a
// millimetre; 0 when the paper is not known.
LONG PrintableHeight(SheetContext& context, bool inInches) {
    const LONG code = context.settings->dmPaperSize;
    PaperSizeInfo paper{};
    if (!PaperSizeOfCode(context, code, paper)) return 0;
    const bool turned = context.settings->dmOrientation == kLandscape;
    const PaperArea* area = QDMGetPaperArea(context.printer, code);
    // The user's own papers have no area; their whole size serves.
    if (area == nullptr) {
        const LONG height = turned ? paper.width : paper.length;
        return inInches && paper.unit != kPaperUnitInch ? MulDiv(height, 100, 254) : height;
    }
    const LONG tenths = turned ? area->right - area->left : area->bottom - area->top;
    return inInches || paper.unit == kPaperUnitInch ? MulDiv(tenths, 100, 254) : tenths;
}

}  // namespace

bool WatermarkIsInColour(const SheetContext& context) {
    return (context.privateSettings->mdmOtherSettings & kOtherColor) != 0;
}

COLORREF WatermarkColour(const WatermarkRecord& record, bool inColour) {
    if (inColour) return RGB(record.red, record.green, record.blue);
    return record.red >= kTooLight ? kLightest : RGB(record.red, record.red, record.red);
}

LOGFONTA WatermarkFont(HDC dc, const WatermarkRecord& record, int scale) {
    LOGFONTA font{};
    const int size = static_cast<int>(std::min(record.size, kLargestSize));
    font.lfHeight = std::max(MulDiv(size, scale, kPointsPerInch), kSmallestFont);
    font.lfEscapement = font.lfOrientation = record.angle % 360 * 10;
    font.lfWeight = record.bold ? FW_BOLD : FW_NORMAL;
    font.lfItalic = record.italic ? 1 : 0;
    CopyText(font.lfFaceName, BoundedText(record.typeface).c_str());
    font.lfCharSet = CharacterSetOf(dc, font.lfFaceName);
    return font;
}

// Half the height lies between the upper edge of the text and its middle. Turned by the angle a, the
// way from the middle to the edge is (-sin a, -cos a) times that half.
POINT WatermarkOrigin(POINT centre, int fontHeight, const WatermarkRecord& record, int scale) {
    constexpr double kPi = 3.1415927;
    const double angle = record.angle % 360 * kPi / 180;
    const double x = static_cast<double>(record.offsetX) * scale / kPointsPerInch;
    const double y = static_cast<double>(record.offsetY) * scale / kPointsPerInch;
    return {centre.x - Whole(std::sin(angle) * fontHeight * 0.5) + Whole(x),
            centre.y - Whole(std::cos(angle) * fontHeight * 0.5) - Whole(y)};
}

void PrepareWatermarkText(HDC dc, HFONT font, COLORREF colour) {
    SelectObject(dc, font);
    SetTextColor(dc, colour);
    SetBkMode(dc, TRANSPARENT);
    SetTextAlign(dc, TA_CENTER | TA_TOP);
}

WatermarkPen::WatermarkPen(SheetContext& context, const WatermarkManner& manner)
    : context_(context), manner_(manner) {
    const ListHandle list = context.shared->lists.handles[kListWatermark];
    if (list == nullptr || !QDMMLTGetWatermarkWithID(list, context.printer, &record_,
                                                     context.privateSettings->mdmWatermark)) {
        return;
    }
    while (length_ < static_cast<int>(sizeof record_.text) && record_.text[length_] != '\0') {
        text_[length_] = record_.text[length_];
        ++length_;
    }
    paperHeight_ = PrintableHeight(context, manner.inInches);
}

int WatermarkPen::ScaleFor(const RECT& cell) const {
    return MulDiv(cell.bottom - cell.top, 100, paperHeight_);
}

void WatermarkPen::Draw(HDC dc, const RECT& cell) const {
    if (length_ == 0 || paperHeight_ <= 0) return;
    const int scale = ScaleFor(cell);
    const LOGFONTA description = WatermarkFont(dc, record_, scale);
    const OwnedObject<HFONT> font(CreateFontIndirectA(&description));
    if (!font) return;
    const DcState state(dc);
    const int inset = manner_.inset;
    IntersectClipRect(dc, cell.left + inset, cell.top + inset, cell.right - inset,
                      cell.bottom - inset);
    PrepareWatermarkText(dc, font.get(),
                         WatermarkColour(record_, PrintsInColour(context_, manner_)));
    SIZE extent{};
    GetTextExtentPoint32A(dc, text_, length_, &extent);
    const bool repeat = (context_.privateSettings->mdmWatermarkMode & kWatermarkRepeat) != 0;
    if (repeat && extent.cx > 0 && extent.cy > 0) {
        DrawRepeated(dc, cell, extent);
        return;
    }
    const POINT centre{(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
    const POINT at = WatermarkOrigin(centre, description.lfHeight, record_, scale);
    TextOutA(dc, at.x, at.y, text_, length_);
}

// The turned text fills a share of the box around it that is largest when it lies along the box. The
// less it fills, the closer the boxes move together.
void WatermarkPen::DrawRepeated(HDC dc, const RECT& cell, SIZE extent) const {
    constexpr double kPi = 3.14159;
    const double angle = record_.angle % 360 * kPi / 180;
    const double cosine = std::abs(std::cos(angle));
    const double sine = std::abs(std::sin(angle));
    const int boxWidth = std::max(Whole(extent.cx * cosine + extent.cy * sine), 1);
    const int boxHeight = std::max(Whole(extent.cy * cosine + extent.cx * sine), 1);
    const double share = static_cast<double>(extent.cx) * extent.cy /
                         (static_cast<double>(boxWidth) * boxHeight);
    const double spread = 0.6 * share * share * share + 0.9;
    const int stepX = std::max(Whole(boxWidth * spread), 1);
    const int stepY = std::max(Whole(boxHeight * spread), 1);
    const int lift = Whole(stepY * 0.5 - extent.cy * cosine);
    const int lastColumn = (cell.right - cell.left) / stepX + 1;
    const int lastRow = (cell.bottom - cell.top) / stepY + 1;
    for (int column = 0; column <= lastColumn; ++column) {
        const int x = cell.left + manner_.tilesFrom.x + column * stepX + stepX / 2;
        const int top = cell.top + manner_.tilesFrom.y - stepY / 2 - (column % 2 != 0 ? lift : 0);
        for (int row = 0; row <= lastRow; ++row) {
            TextOutA(dc, x, top + row * stepY, text_, length_);
        }
    }
}

}  // namespace kvui
