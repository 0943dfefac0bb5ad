// The order in which keys walk through a dialog's controls. Used by the dialog manager's key
// handling.
#pragma once

#include <windows.h>

#include <vector>

namespace kv {

// All controls in tab order; the controls of visible, enabled nested pages stand in the page's
// place.
std::vector<HWND> ControlsInOrder(HWND dialog);
// The next control of the group that is not a mere label; `control` when there is none.
HWND NextInGroup(HWND dialog, HWND control, BOOL previous);

struct MnemonicTarget {
    HWND control{};
    bool unique = false;  // no other control has the same letter
    bool itsOwn = false;  // the control's own text has the letter, not a label before it
};
// The control that the letter leads to, looking from behind `focus`.
MnemonicTarget FindMnemonic(HWND dialog, HWND focus, char letter);

}  // namespace kv
