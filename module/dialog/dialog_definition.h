// What a dialog over a page is: its title, its buttons and the steps of its messages. One skeleton
// runs them all.
#pragma once

#include "dialog/help.h"
#include "dialog/run.h"

namespace kvui {

// A button that ends the dialog: with which result, and what is done before.
struct EndButton {
    int id;
    INT_PTR result;
    Step before = nullptr;
};

// Steps are null where the dialog does nothing. The title comes first: it is that of the template's
// row in the dialog table.
struct DialogDefinition {
    const char* templateName;
    const char* dialogName = "";  // of its items in the catalogue
    int helpTopic = 0;            // of its Help button; 0: it has none
    EndButton ok;
    EndButton cancel;
    Step open = nullptr;
    Step command = nullptr;  // of every other control
    Step scroll = nullptr;   // of its sliders
    Step refresh = nullptr;
    Step notify = nullptr;
    Step drawItem = nullptr;
    Step popupHelp = ShowControlHelp;
    Step close = nullptr;
};

// The procedure of a dialog whose creation parameter is the SheetContext of the page that opened
// it. A message that comes before that is known is not handled; a dialog that is given none ends at
// once.
INT_PTR RunDialog(const DialogDefinition& definition, HWND dialog, UINT message, WPARAM wParam,
                  LPARAM lParam);

}  // namespace kvui
