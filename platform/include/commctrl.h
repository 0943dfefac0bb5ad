// Common controls: track bars, up-down controls, tooltips and tab controls.
#pragma once
#include <winuser.h>

#define TRACKBAR_CLASSA "msctls_trackbar32"
#define UPDOWN_CLASSA "msctls_updown32"
#define TOOLTIPS_CLASSA "tooltips_class32"
#define WC_TABCONTROLA "SysTabControl32"

#ifndef RC_INVOKED
// Track bars.
constexpr UINT TBM_GETPOS = WM_USER + 0;
constexpr UINT TBM_GETRANGEMIN = WM_USER + 1;
constexpr UINT TBM_GETRANGEMAX = WM_USER + 2;
constexpr UINT TBM_SETPOS = WM_USER + 5;
constexpr UINT TBM_SETRANGE = WM_USER + 6;
constexpr UINT TBM_SETRANGEMIN = WM_USER + 7;
constexpr UINT TBM_SETRANGEMAX = WM_USER + 8;
constexpr UINT TBM_SETTICFREQ = WM_USER + 20;
constexpr UINT TBM_SETPAGESIZE = WM_USER + 21;
constexpr UINT TBM_GETPAGESIZE = WM_USER + 22;
constexpr UINT TBM_SETLINESIZE = WM_USER + 23;
constexpr UINT TBM_GETLINESIZE = WM_USER + 24;
constexpr WORD TB_LINEUP = 0;
constexpr WORD TB_LINEDOWN = 1;
constexpr WORD TB_PAGEUP = 2;
constexpr WORD TB_PAGEDOWN = 3;
constexpr WORD TB_THUMBPOSITION = 4;
constexpr WORD TB_THUMBTRACK = 5;
constexpr WORD TB_TOP = 6;
constexpr WORD TB_BOTTOM = 7;
constexpr WORD TB_ENDTRACK = 8;

// Up-down controls.
constexpr UINT UDM_SETRANGE = WM_USER + 101;
constexpr UINT UDM_GETRANGE = WM_USER + 102;
constexpr UINT UDM_SETPOS = WM_USER + 103;
constexpr UINT UDM_GETPOS = WM_USER + 104;
constexpr UINT UDM_SETBUDDY = WM_USER + 105;
constexpr UINT UDM_GETBUDDY = WM_USER + 106;
constexpr UINT UDM_SETRANGE32 = WM_USER + 111;
constexpr UINT UDM_GETRANGE32 = WM_USER + 112;
constexpr UINT UDM_SETPOS32 = WM_USER + 113;
constexpr UINT UDM_GETPOS32 = WM_USER + 114;
constexpr UINT UDN_DELTAPOS = static_cast<UINT>(-722);
struct NMUPDOWN {
    NMHDR hdr;
    int iPos;
    int iDelta;
};

// Tooltips.
constexpr UINT TTS_ALWAYSTIP = 0x01;
constexpr UINT TTS_NOPREFIX = 0x02;
constexpr UINT TTF_IDISHWND = 0x0001;
constexpr UINT TTF_SUBCLASS = 0x0010;
constexpr UINT TTM_ACTIVATE = WM_USER + 1;
constexpr UINT TTM_ADDTOOLA = WM_USER + 4;
constexpr UINT TTM_DELTOOLA = WM_USER + 5;
constexpr UINT TTM_RELAYEVENT = WM_USER + 7;
constexpr UINT TTM_GETTEXTA = WM_USER + 11;
constexpr UINT TTM_UPDATETIPTEXTA = WM_USER + 12;
constexpr UINT TTM_GETTOOLCOUNT = WM_USER + 13;
constexpr UINT TTM_ENUMTOOLSA = WM_USER + 14;
struct TTTOOLINFOA {
    UINT cbSize;
    UINT uFlags;
    HWND hwnd;
    UINT_PTR uId;
    RECT rect;
    HINSTANCE hinst;
    LPSTR lpszText;
    LPARAM lParam;
    LPVOID lpReserved;
};
using TOOLINFOA = TTTOOLINFOA;

// Tab controls.
constexpr UINT TCM_GETITEMCOUNT = 0x1304;
constexpr UINT TCM_GETITEMA = 0x1305;
constexpr UINT TCM_SETITEMA = 0x1306;
constexpr UINT TCM_INSERTITEMA = 0x1307;
constexpr UINT TCM_DELETEITEM = 0x1308;
constexpr UINT TCM_GETCURSEL = 0x130B;
constexpr UINT TCM_SETCURSEL = 0x130C;
constexpr UINT TCIF_TEXT = 0x0001;
constexpr UINT TCIF_PARAM = 0x0008;
constexpr UINT TCN_SELCHANGE = static_cast<UINT>(-551);
constexpr UINT TCN_SELCHANGING = static_cast<UINT>(-552);
struct TCITEMA {
    UINT mask;
    DWORD dwState;
    DWORD dwStateMask;
    LPSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
};

extern "C" {
void WINAPI InitCommonControls();
HWND WINAPI CreateUpDownControl(DWORD style, int x, int y, int width, int height, HWND parent,
                                int id, HINSTANCE instance, HWND buddy, int upper, int lower,
                                int position);
}
#endif  // RC_INVOKED
