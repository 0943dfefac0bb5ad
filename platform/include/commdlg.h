// Common dialogs: colour picker and open-file dialog.
#pragma once
#include <winuser.h>

constexpr DWORD OFN_HIDEREADONLY = 0x00000004;
constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;
constexpr DWORD OFN_FILEMUSTEXIST = 0x00001000;
constexpr DWORD CC_RGBINIT = 0x00000001;
constexpr DWORD CC_FULLOPEN = 0x00000002;

struct OPENFILENAMEA {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCSTR lpstrFilter;
    LPSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    LPSTR lpstrFile;
    DWORD nMaxFile;
    LPSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCSTR lpstrInitialDir;
    LPCSTR lpstrTitle;
    DWORD Flags;
};
struct CHOOSECOLORA {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    COLORREF rgbResult;
    COLORREF* lpCustColors;
    DWORD Flags;
};
