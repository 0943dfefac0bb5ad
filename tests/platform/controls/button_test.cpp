// Buttons: what clicks and keys do, and how radio buttons of a group exclude each other.
#include "control_fixture.h"

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ButtonTest : public ControlTest {
 protected:
    std::string Checks(int first, int last) {
        std::string checks;
        for (int id = first; id <= last; ++id) {
            checks += SendDlgItemMessageA(parent, id, BM_GETCHECK, 0, 0) ? '1' : '0';
        }
        return checks;
    }
};

TEST_F(ButtonTest, ClickingARadioButtonClearsOnlyItsGroup) {
    for (int id = 1; id <= 6; ++id) {
        Add("BUTTON", BS_AUTORADIOBUTTON | (id == 1 || id == 4 ? WS_GROUP : 0u), id);
    }
    for (int id : {1, 4}) input::Click(GetDlgItem(parent, id));
    EXPECT_EQ(Checks(1, 6), "100100");
    TakeLog();
    input::Click(GetDlgItem(parent, 3));
    EXPECT_EQ(Checks(1, 6), "001100");
    EXPECT_THAT(TakeLog(), ElementsAre("3 BN_CLICKED"));
    // Tab stops at the checked button of a group.
    EXPECT_NE(GetWindowLongPtrA(GetDlgItem(parent, 3), GWL_STYLE) & WS_TABSTOP, 0);
    EXPECT_EQ(GetWindowLongPtrA(GetDlgItem(parent, 1), GWL_STYLE) & WS_TABSTOP, 0);
}

TEST_F(ButtonTest, ARadioButtonIsCheckedWhenItsClickIsReported) {
    Add("BUTTON", BS_AUTORADIOBUTTON | WS_GROUP, 1);
    HWND second = Add("BUTTON", BS_AUTORADIOBUTTON, 2);
    std::string seen;
    At(BN_CLICKED, [&] { seen = Checks(1, 2); });
    input::Click(second);
    EXPECT_EQ(seen, "01");
}

TEST_F(ButtonTest, OnlyAutomaticCheckBoxesToggleThemselves) {
    HWND automatic = Add("BUTTON", BS_AUTOCHECKBOX, 1);
    HWND manual = Add("BUTTON", BS_CHECKBOX, 2);
    HWND push = Add("BUTTON", BS_PUSHBUTTON, 3);
    for (HWND button : {automatic, manual, push}) input::Click(button);
    Send(push, BM_SETCHECK, BST_CHECKED);
    EXPECT_EQ(Checks(1, 3), "100");
    input::Click(automatic);
    EXPECT_EQ(Checks(1, 1), "0");
    EXPECT_THAT(TakeLog(),
                ElementsAre("1 BN_CLICKED", "2 BN_CLICKED", "3 BN_CLICKED", "1 BN_CLICKED"));
}

TEST_F(ButtonTest, APressIsAClickOnlyWhenItEndsInside) {
    HWND button = Add("BUTTON", BS_PUSHBUTTON, 1);
    Send(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    Send(button, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(500, 5));
    EXPECT_EQ(Send(button, BM_GETSTATE) & 0x4, 0);
    Send(button, WM_LBUTTONUP, 0, MAKELPARAM(500, 5));
    EXPECT_THAT(TakeLog(), IsEmpty());
    Send(button, WM_KEYDOWN, VK_SPACE);
    EXPECT_THAT(TakeLog(), IsEmpty());
    Send(button, WM_KEYUP, VK_SPACE);
    Send(button, WM_KEYUP, VK_SPACE);
    EXPECT_THAT(TakeLog(), ElementsAre("1 BN_CLICKED"));
}

TEST_F(ButtonTest, KeyCodesTellTheDialogManagerTheKind) {
    const struct {
        DWORD style;
        LRESULT code;
    } kinds[] = {
        {BS_PUSHBUTTON, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON},
        {BS_DEFPUSHBUTTON, DLGC_BUTTON | DLGC_DEFPUSHBUTTON},
        {BS_AUTOCHECKBOX, DLGC_BUTTON},
        {BS_AUTORADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON},
        {BS_GROUPBOX, DLGC_STATIC},
    };
    HWND button = Add("BUTTON", BS_MULTILINE, 1);
    for (const auto& kind : kinds) {
        Send(button, BM_SETSTYLE, kind.style, TRUE);
        EXPECT_EQ(Send(button, WM_GETDLGCODE), kind.code) << kind.style;
    }
    EXPECT_NE(GetWindowLongPtrA(button, GWL_STYLE) & BS_MULTILINE, 0);
}

TEST_F(ButtonTest, AHandlerMayDestroyTheButton) {
    HWND button = Add("BUTTON", BS_AUTOCHECKBOX, 1);
    At(BN_CLICKED, [&] { DestroyWindow(button); });
    input::Click(button);
    EXPECT_FALSE(IsWindow(button));
}

TEST_F(ButtonTest, APictureControlAnswersOnlyForItsOwnKindOfPicture) {
    HWND icon = Add("STATIC", SS_ICON | SS_NOTIFY, 1);
    const auto picture = reinterpret_cast<WPARAM>(LoadIconA(nullptr, IDC_ARROW));
    HBITMAP bitmap = CreateBitmap(40, 20, 1, 1, nullptr);
    EXPECT_EQ(Send(icon, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)), 0);
    EXPECT_EQ(Send(icon, STM_GETIMAGE, IMAGE_BITMAP), 0);
    EXPECT_EQ(Send(icon, STM_SETICON, picture), 0);
    EXPECT_EQ(Send(icon, STM_GETICON), static_cast<LRESULT>(picture));
    HWND frame = Add("STATIC", SS_BITMAP, 2);
    Send(frame, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap));
    RECT size{};
    GetClientRect(frame, &size);
    EXPECT_EQ(size.right, 40);
    EXPECT_EQ(size.bottom, 20);
    input::Click(icon);
    EXPECT_THAT(TakeLog(), ElementsAre("1 STN_CLICKED"));
    DeleteObject(bitmap);
}

}  // namespace
}  // namespace kv
