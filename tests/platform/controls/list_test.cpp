// Combo boxes and list boxes: notifications of choosing, searching, selection rules, and refills
// that end where they began.
#include "control_fixture.h"

#include <platform/controls/control_input.h>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ListTest : public ControlTest {
 protected:
    HWND Combo(DWORD style = CBS_DROPDOWNLIST) {
        HWND combo = Add("COMBOBOX", style, 3);
        for (const char* text : {"None", "Left", "Right", "Long edge"}) {
            SendText(combo, CB_ADDSTRING, 0, text);
        }
        SetFocus(combo);
        TakeLog();
        return combo;
    }
    HWND List(DWORD style) {
        HWND list = Add("LISTBOX", style | LBS_NOTIFY, 4);
        for (const char* text : {"a", "b", "c", "d", "e"}) SendText(list, LB_ADDSTRING, 0, text);
        SetFocus(list);
        TakeLog();
        return list;
    }
    static std::string Selected(HWND list) {
        std::string selected;
        for (int i = 0; i < Send(list, LB_GETCOUNT); ++i) {
            if (Send(list, LB_GETSEL, static_cast<WPARAM>(i)) > 0) {
                selected += static_cast<char>('a' + i);
            }
        }
        return selected;
    }
};

TEST_F(ListTest, ChoosingAnEntryReportsItWhenItIsAlreadySelected) {
    HWND combo = Combo();
    LRESULT atEnd = -1;
    At(CBN_SELENDOK, [&] { atEnd = Send(combo, CB_GETCURSEL); });
    EXPECT_TRUE(input::Choose(combo, 2));
    EXPECT_EQ(atEnd, 2);
    EXPECT_EQ(Text(combo), "Right");
    EXPECT_EQ(Send(combo, CB_GETDROPPEDSTATE), 0);
    EXPECT_THAT(TakeLog(), ElementsAre("3 CBN_DROPDOWN", "3 CBN_SELENDOK", "3 CBN_SELCHANGE",
                                       "3 CBN_CLOSEUP"));
    EXPECT_FALSE(input::Choose(combo, 9));
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(ListTest, AnOpenListAcceptsOrCancels) {
    HWND combo = Combo();
    Send(combo, CB_SETCURSEL, 1);
    EXPECT_THAT(TakeLog(), IsEmpty());
    input::DropDown(combo, true);
    input::Key(VK_DOWN);
    input::Key(VK_ESCAPE);
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 1);
    EXPECT_THAT(TakeLog(), ElementsAre("3 CBN_DROPDOWN", "3 CBN_SELCHANGE", "3 CBN_SELENDCANCEL",
                                       "3 CBN_CLOSEUP"));
    input::Key(VK_DOWN, input::kAlt);
    EXPECT_TRUE(Send(combo, CB_GETDROPPEDSTATE));
    input::Choose(combo, 3);
    input::DropDown(combo, false);
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 3);
    EXPECT_THAT(TakeLog(), ElementsAre("3 CBN_DROPDOWN", "3 CBN_SELENDOK", "3 CBN_SELCHANGE",
                                       "3 CBN_CLOSEUP"));
}

TEST_F(ListTest, KeysInAClosedComboBoxTakeTheEntryAtOnce) {
    HWND combo = Combo();
    Send(combo, CB_SETCURSEL, 0);
    input::Key(VK_DOWN);
    EXPECT_THAT(TakeLog(), ElementsAre("3 CBN_SELENDOK", "3 CBN_SELCHANGE"));
    input::Type("l");
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 3);
    input::Type("l");
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 1);
    input::Key(VK_END);
    TakeLog();
    input::Key(VK_DOWN);
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 3);
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(ListTest, TypingIntoAComboBoxIsNoChoice) {
    HWND combo = Combo(CBS_DROPDOWN);
    Send(combo, CB_SETCURSEL, 1);
    Send(combo, EM_SETSEL, 0, -1);
    input::Type("7");
    EXPECT_EQ(Text(combo), "7");
    EXPECT_EQ(Send(combo, CB_GETCURSEL), CB_ERR);
    EXPECT_THAT(TakeLog(), ElementsAre("3 CBN_EDITUPDATE", "3 CBN_EDITCHANGE"));
    input::Choose(combo, 2);
    EXPECT_EQ(Text(combo), "Right");
}

TEST_F(ListTest, SearchesIgnoreCaseAndWrapAround) {
    HWND combo = Combo();
    EXPECT_EQ(SendText(combo, CB_FINDSTRING, static_cast<WPARAM>(-1), "l"), 1);
    EXPECT_EQ(SendText(combo, CB_FINDSTRING, 1, "l"), 3);
    EXPECT_EQ(SendText(combo, CB_FINDSTRING, 3, "L"), 1);
    EXPECT_EQ(SendText(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), "LEFT"), 1);
    EXPECT_EQ(SendText(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), "L"), CB_ERR);
    EXPECT_EQ(SendText(combo, CB_SELECTSTRING, static_cast<WPARAM>(-1), "long"), 3);
    EXPECT_EQ(Text(combo), "Long edge");
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(ListTest, TheSelectionFollowsItsEntry) {
    HWND combo = Combo();
    Send(combo, CB_SETITEMDATA, 2, 77);
    Send(combo, CB_SETCURSEL, 2);
    SendText(combo, CB_INSERTSTRING, 0, "First");
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 3);
    EXPECT_EQ(Send(combo, CB_GETITEMDATA, 3), 77);
    Send(combo, CB_DELETESTRING, 0);
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 2);
    EXPECT_EQ(Send(combo, CB_DELETESTRING, 2), 3);
    EXPECT_EQ(Send(combo, CB_GETCURSEL), CB_ERR);
    EXPECT_EQ(Text(combo), "");
    EXPECT_EQ(Send(combo, CB_GETITEMDATA, 3), CB_ERR);
    EXPECT_EQ(Send(combo, CB_SETCURSEL, 9), CB_ERR);
}

TEST_F(ListTest, ARefillWithTheSameEntriesIsNoChange) {
    HWND combo = Combo();
    Send(combo, CB_SETCURSEL, 1);
    CountingDisplay display(combo);
    auto refill = [&](const char* last, WPARAM selection) {
        display.heard.clear();
        Send(combo, WM_SETREDRAW, FALSE);
        Send(combo, CB_RESETCONTENT);
        for (const char* text : {"None", "Left", "Right", last}) {
            SendText(combo, CB_ADDSTRING, 0, text);
        }
        Send(combo, CB_SETCURSEL, selection);
        Send(combo, WM_SETREDRAW, TRUE);
        return display.heard;
    };
    EXPECT_THAT(refill("Long edge", 1), IsEmpty());
    EXPECT_THAT(refill("Long edge", 2), ElementsAre(kChangedSelection));
    EXPECT_THAT(refill("Short edge", 2), ElementsAre(kChangedItems | kChangedSelection));
    EXPECT_THAT(refill("Short edge", 2), IsEmpty());
}

TEST_F(ListTest, OwnerDrawnListsAskForTheirHeight) {
    std::vector<int> asked;
    reaction = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
        if (message != WM_MEASUREITEM) return std::nullopt;
        auto& measure = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
        asked.push_back(static_cast<int>(measure.itemID));
        measure.itemHeight = 20;
        return TRUE;
    };
    HWND combo = Add("COMBOBOX", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED, 3);
    EXPECT_THAT(asked, ElementsAre(-1, 0));
    EXPECT_EQ(Send(combo, CB_GETITEMHEIGHT, 0), 20);
    EXPECT_EQ(Send(combo, CB_ADDSTRING, 0, 42), 0);
    EXPECT_EQ(Send(combo, CB_GETITEMDATA, 0), 42);
    // The closed box is as high as its field, whatever height the opened list was given.
    Send(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), 32);
    MoveWindow(combo, 0, 0, 100, 200, TRUE);
    RECT rect{};
    GetClientRect(combo, &rect);
    EXPECT_EQ(rect.bottom, 38);
}

struct ChoiceCase {
    const char* name;
    DWORD style;
    std::vector<std::pair<int, unsigned>> clicks;  // entry, modifiers
    const char* selected;
};

TEST_F(ListTest, ClicksSelectByTheKindOfTheList) {
    const unsigned shift = input::kShift;
    const unsigned control = input::kControl;
    const ChoiceCase cases[] = {
        {"single", 0, {{1, 0}, {3, control}}, "d"},
        {"independent entries", LBS_MULTIPLESEL, {{1, 0}, {3, 0}, {1, 0}, {4, 0}}, "de"},
        {"plain replaces", LBS_EXTENDEDSEL, {{1, 0}, {3, 0}}, "d"},
        {"control adds", LBS_EXTENDEDSEL, {{1, 0}, {3, control}, {4, control}, {3, control}}, "be"},
        {"shift selects a range", LBS_EXTENDEDSEL, {{3, 0}, {1, shift}}, "bcd"},
        {"the range turns about its anchor",
         LBS_EXTENDEDSEL,
         {{2, 0}, {4, shift}, {0, shift}},
         "abc"},
        {"both add a range", LBS_EXTENDEDSEL, {{0, 0}, {3, control}, {4, shift | control}}, "ade"},
        {"nothing", LBS_NOSEL, {{1, 0}}, ""},
    };
    for (const ChoiceCase& test : cases) {
        SCOPED_TRACE(test.name);
        HWND list = List(test.style);
        for (const auto& [entry, modifiers] : test.clicks) input::Choose(list, entry, modifiers);
        EXPECT_EQ(Selected(list), test.selected);
        EXPECT_EQ(TakeLog().size(), test.style == LBS_NOSEL ? 0 : test.clicks.size());
        DestroyWindow(list);
    }
}

TEST_F(ListTest, SelectionMessagesFitTheKindOfTheList) {
    HWND single = List(0);
    EXPECT_EQ(Send(single, LB_SETCURSEL, 2), 2);
    EXPECT_EQ(Send(single, LB_SETSEL, TRUE, 1), LB_ERR);
    EXPECT_EQ(Send(single, LB_GETSELCOUNT), LB_ERR);
    EXPECT_EQ(Send(single, LB_SETCURSEL, static_cast<WPARAM>(-1)), LB_ERR);
    EXPECT_EQ(Send(single, LB_GETCURSEL), LB_ERR);
    DestroyWindow(single);
    HWND multi = List(LBS_EXTENDEDSEL);
    EXPECT_EQ(Send(multi, LB_SETCURSEL, 2), LB_ERR);
    Send(multi, LB_SETSEL, TRUE, -1);
    Send(multi, LB_SETSEL, FALSE, 1);
    int items[3] = {};
    EXPECT_EQ(Send(multi, LB_GETSELCOUNT), 4);
    EXPECT_EQ(Send(multi, LB_GETSELITEMS, 3, reinterpret_cast<LPARAM>(items)), 3);
    EXPECT_THAT(items, ElementsAre(0, 2, 3));
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(ListTest, KeysMoveTheSelection) {
    HWND list = List(LBS_EXTENDEDSEL);
    input::Choose(list, 1);
    input::Key(VK_DOWN, input::kShift);
    EXPECT_EQ(Selected(list), "bc");
    input::Key(VK_DOWN);
    EXPECT_EQ(Selected(list), "d");
    input::Type("a");
    EXPECT_EQ(Selected(list), "a");
    TakeLog();
    input::Key(VK_UP);
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(ListTest, ADoubleClickComesAfterItsSelection) {
    HWND list = List(0);
    RECT entry{};
    Send(list, LB_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&entry));
    const LPARAM point = MAKELPARAM(5, static_cast<unsigned>(entry.top + 2));
    Send(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
    Send(list, WM_LBUTTONDBLCLK, MK_LBUTTON, point);
    EXPECT_EQ(Selected(list), "c");
    EXPECT_THAT(TakeLog(), ElementsAre("4 LBN_SELCHANGE", "4 LBN_DBLCLK"));
}

TEST_F(ListTest, TabStopsAreKept) {
    HWND list = List(LBS_USETABSTOPS);
    const int stops[] = {64, 130};
    Send(list, LB_SETTABSTOPS, 2, reinterpret_cast<LPARAM>(stops));
    int read[2] = {};
    EXPECT_EQ(Send(list, KVM_GETTABSTOPS, 2, reinterpret_cast<LPARAM>(read)), 2);
    EXPECT_THAT(read, ElementsAre(64, 130));
}

}  // namespace
}  // namespace kv
