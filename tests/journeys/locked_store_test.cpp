// Another program has the store: what the dialogs of lists cannot store is said, and nothing of it
// is kept; when the store is free again, the same works.
#include <kvlist.h>
#include <sqlite3.h>

#include <fstream>

#include "tests/journeys/preferences.h"

namespace journey {
namespace {

constexpr const char* kNotStored =
    "The list cannot be stored.\nPlease check with your printer administrator.";

class LockedStore : public Preferences {
 protected:
    void SetUp() override {
        Preferences::SetUp();
        ASSERT_EQ(sqlite3_open((State() + "/store.sqlite").c_str(), &other_), SQLITE_OK);
    }
    void TearDown() override {
        Lock(false);
        sqlite3_close(other_);
        Preferences::TearDown();
    }
    void Lock(bool lock) {
        if (lock == locked_) return;
        locked_ = lock;
        const char* sql = lock ? "BEGIN EXCLUSIVE" : "ROLLBACK";
        EXPECT_EQ(sqlite3_exec(other_, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    }
    void Say(int button) {
        kv::Headless().PushAnswer([this, button](HWND box) {
            said += Text(GetDlgItem(box, 0xFFFF)) + "|";
            EXPECT_TRUE(kv::input::Click(GetDlgItem(box, button)));
        });
    }
    int OwnPapers() {
        const ListHandle list = QDMMLTReadPaper(&printer);
        const int count =
            QDMMLTGetPaperNum(list, &printer, 2) - QDMMLTGetPaperNum(list, &printer, 1);
        QDMMLTCancelPaper(list, &printer);
        return count;
    }
    std::string said;

 private:
    sqlite3* other_ = nullptr;
    bool locked_ = false;
};

TEST_F(LockedStore, PapersAreNotStoredAndNotChosen) {
    UseRules("[CustomPaper]\nNTNum=0\nCurrentUser=9\n");
    OpenSheet();
    const SHORT before = Public().dmPaperSize;
    for (const bool locked : {true, false}) {
        said.clear();
        InDialog(kBasic, IDC_BTN_CUSTOM_PAPER, IDOK, [&](HWND list) {
            Lock(locked);
            kv::Headless().PushAnswer([&](HWND editor) {
                if (locked) {
                    Say(IDOK);
                    EXPECT_TRUE(kv::input::Click(GetDlgItem(editor, IDOK)));
                    EXPECT_TRUE(IsWindow(editor)) << "no paper without an id of its own";
                    Lock(false);
                }
                EXPECT_TRUE(kv::input::Click(GetDlgItem(editor, IDOK)));
            });
            EXPECT_TRUE(kv::input::Click(GetDlgItem(list, IDC_BTN_PAPER_NEW)));
            Lock(locked);
            if (locked) Say(IDOK);
        });
        Lock(false);
        EXPECT_EQ(said, locked ? std::string(kNotStored) + "|" + kNotStored + "|" : "");
        EXPECT_EQ(OwnPapers(), locked ? 0 : 1);
        EXPECT_EQ(Public().dmPaperSize == before, locked);
    }
}

TEST_F(LockedStore, OverlaysAreNotStoredAndNotChosen) {
    std::ofstream(Path("letter.prn")) << "letter";
    OpenSheet();
    const HWND add = Item(IDC_BTN_OVERLAY_ADD, kOverlay);
    kv::Headless().PushAnswer([&](HWND dialog) {
        kvtest::TypeIn(GetDlgItem(dialog, IDC_EDIT_OVERLAY_FILE), Path("letter.prn"));
        kvtest::TypeIn(GetDlgItem(dialog, IDC_EDIT_OVERLAY_NAME), "Letter");
        Lock(true);
        Say(IDOK);
        EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, IDOK)));
        EXPECT_EQ(said, std::string(kNotStored) + "|");
        EXPECT_TRUE(IsWindow(dialog));
        Lock(false);
        EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, IDOK)));
    });
    EXPECT_TRUE(kv::input::Click(add));
    EXPECT_EQ(Settings().mdmOverlay, 128u);
    said.clear();
    Lock(true);
    Say(IDOK);
    Say(IDOK);
    EXPECT_TRUE(kv::input::Click(Item(IDC_BTN_OVERLAY_DELETE, kOverlay)));
    EXPECT_NE(said.find(kNotStored), std::string::npos) << said;
    EXPECT_EQ(Settings().mdmOverlay, 128u);
    Lock(false);
    const HWND list = Item(IDC_LIST_OVERLAY, kOverlay);
    EXPECT_EQ(kvtest::Rows(list).size(), 2u);
}

}  // namespace
}  // namespace journey
