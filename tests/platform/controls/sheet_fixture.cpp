// Makes the resources of the test pages and records what happens to the pages.
#include "sheet_fixture.h"

#include "tests/platform/support/compiled_file.h"
#include "tests/platform/support/template_builder.h"

namespace kv {
namespace {

SheetTest* current = nullptr;
const char anchor = 0;

struct PageText {
    const char* name;
    const char* caption;
    SIZE units;
};
constexpr PageText kPages[] = {
    {"PAGEA", "Alpha", {240, 120}},
    {"PAGEB", "Beta", {220, 200}},
    {"PAGEC", "Gamma", {230, 100}},
};

std::vector<BYTE> ResourceFile() {
    CompiledFile file;
    for (const PageText& page : kPages) {
        TemplateBuilder dialog(WS_POPUP | WS_CAPTION | WS_VISIBLE | DS_SETFONT, page.caption, 0,
                               TemplateBuilder::Layout::kClassic, page.units);
        dialog.Add("EDIT", "", 10, WS_TABSTOP, {5, 150, 65, 164});
        dialog.Add("BUTTON", "", 11, WS_TABSTOP, {5, 165, 65, 179});
        file.Add(CompiledFile::Id(5), CompiledFile::Text(page.name), dialog.Bytes());
    }
    return file.bytes;
}

struct EventName {
    UINT code;
    const char* name;
};
constexpr EventName kEvents[] = {
    {PSN_SETACTIVE, "SETACTIVE"},
    {PSN_KILLACTIVE, "KILLACTIVE"},
    {PSN_APPLY, "APPLY"},
    {PSN_RESET, "RESET"},
    {PSN_HELP, "HELP"},
    {PSN_QUERYCANCEL, "QUERYCANCEL"},
    {PSN_QUERYINITIALFOCUS, "FOCUS"},
};

std::string CaptionOf(HWND page) {
    char text[64] = "";
    GetWindowTextA(page, text, sizeof text);
    return text;
}

}  // namespace

SheetTest::SheetTest() : file_(ResourceFile()) {
    current = this;
    resources_ = std::make_unique<ModuleResources>(&anchor, file_.data(), file_.size());
}

SheetTest::~SheetTest() {
    atEvent = nullptr;
    if (IsWindow(sheet)) DestroyWindow(sheet);
    current = nullptr;
}

std::vector<PROPSHEETPAGEA> SheetTest::Pages() {
    std::vector<PROPSHEETPAGEA> pages;
    for (const PageText& text : kPages) {
        PROPSHEETPAGEA page{};
        page.dwSize = sizeof page;
        page.dwFlags = PSP_HASHELP;
        page.pszTemplate = text.name;
        page.pfnDlgProc = PageProcedure;
        page.lParam = 1000 + static_cast<LPARAM>(pages.size());
        pages.push_back(page);
    }
    return pages;
}

HWND SheetTest::Open(DWORD flags, std::vector<PROPSHEETPAGEA> pages, UINT start) {
    if (pages.empty()) pages = Pages();
    PROPSHEETHEADERA header{};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_MODELESS | flags;
    header.pszCaption = "Printer properties";
    header.nPages = static_cast<UINT>(pages.size());
    header.nStartPage = start;
    header.ppsp = pages.data();
    sheet = reinterpret_cast<HWND>(PropertySheetA(&header));
    return sheet;
}

int SheetTest::ActivePage() {
    HWND tab = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETTABCONTROL, 0, 0));
    const int index = static_cast<int>(SendMessageA(tab, TCM_GETCURSEL, 0, 0));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Page(i) && IsWindowVisible(Page(i)), i == index) << i;
    }
    return index;
}

void SheetTest::Note(HWND page, const std::string& event, const std::string& detail) {
    const std::string name = CaptionOf(page) + " " + event;
    log.push_back(detail.empty() ? name : name + " " + detail);
    if (atEvent) atEvent(name, page);
    const auto answer = answers.find(name);
    SetWindowLongPtrA(page, DWLP_MSGRESULT, answer == answers.end() ? 0 : answer->second);
}

INT_PTR SheetTest::PageProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!current) return FALSE;
    switch (message) {
        case WM_INITDIALOG:
            current->initParam = lParam;
            current->log.push_back(CaptionOf(page) + " INIT");
            return TRUE;
        case WM_DESTROY:
            current->log.push_back(CaptionOf(page) + " DESTROY");
            return FALSE;
        case WM_COMMAND:
            if (HIWORD(wParam) == EN_KILLFOCUS) {
                current->log.push_back(CaptionOf(page) + " EN_KILLFOCUS");
                if (current->atEvent) {
                    current->atEvent(CaptionOf(page) + " EN_KILLFOCUS",
                                     reinterpret_cast<HWND>(lParam));
                }
            }
            return FALSE;
        case WM_NOTIFY: {
            const auto& notice = *reinterpret_cast<const PSHNOTIFY*>(lParam);
            for (const EventName& event : kEvents) {
                if (event.code != notice.hdr.code) continue;
                const bool closing = event.code == PSN_APPLY || event.code == PSN_RESET;
                current->Note(page, event.name, closing ? std::to_string(notice.lParam) : "");
            }
            return TRUE;
        }
        default:
            return FALSE;
    }
}

}  // namespace kv
