// Rules of the list-entry edit dialogs. No row of the catalogue is bound to such a dialog, so every
// value that the rules see there is 0.
#include "rules/entry_rules.h"

#include <gtest/gtest.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>

#include <string>

#include "resources/resource.h"
#include "rules/gray_out.h"
#include "sheet/locked_block.h"
#include "tests/module/support/sheet_fixture.h"

namespace kvui {
namespace {

// Replaces the cache by one that holds the section of entry rules.
void UseEntryRules(ScratchSheet& sheet,
                   std::initializer_list<std::pair<const char*, const char*>> rules) {
    FreeRulesCaches(sheet.shared);
    sheet.shared.rules.cache = GlobalAlloc(GHND, 2 * sizeof(RulesSection));
    const LockedBlock<RulesSection> section(sheet.shared.rules.cache);
    std::snprintf(section->name, sizeof section->name, "GrayOutConditions");
    int record = 0;
    for (const auto& [key, value] : rules) {
        RulesRecord& at = section->records[record++];
        std::snprintf(at.key, sizeof at.key, "%s", key);
        std::snprintf(at.value, sizeof at.value, "%s", value);
    }
}

TEST(EntryRules, GrayedValuesAreRefusedWithTheirFallback) {
    using Rules = std::initializer_list<std::pair<const char*, const char*>>;
    const Rules groups = {{"ComboPunch0", "(0),0,2,(Other,0,0,0),(ComboStaple,2,3-4,9,1,5-6,1)"},
                          {"ComboPunch1", "7,0,1,(ComboStaple,0,0,0)"},
                          {"ComboFolding0", "0,1,1,(ComboStaple,0,0,1)"}},
                without = {{"ComboPunch0", "0,0,2,(ComboStaple,0,0,0),(GrpStaple,0,0,1)"}},
                malformed = {{"ComboPunch0", "0,0,2000000000,(ComboStaple,2000000000,1,2"},
                             {"ComboPunch1", "),0,-5,(ComboStaple"},
                             {"ComboPunch2", "(,0,9,(ComboStaple,-1,-1,"},
                             {"ComboPunch3", ""}};
    // Where a value is allowed nothing is said of the others.
    constexpr LONG kNothing = -7;
    const struct { Rules rules; DWORD control; LONG value; int allowed; LONG replacement, hidden; }
    rows[] = {
        {groups, IDC_COMBO_STAPLE, 2, 1, kNothing, 0},
        // The current 0 is in no fallback group.
        {groups, IDC_COMBO_STAPLE, 3, 0, 5, 1},
        {groups, IDC_COMBO_STAPLE, 4, 0, 5, 1},
        {groups, IDC_COMBO_STAPLE, 9, 0, 5, 1},
        {without, IDC_COMBO_STAPLE, 77, 0, 0, 0},
        {without, IDC_GRP_STAPLE, 77, 0, 0, 1},
        {malformed, IDC_COMBO_STAPLE, 3, 0, 0, 0},  // the third rule has no groups left
        {malformed, 999999, 3, 1, kNothing, 0},
    };
    for (const auto& row : rows) {
        ScratchSheet sheet;
        UseEntryRules(sheet, row.rules);
        LONG replacement = kNothing, hidden = 0;
        EXPECT_EQ(IsEntryValueAllowed(sheet.context, nullptr, row.control, row.value, &replacement,
                                      &hidden, nullptr),
                  row.allowed)
            << &row - rows;
        EXPECT_EQ(replacement, row.replacement) << &row - rows;
        EXPECT_EQ(hidden, row.hidden) << &row - rows;
    }
}

TEST(EntryConflicts, GrayOutRulesCountAndAdditionalConditionsDoNot) {
    ScratchSheet sheet;
    sheet.UseRules(
        "[ConflictConditions]\nComboStaple0=(0),0,1,(ComboPunch,0,0,(0),3,1)\n"
        "[AddCondition]\n1=ComboSorting,(1)\n");
    int asked = 0;
    kv::Headless().SetPolicy([&](HWND dialog) {
        ++asked;
        kv::input::Click(GetDlgItem(dialog, IDCANCEL));
    });
    EXPECT_EQ(ResolveEntryConflicts(nullptr, sheet.context, IDC_COMBO_STAPLE, nullptr), 0);
    kv::Headless().SetPolicy(nullptr);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(sheet.Get("mdmHolePunch"), 0u);
}

}  // namespace
}  // namespace kvui
