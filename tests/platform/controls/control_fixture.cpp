// The recording parent window of the control tests.
#include "control_fixture.h"

namespace kv {
namespace {

ControlTest* current = nullptr;
constexpr char kParentClass[] = "ControlTestParent";

struct CodeName {
    const char* kind;
    unsigned code;
    const char* name;
};

// Kind of control, notification or scroll code, its name in the lists.
constexpr CodeName kCodeNames[] = {
    {"button", BN_CLICKED, "BN_CLICKED"},
    {"button", BN_DOUBLECLICKED, "BN_DOUBLECLICKED"},
    {"static", STN_CLICKED, "STN_CLICKED"},
    {"edit", EN_SETFOCUS, "EN_SETFOCUS"},
    {"edit", EN_KILLFOCUS, "EN_KILLFOCUS"},
    {"edit", EN_CHANGE, "EN_CHANGE"},
    {"edit", EN_UPDATE, "EN_UPDATE"},
    {"edit", EN_MAXTEXT, "EN_MAXTEXT"},
    {"combo", CBN_SELCHANGE, "CBN_SELCHANGE"},
    {"combo", CBN_SETFOCUS, "CBN_SETFOCUS"},
    {"combo", CBN_KILLFOCUS, "CBN_KILLFOCUS"},
    {"combo", CBN_EDITCHANGE, "CBN_EDITCHANGE"},
    {"combo", CBN_EDITUPDATE, "CBN_EDITUPDATE"},
    {"combo", CBN_DROPDOWN, "CBN_DROPDOWN"},
    {"combo", CBN_CLOSEUP, "CBN_CLOSEUP"},
    {"combo", CBN_SELENDOK, "CBN_SELENDOK"},
    {"combo", CBN_SELENDCANCEL, "CBN_SELENDCANCEL"},
    {"list", LBN_SELCHANGE, "LBN_SELCHANGE"},
    {"list", LBN_DBLCLK, "LBN_DBLCLK"},
    {"list", LBN_SETFOCUS, "LBN_SETFOCUS"},
    {"list", LBN_KILLFOCUS, "LBN_KILLFOCUS"},
    {"trackbar", TB_LINEUP, "TB_LINEUP"},
    {"trackbar", TB_LINEDOWN, "TB_LINEDOWN"},
    {"trackbar", TB_PAGEUP, "TB_PAGEUP"},
    {"trackbar", TB_PAGEDOWN, "TB_PAGEDOWN"},
    {"trackbar", TB_THUMBPOSITION, "TB_THUMBPOSITION"},
    {"trackbar", TB_THUMBTRACK, "TB_THUMBTRACK"},
    {"trackbar", TB_TOP, "TB_TOP"},
    {"trackbar", TB_BOTTOM, "TB_BOTTOM"},
    {"trackbar", TB_ENDTRACK, "TB_ENDTRACK"},
    {"updown", SB_THUMBPOSITION, "SB_THUMBPOSITION"},
    {"updown", SB_ENDSCROLL, "SB_ENDSCROLL"},
    {"updown", UDN_DELTAPOS, "UDN_DELTAPOS"},
    {"tab", TCN_SELCHANGE, "TCN_SELCHANGE"},
    {"tab", TCN_SELCHANGING, "TCN_SELCHANGING"},
};

std::string NameOf(HWND control, unsigned code) {
    for (const CodeName& entry : kCodeNames) {
        if (entry.code == code && KindOf(control) == entry.kind) return entry.name;
    }
    return "code " + std::to_string(code);
}

}  // namespace

ControlTest::ControlTest() {
    static const ATOM registered = [] {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = Procedure;
        windowClass.lpszClassName = kParentClass;
        return RegisterClassA(&windowClass);
    }();
    EXPECT_NE(registered, 0);
    current = this;
    parent = CreateWindowExA(0, kParentClass, "parent", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300,
                             nullptr, nullptr, nullptr, nullptr);
    SetActiveWindow(parent);
}

ControlTest::~ControlTest() {
    reaction = nullptr;
    DestroyWindow(parent);
    current = nullptr;
}

HWND ControlTest::Add(const char* className, DWORD style, int id, const char* text) {
    return CreateWindowExA(0, className, text, style | WS_CHILD | WS_VISIBLE, 10, 10, 120, 80,
                           parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr,
                           nullptr);
}

std::string ControlTest::Text(HWND window) {
    char buffer[256] = "";
    GetWindowTextA(window, buffer, sizeof buffer);
    return buffer;
}

LRESULT ControlTest::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (current && current->parent == window) {
        current->Record(message, wParam, lParam);
        if (current->reaction) {
            const std::optional<LRESULT> answer = current->reaction(message, wParam, lParam);
            if (answer) return *answer;
        }
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

void ControlTest::Record(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto control = reinterpret_cast<HWND>(lParam);
    if (message == WM_COMMAND) {
        log.push_back(std::to_string(LOWORD(wParam)) + " " + NameOf(control, HIWORD(wParam)));
    } else if (message == WM_HSCROLL || message == WM_VSCROLL) {
        std::string line =
            std::to_string(GetDlgCtrlID(control)) + " " + NameOf(control, LOWORD(wParam));
        if (HIWORD(wParam) != 0) {
            line += " " + std::to_string(static_cast<SHORT>(HIWORD(wParam)));
        }
        log.push_back(line);
    } else if (message == WM_NOTIFY) {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        log.push_back(std::to_string(header.idFrom) + " " + NameOf(header.hwndFrom, header.code));
    }
}

}  // namespace kv
