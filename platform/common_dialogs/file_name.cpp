// Filters, patterns and parts of paths; see file_name.h.
#include <platform/common_dialogs/file_name.h>
#include <platform/shell/paths.h>

#include <algorithm>
#include <cstring>
#include <filesystem>

namespace kv {

std::vector<std::string> SplitPatterns(const std::string& patterns) {
    std::vector<std::string> split;
    for (size_t at = 0; at < patterns.size();) {
        const size_t end = std::min(patterns.find(';', at), patterns.size());
        split.push_back(patterns.substr(at, end - at));
        at = end + 1;
    }
    return split;
}

std::vector<FileFilter> ReadFilters(const char* pairs) {
    std::vector<FileFilter> filters;
    while (pairs && *pairs) {
        FileFilter filter;
        filter.text = pairs;
        pairs += filter.text.size() + 1;
        const std::string patterns = pairs;
        pairs += patterns.size() + 1;
        filter.patterns = SplitPatterns(patterns);
        filters.push_back(std::move(filter));
    }
    return filters;
}

// Goes back to the last star when the rest does not fit.
bool MatchesPattern(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*") return true;
    size_t at = 0;
    size_t place = 0;
    size_t star = std::string_view::npos;
    size_t behindStar = 0;
    while (at < name.size()) {
        if (place < pattern.size() && pattern[place] == '*') {
            star = place++;
            behindStar = at;
        } else if (place < pattern.size() &&
                   (pattern[place] == '?' || FoldCase(pattern[place]) == FoldCase(name[at]))) {
            ++place;
            ++at;
        } else if (star != std::string_view::npos) {
            place = star + 1;
            at = ++behindStar;
        } else {
            return false;
        }
    }
    while (place < pattern.size() && pattern[place] == '*') ++place;
    return place == pattern.size();
}

bool MatchesAny(std::string_view name, const std::vector<std::string>& patterns) {
    return patterns.empty() ||
           std::any_of(patterns.begin(), patterns.end(), [name](const std::string& pattern) {
               return MatchesPattern(name, pattern);
           });
}

size_t OffsetOfName(std::string_view path) {
    const size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? 0 : slash + 1;
}

size_t OffsetOfExtension(std::string_view path) {
    const size_t dot = path.rfind('.');
    return dot == std::string_view::npos || dot < OffsetOfName(path) ? 0 : dot + 1;
}

FolderContent ReadFolder(const std::string& folder) {
    namespace fs = std::filesystem;
    FolderContent content;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        const std::string name = at->path().filename().string();
        if (name.empty() || name[0] == '.') continue;
        std::error_code unknown;
        (at->is_directory(unknown) ? content.folders : content.files).push_back(name);
    }
    const auto before = [](const std::string& left, const std::string& right) {
        const std::string a = LowerCase(left);
        const std::string b = LowerCase(right);
        return a != b ? a < b : left < right;
    };
    std::sort(content.folders.begin(), content.folders.end(), before);
    std::sort(content.files.begin(), content.files.end(), before);
    return content;
}

}  // namespace kv
