// Page skeleton: one handler per message; pages differ only in their traits.
#include "ui/page_skeleton.h"

#include <prsht.h>
#include <winspool.h>

#include <cstring>

#include "binding/control_fill.h"
#include "binding/notification.h"
#include "dialog/help.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/defaults.h"
#include "settings/reactor.h"
#include "sheet/printer_values.h"
#include "sheet/snapshot.h"
#include "ui/entry_drawing.h"
#include "ui/other_page_refresh.h"
#include "ui/page_table.h"
#include "ui/sheet_life.h"

namespace kvui {
namespace {

constexpr int kNoticeTextSize = 1024;

// To the common area: whose part it is to show.
constexpr UINT kMessageCommonPart = WM_USER + 301;
constexpr WPARAM kPartJobManagement = 9503;

bool Has(const PageTraits& traits, PageFeature feature) {
    return (traits.features & feature) != 0;
}

void DisableIfReadOnly(SheetContext& context, HWND page) {
    if (context.flags & kSheetReadOnly) DisableChildren(page);
}

bool IsNetworkPrinter(SheetContext& context) {
    SheetAnswer& answer = context.shared->networkPrinter;
    if (answer == kAnswerUnknown) {
        const bool network = (PrinterAttributes(context) & PRINTER_ATTRIBUTE_NETWORK) != 0;
        answer = network ? kAnswerYes : kAnswerNo;
    }
    return answer == kAnswerYes;
}

void ShowNotice(SheetContext& context) {
    const HWND icon = GetDlgItem(context.page, IDC_NOTICE_ICON);
    const HWND text = GetDlgItem(context.page, IDC_NOTICE_TEXT);
    const bool shared = IsNetworkPrinter(context);
    if (shared) {
        char notice[kNoticeTextSize] = "";
        LoadStringA(context.strings, IDS_NETWORK_NOTICE, notice, sizeof notice);
        SetWindowTextA(text, notice);
        const HICON picture = LoadIconA(context.resources, MAKEINTRESOURCEA(IDI_NOTICE));
        SendMessageA(icon, STM_SETICON, reinterpret_cast<WPARAM>(picture), 0);
    }
    ShowWindow(icon, shared ? SW_SHOW : SW_HIDE);
    ShowWindow(text, shared ? SW_SHOW : SW_HIDE);
}

void OnInitDialog(const PageTraits& traits, SheetContext& context) {
    LoadSheetRules(context);
    TakeSnapshot(context);
    InitialisePage(context, context.page);
    if (Has(traits, kSetsCaptions)) SetChildCaptions(context, context.page);
    DisableIfReadOnly(context, context.page);
    if (Has(traits, kShowsNotice)) ShowNotice(context);
    if (traits.onInit != nullptr) traits.onInit(context);
    RunActivationHook(context, context.page, traits.dialogName);
    if (traits.viewKind > 0) AttachSharedView(context);
}

void Refresh(const PageTraits& traits, SheetContext& context, SettingChanged changed) {
    RefreshDialog(context, changed, context.page, traits.dialogName);
    if (traits.afterRefresh != nullptr) traits.afterRefresh(context);
    DisableIfReadOnly(context, context.page);
}

void TellCommonArea(const SheetContext& context, UINT message, WPARAM wParam) {
    const HWND area = context.shared->viewPanel;
    if (area != nullptr) SendMessageA(area, message, wParam, 0);
}

bool IsDefaults(const PageTraits& traits, DWORD id) {
    return Has(traits, kHasDefaults) && id == IDC_DEFAULTS;
}

// What follows a setting that a command changed, up to the refresh.
void TakeChange(const PageTraits& traits, SheetContext& context, DWORD id) {
    React(context, id, ReactScope::kOneControl);
    TellSheetChanged(context.page);
    if (IsDefaults(traits, id)) {
        ApplyDialogDefaults(context.settings, context.printer, traits.dialogName);
        if (traits.onDefaults != nullptr) traits.onDefaults(context);
    }
    if (Has(traits, kKeepsChanges)) TakeSnapshot(context);
    if (traits.onChanged != nullptr) traits.onChanged(context, id);
}

void OnCommand(const PageTraits& traits, SheetContext& context, HWND control, WPARAM wParam) {
    const DWORD id = LOWORD(wParam);
    RouteResult result;
    if (traits.beforeCommand != nullptr) traits.beforeCommand(context, id, HIWORD(wParam));
    if (IsDefaults(traits, id)) {
        if (HIWORD(wParam) != BN_CLICKED) return;
        result = {true, true};
        SetFocus(GetDlgItem(context.page, IDC_DEFAULTS));
    } else {
        result = RouteCommand(context, context.page, control, wParam);
    }
    if (traits.onCommand != nullptr) traits.onCommand(context, id, HIWORD(wParam));
    const auto changed =
        result.handled && result.changed ? SettingChanged::kYes : SettingChanged::kNo;
    const bool comparesFirst = Has(traits, kComparesFirst);
    const bool taken =
        changed == SettingChanged::kYes && (!comparesFirst || ChangedSinceSnapshot(context));
    if (taken) TakeChange(traits, context, id);
    if (traits.afterCommand != nullptr) traits.afterCommand(context, changed);
    if (changed == SettingChanged::kNo) return;
    Refresh(traits, context, changed);
    if (comparesFirst) {
        RunActivationHook(context, context.page, traits.dialogName);
        DisableIfReadOnly(context, context.page);
        if (taken) TellCommonArea(context, kMessageRefreshAll, 0);
    }
    UpdateSharedView(context);
}

// Sliders and spins. A spin tells about the edit it turns.
void OnScroll(const PageTraits& traits, SheetContext& context, HWND control, WPARAM wParam) {
    const WORD code = LOWORD(wParam);
    if (traits.onScroll != nullptr) traits.onScroll(context, control, code);
    if (code != SB_THUMBPOSITION && code != SB_ENDSCROLL && code != kScrollFromValueEdit) return;
    DWORD id = static_cast<DWORD>(GetDlgCtrlID(control));
    WORD notification = code;
    if (const ControlItem* item = ItemOfSpin(id)) {
        id = item->controlId;
        notification = EN_KILLFOCUS;
    }
    const bool changed = DispatchNotification(context, context.page, id, notification);
    if (changed && ChangedSinceSnapshot(context)) {
        React(context, id, ReactScope::kOneControl);
        TellSheetChanged(context.page);
        if (Has(traits, kKeepsChanges)) TakeSnapshot(context);
        if (traits.onChanged != nullptr) traits.onChanged(context, id);
    }
    if (changed) {
        Refresh(traits, context, SettingChanged::kYes);
        UpdateSharedView(context);
    }
}

void OnSetActive(const PageTraits& traits, SheetContext& context, HWND page) {
    context.page = page;
    InitialisePage(context, page);
    RunActivationHook(context, page, traits.dialogName);
    Refresh(traits, context, SettingChanged::kYes);
    if (traits.viewKind != 0) AttachSharedView(context);
    if (traits.onActivate != nullptr) traits.onActivate(context);
}

void OnNotify(const PageTraits& traits, SheetContext& context, HWND page, const NMHDR& header) {
    LONG_PTR result = PSNRET_NOERROR;
    switch (header.code) {
        case PSN_SETACTIVE:
            OnSetActive(traits, context, page);
            break;
        case PSN_APPLY:
            if (traits.onApply != nullptr) traits.onApply(context);
            if (!Has(traits, kAppliesNothing)) TakeSnapshot(context);
            break;
        case PSN_RESET:
            RestoreSnapshot(context);
            break;
        case PSN_HELP:
            ShowPageHelp(context, page, traits.helpTopic);
            break;
        default:
            break;
    }
    SetWindowLongPtrA(page, DWLP_MSGRESULT, result);
}

INT_PTR OnPaintStatic(const PageTraits& traits, SheetContext& context, HWND control, HDC dc) {
    if (traits.onPaintStatic == nullptr || !traits.onPaintStatic(context, control, dc)) {
        return FALSE;
    }
    return reinterpret_cast<INT_PTR>(GetStockObject(NULL_BRUSH));
}

void OnRefreshAll(const PageTraits& traits, SheetContext& context) {
    InitialisePage(context, context.page);
    Refresh(traits, context, SettingChanged::kYes);
    React(context, 0, ReactScope::kWholePage);
}

}  // namespace

void InitialisePage(SheetContext& context, HWND page) {
    InitialiseControls(context, page, DialogNameOfFamily(FamilyOfPageWindow(context, page)));
}

void SetChildCaptions(const SheetContext& context, HWND dialog) {
    EnumChildWindows(
        dialog,
        [](HWND child, LPARAM param) -> BOOL {
            constexpr int kCaptionSize = 129;
            char caption[kCaptionSize] = "";
            const int id = GetDlgCtrlID(child);
            const auto& page = *reinterpret_cast<const SheetContext*>(param);
            if (id > 0 &&
                LoadStringA(page.strings, static_cast<UINT>(id), caption, sizeof caption) != 0) {
                SetWindowTextA(child, caption);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&context));
}

void RunActivationHook(SheetContext& context, HWND dialog, const char* dialogName) {
    struct DialogView {
        const char* dialogName;
        ViewKind kind;
    };
    constexpr DialogView kViews[] = {
        {"DLGTAB0", kViewPage},    {"DLGTAB1", kViewPage},    {"DLGTABOVER", kViewPage},
        {"DLGTABWM", kViewWatermark}, {"DLGTAB2", kViewQuality}, {"DLGTAB3", kViewDevice},
    };
    for (const DialogView& view : kViews) {
        if (std::strcmp(view.dialogName, dialogName) == 0) ShowViewKind(context, view.kind);
    }
    if (std::strcmp(dialogName, "DLGTAB3") == 0) {
        const HWND edit = GetDlgItem(dialog, IDC_EDIT_USER_NAME);
        char shown[kUserNameSize] = "";
        GetWindowTextA(edit, shown, sizeof shown);
        if (std::strncmp(shown, context.privateSettings->userName, kUserNameSize) != 0) {
            char stored[kUserNameSize];
            std::memcpy(stored, context.privateSettings->userName, kUserNameSize);
            stored[kUserNameSize - 1] = '\0';
            SetWindowTextA(edit, stored);
        }
    }
    if (std::strcmp(dialogName, "DLGTAB4") == 0) {
        TellCommonArea(context, kMessageCommonPart, kPartJobManagement);
    }
    if (std::strcmp(dialogName, "DLGTAB1") == 0 && (context.flags & kSheetDataNotWritable)) {
        ShowWindow(GetDlgItem(dialog, IDC_BTN_CUSTOM_PAPER), SW_HIDE);
        ShowWindow(GetDlgItem(dialog, IDC_BTN_OVERLAY_EDIT), SW_HIDE);
    }
}

void DisableChildren(HWND dialog) {
    EnumChildWindows(
        dialog,
        [](HWND child, LPARAM) -> BOOL {
            EnableWindow(child, FALSE);
            return TRUE;
        },
        0);
}

void TellSheetChanged(HWND page) {
    SendMessageA(GetParent(page), PSM_CHANGED, reinterpret_cast<WPARAM>(page), 0);
}

namespace {

INT_PTR OnMessage(const PageTraits& traits, SheetContext* context, HWND page, UINT message,
                  WPARAM wParam, LPARAM lParam);

bool MayChangeSettings(UINT message, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
        case WM_HSCROLL:
        case WM_VSCROLL:
            return true;
        case WM_NOTIFY: {
            // What is taken back at the end nobody looks at any more.
            const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
            return code == PSN_SETACTIVE || code == PSN_APPLY;
        }
        default:
            return false;
    }
}

}  // namespace

INT_PTR RunPage(const PageTraits& traits, HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    SheetContext* context = BeginPageMessage(page, message, lParam, traits.tailSize);
    if (context == nullptr) return FALSE;
    if (!MayChangeSettings(message, lParam)) {
        return OnMessage(traits, context, page, message, wParam, lParam);
    }
    const SettingsBefore before(*context);
    const INT_PTR handled = OnMessage(traits, context, page, message, wParam, lParam);
    if (IsWindow(page)) before.RefreshOtherPages(*context, page, traits.dialogName);
    return handled;
}

namespace {

INT_PTR OnMessage(const PageTraits& traits, SheetContext* context, HWND page, UINT message,
                  WPARAM wParam, LPARAM lParam) {
    if (traits.onMessage != nullptr && traits.onMessage(*context, message, wParam, lParam)) {
        return TRUE;
    }
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(traits, *context);
            return TRUE;
        case WM_COMMAND:
            OnCommand(traits, *context, reinterpret_cast<HWND>(lParam), wParam);
            return TRUE;
        case WM_HSCROLL:
        case WM_VSCROLL:
            OnScroll(traits, *context, reinterpret_cast<HWND>(lParam), wParam);
            return TRUE;
        case WM_NOTIFY:
            OnNotify(traits, *context, page, *reinterpret_cast<const NMHDR*>(lParam));
            return TRUE;
        case WM_HELP:
            ShowPopupHelp(*context, page, reinterpret_cast<const HELPINFO*>(lParam));
            return TRUE;
        case WM_CTLCOLORSTATIC:
            return OnPaintStatic(traits, *context, reinterpret_cast<HWND>(lParam),
                                 reinterpret_cast<HDC>(wParam));
        case WM_DRAWITEM:
            return DrawComboEntry(*context, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        case kMessageRefreshAll:
            OnRefreshAll(traits, *context);
            return TRUE;
        case WM_DESTROY:
            EndSheet(*context);
            ReleasePage(*context, page);
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace
}  // namespace kvui
