// Pages/Sheet Details ("_DLGCOMBINATION"): pages per sheet, their order or the booklet's binding,
// and borders, with a preview. The Layout page opens it.
#include <cstddef>

#include "binding/control_fill.h"
#include "binding/notification.h"
#include "dialog/help.h"
#include "preview/page_grid.h"
#include "preview/shared_view.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/dialog_procedures.h"
#include "settings/reactor.h"
#include "sheet/snapshot.h"
#include "ui/dialog_messages.h"
#include "ui/entry_drawing.h"
#include "ui/page_skeleton.h"
#include "ui/page_table.h"

namespace kvui {
namespace {

constexpr char kTemplate[] = "_DLGCOMBINATION";
constexpr char kDialogName[] = "DLGCOMBINATION";
constexpr int kHelpTopic = 1102;
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

void ShowOrderCombo(const SheetContext& context, HWND dialog) {
    const DWORD wanted = OrderComboOf(context);
    for (const DWORD id : kOrderCombos) {
        ShowWindow(GetDlgItem(dialog, static_cast<int>(id)), id == wanted ? SW_SHOW : SW_HIDE);
    }
}

// An order that was chosen for more pages may be none that two pages can have; the preview then
// goes by the side on which the first one lies, and so does the list.
void SelectDrawnOrder(const SheetContext& context, HWND dialog) {
    if (OrderComboOf(context) != IDC_COMBO_ORDER_ACROSS) return;
    const HWND combo = GetDlgItem(dialog, IDC_COMBO_ORDER_ACROSS);
    const DWORD drawn = context.privateSettings->mdmNupStyle & kOrderFromRight;
    for (LRESULT i = SendMessageA(combo, CB_GETCOUNT, 0, 0) - 1; i >= 0; --i) {
        if (static_cast<DWORD>(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(i), 0)) ==
            drawn) {
            SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(i), 0);
        }
    }
}

// The shown list tells what holds from now on.
void StoreShownOrder(SheetContext& context, HWND dialog) {
    PrivateDevmode& settings = *context.privateSettings;
    const DWORD id = OrderComboOf(context);
    const LRESULT value = SelectedData(GetDlgItem(dialog, static_cast<int>(id)));
    if (value < 0) return;
    (id == IDC_COMBO_BOOKLET ? settings.mdmDuplexMode : settings.mdmNupStyle) =
        static_cast<DWORD>(value);
}

// The order lists store over the border's bit of the same word.
void FollowBorderBox(SheetContext& context, HWND dialog) {
    DWORD& style = context.privateSettings->mdmNupStyle;
    const bool border = IsDlgButtonChecked(dialog, IDC_CHK_NUP_BORDER) == BST_CHECKED;
    style = border ? style | kNupBorder : style & ~kNupBorder;
}

void RemoveEntriesWithoutDetails(const SheetContext& context, HWND combo) {
    const LRESULT chosen = SelectedData(combo);
    for (const UINT caption : kEntriesWithoutDetails) {
        char text[128] = "";
        if (LoadStringA(context.strings, caption, text, sizeof text) == 0) continue;
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

void RedrawPreview(HWND dialog) {
    InvalidateRect(GetDlgItem(dialog, IDC_PIC_MAIN_VIEW), nullptr, FALSE);
}

void OnInitDialog(SheetContext& context, HWND dialog) {
    PrivateDevmode& settings = *context.privateSettings;
    TakeSnapshot(context);
    // Filling compares whole words, and lists that do not offer the stored value store another:
    // the border's bit steps aside, and both words are put back afterwards.
    const DWORD style = settings.mdmNupStyle;
    const DWORD binding = settings.mdmDuplexMode;
    SetPropA(dialog, kBindingAtOpening, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(binding)));
    settings.mdmNupStyle &= ~kNupBorder;
    InitialiseInTableOrder(context, dialog, kDialogName);
    settings.mdmNupStyle = style;
    settings.mdmDuplexMode = binding;
    SetSubDialogTitle(context, dialog, kTemplate);
    SetChildCaptions(context, dialog);
    CheckDlgButton(dialog, IDC_CHK_NUP_BORDER, style & kNupBorder ? BST_CHECKED : BST_UNCHECKED);
    ShowOrderCombo(context, dialog);
    SelectDrawnOrder(context, dialog);
    HookPaperView(context, GetDlgItem(dialog, IDC_PIC_MAIN_VIEW));
    RemoveEntriesWithoutDetails(context, GetDlgItem(dialog, IDC_COMBO_NUP));
}

void OnDefaults(SheetContext& context, HWND dialog) {
    PrivateDevmode& settings = *context.privateSettings;
    for (const DWORD id : kOrderCombos) {
        SendMessageA(GetDlgItem(dialog, static_cast<int>(id)), CB_SETCURSEL, 0, 0);
    }
    settings.mdmNupStyle &= ~(kNupOrderMask | kNupBorder);
    CheckDlgButton(dialog, IDC_CHK_NUP_BORDER, BST_UNCHECKED);
    if (settings.mdmDuplexMode >= kDuplexBookletLeft) {
        const LRESULT first =
            SendMessageA(GetDlgItem(dialog, IDC_COMBO_BOOKLET), CB_GETITEMDATA, 0, 0);
        settings.mdmDuplexMode = first < 0 ? kDuplexBookletLeft : static_cast<DWORD>(first);
    }
    RedrawPreview(dialog);
}

void OnControl(SheetContext& context, HWND dialog, HWND control, WPARAM wParam) {
    const DWORD id = LOWORD(wParam);
    const RouteResult result = RouteCommand(context, dialog, control, wParam);
    // A refused choice refills the list with every entry.
    if (id == IDC_COMBO_NUP) {
        RemoveEntriesWithoutDetails(context, GetDlgItem(dialog, IDC_COMBO_NUP));
    }
    if (!result.handled || !result.changed) return;
    if (id == IDC_COMBO_NUP) {
        ShowOrderCombo(context, dialog);
        StoreShownOrder(context, dialog);
    }
    FollowBorderBox(context, dialog);
    React(context, id, ReactScope::kOneControl);
    RedrawPreview(dialog);
}

// The reactor may have limited the snapshot's binding meanwhile.
void OnCancel(SheetContext& context, HWND dialog) {
    context.snapshot->ModuleWord(offsetof(PrivateDevmode, mdmDuplexMode)) =
        static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(GetPropA(dialog, kBindingAtOpening)));
    RestoreSnapshot(context);
}

void OnCommand(SheetContext& context, HWND dialog, HWND control, WPARAM wParam) {
    switch (LOWORD(wParam)) {
        case IDOK:
            TakeSnapshot(context);
            React(context, 0, ReactScope::kWholePage);
            EndDialog(dialog, 1);
            return;
        case IDCANCEL:
            OnCancel(context, dialog);
            EndDialog(dialog, 1);
            return;
        case IDHELP:
            ShowPageHelp(context, dialog, kHelpTopic);
            return;
        case IDC_DEFAULTS:
            if (HIWORD(wParam) == BN_CLICKED) OnDefaults(context, dialog);
            return;
        default:
            OnControl(context, dialog, control, wParam);
            return;
    }
}

void OnDestroy(HWND dialog) {
    RemovePropA(dialog, kBindingAtOpening);
}

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
    static constexpr DialogHandlers kCombination = {
        .onInit = OnInitDialog,
        .onCommand = OnCommand,
        .onDrawItem = DrawComboEntry,
        .onDestroy = OnDestroy,
    };
    return RunDialog(kCombination, dialog, message, wParam, lParam);
}

}  // namespace kvui
