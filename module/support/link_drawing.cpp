// An underlined caption in the colour of links.
#include "support/link_drawing.h"

#include "preview/gdi_scope.h"

namespace kvui {
namespace {

constexpr COLORREF kLinkText = RGB(0, 0, 204);
// The blue of links cannot be read on a dark ground.
constexpr COLORREF kLinkOnDark = RGB(138, 180, 248);
constexpr int kLongestCaption = 260;

bool IsDark(COLORREF colour) {
    return GetRValue(colour) + GetGValue(colour) + GetBValue(colour) < 3 * 128;
}

}  // namespace

bool DrawLink(const DRAWITEMSTRUCT& draw) {
    if (draw.CtlType != ODT_BUTTON) return false;
    char caption[kLongestCaption] = "";
    GetWindowTextA(draw.hwndItem, caption, sizeof caption);
    LOGFONTA look{};
    const auto plain = reinterpret_cast<HFONT>(SendMessageA(draw.hwndItem, WM_GETFONT, 0, 0));
    GetObjectA(plain, sizeof look, &look);
    look.lfUnderline = TRUE;
    const OwnedObject<HFONT> font(CreateFontIndirectA(&look));
    const DcState state(draw.hDC);
    if (font) SelectObject(draw.hDC, font.get());
    SetBkMode(draw.hDC, TRANSPARENT);
    SetTextColor(draw.hDC, IsDark(GetSysColor(COLOR_BTNFACE)) ? kLinkOnDark : kLinkText);
    RECT place = draw.rcItem;
    place.left += GetSystemMetrics(SM_CXEDGE);
    place.top += GetSystemMetrics(SM_CYEDGE);
    DrawTextA(draw.hDC, caption, -1, &place, DT_LEFT | DT_TOP | DT_SINGLELINE | DT_NOPREFIX);
    if ((draw.itemState & ODS_FOCUS) != 0) DrawFocusRect(draw.hDC, &draw.rcItem);
    return true;
}

}  // namespace kvui
