// Journeys over the Basic page: what a person does, what the record then holds and the page shows.
#include "preferences.h"

namespace journey {
namespace {

enum : int {
    kPaperSize = 2002, kCustom = 2003, kOutPaper = 2006, kAuto = 1787, kManual = 1788, kZoom = 2009,
    kCopies = 2014, kCopiesSpin = 2015, kCopiesRange = 2028,
    kPortrait = 2026, kLandscape = 2027, kSendOnce = 2030, kAllPapers = 2031, kCollateBox = 2034,
    kSource = 1111, kMedia = 1141, kFirstPageBox = 1170, kDefaults = 12, kViewSwitch = 14003,
};

class BasicPage : public Preferences {};

TEST_F(BasicPage, EveryPageOpensUnderItsCaptionAndOnlyHarmlessFieldsMove) {
    const char* const captions[] = {"Basic",           "Layout",        "Overlay",
                                    "Watermark",       "Quality",       "Device Options Setting",
                                    "Troubleshooting", "Job Management"};
    const auto before = record_;
    OpenSheet();
    for (int page = kBasic; page <= kJob; ++page) {
        EXPECT_TRUE(IsWindowVisible(PageWindow(page))) << page;
        char text[64] = "";
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = sizeof text;
        SendMessageA(Tabs(), TCM_GETITEMA, page, reinterpret_cast<LPARAM>(&item));
        EXPECT_STREQ(text, captions[page]);
    }
    CloseSheet();
    EXPECT_EQ(record_, before);
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

TEST_F(BasicPage, CopiesRunFrom1To999AndAreDigitsOnly) {
    OpenSheet();
    EXPECT_EQ(Text(Item(kCopiesRange)), "[1-999]");
    TypeInto(kCopies, "0");
    Leave();
    EXPECT_EQ(Public().dmCopies, 1);
    EXPECT_EQ(Text(Item(kCopies)), "1");
    ASSERT_TRUE(kv::input::Step(Item(kCopiesSpin), 3));
    EXPECT_EQ(Text(Item(kCopies)), "4");
    EXPECT_EQ(Public().dmCopies, 4);
    const int beeps = kv::Headless().beeps;
    TypeInto(kCopies, "1a2");
    EXPECT_EQ(Text(Item(kCopies)), "12");
    EXPECT_EQ(kv::Headless().beeps, beeps + 1);
}

TEST_F(BasicPage, SendOnceFollowsTheCopiesWhileTheyAreTyped) {
    OpenSheet();
    TypeInto(kCopies, "2");
    Leave();
    if (!IsChecked(Item(kCollateBox))) kv::input::Click(Item(kCollateBox));
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
    constexpr int kFirstMedia = 1176;
    InDialog(kBasic, kFirstPageBox, IDCANCEL, [](HWND dialog) {
        EXPECT_EQ(Text(dialog), "First Page");
        EXPECT_EQ(kvtest::ChosenValue(GetDlgItem(dialog, kFirstMedia)), 264u);
        kvtest::ChooseIn(dialog, kFirstMedia, 259);
    });
    EXPECT_EQ(Private(kFirstPage), 0u);
    EXPECT_EQ(Private(kFirstPageMedia), 264u);
    EXPECT_FALSE(IsChecked(Item(kFirstPageBox)));
    EXPECT_FALSE(CanApply());
    InDialog(kBasic, kFirstPageBox, IDOK,
             [](HWND dialog) { kvtest::ChooseIn(dialog, kFirstMedia, 259); });
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
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(Panel(kBasic), kViewSwitch)));
}

TEST_F(BasicPage, AUserWithoutAdministerAccessSeesNoCustomPaperButton) {
    OpenSheet();
    EXPECT_TRUE(IsWindowVisible(Item(kCustom)));
    CloseSheet();
    Act(Actor::kUser);
    OpenSheet();
    EXPECT_FALSE(IsWindowVisible(Item(kCustom)));
}

TEST_F(BasicPage, NoListChangesWhenTheOrientationDoes) {
    OpenSheet();
    const HWND landscape = Item(kLandscape);
    kvtest::Listener display;
    display.changed = [](HWND window, unsigned changes) {
        EXPECT_FALSE(changes & kv::kChangedItems) << GetDlgCtrlID(window);
    };
    ASSERT_TRUE(kv::input::Click(landscape));
}

}  // namespace
}  // namespace journey
