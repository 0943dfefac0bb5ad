// See state_strip.h.
#include <windows.h>

#include <commctrl.h>
#include <kvlist.h>

#include "preview/state_strip.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "preview/figure_plan.h"
#include "preview/gdi_scope.h"
#include "preview/view_hook.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "rules/conflicts.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

// The strip is a grid; the icons stand in one row of it.
constexpr int kColumns = 4, kRows = 3, kIconRow = 1;

struct IconRow {
    UINT labelId;
    DWORD controlId;  // whose value the tip tells
};
// By StateIcon.
constexpr IconRow kIcons[kStateIconCount] = {
    {IDC_ST_OVERLAY, IDC_LIST_OVERLAY},
    {IDS_WATERMARK, IDC_LIST_WATERMARK},
    {IDC_GRP_COLOR_MODE, IDC_GRP_COLOR_MODE},
};

POINT PlaceOf(int icon, SIZE strip) {
    return {icon * strip.cx / kColumns, kIconRow * strip.cy / kRows};
}

LONG ValueOf(const SheetContext& context, int icon) {
    switch (icon) {
        case kStateOverlay:
            return static_cast<LONG>(context.privateSettings->mdmOverlay);
        case kStateWatermark:
            return static_cast<LONG>(context.privateSettings->mdmWatermark);
        default:
            return context.settings->dmColor;
    }
}

void NameWatermark(const SheetContext& context, DWORD id, char (&text)[kReportTextSize]) {
    const ListHandle list = context.shared->lists.handles[kListWatermark];
    WatermarkRecord record{};
    if (list == nullptr || !QDMMLTGetWatermarkWithID(list, context.printer, &record, id)) return;
    CopyText(text, std::min(sizeof text, sizeof record.name + 1), record.name);
}

// "Watermark: Confidential".
void Describe(SheetContext& context, int icon, char* text, std::size_t size) {
    char label[64] = "";
    LoadStringA(context.strings, kIcons[icon].labelId, label, sizeof label);
    const LONG value = ValueOf(context, icon);
    char name[kReportTextSize] = "", shown[kReportTextSize] = "";
    if (icon == kStateWatermark) {
        NameWatermark(context, static_cast<DWORD>(value), shown);
    } else {
        DescribeItemValue(context, kIcons[icon].controlId, value, value, name, shown);
    }
    if (shown[0] == '\0') LoadStringA(context.strings, IDS_WORDS_NONE, shown, sizeof shown);
    std::snprintf(text, size, "%s: %s", label, shown);
}

SIZE Combine(const SheetContext& context, HDC dc, POINT place, WORD id, DWORD operation) {
    const OwnedObject<HBITMAP> bitmap(LoadBitmapA(context.resources, MAKEINTRESOURCEA(id)));
    BITMAP description{};
    if (!bitmap || GetObjectA(bitmap.get(), sizeof description, &description) == 0) return {};
    const MemoryDc source(dc);
    const Selection selection(source.get(), bitmap.get());
    const SIZE size = {description.bmWidth, description.bmHeight};
    BitBlt(dc, place.x, place.y, size.cx, size.cy, source.get(), 0, 0, operation);
    return size;
}

TOOLINFOA ToolOf(HWND strip, int icon) {
    TOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = strip;
    tool.uId = static_cast<UINT_PTR>(icon);
    RECT client{};
    GetClientRect(strip, &client);
    const SIZE size = {client.right, client.bottom};
    const POINT from = PlaceOf(icon, size);
    tool.rect = {from.x, from.y, from.x + size.cx / kColumns, from.y + size.cy / kRows};
    return tool;
}

}  // namespace

void PaintStateStrip(SheetContext& context, HDC dc, SIZE size) {
    PaintLowerGround(context, dc, size);
    for (int icon = 0; icon < kStateIconCount; ++icon) {
        const StatePicture picture = StatePictureOf(static_cast<StateIcon>(icon), *context.settings,
                                                    *context.privateSettings);
        Combine(context, dc, PlaceOf(icon, size), picture.mask, SRCAND);
        Combine(context, dc, PlaceOf(icon, size), picture.picture, SRCPAINT);
    }
}

void UpdateStateTips(SheetContext& context, HWND strip) {
    HWND& tips = context.shared->preview.stateTips;
    const bool isNew = tips == nullptr;
    if (isNew) {
        tips = CreateWindowExA(0, TOOLTIPS_CLASSA, "", WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0,
                               0, 0, 0, strip, nullptr, nullptr, nullptr);
    }
    for (int icon = 0; icon < kStateIconCount && tips != nullptr; ++icon) {
        char text[2 * kReportTextSize] = "";
        Describe(context, icon, text, sizeof text);
        TOOLINFOA tool = ToolOf(strip, icon);
        tool.lpszText = text;
        SendMessageA(tips, isNew ? TTM_ADDTOOLA : TTM_UPDATETIPTEXTA, 0,
                     reinterpret_cast<LPARAM>(&tool));
    }
}

void DestroyStateTips(SharedSheet& shared) {
    if (shared.preview.stateTips != nullptr) DestroyWindow(shared.preview.stateTips);
    shared.preview.stateTips = nullptr;
}

void DescribeStates(SheetContext& context, char* text, std::size_t size) {
    CopyText(text, size, "");
    for (int icon = 0; icon < kStateIconCount; ++icon) {
        char words[2 * kReportTextSize] = "";
        Describe(context, icon, words, sizeof words);
        const std::size_t used = std::strlen(text);
        std::snprintf(text + used, size - used, "%s%s", used != 0 ? ", " : "", words);
    }
}

}  // namespace kvui
