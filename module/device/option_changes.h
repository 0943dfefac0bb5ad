// Installing and removing optional devices: what the dependences and conflicts between options make
// of a change, and the question that is asked before more than the chosen option changes. Called by
// the Device Options page.
#pragma once

#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

enum class OptionChange : int { kRemove = 0, kInstall = 1 };

// What a change leads to. `allowed`: nothing else has to change with it; the word is then of no
// use, the plain change applies.
struct OptionPlan {
    bool allowed;
    DWORD word;
};
OptionPlan PlanOptionChange(DWORD installed, DWORD mask, OptionChange change);

// For each installed option that needs the changed one as part of a group that is not whole: adds
// that group to the word.
void CloseOptionDependencies(DWORD& word, int changedOption);

// Changes the options of the mask in mdmInstalledOptions, after asking where others change with
// them. 1 when it was done, 0 when the user cancelled.
int ApplyOptionChange(HWND page, SheetContext& context, DWORD mask, OptionChange change);

}  // namespace kvui
