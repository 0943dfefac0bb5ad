// KVUIHOST as the module sees it: per-dialog state, the UI mode and the shared UI block.
// Implemented in framework/uihost.
#pragma once

#include <printer_block.h>
#include <windows.h>

constexpr DWORD kUiInfoPage = 272;      // GetQDMUIInfo at page initialisation
constexpr DWORD kUiInfoAdvanced = 516;  // before the advanced settings dialog

constexpr DWORD kModeSecondPermissionNt5 = 0x08;
constexpr DWORD kModeReadOnly = 0x20;
constexpr DWORD kModeSecondPermissionOld = 0x40;

// One per property sheet, zeroed when the sheet begins. The module hangs its sheet-wide state here
// and frees what it allocated at the sheet end.
struct HostUiBlock {
    HGLOBAL sharedView;   // the module's sheet-wide block (movable memory, locked while used)
    HGLOBAL subDialog;    // slot of the sub-dialog that is open
    HWND sheet;           // the property sheet window, null until it exists
};

extern "C" {
int QDMCrackInfo(HWND window, UINT message, LPARAM lParam, LPVOID* hostA, HINSTANCE* resources,
                 LPVOID* hostB, LPVOID* pageState, DEVMODEA** publicSettings,
                 BYTE** privateSettings, LPVOID* reserved, PrinterBlock** printer);
LPVOID QDMDialogAlloc(HWND window, DWORD size);
HostUiBlock* GetQDMUIInfo(HWND window, DWORD code, LPARAM lParam);
int QDMGetMode(HWND window, UINT message, LPARAM lParam, DWORD* mode);
void QDMEndDialog(HWND window, DWORD reserved);
}
