// Message boxes: which button Enter presses, and captions of their own.
#include <platform/dialog/message_box.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>

#include <gtest/gtest.h>

namespace kv {
namespace {

TEST(MessageBoxTest, EnterPressesTheDefaultButtonAndCaptionsMayBeTheCallers) {
    const struct {
        UINT type;
        int answer;
    } rows[] = {
        {MB_YESNOCANCEL, IDYES},
        {MB_YESNOCANCEL | MB_DEFBUTTON2, IDNO},
        {MB_YESNOCANCEL | MB_DEFBUTTON3, IDCANCEL},
        {MB_YESNO | MB_DEFBUTTON3, IDYES},
    };
    for (const auto& row : rows) {
        std::string caption;
        Headless().PushAnswer([&](HWND box) {
            char text[32] = "";
            GetDlgItemTextA(box, IDNO, text, sizeof text);
            caption = text;
            input::Key(VK_RETURN);
        });
        EXPECT_EQ(AskWithButtons(nullptr, "Which?", "Test", row.type, {{IDNO, "&Never"}}),
                  row.answer);
        EXPECT_EQ(caption, "&Never");
    }
}

}  // namespace
}  // namespace kv
