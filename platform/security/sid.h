// The byte layout of security identifiers: revision, count, six bytes of authority, then `count`
// 32-bit sub-authorities. Used by the tokens and the identifier functions.
#pragma once

#include <windef.h>

#include <cstddef>

namespace kv {

constexpr BYTE kSidRevision = 1;
constexpr BYTE kMaxSubAuthorities = 15;
constexpr std::size_t kSidHeaderSize = 8;

constexpr std::size_t SidSize(BYTE subAuthorities) {
    return kSidHeaderSize + std::size_t{4} * subAuthorities;
}

// Writes an identifier of SidSize(count) bytes.
void WriteSid(BYTE* sid, const BYTE (&authority)[6], const DWORD* subAuthorities, BYTE count);

}  // namespace kv
