// Draws one entry of an owner-drawn combo box.
#include "ui/entry_drawing.h"

#include "settings/item_catalogue.h"

namespace kvui {
namespace {
// Of an entry's height: 6 pixels beside the usual icon of 32.
constexpr int kMarginsInHeight = 5;
constexpr int kEntryTextSize = 128;

// Takes a piece with a margin before it off the side where reading starts.
RECT TakeFromStart(RECT& place, LONG width, UINT align) {
    const LONG margin = (place.bottom - place.top) / kMarginsInHeight;
    RECT piece = place;
    if ((align & TA_RTLREADING) != 0) {
        piece.right -= margin;
        piece.left = piece.right - width;
        place.right = piece.left;
    } else {
        piece.left += margin;
        piece.right = piece.left + width;
        place.left = piece.right;
    }
    return piece;
}

// Icons come in several sizes; the nearest one is drawn.
void DrawIconInSize(HDC dc, HINSTANCE resources, DWORD icon, const RECT& spot) {
    const int side = spot.bottom - spot.top;
    const auto picture = static_cast<HICON>(LoadImageA(resources, MAKEINTRESOURCEA(icon),
                                                       IMAGE_ICON, side, side, LR_DEFAULTCOLOR));
    if (picture == nullptr) return;
    DrawIconEx(dc, spot.left, spot.top, picture, side, side, 0, nullptr, DI_NORMAL);
    DestroyIcon(picture);
}

}  // namespace

bool DrawComboEntry(const SheetContext& context, const DRAWITEMSTRUCT& draw) {
    const ControlItem* item = ItemById(draw.CtlID);
    if (draw.CtlType != ODT_COMBOBOX || item == nullptr) return false;
    const bool selected = (draw.itemState & ODS_SELECTED) != 0;
    const bool disabled = (draw.itemState & ODS_DISABLED) != 0;
    FillRect(draw.hDC, &draw.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    if (draw.itemID == static_cast<UINT>(-1)) return true;
    RECT place = draw.rcItem;
    const UINT align = GetTextAlign(draw.hDC);
    const DWORD icon = IconForValue(*item, static_cast<DWORD>(draw.itemData));
    const LONG side = place.bottom - place.top;
    if (icon != 0 && side > 0) {
        // The picture of a sheet stays as it is: its left is the sheet's left.
        const RECT spot = TakeFromStart(place, side, align);
        DrawIconInSize(draw.hDC, context.resources, icon, spot);
    }
    TakeFromStart(place, 0, align);
    char text[kEntryTextSize] = "";
    if (SendMessageA(draw.hwndItem, CB_GETLBTEXTLEN, draw.itemID, 0) <
        static_cast<LRESULT>(sizeof text)) {
        SendMessageA(draw.hwndItem, CB_GETLBTEXT, draw.itemID, reinterpret_cast<LPARAM>(text));
    }
    const HFONT font = reinterpret_cast<HFONT>(SendMessageA(draw.hwndItem, WM_GETFONT, 0, 0));
    const HGDIOBJ before = font != nullptr ? SelectObject(draw.hDC, font) : nullptr;
    SetBkMode(draw.hDC, TRANSPARENT);
    SetTextColor(draw.hDC, GetSysColor(disabled   ? COLOR_GRAYTEXT
                                       : selected ? COLOR_HIGHLIGHTTEXT
                                                  : COLOR_WINDOWTEXT));
    const UINT reading = (align & TA_RTLREADING) != 0 ? DT_RIGHT | DT_RTLREADING : DT_LEFT;
    DrawTextA(draw.hDC, text, -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | reading);
    if (before != nullptr) SelectObject(draw.hDC, before);
    return true;
}

}  // namespace kvui
