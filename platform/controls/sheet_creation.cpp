// Creating a property sheet: the window with its tabs and buttons around the largest page, and each
// page's dialog. PropertySheetA begins here.
#include <platform/controls/classes.h>
#include <platform/controls/control_support.h>
#include <platform/controls/property_sheet.h>
#include <platform/controls/sheet_state.h>
#include <platform/dialog/create_dialog.h>
#include <platform/shell/file_changes.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace kv {
namespace {

// Dialog base units: templates are in quarters of the width and eighths of the height of a
// character.
constexpr int kUnitsX = 6;
constexpr int kUnitsY = 13;

// Pixels. The page lies inside the tab control, below its captions.
constexpr int kMargin = 7;
constexpr int kTabHeight = 22;
constexpr int kTabInset = 4;
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 23;
constexpr int kButtonGap = 6;
constexpr int kSmallestPageWidth = 212;  // dialog units, as the platform's small sheets
constexpr int kSmallestPageHeight = 114;

struct SheetButton {
    int id;
    const char* caption;
    DWORD style;
    DWORD wantedFlag;  // of the header; 0: always there
    DWORD unwantedFlag;
};

constexpr SheetButton kButtons[] = {
    {IDOK, "OK", BS_DEFPUSHBUTTON | WS_GROUP, 0, 0},
    {IDCANCEL, "Cancel", BS_PUSHBUTTON, 0, 0},
    {kSheetApplyButton, "&Apply", BS_PUSHBUTTON | WS_DISABLED, 0, PSH_NOAPPLYNOW},
    {IDHELP, "Help", BS_PUSHBUTTON, PSH_HASHELP, 0},
};

bool IsWanted(const SheetButton& button, DWORD flags) {
    return (button.wantedFlag == 0 || (flags & button.wantedFlag) != 0) &&
           (flags & button.unwantedFlag) == 0;
}

SIZE LargestPage(const SheetState& sheet) {
    SIZE units = {kSmallestPageWidth, kSmallestPageHeight};
    for (const auto& page : sheet.pages) {
        units.cx = std::max<LONG>(units.cx, page->dialog->width);
        units.cy = std::max<LONG>(units.cy, page->dialog->height);
    }
    return {MulDiv(units.cx, kUnitsX, 4), MulDiv(units.cy, kUnitsY, 8)};
}

std::shared_ptr<SheetPage> CopyPage(const PROPSHEETPAGEA& source) {
    auto page = std::make_shared<SheetPage>();
    const size_t given = std::max<size_t>(source.dwSize, sizeof source);
    page->bytes.resize(given);
    std::memcpy(page->bytes.data(), &source, source.dwSize < sizeof source ? source.dwSize : given);
    PROPSHEETPAGEA& record = page->Record();
    page->dialog = FindPageTemplate(record.hInstance, record.pszTemplate);
    if (!page->dialog) return nullptr;
    if (IS_INTRESOURCE(record.pszTemplate)) {
        page->templateName = "#" + std::to_string(reinterpret_cast<ULONG_PTR>(record.pszTemplate));
    } else {
        page->templateName = record.pszTemplate;
        record.pszTemplate = page->templateName.c_str();
    }
    page->title = page->dialog->caption;
    if ((record.dwFlags & PSP_USETITLE) != 0 && record.pszTitle) {
        if (IS_INTRESOURCE(record.pszTitle)) {
            char text[256] = "";
            LoadStringA(record.hInstance,
                        static_cast<UINT>(reinterpret_cast<ULONG_PTR>(record.pszTitle)), text,
                        sizeof text);
            page->title = text;
        } else {
            page->title = record.pszTitle;
        }
        record.pszTitle = page->title.c_str();
    }
    return page;
}

// False when a page's template is missing: a sheet with a hole would confuse more than none.
bool CopyPages(SheetState& sheet, const PROPSHEETHEADERA& header) {
    const auto* at = reinterpret_cast<const std::byte*>(header.ppsp);
    for (UINT i = 0; i < header.nPages; ++i) {
        const auto& source = *reinterpret_cast<const PROPSHEETPAGEA*>(at);
        std::shared_ptr<SheetPage> page = CopyPage(source);
        if (!page) return false;
        sheet.pages.push_back(std::move(page));
        at += source.dwSize;
    }
    return true;
}

HWND AddControl(HWND sheet, const char* className, const char* text, DWORD style, RECT area,
                int id) {
    return CreateWindowExA(0, className, text, style | WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                           area.left, area.top, area.right - area.left, area.bottom - area.top,
                           sheet, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr,
                           nullptr);
}

void AddTabs(HWND handle, RECT area) {
    SheetState& sheet = *SheetOf(handle);
    sheet.tab = AddControl(handle, WC_TABCONTROLA, "", 0, area, kSheetTabControl);
    for (size_t i = 0; i < sheet.pages.size(); ++i) {
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = sheet.pages[i]->title.data();
        SendMessageA(sheet.tab, TCM_INSERTITEMA, i, reinterpret_cast<LPARAM>(&item));
    }
}

// Buttons stand in a row at the right, below the tabs.
void AddButtons(HWND handle, DWORD flags, LONG right, LONG top) {
    const auto count = std::count_if(std::begin(kButtons), std::end(kButtons),
                                     [flags](const SheetButton& b) { return IsWanted(b, flags); });
    LONG left = right - static_cast<LONG>(count) * (kButtonWidth + kButtonGap) + kButtonGap;
    for (const SheetButton& button : kButtons) {
        if (!IsWanted(button, flags)) continue;
        AddControl(handle, "BUTTON", button.caption, button.style,
                   {left, top, left + kButtonWidth, top + kButtonHeight}, button.id);
        left += kButtonWidth + kButtonGap;
    }
}

// The tab control stands first in the tab order, then the pages, then the buttons; a page is put
// behind the tab control when it is created.
void Furnish(HWND handle, DWORD flags) {
    SheetState& sheet = *SheetOf(handle);
    const SIZE page = LargestPage(sheet);
    const RECT tabs = {kMargin, kMargin, kMargin + page.cx + 2 * kTabInset,
                       kMargin + kTabHeight + page.cy + 2 * kTabInset};
    sheet.pageArea = {tabs.left + kTabInset, tabs.top + kTabHeight + kTabInset,
                      tabs.left + kTabInset + page.cx, tabs.top + kTabHeight + kTabInset + page.cy};
    AddTabs(handle, tabs);
    const LONG buttonTop = tabs.bottom + kMargin;
    AddButtons(handle, flags, tabs.right, buttonTop);
    SetWindowPos(handle, nullptr, 0, 0, tabs.right + kMargin, buttonTop + kButtonHeight + kMargin,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

HWND CreateSheetWindow(const PROPSHEETHEADERA& header) {
    char loaded[256] = "";
    const char* caption = header.pszCaption ? header.pszCaption : "";
    if (IS_INTRESOURCE(header.pszCaption) && header.pszCaption) {
        LoadStringA(header.hInstance,
                    static_cast<UINT>(reinterpret_cast<ULONG_PTR>(header.pszCaption)), loaded,
                    sizeof loaded);
        caption = loaded;
    }
    const DWORD reading = (header.dwFlags & PSH_RTLREADING) != 0 ? WS_EX_RTLREADING : 0;
    return CreateWindowExA(WS_EX_CONTROLPARENT | WS_EX_CONTEXTHELP | WS_EX_DLGMODALFRAME | reading,
                           kSheetClass, caption, WS_POPUP | WS_CAPTION | WS_SYSMENU, 0, 0, 0, 0,
                           header.hwndParent, nullptr, header.hInstance, nullptr);
}

HWND CreateSheet(const PROPSHEETHEADERA& header) {
    const FileTrust trust;
    HWND handle = CreateSheetWindow(header);
    SheetState* sheet = SheetOf(handle);
    if (!sheet) return nullptr;
    if (!CopyPages(*sheet, header)) return DestroyWindow(handle), nullptr;
    Furnish(handle, header.dwFlags);
    const UINT first = std::min(header.nStartPage, header.nPages - 1);
    TurnTo(handle, static_cast<int>(first), FocusChange::kIntoPage);
    sheet = SheetOf(handle);
    if (!sheet) return nullptr;
    if (sheet->active < 0) return DestroyWindow(handle), nullptr;
    ShowWindow(handle, SW_SHOW);
    SetActiveWindow(handle);
    FocusActivePage(handle);
    return IsWindow(handle) ? handle : nullptr;
}

// Destroying the sheet gives the owner back, before the sheet's focus could go elsewhere.
INT_PTR RunModal(HWND handle) {
    const Window& window = *WindowFromHandle(handle);
    const HWND owner = window.owner;
    window.dialog->modal = true;
    if (owner && IsWindowEnabled(owner)) {
        window.dialog->disabledOwner = owner;
        EnableWindow(owner, FALSE);
    }
    const bool answered = RunModalLoop(handle, [handle] { return SheetEnded(handle); });
    const INT_PTR result = answered ? SheetResult(handle) : -1;
    if (IsWindow(handle)) DestroyWindow(handle);
    return result;
}

}  // namespace

SheetState* SheetOf(HWND handle) {
    Window* window = WindowFromHandle(handle);
    if (!window || KindOf(handle) != "sheet") return nullptr;
    return &StateOf<SheetState>(*window);
}

void PrepareSheetWindow(HWND handle) {
    Window& window = *WindowFromHandle(handle);
    StateOf<SheetState>(window);
    window.dialog = std::make_unique<DialogState>();
    window.dialog->defaultId = IDOK;
}

HWND EnsurePage(HWND handle, int index) {
    SheetState* sheet = SheetOf(handle);
    if (!sheet || index < 0 || index >= static_cast<int>(sheet->pages.size())) return nullptr;
    const std::shared_ptr<SheetPage> page = sheet->pages[static_cast<size_t>(index)];
    if (page->window) return page->window;
    const PageBusy busy(page);
    const PROPSHEETPAGEA& record = page->Record();
    const std::vector<std::byte> dialog = ChildTemplate(*page->dialog);
    DialogCreation creation;
    creation.bytes = {reinterpret_cast<const BYTE*>(dialog.data()), dialog.size()};
    creation.instance = record.hInstance;
    creation.owner = handle;
    creation.procedure = record.pfnDlgProc;
    creation.initParam = reinterpret_cast<LPARAM>(&record);
    creation.templateName = page->templateName;
    HWND created = CreateDialogFrom(creation);
    sheet = SheetOf(handle);
    if (!sheet || !created) return nullptr;
    page->window = created;
    const RECT area = sheet->pageArea;
    SetWindowPos(created, sheet->tab, area.left, area.top, area.right - area.left,
                 area.bottom - area.top, SWP_NOACTIVATE);
    return created;
}

}  // namespace kv

INT_PTR WINAPI PropertySheetA(const PROPSHEETHEADERA* header) {
    if (!header || header->dwSize < sizeof *header || header->nPages == 0 || !header->ppsp ||
        (header->dwFlags & PSH_PROPSHEETPAGE) == 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    for (UINT i = 0, offset = 0; i < header->nPages; ++i) {
        const auto* at = reinterpret_cast<const std::byte*>(header->ppsp) + offset;
        const DWORD size = reinterpret_cast<const PROPSHEETPAGEA*>(at)->dwSize;
        if (size < sizeof(PROPSHEETPAGEA)) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return -1;
        }
        offset += size;
    }
    HWND sheet = kv::CreateSheet(*header);
    if ((header->dwFlags & PSH_MODELESS) != 0) return reinterpret_cast<INT_PTR>(sheet);
    return sheet ? kv::RunModal(sheet) : -1;
}
