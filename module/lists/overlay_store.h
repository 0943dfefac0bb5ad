// The overlays of a printer, forms that it merges with the pages of a job: names and files, kept in
// the printer's data. docs/formats.md has the format.
#pragma once

#include "lists/overlay_entries.h"
#include "sheet/sheet_context.h"

namespace kvui {

constexpr DWORD kMostOverlays = kMostOverlayIds;
constexpr DWORD kFirstUserOverlay = 128;

struct OverlayEntry {
    char name[31];
    char path[260];
};

// All of them; the first one stands for none.
struct OverlayBlock {
    OverlayEntry entries[kMostOverlays];
    DWORD ids[kMostOverlays];
    DWORD count;
};

// Without any stored, count is 0. False when there may be some that cannot be read, or more than
// there is room for: they must not be overwritten.
bool LoadOverlays(const SheetContext& context, OverlayBlock& block);
// False when the caller may not, or the printer cannot be reached. Loaded and saved within one
// PrinterDataChange, so that what others stored meanwhile stays, and all is stored or nothing.
bool SaveOverlays(const SheetContext& context, const OverlayBlock& block);
// Index of an id; -1 when there is none.
int IndexOfOverlay(const OverlayBlock& block, DWORD id);
// Index of another overlay than that id with exactly this name; -1 when there is none.
int IndexOfOverlayNamed(const OverlayBlock& block, const char* name, DWORD exceptId);
// The smallest that is free.
DWORD NextOverlayId(const OverlayBlock& block);
void RemoveOverlay(OverlayBlock& block, int index);
// Where the printer has none, the entry that stands for none is made; nothing happens where the
// caller may not.
void MakeFirstOverlay(SheetContext& context);

// Text of an overlay's entry ("%d=%s" entries, each zero-terminated) in a printer value; false and
// an empty text when there is none. Cut at a ";" and at the buffer's size.
bool ReadOverlayEntry(const SheetContext& context, const char* valueName, DWORD overlayId,
                      char* text, DWORD textSize);
// Reads the file path of the chosen overlay into the page state.
void ReadChosenOverlayPath(SheetContext& context);

}  // namespace kvui
