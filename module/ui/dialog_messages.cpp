// Messages of sub-dialogs and who handles them.
#include "ui/dialog_messages.h"

#include "dialog/help.h"

namespace kvui {

SheetContext* KeepSheetContext(HWND dialog, UINT message, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrA(dialog, DWLP_USER, lParam);
    return reinterpret_cast<SheetContext*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

INT_PTR RunDialog(const DialogHandlers& handlers, HWND dialog, UINT message, WPARAM wParam,
                  LPARAM lParam) {
    SheetContext* context = KeepSheetContext(dialog, message, lParam);
    if (context == nullptr) return FALSE;
    switch (message) {
        case WM_INITDIALOG:
            handlers.onInit(*context, dialog);
            return TRUE;
        case WM_COMMAND:
            handlers.onCommand(*context, dialog, reinterpret_cast<HWND>(lParam), wParam);
            return TRUE;
        case WM_NOTIFY:
            return handlers.onNotify != nullptr &&
                   handlers.onNotify(dialog, *reinterpret_cast<const NMHDR*>(lParam));
        case WM_DRAWITEM:
            return handlers.onDrawItem != nullptr &&
                   handlers.onDrawItem(*context, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        case WM_HELP:
            ShowPopupHelp(*context, dialog, reinterpret_cast<const HELPINFO*>(lParam));
            return TRUE;
        case WM_DESTROY:
            if (handlers.onDestroy != nullptr) handlers.onDestroy(dialog);
            return FALSE;
        default:
            return FALSE;
    }
}

}  // namespace kvui
