// Titles and captions of pages and dialogs.
#pragma once

#include "dialog/run.h"

namespace kvui {

// The dialog's title, by its row of the dialog table; nothing changes when it has none.
void SetDialogTitle(const SheetContext& context, HWND dialog, const char* templateName);
// Every child whose id is also the id of a string gets that string.
void SetChildCaptions(const SheetContext& context, HWND dialog);
void SetCaptions(Run& run);
// Only the buttons. The ids of some fields are those of strings that mean something else.
void SetButtonCaptions(Run& run);

}  // namespace kvui
