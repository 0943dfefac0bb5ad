// What a file dialog makes of a typed name; no windows here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kv {

// One entry of a filter string: "Overlay Files (*.PRN)" and its patterns "*.prn".
struct FileFilter {
    std::string text;
    std::vector<std::string> patterns;
};
// Reads a double-terminated list of pairs.
std::vector<FileFilter> ReadFilters(const char* pairs);

// "*.prn;*.txt"
std::vector<std::string> SplitPatterns(const std::string& patterns);

// Without regard to case; "*.*" is every name.
bool MatchesPattern(std::string_view name, std::string_view pattern);
bool MatchesAny(std::string_view name, const std::vector<std::string>& patterns);

// Where the name begins in a path, and where its extension does, behind the dot; 0 when it has
// none.
size_t OffsetOfName(std::string_view path);
size_t OffsetOfExtension(std::string_view path);

// The names in a folder, sorted without regard to case; hidden ones are left out.
struct FolderContent {
    std::vector<std::string> folders;
    std::vector<std::string> files;
};
FolderContent ReadFolder(const std::string& folder);

}  // namespace kv
