// See watermark_preview.h.
#include "preview/watermark_preview.h"

#include <algorithm>
#include <cmath>

#include "lists/paper_size.h"
#include "preview/gdi_scope.h"
#include "preview/view_hook.h"
#include "preview/view_words.h"
#include "preview/watermark_text.h"
#include "sheet/fixed_text.h"
#include "sheet/printer_values.h"

namespace kvui {
namespace {

constexpr double kLongestSide = 170;  // pixels of the picture
constexpr SHORT kLandscape = 2;
constexpr double kFarAway = 1e6;  // points; no page is that large
constexpr int kClipInset = 6;
constexpr COLORREF kShadow = RGB(180, 180, 180);
// Black is drawn lighter than the outline.
constexpr BYTE kDarkest = 3;

double Inches(const PaperSizeInfo& paper, LONG length) {
    const double tenths = paper.unit == kPaperUnitInch ? length * 254.0 / 100 : length;
    return tenths / 10 / 25.4;
}

LONG Bounded(double points) {
    return static_cast<LONG>(std::trunc(std::clamp(points, -kFarAway, kFarAway)));
}

BYTE Visible(int component) {
    return component == 0 ? kDarkest : static_cast<BYTE>(component);
}

COLORREF VisibleColour(COLORREF colour) {
    return RGB(Visible(GetRValue(colour)), Visible(GetGValue(colour)), Visible(GetBValue(colour)));
}

LOGFONTA PreviewFont(const SheetContext& context, HDC dc, const WatermarkRecord& record,
                     int scale) {
    LOGFONTA font = WatermarkFont(dc, record, scale);
    if (record.angle == 0) ++font.lfHeight;
    const DWORD typefaces = PrinterNumber(context.printer, "WatermarkTypeFaceList");
    font.lfOutPrecision = typefaces == TRUETYPE_FONTTYPE ? OUT_TT_ONLY_PRECIS : OUT_STRING_PRECIS;
    font.lfQuality = PROOF_QUALITY;
    font.lfPitchAndFamily = FF_ROMAN;
    return font;
}

void DrawPaper(HDC dc, SIZE size) {
    const OwnedObject<HBRUSH> shadow(CreateSolidBrush(kShadow));
    const RECT right{size.cx - 1, 1, size.cx, size.cy}, bottom{1, size.cy - 1, size.cx, size.cy};
    FillRect(dc, &right, shadow.get());
    FillRect(dc, &bottom, shadow.get());
    const RECT outline{1, 1, size.cx - 1, size.cy - 1};
    FrameRect(dc, &outline, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

void PaintPreview(SheetContext& context, HDC dc, SIZE size) {
    if (const WatermarkEdit* edit = context.shared->lists.watermarkEdit) {
        DrawWatermarkPreview(context, *edit, dc, size);
    }
}

void LeaveWhite(SheetContext& /*context*/, HDC /*dc*/, SIZE /*size*/) {}

void DescribePreview(SheetContext& context, char* text, std::size_t size) {
    const WatermarkEdit* edit = context.shared->lists.watermarkEdit;
    CopyText(text, size, "");
    if (edit == nullptr) return;
    DescribeWatermarkText(context, BoundedText(edit->record.text).c_str(), text, size);
}

}  // namespace

WatermarkPaper WatermarkPaperOf(SheetContext& context) {
    PaperSizeInfo paper{};
    if (!PaperSizeOfCode(context, context.settings->dmPaperSize, paper)) return {};
    double width = Inches(paper, paper.width), height = Inches(paper, paper.length);
    if (width <= 0 || height <= 0) return {};
    if (context.settings->dmOrientation == kLandscape) std::swap(width, height);
    const int scale = static_cast<int>(kLongestSide / std::max(width, height));
    return {scale, {static_cast<LONG>(scale * width), static_cast<LONG>(scale * height)}};
}

// A point is 1/72 inch, and per cent are of half the page: offset * scale / 72 pixels of pixels
// / 2.
double WatermarkAxis::ExactPercentOf(LONG offset) const {
    if (pixels <= 0) return 0;
    constexpr double kMost = kMostPercent;
    return std::clamp(static_cast<double>(offset) * scale * 100 / (pixels * 36.0), -kMost, kMost);
}

LONG WatermarkAxis::PercentOf(LONG offset) const {
    return static_cast<LONG>(std::lround(ExactPercentOf(offset)));
}

LONG WatermarkAxis::OffsetOfPercent(LONG percent) const {
    if (scale <= 0) return 0;
    return Bounded(static_cast<double>(pixels) * static_cast<double>(percent) / 100 * 36 / scale);
}

LONG WatermarkAxis::OffsetOfSlider(LONG percent) const {
    if (scale <= 0) return 0;
    return Bounded(
        static_cast<double>(percent) / 100 * static_cast<double>(pixels) * 0.5 * 72 / scale + 0.5);
}

void PlaceWatermarkPreview(SheetContext& context, HWND dialog, int frameId, int pictureId) {
    const HWND frame = GetDlgItem(dialog, frameId), picture = GetDlgItem(dialog, pictureId);
    const SIZE size = context.shared->lists.watermarkEdit->paper.size;
    RECT box{};
    GetWindowRect(frame, &box);
    // In a mirrored dialog the left edge becomes the right one.
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&box), 2);
    SetWindowPos(picture, nullptr, (box.left + box.right - size.cx) / 2,
                 (box.top + box.bottom - size.cy) / 2, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    HookView(frame, context, {LeaveWhite, nullptr, ViewEdge::kNone});
    HookView(picture, context, {PaintPreview, DescribePreview, ViewEdge::kNone});
}

void DrawWatermarkPreview(SheetContext& context, const WatermarkEdit& edit, HDC dc, SIZE size) {
    DrawPaper(dc, size);
    const int scale = edit.paper.scale;
    const std::string text = BoundedText(edit.record.text);
    if (scale <= 0 || text.empty()) return;
    const LOGFONTA description = PreviewFont(context, dc, edit.record, scale);
    const OwnedObject<HFONT> font(CreateFontIndirectA(&description));
    if (!font) return;
    const DcState state(dc);
    IntersectClipRect(dc, kClipInset, kClipInset, size.cx - kClipInset, size.cy - kClipInset);
    const COLORREF colour = WatermarkColour(edit.record, WatermarkIsInColour(context));
    PrepareWatermarkText(dc, font.get(), VisibleColour(colour));
    const POINT at =
        WatermarkOrigin({size.cx / 2, size.cy / 2}, description.lfHeight, edit.record, scale);
    TextOutA(dc, at.x, at.y, text.c_str(), static_cast<int>(text.size()));
}

}  // namespace kvui
