// The directory of one compiled resource file (.res): which types, names and languages it holds and
// where their bytes lie. register.cpp keeps one per registered file; find.cpp looks resources up.
#pragma once

#include <windef.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kv {

// A resource type or name as callers give it: a number, or a text compared without regard to case.
struct ResourceName {
    bool isId = true;
    WORD id = 0;
    std::string text;  // upper case
};

// Reads the argument of FindResourceA: a number in the low word, "#123", or a text.
ResourceName ResourceNameOf(LPCSTR name);

struct ResourceEntry {
    std::uint32_t type = 0;  // numbers as they are, texts as kFirstText and up
    std::uint32_t name = 0;
    WORD language = 0;
    const BYTE* bytes = nullptr;
    DWORD size = 0;
};

class ResourceFile {
 public:
    enum class Found { kYes, kNoType, kNoName };

    // Indexes the file. On malformed input nothing is indexed and the answer says where and what
    // was expected; empty means success.
    std::string Parse(std::span<const BYTE> file);

    // The entry of that type and name; of several languages the neutral one, then US English, then
    // the lowest.
    const ResourceEntry* Find(const ResourceName& type, const ResourceName& name,
                              Found& found) const;
    const ResourceEntry* FindById(WORD type, WORD name) const;

    const std::vector<ResourceEntry>& entries() const { return sorted; }

 private:
    static constexpr std::uint32_t kFirstText = 0x10000;

    std::uint32_t Intern(const ResourceName& name);
    bool KeyOf(const ResourceName& name, std::uint32_t& key) const;
    const ResourceEntry* Lookup(std::uint32_t type, std::uint32_t name) const;

    std::vector<ResourceEntry> sorted;
    std::unordered_map<std::string, std::uint32_t> texts;
};

}  // namespace kv
