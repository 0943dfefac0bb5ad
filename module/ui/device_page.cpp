// Device Options page: what is installed, whether the printer is asked for it, and the user's name.
#include <winsock2.h>

#include <windows.h>

#include <prsht.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "device/installed_options.h"
#include "device/printer_port.h"
#include "exports.h"
#include "resources/resource.h"
#include "sheet/administrator.h"
#include "ui/page_definition.h"
#include "ui/service_dialogs.h"

namespace kvui {
namespace {

constexpr WPARAM kNothingSelected = static_cast<WPARAM>(-1);

// Entries of the state combo box.
enum State : WORD { kInstalled = 0, kNotInstalled = 1 };

HWND ControlOf(const Run& run, DWORD id) {
    return GetDlgItem(run.window, static_cast<int>(id));
}

void Enable(const Run& run, DWORD id, bool enabled) {
    EnableWindow(ControlOf(run, id), enabled);
}

bool IsAutoConfigured(const Run& run) {
    return (run.context.privateSettings->mdmOtherSettings & kOtherAutoConfig) != 0;
}

// --- The list of all options ---

struct OptionRow {
    std::string text;
    LPARAM data;  // index in the bound list; the state in the high word
};

std::string EntryText(HWND box, UINT lengthMessage, UINT textMessage, WPARAM index) {
    const LRESULT length = SendMessageA(box, lengthMessage, index, 0);
    if (length <= 0) return {};
    std::string text(length + 1, '\0');
    SendMessageA(box, textMessage, index, reinterpret_cast<LPARAM>(text.data()));
    text.resize(length);
    return text;
}

// The longest label decides where the states begin.
void AddRows(const Run& run, DWORD boundList, State state, std::vector<OptionRow>& rows,
             size_t& longest) {
    const HWND list = ControlOf(run, boundList);
    const std::string stateText =
        EntryText(ControlOf(run, IDC_COMBO_INSTALLED_STATE), CB_GETLBTEXTLEN, CB_GETLBTEXT, state);
    if (stateText.empty()) return;
    const LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const std::string label = EntryText(list, LB_GETTEXTLEN, LB_GETTEXT, i);
        if (label.empty()) continue;
        longest = std::max(longest, label.size());
        rows.push_back({label + ":\t" + stateText, MAKELONG(i, state)});
    }
}

bool Shows(HWND list, const std::vector<OptionRow>& rows) {
    if (SendMessageA(list, LB_GETCOUNT, 0, 0) != static_cast<LRESULT>(rows.size())) return false;
    for (size_t i = 0; i < rows.size(); ++i) {
        if (SendMessageA(list, LB_GETITEMDATA, i, 0) != rows[i].data ||
            EntryText(list, LB_GETTEXTLEN, LB_GETTEXT, i) != rows[i].text) {
            return false;
        }
    }
    return true;
}

void BuildOptionList(Run& run) {
    constexpr int kNearestTab = 64;  // dialog units
    constexpr int kCharacterWidth = 4;
    std::vector<OptionRow> rows;
    size_t longest = 0;
    AddRows(run, IDC_LIST_INSTALLABLE, kNotInstalled, rows, longest);
    AddRows(run, IDC_LIST_INSTALLED, kInstalled, rows, longest);
    const HWND list = ControlOf(run, IDC_LIST_OPTIONS);
    if (Shows(list, rows)) return;
    const LRESULT selected = SendMessageA(list, LB_GETCURSEL, 0, 0);
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    for (const OptionRow& row : rows) {
        const LRESULT index =
            SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.text.c_str()));
        SendMessageA(list, LB_SETITEMDATA, index, row.data);
    }
    int tab = std::max(kNearestTab, kCharacterWidth * (static_cast<int>(longest) + 1));
    SendMessageA(list, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tab));
    SendMessageA(list, LB_SETCURSEL, static_cast<WPARAM>(selected), 0);
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

// The selected row's data; negative when no row is selected.
LRESULT SelectedRow(const Run& run) {
    const HWND list = ControlOf(run, IDC_LIST_OPTIONS);
    const LRESULT index = SendMessageA(list, LB_GETCURSEL, 0, 0);
    return index >= 0 ? SendMessageA(list, LB_GETITEMDATA, index, 0) : -1;
}

// The combo box shows the state of the selected row.
void ShowState(Run& run) {
    const LRESULT row = SelectedRow(run);
    SendMessageA(ControlOf(run, IDC_COMBO_INSTALLED_STATE), CB_SETCURSEL,
                 row >= 0 ? HIWORD(row) : kNothingSelected, 0);
}

// --- Who may do what ---

void LockMoveButtons(Run& run) {
    Enable(run, IDC_BTN_ADD, false);
    Enable(run, IDC_BTN_REMOVE, false);
}

void EnableForOrdinaryUser(Run& run) {
    ShowWindow(ControlOf(run, IDC_CHK_AUTO_CONFIG), SW_HIDE);
    for (const DWORD id : kAdministratorControls) Enable(run, id, false);
}

void EnableByRights(Run& run) {
    if (!IsAdministrator()) return EnableForOrdinaryUser(run);
    if (!printerQueryable) {
        Enable(run, IDC_CHK_AUTO_CONFIG, false);
        CheckDlgButton(run.window, IDC_CHK_AUTO_CONFIG, BST_UNCHECKED);
        for (const DWORD id : {IDC_ST_INSTALLABLE, IDC_ST_INSTALLED, IDC_LIST_INSTALLABLE,
                               IDC_LIST_INSTALLED, IDC_ST_INSTALLED_STATE}) {
            Enable(run, id, true);
        }
    }
    const bool byPrinter = printerQueryable && IsAutoConfigured(run);
    if (byPrinter) {
        SendMessageA(ControlOf(run, IDC_COMBO_INSTALLED_STATE), CB_SETCURSEL, kNothingSelected, 0);
    } else {
        ShowState(run);
    }
    Enable(run, IDC_COMBO_INSTALLED_STATE, !byPrinter);
    Enable(run, IDC_LIST_OPTIONS, !byPrinter);
}

void ClassifyUnknownPort(Run& run) {
    if (!run.context.shared->life.portKnown) FindOutWhetherQueryable(run.context);
}

void CheckAutoConfigure(Run& run) {
    if (printerQueryable && IsAutoConfigured(run)) {
        CheckDlgButton(run.window, IDC_CHK_AUTO_CONFIG, BST_CHECKED);
    }
}

// --- Commands ---

void ChangeOptions(Run& run) {
    const bool install = run.id == IDC_BTN_ADD || run.id == IDC_LIST_INSTALLABLE;
    const bool pressed =
        (run.id == IDC_BTN_ADD || run.id == IDC_BTN_REMOVE) && run.code == BN_CLICKED;
    const bool doubleClicked =
        (run.id == IDC_LIST_INSTALLABLE || run.id == IDC_LIST_INSTALLED) && run.code == LBN_DBLCLK;
    if (!pressed && !doubleClicked) return;
    run.changed = ChangeSelectedOptions(run.context, run.window,
                                        install ? OptionChange::kInstall : OptionChange::kRemove);
}

// Another state than the row's moves the option like a double-click in the list that holds it.
void FollowStateCombo(Run& run) {
    if (run.id != IDC_COMBO_INSTALLED_STATE || run.code != CBN_SELENDOK) return;
    const LRESULT row = SelectedRow(run);
    const LRESULT state = SendMessageA(ControlOf(run, run.id), CB_GETCURSEL, 0, 0);
    if (row < 0 || state < 0 || state == HIWORD(row)) return;
    const DWORD holder = state == kInstalled ? IDC_LIST_INSTALLABLE : IDC_LIST_INSTALLED;
    const HWND list = ControlOf(run, holder);
    SendMessageA(list, LB_SETCURSEL, LOWORD(row), 0);
    SendMessageA(run.window, WM_COMMAND, MAKEWPARAM(holder, LBN_DBLCLK),
                 reinterpret_cast<LPARAM>(list));
}

void FollowAutoConfigure(Run& run) {
    if (run.id != IDC_CHK_AUTO_CONFIG || !run.changed) return;
    const HWND options = ControlOf(run, IDC_LIST_OPTIONS);
    if (IsAutoConfigured(run)) AskPrinter(run);
    if (IsAutoConfigured(run)) {
        SendMessageA(options, LB_SETCURSEL, kNothingSelected, 0);
        return;
    }
    EnableByRights(run);
    SetFocus(options);
}

void ShowUserName(Run& run) {
    const char(&stored)[kUserNameSize] = run.context.privateSettings->userName;
    const HWND edit = ControlOf(run, IDC_EDIT_USER_NAME);
    char shown[kUserNameSize] = "";
    GetWindowTextA(edit, shown, sizeof shown);
    if (std::strncmp(shown, stored, kUserNameSize) == 0) return;
    char text[kUserNameSize];
    std::memcpy(text, stored, kUserNameSize);
    text[kUserNameSize - 1] = '\0';
    SetWindowTextA(edit, text);
}

// For service technicians: the dialog changes fields that no page shows, and all of them by its
// Factory Default.
void OpenAdvancedSettings(Run& run) {
    if ((run.wParam & (MK_SHIFT | MK_CONTROL)) == 0 || (run.context.flags & kSheetReadOnly) != 0) {
        run.answer = FALSE;
        return;
    }
    BYTE before[kRecordSize];
    std::memcpy(before, run.context.settings, sizeof before);
    DialogBoxParamA(run.context.resources, "_ADVANCEDSETTINGS", GetParent(run.window),
                    AdvancedSettingsDlgProc, reinterpret_cast<LPARAM>(&run.context));
    run.changed = std::memcmp(before, run.context.settings, sizeof before) != 0;
}

// Where neither may be used the sheet looks for the first control that may.
void FocusFirst(Run& run) {
    const HWND first =
        ControlOf(run, IsAutoConfigured(run) ? IDC_CHK_AUTO_CONFIG : IDC_LIST_OPTIONS);
    const bool usable = IsWindowVisible(first) && IsWindowEnabled(first);
    run.answer = usable ? reinterpret_cast<INT_PTR>(first) : 0;
}

// Every command refreshes the page: a selection alone changes what the combo box shows.
const PageDefinition kDeviceOptionsPage = {
    .dialogName = "DLGTAB3",
    .helpTopic = 1401,
    .view = kViewDevice,
    .open = InOrder<LoadRules, ClassifyUnknownPort, Keep, LockMoveButtons, Fill, DisableIfReadOnly,
                    SetCaptions, ShowNotice, BuildOptionList, ShowState, kEndOpening>,
    .show = InOrder<ShowOwnViews, ShowUserName>,
    .command = InOrder<RouteOrDefaults, ChangeOptions, FollowStateCombo, FollowAutoConfigure,
                       LockMoveButtons, IfDefaults<ApplyDefaults, AskPrinter>,
                       IfChanged<IfDiffers<Take>>, Refresh, IfChanged<UpdatePanel>>,
    .take = InOrder<React, TellSheet>,
    .refresh = InOrder<RefreshControls, BuildOptionList, ShowState, EnableByRights,
                       CheckAutoConfigure, DisableIfReadOnly>,
    .rightButton = InOrder<OpenAdvancedSettings, IfChanged<TellSheet, Fill, Refresh, UpdatePanel>>,
    .initialFocus = FocusFirst,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB3(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kDeviceOptionsPage, page, message, wParam, lParam);
}
