// What changes with the installed options: the options' own word, the paper sources that are
// offered and the output destination. Called by the Device Options page and the printer query.
#pragma once

#include <windows.h>

#include "device/option_changes.h"
#include "sheet/sheet_context.h"

namespace kvui {

// Installs what is selected in the list of missing options, or removes what is selected in the list
// of installed ones, with what "MoveWithItems" of the rules file moves along. Other settings go to
// the printer's defaults first. False when nothing was selected or the user cancelled; then nothing
// has changed.
bool ChangeSelectedOptions(SheetContext& context, HWND page, OptionChange change);

// After the options have changed by any road: both lists of paper sources are built anew and
// written, and a destination that is gone is replaced.
void FollowInstalledOptions(SheetContext& context);

// Offers in list 0 or 1 the described sources that the options allow, and stores the list. A source
// that is gone is replaced in dmDefaultSource (list 0 only). An empty list, or one that cannot be
// read, is left alone.
void RebuildPaperSources(SheetContext& context, DWORD listNumber);

// Moves mdmOutBin to the elevator tray of a finisher, or else to the first destination on offer,
// when its own is not offered any more.
void ReplaceMissingOutputBin(SheetContext& context);

}  // namespace kvui
