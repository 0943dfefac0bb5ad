// The conflicts dialog over a report that the test prepares, and the module's message boxes.
#include <gtest/gtest.h>
#include <test_paths.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>

#include "exports.h"
#include "resources/resource.h"
#include "rules/conflicts.h"
#include "sheet/fixed_text.h"
#include "sheet/message_box.h"
#include "tests/module/support/sheet_fixture.h"
#include "tests/support/controls.h"

namespace kvui {
namespace {

using kvtest::Text;

class ConflictDialog : public testing::Test {
 protected:
    INT_PTR Run(kv::HeadlessDisplay::Answer answer) {
        kv::Headless().PushAnswer(std::move(answer));
        return DialogBoxParamA(sheet_.context.resources, "_CONFLICTS", nullptr, DlgProcConflicts,
                               reinterpret_cast<LPARAM>(&sheet_.context));
    }
    void Report(const char* trigger, const char* target, const char* forced) {
        ConflictReport& report = sheet_.shared.report;
        CopyText(report.triggerName, trigger);
        CopyText(report.triggerSelection, "A & B");
        CopyText(report.targetName, target);
        CopyText(report.targetCurrent, "now");
        CopyText(report.targetNew, forced);
    }
    ScratchSheet sheet_;
};

TEST_F(ConflictDialog, ShowsTheReportAndOnlyTheFirstAmpersandGoes) {
    const std::string longest(kReportTextSize - 1, '&');
    const struct {
        const char *trigger, *target, *forced, *triggerShown, *targetShown;
    } rows[] = {
        {"&Paper && Tray", "Copies:&", "then", "Paper && Tray", "Copies:"},
        {longest.c_str(), longest.c_str(), longest.c_str(), &longest[1], &longest[1]},
    };
    for (const auto& row : rows) {
        Report(row.trigger, row.target, row.forced);
        EXPECT_EQ(
            Run([&](HWND dialog) {
                const std::pair<int, const char*> texts[] = {
                    {IDC_ST_TRIGGER_NAME, row.triggerShown}, {IDC_ST_TRIGGER_SELECTION, "A & B"},
                    {IDC_ST_TARGET_NAME, row.targetShown},   {IDC_ST_TARGET_SELECTION, "now"},
                    {IDC_ST_NEW_NAME, row.targetShown},      {IDC_ST_NEW_SELECTION, row.forced},
                    {IDC_ST_CONFLICT_NEW, "New Selection"},
                };
                for (const auto& [id, text] : texts) EXPECT_EQ(Text(dialog, id), text) << id;
                EXPECT_EQ(Text(dialog), "Conflicts");
                EXPECT_EQ(SendMessageA(dialog, WM_HELP, 0, 0), 0);
                EXPECT_TRUE(kv::input::Key(VK_RETURN));
            }),
            1);
    }
}

TEST_F(ConflictDialog, WithoutAStateADialogEndsAsCancelled) {
    const HINSTANCE resources = sheet_.context.resources;
    EXPECT_EQ(DialogBoxParamA(resources, "_CONFLICTS", nullptr, DlgProcConflicts, 0), 2);
    EXPECT_EQ(DialogBoxParamA(resources, "_LBPCUSTOMPAPERS", nullptr, DDMCUSTOMPAPER, 0), -1);
}

TEST_F(ConflictDialog, WithoutAForcedTextOnlyCancelIsLeftEvenWhereThereAreNoStrings) {
    Report("A", "B", "");
    sheet_.context.strings = LoadLibraryA(KV_BIN_DIR "/libkvspool.so");  // has no string table
    ASSERT_NE(sheet_.context.strings, nullptr);
    EXPECT_EQ(Run([&](HWND dialog) {
                  EXPECT_EQ(Text(dialog, IDC_ST_NEW_SELECTION), "");
                  EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_BTN_CONFLICT_RESOLVE)));
                  EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDCANCEL));
                  kv::input::Key(VK_RETURN);
              }),
              2);
}

TEST(MessageBoxes, ReadRightToLeftWhereTheSystemDoes) {
    const char* old = std::getenv("LC_ALL");
    const std::string before = old != nullptr ? old : "";
    const std::pair<const char*, bool> rows[] = {{"he_IL.UTF-8", true},
                                                 {"ar_SA.UTF-8", true},
                                                 {"de_DE.UTF-8", false},
                                                 {"fa_IR.UTF-8", false}};
    for (const auto& [locale, rightToLeft] : rows) {
        setenv("LC_ALL", locale, 1);
        kv::Headless().PushAnswer([&, wanted = rightToLeft, name = locale](HWND dialog) {
            EXPECT_EQ(Text(dialog), "UI Halt Message");
            EXPECT_EQ(Text(dialog, 0xFFFF), "Driver halt at line 1180 of Su_cmn.");
            EXPECT_EQ((GetWindowLongA(dialog, GWL_EXSTYLE) & WS_EX_RTLREADING) != 0, wanted)
                << name;
            kv::input::Click(GetDlgItem(dialog, IDOK));
        });
        ShowDriverHalt(1180);
        EXPECT_EQ(kv::Headless().PendingAnswers(), 0u) << locale;
    }
    old != nullptr ? setenv("LC_ALL", before.c_str(), 1) : unsetenv("LC_ALL");
}

}  // namespace
}  // namespace kvui
