// Page help (a topic of the help file) and popup help of a control.
#pragma once

#include "dialog/run.h"

namespace kvui {

// The topic of the page or dialog.
void ShowHelp(Run& run);
// For WM_HELP; controls without a help id get nothing.
void ShowControlHelp(Run& run);

}  // namespace kvui
