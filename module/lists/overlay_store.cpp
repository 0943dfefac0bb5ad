// See overlay_store.h.
#include "lists/overlay_store.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "resources/string_ids.h"
#include "sheet/fixed_text.h"
#include "sheet/printer_values.h"

namespace kvui {
namespace {
// 16 overlays with paths of 260 characters, their ids and separators.
constexpr DWORD kMaxOverlayData = 16 * 280;
constexpr char kIds[] = "FormOverlay";
constexpr char kNames[] = "[FormOverlayName]";
constexpr char kPaths[] = "[FormOverlayPath]";

void AppendEntry(std::string& run, DWORD id, const char* text) {
    run += std::to_string(id) + "=" + text;
    run += '\0';
}

bool Write(const SheetContext& context, const char* name, DWORD type, const std::string& bytes) {
    return WritePrinterData(context, name, type, bytes.data(), static_cast<DWORD>(bytes.size()));
}
}  // namespace

void LoadOverlays(const SheetContext& context, OverlayBlock& block) {
    block = {};
    char ids[kMostOverlays * 12] = "";
    const DWORD size = ReadPrinterData(context, kIds, ids, sizeof ids - 1);
    ids[size < sizeof ids ? size : sizeof ids - 1] = '\0';
    for (const char* at = ids; *at != '\0' && block.count < kMostOverlays;) {
        char* end = nullptr;
        const DWORD id = static_cast<DWORD>(std::strtoul(at, &end, 10));
        if (end == at) break;
        OverlayEntry& entry = block.entries[block.count];
        ReadOverlayEntry(context, kNames, id, entry.name, sizeof entry.name);
        ReadOverlayEntry(context, kPaths, id, entry.path, sizeof entry.path);
        block.ids[block.count++] = id;
        at = *end == ',' ? end + 1 : end;
    }
}

bool SaveOverlays(const SheetContext& context, const OverlayBlock& block) {
    std::string ids, names, paths;
    for (DWORD i = 0; i < block.count; ++i) {
        ids += (i != 0 ? "," : "") + std::to_string(block.ids[i]);
        AppendEntry(names, block.ids[i], block.entries[i].name);
        AppendEntry(paths, block.ids[i], block.entries[i].path);
    }
    ids += '\0';
    return Write(context, kNames, REG_BINARY, names) && Write(context, kPaths, REG_BINARY, paths) &&
           Write(context, kIds, REG_SZ, ids);
}

int IndexOfOverlay(const OverlayBlock& block, DWORD id) {
    for (DWORD i = 0; i < block.count; ++i) {
        if (block.ids[i] == id) return static_cast<int>(i);
    }
    return -1;
}

int IndexOfOverlayNamed(const OverlayBlock& block, const char* name, DWORD exceptId) {
    for (DWORD i = 0; i < block.count; ++i) {
        if (block.ids[i] != exceptId && std::strcmp(block.entries[i].name, name) == 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

DWORD NextOverlayId(const OverlayBlock& block) {
    DWORD id = kFirstUserOverlay;
    while (IndexOfOverlay(block, id) >= 0) ++id;
    return id;
}

void RemoveOverlay(OverlayBlock& block, int index) {
    for (DWORD i = static_cast<DWORD>(index); i + 1 < block.count; ++i) {
        block.entries[i] = block.entries[i + 1];
        block.ids[i] = block.ids[i + 1];
    }
    --block.count;
    block.entries[block.count] = {};
    block.ids[block.count] = 0;
}

void MakeFirstOverlay(SheetContext& context) {
    OverlayBlock block;
    LoadOverlays(context, block);
    if (block.count != 0) return;
    char none[sizeof block.entries[0].name] = "";
    LoadStringA(context.strings, IDS_OVERLAY_NONE, none, sizeof none);
    CopyText(block.entries[0].name, none);
    CopyText(block.entries[0].path, none);
    block.count = 1;
    if (SaveOverlays(context, block)) context.privateSettings->mdmOverlay = 0;
}

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
    ReadOverlayEntry(context, kPaths, context.privateSettings->mdmOverlay, context.overlayPath,
                     sizeof context.overlayPath);
}

}  // namespace kvui
