// The recording parent window of the control tests.
#include "control_fixture.h"

#include "tests/support/notification_names.h"

namespace kv {
namespace {

ControlTest* current = nullptr;
constexpr char kParentClass[] = "ControlTestParent";

std::string NameOf(HWND control, UINT code) {
    const char* name = test::NotificationName(control, code);
    return name ? name : "code " + std::to_string(code);
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
