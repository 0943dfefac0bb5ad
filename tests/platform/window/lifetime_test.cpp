// Creation, destruction, stale handles and the tree.
#include <tests/platform/support/recorder.h>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WindowLifetime : public RecorderTest {};

TEST_F(WindowLifetime, ParentsHearOfTheEndFirstAndGoLast) {
    const HWND top = TopLevel("top");
    const HWND page = Child(top, "page");
    Child(page, "edit");
    Child(top, "other");
    const HWND popup = CreateWindowExA(0, "Recorder", "popup", WS_POPUP, 0, 0, 1, 1, top, nullptr,
                                       nullptr, nullptr);
    TakeLog();
    hook = [&](HWND window, UINT message) {
        if (window != top) return;
        // The children are all there in WM_DESTROY and all gone in WM_NCDESTROY.
        if (message == WM_DESTROY || message == WM_NCDESTROY) {
            EXPECT_EQ(IsWindow(page), message == WM_DESTROY);
        }
    };
    EXPECT_TRUE(DestroyWindow(top));
    EXPECT_FALSE(IsWindow(popup));
    log.erase(std::remove(log.begin(), log.end(), "top killfocus"), log.end());
    EXPECT_THAT(TakeLog(),
                ElementsAre("popup destroy", "popup ncdestroy", "top destroy", "page destroy",
                            "edit destroy", "other destroy", "edit ncdestroy", "page ncdestroy",
                            "other ncdestroy", "top ncdestroy"));
}

TEST_F(WindowLifetime, StaleAndForeignHandlesFailWithTheError) {
    const HWND stale = TopLevel("stale");
    ASSERT_TRUE(DestroyWindow(stale));
    const HWND fresh = TopLevel("fresh");
    EXPECT_NE(stale, fresh) << "a slot used again must give another handle";
    char text[8] = "x";
    RECT rect{};
    int local = 0;
    const HWND foreign[] = {stale, reinterpret_cast<HWND>(&local),
                            reinterpret_cast<HWND>(~std::uintptr_t{0}),
                            reinterpret_cast<HWND>(std::uintptr_t{2}),
                            reinterpret_cast<HWND>(reinterpret_cast<std::uintptr_t>(fresh) + 1)};
    for (HWND bad : foreign) {
        const std::pair<const char*, std::function<bool()>> calls[] = {
            {"DestroyWindow", [&] { return DestroyWindow(bad) != 0; }},
            {"ShowWindow", [&] { return ShowWindow(bad, SW_SHOW) != 0; }},
            {"EnableWindow", [&] { return EnableWindow(bad, FALSE) != 0; }},
            {"MoveWindow", [&] { return MoveWindow(bad, 1, 1, 1, 1, TRUE) != 0; }},
            {"GetParent", [&] { return GetParent(bad) != nullptr; }},
            {"SetParent", [&] { return SetParent(fresh, bad) != nullptr; }},
            {"GetWindow", [&] { return GetWindow(bad, GW_CHILD) != nullptr; }},
            {"SetFocus", [&] { return SetFocus(bad) != nullptr; }},
            {"SetWindowText", [&] { return SetWindowTextA(bad, "a") != 0; }},
            {"GetWindowText", [&] { return GetWindowTextA(bad, text, 8) != 0; }},
            {"GetWindowRect", [&] { return GetWindowRect(bad, &rect) != 0; }},
            {"SetWindowLongPtr", [&] { return SetWindowLongPtrA(bad, GWLP_USERDATA, 1) != 0; }},
            {"SetProp", [&] { return SetPropA(bad, "p", text) != 0; }},
            {"SendMessage", [&] { return SendMessageA(bad, WM_NCCREATE, 0, 0) != 0; }},
            {"PostMessage", [&] { return PostMessageA(bad, WM_USER, 0, 0) != 0; }},
            {"SetTimer", [&] { return SetTimer(bad, 1, 100, nullptr) != 0; }},
            {"GetDC", [&] { return GetDC(bad) != nullptr; }},
            {"GetDlgItem", [&] { return GetDlgItem(bad, 1) != nullptr; }},
            {"EndDialog", [&] { return EndDialog(bad, 1) != 0; }},
            {"GetNextDlgTabItem", [&] { return GetNextDlgTabItem(bad, nullptr, 0) != nullptr; }},
        };
        for (const auto& [name, call] : calls) {
            SetLastError(ERROR_SUCCESS);
            EXPECT_FALSE(call()) << name;
            EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE) << name;
        }
    }
}

TEST_F(WindowLifetime, WindowsMayDestroyThemselvesOrTheirParentInAnyMessage) {
    constexpr UINT kMessages[] = {
        WM_NCCREATE, WM_CREATE,  WM_SIZE,      WM_MOVE,        WM_SHOWWINDOW,
        WM_SETFOCUS, WM_ENABLE,  WM_KILLFOCUS, WM_LBUTTONDOWN, WM_SETTEXT,
        WM_PAINT,    WM_DESTROY, WM_USER,      WM_NCDESTROY,
    };
    for (UINT trigger : kMessages) {
        for (bool parentToo : {false, true}) {
            const HWND top = TopLevel("top");
            Child(top, "sibling");
            hook = [&](HWND window, UINT message) {
                if (message != trigger || GetParent(window) != top) return;
                DestroyWindow(parentToo ? top : window);
            };
            const HWND child = Child(top, "child");
            ShowWindow(child, SW_HIDE);
            ShowWindow(child, SW_SHOW);
            SetFocus(child);
            EnableWindow(child, FALSE);
            EnableWindow(child, TRUE);
            MoveWindow(child, 1, 2, 3, 4, TRUE);
            SendMessageA(child, WM_LBUTTONDOWN, 0, 0);
            SetWindowTextA(child, "new");
            InvalidateRect(child, nullptr, TRUE);
            UpdateWindow(child);
            SendMessageA(child, WM_USER, 0, 0);
            if (IsWindow(child)) DestroyWindow(child);
            EXPECT_FALSE(IsWindow(child)) << trigger;
            if (IsWindow(top)) DestroyWindow(top);
            EXPECT_FALSE(IsWindow(top)) << trigger;
        }
    }
    hook = nullptr;
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_THAT(TopLevelWindows(), IsEmpty());
}

TEST_F(WindowLifetime, CreationIsRefusedForBadArguments) {
    const auto create = [](const char* name, DWORD style, HWND parent) {
        return CreateWindowExA(0, name, "", style, 0, 0, 1, 1, parent, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(create("NoSuchClass", WS_POPUP, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_CANNOT_FIND_WND_CLASS);
    EXPECT_EQ(create(nullptr, WS_POPUP, nullptr), nullptr);
    EXPECT_EQ(create("Recorder", WS_CHILD, nullptr), nullptr);
    EXPECT_EQ(create("Recorder", WS_CHILD, reinterpret_cast<HWND>(16)), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_NE(create("rECORDER", WS_POPUP, nullptr), nullptr) << "class names ignore case";
    WNDCLASSA again{};
    again.lpfnWndProc = DefWindowProcA;
    again.lpszClassName = "RECORDER";
    EXPECT_EQ(RegisterClassA(&again), 0);
}

TEST_F(WindowLifetime, EnumerationReachesAllLevelsAndSurvivesDestruction) {
    const HWND top = TopLevel("top");
    for (const char* name : {"a", "b"}) {
        const HWND page = Child(top, name);
        Child(page, (std::string(name) + "1").c_str());
    }
    static Lines seen;
    EXPECT_TRUE(EnumWindows(
        [](HWND window, LPARAM) -> BOOL {
            return seen.push_back(WindowFromHandle(window)->text), 1;
        },
        0));
    EXPECT_THAT(seen, ::testing::Contains("top"));
    EXPECT_THAT(seen, ::testing::Not(::testing::Contains("a")));
    EXPECT_FALSE(EnumWindows([](HWND, LPARAM) -> BOOL { return FALSE; }, 0));
    seen.clear();
    const auto visit = [](HWND window, LPARAM destroy) -> BOOL {
        seen.push_back(WindowFromHandle(window)->text);
        if (destroy) DestroyWindow(window);
        return seen.size() != 3 || destroy;
    };
    EXPECT_FALSE(EnumChildWindows(top, visit, 0));
    EXPECT_THAT(seen, ElementsAre("a", "a1", "b")) << "stops when told to";
    seen.clear();
    EXPECT_TRUE(EnumChildWindows(top, visit, 1));
    EXPECT_THAT(seen, ElementsAre("a", "b")) << "what went with its parent is passed over";
}

TEST_F(WindowLifetime, ReparentingMovesTheWindowAndRefusesCycles) {
    const HWND top = TopLevel("top");
    const HWND left = Child(top, "left", 1);
    const HWND right = Child(top, "right", 2);
    const HWND panel = Child(left, "panel", 7);
    EXPECT_EQ(SetParent(panel, right), left);
    EXPECT_EQ(GetDlgItem(right, 7), panel);
    EXPECT_EQ(GetDlgItem(left, 7), nullptr);
    EXPECT_EQ(SetParent(right, panel), nullptr);
    EXPECT_EQ(SetParent(right, right), nullptr);
    EXPECT_EQ(GetParent(right), top);
    SetWindowLongPtrA(panel, GWLP_ID, 8);
    EXPECT_EQ(GetDlgItem(right, 8), panel);
    EXPECT_EQ(GetDlgItem(right, 7), nullptr);
    SetWindowPos(left, right, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(GetWindow(top, GW_CHILD), right);
    EXPECT_EQ(GetDlgItem(top, 1), left) << "numbers follow the windows when their order changes";
    POINT point{0, 0};
    MapWindowPoints(panel, nullptr, &point, 1);
    EXPECT_EQ(point.x, 100 + 10 + 10);
    EXPECT_EQ(point.y, 50 + 20 + 20);
}

TEST_F(WindowLifetime, WordsPropertiesAndTextKeepWhatIsStored) {
    const HWND window = TopLevel("text");
    EXPECT_EQ(SetWindowLongPtrA(window, 8, 41), 0);
    EXPECT_EQ(SetWindowLongPtrA(window, 8, 42), 41);
    for (int bad : {-1, 4, 16, 1 << 20}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(SetWindowLongPtrA(window, bad, 1), 0) << bad;
        EXPECT_NE(GetLastError(), ERROR_SUCCESS) << bad;
    }
    EXPECT_TRUE(SetPropA(window, "name", window));
    EXPECT_TRUE(SetPropA(window, "NAME", GetDesktopWindow()));
    EXPECT_EQ(GetPropA(window, "Name"), GetDesktopWindow());
    EXPECT_EQ(RemovePropA(window, "nAme"), GetDesktopWindow());
    EXPECT_EQ(GetPropA(window, "name"), nullptr);
    for (const char* name : {"Button", "Edit", "Static", "ComboBox", "ListBox"}) {
        std::string upper = name;
        for (char& letter : upper) letter = static_cast<char>(std::toupper(letter));
        const HWND control = CreateWindowExA(0, upper.c_str(), "", WS_CHILD, 0, 0, 1, 1, window,
                                             nullptr, nullptr, nullptr);
        char shown[16] = "";
        EXPECT_EQ(GetClassNameA(control, shown, sizeof shown), static_cast<int>(upper.size()));
        EXPECT_STREQ(shown, name);
    }
    EXPECT_EQ(GetSystemMetrics(SM_CXFRAME), GetSystemMetrics(33));
    EXPECT_GT(GetSystemMetrics(32), 0);
    const UINT message = RegisterWindowMessageA("Varnell test");
    EXPECT_GE(message, 0xC000u);
    EXPECT_EQ(RegisterWindowMessageA("VARNELL TEST"), message);
    EXPECT_NE(RegisterWindowMessageA("Varnell test 2"), message);
    EXPECT_EQ(RegisterWindowMessageA(""), 0u);
    char buffer[8];
    std::fill_n(buffer, sizeof buffer, '#');
    EXPECT_EQ(GetWindowTextA(window, buffer, 4), 3);
    EXPECT_STREQ(buffer, "tex");
    EXPECT_EQ(buffer[4], '#');
    EXPECT_EQ(GetWindowTextA(window, buffer, 0), 0);
    EXPECT_EQ(GetWindowTextLengthA(window), 4);
}

}  // namespace
}  // namespace kv
