// The window class of the recorder.
#include <tests/platform/support/recorder.h>

namespace kv {
namespace {

RecorderTest* current = nullptr;
constexpr char kClass[] = "Recorder";

struct MessageName {
    UINT message;
    const char* name;
};
// Only these are written down.
constexpr MessageName kNames[] = {
    {WM_CREATE, "create"},     {WM_DESTROY, "destroy"},     {WM_NCDESTROY, "ncdestroy"},
    {WM_SETFOCUS, "setfocus"}, {WM_KILLFOCUS, "killfocus"}, {WM_ENABLE, "enable"},
    {WM_SHOWWINDOW, "show"},   {WM_MOVE, "move"},           {WM_SIZE, "size"},
    {WM_HELP, "help"},         {WM_COMMAND, "command"},     {WM_LBUTTONDOWN, "down"},
    {WM_LBUTTONUP, "up"},      {WM_CONTEXTMENU, "menu"},    {WM_KEYDOWN, "key"},
    {WM_KEYUP, "keyup"},       {WM_CHAR, "char"},           {WM_CLOSE, "close"},
    {WM_PAINT, "paint"},       {WM_TIMER, "timer"},         {WM_USER, "user"},
};

}  // namespace

RecorderTest::RecorderTest() {
    static const ATOM registered = [] {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = Procedure;
        windowClass.lpszClassName = kClass;
        windowClass.cbWndExtra = 16;
        return RegisterClassA(&windowClass);
    }();
    EXPECT_NE(registered, 0);
    current = this;
}

RecorderTest::~RecorderTest() {
    hook = nullptr;
    for (HWND window : TopLevelWindows()) {
        if (IsWindow(window)) DestroyWindow(window);
    }
    PumpPendingMessages();
    current = nullptr;
}

HWND RecorderTest::TopLevel(const char* text, DWORD style) {
    return CreateWindowExA(0, kClass, text, WS_POPUP | style, 100, 50, 400, 300, nullptr, nullptr,
                           nullptr, nullptr);
}

HWND RecorderTest::Child(HWND parent, const char* text, int id, DWORD style) {
    return CreateWindowExA(0, kClass, text, WS_CHILD | style, 10, 20, 60, 40, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
}

LRESULT RecorderTest::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (current) {
        current->Record(window, message, wParam);
        if (current->hook) current->hook(window, message);
    }
    if (message == WM_GETDLGCODE) return DLGC_WANTCHARS;
    return DefWindowProcA(window, message, wParam, lParam);
}

void RecorderTest::Record(HWND window, UINT message, WPARAM wParam) {
    for (const MessageName& entry : kNames) {
        if (entry.message != message) continue;
        std::string line = WindowFromHandle(window)->text + " " + entry.name;
        const bool counts = message == WM_USER || message == WM_ENABLE || message == WM_TIMER ||
                            message == WM_SHOWWINDOW;
        if (counts) line += " " + std::to_string(wParam);
        if (message == WM_CHAR) line += std::string(" ") + static_cast<char>(wParam);
        log.push_back(line);
    }
}

}  // namespace kv
