// The preview panel as a person meets it: the same panel on every page, its two views, and a picture
// that follows every choice.
#include <platform/window/paint.h>

#include <set>

#include "tests/journeys/preferences.h"
#include "tests/support/canvas.h"

namespace journey {
namespace {

class Preview : public Preferences {
 protected:
    static kvtest::Pixels Picture(HWND panel, int id = IDC_PIC_MAIN_VIEW) {
        const HWND view = GetDlgItem(panel, id);
        RECT client{};
        GetClientRect(view, &client);
        const kvtest::Canvas canvas(client.right, client.bottom);
        EXPECT_EQ(kv::PaintWindow(view, canvas.dc), kv::Painting::kSelf);
        return canvas.Read();
    }
};

TEST_F(Preview, OnePanelFollowsTheActivePageAndGoesWithTheSheet) {
    OpenSheet();
    const HWND panel = Panel(kBasic);
    ASSERT_NE(panel, nullptr);
    for (const int page : {kLayout, kQuality, kWatermark, kOverlay, kDevice, kJob, kBasic}) {
        EXPECT_EQ(Panel(page), panel) << page;
        EXPECT_TRUE(IsWindowVisible(panel)) << page;
        EXPECT_EQ(GetParent(panel), PageWindow(page)) << page;
    }
    // The large view is as large as its ground, the strip as wide.
    EXPECT_EQ(Picture(panel).width, 160);
    EXPECT_EQ(Picture(panel).height, 194);
    EXPECT_EQ(Picture(panel, IDC_PIC_SUB_VIEW).width, 160);
    EXPECT_EQ(Panel(kTroubleshooting), nullptr) << "a page that uses its full width";
    EXPECT_EQ(Panel(kQuality), panel);
    CloseSheet();
    EXPECT_FALSE(IsWindow(panel));
}

TEST_F(Preview, EachPageStartsWithItsOwnViewAndTheButtonShowsAndNamesTheOther) {
    const struct { int page; const char* atStart; const char* pressed; } rows[] = {
        {kBasic,     "Printer View", "Paper View"},
        {kLayout,    "Printer View", "Paper View"},
        {kOverlay,   "Printer View", "Paper View"},
        {kWatermark, "Printer View", "Watermark View"},
        {kQuality,   "Printer View", "Quality View"},
        {kDevice,    "Paper View",   "Printer View"},
    };
    OpenSheet();
    for (int round = 0; round < 2; ++round) {
        for (const auto& row : rows) {
            const HWND panel = Panel(row.page), button = GetDlgItem(panel, IDC_BTN_CHANGE_VIEW);
            const auto first = Picture(panel);
            EXPECT_EQ(Text(button), row.atStart) << row.page;
            ASSERT_TRUE(kv::input::Click(button));
            EXPECT_FALSE(Picture(panel) == first) << row.page;
            EXPECT_EQ(Text(button), row.pressed) << row.page;
            ASSERT_TRUE(kv::input::Click(button));
            EXPECT_TRUE(Picture(panel) == first) << row.page;
            kv::input::Click(button);
        }
        PageWindow(kTroubleshooting);  // the next round activates the first page again
    }
}

TEST_F(Preview, AChoiceRepaintsBothViews) {
    OpenSheet();
    constexpr int kViews[] = {IDC_PIC_MAIN_VIEW, IDC_PIC_SUB_VIEW};
    for (const auto& [page, id] :
         {std::pair{kBasic, IDC_RADIO_LANDSCAPE}, {kLayout, IDC_CHK_ROTATE}}) {
        const HWND panel = Panel(page), button = Item(id, page);
        for (const int view : kViews) Picture(panel, view);  // none is left to paint
        std::set<HWND> repainted;
        kvtest::Listener display;
        display.invalidated = [&](HWND window) { repainted.insert(window); };
        kv::input::Click(button);
        for (const int view : kViews) {
            EXPECT_EQ(repainted.count(GetDlgItem(panel, view)), 1u) << page << " " << view;
        }
    }
}

TEST_F(Preview, ABookletsWordsNameTheEdgeThatItsPictureShowsFolded) {
    const struct { SHORT orientation; DWORD binding; const char* edge; } rows[] = {
        {1, 4, "left"}, {1, 5, "right"}, {2, 4, "top"}, {2, 5, "bottom"},
    };
    Settings().mdmNup = 20;
    for (const auto& row : rows) {
        Public().dmOrientation = row.orientation;
        Settings().mdmDuplexMode = row.binding;
        OpenSheet();
        const std::string words = Text(Panel(kBasic), IDC_PIC_MAIN_VIEW);
        EXPECT_NE(words.find(std::string("bound at the ") + row.edge), std::string::npos) << words;
        CloseSheet();
    }
}

}  // namespace
}  // namespace journey
