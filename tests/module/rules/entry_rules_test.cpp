// Rules of the list-entry edit dialogs. No row of the catalogue is bound to such a dialog, so every
// value that the rules see there is 0.
#include "rules/entry_rules.h"

#include <gtest/gtest.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>

#include <string>

#include "rules/gray_out.h"
#include "sheet/locked_block.h"
#include "tests/module/support/sheet_fixture.h"

namespace kvui {
namespace {

constexpr DWORD kComboStaple = 1303;
constexpr DWORD kGrpStaple = 1301;

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

struct Answer {
    int allowed;
    LONG replacement = -7;
    LONG hideCounter = 0;
};
Answer Ask(ScratchSheet& sheet, DWORD controlId, LONG value) {
    Answer answer{};
    answer.replacement = -7;
    answer.allowed = IsEntryValueAllowed(sheet.context, nullptr, controlId, value,
                                         &answer.replacement, &answer.hideCounter, nullptr);
    return answer;
}

TEST(EntryRules, GrayedValuesAreRefusedWithTheirFallback) {
    ScratchSheet sheet;
    UseEntryRules(sheet, {{"ComboPunch0", "(0),0,2,(Other,0,0,0),(ComboStaple,2,3-4,9,1,5-6,1)"},
                          {"ComboPunch1", "7,0,1,(ComboStaple,0,0,0)"},
                          {"ComboFolding0", "0,1,1,(ComboStaple,0,0,1)"}});
    for (const LONG refused : {3, 4, 9}) {
        const Answer answer = Ask(sheet, kComboStaple, refused);
        EXPECT_EQ(answer.allowed, 0) << refused;
        EXPECT_EQ(answer.replacement, 5) << refused;  // the current 0 is in no fallback group
        EXPECT_EQ(answer.hideCounter, 1) << refused;
    }
    const Answer answer = Ask(sheet, kComboStaple, 2);
    EXPECT_EQ(answer.allowed, 1);
    EXPECT_EQ(answer.replacement, -7);
    EXPECT_EQ(answer.hideCounter, 0);
}

TEST(EntryRules, WithoutGroupsEveryValueIsRefusedAndTheCurrentStays) {
    ScratchSheet sheet;
    UseEntryRules(sheet, {{"ComboPunch0", "0,0,2,(ComboStaple,0,0,0),(GrpStaple,0,0,1)"}});
    EXPECT_EQ(Ask(sheet, kComboStaple, 77).allowed, 0);
    EXPECT_EQ(Ask(sheet, kComboStaple, 77).replacement, 0);
    const Answer text = Ask(sheet, kGrpStaple, 77);
    EXPECT_EQ(text.allowed, 0);
    EXPECT_EQ(text.replacement, 0);
    EXPECT_EQ(text.hideCounter, 1);
}

TEST(EntryRules, MalformedCountsAreReadWithoutHarm) {
    ScratchSheet sheet;
    UseEntryRules(sheet, {{"ComboPunch0", "0,0,2000000000,(ComboStaple,2000000000,1,2"},
                          {"ComboPunch1", "),0,-5,(ComboStaple"},
                          {"ComboPunch2", "(,0,9,(ComboStaple,-1,-1,"},
                          {"ComboPunch3", ""}});
    EXPECT_EQ(Ask(sheet, kComboStaple, 3).allowed, 0);  // the third rule has no groups left
    EXPECT_EQ(Ask(sheet, 999999, 3).allowed, 1);
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
    EXPECT_EQ(ResolveEntryConflicts(nullptr, sheet.context, kComboStaple, nullptr), 0);
    kv::Headless().SetPolicy(nullptr);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(sheet.Get("mdmHolePunch"), 0u);
}

}  // namespace
}  // namespace kvui
