// Sub-dialog skeleton over the page state of the dialog that opened it.
#include "ui/sub_dialog_skeleton.h"

#include "binding/control_fill.h"
#include "binding/notification.h"
#include "dialog/help.h"
#include "settings/reactor.h"
#include "sheet/snapshot.h"
#include "ui/dialog_messages.h"
#include "ui/page_skeleton.h"
#include "ui/page_table.h"

namespace kvui {
namespace {

// The end result is the same for OK and Cancel: what counts is what stands in the record.
constexpr INT_PTR kSubDialogResult = 1;

void Refresh(const SubDialogTraits& traits, SheetContext& context, HWND dialog) {
    RefreshDialog(context, SettingChanged::kYes, dialog, traits.dialogName);
    if (traits.afterRefresh != nullptr) traits.afterRefresh(context, dialog);
}

void OnInitDialog(const SubDialogTraits& traits, SheetContext& context, HWND dialog) {
    SetSubDialogTitle(context, dialog, traits.templateName);
    RunActivationHook(context, dialog, traits.dialogName);
    TakeSnapshot(context);
    InitialiseInTableOrder(context, dialog, traits.dialogName);
    SetChildCaptions(context, dialog);
    if (traits.onInit != nullptr) traits.onInit(context, dialog);
    Refresh(traits, context, dialog);
}

void OnCommand(const SubDialogTraits& traits, SheetContext& context, HWND dialog, WPARAM wParam) {
    switch (LOWORD(wParam)) {
        case IDOK:
            if (traits.onOk != nullptr) traits.onOk(context);
            EndDialog(dialog, kSubDialogResult);
            return;
        case IDCANCEL:
            RestoreSnapshot(context);
            EndDialog(dialog, kSubDialogResult);
            return;
        case IDHELP:
            ShowPageHelp(context, dialog, traits.helpTopic);
            return;
        default:
            break;
    }
    if (traits.onCommand == nullptr ||
        !traits.onCommand(context, dialog, LOWORD(wParam), HIWORD(wParam))) {
        DispatchNotification(context, dialog, LOWORD(wParam), HIWORD(wParam));
    }
    if (ChangedSinceSnapshot(context)) {
        React(context, LOWORD(wParam), ReactScope::kOneControl);
        TellSheetChanged(dialog);
    }
    Refresh(traits, context, dialog);
}

}  // namespace

INT_PTR RunSubDialog(const SubDialogTraits& traits, HWND dialog, UINT message, WPARAM wParam,
                     LPARAM lParam) {
    SheetContext* context = KeepSheetContext(dialog, message, lParam);
    if (context == nullptr) return FALSE;
    switch (message) {
        case WM_INITDIALOG:
            OnInitDialog(traits, *context, dialog);
            return TRUE;
        case WM_COMMAND:
            OnCommand(traits, *context, dialog, wParam);
            return TRUE;
        case WM_HELP:
            ShowPopupHelp(*context, dialog, reinterpret_cast<const HELPINFO*>(lParam));
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace kvui
