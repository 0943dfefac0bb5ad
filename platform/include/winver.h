// Version resources: their constants, which the resource compiler reads as well, and the calls that
// read them.
#pragma once
#define VS_VERSION_INFO 1
#define VS_FFI_SIGNATURE 0xFEEF04BDL
#define VS_FFI_FILEFLAGSMASK 0x0000003FL
#define VOS_NT_WINDOWS32 0x00040004L
#define VFT_DLL 0x00000002L

#ifndef RC_INVOKED
#include <windef.h>

struct VS_FIXEDFILEINFO {
    DWORD dwSignature;
    DWORD dwStrucVersion;
    DWORD dwFileVersionMS;
    DWORD dwFileVersionLS;
    DWORD dwProductVersionMS;
    DWORD dwProductVersionLS;
    DWORD dwFileFlagsMask;
    DWORD dwFileFlags;
    DWORD dwFileOS;
    DWORD dwFileType;
    DWORD dwFileSubtype;
    DWORD dwFileDateMS;
    DWORD dwFileDateLS;
};

extern "C" {
DWORD WINAPI GetFileVersionInfoSizeA(LPCSTR fileName, LPDWORD handle);
BOOL WINAPI GetFileVersionInfoA(LPCSTR fileName, DWORD handle, DWORD size, LPVOID data);
BOOL WINAPI VerQueryValueA(LPCVOID block, LPCSTR subBlock, LPVOID* buffer, PUINT length);
}
#endif  // RC_INVOKED
