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
    bool told = false;  // PSN_SETACTIVE came after the last PSN_KILLACTIVE
    bool busy = false;  // it is being made, shown or asked, see PageBusy

    PROPSHEETPAGEA& Record() { return *reinterpret_cast<PROPSHEETPAGEA*>(bytes.data()); }
    const PROPSHEETPAGEA& Record() const {
        return *reinterpret_cast<const PROPSHEETPAGEA*>(bytes.data());
    }
};

struct SheetState : ControlState {
    // Shared with who works on a page, since a handler may remove it meanwhile.
    std::vector<std::shared_ptr<SheetPage>> pages;
    int active = -1;
    unsigned turn = 0;      // counts the wishes for a page; the newest one holds
    bool deciding = false;  // OK, Apply or Cancel is under way
    bool destroying = false;
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
void RemovePage(HWND sheet, const std::shared_ptr<SheetPage>& page);

inline int PageCount(const SheetState& sheet) {
    return static_cast<int>(sheet.pages.size());
}
inline bool HasPage(const SheetState& sheet, int index) {
    return index >= 0 && index < PageCount(sheet);
}
HWND WindowOfPage(HWND sheet, int index);
void EnableSheetButton(HWND sheet, int id, bool enabled);
LRESULT NotifyPage(HWND sheet, HWND page, UINT code, LPARAM extra = 0);

// While a page is made, shown or asked, it is not asked anything else and cannot be turned to: its
// handler would come back here without end.
class PageBusy {
 public:
    explicit PageBusy(std::shared_ptr<SheetPage> page);
    ~PageBusy();
    PageBusy(const PageBusy&) = delete;
    PageBusy& operator=(const PageBusy&) = delete;

 private:
    std::shared_ptr<SheetPage> page_;
    bool before_;
};

// PSN_KILLACTIVE: whether the active page lets itself be left. One that agreed is not asked again.
bool MayLeave(HWND sheet);
// PSN_SETACTIVE to the active page, which was told that it is left and stays.
void TellActive(HWND sheet);
// Moves the focus to the control of the active page that wants it first.
void FocusActivePage(HWND sheet);

enum class FocusChange { kIntoPage, kIfItWasInPage };
// Brings a page to the front without asking the one before, which has agreed. False when another
// turn came in between or no page accepted.
bool TurnTo(HWND sheet, int index, FocusChange focus);
// Asks the active page first. A wish for the active page itself ends a turn that is under way.
bool SelectPage(HWND sheet, int index);

}  // namespace kv
