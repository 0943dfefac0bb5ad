// Job Management page, and the two spare pages of its family, whose templates have no controls.
#include <windows.h>

#include <prsht.h>

#include "binding/control_fill.h"
#include "binding/notification.h"
#include "exports.h"
#include "sheet/snapshot.h"
#include "ui/page_skeleton.h"
#include "ui/sheet_life.h"

namespace kvui {
namespace {

// dialog, help topic, view, features
constexpr PageTraits kJobManagementPage = {"DLGTAB4", 1501, kViewKept,
                                           kKeepsChanges | kComparesFirst | kAppliesNothing};

void OnSpareNotification(SheetContext& context, HWND page, const char* dialogName, DWORD id,
                         WORD code) {
    const bool changed = DispatchNotification(context, page, id, code);
    if (ChangedSinceSnapshot(context)) TellSheetChanged(page);
    RefreshDialog(context, changed ? SettingChanged::kYes : SettingChanged::kNo, page, dialogName);
}

void OnSpareNotify(SheetContext& context, HWND page, const char* dialogName, const NMHDR& header) {
    if (header.code == PSN_SETACTIVE) {
        context.page = page;
        InitialiseControls(context, page, dialogName);
    }
    SetWindowLongPtrA(page, DWLP_MSGRESULT, PSNRET_NOERROR);
}

INT_PTR RunSparePage(const char* dialogName, HWND page, UINT message, WPARAM wParam,
                     LPARAM lParam) {
    SheetContext* context = BeginPageMessage(page, message, lParam, 0);
    if (context == nullptr) return FALSE;
    switch (message) {
        case WM_INITDIALOG:
            LoadSheetRules(*context);
            InitialiseControls(*context, page, dialogName);
            return TRUE;
        case WM_COMMAND:
            OnSpareNotification(*context, page, dialogName, LOWORD(wParam), HIWORD(wParam));
            TakeSnapshot(*context);
            return TRUE;
        case WM_HSCROLL:
            OnSpareNotification(*context, page, dialogName,
                                static_cast<DWORD>(GetDlgCtrlID(reinterpret_cast<HWND>(lParam))),
                                LOWORD(wParam));
            return TRUE;
        case WM_NOTIFY:
            OnSpareNotify(*context, page, dialogName, *reinterpret_cast<const NMHDR*>(lParam));
            return TRUE;
        case WM_HELP:
            return TRUE;  // there is none
        case WM_DESTROY:
            EndSheet(*context);
            ReleaseShared(*context);
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB4(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kJobManagementPage, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTAB5(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunSparePage("DLGTAB5", page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTAB6(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunSparePage("DLGTAB6", page, message, wParam, lParam);
}
