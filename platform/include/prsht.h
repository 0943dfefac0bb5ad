// Property sheets: creation, messages to the sheet, and the notifications that pages answer.
#pragma once
#include <commctrl.h>

struct _PSP;
using HPROPSHEETPAGE = _PSP*;

constexpr DWORD PSP_DEFAULT = 0x0000;
constexpr DWORD PSP_USETITLE = 0x0008;
constexpr DWORD PSP_HASHELP = 0x0020;
constexpr DWORD PSH_DEFAULT = 0x0000;
constexpr DWORD PSH_PROPSHEETPAGE = 0x0008;
constexpr DWORD PSH_NOAPPLYNOW = 0x0080;
constexpr DWORD PSH_HASHELP = 0x0200;
constexpr DWORD PSH_MODELESS = 0x0400;
constexpr DWORD PSH_RTLREADING = 0x0800;

struct PROPSHEETPAGEA;
using LPFNPSPCALLBACKA = UINT (*)(HWND, UINT, PROPSHEETPAGEA*);
using PFNPROPSHEETCALLBACK = int (*)(HWND, UINT, LPARAM);

// The page's dialog procedure receives a pointer to (a copy of) this record as the long parameter
// of WM_INITDIALOG.
struct PROPSHEETPAGEA {
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    union {
        LPCSTR pszTemplate;
        LPCDLGTEMPLATEA pResource;
    };
    union {
        HICON hIcon;
        LPCSTR pszIcon;
    };
    LPCSTR pszTitle;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
    LPFNPSPCALLBACKA pfnCallback;
    UINT* pcRefParent;
    LPCSTR pszHeaderTitle;
    LPCSTR pszHeaderSubTitle;
    HANDLE hActCtx;
};
struct PROPSHEETHEADERA {
    DWORD dwSize;
    DWORD dwFlags;
    HWND hwndParent;
    HINSTANCE hInstance;
    union {
        HICON hIcon;
        LPCSTR pszIcon;
    };
    LPCSTR pszCaption;
    UINT nPages;
    union {
        UINT nStartPage;
        LPCSTR pStartPage;
    };
    union {
        const PROPSHEETPAGEA* ppsp;
        HPROPSHEETPAGE* phpage;
    };
    PFNPROPSHEETCALLBACK pfnCallback;
    union {
        HBITMAP hbmWatermark;
        LPCSTR pszbmWatermark;
    };
    HPALETTE hplWatermark;
    union {
        HBITMAP hbmHeader;
        LPCSTR pszbmHeader;
    };
};
struct PSHNOTIFY {
    NMHDR hdr;
    LPARAM lParam;  // PSN_APPLY, PSN_RESET: non-zero when the sheet closes
};

constexpr UINT PSN_SETACTIVE = static_cast<UINT>(-200);
constexpr UINT PSN_KILLACTIVE = static_cast<UINT>(-201);
constexpr UINT PSN_APPLY = static_cast<UINT>(-202);
constexpr UINT PSN_RESET = static_cast<UINT>(-203);
constexpr UINT PSN_HELP = static_cast<UINT>(-205);
constexpr UINT PSN_WIZBACK = static_cast<UINT>(-206);
constexpr UINT PSN_QUERYCANCEL = static_cast<UINT>(-209);
constexpr UINT PSN_QUERYINITIALFOCUS = static_cast<UINT>(-213);
constexpr LONG PSNRET_NOERROR = 0;
constexpr LONG PSNRET_INVALID = 1;
constexpr LONG PSNRET_INVALID_NOCHANGEPAGE = 2;

constexpr UINT PSM_SETCURSEL = WM_USER + 101;
constexpr UINT PSM_REMOVEPAGE = WM_USER + 102;
constexpr UINT PSM_ADDPAGE = WM_USER + 103;
constexpr UINT PSM_CHANGED = WM_USER + 104;
constexpr UINT PSM_CANCELTOCLOSE = WM_USER + 107;
constexpr UINT PSM_QUERYSIBLINGS = WM_USER + 108;
constexpr UINT PSM_UNCHANGED = WM_USER + 109;
constexpr UINT PSM_APPLY = WM_USER + 110;
constexpr UINT PSM_SETTITLEA = WM_USER + 111;
constexpr UINT PSM_PRESSBUTTON = WM_USER + 113;
constexpr UINT PSM_GETTABCONTROL = WM_USER + 116;
constexpr UINT PSM_GETCURRENTPAGEHWND = WM_USER + 118;
constexpr UINT PSM_INDEXTOHWND = WM_USER + 130;

constexpr int PSBTN_OK = 3;
constexpr int PSBTN_APPLYNOW = 4;
constexpr int PSBTN_CANCEL = 5;
constexpr int PSBTN_HELP = 6;
constexpr int ID_PSRESTARTWINDOWS = 2;

extern "C" {
// Modal: 1 after OK, 0 after Cancel, -1 on failure. With PSH_MODELESS: the sheet's window handle.
INT_PTR WINAPI PropertySheetA(const PROPSHEETHEADERA* header);
}
