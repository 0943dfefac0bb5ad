// The procedure of a sub-dialog whose ways are its own: which handler a message goes to. Dialogs
// that differ little from each other use sub_dialog_skeleton.h instead.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// Null where the dialog does nothing. Help about the control under the pointer is the same in all.
struct DialogHandlers {
    void (*onInit)(SheetContext&, HWND dialog);
    void (*onCommand)(SheetContext&, HWND dialog, HWND control, WPARAM wParam);
    bool (*onNotify)(HWND dialog, const NMHDR& header) = nullptr;
    bool (*onDrawItem)(const SheetContext&, const DRAWITEMSTRUCT& draw) = nullptr;
    void (*onDestroy)(HWND dialog) = nullptr;
};

INT_PTR RunDialog(const DialogHandlers& handlers, HWND dialog, UINT message, WPARAM wParam,
                  LPARAM lParam);

// The calling page's state, kept with the dialog; null before WM_INITDIALOG.
SheetContext* KeepSheetContext(HWND dialog, UINT message, LPARAM lParam);

}  // namespace kvui
