// Dialog procedures that only close: their dialogs do nothing yet but end cleanly, with the result
// that means "nothing was done". Also the installation entries, which have no task so far.
#include "ui/dialog_messages.h"
#include "ui/exports.h"
#include "ui/page_skeleton.h"
#include "ui/page_table.h"
#include "ui/sub_dialogs.h"

namespace {

INT_PTR CloseOnly(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam,
                  INT_PTR cancelResult) {
    if (message == WM_INITDIALOG) {
        const kvui::SheetContext* context = kvui::KeepSheetContext(dialog, message, lParam);
        if (context == nullptr) return TRUE;
        // Their titles begin as the names of their templates.
        char templateName[64] = "";
        GetWindowTextA(dialog, templateName, sizeof templateName);
        kvui::SetSubDialogTitle(*context, dialog, templateName);
        kvui::SetChildCaptions(*context, dialog);
        return TRUE;
    }
    if (message != WM_COMMAND) return FALSE;
    if (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL) return FALSE;
    EndDialog(dialog, cancelResult);
    return TRUE;
}

}  // namespace

namespace kvui {

INT_PTR CALLBACK WatermarkEditorDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(dialog, message, wParam, lParam, 2);
}
INT_PTR CALLBACK EditOverlayDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(dialog, message, wParam, lParam, 2);
}

}  // namespace kvui

INT_PTR CALLBACK DDMEDIT0(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(dialog, message, wParam, lParam, 1);
}
INT_PTR CALLBACK DDMCUSTOMPAPER(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(dialog, message, wParam, lParam, -1);
}
INT_PTR CALLBACK DDMMailBox(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(dialog, message, wParam, lParam, 0);
}
INT_PTR CALLBACK DDMKeepSettingAdd(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(dialog, message, wParam, lParam, 0);
}
INT_PTR CALLBACK DDMSaveData(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(dialog, message, wParam, lParam, 0);
}
INT_PTR CALLBACK DDMPrinterProp(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(dialog, message, wParam, lParam, 1);
}

DWORD WINAPI DDMDevInstall(void* /*unused*/, void* /*printerBlock*/, DWORD /*flags*/) { return 0; }
int WINAPI VendorSetup(HWND /*window*/, HINSTANCE /*instance*/, LPSTR /*printer*/, int /*show*/) {
    return 0;
}
