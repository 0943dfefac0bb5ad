// Labels of the Paper View.
#include "preview/paper_labels.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "preview/gdi_scope.h"
#include "preview/paper_pictures.h"
#include "preview/picture_set.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

constexpr int kTop = 3;            // of the first band
constexpr int kBandMargin = 6;     // a band ends this much below the height of its text
constexpr int kLeft = 5;
constexpr int kRight = 3;          // dimensions end this far from the right edge
constexpr int kMostPitch = 12;     // between lines: the four of them end where the sheet begins
constexpr int kLeftmost = 30;      // dimensions that would begin farther left are not shown
constexpr int kArrowGap = 4;       // between the arrow and the name beside it
constexpr COLORREF kWhite = RGB(255, 255, 255);

// The view's DC comes with the dialog's font selected.
LOGFONTA LabelFont(HDC dc) {
    LOGFONTA font{};
    const HGDIOBJ current = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    GetObjectA(current, sizeof font, &font);
    SelectObject(dc, current);
    const int points = std::strcmp(font.lfFaceName, "MS Sans Serif") == 0 ? 8 : 9;
    font.lfHeight = -(points * GetDeviceCaps(dc, LOGPIXELSY) / 72);
    font.lfWidth = 0;
    return font;
}

struct LineMetrics {
    int textHeight;
    int pitch;
};

// A name in its band and the dimensions on the line below.
void DrawLabel(HDC dc, const PaperLabel& label, int left, int top, LineMetrics line,
               int viewWidth) {
    RECT band{left, top, viewWidth, top - kTop + line.textHeight + kBandMargin};
    constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
    DrawTextA(dc, label.name, -1, &band, kFormat | DT_LEFT);
    SIZE extent{};
    const int length = static_cast<int>(std::strlen(label.dimensions));
    GetTextExtentPoint32A(dc, label.dimensions, length, &extent);
    const int start = viewWidth - kRight - extent.cx;
    if (length == 0 || start <= kLeftmost) return;
    band = {start, band.top + line.pitch, viewWidth - kRight, band.bottom + line.pitch};
    DrawTextA(dc, label.dimensions, length, &band, kFormat | DT_RIGHT);
}

}  // namespace

PaperLabel PaperLabelOf(const SheetContext& context, DWORD paperCode) {
    CustomPaperRecord record{};
    const ListHandle list = context.shared->lists.handles[kListPaper];
    if (list == nullptr || !QDMMLTGetPaperWithID(list, context.printer, &record, paperCode)) {
        return {};
    }
    char name[sizeof record.displayName + 1] = "";
    std::memcpy(name, record.displayName, sizeof record.displayName);
    return SplitPaperName(name);
}

PaperLabel SplitPaperName(const char* paperName) {
    PaperLabel label{};
    CopyText(label.name, paperName);
    char* opening = std::strrchr(label.name, '(');
    if (opening == nullptr || !std::isdigit(static_cast<unsigned char>(opening[1]))) return label;
    CopyText(label.dimensions, opening + 1);
    *opening = '\0';
    char* closing = std::strrchr(label.dimensions, ')');
    if (closing != nullptr) *closing = '\0';
    return label;
}

void DrawPaperLabels(SheetContext& context, HDC dc, SIZE view, PictureSet& pictures) {
    const DcState state(dc);
    const LOGFONTA description = LabelFont(dc);
    const OwnedObject<HFONT> font(CreateFontIndirectA(&description));
    if (!font) return;
    const Selection selection(dc, font.get());
    SetTextColor(dc, kWhite);
    SetBkMode(dc, TRANSPARENT);
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    const LineMetrics line{metrics.tmHeight, std::min<int>(metrics.tmHeight, kMostPitch)};
    const PaperLabel paper = PaperLabelOf(context, static_cast<WORD>(context.settings->dmPaperSize));
    DrawLabel(dc, paper, kLeft, kTop, line, view.cx);

    SIZE arrow{};
    if (!pictures.SizeOf(kOutputSizeArrow, arrow)) return;
    const int second = kTop + 2 * line.pitch;
    const int middle = second + (line.textHeight + kBandMargin - kTop) / 2;
    pictures.Draw(dc, kOutputSizeArrow, kLeft, middle - arrow.cy / 2);
    const DWORD output = context.privateSettings->mdmOutputPaper;
    DrawLabel(dc, output != 0 ? PaperLabelOf(context, output) : paper, kLeft + arrow.cx + kArrowGap,
              second, line, view.cx);
}

}  // namespace kvui
