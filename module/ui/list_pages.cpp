// Watermark and Overlay pages: which of the buttons under their lists can act on the selected
// entry, and what Delete does. Their editors have procedures of their own.
#include <windows.h>

#include <winspool.h>

#include <cstring>
#include <initializer_list>

#include "exports.h"
#include "lists/watermark_list.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "rules/gray_out.h"
#include "sheet/message_box.h"
#include "sheet/printer_values.h"
#include "ui/page_skeleton.h"

namespace kvui {
namespace {

struct ListButton {
    DWORD id;
    bool canAct;
};
using ListButtons = std::initializer_list<ListButton>;

// Nobody changes a list that cannot be stored.
void HideWhereNothingCanBeStored(SheetContext& context, ListButtons buttons) {
    if (!(context.flags & kSheetDataNotWritable) &&
        CanOpenPrinter(context, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE)) {
        return;
    }
    for (const ListButton& button : buttons) {
        ShowWindow(GetDlgItem(context.page, static_cast<int>(button.id)), SW_HIDE);
    }
}

// Options and rules have their say first. A button that is disabled under the focus hands it on.
void Allow(SheetContext& context, ListButtons buttons) {
    if (context.flags & kSheetReadOnly) return;
    for (const ListButton& button : buttons) {
        EnableWindow(GetDlgItem(context.page, static_cast<int>(button.id)), TRUE);
        const ControlItem* item = ItemById(button.id);
        if (item == nullptr) continue;
        FillControl(context, context.page, *item);
        ApplyGrayOutIndex(context, context.page, *item);
    }
    for (const ListButton& button : buttons) {
        if (button.canAct) continue;
        const HWND window = GetDlgItem(context.page, static_cast<int>(button.id));
        if (GetFocus() == window) SetFocus(GetDlgItem(context.page, IDC_DEFAULTS));
        EnableWindow(window, FALSE);
    }
}

void AllowWatermarkButtons(SheetContext& context) {
    const bool changeable = CanChangeWatermark(context, context.privateSettings->mdmWatermark);
    Allow(context, {{IDC_BTN_WATERMARK_ADD, !IsWatermarkListFull(context)},
                    {IDC_BTN_WATERMARK_EDIT, changeable},
                    {IDC_BTN_WATERMARK_DELETE, changeable}});
}

void OnWatermarkInit(SheetContext& context) {
    HideWhereNothingCanBeStored(context, {{IDC_BTN_WATERMARK_ADD, false},
                                          {IDC_BTN_WATERMARK_EDIT, false},
                                          {IDC_BTN_WATERMARK_DELETE, false}});
    AllowWatermarkButtons(context);
}

void BeforeWatermarkCommand(SheetContext& context, DWORD id, WORD code) {
    if (id != IDC_BTN_WATERMARK_DELETE || code != BN_CLICKED) return;
    const DWORD chosen = context.privateSettings->mdmWatermark;
    if (CanChangeWatermark(context, chosen) &&
        ShowMessageString(context.page, context.strings, IDS_WATERMARK_DELETE, IDS_WARNING,
                          MB_OKCANCEL | MB_ICONEXCLAMATION) == IDOK) {
        DeleteWatermark(context, chosen);
    }
}

// The id of an entry that is no watermark leaves the record of an untouched page as it is.
void OnWatermarkApply(SheetContext& context) {
    CommitWatermarks(context);
    const PrivateDevmode& settings = *context.privateSettings;
    DWORD copied = 0;
    std::memcpy(&copied, settings.watermarkRecord, sizeof copied);
    if (settings.mdmWatermark != 0 || copied != 0) CopyChosenWatermark(context);
}

// The first entry stands for no overlay.
void AllowOverlayButtons(SheetContext& context) {
    const HWND list = GetDlgItem(context.page, IDC_LIST_OVERLAY);
    const LRESULT index = SendMessageA(list, LB_GETCURSEL, 0, 0);
    const bool chosen =
        index > 0 && SendMessageA(list, LB_GETITEMDATA, static_cast<WPARAM>(index), 0) > 0;
    Allow(context, {{IDC_BTN_OVERLAY_ADD, true},
                    {IDC_BTN_OVERLAY_EDIT, chosen},
                    {IDC_BTN_OVERLAY_DELETE, chosen}});
}

void OnOverlayInit(SheetContext& context) {
    HideWhereNothingCanBeStored(context, {{IDC_BTN_OVERLAY_ADD, false},
                                          {IDC_BTN_OVERLAY_EDIT, false},
                                          {IDC_BTN_OVERLAY_DELETE, false}});
    AllowOverlayButtons(context);
}

constexpr PageTraits kWatermarkPage = {
    .dialogName = "DLGTABWM",
    .helpTopic = 1103,
    .viewKind = kViewWatermark,
    .features = kOrdinaryPage,
    .onInit = OnWatermarkInit,
    .beforeCommand = BeforeWatermarkCommand,
    .afterRefresh = AllowWatermarkButtons,
    .onApply = OnWatermarkApply,
};
constexpr PageTraits kOverlayPage = {
    .dialogName = "DLGTABOVER",
    .helpTopic = 5114,
    .viewKind = kViewPage,
    .features = kOrdinaryPage,
    .onInit = OnOverlayInit,
    .afterRefresh = AllowOverlayButtons,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTABWM(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kWatermarkPage, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTABOVER(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kOverlayPage, page, message, wParam, lParam);
}
