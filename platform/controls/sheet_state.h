// The state of a property sheet and the steps of its creation, shared by the two files that make up
// the sheet: property_sheet.cpp (behaviour) and sheet_creation.cpp (window, controls, pages).
#pragma once

#include <platform/controls/page_template.h>
#include <platform/controls/property_sheet.h>
#include <platform/window/window.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kv {

struct SheetPage {
    // The sheet's own copy of the caller's record, with whatever the caller keeps behind it; its
    // address is the creation parameter of the page.
    std::vector<std::byte> bytes;
    std::string templateName;  // "TAB0R" or "#123"
    std::string title;         // of the tab; the page's window keeps its template's caption
    std::optional<PageTemplate> dialog;
    HWND window{};
    bool changed = false;

    PROPSHEETPAGEA& Record() { return *reinterpret_cast<PROPSHEETPAGEA*>(bytes.data()); }
    const PROPSHEETPAGEA& Record() const {
        return *reinterpret_cast<const PROPSHEETPAGEA*>(bytes.data());
    }
};

struct SheetState : ControlState {
    std::vector<std::unique_ptr<SheetPage>> pages;
    int active = -1;
    HWND tab{};
    RECT pageArea{};
    bool ended = false;
    INT_PTR result = 0;
    SheetApplied applied;
};

// Null for a window that is no property sheet.
SheetState* SheetOf(HWND handle);
// Makes a new window a sheet: its state, and what the dialog manager keeps.
void PrepareSheetWindow(HWND handle);
// The page's window, created now if need be; null when it cannot be created.
HWND EnsurePage(HWND sheet, int index);
// Activates the first page without asking another to leave.
bool ShowPageAtStart(HWND sheet, int index);
void FocusActivePage(HWND sheet);

}  // namespace kv
