// Draws one entry of an owner-drawn combo box.
#include "ui/entry_drawing.h"

#include "settings/item_catalogue.h"

namespace kvui {
namespace {
constexpr int kTextMargin = 6;
constexpr int kEntryTextSize = 128;
}  // namespace

bool DrawComboEntry(const SheetContext& context, const DRAWITEMSTRUCT& draw) {
    const ControlItem* item = ItemById(draw.CtlID);
    if (draw.CtlType != ODT_COMBOBOX || item == nullptr) return false;
    const bool selected = (draw.itemState & ODS_SELECTED) != 0;
    const bool disabled = (draw.itemState & ODS_DISABLED) != 0;
    FillRect(draw.hDC, &draw.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    if (draw.itemID == static_cast<UINT>(-1)) return true;
    RECT place = draw.rcItem;
    place.left += kTextMargin;
    const DWORD icon = IconForValue(*item, static_cast<DWORD>(draw.itemData));
    const HICON picture =
        icon != 0 ? LoadIconA(context.resources, MAKEINTRESOURCEA(icon)) : nullptr;
    const LONG side = place.bottom - place.top;
    if (picture != nullptr && side > 0) {
        DrawIconEx(draw.hDC, place.left, place.top, picture, side, side, 0, nullptr, DI_NORMAL);
        place.left += side + kTextMargin;
    }
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
    DrawTextA(draw.hDC, text, -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    if (before != nullptr) SelectObject(draw.hDC, before);
    return true;
}

}  // namespace kvui
