// Reading a compiled resource file. Its format: entries at multiples of four bytes, each a header
// {data size, header size, type, name, data version, flags, language, version, characteristics}
// and the data. A type or name is the word 0xFFFF and a number, or a zero-terminated UTF-16 text.
#include <platform/resource/resource_file.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <tuple>

namespace kv {
namespace {

constexpr WORD kNumberMark = 0xFFFF;
constexpr WORD kUsEnglish = 0x0409;
constexpr std::size_t kSizesLength = 8;
constexpr std::size_t kTailLength = 16;
constexpr std::size_t kLanguageInTail = 6;

// Reads little-endian numbers; a read past the end sets `failed` and gives zero.
class Reader {
 public:
    Reader(std::span<const BYTE> file, std::size_t start, std::size_t stop)
        : bytes(file), at(start), end(std::min(stop, file.size())) {}

    WORD Word() {
        if (failed || end - at < 2) {
            failed = true;
            return 0;
        }
        const WORD value = static_cast<WORD>(bytes[at] | bytes[at + 1] << 8);
        at += 2;
        return value;
    }
    DWORD Dword() {
        const DWORD low = Word();
        return low | static_cast<DWORD>(Word()) << 16;
    }
    void AlignTo4() { at = std::min((at + 3) & ~std::size_t{3}, end); }

    std::span<const BYTE> bytes;
    std::size_t at;
    std::size_t end;
    bool failed = false;
};

char UpperAscii(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

// Names are plain ASCII in practice; another character can never equal one a caller gives.
ResourceName ReadName(Reader& reader) {
    ResourceName name;
    WORD unit = reader.Word();
    if (unit == kNumberMark) {
        name.id = reader.Word();
        return name;
    }
    name.isId = false;
    for (; unit != 0 && !reader.failed; unit = reader.Word()) {
        name.text += unit < 0x80 ? UpperAscii(static_cast<char>(unit)) : '\x1a';
    }
    return name;
}

std::string Malformed(std::size_t offset, const char* expected) {
    char text[128];
    std::snprintf(text, sizeof text, "compiled resources, offset %zu: %s", offset, expected);
    return text;
}

// Of equal names the first in this order is found.
auto Order(const ResourceEntry& entry) {
    const int rank = entry.language == 0 ? 0 : entry.language == kUsEnglish ? 1 : 2;
    return std::make_tuple(entry.type, entry.name, rank, entry.language);
}

}  // namespace

ResourceName ResourceNameOf(LPCSTR name) {
    ResourceName result;
    const auto number = reinterpret_cast<std::uintptr_t>(name);
    if (number <= 0xFFFF) {
        result.id = static_cast<WORD>(number);
        return result;
    }
    if (name[0] == '#') {
        WORD id = 0;
        const char* end = name + std::strlen(name);
        const auto [stop, error] = std::from_chars(name + 1, end, id);
        if (error == std::errc() && stop == end) {
            result.id = id;
            return result;
        }
    }
    result.isId = false;
    result.text = name;
    std::transform(result.text.begin(), result.text.end(), result.text.begin(), UpperAscii);
    return result;
}

std::uint32_t ResourceFile::Intern(const ResourceName& name) {
    if (name.isId) return name.id;
    const auto next = static_cast<std::uint32_t>(kFirstText + texts.size());
    return texts.try_emplace(name.text, next).first->second;
}

bool ResourceFile::KeyOf(const ResourceName& name, std::uint32_t& key) const {
    key = name.id;
    if (name.isId) return true;
    const auto found = texts.find(name.text);
    if (found == texts.end()) return false;
    key = found->second;
    return true;
}

std::string ResourceFile::Parse(std::span<const BYTE> file) {
    sorted.clear();
    texts.clear();
    std::vector<ResourceEntry> read;
    for (std::size_t start = 0; start < file.size();) {
        Reader sizes(file, start, file.size());
        const DWORD dataSize = sizes.Dword();
        const DWORD headerSize = sizes.Dword();
        if (sizes.failed) return Malformed(start, "expected the two sizes of an entry");
        if (headerSize > file.size() - start) return Malformed(start, "header passes the end");
        if (headerSize % 4 != 0) return Malformed(start, "expected a header of whole words");
        Reader header(file, start + kSizesLength, start + headerSize);
        if (headerSize < kSizesLength) return Malformed(start, "header too short");
        const ResourceName type = ReadName(header);
        const ResourceName name = ReadName(header);
        header.AlignTo4();
        if (header.failed || header.end - header.at < kTailLength) {
            return Malformed(start, "header too short for its type and name");
        }
        header.at += kLanguageInTail;
        const WORD language = header.Word();
        const std::size_t data = start + headerSize;
        if (dataSize > file.size() - data) return Malformed(start, "data pass the end");
        const bool isFileMark = type.isId && type.id == 0 && name.isId && name.id == 0;
        if (!isFileMark) {
            read.push_back({Intern(type), Intern(name), language, file.data() + data, dataSize});
        }
        const std::size_t padded = (std::size_t{dataSize} + 3) & ~std::size_t{3};
        start = data + std::min(padded, file.size() - data);
    }
    std::stable_sort(read.begin(), read.end(), [](const auto& left, const auto& right) {
        return Order(left) < Order(right);
    });
    sorted = std::move(read);
    return {};
}

const ResourceEntry* ResourceFile::Lookup(std::uint32_t type, std::uint32_t name) const {
    const auto found = std::partition_point(sorted.begin(), sorted.end(), [=](const auto& entry) {
        return std::tie(entry.type, entry.name) < std::tie(type, name);
    });
    if (found == sorted.end() || found->type != type || found->name != name) return nullptr;
    return &*found;
}

const ResourceEntry* ResourceFile::FindById(WORD type, WORD name) const {
    return Lookup(type, name);
}

const ResourceEntry* ResourceFile::Find(const ResourceName& type, const ResourceName& name,
                                        Found& found) const {
    std::uint32_t typeKey = 0;
    std::uint32_t nameKey = 0;
    found = Found::kNoType;
    if (!KeyOf(type, typeKey)) return nullptr;
    const auto first = std::partition_point(
        sorted.begin(), sorted.end(), [=](const auto& entry) { return entry.type < typeKey; });
    if (first == sorted.end() || first->type != typeKey) return nullptr;
    found = Found::kNoName;
    if (!KeyOf(name, nameKey)) return nullptr;
    const ResourceEntry* entry = Lookup(typeKey, nameKey);
    if (entry) found = Found::kYes;
    return entry;
}

}  // namespace kv
