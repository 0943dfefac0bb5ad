// Graphics: device contexts, 32-bit surfaces, raster operations, pens, brushes, fonts and text; and
// the public device settings record. Implemented in platform/gdi.
#pragma once
#include <windef.h>

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16);
}
constexpr BYTE GetRValue(COLORREF color) {
    return static_cast<BYTE>(color);
}
constexpr BYTE GetGValue(COLORREF color) {
    return static_cast<BYTE>(color >> 8);
}
constexpr BYTE GetBValue(COLORREF color) {
    return static_cast<BYTE>(color >> 16);
}

constexpr DWORD SRCCOPY = 0x00CC0020;
constexpr DWORD SRCPAINT = 0x00EE0086;
constexpr DWORD SRCAND = 0x008800C6;
constexpr DWORD SRCINVERT = 0x00660046;
constexpr DWORD SRCERASE = 0x00440328;
constexpr DWORD NOTSRCCOPY = 0x00330008;
constexpr DWORD NOTSRCERASE = 0x001100A6;
constexpr DWORD MERGECOPY = 0x00C000CA;
constexpr DWORD MERGEPAINT = 0x00BB0226;
constexpr DWORD PATCOPY = 0x00F00021;
constexpr DWORD PATPAINT = 0x00FB0A09;
constexpr DWORD PATINVERT = 0x005A0049;
constexpr DWORD DSTINVERT = 0x00550009;
constexpr DWORD BLACKNESS = 0x00000042;
constexpr DWORD WHITENESS = 0x00FF0062;

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;
constexpr UINT TA_LEFT = 0;
constexpr UINT TA_RIGHT = 2;
constexpr UINT TA_CENTER = 6;
constexpr UINT TA_TOP = 0;
constexpr UINT TA_BOTTOM = 8;
constexpr UINT TA_BASELINE = 24;
constexpr UINT TA_RTLREADING = 256;
constexpr int WHITE_BRUSH = 0;
constexpr int BLACK_BRUSH = 4;
constexpr int NULL_BRUSH = 5;
constexpr int BLACK_PEN = 7;
constexpr int NULL_PEN = 8;
constexpr int SYSTEM_FONT = 13;
constexpr int DEFAULT_GUI_FONT = 17;
constexpr int PS_SOLID = 0;
constexpr int PS_NULL = 5;
constexpr int HORZRES = 8;
constexpr int VERTRES = 10;
constexpr int BITSPIXEL = 12;
constexpr int LOGPIXELSX = 88;
constexpr int LOGPIXELSY = 90;
constexpr int FW_NORMAL = 400;
constexpr int FW_BOLD = 700;
constexpr BYTE ANSI_CHARSET = 0;
constexpr BYTE DEFAULT_CHARSET = 1;
constexpr int LF_FACESIZE = 32;
constexpr int BLACKONWHITE = 1;
constexpr int COLORONCOLOR = 3;
constexpr int HALFTONE = 4;
constexpr int RGN_ERROR = 0;
constexpr int NULLREGION = 1;
constexpr int SIMPLEREGION = 2;
constexpr DWORD GDI_ERROR = 0xFFFFFFFFu;
constexpr COLORREF CLR_INVALID = 0xFFFFFFFFu;
constexpr UINT DIB_RGB_COLORS = 0;
constexpr DWORD BI_RGB = 0;
constexpr int RASTER_FONTTYPE = 1;
constexpr int DEVICE_FONTTYPE = 2;
constexpr int TRUETYPE_FONTTYPE = 4;
constexpr BYTE OUT_STRING_PRECIS = 1;
constexpr BYTE OUT_TT_ONLY_PRECIS = 7;
constexpr BYTE PROOF_QUALITY = 2;
constexpr BYTE FF_ROMAN = 1 << 4;

struct LOGFONTA {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;  // tenths of a degree, counter-clockwise
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    CHAR lfFaceName[LF_FACESIZE];
};
struct TEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};
using FONTENUMPROCA = int (*)(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM);
struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};
struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};
struct RGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};
struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};
struct LOGBRUSH {
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch;
};

// Public part of the device settings record, ANSI form.
struct DEVMODEA {
    BYTE dmDeviceName[32];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    SHORT dmOrientation;
    SHORT dmPaperSize;
    SHORT dmPaperLength;
    SHORT dmPaperWidth;
    SHORT dmScale;
    SHORT dmCopies;
    SHORT dmDefaultSource;
    SHORT dmPrintQuality;
    SHORT dmColor;
    SHORT dmDuplex;
    SHORT dmYResolution;
    SHORT dmTTOption;
    SHORT dmCollate;
    BYTE dmFormName[32];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    DWORD dmDisplayFlags;
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
};
static_assert(sizeof(DEVMODEA) == 156, "public device settings are 156 bytes");

extern "C" {
HDC WINAPI CreateCompatibleDC(HDC dc);
BOOL WINAPI DeleteDC(HDC dc);
int WINAPI SaveDC(HDC dc);
BOOL WINAPI RestoreDC(HDC dc, int saved);
int WINAPI GetDeviceCaps(HDC dc, int index);
HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object);
BOOL WINAPI DeleteObject(HGDIOBJ object);
HGDIOBJ WINAPI GetStockObject(int index);
int WINAPI GetObjectA(HGDIOBJ object, int size, LPVOID buffer);
HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height);
HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, LPCVOID bits);
HBITMAP WINAPI CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, LPVOID* bits,
                                HANDLE section, DWORD offset);
HBRUSH WINAPI CreateSolidBrush(COLORREF color);
HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmap);
HPEN WINAPI CreatePen(int style, int width, COLORREF color);
HFONT WINAPI CreateFontIndirectA(const LOGFONTA* font);

BOOL WINAPI BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                   int sourceY, DWORD rop);
BOOL WINAPI StretchBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                       int sourceY, int sourceWidth, int sourceHeight, DWORD rop);
int WINAPI SetStretchBltMode(HDC dc, int mode);
BOOL WINAPI PatBlt(HDC dc, int x, int y, int width, int height, DWORD rop);
COLORREF WINAPI SetPixel(HDC dc, int x, int y, COLORREF color);
COLORREF WINAPI GetPixel(HDC dc, int x, int y);
BOOL WINAPI MoveToEx(HDC dc, int x, int y, POINT* previous);
BOOL WINAPI LineTo(HDC dc, int x, int y);
BOOL WINAPI Rectangle(HDC dc, int left, int top, int right, int bottom);
BOOL WINAPI Polygon(HDC dc, const POINT* points, int count);
BOOL WINAPI Ellipse(HDC dc, int left, int top, int right, int bottom);

HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom);
int WINAPI SelectClipRgn(HDC dc, HRGN region);
int WINAPI IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
int WINAPI GetClipBox(HDC dc, RECT* rect);

BOOL WINAPI GdiFlush();

COLORREF WINAPI SetTextColor(HDC dc, COLORREF color);
COLORREF WINAPI SetBkColor(HDC dc, COLORREF color);
int WINAPI SetBkMode(HDC dc, int mode);
UINT WINAPI SetTextAlign(HDC dc, UINT align);
UINT WINAPI GetTextAlign(HDC dc);
BOOL WINAPI TextOutA(HDC dc, int x, int y, LPCSTR text, int length);
BOOL WINAPI GetTextExtentPoint32A(HDC dc, LPCSTR text, int length, SIZE* size);
BOOL WINAPI GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);
int WINAPI EnumFontFamiliesExA(HDC dc, LOGFONTA* font, FONTENUMPROCA callback, LPARAM param,
                               DWORD flags);
}
