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
#include "dialog/dialog_definition.h"
#include "exports.h"
#include "resources/resource.h"
#include "settings/item_catalogue.h"
#include "settings/reactor.h"
#include "sheet/snapshot.h"
#include "ui/page_definition.h"

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

void PrepareSliders(Run& run) {
    ForEachSlider([&](const ControlItem& item, const SliderItem& slider) {
        PrepareSlider(run.context, item.controlId, slider);
        return false;
    });
}

// The sample is colour only while colour is both chosen and possible.
void UpdateSample(Run& run) {
    const bool colour = run.context.settings->dmColor == kColour &&
                        (run.context.privateSettings->mdmOtherSettings & kOtherColor) != 0;
    SetSampleMode(run.context, colour ? kSampleColour : kSampleMonochrome);
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

void FollowTypedValue(Run& run) {
    if (run.code != EN_UPDATE) return;
    ForEachSlider([&](const ControlItem& item, const SliderItem& slider) {
        if (slider.valueEditId != run.id) return false;
        OnValueTyped(run.context, item.controlId, slider);
        return true;
    });
}

// The edit follows every movement of its slider; the setting waits for the release.
void FollowSlider(Run& run) {
    if (run.code == kScrollFromValueEdit) return;
    const HWND bar = reinterpret_cast<HWND>(run.lParam);
    ForEachSlider([&](const ControlItem& item, const SliderItem& slider) {
        if (item.controlId != run.id) return false;
        const UINT position = static_cast<UINT>(SendMessageA(bar, TBM_GETPOS, 0, 0));
        const int editId = static_cast<int>(slider.valueEditId);
        if (GetDlgItemInt(run.window, editId, nullptr, FALSE) != position) {
            SetDlgItemInt(run.window, editId, position, FALSE);
        }
        return true;
    });
}

// The defaults name only the fields that the page binds.
void DefaultColour(Run& run) {
    PrivateDevmode& settings = *run.context.privateSettings;
    settings.mdmOtherSettings |= kOtherColor;
    DeriveColorMatching(settings);
    UpdateSample(run);
}

void UpdateSampleOfColourMode(Run& run) {
    if (run.id == IDC_RADIO_GRAYSCALE || run.id == IDC_RADIO_COLOR) UpdateSample(run);
}

const PageDefinition kQualityPage = {
    .dialogName = kDialogName,
    .helpTopic = 1301,
    .view = kViewQuality,
    .open = InOrder<kBeginOpening, PrepareSliders, UpdateSample, kEndOpening>,
    .activate = InOrder<kActivate, UpdateSample>,
    .command = InOrder<RouteOrDefaults, FollowTypedValue, IfChanged<kTakeAndRefresh>>,
    .scroll = InOrder<FollowSlider, kScroll>,
    .take = InOrder<React, TellSheet, IfDefaults<ApplyDefaults, DefaultColour>, Keep,
                    UpdateSampleOfColourMode, RefillPanel>,
};

// A small list dialog that nothing opens but its export. Its title is no page's caption, so the
// items looked for are those of the Troubleshooting page; it has none of their controls. Unlike in
// the other dialogs Cancel takes nothing back, and nothing is derived.
constexpr DialogDefinition kQualityList = {
    .templateName = "_DLGTAB20",
    .dialogName = "DLGTAB20",
    .ok = {IDOK, 1},
    .cancel = {IDCANCEL, 1},
    .open = InOrder<Keep, Fill, RefreshControls>,
    .command = InOrder<Dispatch, IfDiffers<TellSheet>, RefreshControls>,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB2(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kQualityPage, page, message, wParam, lParam);
}

INT_PTR CALLBACK DDMTAB20(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunDialog(kvui::kQualityList, dialog, message, wParam, lParam);
}
