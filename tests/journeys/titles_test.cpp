// What dialogs are called, and which product they say they belong to.
#include <platform/window/paint.h>

#include <algorithm>

#include "preferences.h"
#include "tests/support/canvas.h"

namespace journey {
namespace {

class Titles : public Preferences {};

TEST_F(Titles, ExportedDialogsHaveTheirTitlesAndCaptions) {
    const struct { const char *dialogTemplate, *procedure, *title; int control; const char* text; }
    rows[] = {
        {"_MAILBOXR", "DDMMailBox", "Mailbox Setting", 4203, "Mailbox Name:"},
        {"_LBPCUSTOMPAPERS", "DDMCUSTOMPAPER", "Custom Paper Sizes", 9604, "&New..."},
        {"_DLGEDIT0", "DDMEDIT0", "Edit Watermark", 9108, "OK"},
        // The field whose id is that of a colour's name.
        {"_DLGEDIT0", "DDMEDIT0", "Edit Watermark", 1705, ""},
        {"_DLGKEEPSETTINGADD", "DDMKeepSettingAdd", "Saved Settings", 9302, "Saved Settings"},
        {"_DLGSAVEDATA", "DDMSaveData", "Saved Data", 9202, ""},
        {"_ABOUTKVI", "DDMPrinterProp", "About", 4101, "Varnell Tessora(R) 7720MF"},
        {"_ABOUTKVI", "DDMAbout", "About", 4102, "Version 1.0.0.0"},
    };
    OpenSheet();
    for (const auto& row : rows) {
        std::string title, text;
        kv::Headless().SetPolicy([&](HWND dialog) {
            title = Text(dialog);
            text = Text(dialog, row.control);
            kv::input::Close(dialog);
        });
        module_->RunDialog(PageWindow(kDevice), row.dialogTemplate, row.procedure);
        EXPECT_EQ(title, row.title) << row.procedure;
        EXPECT_EQ(text, row.text) << row.procedure << " " << row.control;
    }
}

TEST_F(Titles, ThePageOfTheProductTellsItsNameAndVersionEachTimeItIsShown) {
    OpenSheet();
    HFONT first = nullptr;
    for (int visit = 0; visit < 2; ++visit) {
        const HWND name = Item(IDC_ST_PRODUCT_NAME, kTroubleshooting);
        EXPECT_EQ(Text(name), "Varnell Tessora(R) 7720MF");
        const auto font = reinterpret_cast<HFONT>(SendMessageA(name, WM_GETFONT, 0, 0));
        LOGFONTA look{};
        ASSERT_NE(GetObjectA(font, sizeof look, &look), 0);
        EXPECT_EQ(look.lfWeight, 700);
        EXPECT_EQ(look.lfHeight, -13) << "10 points";
        if (first == nullptr) first = font;
        EXPECT_EQ(font, first);
        EXPECT_EQ(Text(Item(IDC_ST_VERSION, kTroubleshooting)), "Version 1.0.0.0");
        PageWindow(kBasic);
    }
}

// In the colour of links, one that can be read on the page's ground, over a line.
TEST_F(Titles, LinksLookLikeLinksOnLightAndDarkGround) {
    OpenSheet();
    const HWND link = Item(IDC_URL_TECH, kTroubleshooting);
    const INT face = COLOR_BTNFACE;
    const COLORREF before = GetSysColor(COLOR_BTNFACE);
    const struct { COLORREF ground; DWORD text; } rows[] = {
        {RGB(240, 240, 240), 0x0000CC}, {RGB(40, 40, 40), 0x8AB4F8}};
    for (const auto& row : rows) {
        SetSysColors(1, &face, &row.ground);
        const kvtest::Canvas canvas(195, 20);
        EXPECT_EQ(kv::PaintWindow(link, canvas.dc), kv::Painting::kOwnerDrawn);
        const kvtest::Pixels pixels = canvas.Read();
        int longest = 0, run = 0;
        for (const DWORD pixel : pixels.values) {
            run = pixel == row.text ? run + 1 : 0;
            longest = std::max(longest, run);
        }
        EXPECT_GT(longest, 40) << row.ground;
    }
    SetSysColors(1, &face, &before);
}

}  // namespace
}  // namespace journey
