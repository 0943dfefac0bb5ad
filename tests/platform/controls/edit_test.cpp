// Edits: notifications of typing and of programs, limits, selection, and handlers that replace the
// text they are told about.
#include "control_fixture.h"

#include <platform/controls/control_input.h>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EditTest : public ControlTest {
 protected:
    HWND Focused(DWORD style, const char* text = "") {
        HWND edit = Add("EDIT", style, 7, text);
        SetFocus(edit);
        Send(edit, EM_SETSEL, 1000, 1000);
        TakeLog();
        return edit;
    }
    static std::pair<int, int> Selection(HWND edit) {
        const LRESULT both = Send(edit, EM_GETSEL);
        return {LOWORD(both), HIWORD(both)};
    }
};

TEST_F(EditTest, TypingAndProgramsBothReportUpdateThenChange) {
    HWND edit = Focused(0);
    input::Type("5");
    EXPECT_THAT(TakeLog(), ElementsAre("7 EN_UPDATE", "7 EN_CHANGE"));
    EXPECT_NE(Send(edit, EM_GETMODIFY), 0);
    // A program is told even when it sets the same text again.
    SetWindowTextA(edit, "5");
    EXPECT_THAT(TakeLog(), ElementsAre("7 EN_UPDATE", "7 EN_CHANGE"));
    EXPECT_EQ(Send(edit, EM_GETMODIFY), 0);
    HWND lines = Add("EDIT", ES_MULTILINE, 8);
    SetWindowTextA(lines, "text");
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(EditTest, AHandlerOfUpdateMayReplaceTheText) {
    HWND edit = Focused(0, "15");
    int depth = 0;
    At(EN_UPDATE, [&] {
        if (Text(edit) != "150" || ++depth > 1) return;
        SetWindowTextA(edit, "100");
        Send(edit, EM_SETSEL, 3, 3);
    });
    input::Type("0");
    EXPECT_EQ(Text(edit), "100");
    EXPECT_THAT(TakeLog(), ElementsAre("7 EN_UPDATE", "7 EN_UPDATE", "7 EN_CHANGE", "7 EN_CHANGE"));
    EXPECT_EQ(Selection(edit), std::make_pair(3, 3));
}

TEST_F(EditTest, AHandlerMayDestroyTheEdit) {
    HWND edit = Focused(0);
    At(EN_UPDATE, [&] { DestroyWindow(edit); });
    input::Type("1");
    EXPECT_FALSE(IsWindow(edit));
}

struct KeyCase {
    const char* name;
    DWORD style;
    const char* before;
    int selectionStart, selectionEnd;
    std::function<void()> act;
    const char* after;
    int start, end;
};

TEST_F(EditTest, KeysEditTheText) {
    using input::Key;
    const KeyCase cases[] = {
        {"type over", 0, "abcd", 1, 3, [] { input::Type("X"); }, "aXd", 2, 2},
        {"backspace", 0, "abcd", 2, 2, [] { Key(VK_BACK); }, "acd", 1, 1},
        {"backspace selection", 0, "abcd", 1, 3, [] { Key(VK_BACK); }, "ad", 1, 1},
        {"backspace at start", 0, "ab", 0, 0, [] { Key(VK_BACK); }, "ab", 0, 0},
        {"delete", 0, "abcd", 2, 2, [] { Key(VK_DELETE); }, "abd", 2, 2},
        {"delete at end", 0, "ab", 2, 2, [] { Key(VK_DELETE); }, "ab", 2, 2},
        {"shift left", 0, "abcd", 2, 2, [] { Key(VK_LEFT, input::kShift); }, "abcd", 1, 2},
        {"home", 0, "abcd", 1, 3, [] { Key(VK_HOME); }, "abcd", 0, 0},
        {"shift end", 0, "abcd", 1, 1, [] { Key(VK_END, input::kShift); }, "abcd", 1, 4},
        {"all", 0, "abcd", 2, 2, [] { Key('A', input::kControl); }, "abcd", 0, 4},
        {"word", 0, "one two", 7, 7, [] { Key(VK_LEFT, input::kControl); }, "one two", 4, 4},
        {"digits only", ES_NUMBER, "1", 1, 1, [] { input::Type("a2."); }, "12", 2, 2},
        {"read-only", ES_READONLY, "ab", 2, 2, [] { input::Type("c"); }, "ab", 2, 2},
        {"line up", ES_MULTILINE, "abc\r\nde", 7, 7, [] { Key(VK_UP); }, "abc\r\nde", 2, 2},
        {"line end", ES_MULTILINE, "abc\r\nde", 5, 5, [] { Key(VK_BACK); }, "abcde", 3, 3},
    };
    for (const KeyCase& test : cases) {
        SCOPED_TRACE(test.name);
        HWND edit = Focused(test.style, test.before);
        Send(edit, EM_SETSEL, static_cast<WPARAM>(test.selectionStart), test.selectionEnd);
        test.act();
        EXPECT_EQ(Text(edit), test.after);
        EXPECT_EQ(Selection(edit), std::make_pair(test.start, test.end));
        DestroyWindow(edit);
    }
}

TEST_F(EditTest, TheLimitStopsUsersButNotPrograms) {
    HWND edit = Focused(0, "12");
    Send(edit, EM_SETLIMITTEXT, 3);
    input::Type("345");
    EXPECT_EQ(Text(edit), "123");
    EXPECT_THAT(TakeLog(),
                ElementsAre("7 EN_UPDATE", "7 EN_CHANGE", "7 EN_MAXTEXT", "7 EN_MAXTEXT"));
    Send(edit, EM_SETSEL, 0, -1);
    SendText(edit, EM_REPLACESEL, TRUE, "98765");
    EXPECT_EQ(Text(edit), "987");
    EXPECT_THAT(TakeLog(), ElementsAre("7 EN_UPDATE", "7 EN_CHANGE", "7 EN_MAXTEXT"));
    SetWindowTextA(edit, "long text");
    EXPECT_EQ(Text(edit), "long text");
}

TEST_F(EditTest, AWholeTextFromTheUserIsCheckedAndCorrected) {
    HWND edit = Focused(ES_NUMBER, "12");
    Send(edit, EM_SETLIMITTEXT, 4);
    CountingDisplay display(edit);
    // Nothing changes here, but the display's own field now shows a letter.
    EXPECT_TRUE(input::SetEditText(edit, "12x", 3, 3));
    EXPECT_FALSE(display.heard.empty());
    EXPECT_THAT(TakeLog(), IsEmpty());
    EXPECT_TRUE(input::SetEditText(edit, "123456", 6, 6));
    EXPECT_EQ(Text(edit), "1234");
    EXPECT_THAT(TakeLog(), ElementsAre("7 EN_UPDATE", "7 EN_CHANGE", "7 EN_MAXTEXT"));
    Send(edit, EM_SETREADONLY, TRUE);
    const UserText text{"9", 1, 1};
    EXPECT_EQ(Send(edit, KVM_USERTEXT, 0, reinterpret_cast<LPARAM>(&text)), 0);
    EXPECT_EQ(Text(edit), "1234");
}

TEST_F(EditTest, FocusChangesAreReportedInOrder) {
    HWND first = Add("EDIT", 0, 1);
    HWND second = Add("EDIT", 0, 2);
    SetFocus(first);
    TakeLog();
    input::Click(second);
    EXPECT_THAT(TakeLog(), ElementsAre("1 EN_KILLFOCUS", "2 EN_SETFOCUS"));
}

TEST_F(EditTest, TheDisplayHearsOnlyOfRealChanges) {
    HWND edit = Focused(0, "5");
    Send(edit, EM_SETSEL, 0, 0);
    CountingDisplay display(edit);
    SetWindowTextA(edit, "5");
    Send(edit, EM_SETSEL, 0, 0);
    Send(edit, EM_SETREADONLY, FALSE);
    EXPECT_THAT(display.heard, IsEmpty());
    SetWindowTextA(edit, "6");
    EXPECT_THAT(display.heard, ElementsAre(kChangedText));
    // A new text puts the caret in front, and so does the same text.
    Send(edit, EM_SETSEL, 1, 1);
    display.heard.clear();
    SetWindowTextA(edit, "6");
    EXPECT_THAT(display.heard, ElementsAre(kChangedSelection));
}

}  // namespace
}  // namespace kv
