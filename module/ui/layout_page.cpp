// Layout page: pages per sheet and booklet, binding, rotation and image shift. Its dialogs have
// files of their own.
#include <cstring>

#include "binding/control_fill.h"
#include "exports.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/booklet.h"
#include "settings/defaults.h"
#include "settings/dialog_procedures.h"
#include "settings/reactor.h"
#include "sheet/snapshot.h"
#include "ui/page_definition.h"

namespace kvui {
namespace {

constexpr size_t kEntryTextSize = 128;

// A border drawn round nothing must not come back with the next choice.
void DropBorderOfNothing(Run& run) {
    PrivateDevmode& settings = *run.context.privateSettings;
    if (run.id != IDC_COMBO_NUP || run.code != CBN_SELENDOK) return;
    if (settings.mdmNup == kNupOff || settings.mdmNup >= kNupPosterFirst) {
        settings.mdmNupStyle &= ~kNupBorder;
    }
}

void OrderTwoPages(Run& run) {
    if (run.id == IDC_COMBO_NUP && run.code == CBN_SELENDOK) KeepOrderOfTwoPages(run.context);
}

// A refused choice refills the duplex list, which stores its first entry over the binding.
void BindIfBooklet(Run& run) {
    SheetContext& context = run.context;
    const Binding binding =
        BindBooklet(*context.privateSettings, run.changed, KeptBinding(*context.snapshot));
    if (binding != Binding::kChosen) return;
    // Another entry of the duplex list may have been derived meanwhile.
    React(context, IDC_COMBO_DUPLEX, ReactScope::kOneControl);
    TakeSnapshot(context);
}

// Tells that the sheet is printed on both sides, whatever the list's first entry stands for.
void NameFirstDuplexEntry(const SheetContext& context, HWND combo) {
    char wanted[kEntryTextSize] = "";
    LoadStringA(context.strings,
                IsBooklet(*context.privateSettings) ? IDS_DUPLEX_ON : IDS_DUPLEX_OFF, wanted,
                sizeof wanted);
    const LRESULT length = SendMessageA(combo, CB_GETLBTEXTLEN, 0, 0);
    if (length < 0 || length >= static_cast<LRESULT>(kEntryTextSize)) return;
    char shown[kEntryTextSize] = "";
    SendMessageA(combo, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(shown));
    // Painting comes here, and a change paints again.
    if (std::strcmp(shown, wanted) == 0) return;
    const LRESULT data = SendMessageA(combo, CB_GETITEMDATA, 0, 0);
    const LRESULT selected = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    SendMessageA(combo, WM_SETREDRAW, FALSE, 0);
    SendMessageA(combo, CB_DELETESTRING, 0, 0);
    SendMessageA(combo, CB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(wanted));
    SendMessageA(combo, CB_SETITEMDATA, 0, data);
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(selected), 0);
    SendMessageA(combo, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(combo, nullptr, TRUE);
}

void NameBookletsDuplex(Run& run) {
    if (!IsBooklet(*run.context.privateSettings)) return;
    NameFirstDuplexEntry(run.context, GetDlgItem(run.context.page, IDC_COMBO_DUPLEX));
}

// After the duplex list was filled.
void KeepBinding(Run& run) {
    if (!IsBooklet(*run.context.privateSettings)) return;
    run.context.privateSettings->mdmDuplexMode = KeptBinding(*run.context.snapshot);
    NameBookletsDuplex(run);
}

// The settings came from elsewhere: what they say of the binding counts.
void AdoptBinding(Run& run) {
    if (!IsBooklet(*run.context.privateSettings)) return;
    run.changed = true;
    BindIfBooklet(run);
    TakeSnapshot(run.context);
}

void DefaultLayoutDetails(Run& run) {
    SheetContext& context = run.context;
    ApplyDialogDefaults(context.settings, context.printer, "_LBPIMAGESHIFT");
    LimitToLeft(KeptBinding(*context.snapshot));
    context.privateSettings->mdmNupStyle &= ~(kNupOrderMask | kNupBorder);
}

// The two lists are read together: when the booklet's entry is drawn, the duplex list says whether
// a booklet is chosen.
void NameDuplexOfDrawnBooklet(Run& run) {
    const auto& draw = *reinterpret_cast<const DRAWITEMSTRUCT*>(run.lParam);
    if (draw.CtlID == IDC_COMBO_NUP && IsBooklet(static_cast<DWORD>(draw.itemData))) {
        NameFirstDuplexEntry(run.context, GetDlgItem(run.window, IDC_COMBO_DUPLEX));
    }
}

void HideListButtons(Run& run) {
    if (!(run.context.flags & kSheetDataNotWritable)) return;
    ShowWindow(GetDlgItem(run.window, IDC_BTN_CUSTOM_PAPER), SW_HIDE);
    ShowWindow(GetDlgItem(run.window, IDC_BTN_OVERLAY_EDIT), SW_HIDE);
}

const PageDefinition kLayoutPage = {
    .dialogName = "DLGTAB1",
    .helpTopic = 1201,
    .view = kViewPage,
    .open = InOrder<kBeginOpening, KeepBinding, kEndOpening>,
    .show = InOrder<ShowOwnViews, HideListButtons>,
    .command = InOrder<DropBorderOfNothing, RouteOrDefaults, OrderTwoPages, IfChanged<Take>,
                       BindIfBooklet, NameBookletsDuplex, IfChanged<Refresh, UpdatePanel>>,
    .take = InOrder<React, TellSheet, IfDefaults<ApplyDefaults, DefaultLayoutDetails>>,
    .refresh = InOrder<RefreshControls, KeepBinding, DisableIfReadOnly>,
    .refill = InOrder<AdoptBinding, kRefill>,
    .apply = InOrder<RefreshControls, DisableIfReadOnly, KeepBinding, Keep>,
    .drawItem = InOrder<NameDuplexOfDrawnBooklet, DrawEntry>,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB1(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kLayoutPage, page, message, wParam, lParam);
}
