// The input layer: what a person can reach, and what one action sends.
#include <platform/window/input.h>
#include <tests/platform/support/recorder.h>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UserInput : public RecorderTest {
 protected:
    UserInput() {
        SetFocus(child);
        TakeLog();
    }
    HWND top = TopLevel("top");
    HWND page = Child(top, "page");
    HWND child = Child(page, "child");
};

TEST_F(UserInput, NothingReachesWindowsThatAPersonCannotReach) {
    const std::pair<const char*, std::function<void(bool)>> obstacles[] = {
        {"hidden", [&](bool on) { ShowWindow(child, on ? SW_HIDE : SW_SHOW); }},
        {"parent hidden", [&](bool on) { ShowWindow(page, on ? SW_HIDE : SW_SHOW); }},
        {"disabled", [&](bool on) { EnableWindow(child, !on); }},
        {"root disabled", [&](bool on) { EnableWindow(top, !on); }},
    };
    for (const auto& [name, set] : obstacles) {
        set(true);
        TakeLog();
        EXPECT_FALSE(input::Click(child)) << name;
        EXPECT_FALSE(input::RightClick(child)) << name;
        EXPECT_FALSE(input::MoveTo(child, {1, 1})) << name;
        EXPECT_FALSE(input::Focus(child)) << name;
        EXPECT_THAT(TakeLog(), IsEmpty()) << name;
        set(false);
        EXPECT_TRUE(input::CanReach(child)) << name;
    }
    SetFocus(child);
    EnableWindow(top, FALSE);
    TakeLog();
    EXPECT_FALSE(input::Key(VK_SPACE));
    EXPECT_FALSE(input::Type("x"));
    EXPECT_FALSE(input::Close(top));
    EXPECT_THAT(TakeLog(), IsEmpty());
    DestroyWindow(top);
    EXPECT_FALSE(input::Click(child));
    EXPECT_FALSE(input::Key(VK_SPACE));
}

TEST_F(UserInput, ClicksFallThroughLabelsToTheirParent) {
    const HWND label = CreateWindowExA(0, "STATIC", "label", WS_CHILD | WS_VISIBLE, 30, 5, 20, 10,
                                       page, nullptr, nullptr, nullptr);
    WPARAM keys = 0;
    hook = [&](HWND window, UINT message) {
        if (window == page && message == WM_LBUTTONDOWN) keys = input::CurrentModifiers();
    };
    EXPECT_TRUE(input::ClickAt(label, {3, 4}, input::kShift));
    EXPECT_THAT(TakeLog(), ElementsAre("page down", "page up"));
    EXPECT_EQ(keys, input::kShift);
    EXPECT_EQ(GetKeyState(VK_SHIFT), 0) << "the key is up again";
}

TEST_F(UserInput, RestOfAClickIsDroppedWhenItsTargetGoesAway) {
    hook = [&](HWND window, UINT message) {
        if (window == child && message == WM_LBUTTONDOWN) ShowWindow(child, SW_HIDE);
    };
    EXPECT_TRUE(input::DoubleClick(child));
    EXPECT_THAT(TakeLog(),
                ElementsAre("child down", "child show 0", "child killfocus", "page setfocus"));
}

TEST_F(UserInput, TypingSendsKeysAndTheirCharactersToTheFocus) {
    input::Type("aB.");
    EXPECT_THAT(TakeLog(), ElementsAre("child key", "child char a", "child keyup", "child key",
                                       "child char B", "child keyup", "child char ."));
    EXPECT_TRUE(input::Key(VK_F1));
    EXPECT_THAT(TakeLog(), ElementsAre("child help", "page help", "top help", "child keyup"));
    EXPECT_TRUE(input::RightClick(child));
    EXPECT_THAT(TakeLog(), ElementsAre("child menu", "page menu", "top menu"));
}

TEST_F(UserInput, CompositeActionsRefuseOtherKindsOfControls) {
    EXPECT_FALSE(input::Choose(child, 0));
    EXPECT_FALSE(input::SetEditText(child, "a", 0, 0));
    EXPECT_FALSE(input::DropDown(child, true));
    EXPECT_FALSE(input::DragTo(child, 5));
    EXPECT_FALSE(input::Step(child, 1));
    EXPECT_FALSE(input::SelectPage(top, 0));
    EXPECT_THAT(TakeLog(), IsEmpty());
    EXPECT_TRUE(input::Close(child));
    EXPECT_FALSE(IsWindow(top));
}

TEST_F(UserInput, LeavingAnEditThatDisablesTheNextControlCancelsTheChoice) {
    const HWND combo = CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST,
                                       0, 0, 50, 50, page, nullptr, nullptr, nullptr);
    SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("entry"));
    hook = [&](HWND window, UINT message) {
        if (window == child && message == WM_KILLFOCUS) EnableWindow(combo, FALSE);
    };
    EXPECT_FALSE(input::Choose(combo, 0));
    EXPECT_EQ(SendMessageA(combo, CB_GETCURSEL, 0, 0), CB_ERR);
}

}  // namespace
}  // namespace kv
