// Version resources: GetFileVersionInfoA copies a module's, VerQueryValueA finds values in the
// copy. The resource is a tree of nodes: length, length of the value, kind of the value, name in
// UTF-16, value, nodes below; value and nodes begin at multiples of four. Texts are asked for in 8
// bits, so the copy carries them a second time behind the tree: the text at offset n of the tree
// lies n / 2 bytes behind the mark.
#include <platform/resource/code_page.h>
#include <platform/resource/registry_of_files.h>
#include <platform/shell/errors.h>
#include <platform/shell/paths.h>
#include <winbase.h>
#include <winver.h>

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace kv {
namespace {

constexpr WORD kVersionType = 16;
constexpr size_t kHeader = 3 * sizeof(WORD);
constexpr char kMark[4] = {'K', 'V', '8', 'B'};
constexpr WORD kText = 1;

constexpr size_t Aligned(size_t offset) {
    return (offset + 3) & ~size_t{3};
}

// One node; offsets count from the start of the tree.
struct Node {
    size_t end = 0;
    size_t value = 0;
    size_t valueBytes = 0;
    size_t children = 0;
    bool isText = false;
    std::string name;
};

class Tree {
 public:
    Tree(const BYTE* bytes, size_t size) : bytes_(bytes), size_(size) {}

    WORD WordAt(size_t at) const { return static_cast<WORD>(bytes_[at] | bytes_[at + 1] << 8); }

    // The node at an offset, before `limit`; nothing when it is damaged.
    std::optional<Node> NodeAt(size_t at, size_t limit) const {
        if (at + kHeader > limit || limit > size_) return std::nullopt;
        Node node;
        node.end = at + WordAt(at);
        if (node.end > limit || node.end < at + kHeader) return std::nullopt;
        node.isText = WordAt(at + 4) == kText;
        size_t place = at + kHeader;
        for (;; place += 2) {
            if (place + 2 > node.end) return std::nullopt;
            const WORD unit = WordAt(place);
            if (unit == 0) break;
            node.name += CodePageCharacter(unit);
        }
        node.value = std::min(Aligned(place + 2), node.end);
        // Of texts the characters are counted.
        node.valueBytes =
            std::min<size_t>(size_t{WordAt(at + 2)} * (node.isText ? 2 : 1), node.end - node.value);
        node.children = std::min(Aligned(node.value + node.valueBytes), node.end);
        return node;
    }

    std::optional<Node> Child(const Node& parent, std::string_view name) const {
        for (size_t at = parent.children; at < parent.end;) {
            const std::optional<Node> node = NodeAt(at, parent.end);
            if (!node || EqualsIgnoringCase(node->name, name)) return node;
            at = Aligned(node->end);
        }
        return std::nullopt;
    }

    // Writes the 8-bit form of every text in the node and below.
    void WriteTexts(const Node& node, BYTE* area) const {
        for (size_t at = 0; node.isText && at + 1 < node.valueBytes; at += 2) {
            const size_t place = node.value + at;
            area[place / 2] = static_cast<BYTE>(CodePageCharacter(WordAt(place)));
        }
        for (size_t at = node.children; at < node.end;) {
            const std::optional<Node> below = NodeAt(at, node.end);
            if (!below) return;
            WriteTexts(*below, area);
            at = Aligned(below->end);
        }
    }

 private:
    const BYTE* bytes_;
    size_t size_;
};

size_t TextArea(size_t treeSize) {
    return Aligned(treeSize) + sizeof kMark;
}

// A zero behind the last text, whatever the resource says.
size_t SizeOfCopy(size_t treeSize) {
    return Aligned(TextArea(treeSize) + treeSize / 2 + 1);
}

// Holds the module while its resource is read; one that is not loaded is loaded for that long.
class ModuleOfFile {
 public:
    explicit ModuleOfFile(LPCSTR fileName) {
        if (!fileName || !*fileName) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return;
        }
        module_ = GetModuleHandleA(fileName);
        if (module_) return;
        const std::string path = NativePath(fileName);
        const bool missing = path.find('/') != std::string::npos && access(path.c_str(), F_OK) != 0;
        const DWORD error = missing ? ErrorFromErrno(errno, path) : ERROR_FILE_NOT_FOUND;
        loaded_ = missing ? nullptr : LoadLibraryA(fileName);
        module_ = loaded_;
        if (module_) return;
        const bool unreadable = !missing && GetLastError() == ERROR_BAD_EXE_FORMAT;
        SetLastError(unreadable ? ERROR_RESOURCE_DATA_NOT_FOUND : error);
    }
    ~ModuleOfFile() {
        if (loaded_) FreeLibrary(loaded_);
    }
    ModuleOfFile(const ModuleOfFile&) = delete;
    ModuleOfFile& operator=(const ModuleOfFile&) = delete;

    // The tree; empty, with the last error set, when there is none.
    std::span<const BYTE> Resource() {
        if (!module_) return {};
        held_ = FindEntryById(module_, kVersionType, VS_VERSION_INFO);
        if (held_.entry && held_.entry->size >= kHeader) {
            const Tree tree(held_.entry->bytes, held_.entry->size);
            if (const auto root = tree.NodeAt(0, held_.entry->size)) {
                return {held_.entry->bytes, root->end};
            }
        }
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return {};
    }

 private:
    HMODULE module_{};
    HMODULE loaded_{};
    HeldEntry held_;
};

// Follows "\\StringFileInfo\\040904E4\\ProductVersion"; the root is "\\".
std::optional<Node> Follow(const Tree& tree, size_t size, std::string_view path) {
    std::optional<Node> node = tree.NodeAt(0, size);
    while (node && !path.empty()) {
        if (path[0] == '\\') path.remove_prefix(1);
        if (path.empty()) break;
        const std::string_view name = path.substr(0, path.find('\\'));
        path.remove_prefix(name.size());
        node = tree.Child(*node, name);
    }
    return node;
}

}  // namespace
}  // namespace kv

extern "C" {

DWORD WINAPI GetFileVersionInfoSizeA(LPCSTR fileName, LPDWORD handle) {
    if (handle) *handle = 0;
    kv::ModuleOfFile module(fileName);
    const auto resource = module.Resource();
    return resource.empty() ? 0 : static_cast<DWORD>(kv::SizeOfCopy(resource.size()));
}

// Too small a buffer gets what fits: its tree says so by a smaller length, and has no texts.
BOOL WINAPI GetFileVersionInfoA(LPCSTR fileName, DWORD, DWORD size, LPVOID data) {
    kv::ModuleOfFile module(fileName);
    const auto resource = module.Resource();
    if (resource.empty()) return FALSE;
    if (!data || size < 2 * sizeof(DWORD)) {
        SetLastError(data ? ERROR_INSUFFICIENT_BUFFER : ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    auto* bytes = static_cast<BYTE*>(data);
    const bool whole = size >= kv::SizeOfCopy(resource.size());
    const size_t room = (size & ~DWORD{3}) - sizeof kv::kMark;
    const size_t copied = whole ? resource.size() : std::min(resource.size(), room);
    std::memset(bytes, 0, whole ? kv::SizeOfCopy(resource.size()) : size);
    std::memcpy(bytes, resource.data(), copied);
    bytes[0] = static_cast<BYTE>(copied);
    bytes[1] = static_cast<BYTE>(copied >> 8);
    if (!whole) return TRUE;
    const kv::Tree tree(resource.data(), resource.size());
    std::memcpy(bytes + kv::Aligned(copied), kv::kMark, sizeof kv::kMark);
    tree.WriteTexts(*tree.NodeAt(0, copied), bytes + kv::TextArea(copied));
    return TRUE;
}

BOOL WINAPI VerQueryValueA(LPCVOID block, LPCSTR subBlock, LPVOID* buffer, PUINT length) {
    if (length) *length = 0;
    if (!block || !subBlock || !buffer) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *buffer = nullptr;
    const auto* bytes = static_cast<const BYTE*>(block);
    const size_t size = static_cast<size_t>(bytes[0] | bytes[1] << 8);
    const kv::Tree tree(bytes, size);
    const auto node = kv::Follow(tree, size, subBlock);
    const bool hasTexts = std::memcmp(bytes + kv::Aligned(size), kv::kMark, sizeof kv::kMark) == 0;
    if (!node || (node->isText && node->valueBytes > 0 && !hasTexts)) {
        SetLastError(ERROR_RESOURCE_TYPE_NOT_FOUND);
        return FALSE;
    }
    const BYTE* place = bytes + node->value;
    if (node->isText && hasTexts) place = bytes + kv::TextArea(size) + node->value / 2;
    *buffer = const_cast<BYTE*>(place);
    const size_t units = node->isText ? node->valueBytes / 2 : node->valueBytes;
    if (length) *length = static_cast<UINT>(units);
    return TRUE;
}
}
