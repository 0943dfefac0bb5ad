// Modal dialogs and message boxes under the headless display.
#include <platform/dialog/create_dialog.h>
#include <platform/dialog/message_box.h>
#include <platform/window/input.h>
#include <tests/platform/support/recorder.h>
#include <tests/platform/support/template_builder.h>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// Ends with the number of the button; opens another dialog for button 50.
INT_PTR EndByButton(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

INT_PTR RunSample(HWND owner, const char* title, DLGPROC procedure = EndByButton,
                  LPARAM param = 0) {
    TemplateBuilder sample(WS_POPUP | WS_CAPTION, title);
    sample.Add("BUTTON", "OK", IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON);
    sample.Add("BUTTON", "More", 50, WS_TABSTOP);
    DialogCreation creation;
    creation.bytes = sample.Bytes();
    creation.owner = owner;
    creation.procedure = procedure;
    creation.initParam = param;
    return RunDialog(creation);
}

INT_PTR EndByButton(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) return TRUE;
    if (message != WM_COMMAND) return FALSE;
    if (LOWORD(wParam) != 50) return EndDialog(dialog, LOWORD(wParam));
    SetPropA(dialog, "inner", reinterpret_cast<HANDLE>(RunSample(dialog, "inner")));
    return TRUE;
}

class ModalDialog : public RecorderTest {
 protected:
    ModalDialog() {
        Headless().OnUnanswered([this](const std::string& name) { unanswered.push_back(name); });
        Headless().shown.clear();
        SetFocus(edit);
        TakeLog();
    }
    ~ModalDialog() override {
        EXPECT_EQ(Headless().PendingAnswers(), 0u);
        EXPECT_EQ(CurrentModalWindow(), nullptr);
        Headless().SetPolicy(nullptr);
        Headless().OnUnanswered(nullptr);
    }
    static HeadlessDisplay::Answer Press(int id) {
        return [id](HWND dialog) { EXPECT_TRUE(input::Click(GetDlgItem(dialog, id))); };
    }
    HWND owner = TopLevel("owner");
    HWND page = Child(owner, "page");
    HWND edit = Child(page, "edit");
    Lines unanswered;
};

TEST_F(ModalDialog, OwnerIsDisabledMeanwhileAndGetsItsFocusBack) {
    Headless().PushAnswer([&](HWND dialog) {
        EXPECT_FALSE(IsWindowEnabled(owner));
        EXPECT_FALSE(input::Click(edit)) << "the dialog stands before it";
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDOK);
        EXPECT_EQ(CurrentModalWindow(), dialog);
        const HWND stranger = TopLevel("stranger", 0);
        ShowWindow(stranger, SW_SHOW);
        EXPECT_FALSE(input::CanReach(stranger));
        DestroyWindow(stranger);
        TakeLog();
        Press(IDOK)(dialog);
    });
    EXPECT_EQ(RunSample(page, "sample"), IDOK);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(GetActiveWindow(), owner);
    EXPECT_THAT(TakeLog(), ElementsAre("owner enable 1", "edit setfocus"));
    EXPECT_THAT(Headless().shown, ElementsAre("dialog \"sample\""));
}

TEST_F(ModalDialog, AnswersMayOpenFurtherDialogs) {
    Headless().PushAnswer([&](HWND dialog) {
        Press(50)(dialog);
        EXPECT_EQ(GetPropA(dialog, "inner"), reinterpret_cast<HANDLE>(IDOK));
        EXPECT_TRUE(input::CanReach(dialog)) << "the inner dialog gave it back";
        EXPECT_FALSE(IsWindowEnabled(owner));
        Press(IDOK)(dialog);
    });
    Headless().PushAnswer(Press(IDOK));
    EXPECT_EQ(RunSample(owner, "outer"), IDOK);
    EXPECT_THAT(Headless().shown, ElementsAre("dialog \"outer\"", "dialog \"inner\""));
    EXPECT_THAT(unanswered, IsEmpty());
}

TEST_F(ModalDialog, UnansweredDialogsAreNamedAndEndWithMinusOne) {
    EXPECT_EQ(RunSample(owner, "forgotten"), -1);
    Headless().PushAnswer([](HWND) {});
    EXPECT_EQ(RunSample(owner, "left open"), -1);
    EXPECT_EQ(MessageBoxA(owner, "Really?", "Question", MB_YESNO), 0);
    EXPECT_THAT(unanswered, ElementsAre("dialog \"forgotten\"", "dialog \"left open\"",
                                        "dialog \"Question\": Really?"));
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_THAT(TopLevelWindows(), ElementsAre(owner));
}

TEST_F(ModalDialog, UnansweredDialogEndsTheProcessWithAnErrorThatNamesIt) {
    Headless().OnUnanswered(nullptr);
    EXPECT_EXIT(MessageBoxA(owner, "Lost changes", "Notice", MB_OK), ::testing::ExitedWithCode(1),
                "nobody answers dialog \"Notice\": Lost changes");
}

TEST_F(ModalDialog, PolicyAnswersWhatNoScriptDoes) {
    int asked = 0;
    Headless().SetPolicy([&](HWND dialog) {
        ++asked;
        Press(IDOK)(dialog);
    });
    Headless().PushAnswer(Press(IDOK));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(RunSample(owner, "sample"), IDOK);
    EXPECT_EQ(asked, 2);
}

TEST_F(ModalDialog, EndedWhileStartingItIsNeverShown) {
    const auto endAtOnce = [](HWND dialog, UINT message, WPARAM, LPARAM param) -> INT_PTR {
        if (message == WM_INITDIALOG) EndDialog(dialog, param);
        return message == WM_INITDIALOG;
    };
    EXPECT_EQ(RunSample(owner, "brief", endAtOnce, 77), 77);
    EXPECT_THAT(Headless().shown, IsEmpty());
    const auto destroyAtOnce = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) DestroyWindow(dialog);
        return FALSE;
    };
    EXPECT_EQ(RunSample(owner, "gone", destroyAtOnce), -1);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetFocus(), edit);
}

TEST_F(ModalDialog, DestroyedOrQuitWhileOpenItGivesTheOwnerBack) {
    Headless().PushAnswer([](HWND dialog) { DestroyWindow(dialog); });
    EXPECT_EQ(RunSample(owner, "destroyed"), -1);
    EXPECT_TRUE(IsWindowEnabled(owner));
    Headless().PushAnswer([](HWND) { PostQuitMessage(3); });
    EXPECT_EQ(RunSample(owner, "quit"), -1);
    EXPECT_TRUE(IsWindowEnabled(owner));
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) << "outer loops end, too";
    EXPECT_EQ(message.message, WM_QUIT);
    Headless().PushAnswer([&](HWND) { DestroyWindow(owner); });
    EXPECT_EQ(RunSample(owner, "owner destroyed"), -1);
}

TEST_F(ModalDialog, OwnerDisabledBeforeStaysDisabled) {
    EnableWindow(owner, FALSE);
    Headless().PushAnswer(Press(IDOK));
    EXPECT_EQ(RunSample(owner, "sample"), IDOK);
    EXPECT_FALSE(IsWindowEnabled(owner));
}

TEST_F(ModalDialog, MessageBoxesAnswerByButtonEscapeAndCloseBox) {
    struct Case {
        UINT type;
        std::vector<int> buttons;
        int escape;  // 0: Escape does nothing
    };
    const Case cases[] = {
        {MB_OK, {IDOK}, IDOK},
        {MB_OKCANCEL, {IDOK, IDCANCEL}, IDCANCEL},
        {MB_YESNO | MB_ICONQUESTION, {IDYES, IDNO}, 0},
        {MB_YESNOCANCEL | MB_ICONWARNING, {IDYES, IDNO, IDCANCEL}, IDCANCEL},
    };
    for (const Case& c : cases) {
        for (int id : c.buttons) {
            Headless().PushAnswer(Press(id));
            EXPECT_EQ(MessageBoxA(owner, "text", "caption", c.type), id);
        }
        Headless().PushAnswer([&](HWND box) {
            UINT type = 0;
            EXPECT_TRUE(GetMessageBoxType(box, &type));
            EXPECT_EQ(type, c.type);
            EXPECT_EQ(GetDlgItem(box, 20) != nullptr, (c.type & MB_ICONMASK) != 0);
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), c.buttons[0]);
            input::Key(VK_ESCAPE);
            if (c.escape) return;
            input::Close(box);
            EXPECT_TRUE(IsWindowVisible(box));
            input::Key('N', input::kAlt);
        });
        EXPECT_EQ(MessageBoxA(owner, "text", "caption", c.type), c.escape ? c.escape : IDNO);
    }
}

TEST_F(ModalDialog, EnterPressesTheBoxesDefaultButtonAndCaptionsMayBeTheCallers) {
    const std::pair<UINT, int> rows[] = {
        {MB_YESNOCANCEL, IDYES},
        {MB_YESNOCANCEL | MB_DEFBUTTON2, IDNO},
        {MB_YESNOCANCEL | MB_DEFBUTTON3, IDCANCEL},
        {MB_YESNO | MB_DEFBUTTON3, IDYES},
    };
    for (const auto& [type, answer] : rows) {
        char caption[32] = "";
        Headless().PushAnswer([&](HWND box) {
            GetDlgItemTextA(box, IDNO, caption, sizeof caption);
            input::Key(VK_RETURN);
        });
        EXPECT_EQ(AskWithButtons(nullptr, "Which?", "Test", type, {{IDNO, "&Never"}}), answer);
        EXPECT_STREQ(caption, "&Never");
    }
}

TEST_F(ModalDialog, MessageBoxGrowsWithItsTextAndReadsRightToLeft) {
    RECT small{};
    RECT large{};
    Headless().PushAnswer([&](HWND box) {
        GetClientRect(box, &small);
        EXPECT_EQ(GetWindowLongPtrA(box, GWL_EXSTYLE) & WS_EX_RTLREADING, 0);
        Press(IDOK)(box);
    });
    MessageBoxA(owner, "short", "caption", MB_OK);
    Headless().PushAnswer([&](HWND box) {
        GetClientRect(box, &large);
        EXPECT_NE(GetWindowLongPtrA(box, GWL_EXSTYLE) & WS_EX_RTLREADING, 0);
        const Window& text = *WindowFromHandle(GetDlgItem(box, 0xFFFF));
        EXPECT_LE(text.rect.right, large.right);
        EXPECT_LE(text.rect.bottom, WindowFromHandle(GetDlgItem(box, IDOK))->rect.top);
        Press(IDOK)(box);
    });
    const std::string lines = std::string(300, 'w') + "\nsecond\nthird " + std::string(90, 'x');
    MessageBoxA(owner, lines.c_str(), "caption", MB_OK | MB_RTLREADING);
    EXPECT_GT(large.right, small.right);
    EXPECT_GT(large.bottom, small.bottom);
}

TEST_F(ModalDialog, ResultsComeFromTheMessageResultExceptForColoursAndStart) {
    const auto procedure = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, 1234);
        return message == WM_CTLCOLORSTATIC ? 55 : message == WM_USER;
    };
    TemplateBuilder sample(WS_POPUP, "words");
    const HWND dialog = sample.Create(owner, procedure);
    EXPECT_EQ(SendMessageA(dialog, WM_USER, 0, 0), 1234);
    EXPECT_EQ(SendMessageA(dialog, WM_CTLCOLORSTATIC, 0, 0), 55);
    EXPECT_EQ(SendMessageA(dialog, WM_USER + 9, 0, 0), 0) << "not handled, so the default answers";
    SetWindowLongPtrA(dialog, DWLP_USER, 9);
    EXPECT_EQ(GetWindowLongPtrA(dialog, DWLP_USER), 9);
    EXPECT_EQ(GetWindowLongPtrA(dialog, DWLP_DLGPROC),
              reinterpret_cast<LONG_PTR>(static_cast<DLGPROC>(procedure)));
    SetLastError(ERROR_SUCCESS);
    EXPECT_FALSE(EndDialog(owner, 1)) << "not a dialog";
    EXPECT_NE(GetLastError(), ERROR_SUCCESS);
}

}  // namespace
}  // namespace kv
