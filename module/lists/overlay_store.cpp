// See overlay_store.h.
#include "lists/overlay_store.h"

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "lists/overlay_entries.h"
#include "resources/string_ids.h"
#include "sheet/fixed_text.h"
#include "sheet/printer_data_change.h"
#include "sheet/printer_values.h"

namespace kvui {
namespace {

bool CopyEntry(std::string_view run, DWORD id, char* text, DWORD textSize) {
    std::string value;
    const bool found = FindOverlayEntry(run, id, value);
    CopyText(text, textSize, value.c_str());
    return found;
}

bool Write(const SheetContext& context, const char* name, DWORD type, const std::string& bytes) {
    return WritePrinterData(context, name, type, bytes.data(), static_cast<DWORD>(bytes.size()));
}
}  // namespace

bool LoadOverlays(const SheetContext& context, OverlayBlock& block) {
    block = {};
    std::string ids, names, paths;
    const bool isRead = ReadWholePrinterData(context, kOverlayIds, ids) &&
                        ReadWholePrinterData(context, kOverlayNames, names) &&
                        ReadWholePrinterData(context, kOverlayPaths, paths);
    std::vector<DWORD> found;
    const bool isWhole = ParseOverlayIds(ids, kMostOverlays, found);
    for (const DWORD id : found) {
        OverlayEntry& entry = block.entries[block.count];
        CopyEntry(names, id, entry.name, sizeof entry.name);
        CopyEntry(paths, id, entry.path, sizeof entry.path);
        block.ids[block.count++] = id;
    }
    return isRead && isWhole;
}

bool SaveOverlays(const SheetContext& context, const OverlayBlock& block) {
    std::string ids, names, paths;
    for (DWORD i = 0; i < block.count; ++i) {
        ids += (i != 0 ? "," : "") + std::to_string(block.ids[i]);
        AppendOverlayEntry(names, block.ids[i], block.entries[i].name);
        AppendOverlayEntry(paths, block.ids[i], block.entries[i].path);
    }
    ids += '\0';
    return Write(context, kOverlayNames, REG_BINARY, names) && Write(context, kOverlayPaths, REG_BINARY, paths) &&
           Write(context, kOverlayIds, REG_SZ, ids);
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
    ReadOverlayEntry(context, kOverlayPaths, context.privateSettings->mdmOverlay, context.overlayPath,
                     sizeof context.overlayPath);
}

}  // namespace kvui
