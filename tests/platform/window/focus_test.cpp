// Focus, activation, enabling and hiding: the order of the messages and who gets the keys.
#include <tests/platform/support/recorder.h>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FocusOrder : public RecorderTest {
 protected:
    FocusOrder() {
        top = TopLevel("top");
        first = Child(top, "first");
        second = Child(top, "second");
        SetFocus(first);
        TakeLog();
    }
    HWND top;
    HWND first;
    HWND second;
};

TEST_F(FocusOrder, LoserHearsFirstWhileTheWinnerIsAlreadyKnown) {
    hook = [&](HWND window, UINT message) {
        if (window != first || message != WM_KILLFOCUS) return;
        EXPECT_EQ(GetFocus(), second);
    };
    EXPECT_EQ(SetFocus(second), first);
    EXPECT_THAT(TakeLog(), ElementsAre("first killfocus", "second setfocus"));
    EXPECT_EQ(SetFocus(second), second);
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(FocusOrder, HandlerOfTheLossMaySendTheFocusElsewhere) {
    hook = [&](HWND window, UINT message) {
        if (window == first && message == WM_KILLFOCUS) SetFocus(top);
    };
    SetFocus(second);
    EXPECT_EQ(GetFocus(), top);
    EXPECT_THAT(TakeLog(), ElementsAre("first killfocus", "second killfocus", "top setfocus"));
}

// Each of the two wants what the other has, so the newest wish that can be met holds, and both
// believe what is true.
TEST_F(FocusOrder, WindowsThatSendTheFocusOnFromEveryMessageComeToAnEnd) {
    hook = [&](HWND window, UINT message) {
        if (message == WM_KILLFOCUS && window != top) SetFocus(window);
    };
    SetFocus(second);
    EXPECT_EQ(GetFocus(), second);
    EXPECT_THAT(TakeLog(), ElementsAre("first killfocus", "second killfocus", "second setfocus"));
    hook = [&](HWND window, UINT message) {
        if (message == WM_SETFOCUS && window != top) SetFocus(window == first ? second : first);
    };
    SetFocus(first);
    EXPECT_EQ(GetFocus(), first);
    EXPECT_THAT(TakeLog(), ElementsAre("second killfocus", "first setfocus", "first killfocus",
                                       "second setfocus", "second killfocus"));
    hook = [&](HWND window, UINT message) {
        if (message == WM_KILLFOCUS && window == first) DestroyWindow(second);
    };
    EXPECT_EQ(SetFocus(second), first);
    EXPECT_FALSE(IsWindow(second));
    hook = nullptr;
    TakeLog();
    SetFocus(first);
    SetFocus(top);
    EXPECT_THAT(TakeLog(),
                ElementsAre("top killfocus", "first setfocus", "first killfocus", "top setfocus"));
}

TEST_F(FocusOrder, DisablingTheFocusedWindowLeavesTheFocusNowhere) {
    EXPECT_FALSE(EnableWindow(first, FALSE));
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_THAT(TakeLog(), ElementsAre("first killfocus", "first enable 0"));
    EXPECT_TRUE(EnableWindow(first, FALSE)) << "was disabled before";
    EXPECT_THAT(TakeLog(), IsEmpty());
    EXPECT_EQ(SetFocus(first), nullptr);
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_TRUE(EnableWindow(first, TRUE));
    EXPECT_THAT(TakeLog(), ElementsAre("first enable 1"));
}

TEST_F(FocusOrder, HidingOrDestroyingAWindowGivesItsFocusToTheParent) {
    ShowWindow(first, SW_HIDE);
    EXPECT_EQ(GetFocus(), top);
    EXPECT_THAT(TakeLog(), ElementsAre("first show 0", "first killfocus", "top setfocus"));
    SetFocus(second);
    TakeLog();
    DestroyWindow(second);
    EXPECT_EQ(GetFocus(), top);
    EXPECT_THAT(TakeLog(), ElementsAre("second killfocus", "top setfocus", "second destroy",
                                       "second ncdestroy"));
}

TEST_F(FocusOrder, ActivationReturnsToTheControlThatHadTheFocus) {
    const HWND other = TopLevel("other");
    EXPECT_EQ(GetActiveWindow(), other) << "a shown window comes to the front";
    SetActiveWindow(top);
    EXPECT_EQ(GetFocus(), first);
    SetActiveWindow(other);
    TakeLog();
    ShowWindow(other, SW_HIDE);
    EXPECT_EQ(GetActiveWindow(), top);
    EXPECT_THAT(TakeLog(), ElementsAre("other show 0", "other killfocus", "first setfocus"));
}

TEST_F(FocusOrder, DisplayHearsOnlyOfRealChanges) {
    RecordingDisplay display;
    const HWND edit = Child(top, "edit");
    EXPECT_THAT(display.Take(), ElementsAre("created edit"));
    const std::string enabled = "changed edit " + std::to_string(kChangedEnabled);
    const std::string visible = "changed edit " + std::to_string(kChangedVisible);
    const std::string geometry = "changed edit " + std::to_string(kChangedGeometry);
    for (int round = 0; round < 2; ++round) {
        EnableWindow(edit, FALSE);
        MoveWindow(edit, 5, 6, 60, 40, TRUE);
        SetFocus(second);
    }
    EXPECT_THAT(display.Take(), ElementsAre(enabled, geometry, "focus second"));
    ShowWindow(edit, SW_HIDE);
    ShowWindow(edit, SW_HIDE);
    EXPECT_THAT(display.Take(), ElementsAre(visible));
    SetWindowTextA(edit, "edit");
    SetWindowLongPtrA(edit, GWL_STYLE, GetWindowLongPtrA(edit, GWL_STYLE));
    EXPECT_THAT(display.Take(), IsEmpty());
    DestroyWindow(edit);
    EXPECT_THAT(display.Take(), ElementsAre("destroyed edit"));
}

TEST_F(FocusOrder, SwitchedOffRedrawingGathersChangesButNotPlacement) {
    RecordingDisplay display;
    SendMessageA(first, WM_SETREDRAW, FALSE, 0);
    for (const char* text : {"one", "two", "three"}) SetWindowTextA(first, text);
    SendMessageA(first, WM_SETFONT, 16, 0);
    EXPECT_THAT(display.Take(), IsEmpty());
    EnableWindow(second, FALSE);
    ShowWindow(first, SW_HIDE);
    EXPECT_THAT(display.Take(), ElementsAre("changed second 2", "changed three 4", "focus top"));
    SendMessageA(first, WM_SETREDRAW, TRUE, 0);
    EXPECT_THAT(display.Take(),
                ElementsAre("changed three " + std::to_string(kChangedText | kChangedFont)));
}

}  // namespace
}  // namespace kv
