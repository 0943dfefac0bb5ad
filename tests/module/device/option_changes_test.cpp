// Installing and removing options under dependences and conflicts: one row per case, asked through
// the real dialog.
#include "device/option_changes.h"

#include <gtest/gtest.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>

#include "resources/resource.h"
#include "tests/support/controls.h"
#include "tests/module/support/sheet_fixture.h"

namespace kvui {
namespace {

constexpr DWORD Bits() {
    return 0;
}
template <typename... More>
constexpr DWORD Bits(int bit, More... more) {
    return (DWORD{1} << bit) | Bits(more...);
}

enum Answer { kNotAsked, kResolve, kCancel };
constexpr OptionChange kAdd = OptionChange::kInstall, kTake = OptionChange::kRemove;

struct Case {
    const char* what;
    const char* rules;  // dependences, then conflicts
    DWORD installed;
    DWORD mask;
    OptionChange change;
    Answer answer;
    DWORD expected;
};

// "D3=2" stands for a line of OptionDependence, "C3=4" for one of OptionConflict.
constexpr Case kCases[] = {
    {"no rules", "", Bits(0, 2), Bits(7), kAdd, kNotAsked, Bits(0, 2, 7)},
    {"no rules, removing", "", Bits(0, 2, 7), Bits(2), kTake, kNotAsked, Bits(0, 7)},
    {"needed option is there", "D3=2", Bits(2), Bits(3), kAdd, kNotAsked, Bits(2, 3)},
    {"needed option comes along", "D3=2", Bits(7), Bits(3), kAdd, kResolve, Bits(2, 3, 7)},
    {"cancelled", "D3=2", Bits(7), Bits(3), kAdd, kCancel, Bits(7)},
    {"second group is there", "D14=23,0,3,4", Bits(3, 4), Bits(14), kAdd, kNotAsked,
     Bits(3, 4, 14)},
    {"half a group is none", "D14=23,0,3,4", Bits(3), Bits(14), kAdd, kResolve, Bits(3, 14, 23)},
    {"an empty first group asks nothing", "D14=0,23", 0, Bits(14), kAdd, kNotAsked, Bits(14)},
    {"a 0 behind the last group opens none", "D14=23,0,", 0, Bits(14), kAdd, kResolve,
     Bits(14, 23)},
    {"what the group excludes goes", "D14=23,3 C23=4,5", Bits(4, 5), Bits(14), kAdd, kResolve,
     Bits(3, 14, 23)},
    {"excluded in order, later ones win", "D14=23,4 C23=4 C4=23", 0, Bits(14), kAdd, kResolve,
     Bits(4, 14)},
    {"excluded option is there", "C19=10,20", Bits(0, 20), Bits(19), kAdd, kResolve, Bits(0, 19)},
    {"excluded option is missing", "C19=10,20", Bits(0, 7), Bits(19), kAdd, kNotAsked,
     Bits(0, 7, 19)},
    {"both at once", "D19=23 C19=20", Bits(20), Bits(19), kAdd, kResolve, Bits(19, 23)},
    {"completion alone never asks", "D5=6,8", Bits(5), Bits(6), kAdd, kNotAsked, Bits(5, 6)},
    {"groups of the others are completed", "D5=6,8 D9=6,11 C6=7", Bits(5, 9, 7), Bits(6), kAdd,
     kResolve, Bits(5, 6, 8, 9, 11)},
    {"a whole group needs no completion", "D5=2,0,6,8 C6=7", Bits(2, 5, 7), Bits(6), kAdd, kResolve,
     Bits(2, 5, 6)},
    {"groups without the option are passed", "D5=3,0,6,8 C6=7", Bits(5, 7), Bits(6), kAdd, kResolve,
     Bits(5, 6, 8)},
    {"last number 0 is no option", "C6=7,0 D5=0", Bits(5, 7), Bits(6), kAdd, kResolve, Bits(5, 6)},
    {"dependents go", "D3=2 D4=2,3", Bits(2, 3, 4), Bits(2), kTake, kResolve, 0},
    {"dependents stay when cancelled", "D3=2", Bits(2, 3), Bits(2), kTake, kCancel, Bits(2, 3)},
    {"missing dependents do not count", "D3=2", Bits(2, 7), Bits(2), kTake, kNotAsked, Bits(7)},
    {"removing what nobody needs", "D3=2", Bits(2, 3), Bits(3), kTake, kNotAsked, Bits(2)},
    {"separators are not option 0", "D3=2,0,4", Bits(0, 3, 4), Bits(0), kTake, kNotAsked,
     Bits(3, 4)},
    {"the highest bit of a mask rules", "D7=2 D9=3", Bits(0), Bits(7, 9), kAdd, kResolve,
     Bits(0, 3, 7, 9)},
    {"bits above 24 have no rules", "D25=2 D31=2", Bits(0), Bits(25, 31), kAdd, kNotAsked,
     Bits(0, 25, 31)},
    {"nothing to change", "D3=2", Bits(3), 0, kAdd, kNotAsked, Bits(3)},
    {"in a circle", "D3=4 D4=3", 0, Bits(3), kAdd, kResolve, Bits(3, 4)},
    {"excluding itself", "C3=3", Bits(3), Bits(3), kAdd, kResolve, 0},
    {"numbers of no option", "D3=-1,99999999999,x", 0, Bits(3), kAdd, kCancel, 0},
};

std::string RulesText(const std::string& rules) {
    std::string dependences = "[OptionDependence]\n", conflicts = "[OptionConflict]\n";
    for (size_t at = 0; at < rules.size();) {
        const size_t end = std::min(rules.find(' ', at), rules.size());
        (rules[at] == 'D' ? dependences : conflicts) += rules.substr(at + 1, end - at - 1) + "\n";
        at = end + 1;
    }
    return dependences + conflicts;
}

TEST(OptionChanges, AskWhereOthersChangeAndDoWhatWasAnswered) {
    ScratchSheet sheet;
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.what);
        sheet.UseRules(RulesText(c.rules));
        sheet.Set("mdmInstalledOptions", c.installed);
        bool asked = false;
        kv::Headless().SetPolicy([&](HWND dialog) {
            asked = true;
            kv::input::Click(
                GetDlgItem(dialog, c.answer == kResolve ? IDC_BTN_OPTION_RESOLVE : IDCANCEL));
        });
        const int done = ApplyOptionChange(nullptr, sheet.context, c.mask, c.change);
        EXPECT_EQ(asked, c.answer != kNotAsked);
        EXPECT_EQ(done, c.answer == kCancel ? 0 : 1);
        EXPECT_EQ(sheet.Get("mdmInstalledOptions"), c.expected);
    }
    kv::Headless().SetPolicy(nullptr);
}

std::string Entries(HWND list) {
    std::string text;
    for (const std::string& row : kvtest::Rows(list)) text += row + ";";
    return text;
}

// Bit 0 and bit 5 have no entry; tray 4 is hidden under both its names, tray 2 under one.
TEST(OptionChanges, TheDialogListsTheOptionsBeforeAndAfter) {
    ScratchSheet sheet;
    sheet.UseRules(
        "[OptionDependence]\n14=23\n[OptionConflict]\n14=7\n"
        "[ShowItemAccordingToOption]\nInstTray4=0\nUnInstTray4=0\nInstTray2=0\n");
    sheet.Set("mdmInstalledOptions", Bits(0, 2, 4, 5, 7));
    kv::Headless().PushAnswer([](HWND dialog) {
        const HWND before = GetDlgItem(dialog, IDC_LIST_OPTION_CURRENT);
        EXPECT_EQ(Entries(before), "Tray 2;Duplex Option;");
        EXPECT_EQ(Entries(GetDlgItem(dialog, IDC_LIST_OPTION_NEW)), "Tray 2;LCC;2-step Cabinet;");
        kv::input::Choose(before, 1);
        EXPECT_EQ(SendMessageA(before, LB_GETCURSEL, 0, 0), LB_ERR);
        kv::input::Key(VK_ESCAPE);
    });
    EXPECT_EQ(ApplyOptionChange(nullptr, sheet.context, Bits(14), kAdd), 0);
    EXPECT_EQ(sheet.Get("mdmInstalledOptions"), Bits(0, 2, 4, 5, 7));
}

}  // namespace
}  // namespace kvui
