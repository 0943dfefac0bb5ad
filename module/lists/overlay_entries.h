// The printer values that hold the overlays, as docs/formats.md has them.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace kvui {

constexpr char kOverlayIds[] = "FormOverlay";
constexpr char kOverlayNames[] = "[FormOverlayName]";
constexpr char kOverlayPaths[] = "[FormOverlayPath]";

constexpr size_t kMostOverlayIds = 16;  // the entry that stands for none among them

// Ids in decimal with commas between. False when there is more than ids, or more than `most`; those
// before it are there then.
bool ParseOverlayIds(const std::string& text, size_t most, std::vector<DWORD>& ids);
// What stands behind "ID=" in a run of entries, each with a zero at its end, up to a ";". False, and
// empty, when there is none.
bool FindOverlayEntry(std::string_view run, DWORD id, std::string& text);
void AppendOverlayEntry(std::string& run, DWORD id, const char* text);

}  // namespace kvui
