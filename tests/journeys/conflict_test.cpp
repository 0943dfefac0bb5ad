// A choice that other settings do not allow, met on the real pages: what the user is told, and what
// Resolve and Cancel leave in the record.
#include "tests/journeys/preferences.h"

namespace {

using namespace journey;

constexpr DWORD kTransparency = 2;

class Conflicts : public Preferences {
 protected:
    // "trigger=selection|target=current|new", as the next question puts it; then presses a button.
    void Expect(const std::string& texts, int button) {
        kv::Headless().PushAnswer([texts, button](HWND dialog) {
            EXPECT_EQ(Text(dialog, IDC_ST_TRIGGER_NAME) + "=" +
                          Text(dialog, IDC_ST_TRIGGER_SELECTION) + "|" +
                          Text(dialog, IDC_ST_TARGET_NAME) + "=" +
                          Text(dialog, IDC_ST_TARGET_SELECTION) + "|" +
                          Text(dialog, IDC_ST_NEW_SELECTION),
                      texts);
            EXPECT_EQ(Text(dialog, IDC_ST_NEW_NAME), Text(dialog, IDC_ST_TARGET_NAME));
            EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, button)));
        });
    }
    std::string MediaRule(const std::string& target) {
        return "[ConflictConditions]\nComboMediaType0=(2),0,0,(" + target + ")\n";
    }
};

TEST_F(Conflicts, ResolveForcesEveryTargetOfTheChain) {
    UseRules(
        "[ConflictConditions]\n"
        "ComboMediaType0=(2),0,0,(RadioOrientation,0,0,(1),2),(ChkCollate,0,0,(0),1)\n"
        "RadioOrientation0=(2),0,0,(EditCopies,0,0,(1-4),7)\n");
    Settings().mdmCollate = 0;
    OpenSheet();
    PageWindow(kBasic);
    Expect("Media Type:=Transparency|Orientation=Po&rtrait|&Landscape", IDC_BTN_CONFLICT_RESOLVE);
    Expect("Orientation=&Landscape|Copies=1|7", IDC_BTN_CONFLICT_RESOLVE);
    Expect("Media Type:=Transparency|Collate=Off|On", IDC_BTN_CONFLICT_RESOLVE);
    ChooseValue(IDC_COMBO_MEDIA_TYPE, kTransparency);
    EXPECT_EQ(Settings().MediaType, kTransparency);
    EXPECT_EQ(Public().dmOrientation, 2);
    EXPECT_EQ(Public().dmCopies, 7);
    EXPECT_EQ(Settings().mdmCollate, 1u);
    EXPECT_EQ(Text(Item(IDC_EDIT_COPIES)), "7") << "the page shows what was forced";
}

TEST_F(Conflicts, AnotherPageShowsWhatWasForcedBeforeItReadsBack) {
    UseRules("[ConflictConditions]\nComboNup0=(2),0,0,(EditCopies,0,0,(1),7)\n");
    OpenSheet();
    PageWindow(kLayout);
    Expect("Pages/Sheet:=2|Copies=1|7", IDC_BTN_CONFLICT_RESOLVE);
    ChooseValue(IDC_COMBO_NUP, 2, kLayout);
    EXPECT_EQ(Text(WindowOf(kBasic), IDC_EDIT_COPIES), "7");
    ASSERT_TRUE(PressOk());
    EXPECT_EQ(Public().dmCopies, 7);
}

TEST_F(Conflicts, EveryWayToCancelLeavesTheRecordAsItWas) {
    UseRules(MediaRule("RadioOrientation,0,0,(1),2"));
    OpenSheet();
    PageWindow(kBasic);
    const auto before = record_;
    const kv::HeadlessDisplay::Answer ways[] = {
        [](HWND dialog) { kv::input::Click(GetDlgItem(dialog, IDCANCEL)); },
        [](HWND) { kv::input::Key(VK_ESCAPE); },
        [](HWND dialog) { kv::input::Close(dialog); },
    };
    for (const auto& way : ways) {
        kv::Headless().PushAnswer(way);
        ChooseValue(IDC_COMBO_MEDIA_TYPE, kTransparency);
        EXPECT_EQ(record_, before);
        EXPECT_EQ(Selected(Item(IDC_COMBO_MEDIA_TYPE)), "Plain Paper");
    }
}

// A newer file, none, a folder, and no text at all: the sheet goes on with the rules that it began
// with, those that nobody asked for yet among them, and the next sheet takes the new ones.
TEST_F(Conflicts, ARulesFileReplacedUnderAnOpenSheetLeavesItItsRules) {
    const std::string rules = MediaRule("RadioOrientation,0,0,(1),2") +
                              "RadioOrientation0=(2),0,1,(EditCopies,0,0,(0),H)\n"
                              "[EditAttribute]\nEditCopies=3,1,50\n";
    const std::string path = RulesPath();
    const std::function<void()> replacements[] = {
        [&] { UseRules("[ConflictConditions]\nComboMediaType0=(3),0,0,(EditCopies,0,0,(1),2)\n"); },
        [&] { std::filesystem::remove(path); },
        [&] { std::filesystem::remove(path), std::filesystem::create_directory(path); },
        [&] { std::ofstream(path) << std::string(200000, '[') << std::string(70000, '\0'); },
    };
    for (const auto& replace : replacements) {
        std::filesystem::remove_all(path);
        std::ofstream(path) << rules;
        OpenSheet();
        replace();
        for (int page = kBasic; page <= kJob; ++page) PageWindow(page);
        PageWindow(kBasic);
        Expect("Media Type:=Transparency|Orientation=Po&rtrait|&Landscape",
               IDC_BTN_CONFLICT_RESOLVE);
        ChooseValue(IDC_COMBO_MEDIA_TYPE, kTransparency);
        EXPECT_FALSE(IsWindowEnabled(Item(IDC_EDIT_COPIES))) << "grayed while landscape is chosen";
        ChooseValue(IDC_COMBO_MEDIA_TYPE, 1);
        ASSERT_TRUE(kv::input::Click(Item(IDC_RADIO_PORTRAIT)));
        EXPECT_TRUE(IsWindowEnabled(Item(IDC_EDIT_COPIES)));
        CloseSheet();
        OpenSheet();
        ChooseValue(IDC_COMBO_MEDIA_TYPE, kTransparency);
        EXPECT_EQ(Public().dmOrientation, 1) << "the new file has no such rule";
        ChooseValue(IDC_COMBO_MEDIA_TYPE, 1);
        CloseSheet();
    }
}

// Where each kind of item finds the texts of its values.
TEST_F(Conflicts, EveryKindOfItemIsNamed) {
    const std::string longName(200, 'W'), end(1, '\0');
    SetVariable("LC_ALL", "en_US.UTF-8");  // decides the regional default paper
    const std::pair<const char*, std::string> rows[] = {
        {"EditCopies,0,0,(1),5", "Copies=1|5"},
        {"ChkProofPrint,1,0,(1),2", "Proof Print=Off|On"},
        {"ComboStaple,0,0,(0),2", "Staple=Off|Corner"},
        {"ComboPaperSize,0,0,(9),5", "Original Size:=A4 (210 x 297 mm)|Letter (8 1/2 x 11 inch)"},
        {"CBOutPaper,0,0,(0),1", "Output Size:=Same as Original Document|Letter (8 1/2 x 11 inch)"},
        {"ComboPaperSource,0,0,(7),4", "Paper Source:=Automatically Select|Multipurpose Tray"},
        {"ComboOverlay,0,0,(0),129", "Overlay=<NONE>|Letterhead"},
        {"ComboWatermark,0,0,(0),7", "=|" + longName.substr(0, 127)},
    };
    for (const auto& [target, texts] : rows) {
        SCOPED_TRACE(target);
        CloseSheet();
        Put("[FormOverlayName]", REG_BINARY, "0=<NONE>" + end + "129=Letterhead;x" + end);
        UseRules(MediaRule(target) + "[Watermark]\nMinCode=7\nMaxCode=7\n7=" + longName +
                 ",0\n[ShowItemAccordingToOption]\n");
        OpenSheet();
        PageWindow(kBasic);
        Expect("Media Type:=Transparency|" + texts, IDCANCEL);
        ChooseValue(IDC_COMBO_MEDIA_TYPE, kTransparency);
    }
}

}  // namespace
