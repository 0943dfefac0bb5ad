// Auto Configure: asks the printer which options it has and sets mdmInstalledOptions from its
// answer. Called when the Basic page is first active, and by the Device Options page.
#pragma once

#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

// TRUE when nothing had to be asked, or the printer was asked; FALSE when it could not be, the
// caller is no administrator, or the user refused that options go. `changed`: the installed
// options, or whether the printer is asked at all, are not what they were. May show a question;
// takes up to about 15 seconds.
BOOL QueryPrinterConfiguration(SheetContext& context, BOOL* changed);

}  // namespace kvui
