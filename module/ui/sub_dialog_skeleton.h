// The skeleton of the module's sub-dialogs: title, snapshot, dispatch, and everything undone on
// Cancel.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

struct SubDialogTraits {
    const char* templateName;
    const char* dialogName;  // of its items in the catalogue
    int helpTopic;
    // Hooks; null where the dialog adds nothing.
    void (*onInit)(SheetContext&, HWND dialog) = nullptr;
    // Before the dispatch; true when the command is done with.
    bool (*onCommand)(SheetContext&, HWND dialog, DWORD id, WORD code) = nullptr;
    void (*afterRefresh)(SheetContext&, HWND dialog) = nullptr;
    void (*onOk)(SheetContext&) = nullptr;
};

INT_PTR RunSubDialog(const SubDialogTraits& traits, HWND dialog, UINT message, WPARAM wParam,
                     LPARAM lParam);

}  // namespace kvui
