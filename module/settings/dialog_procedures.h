// Sub-dialog procedures that the catalogue's button records open and that the module does not
// export. The creation parameter is the SheetContext of the calling page.
#pragma once
#include <windows.h>

namespace kvui {

struct SheetContext;

// "_LBPFIRSTPAGE", from the Basic page.
INT_PTR CALLBACK FirstPageDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// "_DLGCOMBINATION", from the Layout page.
// Leaves the two pages of a sheet an order that the dialog offers for them.
void KeepOrderOfTwoPages(SheetContext& context);
INT_PTR CALLBACK CombinationDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// "_LBPIMAGESHIFT", from the Layout page.
INT_PTR CALLBACK ImageShiftDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// "_LBPQUARNWATERCOLOR", from the Watermark page.
INT_PTR CALLBACK EditWatermarkDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// "_LBPEDITOVERLAY", from the Overlay page.
INT_PTR CALLBACK EditOverlayDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// "_ABOUTKVI", also behind the exports DDMPrinterProp and DDMAbout.
INT_PTR CALLBACK AboutDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace kvui
