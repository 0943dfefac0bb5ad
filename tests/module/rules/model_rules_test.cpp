// The shipped rules as data: every name they use exists, and the defaults stand in no conflict.
#include <gtest/gtest.h>
#include <test_paths.h>

#include <cstring>
#include <set>
#include <string>

#include "rules/conflicts.h"
#include "rules/rule_grammar.h"
#include "rules/rules_cache.h"
#include "sheet/locked_block.h"
#include "tests/module/support/sheet_fixture.h"

namespace kvui {
namespace {

constexpr char kModelRules[] = KV_SOURCE_DIR "/models/KVUIMOD.ini";

class ModelRules : public testing::Test {
 protected:
    ModelRules() { sheet.UseRulesAt(kModelRules); }

    template <typename Handler>
    void ForEachRecord(int section, Handler handle) {
        const LockedBlock<RulesSection> sections(sheet.shared.rules.cache);
        for (const RulesRecord* at = sections.get()[section].records; at->key[0] != '\0'; ++at) {
            handle(*at);
        }
    }
    ScratchSheet sheet;
};

std::string WithoutNumber(std::string key) {
    while (!key.empty() && std::isdigit(static_cast<unsigned char>(key.back()))) key.pop_back();
    return key;
}

TEST_F(ModelRules, EveryRuleNamesControlsAndConditionsThatExist) {
    int seen = 0;
    ForEachRecord(1, [&](const RulesRecord& record) {
        ++seen;
        SCOPED_TRACE(record.key);
        const ControlItem* trigger = ItemByName(WithoutNumber(record.key).c_str());
        ASSERT_NE(trigger, nullptr);
        EXPECT_NE(trigger->conflictKey[0], '\0');
        const char* text = record.value;
        EXPECT_EQ(*text, '(');
        const RuleHead head = ReadRuleHead(text);
        RuleTarget target = {};
        int targets = 0;
        for (; ReadRuleTarget(text, target); ++targets) {
            const ControlItem* item = ItemByName(target.name);
            ASSERT_NE(item, nullptr) << target.name;
            EXPECT_FALSE(target.groups.empty()) << target.name;
            if (head.kind == kKindGrayOut) {
                EXPECT_NE(item->grayOutKey[0], '\0') << target.name;
            } else {
                EXPECT_NE(item->settingField[0], '\0') << target.name;
            }
            if (target.additionalKey[0] == '\0') continue;
            char line[256];
            EXPECT_NE(GetPrivateProfileStringA("AddCondition", target.additionalKey, "", line,
                                               sizeof line, kModelRules),
                      0u);
        }
        EXPECT_GT(targets, 0);
    });
    EXPECT_GT(seen, 40);
}

// A control's rules end at the first missing number, and the index finds a gray-out rule's trigger
// by the first control name that its key begins with.
TEST_F(ModelRules, NumbersHaveNoGapsAndGrayOutKeysFindTheirControl) {
    std::set<std::string> keys;
    ForEachRecord(1, [&](const RulesRecord& record) { keys.insert(record.key); });
    ForEachRecord(1, [&](const RulesRecord& record) {
        const std::string name = WithoutNumber(record.key);
        const int number = std::atoi(record.key + name.size());
        if (number > 0) {
            EXPECT_TRUE(keys.count(name + std::to_string(number - 1))) << record.key;
        }
        const char* text = record.value;
        if (ReadRuleHead(text).kind != kKindGrayOut) return;
        for (const ControlItem& item : kCatalogue) {
            if (std::strncmp(record.key, item.controlName, std::strlen(item.controlName)) != 0)
                continue;
            EXPECT_EQ(item.controlName, name);
            break;
        }
    });
}

TEST_F(ModelRules, DefaultsStandInNoConflict) {
    const std::pair<const char*, DWORD> defaults[] = {
        {"dmOrientation", 1},    {"dmPaperSize", 9}, {"dmCopies", 1},       {"dmDefaultSource", 7},
        {"dmPrintQuality", 600}, {"dmColor", 2},     {"MediaType", 1},      {"mdmDuplexMode", 1},
        {"mdmOutBin", 65},       {"mdmCollate", 1},  {"mdmScaleSize", 100},
    };
    for (const auto& [field, value] : defaults) sheet.Set(field, value);
    // Every control, as if its default had just been chosen: nothing is asked, nothing is changed.
    for (const DWORD options : {0x0u, 0x81u, 0x985085u}) {
        sheet.Set("mdmInstalledOptions", options);
        BYTE before[kRecordSize];
        std::memcpy(before, sheet.context.settings, sizeof before);
        for (const ControlItem& item : kCatalogue) {
            EXPECT_EQ(ResolveConflicts(sheet.context, item.controlId, nullptr), 1)
                << item.controlName;
        }
        EXPECT_EQ(std::memcmp(before, sheet.context.settings, sizeof before), 0);
    }
}

// The caches must hold the whole file: a longer section would be cut without a word.
TEST_F(ModelRules, FitTheCaches) {
    int conflicts = 0;
    ForEachRecord(1, [&](const RulesRecord& record) {
        ++conflicts;
        EXPECT_LT(std::strlen(record.value), sizeof record.value - 1) << record.key;
    });
    EXPECT_LT(conflicts, kMaxRulesRecords);
    const LockedBlock<GrayOutIndex> index(sheet.shared.rules.grayOutIndex);
    EXPECT_LT(index->count, kMaxGrayOutTargets);
    for (LONG i = 0; i < index->count; ++i) {
        EXPECT_LT(index->entries[i].recordCount, kMaxGrayOutRecords);
    }
}

}  // namespace
}  // namespace kvui
