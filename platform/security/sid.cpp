// Security identifiers: allocation, comparison, release.
#include <platform/security/sid.h>

#include <winbase.h>
#include <winbase.h>

#include <cstring>
#include <iterator>
#include <map>
#include <memory>
#include <mutex>

#include <platform/shell/errors.h>

namespace kv {

void WriteSid(BYTE* sid, const BYTE (&authority)[6], const DWORD* subAuthorities, BYTE count) {
    sid[0] = kSidRevision;
    sid[1] = count;
    std::memcpy(sid + 2, authority, sizeof authority);
    std::memcpy(sid + kSidHeaderSize, subAuthorities, std::size_t{4} * count);
}

namespace {

// Only what was allocated here is freed here; a wrong pointer is answered, not followed.
struct AllocatedSids {
    std::mutex lock;
    std::map<PSID, std::unique_ptr<BYTE[]>> sids;
};

AllocatedSids& Allocated() {
    static auto* allocated = new AllocatedSids;
    return *allocated;
}

bool IsValid(PSID sid) {
    const auto* bytes = static_cast<const BYTE*>(sid);
    return bytes && bytes[0] == kSidRevision && bytes[1] <= kMaxSubAuthorities;
}

}  // namespace

}  // namespace kv

BOOL AllocateAndInitializeSid(PSID_IDENTIFIER_AUTHORITY authority, BYTE count, DWORD a0, DWORD a1,
                              DWORD a2, DWORD a3, DWORD a4, DWORD a5, DWORD a6, DWORD a7,
                              PSID* sid) {
    const DWORD subAuthorities[] = {a0, a1, a2, a3, a4, a5, a6, a7};
    if (!authority || !sid || count == 0 || count > std::size(subAuthorities)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    auto bytes = std::make_unique<BYTE[]>(kv::SidSize(count));
    kv::WriteSid(bytes.get(), authority->Value, subAuthorities, count);
    *sid = bytes.get();
    std::lock_guard guard(kv::Allocated().lock);
    kv::Allocated().sids[*sid] = std::move(bytes);
    return TRUE;
}

BOOL EqualSid(PSID left, PSID right) {
    if (!kv::IsValid(left) || !kv::IsValid(right)) {
        SetLastError(kv::kErrorInvalidSid);
        return FALSE;
    }
    const BYTE count = static_cast<const BYTE*>(left)[1];
    if (count != static_cast<const BYTE*>(right)[1]) return FALSE;
    return std::memcmp(left, right, kv::SidSize(count)) == 0 ? TRUE : FALSE;
}

// Null when freed, the identifier itself when it was not allocated here.
PVOID FreeSid(PSID sid) {
    std::lock_guard guard(kv::Allocated().lock);
    return kv::Allocated().sids.erase(sid) > 0 ? nullptr : sid;
}
