// A sheet's beginning and end: what the first page to start does for all, and what the first page
// to be destroyed puts away for all.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// Common start of every page procedure: with WM_INITDIALOG makes the page's block, else finds it.
// Null when the UI host cannot give one; the message is then not handled.
SheetContext* BeginPageMessage(HWND page, UINT message, LPARAM lParam, DWORD tailSize);
// The sheet-wide first-time initialisation; effective for the first page that starts.
void LoadSheetRules(SheetContext& context);
// Effective once per sheet, from the first WM_DESTROY of a page.
void EndSheet(SheetContext& context);
// The page takes no part in the sheet's shared block any more; the last page frees it.
void ReleaseShared(SheetContext& context);
// That, and gives the page's block back (the last step of WM_DESTROY).
void ReleasePage(SheetContext& context, HWND page);

}  // namespace kvui
