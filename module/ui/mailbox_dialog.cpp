// Mailbox Setting ("_MAILBOXR"): which bins of the sorter are mailboxes, and their names. The
// Device Options page opens it.
#include <cstring>
#include <string>
#include <vector>

#include "dialog/dialog_definition.h"
#include "exports.h"
#include "lists/mailboxes.h"
#include "preview/shared_view.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "sheet/fixed_text.h"
#include "sheet/message_box.h"
#include "ui/steps.h"

namespace kvui {
namespace {

using Bins = std::vector<BinRecord>;

constexpr int kMaxNameCharacters = 20;
constexpr size_t kTypedSize = 256;
constexpr char kBinsAtOpening[] = "KVBinsAtOpening";

HWND ListOf(const Run& run) {
    return GetDlgItem(run.window, IDC_LIST_MAILBOX);
}

// The selected mailbox's bit; 0 for none.
DWORD SelectedMailbox(const Run& run) {
    const LRESULT index = SendMessageA(ListOf(run), LB_GETCURSEL, 0, 0);
    if (index < 0) return 0;
    return static_cast<DWORD>(SendMessageA(ListOf(run), LB_GETITEMDATA, index, 0));
}

void EnableApply(const Run& run, bool enabled) {
    // A disabled button must not keep the focus.
    const HWND button = GetDlgItem(run.window, IDC_BTN_MAILBOX_APPLY);
    if (!enabled && GetFocus() == button) SetFocus(ListOf(run));
    EnableWindow(button, enabled);
}

bool MayRename(const Run& run) {
    return (run.context.flags & kSheetDataNotWritable) == 0;
}

// The selection stays with its mailbox; without one there is no name to change.
void FillMailboxes(Run& run) {
    const HWND list = ListOf(run);
    const DWORD selected = SelectedMailbox(run);
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    for (const BinRecord& bin : SorterBins(run.context)) {
        if (!IsMailbox(run.context, bin)) continue;
        const LRESULT index =
            SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(bin.displayName));
        if (index < 0) continue;
        SendMessageA(list, LB_SETITEMDATA, index, static_cast<LPARAM>(bin.identifier));
        if (bin.identifier == selected) SendMessageA(list, LB_SETCURSEL, index, 0);
    }
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
    if (SelectedMailbox(run) != 0) return;
    SetDlgItemTextA(run.window, IDC_EDIT_MAILBOX_NAME, "");
    EnableApply(run, false);
}

void PrepareName(Run& run) {
    SendDlgItemMessageA(run.window, IDC_EDIT_MAILBOX_NAME, EM_LIMITTEXT, kMaxNameCharacters, 0);
    EnableWindow(GetDlgItem(run.window, IDC_EDIT_MAILBOX_NAME), MayRename(run));
}

// Cancel writes these back, whatever was renamed meanwhile.
void KeepBins(Run& run) {
    auto* bins = new Bins(SorterBins(run.context));
    if (!SetPropA(run.window, kBinsAtOpening, bins)) delete bins;
}

void ForgetBins(Run& run) {
    delete static_cast<Bins*>(RemovePropA(run.window, kBinsAtOpening));
}

void ShowFigure(Run& run) {
    HookPrinterFigure(run.context, GetDlgItem(run.window, IDC_PIC_MAILBOX));
}

void RedrawFigure(Run& run) {
    InvalidateRect(GetDlgItem(run.window, IDC_PIC_MAILBOX), nullptr, FALSE);
}

void ShowSelectedName(Run& run) {
    if (run.id != IDC_LIST_MAILBOX || run.code != LBN_SELCHANGE) return;
    const DWORD selected = SelectedMailbox(run);
    for (const BinRecord& bin : SorterBins(run.context)) {
        if (bin.identifier != selected) continue;
        SetDlgItemTextA(run.window, IDC_EDIT_MAILBOX_NAME, bin.displayName);
        EnableApply(run, MayRename(run));
    }
}

// Its item opens nothing, so the press must not reach the dispatcher.
void RenameOrDispatch(Run& run) {
    if (run.id != IDC_BTN_MAILBOX_APPLY) return Dispatch(run);
    char typed[kTypedSize] = "";
    GetDlgItemTextA(run.window, IDC_EDIT_MAILBOX_NAME, typed, sizeof typed);
    if (run.code != BN_CLICKED || typed[0] == '\0') return;
    const DWORD selected = SelectedMailbox(run);
    for (BinRecord& bin : SorterBins(run.context)) {
        if (bin.identifier != selected) continue;
        // The record is kept byte for byte: nothing of a longer name is left behind the end.
        std::memset(bin.displayName, 0, sizeof bin.displayName);
        CopyText(bin.displayName, typed);
        UpdateSorterBin(run.context, bin);
        FillMailboxes(run);
        return;
    }
}

void StoreNames(Run& run) {
    if (CommitSorterBins(run.context)) return;
    ShowMessageString(run.window, run.context.strings, IDS_NAMES_NOT_STORED, IDS_WARNING,
                      MB_ICONEXCLAMATION);
}

void PutNamesBack(Run& run) {
    if (const auto* bins = static_cast<Bins*>(GetPropA(run.window, kBinsAtOpening))) {
        for (const BinRecord& bin : *bins) UpdateSorterBin(run.context, bin);
    }
    DropSorterBins(run.context);
}

constexpr DialogDefinition kMailbox = {
    .templateName = "_MAILBOXR",
    .dialogName = "MAILBOX",
    .helpTopic = 1402,
    .ok = {IDOK, 1, StoreNames},
    .cancel = {IDCANCEL, 1, InOrder<PutNamesBack, Restore>},
    .open = InOrder<kOpenDialog, KeepBins, FillMailboxes, PrepareName, ShowFigure>,
    .command = InOrder<RenameOrDispatch, ShowSelectedName, IfChanged<FillMailboxes, RedrawFigure>,
                       kFollowDialog>,
    .refresh = RefreshControls,
    .close = ForgetBins,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMMailBox(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunDialog(kvui::kMailbox, dialog, message, wParam, lParam);
}
