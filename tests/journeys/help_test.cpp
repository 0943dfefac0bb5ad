// Help buttons and F1: which page the desktop's browser is asked to open, and that it is there.
#include "preferences.h"

#include <regex>
#include <set>

namespace journey {
namespace {

class Help : public Preferences {
 protected:
    void SetUp() override {
        Preferences::SetUp();
        // The file appears whole, by renaming.
        const std::string script =
            Write("opener", "#!/bin/sh\nprintf '%s' \"$1\" > '" + Path("tmp") + "'\nmv '" +
                                Path("tmp") + "' '" + Path("opened") + "'\n");
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        SetVariable("KVPREFS_OPENER", script.c_str());
    }
    // The page that was opened, and its heading.
    std::string Opened() const {
        const std::string told = Path("opened");
        for (int i = 0; i < 1000 && !std::filesystem::exists(told); ++i) Sleep(5);
        const std::filesystem::path page = Read(told);
        std::filesystem::remove(told);
        std::smatch heading;
        const std::string text = Read(page);
        std::regex_search(text, heading, std::regex("<h1>(.*)</h1>"));
        return page.filename().string() + " " + heading.str(1);
    }
};

TEST_F(Help, EveryPageHasItsOwnAndF1TheListOfAll) {
    const char* const pages[] = {"1101.htm Basic",     "1201.htm Layout",
                                 "5114.htm Overlay",   "1103.htm Watermark",
                                 "1301.htm Quality",   "1401.htm Device Options Setting",
                                 "5116.htm Troubleshooting", "1501.htm Job Management"};
    OpenSheet();
    for (int page = kBasic; page <= kJob; ++page) {
        PageWindow(page);
        ASSERT_TRUE(kv::input::Click(GetDlgItem(sheet_, IDHELP)));
        EXPECT_EQ(Opened(), pages[page]);
    }
    kv::input::Focus(Item(IDC_EDIT_COPIES));
    kv::input::Key(VK_F1);
    EXPECT_EQ(Opened(), "index.htm Printing preferences");
}

TEST_F(Help, DialogsHaveTheirOwn) {
    const struct { int page; const char *dialogTemplate, *procedure, *opened;
    } rows[] = {
        {kBasic, "_DLGTAB00", "DDMTAB00", "1104.htm Paper Source Details"},
        {kLayout, "_DLGTAB01", "DDMTAB01", "1105.htm Output Details"},
        {kLayout, "_DLGTAB02", "DDMTAB02", "1102.htm Pages per Sheet"},
        {kDevice, "_MAILBOXR", "DDMMailBox", "1402.htm Mailbox Setting"},
    };
    OpenSheet();
    const auto pressHelp = [](HWND dialog) {
        kv::input::Click(GetDlgItem(dialog, IDHELP));
        kv::input::Close(dialog);
    };
    for (const auto& row : rows) {
        kv::Headless().SetPolicy(pressHelp);
        module_->RunDialog(PageWindow(row.page), row.dialogTemplate, row.procedure);
        EXPECT_EQ(Opened(), row.opened);
    }
    ChooseValue(IDC_COMBO_NUP, 20, kLayout);
    kv::Headless().PushAnswer(pressHelp);
    kv::input::Click(Item(IDC_BTN_NUP_DETAILS, kLayout));
    EXPECT_EQ(Opened(), "1102.htm Pages per Sheet");
}

TEST_F(Help, PagesLinkToOthersThatExistAndAreAllReachedFromTheList) {
    const std::filesystem::path folder = KV_SOURCE_DIR "/models/help/html";
    const std::regex link("href=\"([^\"]+)\"");
    std::set<std::string> listed;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string text = Read(entry.path());
        for (std::sregex_iterator at(text.begin(), text.end(), link), end; at != end; ++at) {
            const std::string target = (*at)[1];
            EXPECT_TRUE(std::filesystem::exists(folder / target)) << entry.path() << " " << target;
            if (entry.path().filename() == "index.htm") listed.insert(target);
        }
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        EXPECT_TRUE(name == "index.htm" || listed.contains(name)) << name;
    }
}

}  // namespace
}  // namespace journey
