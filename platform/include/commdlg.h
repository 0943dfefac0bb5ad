// Common dialogs: colour picker, open-file and save-file dialog.
#pragma once
#include <winuser.h>

constexpr DWORD OFN_READONLY = 0x00000001;
constexpr DWORD OFN_OVERWRITEPROMPT = 0x00000002;
constexpr DWORD OFN_HIDEREADONLY = 0x00000004;
constexpr DWORD OFN_NOCHANGEDIR = 0x00000008;
constexpr DWORD OFN_SHOWHELP = 0x00000010;
constexpr DWORD OFN_ENABLEHOOK = 0x00000020;
constexpr DWORD OFN_ENABLETEMPLATE = 0x00000040;
constexpr DWORD OFN_ENABLETEMPLATEHANDLE = 0x00000080;
constexpr DWORD OFN_NOVALIDATE = 0x00000100;
constexpr DWORD OFN_EXTENSIONDIFFERENT = 0x00000400;
constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;
constexpr DWORD OFN_FILEMUSTEXIST = 0x00001000;
constexpr DWORD OFN_CREATEPROMPT = 0x00002000;
constexpr DWORD OFN_EXPLORER = 0x00080000;
constexpr DWORD CC_RGBINIT = 0x00000001;
constexpr DWORD CC_FULLOPEN = 0x00000002;
constexpr DWORD CC_PREVENTFULLOPEN = 0x00000004;
constexpr DWORD CC_SHOWHELP = 0x00000008;
constexpr DWORD CC_ENABLEHOOK = 0x00000010;
constexpr DWORD CC_ENABLETEMPLATE = 0x00000020;
constexpr DWORD CC_ENABLETEMPLATEHANDLE = 0x00000040;
constexpr DWORD CC_SOLIDCOLOR = 0x00000080;
constexpr DWORD CC_ANYCOLOR = 0x00000100;

// Messages between a common dialog and its hook or owner, see RegisterWindowMessageA.
#define FILEOKSTRINGA "commdlg_FileNameOK"
#define COLOROKSTRINGA "commdlg_ColorOK"
#define SETRGBSTRINGA "commdlg_SetRGBColor"
#define HELPMSGSTRINGA "commdlg_help"

// What CommDlgExtendedError answers; 0 after a dialog that was cancelled.
constexpr DWORD CDERR_DIALOGFAILURE = 0xFFFF;
constexpr DWORD CDERR_STRUCTSIZE = 0x0001;
constexpr DWORD CDERR_INITIALIZATION = 0x0002;
constexpr DWORD CDERR_NOTEMPLATE = 0x0003;
constexpr DWORD CDERR_NOHINSTANCE = 0x0004;
constexpr DWORD CDERR_FINDRESFAILURE = 0x0006;
constexpr DWORD CDERR_NOHOOK = 0x000B;
constexpr DWORD FNERR_INVALIDFILENAME = 0x3002;
constexpr DWORD FNERR_BUFFERTOOSMALL = 0x3003;

using LPOFNHOOKPROC = UINT_PTR (*)(HWND, UINT, WPARAM, LPARAM);
using LPCCHOOKPROC = UINT_PTR (*)(HWND, UINT, WPARAM, LPARAM);

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
    WORD nFileOffset;
    WORD nFileExtension;
    LPCSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCSTR lpTemplateName;
    LPVOID pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
};
struct CHOOSECOLORA {
    DWORD lStructSize;
    HWND hwndOwner;
    HWND hInstance;
    COLORREF rgbResult;
    COLORREF* lpCustColors;
    DWORD Flags;
    LPARAM lCustData;
    LPCCHOOKPROC lpfnHook;
    LPCSTR lpTemplateName;
};

extern "C" {
BOOL WINAPI GetOpenFileNameA(OPENFILENAMEA* request);
BOOL WINAPI GetSaveFileNameA(OPENFILENAMEA* request);
BOOL WINAPI ChooseColorA(CHOOSECOLORA* request);
DWORD WINAPI CommDlgExtendedError();
}
