// Windows, messages, dialogs and the basic controls. The upper half (styles and ids) is also read
// by the resource compiler, so it consists of plain macros.
#pragma once
#include <windef.h>

#define WS_OVERLAPPED 0x00000000
#define WS_POPUP 0x80000000
#define WS_CHILD 0x40000000
#define WS_MINIMIZE 0x20000000
#define WS_VISIBLE 0x10000000
#define WS_DISABLED 0x08000000
#define WS_CLIPSIBLINGS 0x04000000
#define WS_CLIPCHILDREN 0x02000000
#define WS_CAPTION 0x00C00000
#define WS_BORDER 0x00800000
#define WS_DLGFRAME 0x00400000
#define WS_VSCROLL 0x00200000
#define WS_HSCROLL 0x00100000
#define WS_SYSMENU 0x00080000
#define WS_THICKFRAME 0x00040000
#define WS_GROUP 0x00020000
#define WS_TABSTOP 0x00010000
#define WS_EX_DLGMODALFRAME 0x00000001
#define WS_EX_NOPARENTNOTIFY 0x00000004
#define WS_EX_TRANSPARENT 0x00000020
#define WS_EX_CLIENTEDGE 0x00000200
#define WS_EX_CONTEXTHELP 0x00000400
#define WS_EX_RTLREADING 0x00002000
#define WS_EX_CONTROLPARENT 0x00010000
#define WS_EX_STATICEDGE 0x00020000
#define WS_EX_LAYOUTRTL 0x00400000

#define DS_SYSMODAL 0x0002
#define DS_3DLOOK 0x0004
#define DS_SETFONT 0x0040
#define DS_MODALFRAME 0x0080
#define DS_CONTROL 0x0400
#define DS_CENTER 0x0800
#define DS_CONTEXTHELP 0x2000
#define DS_SHELLFONT 0x0048

#define BS_PUSHBUTTON 0x0000
#define BS_DEFPUSHBUTTON 0x0001
#define BS_CHECKBOX 0x0002
#define BS_AUTOCHECKBOX 0x0003
#define BS_RADIOBUTTON 0x0004
#define BS_GROUPBOX 0x0007
#define BS_AUTORADIOBUTTON 0x0009
#define BS_OWNERDRAW 0x000B
#define BS_TYPEMASK 0x000F
#define BS_MULTILINE 0x2000

#define ES_LEFT 0x0000
#define ES_CENTER 0x0001
#define ES_RIGHT 0x0002
#define ES_MULTILINE 0x0004
#define ES_PASSWORD 0x0020
#define ES_AUTOVSCROLL 0x0040
#define ES_AUTOHSCROLL 0x0080
#define ES_READONLY 0x0800
#define ES_WANTRETURN 0x1000
#define ES_NUMBER 0x2000

#define SS_LEFT 0x0000
#define SS_CENTER 0x0001
#define SS_RIGHT 0x0002
#define SS_ICON 0x0003
#define SS_BLACKFRAME 0x0007
#define SS_ETCHEDHORZ 0x0010
#define SS_ETCHEDFRAME 0x0012
#define SS_LEFTNOWORDWRAP 0x000C
#define SS_OWNERDRAW 0x000D
#define SS_BITMAP 0x000E
#define SS_TYPEMASK 0x001F
#define SS_NOPREFIX 0x0080
#define SS_NOTIFY 0x0100
#define SS_CENTERIMAGE 0x0200
#define SS_REALSIZEIMAGE 0x0800
#define SS_SUNKEN 0x1000

#define CBS_SIMPLE 0x0001
#define CBS_DROPDOWN 0x0002
#define CBS_DROPDOWNLIST 0x0003
#define CBS_OWNERDRAWFIXED 0x0010
#define CBS_OWNERDRAWVARIABLE 0x0020
#define CBS_AUTOHSCROLL 0x0040
#define CBS_SORT 0x0100
#define CBS_HASSTRINGS 0x0200

#define LBS_NOTIFY 0x0001
#define LBS_SORT 0x0002
#define LBS_NOREDRAW 0x0004
#define LBS_MULTIPLESEL 0x0008
#define LBS_OWNERDRAWFIXED 0x0010
#define LBS_HASSTRINGS 0x0040
#define LBS_USETABSTOPS 0x0080
#define LBS_NOINTEGRALHEIGHT 0x0100
#define LBS_EXTENDEDSEL 0x0800
#define LBS_NOSEL 0x4000

#define TBS_AUTOTICKS 0x0001
#define TBS_VERT 0x0002
#define TBS_NOTICKS 0x0010
#define TBS_DOWNISLEFT 0x0400

#define UDS_WRAP 0x0001
#define UDS_SETBUDDYINT 0x0002
#define UDS_ALIGNRIGHT 0x0004
#define UDS_ALIGNLEFT 0x0008
#define UDS_AUTOBUDDY 0x0010
#define UDS_ARROWKEYS 0x0020
#define UDS_HORZ 0x0040
#define UDS_NOTHOUSANDS 0x0080

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDCLOSE 8
#define IDHELP 9

#ifndef RC_INVOKED
#include <wingdi.h>

using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);
using DLGPROC = INT_PTR (*)(HWND, UINT, WPARAM, LPARAM);
using WNDENUMPROC = BOOL (*)(HWND, LPARAM);
using TIMERPROC = void (*)(HWND, UINT, UINT_PTR, DWORD);

#define MAKEINTRESOURCEA(id) ((LPSTR)(ULONG_PTR)(WORD)(id))
#define IS_INTRESOURCE(name) (((ULONG_PTR)(name) >> 16) == 0)
#define RT_BITMAP MAKEINTRESOURCEA(2)
#define RT_ICON MAKEINTRESOURCEA(3)
#define RT_DIALOG MAKEINTRESOURCEA(5)
#define RT_STRING MAKEINTRESOURCEA(6)
#define RT_RCDATA MAKEINTRESOURCEA(10)
#define RT_GROUP_ICON MAKEINTRESOURCEA(14)
#define RT_VERSION MAKEINTRESOURCEA(16)

// Window messages.
constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_MOVE = 0x0003;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_ENABLE = 0x000A;
constexpr UINT WM_SETREDRAW = 0x000B;
constexpr UINT WM_SETTEXT = 0x000C;
constexpr UINT WM_GETTEXT = 0x000D;
constexpr UINT WM_GETTEXTLENGTH = 0x000E;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_SYSCOLORCHANGE = 0x0015;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SHOWWINDOW = 0x0018;
constexpr UINT WM_SETCURSOR = 0x0020;
constexpr UINT WM_NEXTDLGCTL = 0x0028;
constexpr UINT WM_DRAWITEM = 0x002B;
constexpr UINT WM_MEASUREITEM = 0x002C;
constexpr UINT WM_DELETEITEM = 0x002D;
constexpr UINT WM_SETFONT = 0x0030;
constexpr UINT WM_GETFONT = 0x0031;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_HELP = 0x0053;
constexpr UINT WM_CONTEXTMENU = 0x007B;
constexpr UINT WM_NCCREATE = 0x0081;
constexpr UINT WM_NCDESTROY = 0x0082;
constexpr UINT WM_GETDLGCODE = 0x0087;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_SYSKEYDOWN = 0x0104;
constexpr UINT WM_SYSCHAR = 0x0106;
constexpr UINT WM_INITDIALOG = 0x0110;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_SYSCOMMAND = 0x0112;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_HSCROLL = 0x0114;
constexpr UINT WM_VSCROLL = 0x0115;
constexpr UINT WM_CTLCOLOREDIT = 0x0133;
constexpr UINT WM_CTLCOLORLISTBOX = 0x0134;
constexpr UINT WM_CTLCOLORBTN = 0x0135;
constexpr UINT WM_CTLCOLORDLG = 0x0136;
constexpr UINT WM_CTLCOLORSTATIC = 0x0138;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_USER = 0x0400;
constexpr UINT WM_APP = 0x8000;
constexpr UINT DM_GETDEFID = WM_USER + 0;
constexpr UINT DM_SETDEFID = WM_USER + 1;
constexpr UINT DC_HASDEFID = 0x534B;

constexpr WPARAM MK_LBUTTON = 0x0001;
constexpr WPARAM MK_RBUTTON = 0x0002;
constexpr WPARAM MK_SHIFT = 0x0004;
constexpr WPARAM MK_CONTROL = 0x0008;

constexpr int VK_BACK = 0x08;
constexpr int VK_TAB = 0x09;
constexpr int VK_RETURN = 0x0D;
constexpr int VK_SHIFT = 0x10;
constexpr int VK_CONTROL = 0x11;
constexpr int VK_MENU = 0x12;
constexpr int VK_ESCAPE = 0x1B;
constexpr int VK_SPACE = 0x20;
constexpr int VK_PRIOR = 0x21;
constexpr int VK_NEXT = 0x22;
constexpr int VK_END = 0x23;
constexpr int VK_HOME = 0x24;
constexpr int VK_LEFT = 0x25;
constexpr int VK_UP = 0x26;
constexpr int VK_RIGHT = 0x27;
constexpr int VK_DOWN = 0x28;
constexpr int VK_DELETE = 0x2E;
constexpr int VK_F1 = 0x70;
constexpr int VK_F4 = 0x73;

// WM_GETDLGCODE answers.
constexpr LRESULT DLGC_WANTARROWS = 0x0001;
constexpr LRESULT DLGC_WANTTAB = 0x0002;
constexpr LRESULT DLGC_WANTALLKEYS = 0x0004;
constexpr LRESULT DLGC_HASSETSEL = 0x0008;
constexpr LRESULT DLGC_DEFPUSHBUTTON = 0x0010;
constexpr LRESULT DLGC_UNDEFPUSHBUTTON = 0x0020;
constexpr LRESULT DLGC_RADIOBUTTON = 0x0040;
constexpr LRESULT DLGC_WANTCHARS = 0x0080;
constexpr LRESULT DLGC_STATIC = 0x0100;
constexpr LRESULT DLGC_BUTTON = 0x2000;

// Buttons.
constexpr UINT BM_GETCHECK = 0x00F0;
constexpr UINT BM_SETCHECK = 0x00F1;
constexpr UINT BM_GETSTATE = 0x00F2;
constexpr UINT BM_SETSTATE = 0x00F3;
constexpr UINT BM_SETSTYLE = 0x00F4;
constexpr UINT BM_CLICK = 0x00F5;
constexpr WORD BN_CLICKED = 0;
constexpr WORD BN_DOUBLECLICKED = 5;
constexpr WORD BN_SETFOCUS = 6;
constexpr WORD BN_KILLFOCUS = 7;
constexpr UINT BST_UNCHECKED = 0;
constexpr UINT BST_CHECKED = 1;

// Static controls.
constexpr UINT STM_SETICON = 0x0170;
constexpr UINT STM_GETICON = 0x0171;
constexpr UINT STM_SETIMAGE = 0x0172;
constexpr UINT STM_GETIMAGE = 0x0173;
constexpr WORD STN_CLICKED = 0;
constexpr UINT IMAGE_BITMAP = 0;
constexpr UINT IMAGE_ICON = 1;

// Edits.
constexpr UINT EM_GETSEL = 0x00B0;
constexpr UINT EM_SETSEL = 0x00B1;
constexpr UINT EM_GETMODIFY = 0x00B8;
constexpr UINT EM_SETMODIFY = 0x00B9;
constexpr UINT EM_REPLACESEL = 0x00C2;
constexpr UINT EM_LIMITTEXT = 0x00C5;
constexpr UINT EM_SETLIMITTEXT = EM_LIMITTEXT;
constexpr UINT EM_SETPASSWORDCHAR = 0x00CC;
constexpr UINT EM_SETREADONLY = 0x00CF;
constexpr UINT EM_GETLIMITTEXT = 0x00D5;
constexpr WORD EN_SETFOCUS = 0x0100;
constexpr WORD EN_KILLFOCUS = 0x0200;
constexpr WORD EN_CHANGE = 0x0300;
constexpr WORD EN_UPDATE = 0x0400;
constexpr WORD EN_MAXTEXT = 0x0501;

// Combo boxes.
constexpr UINT CB_GETEDITSEL = 0x0140;
constexpr UINT CB_LIMITTEXT = 0x0141;
constexpr UINT CB_ADDSTRING = 0x0143;
constexpr UINT CB_DELETESTRING = 0x0144;
constexpr UINT CB_GETCOUNT = 0x0146;
constexpr UINT CB_GETCURSEL = 0x0147;
constexpr UINT CB_GETLBTEXT = 0x0148;
constexpr UINT CB_GETLBTEXTLEN = 0x0149;
constexpr UINT CB_INSERTSTRING = 0x014A;
constexpr UINT CB_RESETCONTENT = 0x014B;
constexpr UINT CB_FINDSTRING = 0x014C;
constexpr UINT CB_SELECTSTRING = 0x014D;
constexpr UINT CB_SETCURSEL = 0x014E;
constexpr UINT CB_SHOWDROPDOWN = 0x014F;
constexpr UINT CB_GETITEMDATA = 0x0150;
constexpr UINT CB_SETITEMDATA = 0x0151;
constexpr UINT CB_SETITEMHEIGHT = 0x0153;
constexpr UINT CB_GETITEMHEIGHT = 0x0154;
constexpr UINT CB_GETDROPPEDSTATE = 0x0157;
constexpr UINT CB_FINDSTRINGEXACT = 0x0158;
constexpr LRESULT CB_ERR = -1;
constexpr WORD CBN_SELCHANGE = 1;
constexpr WORD CBN_DBLCLK = 2;
constexpr WORD CBN_SETFOCUS = 3;
constexpr WORD CBN_KILLFOCUS = 4;
constexpr WORD CBN_EDITCHANGE = 5;
constexpr WORD CBN_EDITUPDATE = 6;
constexpr WORD CBN_DROPDOWN = 7;
constexpr WORD CBN_CLOSEUP = 8;
constexpr WORD CBN_SELENDOK = 9;
constexpr WORD CBN_SELENDCANCEL = 10;

// List boxes.
constexpr UINT LB_ADDSTRING = 0x0180;
constexpr UINT LB_INSERTSTRING = 0x0181;
constexpr UINT LB_DELETESTRING = 0x0182;
constexpr UINT LB_RESETCONTENT = 0x0184;
constexpr UINT LB_SETSEL = 0x0185;
constexpr UINT LB_SETCURSEL = 0x0186;
constexpr UINT LB_GETSEL = 0x0187;
constexpr UINT LB_GETCURSEL = 0x0188;
constexpr UINT LB_GETTEXT = 0x0189;
constexpr UINT LB_GETTEXTLEN = 0x018A;
constexpr UINT LB_GETCOUNT = 0x018B;
constexpr UINT LB_SELECTSTRING = 0x018C;
constexpr UINT LB_GETTOPINDEX = 0x018E;
constexpr UINT LB_FINDSTRING = 0x018F;
constexpr UINT LB_GETSELCOUNT = 0x0190;
constexpr UINT LB_GETSELITEMS = 0x0191;
constexpr UINT LB_SETTABSTOPS = 0x0192;
constexpr UINT LB_SETTOPINDEX = 0x0197;
constexpr UINT LB_GETITEMRECT = 0x0198;
constexpr UINT LB_GETITEMDATA = 0x0199;
constexpr UINT LB_SETITEMDATA = 0x019A;
constexpr UINT LB_SETCARETINDEX = 0x019E;
constexpr UINT LB_GETCARETINDEX = 0x019F;
constexpr UINT LB_SETITEMHEIGHT = 0x01A0;
constexpr UINT LB_GETITEMHEIGHT = 0x01A1;
constexpr UINT LB_FINDSTRINGEXACT = 0x01A2;
constexpr LRESULT LB_ERR = -1;
constexpr WORD LBN_SELCHANGE = 1;
constexpr WORD LBN_DBLCLK = 2;
constexpr WORD LBN_SELCANCEL = 3;
constexpr WORD LBN_SETFOCUS = 4;
constexpr WORD LBN_KILLFOCUS = 5;

// Scroll codes (track bars reuse the numbers as TB_*).
constexpr WORD SB_LINELEFT = 0;
constexpr WORD SB_LINERIGHT = 1;
constexpr WORD SB_PAGELEFT = 2;
constexpr WORD SB_PAGERIGHT = 3;
constexpr WORD SB_THUMBPOSITION = 4;
constexpr WORD SB_THUMBTRACK = 5;
constexpr WORD SB_LEFT = 6;
constexpr WORD SB_RIGHT = 7;
constexpr WORD SB_ENDSCROLL = 8;

// Owner draw.
constexpr UINT ODT_LISTBOX = 2;
constexpr UINT ODT_COMBOBOX = 3;
constexpr UINT ODT_BUTTON = 4;
constexpr UINT ODT_STATIC = 5;
constexpr UINT ODA_DRAWENTIRE = 0x0001;
constexpr UINT ODA_SELECT = 0x0002;
constexpr UINT ODA_FOCUS = 0x0004;
constexpr UINT ODS_SELECTED = 0x0001;
constexpr UINT ODS_DISABLED = 0x0004;
constexpr UINT ODS_FOCUS = 0x0010;
constexpr UINT ODS_COMBOBOXEDIT = 0x1000;

struct DRAWITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
};
struct MEASUREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight;
    ULONG_PTR itemData;
};
struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};
struct HELPINFO {
    UINT cbSize;
    int iContextType;
    int iCtrlId;
    HANDLE hItemHandle;
    DWORD_PTR dwContextId;
    POINT MousePos;
};
constexpr int HELPINFO_WINDOW = 1;

#pragma pack(push, 2)
struct DLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit;
    SHORT x;
    SHORT y;
    SHORT cx;
    SHORT cy;
};
#pragma pack(pop)
using LPCDLGTEMPLATEA = const DLGTEMPLATE*;

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};
struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};
struct WNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
};
struct CREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
};

// GetWindowLongPtr indices.
constexpr int GWLP_WNDPROC = -4;
constexpr int GWLP_HINSTANCE = -6;
constexpr int GWLP_HWNDPARENT = -8;
constexpr int GWLP_ID = -12;
constexpr int GWL_STYLE = -16;
constexpr int GWL_EXSTYLE = -20;
constexpr int GWLP_USERDATA = -21;
constexpr int DWLP_MSGRESULT = 0;
constexpr int DWLP_DLGPROC = 8;
constexpr int DWLP_USER = 16;

#define HWND_TOP ((HWND)0)
#define HWND_BOTTOM ((HWND)1)

constexpr int SW_HIDE = 0;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOW = 5;
constexpr UINT SWP_NOSIZE = 0x0001;
constexpr UINT SWP_NOMOVE = 0x0002;
constexpr UINT SWP_NOZORDER = 0x0004;
constexpr UINT SWP_NOACTIVATE = 0x0010;
constexpr UINT SWP_SHOWWINDOW = 0x0040;
constexpr UINT SWP_HIDEWINDOW = 0x0080;
constexpr UINT GW_HWNDFIRST = 0;
constexpr UINT GW_HWNDNEXT = 2;
constexpr UINT GW_HWNDPREV = 3;
constexpr UINT GW_OWNER = 4;
constexpr UINT GW_CHILD = 5;
constexpr UINT PM_NOREMOVE = 0;
constexpr UINT PM_REMOVE = 1;

constexpr UINT MB_OK = 0x00000000;
constexpr UINT MB_OKCANCEL = 0x00000001;
constexpr UINT MB_YESNOCANCEL = 0x00000003;
constexpr UINT MB_YESNO = 0x00000004;
constexpr UINT MB_DEFBUTTON2 = 0x00000100;
constexpr UINT MB_DEFBUTTON3 = 0x00000200;
constexpr UINT MB_DEFMASK = 0x00000F00;
constexpr UINT MB_TYPEMASK = 0x0000000F;
constexpr UINT MB_ICONHAND = 0x00000010;
constexpr UINT MB_ICONQUESTION = 0x00000020;
constexpr UINT MB_ICONEXCLAMATION = 0x00000030;
constexpr UINT MB_ICONASTERISK = 0x00000040;
constexpr UINT MB_ICONMASK = 0x000000F0;
constexpr UINT MB_ICONWARNING = MB_ICONEXCLAMATION;
constexpr UINT MB_ICONINFORMATION = MB_ICONASTERISK;
constexpr UINT MB_RTLREADING = 0x00100000;

constexpr int SM_CXFRAME = 32;
constexpr int SM_CYFRAME = 33;
constexpr int SM_CXSIZEFRAME = SM_CXFRAME;
constexpr int SM_CYSIZEFRAME = SM_CYFRAME;
constexpr int SM_CXEDGE = 45;
constexpr int SM_CYEDGE = 46;
constexpr int SM_CXICON = 11;
constexpr int SM_CYICON = 12;
constexpr int COLOR_WINDOW = 5;
constexpr int COLOR_WINDOWTEXT = 8;
constexpr int COLOR_HIGHLIGHT = 13;
constexpr int COLOR_HIGHLIGHTTEXT = 14;
constexpr int COLOR_BTNFACE = 15;
constexpr int COLOR_GRAYTEXT = 17;
constexpr int COLOR_BTNTEXT = 18;
constexpr int COLOR_3DDKSHADOW = 21;

constexpr UINT DT_TOP = 0x0000;
constexpr UINT DT_LEFT = 0x0000;
constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_RIGHT = 0x0002;
constexpr UINT DT_VCENTER = 0x0004;
constexpr UINT DT_BOTTOM = 0x0008;
constexpr UINT DT_WORDBREAK = 0x0010;
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_NOCLIP = 0x0100;
constexpr UINT DT_CALCRECT = 0x0400;
constexpr UINT DT_NOPREFIX = 0x0800;
constexpr UINT DT_RTLREADING = 0x00020000;

#define IDC_ARROW MAKEINTRESOURCEA(32512)
#define IDC_WAIT MAKEINTRESOURCEA(32514)
#define IDC_HAND MAKEINTRESOURCEA(32649)

extern "C" {
UINT WINAPI RegisterWindowMessageA(LPCSTR name);
ATOM WINAPI RegisterClassA(const WNDCLASSA* windowClass);
HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR text, DWORD style, int x, int y,
                            int width, int height, HWND parent, HMENU idOrMenu, HINSTANCE instance,
                            LPVOID param);
BOOL WINAPI DestroyWindow(HWND window);
BOOL WINAPI IsWindow(HWND window);
BOOL WINAPI IsChild(HWND parent, HWND window);
BOOL WINAPI ShowWindow(HWND window, int command);
BOOL WINAPI IsWindowVisible(HWND window);
BOOL WINAPI EnableWindow(HWND window, BOOL enable);
BOOL WINAPI IsWindowEnabled(HWND window);
BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL WINAPI SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height,
                         UINT flags);
BOOL WINAPI GetWindowRect(HWND window, RECT* rect);
BOOL WINAPI GetClientRect(HWND window, RECT* rect);
BOOL WINAPI ScreenToClient(HWND window, POINT* point);
BOOL WINAPI ClientToScreen(HWND window, POINT* point);
int WINAPI MapWindowPoints(HWND from, HWND to, POINT* points, UINT count);
HWND WINAPI GetParent(HWND window);
HWND WINAPI SetParent(HWND window, HWND newParent);
HWND WINAPI GetWindow(HWND window, UINT command);
HWND WINAPI GetDesktopWindow();
BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM param);
BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM param);
HWND WINAPI GetFocus();
HWND WINAPI SetFocus(HWND window);
HWND WINAPI GetActiveWindow();
HWND WINAPI SetActiveWindow(HWND window);
BOOL WINAPI SetWindowTextA(HWND window, LPCSTR text);
int WINAPI GetWindowTextA(HWND window, LPSTR buffer, int size);
int WINAPI GetWindowTextLengthA(HWND window);
int WINAPI GetClassNameA(HWND window, LPSTR buffer, int size);
LONG_PTR WINAPI GetWindowLongPtrA(HWND window, int index);
LONG_PTR WINAPI SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
LONG WINAPI GetWindowLongA(HWND window, int index);
LONG WINAPI SetWindowLongA(HWND window, int index, LONG value);
BOOL WINAPI SetPropA(HWND window, LPCSTR name, HANDLE data);
HANDLE WINAPI GetPropA(HWND window, LPCSTR name);
HANDLE WINAPI RemovePropA(HWND window, LPCSTR name);

LRESULT WINAPI SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                               LPARAM lParam);
LRESULT WINAPI DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove);
BOOL WINAPI GetMessageA(MSG* message, HWND window, UINT first, UINT last);
BOOL WINAPI TranslateMessage(const MSG* message);
LRESULT WINAPI DispatchMessageA(const MSG* message);
void WINAPI PostQuitMessage(int exitCode);
UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT elapse, TIMERPROC callback);
BOOL WINAPI KillTimer(HWND window, UINT_PTR id);

BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
BOOL WINAPI UpdateWindow(HWND window);
BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
HDC WINAPI BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);
HDC WINAPI GetDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC dc);

INT_PTR WINAPI DialogBoxParamA(HINSTANCE instance, LPCSTR templateName, HWND owner,
                               DLGPROC procedure, LPARAM initParam);
HWND WINAPI CreateDialogParamA(HINSTANCE instance, LPCSTR templateName, HWND parent,
                               DLGPROC procedure, LPARAM initParam);
HWND WINAPI CreateDialogIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialogTemplate,
                                       HWND parent, DLGPROC procedure, LPARAM initParam);
BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
LRESULT WINAPI DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI IsDialogMessageA(HWND dialog, MSG* message);
BOOL WINAPI MapDialogRect(HWND dialog, RECT* rect);
LONG WINAPI GetDialogBaseUnits();
HWND WINAPI GetDlgItem(HWND dialog, int id);
int WINAPI GetDlgCtrlID(HWND window);
HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
LRESULT WINAPI SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI SetDlgItemTextA(HWND dialog, int id, LPCSTR text);
UINT WINAPI GetDlgItemTextA(HWND dialog, int id, LPSTR buffer, int size);
BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned);
UINT WINAPI GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned);
BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check);
UINT WINAPI IsDlgButtonChecked(HWND dialog, int id);
BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int checked);

int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
BOOL WINAPI MessageBeep(UINT type);
SHORT WINAPI GetKeyState(int virtualKey);

int WINAPI LoadStringA(HINSTANCE instance, UINT id, LPSTR buffer, int size);
HBITMAP WINAPI LoadBitmapA(HINSTANCE instance, LPCSTR name);
HICON WINAPI LoadIconA(HINSTANCE instance, LPCSTR name);
HANDLE WINAPI LoadImageA(HINSTANCE instance, LPCSTR name, UINT type, int width, int height,
                         UINT flags);
BOOL WINAPI DestroyIcon(HICON icon);
HCURSOR WINAPI LoadCursorA(HINSTANCE instance, LPCSTR name);
HCURSOR WINAPI SetCursor(HCURSOR cursor);
BOOL WINAPI DrawIcon(HDC dc, int x, int y, HICON icon);
BOOL WINAPI DrawIconEx(HDC dc, int x, int y, HICON icon, int width, int height, UINT step,
                       HBRUSH flickerFree, UINT flags);

int WINAPI GetSystemMetrics(int index);
DWORD WINAPI GetSysColor(int index);
HBRUSH WINAPI GetSysColorBrush(int index);
BOOL WINAPI SetSysColors(int count, const INT* indices, const COLORREF* colors);
int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush);
int WINAPI FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
BOOL WINAPI DrawFocusRect(HDC dc, const RECT* rect);
int WINAPI DrawTextA(HDC dc, LPCSTR text, int length, RECT* rect, UINT format);
BOOL WINAPI SetRect(RECT* rect, int left, int top, int right, int bottom);
BOOL WINAPI InflateRect(RECT* rect, int dx, int dy);
BOOL WINAPI OffsetRect(RECT* rect, int dx, int dy);
BOOL WINAPI PtInRect(const RECT* rect, POINT point);
BOOL WINAPI IsRectEmpty(const RECT* rect);
BOOL WINAPI IntersectRect(RECT* result, const RECT* left, const RECT* right);
}

constexpr UINT RDW_INVALIDATE = 0x0001;
constexpr UINT RDW_ERASE = 0x0004;
constexpr UINT RDW_UPDATENOW = 0x0100;
constexpr UINT RDW_ALLCHILDREN = 0x0080;
constexpr UINT LR_DEFAULTCOLOR = 0x0000;
constexpr UINT DI_NORMAL = 0x0003;
#endif  // RC_INVOKED
