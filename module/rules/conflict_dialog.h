// What the two questions about conflicts have in common: title and captions from the string table,
// Resolve or Cancel, no help. Each fills its own controls from the sheet's ConflictReport.
#pragma once

#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

constexpr INT_PTR kConflictResolved = 1;
constexpr INT_PTR kConflictCancelled = 2;

struct ConflictDialogTraits {
    const char* templateName;
    UINT titleId;
    int resolveButton;
    void (*fill)(SheetContext&, HWND dialog);
};

INT_PTR RunConflictDialog(const ConflictDialogTraits& traits, HWND dialog, UINT message,
                          WPARAM wParam, LPARAM lParam);

// Runs the dialog modally; kConflictCancelled also when it cannot be shown.
int AskInConflictDialog(const ConflictDialogTraits& traits, HWND owner, SheetContext& context,
                        DLGPROC procedure);

}  // namespace kvui
