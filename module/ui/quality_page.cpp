// Quality page: colour mode, colour matching, resolution and the image adjustments, each a slider
// with a value edit that follow each other. Also the small list dialog "_DLGTAB20", which nothing
// opens but its export.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "binding/control_fill.h"
#include "binding/notification.h"
#include "exports.h"
#include "resources/resource.h"
#include "settings/item_catalogue.h"
#include "settings/reactor.h"
#include "sheet/snapshot.h"
#include "ui/dialog_messages.h"
#include "ui/page_skeleton.h"
#include "ui/page_table.h"

namespace kvui {
namespace {

constexpr char kDialogName[] = "DLGTAB2";
constexpr WPARAM kValueEditCharacters = 3;
// High word of the message that a value edit sends for its slider.
constexpr WORD kScrollMark = 0x400;
constexpr SHORT kColour = 2;

// Calls act with every slider of the page until it answers true.
template <typename Act>
void ForEachSlider(Act act) {
    size_t next = 0;
    while (const ControlItem* item = NextItemOfDialog(next, kDialogName, kItemSlider, &next)) {
        if (item->slider != nullptr && act(*item, *item->slider)) return;
    }
}

HWND Child(const SheetContext& context, DWORD id) {
    return GetDlgItem(context.page, static_cast<int>(id));
}

void PrepareSlider(const SheetContext& context, DWORD sliderId, const SliderItem& slider) {
    const HWND bar = Child(context, sliderId);
    SetWindowLongPtrA(bar, GWL_STYLE, GetWindowLongPtrA(bar, GWL_STYLE) | TBS_DOWNISLEFT);
    SendMessageA(Child(context, slider.spinId), UDM_SETRANGE, 0,
                 MAKELPARAM(slider.maximum, slider.minimum));
    SendMessageA(Child(context, slider.valueEditId), EM_LIMITTEXT, kValueEditCharacters, 0);
}

// The sample is colour only while colour is both chosen and possible.
void UpdateSample(SheetContext& context) {
    const bool colour = context.settings->dmColor == kColour &&
                        (context.privateSettings->mdmOtherSettings & kOtherColor) != 0;
    SetSampleMode(context, colour ? kSampleColour : kSampleMonochrome);
}

void OnInit(SheetContext& context) {
    ForEachSlider([&](const ControlItem& item, const SliderItem& slider) {
        PrepareSlider(context, item.controlId, slider);
        return false;
    });
    UpdateSample(context);
}

// Brings the typed number into range, moves the slider there and has it stored as if it had been
// moved; a slider that has the focus is the one that wrote the number and stores it itself.
void OnValueTyped(SheetContext& context, DWORD sliderId, const SliderItem& slider) {
    const int editId = static_cast<int>(slider.valueEditId);
    const HWND edit = Child(context, slider.valueEditId);
    const UINT number =
        std::min<UINT>(GetDlgItemInt(context.page, editId, nullptr, FALSE), slider.maximum);
    char typed[32] = "";
    GetWindowTextA(edit, typed, sizeof typed);
    char wanted[16];
    const int length = std::snprintf(wanted, sizeof wanted, "%u", number);
    if (std::strcmp(typed, wanted) != 0) {
        SetWindowTextA(edit, wanted);
        SendMessageA(edit, EM_SETSEL, static_cast<WPARAM>(length), length);
    }
    const HWND bar = Child(context, sliderId);
    SendMessageA(bar, TBM_SETPOS, TRUE, static_cast<LPARAM>(number));
    if (GetFocus() == bar) return;
    SendMessageA(context.page, WM_HSCROLL, MAKEWPARAM(kScrollFromValueEdit, kScrollMark),
                 reinterpret_cast<LPARAM>(bar));
}

void OnCommand(SheetContext& context, DWORD id, WORD code) {
    if (code != EN_UPDATE) return;
    ForEachSlider([&](const ControlItem& item, const SliderItem& slider) {
        if (slider.valueEditId != id) return false;
        OnValueTyped(context, item.controlId, slider);
        return true;
    });
}

// The edit follows every movement of its slider; the setting waits for the release.
void OnScroll(SheetContext& context, HWND control, WORD code) {
    if (code == kScrollFromValueEdit) return;
    const DWORD id = static_cast<DWORD>(GetDlgCtrlID(control));
    ForEachSlider([&](const ControlItem& item, const SliderItem& slider) {
        if (item.controlId != id) return false;
        const UINT position = static_cast<UINT>(SendMessageA(control, TBM_GETPOS, 0, 0));
        const int editId = static_cast<int>(slider.valueEditId);
        if (GetDlgItemInt(context.page, editId, nullptr, FALSE) != position) {
            SetDlgItemInt(context.page, editId, position, FALSE);
        }
        return true;
    });
}

// The defaults name only the fields that the page binds.
void OnDefaults(SheetContext& context) {
    PrivateDevmode& settings = *context.privateSettings;
    settings.mdmOtherSettings |= kOtherColor;
    DeriveColorMatching(settings);
    UpdateSample(context);
}

void OnChanged(SheetContext& context, DWORD id) {
    if (id == IDC_RADIO_GRAYSCALE || id == IDC_RADIO_COLOR) UpdateSample(context);
    const HWND view = context.shared->viewPanel;
    if (view != nullptr) SendMessageA(view, kMessageRefreshAll, 0, 0);
}

const PageTraits kQualityPage = {
    .dialogName = kDialogName,
    .helpTopic = 1301,
    .viewKind = kViewQuality,
    .features = kKeepsChanges | kOrdinaryPage,
    .onInit = OnInit,
    .onActivate = UpdateSample,
    .onCommand = OnCommand,
    .onDefaults = OnDefaults,
    .onChanged = OnChanged,
    .onScroll = OnScroll,
};

constexpr char kListDialog[] = "DLGTAB20";

// The dialog's title is no page's caption, so the items looked for are those of the last page; the
// dialog has none of their controls.
void OnListDialogInit(SheetContext& context, HWND dialog) {
    SetSubDialogTitle(context, dialog, "_DLGTAB20");
    RunActivationHook(context, dialog, kListDialog);
    TakeSnapshot(context);
    InitialisePage(context, dialog);
    RefreshDialog(context, SettingChanged::kYes, dialog, kListDialog);
}

// Unlike the other sub-dialogs, Cancel takes nothing back.
void OnListDialogCommand(SheetContext& context, HWND dialog, HWND /*control*/, WPARAM wParam) {
    const DWORD id = LOWORD(wParam);
    if (id == IDOK || id == IDCANCEL) {
        EndDialog(dialog, 1);
        return;
    }
    DispatchNotification(context, dialog, id, HIWORD(wParam));
    if (ChangedSinceSnapshot(context)) TellSheetChanged(dialog);
    RefreshDialog(context, SettingChanged::kYes, dialog, kListDialog);
}

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB2(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kQualityPage, page, message, wParam, lParam);
}

INT_PTR CALLBACK DDMTAB20(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr kvui::DialogHandlers kList = {kvui::OnListDialogInit,
                                                   kvui::OnListDialogCommand};
    return kvui::RunDialog(kList, dialog, message, wParam, lParam);
}
