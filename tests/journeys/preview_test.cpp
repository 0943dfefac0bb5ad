// The preview panel as a person meets it: the same panel on every page, its two views, and a picture
// that follows every choice.
#include <platform/window/paint.h>

#include <set>

#include "tests/journeys/preferences.h"

namespace journey {
namespace {

enum Control { kStrip = 14001, kView = 14002, kSwitch = 14003, kPortrait = 2026, kLandscape = 2027 };

class Preview : public Preferences {
   protected:
    HWND Panel(int page) {
        const HWND view = FindIn(PageWindow(page), kView);
        return view != nullptr ? GetParent(view) : nullptr;
    }
    static HWND FindIn(HWND page, int id) {
        struct Search {
            int id;
            HWND found;
        } search{id, nullptr};
        EnumChildWindows(
            page,
            [](HWND child, LPARAM param) -> BOOL {
                auto& wanted = *reinterpret_cast<Search*>(param);
                if (GetDlgCtrlID(child) == wanted.id) wanted.found = child;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
    // The pixels of the panel's large view.
    static std::vector<DWORD> Picture(HWND panel, int id = kView) {
        const HWND view = GetDlgItem(panel, id);
        RECT client{};
        GetClientRect(view, &client);
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, client.right, -client.bottom, 1, 32, BI_RGB,
                          0, 0, 0, 0, 0};
        LPVOID bits = nullptr;
        const HDC dc = CreateCompatibleDC(nullptr);
        const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        const HGDIOBJ before = SelectObject(dc, bitmap);
        EXPECT_EQ(kv::PaintWindow(view, dc), kv::Painting::kSelf);
        const auto* pixels = static_cast<const DWORD*>(bits);
        std::vector<DWORD> picture(pixels, pixels + client.right * client.bottom);
        for (DWORD& pixel : picture) pixel &= 0xFFFFFF;
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
        return picture;
    }
    std::string SwitchLabel(int page) { return Text(GetDlgItem(Panel(page), kSwitch)); }
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
    EXPECT_EQ(Panel(kTroubleshooting), nullptr) << "a page that uses its full width";
    EXPECT_EQ(Panel(kQuality), panel);
    CloseSheet();
    EXPECT_FALSE(IsWindow(panel));
}

TEST_F(Preview, EachPageStartsWithItsOwnViewAndTheButtonNamesTheOther) {
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
            EXPECT_EQ(SwitchLabel(row.page), row.atStart) << row.page;
            ASSERT_TRUE(kv::input::Click(GetDlgItem(Panel(row.page), kSwitch)));
            EXPECT_EQ(SwitchLabel(row.page), row.pressed) << row.page;
        }
        SwitchLabel(kTroubleshooting);  // the next round activates the first page again
    }
}

TEST_F(Preview, SwitchingShowsAnotherPictureAndComesBack) {
    OpenSheet();
    const HWND panel = Panel(kBasic);
    const auto paper = Picture(panel);
    ASSERT_TRUE(kv::input::Click(GetDlgItem(panel, kSwitch)));
    const auto printer = Picture(panel);
    EXPECT_TRUE(printer != paper);
    ASSERT_TRUE(kv::input::Click(GetDlgItem(panel, kSwitch)));
    EXPECT_TRUE(Picture(panel) == paper);
}

TEST_F(Preview, AChoiceRepaintsBothViews) {
    struct Watcher : kv::Display {
        std::set<HWND> repainted;
        void Invalidated(HWND window) override { repainted.insert(window); }
        bool WaitForInput(HWND) override { return false; }
    } watcher;
    OpenSheet();
    const struct { int page, button; } rows[] = {{kBasic, kLandscape}, {kLayout, 2032}};
    for (const auto& row : rows) {
        const HWND panel = Panel(row.page), button = Item(row.button, row.page);
        for (const int id : {kView, kStrip}) Picture(panel, id);  // nothing is left to paint
        kv::UseDisplay(&watcher);
        kv::input::Click(button);
        kv::UseDisplay(nullptr);
        for (const int id : {kView, kStrip}) {
            EXPECT_EQ(watcher.repainted.count(GetDlgItem(panel, id)), 1u) << row.page << " " << id;
        }
        watcher.repainted.clear();
    }
}

TEST_F(Preview, EdgesOfBothViewsAreDark) {
    OpenSheet();
    const HWND panel = Panel(kBasic);
    const COLORREF shadow = GetSysColor(COLOR_3DDKSHADOW);
    const DWORD expected = RGB(GetBValue(shadow), GetGValue(shadow), GetRValue(shadow));
    for (const int id : {kView, kStrip}) {
        const auto picture = Picture(panel, id);
        const size_t width = 160;
        for (size_t i = 0; i < width; ++i) {
            ASSERT_EQ(picture[i], expected) << id << " column " << i;
            ASSERT_EQ(picture[width + i], expected) << id << " column " << i;
        }
        for (size_t row = 0; row < picture.size() / width; ++row) {
            ASSERT_EQ(picture[row * width + 1], expected) << id << " row " << row;
        }
        EXPECT_NE(picture[2 * width + 2], expected);
    }
}

TEST_F(Preview, ABookletsWordsNameTheEdgeThatItsPictureShowsFolded) {
    const struct { SHORT orientation; DWORD binding; const char* edge; } rows[] = {
        {1, 4, "left"}, {1, 5, "right"}, {2, 4, "top"}, {2, 5, "bottom"},
    };
    SetPrivate(kNup, 20);
    for (const auto& row : rows) {
        Public().dmOrientation = row.orientation;
        SetPrivate(kDuplexMode, row.binding);
        OpenSheet();
        const std::string words = Text(FindIn(PageWindow(kBasic), kView));
        EXPECT_NE(words.find(std::string("bound at the ") + row.edge), std::string::npos) << words;
        CloseSheet();
    }
}

TEST_F(Preview, AReadOnlySheetLocksTheSwitch) {
    OpenSheet(0x20);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(Panel(kBasic), kSwitch)));
}

}  // namespace
}  // namespace journey
