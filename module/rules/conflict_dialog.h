// What the two questions about conflicts have in common: title and captions from the string table,
// Resolve or Cancel, no help. Each fills its own controls from the sheet's ConflictReport.
#pragma once

#include <windows.h>

#include "dialog/dialog_definition.h"

namespace kvui {

constexpr INT_PTR kConflictResolved = 1;
constexpr INT_PTR kConflictCancelled = 2;

// `open` shows what the report says. There is no help about such a question.
constexpr DialogDefinition ConflictDialog(const char* templateName, int resolveButton, Step open) {
    return {.templateName = templateName,
            .ok = {resolveButton, kConflictResolved},
            .cancel = {IDCANCEL, kConflictCancelled},
            .open = open,
            .popupHelp = Nothing};
}

// Runs the dialog modally; kConflictCancelled also when it cannot be shown.
int AskInConflictDialog(const DialogDefinition& definition, HWND owner, SheetContext& context,
                        DLGPROC procedure);

}  // namespace kvui
