// Access tokens and well-known groups, as far as the administrator test needs them; their functions
// are in winbase.h.
#pragma once
#include <windef.h>

using PSID = void*;

struct SID_IDENTIFIER_AUTHORITY {
    BYTE Value[6];
};
using PSID_IDENTIFIER_AUTHORITY = SID_IDENTIFIER_AUTHORITY*;
struct SID_AND_ATTRIBUTES {
    PSID Sid;
    DWORD Attributes;
};
struct TOKEN_GROUPS {
    DWORD GroupCount;
    SID_AND_ATTRIBUTES Groups[1];
};
enum TOKEN_INFORMATION_CLASS { TokenUser = 1, TokenGroups = 2 };

#define SECURITY_NT_AUTHORITY \
    { 0, 0, 0, 0, 0, 5 }
constexpr DWORD SECURITY_BUILTIN_DOMAIN_RID = 0x20;
constexpr DWORD DOMAIN_ALIAS_RID_ADMINS = 0x220;
constexpr DWORD DOMAIN_ALIAS_RID_USERS = 0x221;
constexpr DWORD TOKEN_QUERY = 0x0008;
