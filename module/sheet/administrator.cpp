// The administrator test: looks for the built-in Administrators group among the caller's groups.
#include "sheet/administrator.h"

#include <windows.h>

#include <cstddef>
#include <memory>

namespace kvui {
namespace {

struct TokenCloser {
    void operator()(void* token) const { CloseHandle(token); }
};
using Token = std::unique_ptr<void, TokenCloser>;

bool HasSecurity() {
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    return !GetVersionExA(&version) || version.dwPlatformId == VER_PLATFORM_WIN32_NT;
}

// The thread's token; a thread without one of its own has the token of the process.
Token OpenCallersToken() {
    HANDLE token = nullptr;
    if (OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, TRUE, &token)) return Token(token);
    if (GetLastError() == ERROR_NO_TOKEN &&
        OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) {
        return Token(token);
    }
    return nullptr;
}

// Null when the groups cannot be read.
std::unique_ptr<std::max_align_t[]> ReadGroups(HANDLE token) {
    DWORD size = 0;
    if (GetTokenInformation(token, TokenGroups, nullptr, 0, &size) ||
        GetLastError() != ERROR_INSUFFICIENT_BUFFER) {
        return nullptr;
    }
    auto groups = std::make_unique<std::max_align_t[]>(size / sizeof(std::max_align_t) + 1);
    if (!GetTokenInformation(token, TokenGroups, groups.get(), size, &size)) return nullptr;
    return groups;
}

bool ContainsAdministrators(const TOKEN_GROUPS& groups) {
    SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
    PSID administrators = nullptr;
    if (!AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID,
                                  DOMAIN_ALIAS_RID_ADMINS, 0, 0, 0, 0, 0, 0, &administrators)) {
        return false;
    }
    bool found = false;
    for (DWORD i = 0; i < groups.GroupCount && !found; ++i) {
        found = EqualSid(groups.Groups[i].Sid, administrators) != FALSE;
    }
    FreeSid(administrators);
    return found;
}

}  // namespace

bool IsAdministrator() {
    if (!HasSecurity()) return true;
    const Token token = OpenCallersToken();
    if (token == nullptr) return false;
    const auto groups = ReadGroups(token.get());
    return groups != nullptr &&
           ContainsAdministrators(*reinterpret_cast<const TOKEN_GROUPS*>(groups.get()));
}

}  // namespace kvui
