// The editor of one custom paper, which the list of them opens.
#pragma once

#include <windows.h>

namespace kvui {

constexpr INT_PTR kPaperStored = 1;

// "_LBPEDITPAPER"; works on the PaperEdit of the sheet's lists.
INT_PTR CALLBACK EditPaperDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace kvui
