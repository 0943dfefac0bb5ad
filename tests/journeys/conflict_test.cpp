// A choice that other settings do not allow, met on the real pages: what the user is told, and what
// Resolve and Cancel leave in the record.
#include <kvlist.h>
#include <winspool.h>

#include "tests/journeys/preferences.h"

namespace {

using namespace journey;

enum Control {
    kTriggerName = 9410,
    kTriggerSelection,
    kTargetName,
    kTargetCurrent,
    kNewName,
    kTargetNew,
    kResolve
};
constexpr int kMedia = 1141;
constexpr DWORD kTransparency = 2;

class Conflicts : public Preferences {
 protected:
    static std::string Part(HWND dialog, int id) { return Text(GetDlgItem(dialog, id)); }
    // "trigger=selection|target=current|new", as the next question puts it; then presses a button.
    void Expect(const std::string& texts, int button) {
        kv::Headless().PushAnswer([texts, button](HWND dialog) {
            EXPECT_EQ(Part(dialog, kTriggerName) + "=" + Part(dialog, kTriggerSelection) + "|" +
                          Part(dialog, kTargetName) + "=" + Part(dialog, kTargetCurrent) + "|" +
                          Part(dialog, kTargetNew),
                      texts);
            EXPECT_EQ(Part(dialog, kNewName), Part(dialog, kTargetName));
            EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, button)));
        });
    }
    void SetData(const char* name, DWORD type, const std::string& value) {
        HANDLE printer = nullptr;
        char printerName[] = "Office";
        PRINTER_DEFAULTSA wanted{nullptr, nullptr, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE};
        ASSERT_TRUE(OpenPrinterA(printerName, &printer, &wanted));
        std::string bytes = value;
        EXPECT_EQ(SetPrinterDataA(printer, const_cast<char*>(name), type,
                                  reinterpret_cast<BYTE*>(bytes.data()),
                                  static_cast<DWORD>(bytes.size())),
                  0u);
        ClosePrinter(printer);
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
    SetPrivate(kCollate, 0);
    OpenSheet();
    PageWindow(kBasic);
    Expect("Media Type:=Transparency|Orientation=Po&rtrait|&Landscape", kResolve);
    Expect("Orientation=&Landscape|Copies=1|7", kResolve);
    Expect("Media Type:=Transparency|Collate=Off|On", kResolve);
    ChooseValue(kMedia, kTransparency);
    EXPECT_EQ(Private(kMediaType), kTransparency);
    EXPECT_EQ(Public().dmOrientation, 2);
    EXPECT_EQ(Public().dmCopies, 7);
    EXPECT_EQ(Private(kCollate), 1u);
    EXPECT_EQ(Text(Item(2014)), "7") << "the page shows what was forced";
}

TEST_F(Conflicts, AnotherPageShowsWhatWasForcedBeforeItReadsBack) {
    UseRules("[ConflictConditions]\nComboNup0=(2),0,0,(EditCopies,0,0,(1),7)\n");
    OpenSheet();
    PageWindow(kLayout);
    const auto basic = reinterpret_cast<HWND>(SendMessageA(sheet_, PSM_INDEXTOHWND, kBasic, 0));
    Expect("Pages/Sheet:=2|Copies=1|7", kResolve);
    ChooseValue(1410, 2, kLayout);
    EXPECT_EQ(Text(GetDlgItem(basic, 2014)), "7");
    ASSERT_TRUE(PressOk());
    EXPECT_EQ(Public().dmCopies, 7);
}

TEST_F(Conflicts, TheRulesFileMayBeReplacedWhileTheSheetIsOpen) {
    std::string noise;
    for (int i = 0; i < 5000; ++i) noise += static_cast<char>(i * 37);
    const std::string texts[] = {
        "", noise, MediaRule("EditCopies,0,0,(1),7"),
        "[ShowItemAccordingToOption]\nComboMediaType=0,0,0,0\nComboNup=0,0,0,7\n",
        "[ConflictConditions]\nComboNup0=(4),0,1,(ComboMediaType,0,0,(0),1)\n"};
    kv::Headless().SetPolicy([](HWND dialog) { kv::input::Click(GetDlgItem(dialog, IDCANCEL)); });
    for (const std::string& before : texts) {
        for (const std::string& after : texts) {
            UseRules(before);
            OpenSheet();
            for (int page = kBasic; page <= kJob; ++page) PageWindow(page);
            UseRules(after);
            Public().dmOrientation = 1;
            for (const auto& [combo, page] :
                 {std::pair{kMedia, kBasic}, std::pair{1410, kLayout}}) {
                for (int entry = 0; entry < 4; ++entry) kv::input::Choose(Item(combo, page), entry);
            }
            ASSERT_TRUE(kv::input::Click(Item(2027)));
            ASSERT_TRUE(PressOk());
            EXPECT_EQ(Public().dmOrientation, 2);
            EXPECT_EQ(SendMessageA(sheet_, PSM_GETCURRENTPAGEHWND, 0, 0), 0) << "OK was taken";
            CloseSheet();
        }
    }
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
        ChooseValue(kMedia, kTransparency);
        EXPECT_EQ(record_, before);
        EXPECT_EQ(Selected(Item(kMedia)), "Plain Paper");
    }
}

TEST_F(Conflicts, AForcedValueWithoutATextLeavesOnlyCancel) {
    UseRules(MediaRule("ComboStaple,0,0,(0),99"));
    OpenSheet();
    PageWindow(kBasic);
    const auto before = record_;
    kv::Headless().PushAnswer([](HWND dialog) {
        EXPECT_EQ(Part(dialog, kTargetNew), "Unresolvable situation!");
        EXPECT_FALSE(kv::input::Click(GetDlgItem(dialog, kResolve)));
        kv::input::Key(VK_RETURN);
    });
    ChooseValue(kMedia, kTransparency);
    EXPECT_EQ(record_, before);
}

TEST_F(Conflicts, RulesInACircleEnd) {
    UseRules(
        "[ConflictConditions]\n"
        "ComboMediaType0=(2),0,0,(RadioOrientation,0,0,(1),2)\n"
        "RadioOrientation0=(2),0,0,(ComboMediaType,0,0,(2),3)\n"
        "ComboMediaType1=(3),0,0,(RadioOrientation,0,0,(2),1)\n");
    OpenSheet();
    PageWindow(kBasic);
    Expect("Media Type:=Transparency|Orientation=Po&rtrait|&Landscape", kResolve);
    Expect("Orientation=&Landscape|Media Type:=Transparency|Glossy", kResolve);
    kv::Headless().SetPolicy([](HWND dialog) { kv::input::Click(GetDlgItem(dialog, kResolve)); });
    ChooseValue(kMedia, kTransparency);
    EXPECT_LE(kv::Headless().shown.size(), 4u);
}

// A newer file, none, a folder, and no text at all: the sheet goes on with the rules that it began
// with, those that nobody asked for yet among them, and the next sheet takes the new ones.
TEST_F(Conflicts, ARulesFileReplacedUnderAnOpenSheetLeavesItItsRules) {
    const std::string rules = MediaRule("RadioOrientation,0,0,(1),2") +
                              "RadioOrientation0=(2),0,1,(EditCopies,0,0,(0),H)\n"
                              "[EditAttribute]\nEditCopies=3,1,50\n";
    const std::string path = state_ + "/driver/3/KVUIMOD.ini";
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
        Expect("Media Type:=Transparency|Orientation=Po&rtrait|&Landscape", kResolve);
        ChooseValue(kMedia, kTransparency);
        EXPECT_FALSE(IsWindowEnabled(Item(2014))) << "grayed while landscape is chosen";
        ChooseValue(kMedia, 1);
        ASSERT_TRUE(kv::input::Click(Item(2026)));
        EXPECT_TRUE(IsWindowEnabled(Item(2014)));
        CloseSheet();
        OpenSheet();
        ChooseValue(kMedia, kTransparency);
        EXPECT_EQ(Public().dmOrientation, 1) << "the new file has no such rule";
        ChooseValue(kMedia, 1);
        CloseSheet();
    }
}

// Where each kind of item finds the texts of its values.
TEST_F(Conflicts, EveryKindOfItemIsNamed) {
    const std::string longName(200, 'W');
    setenv("LC_ALL", "en_US.UTF-8", 1);  // decides the regional default paper
    const struct {
        const char* target;
        std::string texts;
    } kCases[] = {
        {"EditCopies,0,0,(1),5", "Copies=1|5"},
        {"ChkProofPrint,1,0,(1),2", "Proof Print=Off|On"},
        {"ComboStaple,0,0,(0),2", "Staple=Off|Corner"},
        {"ComboPaperSize,0,0,(9),5", "Original Size:=A4 (210 x 297 mm)|Letter (8 1/2 x 11 inch)"},
        {"CBOutPaper,0,0,(0),1", "Output Size:=Same as Original Document|Letter (8 1/2 x 11 inch)"},
        {"ComboPaperSource,0,0,(7),4", "Paper Source:=Automatically Select|Multipurpose Tray"},
        {"ComboOverlay,0,0,(0),129", "Overlay=<NONE>|Letterhead"},
        {"ComboWatermark,0,0,(0),7", "=|" + longName.substr(0, 127)},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.target);
        CloseSheet();
        SetData("[FormOverlayName]", REG_BINARY,
                std::string("0=<NONE>\0"
                            "129=Letterhead;x\0",
                            26));
        UseRules(MediaRule(c.target) + "[Watermark]\nMinCode=7\nMaxCode=7\n7=" + longName +
                 ",0\n[ShowItemAccordingToOption]\n");
        OpenSheet();
        PageWindow(kBasic);
        Expect("Media Type:=Transparency|" + c.texts, IDCANCEL);
        ChooseValue(kMedia, kTransparency);
    }
    unsetenv("LC_ALL");
}

}  // namespace
