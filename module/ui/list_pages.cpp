// Watermark and Overlay pages: which of the buttons under their lists can act on the selected
// entry, and what Delete does. Their editors have procedures of their own.
#include <windows.h>

#include <winspool.h>

#include <cstring>
#include <initializer_list>

#include "exports.h"
#include "binding/control_fill.h"
#include "lists/overlay_store.h"
#include "lists/watermark_list.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "rules/conflicts.h"
#include "rules/gray_out.h"
#include "sheet/message_box.h"
#include "sheet/printer_data_change.h"
#include "sheet/printer_values.h"
#include "ui/page_definition.h"
#include "ui/watermark_editor.h"

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

void AllowWatermarkButtons(Run& run) {
    SheetContext& context = run.context;
    const bool changeable = CanChangeWatermark(context, context.privateSettings->mdmWatermark);
    Allow(context, {{IDC_BTN_WATERMARK_ADD, !RoomForWatermarks(context).IsFull()},
                    {IDC_BTN_WATERMARK_EDIT, changeable},
                    {IDC_BTN_WATERMARK_DELETE, changeable}});
}

void HideWatermarkButtons(Run& run) {
    HideWhereNothingCanBeStored(run.context, {{IDC_BTN_WATERMARK_ADD, false},
                                              {IDC_BTN_WATERMARK_EDIT, false},
                                              {IDC_BTN_WATERMARK_DELETE, false}});
}

void AskAndDeleteWatermark(Run& run) {
    if (run.id != IDC_BTN_WATERMARK_DELETE || run.code != BN_CLICKED) return;
    SheetContext& context = run.context;
    const DWORD chosen = context.privateSettings->mdmWatermark;
    if (CanChangeWatermark(context, chosen) &&
        ShowMessageString(run.window, context.strings, IDS_WATERMARK_DELETE, IDS_WARNING,
                          MB_OKCANCEL | MB_ICONEXCLAMATION) == IDOK) {
        DeleteWatermark(context, chosen);
    }
}

// The id of an entry that is no watermark leaves the record of an untouched page as it is.
void StoreWatermarks(Run& run) {
    if (!CommitWatermarks(run.context)) {
        ShowMessageString(run.window, run.context.strings, IDS_LIST_NOT_STORED, IDS_WARNING,
                          MB_ICONEXCLAMATION);
    }
    const PrivateDevmode& settings = *run.context.privateSettings;
    DWORD copied = 0;
    std::memcpy(&copied, settings.watermarkRecord, sizeof copied);
    if (settings.mdmWatermark != 0 || copied != 0) CopyChosenWatermark(run.context);
}

// The first entry stands for no overlay.
void AllowOverlayButtons(Run& run) {
    const HWND list = GetDlgItem(run.window, IDC_LIST_OVERLAY);
    const LRESULT index = SendMessageA(list, LB_GETCURSEL, 0, 0);
    const bool chosen =
        index > 0 && SendMessageA(list, LB_GETITEMDATA, static_cast<WPARAM>(index), 0) > 0;
    OverlayBlock block;
    LoadOverlays(run.context, block);
    Allow(run.context, {{IDC_BTN_OVERLAY_ADD, block.count < kMostOverlays},
                        {IDC_BTN_OVERLAY_EDIT, chosen},
                        {IDC_BTN_OVERLAY_DELETE, chosen}});
}

void HideOverlayButtons(Run& run) {
    HideWhereNothingCanBeStored(run.context, {{IDC_BTN_OVERLAY_ADD, false},
                                              {IDC_BTN_OVERLAY_EDIT, false},
                                              {IDC_BTN_OVERLAY_DELETE, false}});
}

void PrepareOverlays(Run& run) {
    MakeFirstOverlay(run.context);
}

bool IsOverlayButton(const Run& run) {
    return (run.id == IDC_BTN_OVERLAY_ADD || run.id == IDC_BTN_OVERLAY_EDIT ||
            run.id == IDC_BTN_OVERLAY_DELETE) &&
           run.code == BN_CLICKED;
}

void RememberOverlay(Run& run) {
    if (!IsOverlayButton(run)) return;
    run.context.shared->lists.editsOverlay = run.id == IDC_BTN_OVERLAY_EDIT;
    run.context.shared->lists.overlayBefore = run.context.privateSettings->mdmOverlay;
}

// The one above it is chosen then. False when it could not be stored.
bool DeleteOverlay(SheetContext& context) {
    DWORD& chosen = context.privateSettings->mdmOverlay;
    PrinterDataChange change(context);
    OverlayBlock block;
    if (!change || !LoadOverlays(context, block)) return false;
    const int index = IndexOfOverlay(block, chosen);
    if (index <= 0) return true;
    const DWORD above = block.ids[index - 1];
    RemoveOverlay(block, index);
    if (!SaveOverlays(context, block) || !change.Commit()) return false;
    chosen = above;
    return true;
}

void AskAndDeleteOverlay(Run& run) {
    if (run.id != IDC_BTN_OVERLAY_DELETE || run.code != BN_CLICKED) return;
    SheetContext& context = run.context;
    if (ShowMessageString(run.window, context.strings, IDS_OVERLAY_DELETE, IDS_WARNING,
                          MB_OKCANCEL | MB_ICONEXCLAMATION) != IDOK ||
        context.privateSettings->mdmOverlay == 0 || DeleteOverlay(context)) {
        return;
    }
    ShowMessageString(run.window, context.strings, IDS_LIST_NOT_STORED, IDS_WARNING,
                      MB_ICONEXCLAMATION);
}

// Another overlay than before may not be allowed beside other settings.
void CheckOverlay(Run& run) {
    if (!IsOverlayButton(run)) return;
    SheetContext& context = run.context;
    if (ResolveConflicts(context, IDC_LIST_OVERLAY, run.window) != 1) {
        context.privateSettings->mdmOverlay = context.shared->lists.overlayBefore;
    }
    ReadChosenOverlayPath(context);
    FillControl(context, run.window, *ItemById(IDC_LIST_OVERLAY));
}

const PageDefinition kWatermarkPage = {
    .dialogName = "DLGTABWM",
    .helpTopic = 1103,
    .view = kViewWatermark,
    .open = InOrder<kBeginOpening, HideWatermarkButtons, AllowWatermarkButtons, kEndOpening>,
    .command = InOrder<BeginWatermarkEdit, AskAndDeleteWatermark, kCommand>,
    .refresh = InOrder<RefreshControls, AllowWatermarkButtons, DisableIfReadOnly>,
    .apply = InOrder<StoreWatermarks, Keep>,
    .close = InOrder<EndWatermarkEdit, kClose>,
};
const PageDefinition kOverlayPage = {
    .dialogName = "DLGTABOVER",
    .helpTopic = 5114,
    .view = kViewPage,
    .open = InOrder<PrepareOverlays, kBeginOpening, HideOverlayButtons, AllowOverlayButtons,
                    kEndOpening>,
    .command = InOrder<RememberOverlay, AskAndDeleteOverlay, RouteOrDefaults,
                       IfChanged<CheckOverlay, kTakeAndRefresh>>,
    .refresh = InOrder<RefreshControls, AllowOverlayButtons, DisableIfReadOnly>,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTABWM(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kWatermarkPage, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTABOVER(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kOverlayPage, page, message, wParam, lParam);
}
