// Access tokens and well-known groups, as far as the administrator test needs them.
#pragma once
#include <windef.h>

using PSID = void*;

struct SID_IDENTIFIER_AUTHORITY {
    BYTE Value[6];
};
struct SID_AND_ATTRIBUTES {
    PSID Sid;
    DWORD Attributes;
};
struct TOKEN_GROUPS {
    DWORD GroupCount;
    SID_AND_ATTRIBUTES Groups[1];
};
enum TOKEN_INFORMATION_CLASS { TokenUser = 1, TokenGroups = 2 };

#define SECURITY_NT_AUTHORITY {{0, 0, 0, 0, 0, 5}}
constexpr DWORD SECURITY_BUILTIN_DOMAIN_RID = 0x20;
constexpr DWORD DOMAIN_ALIAS_RID_ADMINS = 0x220;
constexpr DWORD DOMAIN_ALIAS_RID_USERS = 0x221;
constexpr DWORD TOKEN_QUERY = 0x0008;

extern "C" {
HANDLE WINAPI GetCurrentThread();
HANDLE WINAPI GetCurrentProcess();
BOOL WINAPI OpenThreadToken(HANDLE thread, DWORD access, BOOL openAsSelf, HANDLE* token);
BOOL WINAPI OpenProcessToken(HANDLE process, DWORD access, HANDLE* token);
BOOL WINAPI GetTokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS infoClass, LPVOID info,
                                DWORD size, PDWORD needed);
BOOL WINAPI AllocateAndInitializeSid(const SID_IDENTIFIER_AUTHORITY* authority, BYTE count,
                                     DWORD a0, DWORD a1, DWORD a2, DWORD a3, DWORD a4, DWORD a5,
                                     DWORD a6, DWORD a7, PSID* sid);
BOOL WINAPI EqualSid(PSID left, PSID right);
PVOID WINAPI FreeSid(PSID sid);
}
