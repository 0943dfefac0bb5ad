// Pages/Sheet Details ("_DLGCOMBINATION"): pages per sheet, their order or the booklet's binding,
// and borders, with a preview. The Layout page opens it.
#include "binding/control_fill.h"
#include "binding/notification.h"
#include "dialog/dialog_definition.h"
#include "preview/page_grid.h"
#include "preview/shared_view.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/booklet.h"
#include "settings/dialog_procedures.h"
#include "settings/reactor.h"
#include "sheet/snapshot.h"
#include "ui/steps.h"

namespace kvui {
namespace {

constexpr SHORT kPortrait = 1;
constexpr char kBindingAtOpening[] = "KVBindingAtOpening";

// One of these is shown, by pages per sheet and orientation.
constexpr DWORD kOrderCombos[] = {IDC_COMBO_ORDER, IDC_COMBO_BOOKLET, IDC_COMBO_ORDER_DOWN,
                                  IDC_COMBO_ORDER_ACROSS};

// Captions of the entries that have no details: one page per sheet, and posters.
constexpr UINT kEntriesWithoutDetails[] = {IDS_NUP_1, IDS_POSTER_2X2, IDS_POSTER_3X3,
                                           IDS_POSTER_4X4, IDS_POSTER_5X5};

LRESULT SelectedData(HWND combo) {
    const LRESULT index = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    return index < 0 ? -1 : SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(index), 0);
}

DWORD OrderComboOf(const SheetContext& context) {
    switch (context.privateSettings->mdmNup) {
        case kNupBooklet:
            return IDC_COMBO_BOOKLET;
        case 2:
            return context.settings->dmOrientation == kPortrait ? IDC_COMBO_ORDER_ACROSS
                                                                : IDC_COMBO_ORDER_DOWN;
        default:
            return IDC_COMBO_ORDER;
    }
}

void ShowOrderCombo(Run& run) {
    const DWORD wanted = OrderComboOf(run.context);
    for (const DWORD id : kOrderCombos) {
        ShowWindow(GetDlgItem(run.window, static_cast<int>(id)), id == wanted ? SW_SHOW : SW_HIDE);
    }
}

// An order that was chosen for more pages may be none that two pages can have; the preview then
// goes by the side on which the first one lies, and so does the list.
void SelectDrawnOrder(Run& run) {
    if (OrderComboOf(run.context) != IDC_COMBO_ORDER_ACROSS) return;
    const HWND combo = GetDlgItem(run.window, IDC_COMBO_ORDER_ACROSS);
    const DWORD drawn = run.context.privateSettings->mdmNupStyle & kOrderFromRight;
    for (LRESULT i = SendMessageA(combo, CB_GETCOUNT, 0, 0) - 1; i >= 0; --i) {
        if (static_cast<DWORD>(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(i), 0)) ==
            drawn) {
            SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(i), 0);
        }
    }
}

// The shown list tells what holds from now on.
void StoreShownOrder(Run& run) {
    PrivateDevmode& settings = *run.context.privateSettings;
    const DWORD id = OrderComboOf(run.context);
    const LRESULT value = SelectedData(GetDlgItem(run.window, static_cast<int>(id)));
    if (value < 0) return;
    PageOrder(settings) = static_cast<DWORD>(value);
}

void ChangeOrders(Run& run) {
    if (run.id != IDC_COMBO_NUP) return;
    ShowOrderCombo(run);
    StoreShownOrder(run);
}

// The order lists store over the border's bit of the same word.
void FollowBorderBox(Run& run) {
    DWORD& style = run.context.privateSettings->mdmNupStyle;
    const bool border = IsDlgButtonChecked(run.window, IDC_CHK_NUP_BORDER) == BST_CHECKED;
    style = border ? style | kNupBorder : style & ~kNupBorder;
}

void RemoveEntriesWithoutDetails(Run& run) {
    const HWND combo = GetDlgItem(run.window, IDC_COMBO_NUP);
    const LRESULT chosen = SelectedData(combo);
    for (const UINT caption : kEntriesWithoutDetails) {
        char text[128] = "";
        if (LoadStringA(run.context.strings, caption, text, sizeof text) == 0) continue;
        const LRESULT index = SendMessageA(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(text));
        if (index >= 0) SendMessageA(combo, CB_DELETESTRING, static_cast<WPARAM>(index), 0);
    }
    if (chosen < 0 || SelectedData(combo) == chosen) return;
    const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
    LRESULT index = count - 1;
    while (index >= 0 &&
           SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(index), 0) != chosen) {
        --index;
    }
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void RedrawPreview(Run& run) {
    InvalidateRect(GetDlgItem(run.window, IDC_PIC_MAIN_VIEW), nullptr, FALSE);
}

// Filling compares whole words, and lists that do not offer the stored value store another: the
// border's bit steps aside, and both words are put back afterwards.
void FillBesideBorder(Run& run) {
    PrivateDevmode& settings = *run.context.privateSettings;
    const DWORD style = settings.mdmNupStyle;
    const DWORD binding = settings.mdmDuplexMode;
    SetPropA(run.window, kBindingAtOpening,
             reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(binding)));
    settings.mdmNupStyle &= ~kNupBorder;
    FillInTableOrder(run);
    settings.mdmNupStyle = style;
    settings.mdmDuplexMode = binding;
}

void ShowBorder(Run& run) {
    const bool border = (run.context.privateSettings->mdmNupStyle & kNupBorder) != 0;
    CheckDlgButton(run.window, IDC_CHK_NUP_BORDER, border ? BST_CHECKED : BST_UNCHECKED);
}

void HookPreview(Run& run) {
    HookPaperView(run.context, GetDlgItem(run.window, IDC_PIC_MAIN_VIEW));
}

// A refused choice refills the list with every entry.
void LimitRefilledList(Run& run) {
    if (run.id == IDC_COMBO_NUP) RemoveEntriesWithoutDetails(run);
}

void UseDefaultOrder(Run& run) {
    PrivateDevmode& settings = *run.context.privateSettings;
    for (const DWORD id : kOrderCombos) {
        SendMessageA(GetDlgItem(run.window, static_cast<int>(id)), CB_SETCURSEL, 0, 0);
    }
    settings.mdmNupStyle &= ~(kNupOrderMask | kNupBorder);
    CheckDlgButton(run.window, IDC_CHK_NUP_BORDER, BST_UNCHECKED);
    if (IsBeyondDuplexList(settings.mdmDuplexMode)) {
        const LRESULT first =
            SendMessageA(GetDlgItem(run.window, IDC_COMBO_BOOKLET), CB_GETITEMDATA, 0, 0);
        settings.mdmDuplexMode = first < 0 ? kDuplexBookletLeft : static_cast<DWORD>(first);
    }
}

// Defaults chooses by itself: nothing is routed or derived.
void PressDefaults(Run& run) {
    if (run.id != IDC_DEFAULTS) return;
    run.over = true;
    if (run.code != BN_CLICKED) return;
    UseDefaultOrder(run);
    RedrawPreview(run);
}

// The reactor may have limited the binding of the settings' copy meanwhile.
void RestoreBinding(Run& run) {
    KeptBinding(*run.context.snapshot) =
        static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(GetPropA(run.window, kBindingAtOpening)));
}

void ForgetBinding(Run& run) {
    RemovePropA(run.window, kBindingAtOpening);
}

constexpr DialogDefinition kCombination = {
    .templateName = "_DLGCOMBINATION",
    .dialogName = "DLGCOMBINATION",
    .helpTopic = 1102,
    .ok = {IDOK, 1, InOrder<Keep, ReactToAll>},
    .cancel = {IDCANCEL, 1, InOrder<RestoreBinding, Restore>},
    .open = InOrder<Keep, FillBesideBorder, SetCaptions, ShowBorder, ShowOrderCombo,
                    SelectDrawnOrder, HookPreview, RemoveEntriesWithoutDetails>,
    .command = InOrder<PressDefaults, Route, LimitRefilledList,
                       IfChanged<ChangeOrders, FollowBorderBox, React, RedrawPreview>>,
    .drawItem = DrawEntry,
    .close = ForgetBinding,
};

}  // namespace

void KeepOrderOfTwoPages(SheetContext& context) {
    constexpr DWORD kDownward = 2;
    PrivateDevmode& settings = *context.privateSettings;
    if (settings.mdmNup != 2) return;
    const DWORD order = context.settings->dmOrientation == kPortrait
                            ? settings.mdmNupStyle & kOrderFromRight
                            : kDownward;
    settings.mdmNupStyle = (settings.mdmNupStyle & ~kNupOrderMask) | order;
}

INT_PTR CALLBACK CombinationDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunDialog(kCombination, dialog, message, wParam, lParam);
}

}  // namespace kvui
