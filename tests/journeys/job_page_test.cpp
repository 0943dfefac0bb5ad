// Journeys over the Job Management page: job numbers that are typed, left empty and confirmed, and
// what the page tells the sheet and the common area. Also the spare pages of its family.
#include <commctrl.h>

#include <algorithm>
#include <functional>
#include <random>

#include "preferences.h"

namespace journey {
namespace {

using kv::input::Click;
using kv::input::Key;

constexpr int kAccessBox = IDC_CHK_ACCESS_CODE, kAccess = IDC_EDIT_ACCESS_NUMBER,
              kLockBox = IDC_CHK_LOCK_JOB, kPassword = IDC_EDIT_PASSWORD, kApply = 0x3021;
using Field = DWORD kvui::PrivateDevmode::*;
constexpr Field kAccessNumber = &kvui::PrivateDevmode::mdmAccessNumber,
                kJobPassword = &kvui::PrivateDevmode::mdmJobPassword;
constexpr DWORD kNone = kvui::kNoJobPassword;

class JobPage : public Preferences {
 protected:
    void SetUp() override {
        Preferences::SetUp();
        stored_ = record_;
        request_.applied = [this](HWND, bool) {
            stored_ = record_;
            ++applied_;
            return kvhost::Applied::kStored;
        };
        request_.ending = [this] { record_ = stored_; };
        kv::Headless().SetPolicy([this](HWND dialog) {
            boxes_.push_back(Text(dialog));
            // An editor does not take its empty fields.
            const bool editor = GetDlgItem(dialog, IDC_EDIT_OVERLAY_NAME) != nullptr;
            Click(GetDlgItem(dialog, editor ? IDCANCEL : IDOK));
        });
    }
    HWND On(int id) { return Item(id, kJob); }
    int ShownPages() {
        int shown = 0;
        for (int page = kBasic; page <= kJob; ++page) shown += IsWindowVisible(WindowOf(page));
        return shown;
    }
    LRESULT ActiveTab() { return SendMessageA(Tabs(), TCM_GETCURSEL, 0, 0); }
    DWORD StoredNumber() {
        return kvui::PrivatePart(reinterpret_cast<DEVMODEA*>(stored_.data()))->mdmAccessNumber;
    }

    std::array<BYTE, kRecordBytes> stored_{};
    int applied_ = 0;
    std::vector<std::string> boxes_;
};

TEST_F(JobPage, NumbersAreStoredInRangeAndShownWithFourDigits) {
    const struct { int box, edit; Field field; const char *typed; DWORD stored; const char* shown;
    } rows[] = {
        {kAccessBox, kAccess, kAccessNumber, "1234", 999, "0999"},
        {kAccessBox, kAccess, kAccessNumber, "0000", 1, "0001"},
        {kLockBox, kPassword, kJobPassword, "0042", 42, "0042"},
        {kLockBox, kPassword, kJobPassword, "0", 0, "0000"},
    };
    OpenSheet();
    for (const auto& row : rows) {
        ASSERT_FALSE(IsWindowEnabled(On(row.edit)));
        ASSERT_TRUE(Click(On(row.box)));
        EXPECT_EQ(GetFocus(), On(row.edit)) << "ticking the box goes to its number";
        ASSERT_TRUE(kv::input::Type(row.typed));
        ASSERT_TRUE(kv::input::Focus(On(IDC_CHK_DISTRIBUTION)));
        EXPECT_EQ(Settings().*row.field, row.stored) << row.typed;
        EXPECT_EQ(Text(On(row.edit)), row.shown);
        ASSERT_TRUE(Click(On(row.box)));
        EXPECT_EQ(Text(On(row.edit)), "") << "the number goes with its box";
    }
    EXPECT_TRUE(boxes_.empty());
}

TEST_F(JobPage, ANumberConfirmedWithEnterIsStoredAndNothingIsWrittenLater) {
    OpenSheet();
    ASSERT_TRUE(Click(On(kAccessBox)));
    ASSERT_TRUE(kv::input::Type("77"));
    SendMessageA(sheet_, PSM_APPLY, 0, 0);
    EXPECT_EQ(StoredNumber(), 77u);
    EXPECT_EQ(GetFocus(), On(kAccess)) << "the person goes on typing";
    SendMessageA(GetFocus(), EM_SETSEL, 0, -1);
    ASSERT_TRUE(kv::input::Type("88"));
    ASSERT_TRUE(Key(VK_RETURN));
    EXPECT_EQ(StoredNumber(), 88u);
    EXPECT_EQ(applied_, 2);
    EXPECT_EQ(SendMessageA(sheet_, PSM_GETCURRENTPAGEHWND, 0, 0), 0) << "OK closes the sheet";
    CloseSheet();
    EXPECT_EQ(record_, stored_);
}

TEST_F(JobPage, AnErasedNumberIsAskedForOnceWhereverThePersonGoes) {
    const struct { int edit; Field field; DWORD empty; const char* title; } edits[] = {
        {kAccess, kAccessNumber, 0, "Access Number Error"},
        {kPassword, kJobPassword, kNone, "Password Error"}};
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"another control", [&] { kv::input::Focus(On(IDC_CHK_DISTRIBUTION)); }},
        {"the other number", [&] { Click(On(GetFocus() == On(kAccess) ? kPassword : kAccess)); }},
        {"the box of the other number",
         [&] { Click(On(GetFocus() == On(kAccess) ? kLockBox : kAccessBox)); }},
        {"Tab", [] { Key(VK_TAB); }},
        {"another tab", [&] { kv::input::SelectPage(sheet_, kLayout); }},
        {"the next page", [] { Key(VK_TAB, kv::input::kControl); }},
        {"Apply",
         [&] {
             SendMessageA(sheet_, PSM_CHANGED, reinterpret_cast<WPARAM>(WindowOf(kJob)), 0);
             Click(GetDlgItem(sheet_, kApply));
         }},
        {"OK", [&] { Click(GetDlgItem(sheet_, IDOK)); }},
        {"Enter", [] { Key(VK_RETURN); }},
        {"Cancel", [&] { Click(GetDlgItem(sheet_, IDCANCEL)); }},
        {"applying", [&] { EXPECT_EQ(SendMessageA(sheet_, PSM_APPLY, 0, 0), FALSE); }},
    };
    UseRules("");
    for (const DWORD number : {0u, 5u}) {
        for (const auto& edit : edits) {
            for (const auto& [name, leave] : ways) {
                Settings().mdmSecurity = 3;
                Settings().mdmAccessNumber = number;
                Settings().mdmJobPassword = number == 0 ? kNone : number;
                stored_ = record_;
                OpenSheet();
                SCOPED_TRACE(std::string(edit.title) + ", " + name + ", " + std::to_string(number));
                kv::input::SelectPage(sheet_, kJob);
                boxes_.clear();
                SetFocus(On(edit.edit));
                boxes_.clear();
                SendMessageA(GetFocus(), EM_SETSEL, 0, -1);
                Key(VK_DELETE);
                leave();
                EXPECT_EQ(boxes_, std::vector<std::string>{edit.title});
                EXPECT_EQ(ActiveTab(), kJob);
                EXPECT_EQ(ShownPages(), 1);
                ASSERT_EQ(GetFocus(), On(edit.edit));
                EXPECT_EQ(Text(GetFocus()), "");
                EXPECT_EQ(Settings().*edit.field, edit.empty);
                EXPECT_EQ(applied_, 0);
                // Escape gives up, without another word.
                ASSERT_TRUE(Key(VK_ESCAPE));
                CloseSheet();
                EXPECT_EQ(boxes_.size(), 1u);
                EXPECT_EQ(record_, stored_);
            }
        }
    }
}

TEST_F(JobPage, ASheetMayGoWhileItsQuestionIsOpenAndATabMayHaveAnotherName) {
    OpenSheet();
    ASSERT_TRUE(Click(On(kAccessBox)));
    char other[] = "Other";
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = other;
    SendMessageA(Tabs(), TCM_SETITEMA, kJob, reinterpret_cast<LPARAM>(&item));
    kv::input::SelectPage(sheet_, kBasic);
    EXPECT_FALSE(boxes_.empty());
    EXPECT_EQ(ActiveTab(), kBasic) << "no tab of that name to come back to";
    EXPECT_EQ(ShownPages(), 1);
    kv::input::SelectPage(sheet_, kJob);
    ASSERT_TRUE(kv::input::Focus(On(kAccess)));
    kv::Headless().PushAnswer([this](HWND) { DestroyWindow(sheet_); });
    kv::input::Focus(On(IDC_CHK_DISTRIBUTION));
    EXPECT_FALSE(IsWindow(sheet_));
    EXPECT_EQ(record_, stored_);
}

TEST_F(JobPage, AnyOrderOfActionsWithEmptyNumbersEndsWell) {
    constexpr unsigned kSequences = 300, kSteps = 12;
    const char* wanted = std::getenv("KV_TEST_SEED");
    const unsigned seed = wanted != nullptr ? static_cast<unsigned>(std::atol(wanted)) : 7720;
    std::mt19937 random(seed);
    const auto pick = [&](unsigned count) { return static_cast<int>(random() % count); };
    const int targets[] = {kAccessBox, kAccess, kLockBox, kPassword, IDC_CHK_DISTRIBUTION,
                           IDC_CHK_DISTRIBUTION_FIRST, IDC_EDIT_DISTRIBUTION_START,
                           IDC_COMBO_DENSITY};
    const std::function<void()> actions[] = {
        [&] { Key(VK_TAB, pick(2) ? kv::input::kShift : kv::input::kNoModifier); },
        [] { Key(VK_DELETE), Key(VK_BACK); },
        [] { kv::input::Type("7"); },
        [] { Key(VK_RETURN); },
        [&] { pick(4) == 0 ? Key(VK_ESCAPE) : Key(VK_SPACE); },
        [&] { kv::input::SelectPage(sheet_, pick(8)); },
        [&] { Click(GetDlgItem(sheet_, pick(2) ? kApply : IDOK)); },
        [&] { Click(GetDlgItem(WindowOf(kJob), targets[pick(8)])); },
        [&] { Click(GetDlgItem(WindowOf(kJob), targets[pick(8)])); },
    };
    // One box grays and forces the other.
    const char* const rulesOf[] = {
        "", "[ConflictConditions]\nChkAccessCode0=(0),1,1,(ChkLockJob,0,0,(0),2)\n",
        "[ConflictConditions]\nChkLockJob0=(1),1,1,(ChkAccessCode,0,0,(0),1)\n"};
    for (const char* rules : rulesOf) {
        UseRules(rules);
        for (unsigned i = 0; i < kSequences / 3; ++i) {
            SCOPED_TRACE("KV_TEST_SEED=" + std::to_string(seed) + ", sequence " +
                         std::to_string(i));
            Settings().mdmSecurity = random() % 4;
            Settings().mdmAccessNumber = random() % 2;
            Settings().mdmJobPassword = random() % 2 - 1;
            stored_ = record_;
            OpenSheet();
            kv::input::SelectPage(sheet_, kJob);
            for (unsigned step = 0; step < kSteps; ++step) {
                boxes_.clear();
                actions[pick(std::size(actions))]();
                ASSERT_LE(boxes_.size(), 1u);
                ASSERT_EQ(ShownPages(), 1);
                if (SendMessageA(sheet_, PSM_GETCURRENTPAGEHWND, 0, 0) == 0) break;
            }
            CloseSheet();
            ASSERT_EQ(record_, stored_);
        }
    }
}

TEST_F(JobPage, TellsTheCommonAreaWhatWasReallyChanged) {
    Settings().mdmDistribution = 0xA8000000;
    OpenSheet();
    constexpr UINT kRedraw = WM_USER + 300, kActivated = WM_USER + 301;
    Overhear(Panel(kJob), [](UINT message, WPARAM wParam) {
        return message == kRedraw || (message == kActivated && wParam == 9503);
    });
    kv::input::SelectPage(sheet_, kBasic);
    kv::input::SelectPage(sheet_, kJob);
    EXPECT_EQ(heard, std::vector<UINT>{kActivated}) << "at activation";
    heard.clear();
    // Behind the page's back, then what its snapshot has: no change.
    Settings().mdmDistribution = 0xA4000000;
    ChooseValue(IDC_COMBO_DENSITY, 0x08000000, kJob);
    EXPECT_FALSE(CanApply());
    EXPECT_EQ(heard, std::vector<UINT>{kActivated});
    heard.clear();
    ChooseValue(IDC_COMBO_DENSITY, 0x04000000, kJob);
    EXPECT_TRUE(CanApply());
    EXPECT_EQ(heard, (std::vector<UINT>{kActivated, kRedraw}));
    EXPECT_EQ(Settings().mdmDistribution, 0xA4000000u) << "the other bits stay";
    ASSERT_TRUE(Click(On(IDC_CHK_DISTRIBUTION_FIRST)));
    ASSERT_TRUE(Click(On(IDC_CHK_DISTRIBUTION_FIRST)));
    EXPECT_EQ(Settings().mdmDistribution, 0xA4000000u) << "never both clear";
    // Apply leaves the snapshot alone: what is taken back goes to the page's last change.
    Settings().mdmDistStartNumber = 9;
    Notify(kJob, PSN_APPLY);
    Notify(kJob, PSN_RESET);
    EXPECT_NE(Settings().mdmDistStartNumber, 9u);
}

TEST_F(JobPage, SparePagesDispatchAndTellButDeriveAndHelpNothing) {
    for (const char* number : {"5", "6"}) {
        extraPages_ = {{"DLGTAB" + std::string(number), "DDMTAB" + std::string(number)}};
        OpenSheet();
        const HWND page = PageWindow(kJob);
        ASSERT_NE(page, nullptr);
        const auto tells = [&](UINT message) {
            SendMessageA(sheet_, PSM_UNCHANGED, reinterpret_cast<WPARAM>(page), 0);
            SendMessageA(page, message, 1, 0);
            return CanApply();
        };
        EXPECT_TRUE(tells(WM_COMMAND)) << "it begins without a snapshot";
        EXPECT_FALSE(tells(WM_COMMAND)) << "each command takes one";
        Settings().mdmNup = 20;
        EXPECT_TRUE(tells(WM_HSCROLL));
        EXPECT_TRUE(tells(WM_HSCROLL)) << "a scroll takes none";
        EXPECT_FALSE(tells(WM_VSCROLL));
        EXPECT_EQ(Settings().nUp, 0u) << "nothing is derived";
        Notify(kJob, PSN_RESET);
        EXPECT_EQ(Settings().mdmNup, 20u) << "nothing is taken back";
        HELPINFO help{};
        const DLGPROC procedure = module_->Procedure(("DDMTAB" + std::string(number)).c_str());
        EXPECT_TRUE(procedure(page, WM_HELP, 0, reinterpret_cast<LPARAM>(&help)));
        CloseSheet();
        record_ = stored_;
    }
}

}  // namespace
}  // namespace journey
