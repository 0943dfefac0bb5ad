// The common steps: each hands the message's page or dialog on to who does the work.
#include "ui/steps.h"

#include <prsht.h>
#include <winspool.h>

#include "binding/control_fill.h"
#include "binding/notification.h"
#include "device/printer_query.h"
#include "dialog/dialog_table.h"
#include "preview/shared_view.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/defaults.h"
#include "settings/reactor.h"
#include "sheet/messages.h"
#include "sheet/printer_values.h"
#include "sheet/snapshot.h"
#include "ui/entry_drawing.h"
#include "ui/sheet_life.h"

namespace kvui {
namespace {

constexpr int kNoticeTextSize = 1024;

bool IsNetworkPrinter(SheetContext& context) {
    SheetAnswer& answer = context.shared->life.networkPrinter;
    if (answer == kAnswerUnknown) {
        const bool network = (PrinterAttributes(context) & PRINTER_ATTRIBUTE_NETWORK) != 0;
        answer = network ? kAnswerYes : kAnswerNo;
    }
    return answer == kAnswerYes;
}

// Of WM_HSCROLL and WM_VSCROLL; while a slider moves nothing is stored.
bool IsAtRest(WORD scrollCode) {
    return scrollCode == SB_THUMBPOSITION || scrollCode == SB_ENDSCROLL ||
           scrollCode == kScrollFromValueEdit;
}

}  // namespace

void LoadRules(Run& run) {
    LoadSheetRules(run.context);
}

void EndOfSheet(Run& run) {
    EndSheet(run.context);
}

void LeaveSheet(Run& run) {
    ReleaseShared(run.context);
}

void ReleaseBlock(Run& run) {
    ReleasePage(run.context, run.window);
}

void Keep(Run& run) {
    TakeSnapshot(run.context);
}

void Restore(Run& run) {
    RestoreSnapshot(run.context);
}

void Fill(Run& run) {
    InitialiseControls(run.context, run.window, PageOfWindow(run.context, run.window).dialogName);
}

void FillInTableOrder(Run& run) {
    InitialiseInTableOrder(run.context, run.window, run.dialogName);
}

void FillByName(Run& run) {
    InitialiseControls(run.context, run.window, run.dialogName);
}

void RefreshControls(Run& run) {
    RefreshDialog(run.context, run.window, run.dialogName);
}

void DisableIfReadOnly(Run& run) {
    if (!(run.context.flags & kSheetReadOnly)) return;
    EnumChildWindows(
        run.window,
        [](HWND child, LPARAM) -> BOOL {
            EnableWindow(child, FALSE);
            return TRUE;
        },
        0);
}

void ShowNotice(Run& run) {
    const HWND icon = GetDlgItem(run.window, IDC_NOTICE_ICON);
    const HWND text = GetDlgItem(run.window, IDC_NOTICE_TEXT);
    const bool shared = IsNetworkPrinter(run.context);
    if (shared) {
        char notice[kNoticeTextSize] = "";
        LoadStringA(run.context.strings, IDS_NETWORK_NOTICE, notice, sizeof notice);
        SetWindowTextA(text, notice);
        const HICON picture = LoadIconA(run.context.resources, MAKEINTRESOURCEA(IDI_NOTICE));
        SendMessageA(icon, STM_SETICON, reinterpret_cast<WPARAM>(picture), 0);
    }
    ShowWindow(icon, shared ? SW_SHOW : SW_HIDE);
    ShowWindow(text, shared ? SW_SHOW : SW_HIDE);
}

void Route(Run& run) {
    run.changed = RouteCommand(run.context, run.window, run.id, run.code);
}

void RouteOrDefaults(Run& run) {
    if (run.id != IDC_DEFAULTS) return Route(run);
    if (run.code != BN_CLICKED) {
        run.over = true;
        return;
    }
    run.changed = run.byDefaults = true;
    SetFocus(GetDlgItem(run.window, IDC_DEFAULTS));
}

void Dispatch(Run& run) {
    run.changed = DispatchNotification(run.context, run.window, run.id, run.code);
}

void DispatchScroll(Run& run) {
    if (!IsAtRest(run.code)) return;
    // A spin tells about the edit that it turns.
    if (const ControlItem* item = ItemOfSpin(run.id)) {
        run.id = item->controlId;
        run.code = EN_KILLFOCUS;
    }
    Dispatch(run);
}

void React(Run& run) {
    React(run.context, run.id, ReactScope::kOneControl);
}

void ReactToAll(Run& run) {
    React(run.context, 0, ReactScope::kWholePage);
}

void TellSheet(Run& run) {
    SendMessageA(GetParent(run.window), PSM_CHANGED, reinterpret_cast<WPARAM>(run.window), 0);
}

void ApplyDefaults(Run& run) {
    ApplyDialogDefaults(run.context.settings, run.context.printer, run.dialogName);
}

void AskPrinter(Run& run) {
    BOOL changed = FALSE;
    if (QueryPrinterConfiguration(run.context, &changed) && changed) run.changed = true;
}

void ShowOwnViews(Run& run) {
    ShowViewKind(run.context, static_cast<ViewKind>(run.view));
}

void AttachPanel(Run& run) {
    AttachSharedView(run.context);
}

void UpdatePanel(Run& run) {
    UpdateSharedView(run.context);
}

void RefillPanel(Run& run) {
    const HWND panel = run.context.shared->preview.panel;
    if (panel != nullptr) SendMessageA(panel, kMessageRefreshAll, 0, 0);
}

void DrawEntry(Run& run) {
    run.answer = DrawComboEntry(run.context, *reinterpret_cast<const DRAWITEMSTRUCT*>(run.lParam));
}

void Take(Run& run) {
    run.taken = true;
    run.take(run);
}

void Refresh(Run& run) {
    run.refresh(run);
}

void Show(Run& run) {
    run.show(run);
}

bool DiffersFromKept(const Run& run) {
    return ChangedSinceSnapshot(run.context);
}

}  // namespace kvui
