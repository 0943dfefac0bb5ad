// Base types of the platform interface: sizes are those of the genuine platform, not of this host
// (LONG and DWORD are 32 bits). Included by every other platform header.
#pragma once
#ifndef RC_INVOKED
#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using INT = std::int32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using BOOL = std::int32_t;
using CHAR = char;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using ATOM = WORD;
using COLORREF = DWORD;
using LCID = DWORD;
using LCTYPE = DWORD;
using LANGID = WORD;

using LPVOID = void*;
using LPCVOID = const void*;
using LPSTR = char*;
using LPCSTR = const char*;
using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using PVOID = void*;
using PDWORD = DWORD*;
using PUINT = UINT*;

// Handles are opaque: their values come from checked tables and are never dereferenced by callers.
using HANDLE = void*;
struct HWND__;
struct HINSTANCE__;
struct HDC__;
struct HBITMAP__;
struct HBRUSH__;
struct HPEN__;
struct HFONT__;
struct HRGN__;
struct HPALETTE__;
struct HICON__;
struct HMENU__;
struct HKEY__;
struct HRSRC__;
using HWND = HWND__*;
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;
using HDC = HDC__*;
using HGDIOBJ = void*;
using HBITMAP = HBITMAP__*;
using HBRUSH = HBRUSH__*;
using HPEN = HPEN__*;
using HFONT = HFONT__*;
using HRGN = HRGN__*;
using HPALETTE = HPALETTE__*;
using HICON = HICON__*;
using HCURSOR = HICON;
using HMENU = HMENU__*;
using HKEY = HKEY__*;
using HRSRC = HRSRC__*;
using HGLOBAL = HANDLE;
using HLOCAL = HANDLE;

using FARPROC = INT_PTR (*)();

#define CALLBACK
#define WINAPI
#define APIENTRY

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

struct POINT {
    LONG x;
    LONG y;
};
struct SIZE {
    LONG cx;
    LONG cy;
};
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

constexpr WORD LOWORD(std::uintptr_t value) {
    return static_cast<WORD>(value & 0xFFFF);
}
constexpr WORD HIWORD(std::uintptr_t value) {
    return static_cast<WORD>((value >> 16) & 0xFFFF);
}
constexpr BYTE LOBYTE(std::uintptr_t value) {
    return static_cast<BYTE>(value & 0xFF);
}
constexpr BYTE HIBYTE(std::uintptr_t value) {
    return static_cast<BYTE>((value >> 8) & 0xFF);
}
constexpr LONG MAKELONG(unsigned low, unsigned high) {
    return static_cast<LONG>((low & 0xFFFFu) | ((high & 0xFFFFu) << 16));
}
constexpr WORD MAKEWORD(unsigned low, unsigned high) {
    return static_cast<WORD>((low & 0xFFu) | ((high & 0xFFu) << 8));
}
constexpr WPARAM MAKEWPARAM(unsigned low, unsigned high) {
    return static_cast<WPARAM>((low & 0xFFFFu) | ((high & 0xFFFFu) << 16));
}
constexpr LPARAM MAKELPARAM(unsigned low, unsigned high) {
    return static_cast<LPARAM>(static_cast<std::uint32_t>(MAKELONG(low, high)));
}

constexpr DWORD MAX_PATH = 260;
#endif  // RC_INVOKED
