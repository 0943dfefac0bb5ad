// What the host does at its sheet as the owner of the settings record: turns it to the page that is
// wanted, has edits left before the pages apply, and takes the record back before the pages go.
#pragma once

#include <windows.h>

namespace kvhost {

// Called once, while the sheet is made; it must be in the list of sheets.
void OwnSheet(HWND sheet);

}  // namespace kvhost
