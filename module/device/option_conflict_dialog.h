// The question whether further options may change together with the chosen one: the installed
// options before and after. Asked by ApplyOptionChange.
#pragma once

#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

constexpr int kOptionCount = 25;  // bits 0 to 24 of the word stand for options

// True when the user chose Resolve.
bool AskOptionCorrection(HWND page, SheetContext& context, DWORD installed, DWORD corrected);

}  // namespace kvui
