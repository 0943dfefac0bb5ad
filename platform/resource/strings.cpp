// LoadStringA. Strings lie in blocks of sixteen counted UTF-16 texts; the block of string n has the
// name n / 16 + 1. A string is decoded when it is asked for.
#include <platform/resource/code_page.h>
#include <platform/resource/registry_of_files.h>
#include <winbase.h>
#include <winuser.h>

namespace kv {
namespace {

constexpr unsigned kStringsPerBlock = 16;

WORD WordAt(const BYTE* bytes) {
    return static_cast<WORD>(bytes[0] | bytes[1] << 8);
}

// The UTF-16 bytes of one text of a block; empty when it is missing or passes the block's end.
std::span<const BYTE> TextInBlock(std::span<const BYTE> block, unsigned index) {
    std::size_t at = 0;
    for (unsigned i = 0;; ++i) {
        if (block.size() - at < 2) return {};
        const std::size_t length = std::size_t{WordAt(&block[at])} * 2;
        at += 2;
        if (block.size() - at < length) return {};
        if (i == index) return block.subspan(at, length);
        at += length;
    }
}

}  // namespace
}  // namespace kv

extern "C" {

// RT_STRING as the number that entries carry.
constexpr WORD kStringTable = 6;

int WINAPI LoadStringA(HINSTANCE instance, UINT id, LPSTR buffer, int size) {
    if (!buffer || size <= 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    buffer[0] = '\0';
    if (id > 0xFFFF) id &= 0xFFFF;
    const WORD block = static_cast<WORD>(id / kv::kStringsPerBlock + 1);
    const kv::HeldEntry held = kv::FindEntryById(instance, kStringTable, block);
    std::span<const BYTE> text;
    if (held.entry) {
        text = kv::TextInBlock({held.entry->bytes, held.entry->size}, id % kv::kStringsPerBlock);
    }
    if (text.empty()) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return 0;
    }
    int length = 0;
    for (std::size_t at = 0; at + 1 < text.size() && length < size - 1; at += 2) {
        buffer[length++] = kv::CodePageCharacter(kv::WordAt(&text[at]));
    }
    buffer[length] = '\0';
    return length;
}
}
