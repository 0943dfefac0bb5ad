// Layout page: pages per sheet and booklet, binding, rotation and image shift. Its dialogs have
// files of their own.
#include <cstddef>
#include <cstring>

#include "binding/control_fill.h"
#include "exports.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/defaults.h"
#include "settings/dialog_procedures.h"
#include "settings/reactor.h"
#include "sheet/snapshot.h"
#include "ui/page_skeleton.h"

namespace kvui {
namespace {

constexpr size_t kEntryTextSize = 128;
constexpr char kDialogName[] = "DLGTAB1";
constexpr char kImageShiftName[] = "_LBPIMAGESHIFT";

DWORD& SavedDuplexMode(SheetContext& context) {
    return context.snapshot->ModuleWord(offsetof(PrivateDevmode, mdmDuplexMode));
}

bool IsBooklet(const SheetContext& context) {
    return context.privateSettings->mdmNup == kNupBooklet;
}

// A border drawn round nothing must not come back with the next choice.
void BeforeCommand(SheetContext& context, DWORD id, WORD code) {
    PrivateDevmode& settings = *context.privateSettings;
    if (id != IDC_COMBO_NUP || code != CBN_SELENDOK) return;
    if (settings.mdmNup == kNupOff || settings.mdmNup >= kNupPosterFirst) {
        settings.mdmNupStyle &= ~kNupBorder;
    }
}

void OnCommand(SheetContext& context, DWORD id, WORD code) {
    if (id == IDC_COMBO_NUP && code == CBN_SELENDOK) KeepOrderOfTwoPages(context);
}

// A booklet is bound left unless its binding was chosen already.
void BindBooklet(SheetContext& context, SettingChanged changed) {
    PrivateDevmode& settings = *context.privateSettings;
    if (!IsBooklet(context) || IsBookletBinding(settings.mdmDuplexMode)) return;
    // A refused choice refills the duplex list, which stores its first entry over the binding.
    if (changed == SettingChanged::kNo && IsBookletBinding(SavedDuplexMode(context))) {
        settings.mdmDuplexMode = SavedDuplexMode(context);
        return;
    }
    settings.mdmDuplexMode = kDuplexBookletLeft;
    // Another entry of the duplex list may have been derived meanwhile.
    React(context, IDC_COMBO_DUPLEX, ReactScope::kOneControl);
    TakeSnapshot(context);
}

// Tells that the sheet is printed on both sides, whatever the list's first entry stands for.
void NameFirstDuplexEntry(const SheetContext& context, HWND combo) {
    char wanted[kEntryTextSize] = "";
    LoadStringA(context.strings, IsBooklet(context) ? IDS_DUPLEX_ON : IDS_DUPLEX_OFF, wanted,
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

// The duplex list does not offer the bindings of a booklet and stores its first entry when it is
// filled: the snapshot has kept the binding.
void KeepBinding(SheetContext& context) {
    if (!IsBooklet(context)) return;
    context.privateSettings->mdmDuplexMode = SavedDuplexMode(context);
    NameFirstDuplexEntry(context, GetDlgItem(context.page, IDC_COMBO_DUPLEX));
}

void AfterCommand(SheetContext& context, SettingChanged changed) {
    BindBooklet(context, changed);
    if (IsBooklet(context)) {
        NameFirstDuplexEntry(context, GetDlgItem(context.page, IDC_COMBO_DUPLEX));
    }
}

void OnDefaults(SheetContext& context) {
    ApplyDialogDefaults(context.settings, context.printer, kImageShiftName);
    DWORD& saved = SavedDuplexMode(context);
    if (saved > kDuplexBookletLeft) saved = kDuplexBookletLeft;
    context.privateSettings->mdmNupStyle &= ~(kNupOrderMask | kNupBorder);
}

void OnApply(SheetContext& context) {
    RefreshDialog(context, SettingChanged::kYes, context.page, kDialogName);
    if (context.flags & kSheetReadOnly) DisableChildren(context.page);
    KeepBinding(context);
}

bool OnMessage(SheetContext& context, UINT message, WPARAM, LPARAM lParam) {
    if (message == kMessageRefreshAll && IsBooklet(context)) {
        // The settings came from elsewhere: what they say of the binding counts.
        BindBooklet(context, SettingChanged::kYes);
        TakeSnapshot(context);
    }
    if (message == WM_DRAWITEM) {
        const auto& draw = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (draw.CtlID == IDC_COMBO_NUP && static_cast<DWORD>(draw.itemData) == kNupBooklet) {
            NameFirstDuplexEntry(context, GetDlgItem(context.page, IDC_COMBO_DUPLEX));
        }
    }
    return false;
}

const PageTraits kLayoutPage = {
    .dialogName = kDialogName,
    .helpTopic = 1201,
    .viewKind = kViewPage,
    .features = kOrdinaryPage,
    .onInit = KeepBinding,
    .beforeCommand = BeforeCommand,
    .onCommand = OnCommand,
    .onDefaults = OnDefaults,
    .afterCommand = AfterCommand,
    .afterRefresh = KeepBinding,
    .onApply = OnApply,
    .onMessage = OnMessage,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB1(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kLayoutPage, page, message, wParam, lParam);
}
