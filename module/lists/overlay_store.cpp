// Reads overlay entries out of the printer's data.
#include "lists/overlay_store.h"

#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

#include "sheet/printer_values.h"

namespace kvui {
namespace {
// 16 overlays with paths of 260 characters, their ids and separators.
constexpr DWORD kMaxOverlayData = 16 * 280;
}  // namespace

bool ReadOverlayEntry(const SheetContext& context, const char* valueName, DWORD overlayId,
                      char* text, DWORD textSize) {
    text[0] = '\0';
    std::vector<char> data(kMaxOverlayData);
    const DWORD size = ReadPrinterData(context, valueName, data.data(), kMaxOverlayData);
    char prefix[16];
    const int prefixLength = std::snprintf(prefix, sizeof prefix, "%lu=",
                                           static_cast<unsigned long>(overlayId));
    for (DWORD at = 0; at < size;) {
        const std::string_view entry(data.data() + at, strnlen(data.data() + at, size - at));
        at += static_cast<DWORD>(entry.size()) + 1;
        if (entry.substr(0, prefixLength) != prefix) continue;
        std::string_view value = entry.substr(prefixLength);
        value = value.substr(0, value.find(';')).substr(0, textSize - 1);
        std::memcpy(text, value.data(), value.size());
        text[value.size()] = '\0';
        return true;
    }
    return false;
}

void ReadChosenOverlayPath(SheetContext& context) {
    ReadOverlayEntry(context, "[FormOverlayPath]", context.privateSettings->mdmOverlay,
                     context.overlayPath, sizeof context.overlayPath);
}

}  // namespace kvui
