// Journeys over the Basic page: what a person does, what the record then holds and the page shows.
#include "preferences.h"

namespace journey {
namespace {

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
    Settings().mdmOtherSettings &= ~kvui::kOtherAllPaperSize;
    OpenSheet();
    EXPECT_TRUE(Settings().mdmOtherSettings & 0x40);
    EXPECT_FALSE(IsWindowVisible(Item(IDC_CHK_ALL_PAPER_SIZE)));
}

TEST_F(BasicPage, ZoomIsClampedWhenTheEditIsLeft) {
    const struct { const char* typed; DWORD stored; const char* shown; } rows[] = {
        {"500", 400, "400"}, {"5", 20, "20"}, {"150", 150, "150"}, {"", 20, "20"}, {"400", 400, "400"}};
    OpenSheet();
    ASSERT_TRUE(kv::input::Click(Item(IDC_RADIO_SCALING_MANUAL)));
    for (const auto& row : rows) {
        TypeInto(IDC_EDIT_SCALING, row.typed);
        Leave();
        EXPECT_EQ(Settings().mdmScaleSize, row.stored) << row.typed;
        EXPECT_EQ(Text(Item(IDC_EDIT_SCALING)), row.shown) << row.typed;
        EXPECT_EQ(Settings().Scale, row.stored) << row.typed;
        EXPECT_TRUE(Settings().nUpMode & 0x8000) << row.typed;
    }
    ASSERT_TRUE(kv::input::Click(Item(IDC_RADIO_SCALING_AUTO)));
    EXPECT_EQ(Settings().mdmScaleSize, 100u);
    EXPECT_EQ(Settings().Scale, 100u);
    EXPECT_FALSE(Settings().nUpMode & 0x8000);
}

TEST_F(BasicPage, CopiesRunFrom1To999AndAreDigitsOnly) {
    OpenSheet();
    EXPECT_EQ(Text(Item(IDC_ST_COPIES_RANGE)), "[1-999]");
    TypeInto(IDC_EDIT_COPIES, "0");
    Leave();
    EXPECT_EQ(Public().dmCopies, 1);
    EXPECT_EQ(Text(Item(IDC_EDIT_COPIES)), "1");
    ASSERT_TRUE(kv::input::Step(Item(IDC_SPIN_COPIES), 3));
    EXPECT_EQ(Text(Item(IDC_EDIT_COPIES)), "4");
    EXPECT_EQ(Public().dmCopies, 4);
    const int beeps = kv::Headless().beeps;
    TypeInto(IDC_EDIT_COPIES, "1a2");
    EXPECT_EQ(Text(Item(IDC_EDIT_COPIES)), "12");
    EXPECT_EQ(kv::Headless().beeps, beeps + 1);
}

TEST_F(BasicPage, SendOnceFollowsTheCopiesWhileTheyAreTyped) {
    OpenSheet();
    TypeInto(IDC_EDIT_COPIES, "2");
    Leave();
    if (!IsChecked(Item(IDC_CHK_COLLATE))) kv::input::Click(Item(IDC_CHK_COLLATE));
    EXPECT_EQ(Settings().mdmCollate & 1, 1u);
    EXPECT_TRUE(IsWindowEnabled(Item(IDC_CHK_TRANSMIT_ONCE)));
    TypeInto(IDC_EDIT_COPIES, "1");
    EXPECT_FALSE(IsWindowEnabled(Item(IDC_CHK_TRANSMIT_ONCE)));
    kv::input::Type("5");
    EXPECT_TRUE(IsWindowEnabled(Item(IDC_CHK_TRANSMIT_ONCE)));
}

TEST_F(BasicPage, OkStoresWhatWasChosenAndAnEditThatStillHasTheFocus) {
    OpenSheet();
    ASSERT_TRUE(kv::input::Click(Item(IDC_RADIO_LANDSCAPE)));
    ChooseValue(IDC_COMBO_PAPER_SIZE, 11);
    ASSERT_TRUE(kv::input::Click(Item(IDC_RADIO_SCALING_MANUAL)));
    TypeInto(IDC_EDIT_SCALING, "150");
    Notify(kBasic, PSN_APPLY);
    EXPECT_EQ(Settings().mdmScaleSize, 150u);
    EXPECT_EQ(Settings().Scale, 150u);
    TypeInto(IDC_EDIT_COPIES, "5");
    Notify(kBasic, PSN_APPLY);
    EXPECT_EQ(Public().dmCopies, 5);
    TypeInto(IDC_EDIT_COPIES, "7");
    ASSERT_TRUE(kv::input::Key(VK_RETURN));
    EXPECT_EQ(Public().dmCopies, 7);
    EXPECT_EQ(Public().dmOrientation, 2);
    EXPECT_EQ(Public().dmPaperSize, 11);
}

TEST_F(BasicPage, DefaultsResetThisPageOnlyAndKeepWhatTheyMust) {
    Settings().mdmInstalledOptions = 0x4;
    Settings().mdmMailBinAssign = 0x7F0;
    Settings().mdmFirstPageMedia = 3;
    Public().dmPrintQuality = 1200;
    Public().dmCopies = 9;
    OpenSheet();
    ASSERT_TRUE(kv::input::Click(Item(IDC_DEFAULTS)));
    EXPECT_EQ(Public().dmCopies, 1);
    EXPECT_EQ(Settings().mdmFirstPageMedia, 1u);
    EXPECT_EQ(Settings().mdmInstalledOptions, 0x4u);
    EXPECT_EQ(Settings().mdmMailBinAssign, 0x7F0u);
    EXPECT_EQ(Public().dmPrintQuality, 1200);
    EXPECT_TRUE(Settings().mdmOtherSettings & 0x40);
}

TEST_F(BasicPage, CancelOfTheFirstPageDialogUndoesWhatItChanged) {
    OpenSheet();
    Settings().mdmFirstPageMedia = 0;
    Settings().MediaType = 264;
    InDialog(kBasic, IDC_CHK_FIRST_PAGE_SOURCE, IDCANCEL, [](HWND dialog) {
        EXPECT_EQ(Text(dialog), "First Page");
        EXPECT_EQ(kvtest::ChosenValue(GetDlgItem(dialog, IDC_COMBO_FIRST_PAGE_MEDIA)), 264u);
        kvtest::ChooseIn(dialog, IDC_COMBO_FIRST_PAGE_MEDIA, 259);
    });
    EXPECT_EQ(Settings().mdmFirstPage, 0u);
    EXPECT_EQ(Settings().mdmFirstPageMedia, 264u);
    EXPECT_FALSE(IsChecked(Item(IDC_CHK_FIRST_PAGE_SOURCE)));
    EXPECT_FALSE(CanApply());
    InDialog(kBasic, IDC_CHK_FIRST_PAGE_SOURCE, IDOK,
             [](HWND dialog) { kvtest::ChooseIn(dialog, IDC_COMBO_FIRST_PAGE_MEDIA, 259); });
    EXPECT_EQ(Settings().mdmFirstPage, 1u);
    EXPECT_EQ(Settings().mdmFirstPageMedia, 259u);
}

TEST_F(BasicPage, AnOutputPaperWinsOverTheZoom) {
    OpenSheet();
    ASSERT_TRUE(kv::input::Click(Item(IDC_RADIO_SCALING_MANUAL)));
    TypeInto(IDC_EDIT_SCALING, "150");
    Leave();
    ChooseValue(IDC_COMBO_OUT_PAPER, 8);
    EXPECT_EQ(Settings().Scale, 100u);
    EXPECT_EQ(Settings().dmDriverPaper, 8u);
    EXPECT_TRUE(Settings().nUpMode & 0x8000);
}

TEST_F(BasicPage, APaperThatIsNoLongerOfferedFallsBackToARegionalDefault) {
    Public().dmPaperSize = 499;
    OpenSheet();
    EXPECT_TRUE(Public().dmPaperSize == 9 || Public().dmPaperSize == 1);
    EXPECT_NE(Selected(Item(IDC_COMBO_PAPER_SIZE)), "");
}

TEST_F(BasicPage, AReadOnlySheetStaysDisabledAfterACommand) {
    OpenSheet(0x20);
    EXPECT_FALSE(kv::input::Click(Item(IDC_RADIO_LANDSCAPE)));
    SendMessageA(PageWindow(kBasic), WM_COMMAND, MAKEWPARAM(IDC_RADIO_LANDSCAPE, BN_CLICKED),
                 reinterpret_cast<LPARAM>(Item(IDC_RADIO_LANDSCAPE)));
    for (const int id :
         {IDC_COMBO_PAPER_SIZE, IDC_EDIT_COPIES, IDC_RADIO_LANDSCAPE, IDC_DEFAULTS}) {
        EXPECT_FALSE(IsWindowEnabled(Item(id))) << id;
    }
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(Panel(kBasic), IDC_BTN_CHANGE_VIEW)));
}

TEST_F(BasicPage, AUserWithoutAdministerAccessSeesNoCustomPaperButton) {
    OpenSheet();
    EXPECT_TRUE(IsWindowVisible(Item(IDC_BTN_CUSTOM_PAPER)));
    CloseSheet();
    Act(Actor::kUser);
    OpenSheet();
    EXPECT_FALSE(IsWindowVisible(Item(IDC_BTN_CUSTOM_PAPER)));
}

TEST_F(BasicPage, NoListChangesWhenTheOrientationDoes) {
    OpenSheet();
    const HWND landscape = Item(IDC_RADIO_LANDSCAPE);
    kvtest::Listener display;
    display.changed = [](HWND window, unsigned changes) {
        EXPECT_FALSE(changes & kv::kChangedItems) << GetDlgCtrlID(window);
    };
    ASSERT_TRUE(kv::input::Click(landscape));
}

}  // namespace
}  // namespace journey
