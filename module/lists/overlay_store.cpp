// See overlay_store.h.
#include "lists/overlay_store.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "resources/string_ids.h"
#include "sheet/fixed_text.h"
#include "sheet/printer_data_change.h"
#include "sheet/printer_values.h"

namespace kvui {
namespace {
constexpr char kIds[] = "FormOverlay";
constexpr char kNames[] = "[FormOverlayName]";
constexpr char kPaths[] = "[FormOverlayPath]";

// What stands behind "ID=" in a run of entries, each with a zero at its end.
bool CopyEntry(std::string_view run, DWORD id, char* text, DWORD textSize) {
    text[0] = '\0';
    const std::string prefix = std::to_string(id) + "=";
    while (!run.empty()) {
        const std::string_view entry = run.substr(0, run.find('\0'));
        run.remove_prefix(std::min(entry.size() + 1, run.size()));
        if (entry.substr(0, prefix.size()) != prefix) continue;
        std::string_view value = entry.substr(prefix.size());
        value = value.substr(0, value.find(';')).substr(0, textSize - 1);
        std::memcpy(text, value.data(), value.size());
        text[value.size()] = '\0';
        return true;
    }
    return false;
}

void AppendEntry(std::string& run, DWORD id, const char* text) {
    run += std::to_string(id) + "=" + text;
    run += '\0';
}

bool Write(const SheetContext& context, const char* name, DWORD type, const std::string& bytes) {
    return WritePrinterData(context, name, type, bytes.data(), static_cast<DWORD>(bytes.size()));
}
}  // namespace

bool LoadOverlays(const SheetContext& context, OverlayBlock& block) {
    block = {};
    std::string ids, names, paths;
    const bool isRead = ReadWholePrinterData(context, kIds, ids) &&
                        ReadWholePrinterData(context, kNames, names) &&
                        ReadWholePrinterData(context, kPaths, paths);
    const char* at = ids.c_str();
    while (*at != '\0' && block.count < kMostOverlays) {
        char* end = nullptr;
        const DWORD id = static_cast<DWORD>(std::strtoul(at, &end, 10));
        if (end == at) break;
        OverlayEntry& entry = block.entries[block.count];
        CopyEntry(names, id, entry.name, sizeof entry.name);
        CopyEntry(paths, id, entry.path, sizeof entry.path);
        block.ids[block.count++] = id;
        at = *end == ',' ? end + 1 : end;
    }
    return isRead && *at == '\0';
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
    if (!LoadOverlays(context, block) || block.count != 0) return;
    PrinterDataChange change(context);
    if (!change || !LoadOverlays(context, block) || block.count != 0) return;
    char none[sizeof block.entries[0].name] = "";
    LoadStringA(context.strings, IDS_OVERLAY_NONE, none, sizeof none);
    CopyText(block.entries[0].name, none);
    CopyText(block.entries[0].path, none);
    block.count = 1;
    if (SaveOverlays(context, block) && change.Commit()) context.privateSettings->mdmOverlay = 0;
}

bool ReadOverlayEntry(const SheetContext& context, const char* valueName, DWORD overlayId,
                      char* text, DWORD textSize) {
    std::string run;
    ReadWholePrinterData(context, valueName, run);
    return CopyEntry(run, overlayId, text, textSize);
}

void ReadChosenOverlayPath(SheetContext& context) {
    ReadOverlayEntry(context, kPaths, context.privateSettings->mdmOverlay, context.overlayPath,
                     sizeof context.overlayPath);
}

}  // namespace kvui
