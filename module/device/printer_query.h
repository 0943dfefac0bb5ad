// Auto Configure: asks the printer which options it has and sets mdmInstalledOptions from its
// answer. Called when the Basic page is first active, and by the Device Options page.
#pragma once

#include <windows.h>

#include <string_view>

#include "sheet/sheet_context.h"

namespace kvui {

// TRUE when nothing had to be asked, or the printer was asked; FALSE when it could not be, the
// caller is no administrator, or the user refused that options go. `changed`: the installed
// options, or whether the printer is asked at all, are not what they were. May show a question;
// takes up to about 15 seconds.
BOOL QueryPrinterConfiguration(SheetContext& context, BOOL* changed);

// What a printer's reply says is installed, as bits of mdmInstalledOptions. False when the reply is
// no whole answer to the question.
bool ReadInstalledOptions(std::string_view reply, DWORD& options);

}  // namespace kvui
