// How pages and dialogs run: for each message a definition names the steps that are taken, in their
// order. A step is a free function with one job; it sees the message as a Run and leaves there what
// the steps after it go by.
#pragma once

#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

struct Run;
using Step = void (*)(Run&);

// One message of a page or dialog on its way through the steps.
struct Run {
    SheetContext& context;
    HWND window;             // the page or the dialog
    const char* dialogName;  // of its items in the catalogue
    int helpTopic;
    // Orders of the definition, taken by the steps Take, Refresh and Show; null in a dialog that
    // uses none of these.
    Step take = nullptr;
    Step refresh = nullptr;
    Step show = nullptr;
    int view = 0;

    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    // The control that sent a command or was scrolled, and its code.
    DWORD id = 0;
    WORD code = 0;

    bool changed = false;     // the message has changed a setting
    bool byDefaults = false;  // by pressing Defaults
    bool taken = false;       // the change has been taken
    bool over = false;        // the steps that follow are left out
    INT_PTR answer = TRUE;    // of the procedure
};

// Answers the message and does nothing.
inline void Nothing(Run& /*run*/) {}

// One step after the other.
template <Step... kSteps>
void InOrder(Run& run) {
    ((run.over ? void() : kSteps(run)), ...);
}

// The steps where a setting has changed.
template <Step... kSteps>
void IfChanged(Run& run) {
    if (run.changed) InOrder<kSteps...>(run);
}

// The steps where Defaults was pressed.
template <Step... kSteps>
void IfDefaults(Run& run) {
    if (run.byDefaults) InOrder<kSteps...>(run);
}

}  // namespace kvui
