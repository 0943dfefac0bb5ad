// Dialog templates: both layouts, units and fonts, and damaged bytes.
#include <platform/dialog/create_dialog.h>
#include <platform/dialog/dialog_template.h>
#include <tests/platform/support/recorder.h>
#include <tests/platform/support/template_builder.h>

#include <random>

namespace kv {
namespace {

using Layout = TemplateBuilder::Layout;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DialogTemplate : public RecorderTest, public ::testing::WithParamInterface<Layout> {};

TemplateBuilder Sample(Layout layout) {
    TemplateBuilder sample(WS_POPUP | DS_SETFONT, "Title", 0, layout);
    sample.Add("EDIT", "text", 101, WS_TABSTOP, {4, 8, 44, 22}, WS_EX_CLIENTEDGE);
    sample.Add("Recorder", "custom", 102, 0, {0, 0, 5, 5}, 0, {1, 2, 3});
    sample.AddOrdinal(0x0080, 7, 103, BS_GROUPBOX);
    sample.Add("BUTTON", "OK", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP);
    return sample;
}

INT_PTR Ignore(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

TEST_P(DialogTemplate, ControlsComeOutAsTheTemplateSays) {
    const TemplateBuilder sample = Sample(GetParam());
    const HWND dialog = sample.Create(nullptr, Ignore);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(WindowFromHandle(dialog)->text, "Title");
    RECT rect{};
    GetWindowRect(dialog, &rect);
    EXPECT_EQ(rect.left, 15);
    EXPECT_EQ(rect.right - rect.left, 300);
    EXPECT_EQ(rect.bottom - rect.top, MulDiv(100, 13, 8));
    const Window& edit = *WindowFromHandle(GetDlgItem(dialog, 101));
    EXPECT_EQ(edit.rect.left, 6);
    EXPECT_EQ(edit.rect.top, 13);
    EXPECT_EQ(edit.rect.right, 66);
    EXPECT_EQ(edit.text, "text");
    EXPECT_TRUE((edit.exStyle & WS_EX_CLIENTEDGE) != 0);
    EXPECT_EQ(WindowFromHandle(GetDlgItem(dialog, 103))->text, "#7");
    EXPECT_EQ(KindOf(GetDlgItem(dialog, 103)), "button");
    const LRESULT font = SendMessageA(GetDlgItem(dialog, 101), WM_GETFONT, 0, 0);
    EXPECT_EQ(font, SendMessageA(dialog, WM_GETFONT, 0, 0));
    LOGFONTA described{};
    GetObjectA(reinterpret_cast<HGDIOBJ>(font), sizeof described, &described);
    EXPECT_STREQ(described.lfFaceName, "Liberation Sans");
    EXPECT_EQ(described.lfHeight, -12);
    EXPECT_EQ(described.lfWeight, GetParam() == Layout::kExtended ? FW_BOLD : 0);
    EXPECT_EQ(LOWORD(static_cast<WPARAM>(SendMessageA(dialog, DM_GETDEFID, 0, 0))), IDOK);
    DialogTemplateReader reader(sample.Bytes());
    DialogHeader header;
    DialogItem item;
    ASSERT_TRUE(reader.ReadHeader(header) && reader.ReadItem(item) && reader.ReadItem(item));
    EXPECT_THAT(item.creationData, ElementsAre(1, 2, 3));
}

TEST_P(DialogTemplate, CutShortAtAnyLengthIsRefusedAndLeavesNothing) {
    const std::vector<BYTE> whole = Sample(GetParam()).Bytes();
    for (size_t length = 0; length < whole.size(); ++length) {
        // An allocation of exactly this size, so that a checker sees a read past its end.
        const std::unique_ptr<BYTE[]> cut(new BYTE[length]);
        std::copy_n(whole.begin(), length, cut.get());
        DialogCreation creation;
        creation.bytes = {cut.get(), length};
        creation.procedure = Ignore;
        EXPECT_EQ(CreateDialogFrom(creation), nullptr) << length;
        EXPECT_EQ(RunDialog(creation), -1) << length;
    }
    EXPECT_THAT(TopLevelWindows(), IsEmpty());
}

TEST_P(DialogTemplate, DamagedBytesAreReadSafely) {
    const unsigned seed = 20240611;
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const std::vector<BYTE> whole = Sample(GetParam()).Bytes();
    for (int round = 0; round < 3000; ++round) {
        std::vector<BYTE> damaged(whole);
        for (int i = 0; i < 3; ++i)
            damaged[random() % damaged.size()] = static_cast<BYTE>(random());
        DialogCreation creation;
        creation.bytes = damaged;
        creation.procedure = Ignore;
        if (const HWND dialog = CreateDialogFrom(creation)) DestroyWindow(dialog);
    }
    EXPECT_THAT(TopLevelWindows(), IsEmpty());
}

TEST_P(DialogTemplate, UnknownControlClassFailsTheWholeDialog) {
    TemplateBuilder sample(WS_POPUP | WS_VISIBLE, "", 0, GetParam());
    sample.Add("Recorder", "custom", 1, 0).Add("NoSuchClass", "", 2, 0);
    EXPECT_EQ(sample.Create(nullptr, Ignore), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_CANNOT_FIND_WND_CLASS);
    EXPECT_THAT(TopLevelWindows(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Layouts, DialogTemplate,
                         ::testing::Values(Layout::kClassic, Layout::kExtended),
                         [](const auto& layout) {
                             return layout.param == Layout::kClassic ? "Classic" : "Extended";
                         });

TEST(DialogItems, NumbersInTextsAreReadWithinTheirRange) {
    TemplateBuilder sample(WS_POPUP);
    sample.Add("EDIT", "", 1, 0);
    const HWND dialog = sample.Create(nullptr, Ignore);
    struct Case {
        const char* text;
        BOOL isSigned;
        BOOL valid;
        UINT value;
    };
    const Case cases[] = {
        {"42", FALSE, TRUE, 42},
        {"  7 mm", FALSE, TRUE, 7},
        {"-5", TRUE, TRUE, static_cast<UINT>(-5)},
        {"-5", FALSE, FALSE, 0},
        {"", FALSE, FALSE, 0},
        {"mm", FALSE, FALSE, 0},
        {"4294967295", FALSE, TRUE, 0xFFFFFFFF},
        {"4294967296", FALSE, FALSE, 0},
        {"-2147483648", TRUE, TRUE, 0x80000000},
        {"2147483648", TRUE, FALSE, 0},
        {"99999999999999999999999", FALSE, FALSE, 0},
    };
    for (const Case& c : cases) {
        SetDlgItemTextA(dialog, 1, c.text);
        BOOL valid = 5;
        EXPECT_EQ(GetDlgItemInt(dialog, 1, &valid, c.isSigned), c.value) << c.text;
        EXPECT_EQ(valid, c.valid) << c.text;
    }
    SetDlgItemInt(dialog, 1, static_cast<UINT>(-3), TRUE);
    char text[4];
    EXPECT_EQ(GetDlgItemTextA(dialog, 1, text, sizeof text), 2u);
    EXPECT_STREQ(text, "-3");
    text[0] = 'x';
    EXPECT_EQ(GetDlgItemTextA(dialog, 99, text, sizeof text), 0u);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(GetLastError(), ERROR_CONTROL_ID_NOT_FOUND);
    RECT units{4, 8, 8, 16};
    EXPECT_TRUE(MapDialogRect(dialog, &units));
    EXPECT_EQ(units.right, 12);
    EXPECT_EQ(units.bottom, 26);
    EXPECT_FALSE(MapDialogRect(GetDlgItem(dialog, 1), &units));
    DestroyWindow(dialog);
}

}  // namespace
}  // namespace kv
