// Makes the resources of the test pages and records what happens to the pages.
#include "sheet_fixture.h"

namespace kv {
namespace {

SheetTest* current = nullptr;
const char anchor = 0;

// Writes the little-endian records of a compiled resource file.
class Bytes {
 public:
    explicit Bytes(std::vector<unsigned char>& out) : out_(out) {}
    void Word(unsigned value) {
        out_.push_back(static_cast<unsigned char>(value));
        out_.push_back(static_cast<unsigned char>(value >> 8));
    }
    void Dword(unsigned value) {
        Word(value & 0xFFFF);
        Word(value >> 16);
    }
    void Text(const std::string& text) {
        for (char letter : text) Word(static_cast<unsigned char>(letter));
        Word(0);
    }
    void Ordinal(unsigned id) {
        Word(0xFFFF);
        Word(id);
    }
    void Align() {
        while (out_.size() % 4 != 0) out_.push_back(0);
    }
    void Append(const std::vector<unsigned char>& bytes) {
        out_.insert(out_.end(), bytes.begin(), bytes.end());
    }

 private:
    std::vector<unsigned char>& out_;
};

struct PageText {
    const char* name;
    const char* caption;
    unsigned width;
    unsigned height;
};
constexpr PageText kPages[] = {
    {"PAGEA", "Alpha", 240, 120},
    {"PAGEB", "Beta", 220, 200},
    {"PAGEC", "Gamma", 230, 100},
};

std::vector<unsigned char> DialogTemplate(const PageText& page) {
    std::vector<unsigned char> out;
    Bytes bytes(out);
    bytes.Dword(WS_POPUP | WS_CAPTION | WS_VISIBLE | DS_SETFONT);
    bytes.Dword(0);
    bytes.Word(2);
    for (unsigned value : {0u, 0u, page.width, page.height}) bytes.Word(value);
    bytes.Word(0);  // no menu
    bytes.Word(0);  // the dialog class
    bytes.Text(page.caption);
    bytes.Word(8);
    bytes.Text("MS Shell Dlg");
    for (unsigned id : {10u, 11u}) {
        bytes.Align();
        bytes.Dword(WS_CHILD | WS_VISIBLE | WS_TABSTOP);
        bytes.Dword(0);
        for (unsigned value : {5u, id * 15, 60u, 14u}) bytes.Word(value);
        bytes.Word(id);
        bytes.Ordinal(id == 10 ? 0x81 : 0x80);
        bytes.Text("");
        bytes.Word(0);
    }
    bytes.Align();
    return out;
}

void AddResource(std::vector<unsigned char>& file, const std::string& name,
                 const std::vector<unsigned char>& data) {
    std::vector<unsigned char> header;
    Bytes names(header);
    names.Ordinal(5);
    names.Text(name);
    names.Align();
    Bytes bytes(file);
    bytes.Dword(static_cast<unsigned>(data.size()));
    bytes.Dword(static_cast<unsigned>(8 + header.size() + 16));
    bytes.Append(header);
    for (unsigned value : {0u, 0x04091030u, 0u, 0u}) bytes.Dword(value);
    bytes.Append(data);
    bytes.Align();
}

std::vector<unsigned char> ResourceFile() {
    std::vector<unsigned char> file;
    Bytes bytes(file);
    bytes.Dword(0);
    bytes.Dword(32);
    bytes.Ordinal(0);
    bytes.Ordinal(0);
    for (int i = 0; i < 4; ++i) bytes.Dword(0);
    for (const PageText& page : kPages) AddResource(file, page.name, DialogTemplate(page));
    return file;
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
