// Access tokens: threads have none of their own, the process has one that lists the user's groups.
#include <winbase.h>
#include <winbase.h>

#include <unistd.h>

#include <cstring>
#include <vector>

#include <platform/security/access.h>
#include <platform/security/sid.h>
#include <platform/shell/errors.h>
#include <platform/shell/kernel_objects.h>

namespace kv {

namespace {

constexpr DWORD kGroupEnabled = 0x7;  // mandatory, enabled by default, enabled
constexpr BYTE kMostSubAuthorities = 5;

struct TokenObject : KernelObject {
    explicit TokenObject(DWORD granted) : access(granted) {}
    const DWORD access;
};

struct GroupRow {
    BYTE authority;
    BYTE count;
    DWORD subAuthorities[2];
    bool administratorsOnly;
};

// Columns: last byte of the authority, number of sub-authorities, sub-authorities, who is in it.
constexpr GroupRow kGroups[] = {
    {1, 1, {0, 0}, false},                                                 // everyone
    {5, 1, {11, 0}, false},                                                // signed-in users
    {5, 2, {SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_USERS}, false},  // users
    {5, 2, {SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS}, true},  // administrators
};

using SidBytes = std::vector<BYTE>;

SidBytes MakeSid(BYTE authority, const DWORD* subAuthorities, BYTE count) {
    const BYTE bytes[6] = {0, 0, 0, 0, 0, authority};
    SidBytes sid(SidSize(count));
    WriteSid(sid.data(), bytes, subAuthorities, count);
    return sid;
}

std::vector<SidBytes> GroupSids() {
    std::vector<SidBytes> sids;
    const bool administrator = ActsAsAdministrator();
    for (const GroupRow& row : kGroups) {
        if (row.administratorsOnly && !administrator) continue;
        sids.push_back(MakeSid(row.authority, row.subAuthorities, row.count));
    }
    return sids;
}

// A local account: the operating system's user number ends its identifier.
std::vector<SidBytes> UserSid() {
    const DWORD subAuthorities[kMostSubAuthorities] = {21, 0, 0, 0, geteuid()};
    return {MakeSid(5, subAuthorities, kMostSubAuthorities)};
}

// `entries` records that point to the identifiers behind them, in one block.
void LayOut(const std::vector<SidBytes>& sids, SID_AND_ATTRIBUTES* entries, DWORD attributes) {
    auto* next = reinterpret_cast<BYTE*>(entries + sids.size());
    for (std::size_t i = 0; i < sids.size(); ++i) {
        std::memcpy(next, sids[i].data(), sids[i].size());
        entries[i] = {next, attributes};
        next += sids[i].size();
    }
}

std::size_t BlockSize(const std::vector<SidBytes>& sids, std::size_t header) {
    std::size_t size = header + sids.size() * sizeof(SID_AND_ATTRIBUTES);
    for (const SidBytes& sid : sids) size += sid.size();
    return size;
}

}  // namespace

}  // namespace kv

BOOL OpenThreadToken(HANDLE thread, DWORD, BOOL, HANDLE* token) {
    if (token) *token = nullptr;
    SetLastError(thread == GetCurrentThread() && token ? ERROR_NO_TOKEN : ERROR_INVALID_HANDLE);
    return FALSE;
}

BOOL OpenProcessToken(HANDLE process, DWORD access, HANDLE* token) {
    if (process != GetCurrentProcess() || !token) {
        SetLastError(token ? ERROR_INVALID_HANDLE : ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *token = reinterpret_cast<HANDLE>(
        kv::KernelObjects().Add(std::make_shared<kv::TokenObject>(access)));
    return TRUE;
}

BOOL GetTokenInformation(HANDLE token, TOKEN_INFORMATION_CLASS infoClass, LPVOID info, DWORD size,
                         PDWORD needed) {
    const auto object = kv::KernelObjectOf<kv::TokenObject>(token);
    if (!object) return FALSE;
    if (!(object->access & TOKEN_QUERY)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    if (!needed || (infoClass != TokenUser && infoClass != TokenGroups)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const bool groups = infoClass == TokenGroups;
    const auto sids = groups ? kv::GroupSids() : kv::UserSid();
    const std::size_t header = groups ? offsetof(TOKEN_GROUPS, Groups) : 0;
    *needed = static_cast<DWORD>(kv::BlockSize(sids, header));
    if (!info || size < *needed) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    auto* bytes = static_cast<BYTE*>(info);
    if (groups) static_cast<TOKEN_GROUPS*>(info)->GroupCount = static_cast<DWORD>(sids.size());
    kv::LayOut(sids, reinterpret_cast<SID_AND_ATTRIBUTES*>(bytes + header),
               groups ? kv::kGroupEnabled : 0);
    return TRUE;
}
