// Overlays: adding, editing and deleting them, their names and files, what the printer's data hold,
// and who may change them.
#include <fstream>

#include "tests/journeys/preferences.h"

namespace journey {
namespace {

class Overlays : public Preferences {
 protected:
    void SetUp() override {
        Preferences::SetUp();
        for (const char* name : {"letter.prn", "form.prn", "other.prn"}) {
            std::filesystem::create_directories(Path("forms"));
            std::ofstream(Path("forms") + "/" + name) << name;
        }
    }
    std::string File(const std::string& name) const { return Path("forms") + "/" + name; }
    // As "128=Letter 129=Form", from the printer's data.
    std::string Stored(const char* value) {
        const HANDLE handle = Open(PRINTER_ACCESS_USE);
        std::string bytes(8000, '\0');
        DWORD type = 0, size = 0;
        char name[64];
        std::snprintf(name, sizeof name, "%s", value);
        GetPrinterDataA(handle, name, &type, reinterpret_cast<BYTE*>(bytes.data()),
                        static_cast<DWORD>(bytes.size()), &size);
        ClosePrinter(handle);
        bytes.resize(size);
        while (!bytes.empty() && bytes.back() == '\0') bytes.pop_back();
        for (char& c : bytes) {
            if (c == '\0') c = ' ';
        }
        return bytes;
    }
    // The list's entries, the chosen one in brackets.
    std::string Shown() {
        const HWND list = Item(IDC_LIST_OVERLAY, kOverlay);
        LRESULT toChosen = SendMessageA(list, LB_GETCURSEL, 0, 0);
        std::string text;
        for (const std::string& row : kvtest::Rows(list)) {
            text += (text.empty() ? "" : " ") + (toChosen-- == 0 ? "[" + row + "]" : row);
        }
        return text;
    }
    // Fills the editor, presses OK, answers what it says, and leaves by Cancel when it stays.
    void Editor(int opener, const std::string& name, const std::string& path, int answer = 0) {
        kv::Headless().PushAnswer([=, this](HWND dialog) {
            kvtest::TypeIn(GetDlgItem(dialog, IDC_EDIT_OVERLAY_NAME), name);
            kvtest::TypeIn(GetDlgItem(dialog, IDC_EDIT_OVERLAY_FILE), path);
            if (answer != 0) {
                kv::Headless().PushAnswer([=, this](HWND box) {
                    said = Text(GetDlgItem(box, 0xFFFF));
                    kv::input::Click(GetDlgItem(box, answer));
                });
            }
            kv::input::Click(GetDlgItem(dialog, IDOK));
            left = Text(GetDlgItem(dialog, IDC_EDIT_OVERLAY_NAME));
            if (answer == 0 || answer == IDCANCEL || !accepted) {
                kv::input::Click(GetDlgItem(dialog, IDCANCEL));
            }
        });
        ASSERT_TRUE(kv::input::Click(Item(opener, kOverlay)));
    }
    void Add(const std::string& name, const std::string& path) {
        kv::Headless().PushAnswer([=](HWND dialog) {
            kvtest::TypeIn(GetDlgItem(dialog, IDC_EDIT_OVERLAY_NAME), name);
            kvtest::TypeIn(GetDlgItem(dialog, IDC_EDIT_OVERLAY_FILE), path);
            EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, IDOK)));
        });
        ASSERT_TRUE(kv::input::Click(Item(IDC_BTN_OVERLAY_ADD, kOverlay)));
    }
    void ChooseRow(int row) {
        ASSERT_TRUE(kv::input::Choose(Item(IDC_LIST_OVERLAY, kOverlay), row));
    }

    std::string said, left;
    bool accepted = false;
};

TEST_F(Overlays, AreAddedEditedAndDeleted) {
    Settings().mdmOverlay = 77;
    OpenSheet();
    EXPECT_EQ(Shown(), "[<NONE>]");
    EXPECT_EQ(Settings().mdmOverlay, 0u);
    EXPECT_EQ(Stored("FormOverlay"), "0");
    EXPECT_EQ(Stored("[FormOverlayName]"), "0=<NONE>");
    Add("  Letter", File("letter.prn"));
    EXPECT_EQ(Settings().mdmOverlay, 128u);
    EXPECT_EQ(Shown(), "<NONE> [Letter]");
    Add("form.prn", Path("forms"));
    EXPECT_EQ(Settings().mdmOverlay, 129u);
    EXPECT_EQ(Stored("FormOverlay"), "0,128,129");
    EXPECT_EQ(Stored("[FormOverlayPath]"),
              "0=<NONE> 128=" + File("letter.prn") + " 129=" + Path("forms") + "\\form.prn")
        << "a folder, and the name of the file in it";
    EXPECT_TRUE(CanApply());
    // Edit shows what is there; Cancel leaves it.
    ChooseRow(1);
    Editor(IDC_BTN_OVERLAY_EDIT, "Changed", File("nothing.prn"), IDOK);
    EXPECT_EQ(said, "The specific file is not found in this directory");
    EXPECT_EQ(Shown(), "<NONE> [Letter] form.prn");
    accepted = true;
    Editor(IDC_BTN_OVERLAY_EDIT, "form.prn", File("other.prn"), IDOK);
    EXPECT_EQ(said, "\"form.prn\" is already registered.  Do you want to overwrite it?");
    EXPECT_EQ(Shown(), "<NONE> [form.prn]") << "the other one gave way";
    EXPECT_EQ(Stored("[FormOverlayPath]"), "0=<NONE> 128=" + File("other.prn"));
    // Deleting chooses the one above.
    InDialog(kOverlay, IDC_BTN_OVERLAY_DELETE, IDCANCEL, [](HWND) {});
    EXPECT_EQ(Settings().mdmOverlay, 128u);
    InDialog(kOverlay, IDC_BTN_OVERLAY_DELETE, IDOK, [](HWND) {});
    EXPECT_EQ(Settings().mdmOverlay, 0u);
    EXPECT_EQ(Shown(), "[<NONE>]");
    EXPECT_EQ(Stored("FormOverlay"), "0");
}

TEST_F(Overlays, AFileIsLookedForAndNamesAnOverlayWithoutAName) {
    constexpr int kFileName = 0x0480;
    OpenSheet();
    kv::Headless().PushAnswer([&](HWND dialog) {
        kv::Headless().PushAnswer([&](HWND browser) {
            EXPECT_EQ(Text(browser), "Browse");
            kvtest::TypeIn(GetDlgItem(browser, kFileName), File("letter.prn"));
            EXPECT_TRUE(kv::input::Click(GetDlgItem(browser, IDOK)));
        });
        EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, IDC_BTN_OVERLAY_BROWSE)));
        EXPECT_EQ(Text(GetDlgItem(dialog, IDC_EDIT_OVERLAY_NAME)), "letter.prn");
        EXPECT_EQ(Text(GetDlgItem(dialog, IDC_EDIT_OVERLAY_FILE)), File("letter.prn"));
        EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, IDOK)));
    });
    ASSERT_TRUE(kv::input::Click(Item(IDC_BTN_OVERLAY_ADD, kOverlay)));
    EXPECT_EQ(Shown(), "<NONE> [letter.prn]");
}

TEST_F(Overlays, NamesAreOfferedOrRefused) {
    OpenSheet();
    Editor(IDC_BTN_OVERLAY_ADD, "   ", File("letter.prn"));
    EXPECT_EQ(left, "Overlay -1-");
    EXPECT_EQ(Settings().mdmOverlay, 0u) << "cancelled";
    Editor(IDC_BTN_OVERLAY_ADD, "<NONE>", File("letter.prn"), IDOK);
    EXPECT_EQ(said, "\"<NONE>\" is not valid. Please use different name!");
    Add("Letter", File("letter.prn"));
    Editor(IDC_BTN_OVERLAY_ADD, "Letter", File("form.prn"), IDCANCEL);
    EXPECT_EQ(Stored("[FormOverlayPath]"), "0=<NONE> 128=" + File("letter.prn"));
    accepted = true;
    Editor(IDC_BTN_OVERLAY_ADD, "Letter", File("form.prn"), IDOK);
    EXPECT_EQ(Stored("[FormOverlayPath]"), "0=<NONE> 128=" + File("form.prn"));
    EXPECT_EQ(Settings().mdmOverlay, 128u);
    EXPECT_EQ(Stored("FormOverlay"), "0,128");
    Add(std::string(40, 'n') + ";x", File("form.prn"));
    EXPECT_EQ(Stored("[FormOverlayName]"), "0=<NONE> 128=Letter 129=" + std::string(30, 'n'));
}

TEST_F(Overlays, SixteenAreTheMostAndUsersOnlyChoose) {
    std::string ids = "0", names = "0=<NONE>", paths = names;
    for (int id = 128; id < 142; ++id) {
        const std::string number = std::to_string(id);
        ids += "," + number;
        names += '\0' + number + "=O" + number;
        paths += '\0' + number + "=" + File("form.prn");
    }
    Put("FormOverlay", REG_SZ, ids + '\0');
    Put("[FormOverlayName]", REG_BINARY, names + '\0');
    Put("[FormOverlayPath]", REG_BINARY, paths + '\0');
    OpenSheet();
    EXPECT_TRUE(IsWindowEnabled(Item(IDC_BTN_OVERLAY_ADD, kOverlay)));
    Add("Last", File("letter.prn"));
    EXPECT_EQ(Settings().mdmOverlay, 142u);
    EXPECT_FALSE(IsWindowEnabled(Item(IDC_BTN_OVERLAY_ADD, kOverlay)));
    InDialog(kOverlay, IDC_BTN_OVERLAY_DELETE, IDOK, [](HWND) {});
    EXPECT_TRUE(IsWindowEnabled(Item(IDC_BTN_OVERLAY_ADD, kOverlay)));
    CloseSheet();
    Act(Actor::kUser);
    OpenSheet();
    EXPECT_FALSE(IsWindowVisible(Item(IDC_BTN_OVERLAY_ADD, kOverlay)));
    ChooseRow(2);
    EXPECT_EQ(Settings().mdmOverlay, 129u);
    CloseSheet();
    // More than there is room for, or no list of ids at all: shown as far as it goes, never
    // replaced.
    Act(Actor::kAdministrator);
    for (const std::string& odd :
         {ids + ",142,143,144", std::string("none"), std::string(9000, '7')}) {
        Put("FormOverlay", REG_SZ, odd + '\0');
        OpenSheet();
        PageWindow(kOverlay);
        EXPECT_EQ(Stored("FormOverlay"),
                  odd.substr(0, 8000).substr(0, Stored("FormOverlay").size()));
        CloseSheet();
        EXPECT_EQ(Stored("[FormOverlayName]").substr(0, 17), "0=<NONE> 128=O128");
    }
}

// Somebody else stores overlays while a dialog or a question is open.
TEST_F(Overlays, WhatOthersStoreMeanwhileStays) {
    const auto others = [&](const std::string& ids, const std::vector<std::string>& entries) {
        std::string run;
        for (const std::string& entry : entries) run += entry + '\0';
        Put("FormOverlay", REG_SZ, ids + '\0');
        Put("[FormOverlayName]", REG_BINARY, run);
        Put("[FormOverlayPath]", REG_BINARY, run);
    };
    const auto inEditor = [&](int opener, const std::function<void(HWND)>& act) {
        kv::Headless().PushAnswer([=](HWND dialog) {
            act(dialog);
            EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, IDOK)));
        });
        ASSERT_TRUE(kv::input::Click(Item(opener, kOverlay)));
    };
    OpenSheet();
    inEditor(IDC_BTN_OVERLAY_ADD, [&](HWND dialog) {
        kvtest::TypeIn(GetDlgItem(dialog, IDC_EDIT_OVERLAY_NAME), "Mine");
        kvtest::TypeIn(GetDlgItem(dialog, IDC_EDIT_OVERLAY_FILE), File("form.prn"));
        others("0,128", {"0=<NONE>", "128=Theirs"});
    });
    EXPECT_EQ(Stored("[FormOverlayName]"), "0=<NONE> 128=Theirs 129=Mine");
    EXPECT_EQ(Settings().mdmOverlay, 129u);
    // One that was deleted meanwhile comes back; a name that was taken meanwhile is asked about.
    inEditor(IDC_BTN_OVERLAY_EDIT, [&](HWND dialog) {
        kvtest::TypeIn(GetDlgItem(dialog, IDC_EDIT_OVERLAY_NAME), "Taken");
        others("0,130", {"0=<NONE>", "130=Taken"});
        kv::Headless().PushAnswer([&](HWND box) {
            said = Text(GetDlgItem(box, 0xFFFF));
            kv::input::Click(GetDlgItem(box, IDOK));
        });
    });
    EXPECT_EQ(said, "\"Taken\" is already registered.  Do you want to overwrite it?");
    EXPECT_EQ(Stored("[FormOverlayName]"), "0=<NONE> 129=Taken");
    kv::Headless().PushAnswer([&](HWND box) {
        others("0,128,129", {"0=<NONE>", "128=Theirs", "129=Taken"});
        kv::input::Click(GetDlgItem(box, IDOK));
    });
    ASSERT_TRUE(kv::input::Click(Item(IDC_BTN_OVERLAY_DELETE, kOverlay)));
    EXPECT_EQ(Stored("FormOverlay"), "0,128");
    EXPECT_EQ(Settings().mdmOverlay, 128u) << "the one above it now";
}

}  // namespace
}  // namespace journey
