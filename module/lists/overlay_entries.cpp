// See overlay_entries.h.
#include "lists/overlay_entries.h"

#include <algorithm>
#include <cstdlib>

namespace kvui {

bool ParseOverlayIds(const std::string& text, size_t most, std::vector<DWORD>& ids) {
    ids.clear();
    const char* at = text.c_str();
    while (*at != '\0' && ids.size() < most) {
        char* end = nullptr;
        const DWORD id = static_cast<DWORD>(std::strtoul(at, &end, 10));
        if (end == at) break;
        ids.push_back(id);
        at = *end == ',' ? end + 1 : end;
    }
    return *at == '\0';
}

bool FindOverlayEntry(std::string_view run, DWORD id, std::string& text) {
    text.clear();
    const std::string prefix = std::to_string(id) + "=";
    while (!run.empty()) {
        const std::string_view entry = run.substr(0, run.find('\0'));
        run.remove_prefix(std::min(entry.size() + 1, run.size()));
        if (entry.substr(0, prefix.size()) != prefix) continue;
        const std::string_view value = entry.substr(prefix.size());
        text = value.substr(0, value.find(';'));
        return true;
    }
    return false;
}

void AppendOverlayEntry(std::string& run, DWORD id, const char* text) {
    run += std::to_string(id) + "=" + text;
    run += '\0';
}

}  // namespace kvui
