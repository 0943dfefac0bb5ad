// What dialogs are called, and which product they say they belong to.
#include "preferences.h"

namespace journey {
namespace {

class Titles : public Preferences {};

TEST_F(Titles, ExportedDialogsHaveTheirTitlesAndCaptions) {
    const struct {
        const char* dialogTemplate;
        const char* procedure;
        const char* title;
        int control;
        const char* text;
    } rows[] = {
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
        std::string title;
        std::string text;
        kv::Headless().SetPolicy([&](HWND dialog) {
            title = Text(dialog);
            text = Text(GetDlgItem(dialog, row.control));
            kv::input::Close(dialog);
        });
        module_->RunDialog(PageWindow(kDevice), row.dialogTemplate, row.procedure);
        EXPECT_EQ(title, row.title) << row.procedure;
        EXPECT_EQ(text, row.text) << row.procedure << " " << row.control;
    }
}

TEST_F(Titles, ThePageOfTheProductTellsItsNameAndVersionEachTimeItIsShown) {
    OpenSheet();
    for (int visit = 0; visit < 2; ++visit) {
        EXPECT_EQ(Text(Item(4101, kTroubleshooting)), "Varnell Tessora(R) 7720MF");
        EXPECT_EQ(Text(Item(4102, kTroubleshooting)), "Version 1.0.0.0");
        PageWindow(kBasic);
    }
}

}  // namespace
}  // namespace journey
