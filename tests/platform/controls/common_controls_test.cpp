// Track bars, up-down controls with their buddies, tooltips and tab controls.
#include "control_fixture.h"

#include <platform/controls/control_input.h>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CommonControlsTest : public ControlTest {
 protected:
    HWND TrackBar(DWORD style) {
        HWND bar = Add(TRACKBAR_CLASSA, style, 5);
        Send(bar, TBM_SETRANGE, TRUE, MAKELPARAM(0, 100));
        Send(bar, TBM_SETPAGESIZE, 0, 10);
        Send(bar, TBM_SETPOS, TRUE, 50);
        SetFocus(bar);
        EXPECT_THAT(TakeLog(), IsEmpty());
        return bar;
    }
    // An edit 8 and an up-down control 9 from 1 to 99.
    HWND UpDown(DWORD style, const char* text) {
        buddy = Add("EDIT", 0, 8);
        HWND upDown = Add(UPDOWN_CLASSA, style | UDS_SETBUDDYINT, 9);
        if ((style & UDS_AUTOBUDDY) == 0) {
            Send(upDown, UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy));
        }
        Send(upDown, UDM_SETRANGE, 0, MAKELPARAM(99, 1));
        SetWindowTextA(buddy, text);
        SetFocus(buddy);
        TakeLog();
        return upDown;
    }
    HWND buddy{};
};

TEST_F(CommonControlsTest, DraggingATrackBarTracksThenSettles) {
    HWND bar = TrackBar(0);
    EXPECT_TRUE(input::DragTo(bar, 80, 3));
    EXPECT_THAT(TakeLog(),
                ElementsAre("5 TB_THUMBTRACK 60", "5 TB_THUMBTRACK 70", "5 TB_THUMBTRACK 80",
                            "5 TB_THUMBPOSITION 80", "5 TB_ENDTRACK"));
    EXPECT_TRUE(input::DragTo(bar, 900));
    EXPECT_EQ(Send(bar, TBM_GETPOS), 100);
    EXPECT_THAT(TakeLog(),
                ElementsAre("5 TB_THUMBTRACK 100", "5 TB_THUMBPOSITION 100", "5 TB_ENDTRACK"));
}

TEST_F(CommonControlsTest, KeysMoveATrackBar) {
    const struct {
        DWORD style;
        int key;
        const char* code;
        LRESULT position;
    } cases[] = {
        {0, VK_RIGHT, "5 TB_LINEDOWN", 51},
        {0, VK_DOWN, "5 TB_LINEDOWN", 51},
        {0, VK_PRIOR, "5 TB_PAGEUP", 40},
        {0, VK_HOME, "5 TB_TOP", 0},
        {0, VK_END, "5 TB_BOTTOM", 100},
        {TBS_DOWNISLEFT, VK_RIGHT, "5 TB_LINEDOWN", 51},
        {TBS_DOWNISLEFT, VK_DOWN, "5 TB_LINEUP", 49},
        {TBS_DOWNISLEFT, VK_PRIOR, "5 TB_PAGEDOWN", 60},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.code);
        HWND bar = TrackBar(test.style);
        input::Key(test.key);
        EXPECT_EQ(Send(bar, TBM_GETPOS), test.position);
        EXPECT_THAT(TakeLog(), ElementsAre(test.code, "5 TB_ENDTRACK"));
        DestroyWindow(bar);
    }
}

TEST_F(CommonControlsTest, TheMouseTakesTheThumbOrPagesTowardsIt) {
    HWND bar = TrackBar(0);  // 120 pixels: the channel has one per position, from 10
    Send(bar, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 5));
    Send(bar, WM_LBUTTONUP, 0, MAKELPARAM(20, 5));
    EXPECT_THAT(TakeLog(), ElementsAre("5 TB_PAGEUP", "5 TB_ENDTRACK"));
    Send(bar, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 5));
    Send(bar, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(85, 5));
    Send(bar, WM_LBUTTONUP, 0, MAKELPARAM(85, 5));
    EXPECT_THAT(TakeLog(),
                ElementsAre("5 TB_THUMBTRACK 75", "5 TB_THUMBPOSITION 75", "5 TB_ENDTRACK"));
}

TEST_F(CommonControlsTest, ANarrowerRangePullsThePositionIn) {
    HWND bar = TrackBar(0);
    Send(bar, TBM_SETRANGE, TRUE, MAKELPARAM(static_cast<unsigned>(-20), 20));
    EXPECT_EQ(Send(bar, TBM_GETPOS), 20);
    Send(bar, TBM_SETPOS, TRUE, -100);
    EXPECT_EQ(Send(bar, TBM_GETPOS), -20);
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(CommonControlsTest, ANotchAsksThenChangesTheBuddyThenScrolls) {
    HWND upDown = UpDown(0, "7");
    EXPECT_TRUE(input::Step(upDown, 1));
    EXPECT_EQ(Text(buddy), "8");
    EXPECT_THAT(TakeLog(), ElementsAre("9 UDN_DELTAPOS", "8 EN_UPDATE", "8 EN_CHANGE",
                                       "9 SB_THUMBPOSITION 8", "9 SB_ENDSCROLL"));
}

TEST_F(CommonControlsTest, TheParentMayRefuseOrAlterANotch) {
    HWND upDown = UpDown(0, "7");
    int delta = 0;
    LRESULT answer = 1;
    reaction = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
        if (message != WM_NOTIFY) return std::nullopt;
        auto& notice = *reinterpret_cast<NMUPDOWN*>(lParam);
        EXPECT_EQ(notice.iPos, 7);
        if (delta != 0) notice.iDelta = delta;
        return answer;
    };
    input::Step(upDown, 1);
    EXPECT_EQ(Text(buddy), "7");
    EXPECT_THAT(TakeLog(), ElementsAre("9 UDN_DELTAPOS"));
    answer = 0;
    delta = 10;
    input::Step(upDown, 1);
    EXPECT_EQ(Text(buddy), "17");
}

TEST_F(CommonControlsTest, TheBuddysTextIsThePosition) {
    HWND upDown = UpDown(UDS_ARROWKEYS, "50");
    SetWindowTextA(buddy, "20");
    EXPECT_EQ(LOWORD(Send(upDown, UDM_GETPOS)), 20);
    input::Key(VK_UP);
    EXPECT_EQ(Text(buddy), "21");
    input::Key(VK_DOWN);
    input::Key(VK_DOWN);
    EXPECT_EQ(Text(buddy), "19");
    for (const char* wrong : {"x", "", "500", "1 2"}) {
        SetWindowTextA(buddy, wrong);
        EXPECT_NE(HIWORD(Send(upDown, UDM_GETPOS)), 0) << wrong;
        EXPECT_EQ(LOWORD(Send(upDown, UDM_GETPOS)), 19) << wrong;
    }
}

TEST_F(CommonControlsTest, ANotchStopsOrWrapsAtTheEnd) {
    HWND upDown = UpDown(0, "99");
    input::Step(upDown, 1);
    EXPECT_EQ(Text(buddy), "99");
    SetWindowLongPtrA(upDown, GWL_STYLE, GetWindowLongPtrA(upDown, GWL_STYLE) | UDS_WRAP);
    input::Step(upDown, 1);
    EXPECT_EQ(Text(buddy), "1");
    input::Step(upDown, -1);
    EXPECT_EQ(Text(buddy), "99");
}

TEST_F(CommonControlsTest, AnInvertedRangeTurnsTheArrowsRound) {
    HWND upDown = UpDown(0, "10");
    Send(upDown, UDM_SETRANGE, 0, MAKELPARAM(1, 99));
    input::Step(upDown, 1);
    EXPECT_EQ(Text(buddy), "9");
    LONG lower = 0;
    LONG upper = 0;
    Send(upDown, UDM_SETRANGE32, static_cast<WPARAM>(-70000), 70000);
    Send(upDown, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&lower),
         reinterpret_cast<LPARAM>(&upper));
    EXPECT_EQ(lower, -70000);
    EXPECT_EQ(upper, 70000);
    Send(upDown, UDM_SETPOS32, 0, -12345);
    EXPECT_EQ(Text(buddy), "-12,345");
    EXPECT_EQ(Send(upDown, UDM_GETPOS32), -12345);
}

TEST_F(CommonControlsTest, AnAutomaticBuddyIsTheControlBefore) {
    HWND upDown = UpDown(UDS_AUTOBUDDY | UDS_ALIGNRIGHT, "1");
    EXPECT_EQ(Send(upDown, UDM_GETBUDDY), reinterpret_cast<LRESULT>(buddy));
    EnableWindow(buddy, FALSE);
    EXPECT_FALSE(input::Step(upDown, 1));
    EXPECT_EQ(Text(buddy), "1");
    DestroyWindow(buddy);
    EXPECT_TRUE(input::Step(upDown, 1));
}

TEST_F(CommonControlsTest, AnEditOutlivesItsUpDownControl) {
    HWND upDown = UpDown(UDS_ARROWKEYS, "5");
    DestroyWindow(upDown);
    input::Key(VK_UP);
    EXPECT_EQ(Text(buddy), "5");
}

TEST_F(CommonControlsTest, TooltipsKeepTheirTools) {
    HWND tips = CreateWindowExA(0, TOOLTIPS_CLASSA, "", WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0, 0,
                                parent, nullptr, nullptr, nullptr);
    char text[] = "Overlay: none";
    TOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = parent;
    tool.lpszText = text;
    for (UINT_PTR id : {1, 2}) {
        tool.uId = id;
        EXPECT_TRUE(Send(tips, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool)));
    }
    char changed[] = "Overlay: form";
    tool.lpszText = changed;
    Send(tips, TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
    tool.uId = 1;
    Send(tips, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_EQ(Send(tips, TTM_GETTOOLCOUNT), 1);
    char read[8] = "";
    tool.uId = 2;
    tool.lpszText = read;
    Send(tips, TTM_GETTEXTA, sizeof read, reinterpret_cast<LPARAM>(&tool));
    EXPECT_STREQ(read, "Overlay");
    tool.lpszText = nullptr;
    EXPECT_TRUE(Send(tips, TTM_ENUMTOOLSA, 0, reinterpret_cast<LPARAM>(&tool)));
    EXPECT_EQ(tool.uId, 2u);
    EXPECT_FALSE(Send(tips, TTM_ENUMTOOLSA, 1, reinterpret_cast<LPARAM>(&tool)));
}

TEST_F(CommonControlsTest, ATabMayRefuseToBeLeft) {
    HWND tabs = Add(WC_TABCONTROLA, 0, 6);
    for (const char* caption : {"One", "Two", "Three"}) {
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<char*>(caption);
        Send(tabs, TCM_INSERTITEMA, 9, reinterpret_cast<LPARAM>(&item));
    }
    EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 0);
    EXPECT_EQ(Send(tabs, TCM_SETCURSEL, 2), 0);
    EXPECT_THAT(TakeLog(), IsEmpty());
    LRESULT refuse = TRUE;
    reaction = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
        if (message != WM_NOTIFY) return std::nullopt;
        const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
        return code == TCN_SELCHANGING ? refuse : 0;
    };
    Send(tabs, WM_KEYDOWN, VK_LEFT);
    EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 2);
    EXPECT_THAT(TakeLog(), ElementsAre("6 TCN_SELCHANGING"));
    refuse = FALSE;
    Send(tabs, WM_KEYDOWN, VK_LEFT);
    EXPECT_EQ(Send(tabs, TCM_GETCURSEL), 1);
    EXPECT_THAT(TakeLog(), ElementsAre("6 TCN_SELCHANGING", "6 TCN_SELCHANGE"));
}

}  // namespace
}  // namespace kv
