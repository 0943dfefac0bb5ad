// How pages begin, become active and apply: what every page does in its order, whatever its
// controls are.
#include <sqlite3.h>

#include <chrono>
#include <thread>

#include "preferences.h"
#include "sheet/sheet_context.h"

namespace journey {
namespace {

class SheetLife : public Preferences {
 protected:
    const kvui::SheetContext& ContextOf(int page) {
        void* state = nullptr;
        EXPECT_TRUE(QDMCrackInfo(PageWindow(page), WM_NULL, 0, nullptr, nullptr, nullptr, &state,
                                 nullptr, nullptr, nullptr, nullptr));
        return *static_cast<const kvui::SheetContext*>(state);
    }
};

TEST_F(SheetLife, FlagsTellWhatMayBeChanged) {
    const struct { DWORD mode; bool administrator; DWORD flags; } rows[] = {
        {0, true, 0}, {0x20, true, 1}, {0x8, true, 2}, {0x40, true, 0}, {0, false, 4}};
    for (const auto& row : rows) {
        kv::SetActingAsAdministrator(row.administrator);
        OpenSheet(row.mode);
        for (const int page : {kBasic, kQuality, kJob}) {
            EXPECT_EQ(ContextOf(page).flags & 7, row.flags) << row.mode << " page " << page;
        }
        CloseSheet();
    }
}

TEST_F(SheetLife, TheFirstActivationAsksForThePortOnce) {
    request_.printer = &printer;
    request_.record = record_.data();
    sheet_ = module_->CreateSheet(request_);
    Overhear(WindowOf(kBasic), [](UINT message, WPARAM) { return message == WM_USER + 2; });
    kv::PumpPendingMessages();
    EXPECT_EQ(heard.size(), 1u);
    for (const int other : {kLayout, kBasic, kQuality, kBasic}) PageWindow(other);
    EXPECT_EQ(heard.size(), 1u);
}

TEST_F(SheetLife, ApplyingTheLayoutPageShowsWhatTheRecordHas) {
    OpenSheet();
    const HWND combo = Item(IDC_COMBO_NUP, kLayout);
    Settings().mdmNup = 4;
    Notify(kLayout, PSN_APPLY);
    EXPECT_EQ(SendMessageA(combo, CB_GETCURSEL, 0, 0), IndexOf(combo, 4));
}

TEST_F(SheetLife, TheSheetsEndWaitsForAStoreThatIsLocked) {
    Settings().mdmInstalledOptions = 0x84;
    OpenSheet();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open((State() + "/store.sqlite").c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    std::thread release([other] {
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
    });
    const HWND sheet = sheet_;
    CloseSheet();
    release.join();
    sqlite3_close(other);
    EXPECT_FALSE(IsWindow(sheet));
    // An ordinary user's next sheet has it from the printer.
    Settings().mdmInstalledOptions = 0;
    Act(Actor::kUser);
    OpenSheet();
    EXPECT_EQ(Settings().mdmInstalledOptions, 0x84u);
}

}  // namespace
}  // namespace journey
