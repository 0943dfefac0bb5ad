// The mailbox dialog: which bins are mailboxes, their names, and who may give them.
#include <kvlist.h>

#include "tests/journeys/preferences.h"

namespace journey {
namespace {

constexpr DWORD kBin2To10 = 0x7FC, kBin8To10 = 0x700, kBin10 = 0x400, kSorter = 0x400;

class Mailboxes : public Preferences {
 protected:
    void SetUp() override {
        Preferences::SetUp();
        Settings().mdmInstalledOptions |= kSorter;
    }
    void Open(int closer, const std::function<void(HWND)>& act) {
        if (sheet_ == nullptr) OpenSheet();
        InDialog(kDevice, IDC_BTN_MAILBOX, closer, act);
    }
    static std::string Names(HWND list) {
        std::string names;
        for (const std::string& row : kvtest::Rows(list))
            names += (names.empty() ? "" : ", ") + row;
        return names;
    }
    static std::string Names(HWND dialog, int id) { return Names(GetDlgItem(dialog, id)); }
    static void Rename(HWND dialog, int row, const std::string& name) {
        ASSERT_TRUE(kv::input::Choose(GetDlgItem(dialog, IDC_LIST_MAILBOX), row));
        kvtest::TypeIn(GetDlgItem(dialog, IDC_EDIT_MAILBOX_NAME), name);
        ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, IDC_BTN_MAILBOX_APPLY)));
    }
    // What everybody meets from now on.
    std::string StoredNames() {
        const ListHandle list = QDMMLTReadOUTBin(&printer);
        std::vector<BinRecord> bins(QDMMLTGetOUTBinNum(list, &printer));
        QDMMLTGetOUTBinArray(list, &printer, bins.data());
        QDMMLTCancelOUTBin(list, &printer);
        std::string names;
        for (const BinRecord& bin : bins) {
            if (bin.identifier & kBin8To10) names += std::string(bin.displayName) + ", ";
        }
        return names;
    }
};

TEST_F(Mailboxes, BinsAreGivenOverAndNamed) {
    Open(IDOK, [&](HWND dialog) {
        EXPECT_EQ(Text(dialog), "Mailbox Setting");
        const HWND list = GetDlgItem(dialog, IDC_LIST_MAILBOX);
        const HWND edit = GetDlgItem(dialog, IDC_EDIT_MAILBOX_NAME);
        const HWND apply = GetDlgItem(dialog, IDC_BTN_MAILBOX_APPLY);
        EXPECT_EQ(Names(list), "") << "None is assigned";
        EXPECT_FALSE(IsWindowEnabled(apply));
        ChooseIn(dialog, IDC_COMBO_MAILBOX_ASSIGN, kBin8To10);
        EXPECT_EQ(Names(list), "Bin 8, Bin 9, Bin 10");
        ASSERT_TRUE(kv::input::Choose(list, 1));
        EXPECT_EQ(Text(edit), "Bin 9");
        EXPECT_TRUE(IsWindowEnabled(apply));
        Rename(dialog, 2, "A name that is longer than that");
        EXPECT_EQ(Names(list), "Bin 8, Bin 9, A name that is longe");
        Rename(dialog, 2, "Ada");
        EXPECT_EQ(Names(list), "Bin 8, Bin 9, Ada");
        kvtest::TypeIn(edit, "");
        ASSERT_TRUE(kv::input::Click(apply));
        EXPECT_EQ(Names(list), "Bin 8, Bin 9, Ada") << "an empty name is none";
        ChooseIn(dialog, IDC_COMBO_MAILBOX_ASSIGN, kBin10);
        EXPECT_EQ(Names(list), "Ada");
        EXPECT_EQ(SendMessageA(list, LB_GETCURSEL, 0, 0), 0) << "still Ada's";
        ChooseIn(dialog, IDC_COMBO_MAILBOX_ASSIGN, 0);
        EXPECT_EQ(Names(list), "");
        EXPECT_EQ(Text(edit), "");
        EXPECT_FALSE(IsWindowEnabled(apply));
        ChooseIn(dialog, IDC_COMBO_MAILBOX_ASSIGN, kBin8To10);
    });
    EXPECT_EQ(Settings().mdmMailBinAssign, kBin8To10);
    EXPECT_TRUE(CanApply());
    EXPECT_EQ(StoredNames(), "Bin 8, Bin 9, Ada, ");
    // The Basic page offers them on a template that has the list.
    const HWND page = PageWindow(kBasic);
    const HWND offered = kvtest::Make("LISTBOX", page, IDC_LIST_OUTPUT_SETTING);
    Notify(kBasic, PSN_SETACTIVE);
    EXPECT_EQ(Names(offered), "Bin 8, Bin 9, Ada");
    EXPECT_EQ(SendMessageA(offered, LB_GETITEMDATA, 2, 0), LRESULT{kBin10});
}

TEST_F(Mailboxes, CancelPutsNamesAndAssignmentBackAndNothingElse) {
    Settings().mdmMailBinAssign = kBin8To10;
    OpenSheet();
    TypeInto(IDC_EDIT_USER_NAME, "ada", kDevice);
    Open(IDCANCEL, [&](HWND dialog) {
        Rename(dialog, 2, "Ada");
        ChooseIn(dialog, IDC_COMBO_MAILBOX_ASSIGN, kBin2To10);
    });
    EXPECT_EQ(Settings().mdmMailBinAssign, kBin8To10);
    EXPECT_STREQ(Settings().userName, "ada") << "typed before the dialog opened";
    Open(IDOK, [&](HWND dialog) {
        EXPECT_EQ(Names(dialog, IDC_LIST_MAILBOX), "Bin 8, Bin 9, Bin 10");
    });
    EXPECT_EQ(StoredNames(), "Bin 8, Bin 9, Bin 10, ");
}

TEST_F(Mailboxes, NamesAreGivenByWhoAdministersThePrinter) {
    Settings().mdmMailBinAssign = kBin8To10;
    // Who may not administer it any more when the dialog ends is told.
    OpenSheet();
    kv::Headless().PushAnswer([&](HWND dialog) {
        Rename(dialog, 0, "Ada");
        Act(Actor::kUser);
        kv::Headless().PushAnswer([](HWND box) {
            EXPECT_NE(Text(box, 0xFFFF).find("cannot be stored"), std::string::npos);
            kv::input::Click(GetDlgItem(box, IDOK));
        });
        kv::input::Click(GetDlgItem(dialog, IDOK));
    });
    ASSERT_TRUE(kv::input::Click(Item(IDC_BTN_MAILBOX, kDevice)));
    CloseSheet();
    Open(IDOK, [&](HWND dialog) {
        EXPECT_EQ(Names(dialog, IDC_LIST_MAILBOX), "Bin 8, Bin 9, Bin 10");
        ASSERT_TRUE(kv::input::Choose(GetDlgItem(dialog, IDC_LIST_MAILBOX), 0));
        EXPECT_EQ(Text(dialog, IDC_EDIT_MAILBOX_NAME), "Bin 8");
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_EDIT_MAILBOX_NAME)));
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_BTN_MAILBOX_APPLY)));
        ChooseIn(dialog, IDC_COMBO_MAILBOX_ASSIGN, kBin10);
    });
    EXPECT_EQ(Settings().mdmMailBinAssign, kBin10) << "a setting of one's own";
}

}  // namespace
}  // namespace journey
