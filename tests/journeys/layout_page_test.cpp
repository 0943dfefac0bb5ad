// Journeys over the Layout page and its pages-per-sheet details.
#include <platform/window/paint.h>

#include <algorithm>
#include <utility>

#include "preferences.h"
#include "tests/support/canvas.h"

namespace journey {
namespace {

using kvtest::ChooseIn;
using kvtest::ValueAt;

class LayoutPage : public Preferences {
 protected:
    HWND Duplex() { return Item(IDC_COMBO_DUPLEX, kLayout); }
    void InDetails(int closer, const std::function<void(HWND)>& act) {
        InDialog(kLayout, IDC_BTN_NUP_DETAILS, closer, act);
    }
    void StartWith(DWORD nup, DWORD style, DWORD duplex = 1) {
        Settings().mdmNup = nup;
        Settings().nUp = nup;
        Settings().mdmNupStyle = style;
        Settings().mdmDuplexMode = duplex;
        Settings().nUpMode = duplex == 5 ? 1 : 0;
        OpenSheet();
    }
    // What is stored and shown of the duplex mode.
    void ExpectDuplex(DWORD mode, DWORD printed, SHORT edge, const char* shown) {
        EXPECT_EQ(Settings().mdmDuplexMode, mode);
        EXPECT_EQ(Settings().nUp, printed);
        EXPECT_EQ(Public().dmDuplex, edge);
        EXPECT_EQ(Selected(Duplex()), shown);
    }
};

TEST_F(LayoutPage, ABookletIsBoundAtTheLeftWhateverTheDuplexListIsAskedFor) {
    OpenSheet();
    ChooseValue(IDC_COMBO_NUP, 20, kLayout);
    EXPECT_EQ(Settings().mdmNup, 20u);
    EXPECT_EQ(Settings().layoutFlags & 2, 2u);
    EXPECT_EQ(ValueAt(Duplex(), 0), 1u);
    ExpectDuplex(4, 2, 3, "On");
    for (const int entry : {0, 2, 1}) {
        ASSERT_TRUE(kv::input::Choose(Duplex(), entry));
        ExpectDuplex(4, 2, 3, "On");
    }
    ChooseValue(IDC_COMBO_NUP, 4, kLayout);
    ExpectDuplex(1, 4, 1, "Off");
    ChooseValue(IDC_COMBO_NUP, 20, kLayout);
    ASSERT_TRUE(PressOk());
    EXPECT_EQ(Settings().mdmDuplexMode, 4u);
    EXPECT_EQ(Settings().nUp, 2u);
    EXPECT_EQ(Public().dmDuplex, 3);
}

TEST_F(LayoutPage, ASheetStartsWithWhatIsPrintedUnlessItIsABookletOrAPoster) {
    const struct { DWORD nup, printed, duplex, shown; } rows[] = {
        {0, 4, 1, 4}, {9, 0, 2, 0}, {103, 0, 1, 103}, {20, 2, 4, 20}, {20, 2, 5, 20}};
    for (const auto& row : rows) {
        Settings().mdmNup = row.nup;
        Settings().nUp = row.printed;
        Settings().mdmDuplexMode = row.duplex;
        OpenSheet();
        EXPECT_EQ(Settings().mdmNup, row.shown) << row.nup;
        CloseSheet();
    }
}

TEST_F(LayoutPage, RightBindingOutlivesPagesAppliesAndRefusals) {
    UseRules("[ConflictConditions]\r\nComboDuplexBooklet0=(2),0,0,(ComboNup,0,0,(20),0)\r\n");
    StartWith(20, 0, 5);
    ASSERT_NE(PageWindow(kLayout), nullptr);
    EXPECT_EQ(Settings().mdmDuplexMode, 5u) << "opened";
    ASSERT_NE(PageWindow(kQuality), nullptr);
    ASSERT_NE(PageWindow(kLayout), nullptr);
    ASSERT_TRUE(kv::input::Click(Item(IDC_CHK_ROTATE, kLayout)));
    EXPECT_EQ(Settings().mdmDuplexMode, 5u) << "another setting";
    SendMessageA(PageWindow(kLayout), WM_USER + 300, 0, 0);
    EXPECT_EQ(Settings().mdmDuplexMode, 5u) << "refreshed from elsewhere";
    kv::Headless().PushAnswer([](HWND dialog) { kv::input::Click(GetDlgItem(dialog, IDCANCEL)); });
    ASSERT_TRUE(kv::input::Choose(Duplex(), 2));
    EXPECT_EQ(Settings().mdmDuplexMode, 5u) << "refused";
    EXPECT_EQ(Selected(Duplex()), "On");
    SendMessageA(sheet_, PSM_APPLY, 0, 0);
    EXPECT_EQ(Settings().mdmDuplexMode, 5u) << "applied";
    EXPECT_EQ(Settings().nUpMode & 3, 1u);
}

TEST_F(LayoutPage, SettingsFromElsewhereAreBoundAndTiledLikeChosenOnes) {
    // as they come: pages per sheet, duplex, orientation; what follows: duplex, edge, bits of the
    // booklet and the poster, of its right binding, tiles each way
    const struct {
        DWORD nup, duplex; SHORT orientation; DWORD bound; SHORT edge; DWORD flags, right, tiles;
    } rows[] = {
        {20, 2, 1, 4, 3, 0x2, 0, 0}, {20, 4, 1, 4, 3, 0x2, 0, 0}, {20, 5, 1, 5, 3, 0x2, 1, 0},
        {20, 5, 2, 5, 3, 0x2, 2, 0}, {4, 5, 1, 1, 1, 0, 0, 0},    {103, 2, 1, 2, 2, 0x400, 0, 3},
    };
    for (const auto& row : rows) {
        StartWith(20, 0, 5);
        const HWND page = PageWindow(kLayout);
        Settings().mdmNup = row.nup;
        Settings().mdmDuplexMode = row.duplex;
        Settings().nUpMode = 0;
        Public().dmOrientation = row.orientation;
        SendMessageA(page, WM_USER + 300, 0, 0);
        const std::string came = std::to_string(row.nup) + ", " + std::to_string(row.duplex);
        EXPECT_EQ(Settings().mdmDuplexMode, row.bound) << came;
        EXPECT_EQ(Public().dmDuplex, row.edge) << came;
        EXPECT_EQ(Settings().layoutFlags & 0x402, row.flags) << came;
        EXPECT_EQ(Settings().nUpMode & 3, row.right) << came;
        EXPECT_EQ(Settings().posterTilesAcross, row.tiles) << came;
        EXPECT_EQ(Settings().posterTilesDown, row.tiles) << came;
        CloseSheet();
    }
}

TEST_F(LayoutPage, PaintingTheBookletEntryNamesTheFirstDuplexEntry) {
    OpenSheet();
    for (const SHORT edge : {3, 2}) {
        ChooseValue(IDC_COMBO_DUPLEX, edge, kLayout);
        EXPECT_EQ(Public().dmDuplex, edge);
    }
    const HWND duplex = Duplex();
    SendMessageA(duplex, CB_DELETESTRING, 0, 0);
    SendMessageA(duplex, CB_INSERTSTRING, 0, reinterpret_cast<LPARAM>("On"));
    SendMessageA(duplex, CB_SETITEMDATA, 0, 1);
    SendMessageA(duplex, CB_SETCURSEL, 2, 0);
    const HWND nup = Item(IDC_COMBO_NUP, kLayout);
    EXPECT_EQ(SendMessageA(nup, CB_GETITEMHEIGHT, 0, 0), 32);
    const kvtest::Canvas canvas(150, 32);
    const auto firstAfterPainting = [&](DWORD pages) {
        char text[128] = "";
        EXPECT_TRUE(kv::PaintItem(nup, IndexOf(nup, pages), canvas.dc, {0, 0, 150, 32}, 0));
        SendMessageA(duplex, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(text));
        return std::string(text);
    };
    EXPECT_EQ(firstAfterPainting(16), "On") << "only the booklet entry does it";
    EXPECT_EQ(firstAfterPainting(20), "Off");
    EXPECT_EQ(ValueAt(duplex, 0), 1u);
    EXPECT_EQ(SendMessageA(duplex, CB_GETCURSEL, 0, 0), 2);
    EXPECT_EQ(Settings().mdmDuplexMode, 2u);
}

TEST_F(LayoutPage, ABorderIsDroppedOnlyWhenThereWereNoPagesToBorder) {
    const struct { DWORD nup; DWORD kept; } rows[] = {{0, 0}, {103, 0}, {2, 4}, {16, 4}};
    for (const auto& row : rows) {
        StartWith(row.nup, 4 | 1);
        ChooseValue(IDC_COMBO_NUP, 9, kLayout);
        EXPECT_EQ(Settings().mdmNupStyle, row.kept | 1) << row.nup;
        CloseSheet();
    }
}

TEST_F(LayoutPage, DefaultsReachTheImageShiftAndTheSnapshot) {
    Settings().mdmOffsetX = 0x4020;
    StartWith(20, 7, 5);
    ASSERT_TRUE(kv::input::Click(Item(IDC_DEFAULTS, kLayout)));
    EXPECT_EQ(Settings().mdmNup, 0u);
    EXPECT_EQ(Settings().mdmDuplexMode, 1u);
    EXPECT_EQ(Settings().mdmNupStyle, 0u);
    EXPECT_EQ(Settings().mdmOffsetX, 0u);
    Notify(kLayout, PSN_RESET);
    EXPECT_EQ(Settings().mdmNup, 20u);
    EXPECT_EQ(Settings().mdmDuplexMode, 4u);
}

TEST_F(LayoutPage, DetailsOfferTheOrdersOfTheLayout) {
    const struct { DWORD nup; SHORT orientation; int shown; std::vector<DWORD> offered; } rows[] = {
        {20, 1, IDC_COMBO_BOOKLET, {4, 5}},    {2, 1, IDC_COMBO_ORDER_ACROSS, {0, 1}},
        {2, 2, IDC_COMBO_ORDER_DOWN, {2}},     {4, 1, IDC_COMBO_ORDER, {0, 2, 1, 3}},
        {9, 2, IDC_COMBO_ORDER, {0, 2, 1, 3}},
    };
    for (const auto& row : rows) {
        Public().dmOrientation = row.orientation;
        StartWith(row.nup, 0, row.nup == 20 ? 4 : 1);
        InDetails(IDCANCEL, [&](HWND dialog) {
            EXPECT_EQ(Text(dialog), "Pages/Sheet Details");
            for (const int id : {IDC_COMBO_ORDER, IDC_COMBO_BOOKLET, IDC_COMBO_ORDER_DOWN,
                                 IDC_COMBO_ORDER_ACROSS}) {
                EXPECT_EQ(IsWindowVisible(GetDlgItem(dialog, id)) != FALSE, id == row.shown)
                    << row.nup << " " << id;
            }
            const HWND order = GetDlgItem(dialog, row.shown);
            ASSERT_EQ(SendMessageA(order, CB_GETCOUNT, 0, 0),
                      static_cast<LRESULT>(row.offered.size()));
            for (size_t i = 0; i < row.offered.size(); ++i) {
                EXPECT_EQ(ValueAt(order, static_cast<LRESULT>(i)), row.offered[i]);
            }
            const HWND nup = GetDlgItem(dialog, IDC_COMBO_NUP);
            EXPECT_EQ(SendMessageA(nup, CB_GETCOUNT, 0, 0), 6);
            EXPECT_EQ(kvtest::ChosenValue(nup), row.nup);
            for (const DWORD removed : {0u, 102u, 103u, 104u, 105u}) {
                EXPECT_EQ(IndexOf(nup, removed), -1);
            }
        });
        CloseSheet();
    }
}

TEST_F(LayoutPage, DetailsStoreTheShownOrderAndKeepTheBorder) {
    Settings().Scale = 150;
    StartWith(4, 4);
    // The preview's, while something is done in the dialog.
    const auto redrawsWhile = [](HWND dialog, const std::function<void()>& act) {
        const HWND preview = GetDlgItem(dialog, IDC_PIC_MAIN_VIEW);
        const kvtest::Canvas canvas(200, 200);
        kv::PaintWindow(preview, canvas.dc);
        kvtest::Listener display;
        int redraws = 0;
        display.invalidated = [&](HWND window) { redraws += window == preview; };
        act();
        return redraws;
    };
    InDetails(IDOK, [&](HWND dialog) {
        EXPECT_TRUE(IsChecked(GetDlgItem(dialog, IDC_CHK_NUP_BORDER)));
        EXPECT_EQ(Settings().mdmNupStyle, 4u) << "opening changes nothing";
        EXPECT_EQ(Settings().mdmScaleSize, 150u);
        EXPECT_GT(redrawsWhile(dialog, [&] { ChooseIn(dialog, IDC_COMBO_ORDER, 3); }), 0);
        EXPECT_EQ(Settings().mdmNupStyle, 7u);
        ChooseIn(dialog, IDC_COMBO_NUP, 2);
        EXPECT_TRUE(IsWindowVisible(GetDlgItem(dialog, IDC_COMBO_ORDER_ACROSS)));
        EXPECT_EQ(Settings().mdmNupStyle, 4u) << "what the list shows holds";
        ChooseIn(dialog, IDC_COMBO_ORDER_ACROSS, 1);
        EXPECT_EQ(Settings().mdmNupStyle, 5u);
    });
    EXPECT_EQ(Settings().nUp, 2u);
    EXPECT_EQ(Settings().nUpMode & 7, 1u);
    EXPECT_EQ(Settings().mdmScaleSize, 100u) << "OK derives what other pages chose, too";
    InDetails(IDOK, [&](HWND dialog) {
        const HWND defaults = GetDlgItem(dialog, IDC_DEFAULTS);
        EXPECT_GT(redrawsWhile(dialog, [&] { kv::input::Click(defaults); }), 0);
        EXPECT_EQ(Settings().nUpMode & 7, 1u) << "derived with OK";
    });
    EXPECT_EQ(Settings().nUpMode & 7, 0u);
    Notify(kLayout, PSN_RESET);
    EXPECT_EQ(Settings().mdmNupStyle, 0u) << "accepted in the dialog";
    InDetails(IDOK, [&](HWND dialog) {
        ChooseIn(dialog, IDC_COMBO_NUP, 20);
        EXPECT_EQ(Settings().mdmDuplexMode, 4u);
        ChooseIn(dialog, IDC_COMBO_BOOKLET, 5);
    });
    EXPECT_EQ(Settings().nUpMode & 3, 1u);
    ExpectDuplex(5, 2, 3, "On");
}

// What the preview draws and what the list says must be the same, also for records of before.
TEST_F(LayoutPage, TwoPagesKeepAnOrderThatTheirListOffers) {
    const struct {
        SHORT orientation;
        DWORD nup, style, kept;
        const char* shown;
    } rows[] = {
        {1, 4, 3, 1, "Right-to-Left"}, {1, 4, 7, 5, "Right-to-Left"}, {1, 4, 2, 0, "Left-to-Right"},
        {2, 4, 3, 2, "Top-to-Bottom"}, {1, 2, 3, 3, "Right-to-Left"},
    };
    for (const auto& row : rows) {
        Public().dmOrientation = row.orientation;
        StartWith(row.nup, row.style);
        if (row.nup != 2) ChooseValue(IDC_COMBO_NUP, 2, kLayout);
        EXPECT_EQ(Settings().mdmNupStyle, row.kept) << row.style;
        InDetails(IDOK, [&](HWND dialog) {
            const HWND list = GetDlgItem(
                dialog, row.orientation == 1 ? IDC_COMBO_ORDER_ACROSS : IDC_COMBO_ORDER_DOWN);
            EXPECT_TRUE(IsWindowVisible(list));
            EXPECT_EQ(Selected(list), row.shown) << row.style;
        });
        EXPECT_EQ(Settings().mdmNupStyle, row.kept) << row.style;
        EXPECT_EQ(Settings().nUpMode & 1, row.kept & 1) << row.style;
        CloseSheet();
    }
}

TEST_F(LayoutPage, DetailsDefaultsAndCancel) {
    StartWith(20, 7, 5);
    InDetails(IDCANCEL, [&](HWND dialog) {
        ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, IDC_DEFAULTS)));
        EXPECT_EQ(Settings().mdmNupStyle, 0u);
        EXPECT_EQ(Settings().mdmDuplexMode, 4u);
        EXPECT_EQ(SendMessageA(GetDlgItem(dialog, IDC_COMBO_BOOKLET), CB_GETCURSEL, 0, 0), 0);
        EXPECT_FALSE(IsChecked(GetDlgItem(dialog, IDC_CHK_NUP_BORDER)));
        ChooseIn(dialog, IDC_COMBO_NUP, 2);
        ChooseIn(dialog, IDC_COMBO_NUP, 20);
    });
    EXPECT_EQ(Settings().mdmNupStyle, 7u);
    EXPECT_EQ(Settings().mdmDuplexMode, 5u);
    EXPECT_EQ(Settings().mdmNup, 20u);
    EXPECT_EQ(Settings().nUpMode & 3, 1u);
    CloseSheet();
    StartWith(4, 0);
    const auto before = record_;
    InDetails(IDCANCEL, [&](HWND dialog) {
        ChooseIn(dialog, IDC_COMBO_NUP, 20);
        EXPECT_EQ(Settings().layoutFlags & 2, 2u);
    });
    EXPECT_EQ(record_, before);
    EXPECT_FALSE(CanApply()) << "nothing is to be applied";
}

// The entry of four pages, read from one side: which columns are not white.
std::pair<int, int> InkOf(HWND combo, int entry, UINT align) {
    const kvtest::Canvas canvas(200, 32);
    SetTextAlign(canvas.dc, align);
    EXPECT_TRUE(kv::PaintItem(combo, entry, canvas.dc, {0, 0, 200, 32}, 0));
    const kvtest::Pixels pixels = canvas.Read();
    std::pair<int, int> ink{pixels.width, 0};
    for (int i = 0; i < pixels.width * pixels.height; ++i) {
        if (pixels.values[i] == 0xFFFFFF) continue;
        ink = {std::min(ink.first, i % pixels.width), std::max(ink.second, i % pixels.width + 1)};
    }
    return ink;
}

TEST_F(LayoutPage, EntriesStartAtTheSideWhereReadingStarts) {
    OpenSheet();
    const HWND nup = Item(IDC_COMBO_NUP, kLayout);
    const auto fromLeft = InkOf(nup, IndexOf(nup, 4), TA_LEFT);
    const auto fromRight = InkOf(nup, IndexOf(nup, 4), TA_RTLREADING);
    EXPECT_LT(fromLeft.second, 100);
    EXPECT_GT(fromRight.first, 100);
    // Picture and text take as much room; the icon's own margins differ by a few pixels.
    EXPECT_NEAR(fromRight.first, 200 - fromLeft.second, 8);
    EXPECT_NEAR(fromRight.second, 200 - fromLeft.first, 8);
}

TEST_F(LayoutPage, DialogsWithoutAControlRunThroughTheirExportsOnThePagesState) {
    StartWith(4, 0);
    const HWND page = PageWindow(kLayout);
    kv::Headless().PushAnswer([](HWND dialog) {
        ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, IDC_RADIO_STYLE_3)));
        kv::input::Click(GetDlgItem(dialog, IDOK));
    });
    EXPECT_EQ(module_->RunDialog(page, "_DLGTAB02", "DDMTAB02"), 1);
    EXPECT_EQ(Settings().mdmNupStyle & 3, 2u);
    EXPECT_EQ(module_->RunDialog(page, "_DLGTAB02", "NoSuchExport"), -1);
    EXPECT_EQ(module_->RunDialog(page, "_NOSUCHDIALOG", "DDMTAB02"), -1);
    EXPECT_EQ(module_->RunDialog(sheet_, "_DLGTAB02", "DDMTAB02"), -1) << "no page, no state";
    EXPECT_EQ(module_->RunDialog(nullptr, "_DLGTAB02", "DDMTAB02"), -1);
}

}  // namespace
}  // namespace journey
