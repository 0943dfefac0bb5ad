// The 24 functions that leave the module. The UI host finds them by name; the names are repeated in
// exports.map for the linker. Page and sub-dialog procedures also serve the catalogue's buttons.
#pragma once
#include <windows.h>

struct PageEntry;

#if defined(__GNUC__)
#define KVUI_EXPORT __attribute__((visibility("default")))
#else
#define KVUI_EXPORT __declspec(dllexport)
#endif

extern "C" {

// The static page table, ended by a row of zeros. Never fails; printer is the printer block.
KVUI_EXPORT const PageEntry* GetPropSheetPages(void* printer);

// Pages.
KVUI_EXPORT INT_PTR CALLBACK DDMTAB0(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTAB1(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTAB2(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTAB3(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTABWM(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTABOVER(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMAbout(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTAB4(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTAB5(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTAB6(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Sub-dialogs; the creation parameter is the SheetContext of the calling page.
KVUI_EXPORT INT_PTR CALLBACK DDMTAB00(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTAB01(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTAB02(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMTAB20(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMEDIT0(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMCUSTOMPAPER(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMMailBox(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMKeepSettingAdd(HWND window, UINT message, WPARAM wParam,
                                               LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMSaveData(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DDMPrinterProp(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);
KVUI_EXPORT INT_PTR CALLBACK DlgProcConflicts(HWND window, UINT message, WPARAM wParam,
                                              LPARAM lParam);

// Installation entries.
KVUI_EXPORT DWORD WINAPI DDMDevInstall(void* unused, void* printerBlock, DWORD flags);
KVUI_EXPORT int WINAPI VendorSetup(HWND window, HINSTANCE instance, LPSTR printerName, int show);

}  // extern "C"
