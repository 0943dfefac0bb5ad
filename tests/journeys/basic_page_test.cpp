// Journeys over the Basic page: what a person does, what the record then holds and the page shows.
#include "preferences.h"

namespace journey {
namespace {

enum : int {
    kPaperSize = 2002, kCustom = 2003, kOutPaper = 2006, kAuto = 1787, kManual = 1788, kZoom = 2009,
    kZoomSpin = 2010, kCopies = 2014, kCopiesSpin = 2015, kCopiesRange = 2028, kPicture = 2025,
    kPortrait = 2026, kLandscape = 2027, kSendOnce = 2030, kAllPapers = 2031, kCollateBox = 2034,
    kSource = 1111, kMedia = 1141, kFirstPageBox = 1170, kDefaults = 12, kNotice = 1490,
};

class BasicPage : public Preferences {};

TEST_F(BasicPage, EveryPageOpensAndOnlyHarmlessFieldsMove) {
    const auto before = record_;
    OpenSheet();
    for (int page = kBasic; page <= kJob; ++page) {
        const HWND window = PageWindow(page);
        ASSERT_NE(window, nullptr) << page;
        EXPECT_TRUE(IsWindowVisible(window)) << page;
    }
    CloseSheet();
    EXPECT_EQ(std::memcmp(before.data(), record_.data(), sizeof(DEVMODEA)), 0);
    EXPECT_EQ(Private(kNup), 0u);
    EXPECT_EQ(Private(kDuplexMode), 1u);
}

TEST_F(BasicPage, TabsShowCaptions) {
    OpenSheet();
    const HWND tabs = reinterpret_cast<HWND>(SendMessageA(sheet_, PSM_GETTABCONTROL, 0, 0));
    const char* expected[] = {"Basic", "Layout", "Overlay", "Watermark", "Quality",
                              "Device Options Setting", "Troubleshooting"};
    for (int i = 0; i < 7; ++i) {
        char text[64] = "";
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = sizeof text;
        SendMessageA(tabs, TCM_GETITEMA, i, reinterpret_cast<LPARAM>(&item));
        EXPECT_STREQ(text, expected[i]);
    }
}

TEST_F(BasicPage, OpeningSetsAllPaperSizesAndHidesTheirBox) {
    SetPrivate(kOtherSettings, Private(kOtherSettings) & ~0x40u);
    OpenSheet();
    EXPECT_TRUE(Private(kOtherSettings) & 0x40);
    EXPECT_FALSE(IsWindowVisible(Item(kAllPapers)));
}

TEST_F(BasicPage, ZoomIsClampedWhenTheEditIsLeft) {
    const struct { const char* typed; DWORD stored; const char* shown; } rows[] = {
        {"500", 400, "400"}, {"5", 20, "20"}, {"150", 150, "150"}, {"", 20, "20"}, {"400", 400, "400"}};
    OpenSheet();
    ASSERT_TRUE(kv::input::Click(Item(kManual)));
    for (const auto& row : rows) {
        TypeInto(kZoom, row.typed);
        Leave();
        EXPECT_EQ(Private(kScaleSize), row.stored) << row.typed;
        EXPECT_EQ(Text(Item(kZoom)), row.shown) << row.typed;
        EXPECT_EQ(Private(kScale), row.stored) << row.typed;
        EXPECT_TRUE(Private(kNupMode) & 0x8000) << row.typed;
    }
    ASSERT_TRUE(kv::input::Click(Item(kAuto)));
    EXPECT_EQ(Private(kScaleSize), 100u);
    EXPECT_EQ(Private(kScale), 100u);
    EXPECT_FALSE(Private(kNupMode) & 0x8000);
}

TEST_F(BasicPage, CopiesRunFrom1To999) {
    OpenSheet();
    EXPECT_EQ(Text(Item(kCopiesRange)), "[1-999]");
    TypeInto(kCopies, "0");
    Leave();
    EXPECT_EQ(Public().dmCopies, 1);
    EXPECT_EQ(Text(Item(kCopies)), "1");
    ASSERT_TRUE(kv::input::Step(Item(kCopiesSpin), 3));
    EXPECT_EQ(Text(Item(kCopies)), "4");
    EXPECT_EQ(Public().dmCopies, 4);
}

TEST_F(BasicPage, TypingKeepsDigitsOnlyAndBeepsForTheRest) {
    OpenSheet();
    const int beeps = kv::Headless().beeps;
    TypeInto(kCopies, "1a2");
    EXPECT_EQ(Text(Item(kCopies)), "12");
    EXPECT_EQ(kv::Headless().beeps, beeps + 1);
}

TEST_F(BasicPage, SendOnceFollowsTheCopiesWhileTheyAreTyped) {
    OpenSheet();
    TypeInto(kCopies, "2");
    Leave();
    const HWND collate = Item(kCollateBox);
    if (SendMessageA(collate, BM_GETCHECK, 0, 0) != BST_CHECKED) kv::input::Click(collate);
    EXPECT_EQ(Private(kCollate) & 1, 1u);
    EXPECT_TRUE(IsWindowEnabled(Item(kSendOnce)));
    TypeInto(kCopies, "1");
    EXPECT_FALSE(IsWindowEnabled(Item(kSendOnce)));
    kv::input::Type("5");
    EXPECT_TRUE(IsWindowEnabled(Item(kSendOnce)));
}

TEST_F(BasicPage, OkStoresWhatWasChosenAndAnEditThatStillHasTheFocus) {
    OpenSheet();
    ASSERT_TRUE(kv::input::Click(Item(kLandscape)));
    ChooseValue(kPaperSize, 11);
    ASSERT_TRUE(kv::input::Click(Item(kManual)));
    TypeInto(kZoom, "150");
    Notify(kBasic, PSN_APPLY);
    EXPECT_EQ(Private(kScaleSize), 150u);
    EXPECT_EQ(Private(kScale), 150u);
    TypeInto(kCopies, "5");
    Notify(kBasic, PSN_APPLY);
    EXPECT_EQ(Public().dmCopies, 5);
    TypeInto(kCopies, "7");
    ASSERT_TRUE(kv::input::Key(VK_RETURN));
    EXPECT_EQ(Public().dmCopies, 7);
    EXPECT_EQ(Public().dmOrientation, 2);
    EXPECT_EQ(Public().dmPaperSize, 11);
}

TEST_F(BasicPage, DefaultsResetThisPageOnlyAndKeepWhatTheyMust) {
    SetPrivate(kInstalledOptions, 0x4);
    SetPrivate(kMailBinAssign, 0x7F0);
    SetPrivate(kFirstPageMedia, 3);
    Public().dmPrintQuality = 1200;
    Public().dmCopies = 9;
    OpenSheet();
    ASSERT_TRUE(kv::input::Click(Item(kDefaults)));
    EXPECT_EQ(Public().dmCopies, 1);
    EXPECT_EQ(Private(kFirstPageMedia), 1u);
    EXPECT_EQ(Private(kInstalledOptions), 0x4u);
    EXPECT_EQ(Private(kMailBinAssign), 0x7F0u);
    EXPECT_EQ(Public().dmPrintQuality, 1200);
    EXPECT_TRUE(Private(kOtherSettings) & 0x40);
}

TEST_F(BasicPage, CancelOfTheFirstPageDialogUndoesWhatItChanged) {
    OpenSheet();
    SetPrivate(kFirstPageMedia, 0);
    SetPrivate(kMediaType, 264);
    kv::Headless().PushAnswer([](HWND dialog) {
        EXPECT_EQ(Text(dialog), "First Page");
        const HWND media = GetDlgItem(dialog, 1176);
        EXPECT_EQ(static_cast<DWORD>(SendMessageA(
                      media, CB_GETITEMDATA, SendMessageA(media, CB_GETCURSEL, 0, 0), 0)), 264u);
        kv::input::Choose(media, IndexOf(media, 259));
        kv::input::Key(VK_ESCAPE);
    });
    ASSERT_TRUE(kv::input::Click(Item(kFirstPageBox)));
    EXPECT_EQ(Private(kFirstPage), 0u);
    EXPECT_EQ(Private(kFirstPageMedia), 264u);
    EXPECT_EQ(SendMessageA(Item(kFirstPageBox), BM_GETCHECK, 0, 0), LRESULT{BST_UNCHECKED});
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(sheet_, 0x3021))) << "nothing is to be applied";
    kv::Headless().PushAnswer([](HWND dialog) {
        const HWND media = GetDlgItem(dialog, 1176);
        kv::input::Choose(media, IndexOf(media, 259));
        kv::input::Click(GetDlgItem(dialog, IDOK));
    });
    ASSERT_TRUE(kv::input::Click(Item(kFirstPageBox)));
    EXPECT_EQ(Private(kFirstPage), 1u);
    EXPECT_EQ(Private(kFirstPageMedia), 259u);
}

TEST_F(BasicPage, AnOutputPaperWinsOverTheZoom) {
    OpenSheet();
    ASSERT_TRUE(kv::input::Click(Item(kManual)));
    TypeInto(kZoom, "150");
    Leave();
    ChooseValue(kOutPaper, 8);
    EXPECT_EQ(Private(kScale), 100u);
    EXPECT_EQ(Private(kDriverPaper), 8u);
    EXPECT_TRUE(Private(kNupMode) & 0x8000);
}

TEST_F(BasicPage, APaperThatIsNoLongerOfferedFallsBackToARegionalDefault) {
    Public().dmPaperSize = 499;
    OpenSheet();
    EXPECT_TRUE(Public().dmPaperSize == 9 || Public().dmPaperSize == 1);
    EXPECT_NE(Selected(Item(kPaperSize)), "");
}

TEST_F(BasicPage, AReadOnlySheetStaysDisabledAfterACommand) {
    OpenSheet(0x20);
    EXPECT_FALSE(kv::input::Click(Item(kLandscape)));
    SendMessageA(PageWindow(kBasic), WM_COMMAND, MAKEWPARAM(kLandscape, BN_CLICKED),
                 reinterpret_cast<LPARAM>(Item(kLandscape)));
    for (const int id : {kPaperSize, kCopies, kLandscape, kDefaults}) {
        EXPECT_FALSE(IsWindowEnabled(Item(id))) << id;
    }
}

TEST_F(BasicPage, AUserWithoutAdministerAccessSeesNoCustomPaperButton) {
    OpenSheet();
    EXPECT_TRUE(IsWindowVisible(Item(kCustom)));
    CloseSheet();
    kv::SetActingAsAdministrator(false);
    OpenSheet();
    EXPECT_FALSE(IsWindowVisible(Item(kCustom)));
}

TEST_F(BasicPage, OnlyChangesReachTheDisplay) {
    OpenSheet();
    PageWindow(kBasic);
    struct Counter : kv::Display {
        int items = 0;
        void Changed(HWND, unsigned changes) override { items += (changes & kv::kChangedItems) != 0; }
        bool WaitForInput(HWND) override { return false; }
    } counter;
    kv::UseDisplay(&counter);
    kv::input::Click(Item(kLandscape));
    kv::UseDisplay(nullptr);
    EXPECT_EQ(counter.items, 0) << "no list changes when the orientation does";
}

}  // namespace
}  // namespace journey
