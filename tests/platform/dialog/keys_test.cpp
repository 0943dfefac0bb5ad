// The keyboard in dialogs: Tab order, groups, default button, Escape and mnemonic letters.
#include <platform/window/input.h>
#include <tests/platform/support/recorder.h>
#include <tests/platform/support/template_builder.h>

#include <cstring>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Lines commands;

INT_PTR LogCommands(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) return TRUE;
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        const Window* record = WindowFromHandle(dialog);
        commands.push_back(record->text + " " + std::to_string(LOWORD(wParam)));
    }
    return FALSE;
}

constexpr DWORD kRadio = BS_AUTORADIOBUTTON;

// Two edits, a page with a group of radio buttons, a check box, and three push buttons.
class DialogKeys : public RecorderTest {
 protected:
    DialogKeys() {
        commands.clear();
        TemplateBuilder frame(WS_POPUP | WS_VISIBLE, "frame");
        frame.Add("STATIC", "&Name", 9, WS_GROUP);
        frame.Add("EDIT", "abc", 10, WS_TABSTOP);
        frame.Add("EDIT", "", 11, WS_TABSTOP | WS_DISABLED);
        dialog = frame.Create(nullptr, LogCommands);
        TemplateBuilder inner(WS_CHILD | WS_VISIBLE | DS_CONTROL, "page");
        inner.Add("BUTTON", "&Side", 19, BS_GROUPBOX);
        inner.Add("BUTTON", "&Left", 20, kRadio | WS_GROUP | WS_TABSTOP);
        inner.Add("STATIC", "between", 29, 0);
        inner.Add("BUTTON", "&Top", 21, kRadio);
        inner.Add("BUTTON", "&Right", 22, kRadio | WS_DISABLED);
        inner.Add("BUTTON", "C&heck && go", 23, BS_AUTOCHECKBOX | WS_GROUP | WS_TABSTOP);
        inner.Add("BUTTON", "&More", 24, WS_TABSTOP);
        page = inner.Create(dialog, LogCommands);
        AddButton("OK", IDOK, BS_DEFPUSHBUTTON);
        AddButton("Cancel", IDCANCEL, BS_PUSHBUTTON);
        SendMessageA(dialog, DM_SETDEFID, IDOK, 0);
        CheckRadioButton(page, 20, 22, 20);
    }
    void AddButton(const char* text, int id, DWORD style) {
        CreateWindowExA(0, "BUTTON", text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 9, 9,
                        dialog, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr,
                        nullptr);
    }
    std::vector<int> PressRepeatedly(int key, unsigned modifiers, int times) {
        std::vector<int> ids;
        for (int i = 0; i < times; ++i) {
            input::Key(key, modifiers);
            ids.push_back(GetDlgCtrlID(GetFocus()));
        }
        return ids;
    }
    void FocusOn(HWND parent, int id) { input::Focus(GetDlgItem(parent, id)); }
    bool IsDefault(HWND parent, int id) {
        const Window* button = WindowFromHandle(GetDlgItem(parent, id));
        return (button->style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    }
    HWND dialog;
    HWND page;
};

TEST_F(DialogKeys, TabWalksThroughNestedPagesInBothDirections) {
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), 10) << "the first tab stop has the focus at the start";
    EXPECT_THAT(PressRepeatedly(VK_TAB, 0, 6), ElementsAre(20, 23, 24, IDOK, IDCANCEL, 10));
    EXPECT_THAT(PressRepeatedly(VK_TAB, input::kShift, 6),
                ElementsAre(IDCANCEL, IDOK, 24, 23, 20, 10));
    ShowWindow(page, SW_HIDE);
    EXPECT_THAT(PressRepeatedly(VK_TAB, 0, 3), ElementsAre(IDOK, IDCANCEL, 10));
    EXPECT_THAT(commands, IsEmpty());
}

TEST_F(DialogKeys, TabLeavesAControlThatWasDisabledMeanwhileInItsPlace) {
    FocusOn(page, 23);
    EXPECT_EQ(GetNextDlgTabItem(dialog, GetDlgItem(dialog, 11), FALSE), GetDlgItem(page, 20));
    EXPECT_EQ(GetNextDlgTabItem(dialog, GetDlgItem(dialog, 11), TRUE), GetDlgItem(dialog, 10));
    EnableWindow(GetDlgItem(page, 23), FALSE);
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_THAT(PressRepeatedly(VK_TAB, 0, 1), ElementsAre(10)) << "without a focus: the first";
}

TEST_F(DialogKeys, ArrowsChooseWithinTheGroupAndPassOverLabelsAndDisabledButtons) {
    FocusOn(page, 20);
    EXPECT_THAT(PressRepeatedly(VK_DOWN, 0, 2), ElementsAre(21, 20));
    EXPECT_THAT(PressRepeatedly(VK_LEFT, 0, 1), ElementsAre(21));
    EXPECT_EQ(IsDlgButtonChecked(page, 21), BST_CHECKED);
    EXPECT_EQ(IsDlgButtonChecked(page, 20), BST_UNCHECKED);
    EXPECT_THAT(commands, ElementsAre("page 21", "page 20", "page 21"));
    FocusOn(dialog, 10);
    EXPECT_THAT(PressRepeatedly(VK_RIGHT, 0, 1), ElementsAre(10)) << "an edit keeps its arrows";
}

TEST_F(DialogKeys, EnterPressesTheDefaultButtonThatFollowsTheFocus) {
    input::Key(VK_RETURN);
    FocusOn(page, 24);
    EXPECT_TRUE(IsDefault(page, 24));
    EXPECT_FALSE(IsDefault(dialog, IDOK));
    input::Key(VK_RETURN);
    FocusOn(page, 23);
    EXPECT_FALSE(IsDefault(page, 24));
    EXPECT_TRUE(IsDefault(dialog, IDOK)) << "the dialog's own button has the mark back";
    EXPECT_THAT(commands, ElementsAre("frame 1", "page 24"));
    SendMessageA(dialog, DM_SETDEFID, IDCANCEL, 0);
    EXPECT_TRUE(IsDefault(dialog, IDCANCEL));
    EnableWindow(GetDlgItem(dialog, IDCANCEL), FALSE);
    commands.clear();
    const int beeps = Headless().beeps;
    input::Key(VK_RETURN);
    input::Key(VK_ESCAPE);
    EXPECT_THAT(commands, IsEmpty()) << "a disabled button cannot be pressed";
    EXPECT_EQ(Headless().beeps, beeps + 2);
}

TEST_F(DialogKeys, EnterBeginsALineInEditsThatWantIt) {
    const struct {
        DWORD style;
        unsigned modifiers;
        const char* text;
    } edits[] = {
        {ES_MULTILINE | ES_WANTRETURN, 0, "a\r\nb"},
        {ES_MULTILINE, input::kControl, "a\r\nb"},
        {ES_MULTILINE, 0, "ab"},
        {ES_WANTRETURN, 0, "ab"},
    };
    for (const auto& row : edits) {
        commands.clear();
        const HWND edit = CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | row.style, 0, 0,
                                          60, 40, dialog, nullptr, nullptr, nullptr);
        input::Focus(edit);
        input::Type("a");
        input::Key(VK_RETURN, row.modifiers);
        input::Type("b");
        char text[16] = "";
        GetWindowTextA(edit, text, sizeof text);
        EXPECT_STREQ(text, row.text);
        EXPECT_EQ(commands.empty(), std::strlen(row.text) > 2);
        DestroyWindow(edit);
    }
}

TEST_F(DialogKeys, EscapeAndTheCloseBoxCancel) {
    input::Key(VK_ESCAPE);
    input::Close(dialog);
    input::Key(VK_F4, input::kAlt);
    DestroyWindow(GetDlgItem(dialog, IDCANCEL));
    input::Key(VK_ESCAPE);
    EXPECT_THAT(commands, ElementsAre("frame 2", "frame 2", "frame 2", "frame 2"));
}

TEST_F(DialogKeys, LettersLeadToControlsAndPressButtons) {
    struct Case {
        char letter;
        int focus;
        const char* command;  // null: none
    };
    const Case cases[] = {
        {'H', 23, "page 23"}, {'M', 24, "page 24"}, {'T', 21, "page 21"},
        {'N', 10, nullptr},   {'S', 21, nullptr},  // the box leads to the chosen button of its
                                                   // group
    };
    for (const Case& c : cases) {
        commands.clear();
        EXPECT_TRUE(input::Key(c.letter, input::kAlt));
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), c.focus) << c.letter;
        EXPECT_THAT(commands, c.command ? Lines{c.command} : Lines{}) << c.letter;
    }
    EXPECT_EQ(IsDlgButtonChecked(page, 23), BST_CHECKED);
    commands.clear();
    FocusOn(page, 24);
    input::Type("t");
    EXPECT_THAT(commands, ElementsAre("page 21")) << "a button does not want the letter itself";
    FocusOn(dialog, 10);
    commands.clear();
    input::Type("m");
    EXPECT_THAT(commands, IsEmpty()) << "an edit takes it as text";
    const int beeps = Headless().beeps;
    input::Key('R', input::kAlt);
    input::Key('Q', input::kAlt);
    EXPECT_EQ(Headless().beeps, beeps + 2) << "a disabled button's letter leads nowhere";
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), 10);
}

TEST_F(DialogKeys, SharedLetterOnlyWalksAmongItsControls) {
    SetDlgItemTextA(page, 24, "&Help me");
    FocusOn(dialog, 10);
    for (int expected : {23, 24, 23}) {
        input::Key('H', input::kAlt);
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), expected);
    }
    EXPECT_THAT(commands, IsEmpty());
}

TEST_F(DialogKeys, NextControlMessageMovesTheFocusForThePage) {
    FocusOn(page, 23);
    SendMessageA(page, WM_NEXTDLGCTL, 0, FALSE);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), 24);
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, IDCANCEL)),
                 TRUE);
    EXPECT_TRUE(IsDefault(dialog, IDCANCEL));
    ShowWindow(GetDlgItem(dialog, IDCANCEL), SW_HIDE);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), 10) << "a dialog hands its own focus to the first control";
}

}  // namespace
}  // namespace kv
