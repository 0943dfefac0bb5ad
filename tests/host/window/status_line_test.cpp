// What the status line says after each choice in the real sheet.
#include "printer_fixture.h"

#include <gmock/gmock.h>
#include <host/index/setting_names.h>
#include <platform/controls/property_sheet.h>
#include <platform/display/disabled_reason.h>
#include <platform/security/access.h>

#include <functional>

namespace kvhost {
namespace {

using testing::ElementsAre;

enum Page { kBasic, kLayout, kDevice = 5 };
constexpr int kOptions = 4015, kInstalledState = 4014;
constexpr int kNup = 1410, kDetails = 1430, kOrder = 1418, kMedia = 1141, kZoom = 2009;
constexpr int kPortrait = 2026, kLandscape = 2027, kDefaults = 12, kResolve = 9416;

class StatusLineTest : public PrinterTest {
 protected:
    // Works an open window; answers what its status line says after each step.
    static std::vector<std::string> After(std::vector<std::function<void(HWND)>> steps) {
        std::vector<std::string> lines;
        Next([&](HWND sheet) {
            for (const auto& step : steps) {
                step(sheet);
                lines.push_back(kv::Headless().status);
            }
            Press(sheet, IDCANCEL);
        });
        EXPECT_EQ(Open(), kDone);
        return lines;
    }
};

TEST_F(StatusLineTest, AChoiceTellsWhatElseItChanged) {
    const char* const kBooklet = "Booklet also set: 2-Sided Printing";
    const auto lines = After({
        [](HWND sheet) { Choose(sheet, kLayout, kNup, 20); },
        [](HWND sheet) { kv::input::Focus(Item(sheet, kBasic, kMedia)); },
        [](HWND sheet) { Choose(sheet, kBasic, kMedia, 0x108); },
        [](HWND sheet) { Choose(sheet, kLayout, kNup, 0); },
        [](HWND sheet) { Choose(sheet, kLayout, kNup, 20); },
        [](HWND sheet) { Press(sheet, kv::kSheetApplyButton); },
        [](HWND sheet) { kv::input::Click(Item(sheet, kLayout, kDefaults)); },
    });
    EXPECT_THAT(lines,
                ElementsAre(kBooklet, kBooklet, "", "Pages/Sheet 1 also set: 2-Sided Printing",
                            kBooklet, kBooklet, "Defaults set: Pages/Sheet, 2-Sided Printing"));
}

TEST_F(StatusLineTest, WhatWasTypedIsNoEffectOfTheChoiceThatLeavesTheEdit) {
    const auto lines = After({
        [](HWND sheet) { Choose(sheet, kLayout, kNup, 20); },
        [](HWND sheet) {
            kv::input::Focus(Item(sheet, kBasic, kZoom));
            for (int i = 0; i < 3; ++i) kv::input::Key(VK_DELETE);
            kv::input::Type("70");
            kv::input::Click(Item(sheet, kBasic, kLandscape));
        },
    });
    EXPECT_THAT(lines, ElementsAre("Booklet also set: 2-Sided Printing", ""));
}

TEST_F(StatusLineTest, WhatAConflictForcedIsToldByTheChoiceThatMetIt) {
    UseRules(
        "[ConflictConditions]\n"
        "ComboMediaType0=(2),0,0,(RadioOrientation,0,0,(1),2),(ChkCollate,0,0,(1),0)\n");
    const auto press = [](int button) {
        return [button](HWND dialog) { EXPECT_TRUE(Press(dialog, button)); };
    };
    int button = kResolve;
    kv::Headless().SetPolicy([&](HWND dialog) { press(button)(dialog); });
    const auto lines = After({
        [](HWND sheet) { Choose(sheet, kBasic, kMedia, 2); },
        [&](HWND sheet) {
            kv::input::Click(Item(sheet, kBasic, kPortrait));
            Choose(sheet, kBasic, kMedia, 1);
            button = IDCANCEL;
            Choose(sheet, kBasic, kMedia, 2);
        },
    });
    EXPECT_THAT(lines, ElementsAre("Transparency also set: Orientation, Collate", ""));
}

TEST_F(StatusLineTest, WhatAPersonSetInADialogIsNoEffectOfTheButtonThatOpensIt) {
    const auto lines = After({
        [](HWND sheet) {
            Choose(sheet, kLayout, kNup, 4);
            Next([](HWND dialog) {
                kv::input::Choose(GetDlgItem(dialog, kOrder), 2);
                Press(dialog, IDOK);
            });
            kv::input::Click(Item(sheet, kLayout, kDetails));
            EXPECT_EQ(SendMessageA(Item(sheet, kLayout, kNup), CB_GETCURSEL, 0, 0), 2);
        },
    });
    EXPECT_THAT(lines, ElementsAre(""));
}

TEST_F(StatusLineTest, APageThatIsForAdministratorsSaysWhoTheyAre) {
    const auto turn = [](int page) {
        return [page](HWND sheet) { ASSERT_NE(Item(sheet, page, kDefaults), nullptr); };
    };
    const std::string said =
        "Only the owner of " + state_ + " can change what is installed in the printer \"Hall\"";
    kv::SetActingAsAdministrator(false);
    const auto list = [&](HWND sheet) {
        for (const int id : {kOptions, kInstalledState}) {
            EXPECT_EQ(kv::ReasonDisabled(Item(sheet, kDevice, id)), said);
        }
        EXPECT_EQ(kv::ReasonDisabled(GetDlgItem(sheet, kv::kSheetApplyButton)), "");
    };
    EXPECT_THAT(After({turn(kDevice), list, turn(kBasic), turn(kDevice)}),
                ElementsAre(said, said, "", said));
    EXPECT_THAT(After({turn(kLayout)}), ElementsAre("")) << "it opened on the page";
    kv::SetActingAsAdministrator(std::nullopt);
    EXPECT_THAT(After({turn(kDevice)}), ElementsAre(""));
}

TEST_F(StatusLineTest, EverySettingHasACaptionAndItsValuesTexts) {
    Session session;
    ASSERT_TRUE(session.Open({}) && session.LoadModule());
    const SettingNames names(session.module().handle(), session.printer());
    for (const NamedSetting& setting : names.all()) {
        EXPECT_NE(setting.caption.rfind("mdm", 0), 0u) << setting.caption;
        for (const Control* control : setting.controls) {
            for (unsigned i = 0; i < control->choiceCount; ++i) {
                const std::string text = names.ValueText(setting, control->choices[i].value);
                EXPECT_FALSE(text.empty()) << setting.caption << " " << control->choices[i].value;
            }
        }
    }
    const struct {
        DWORD control;
        DWORD value;
        const char* caption;
        const char* text;
    } rows[] = {
        {2002, 11, "Original Size", "A5 (148 x 210 mm)"},
        {2006, 0, "Output Size", "Same as Original Document"},
        {1111, 7, "Paper Source", "Automatically Select"},
        {1173, 1, "Different First Page: Paper Source", "Tray 1"},
        {2027, 2, "Orientation", "Landscape"},
        {1410, 20, "Pages/Sheet", "Booklet"},
        {1419, 5, "2-Sided Printing", "Right Binding"},
        {3008, 20, "Contrast", "70"},
        {3246, 0x100, "Color Matching: Photo", "Perceptual"},
        {8004, 0x10, "Watermark: Background", "Off"},
        {4007, 5, "Installed Options", "Tray 2"},
        {5007, 1234, "Password", "set"},
        {5007, 0xFFFFFFFF, "Password", "not set"},
    };
    for (const auto& row : rows) {
        const NamedSetting* setting = names.SettingOfControl(row.control);
        ASSERT_NE(setting, nullptr) << row.control;
        EXPECT_EQ(setting->caption, row.caption);
        EXPECT_EQ(names.ValueText(*setting, row.value), row.text);
    }
}

}  // namespace
}  // namespace kvhost
