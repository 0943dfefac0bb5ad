// The two caches of a sheet: what they hold, what they leave out, and rules files of any content.
#include "rules/rules_cache.h"

#include <gtest/gtest.h>
#include <test_paths.h>

#include <random>
#include <string>
#include <vector>

#include "resources/resource.h"
#include "rules/conflicts.h"
#include "rules/gray_out.h"
#include "rules/rules_file.h"
#include "sheet/locked_block.h"
#include "sheet/rules_path.h"
#include "tests/module/support/sheet_fixture.h"

namespace kvui {
namespace {

std::string Lookup(ScratchSheet& sheet, const char* section, const std::string& key) {
    char value[1024];
    LookupCachedValue(sheet.context, section, key.c_str(), "(absent)", value);
    return value;
}

TEST(RulesCache, HoldsTheTwoSectionsAndMatchesNamesExactly) {
    ScratchSheet sheet;
    sheet.UseRules(
        "[ConflictConditions]\r\nKey0=(1),0,0=x\nAlone\n\r\nKey1 = (2) "
        "\r[AddCondition]\n1=Name,(1)\n"
        "[SHOWITEMACCORDINGTOOPTION]\nKey0=4\nKey0=5\n");
    EXPECT_EQ(Lookup(sheet, "ConflictConditions", "Key0"), "(1),0,0=x");
    EXPECT_EQ(Lookup(sheet, "ConflictConditions", "Key1"), "(2)");
    EXPECT_EQ(Lookup(sheet, "ConflictConditions", "key0"), "(absent)");
    EXPECT_EQ(Lookup(sheet, "conflictconditions", "Key0"), "(absent)");
    EXPECT_EQ(Lookup(sheet, "ShowItemAccordingToOption", "Key0"), "4");
    EXPECT_EQ(Lookup(sheet, "AddCondition", "1"), "(absent)");
}

TEST(RulesCache, SurplusRecordsAndCharactersAreLeftOut) {
    std::string text = "[ConflictConditions]\n";
    text += "Long0=" + std::string(3000, 'x') + "\n";
    text += std::string(100, 'k') + "=v\n";
    for (int i = 2; i < 300; ++i) text += "R" + std::to_string(i) + "=v\n";
    ScratchSheet sheet;
    sheet.UseRules(text);
    EXPECT_EQ(Lookup(sheet, "ConflictConditions", "Long0"), std::string(1023, 'x'));
    EXPECT_EQ(Lookup(sheet, "ConflictConditions", std::string(63, 'k')), "v");
    EXPECT_EQ(Lookup(sheet, "ConflictConditions", "R254"), "v");
    EXPECT_EQ(Lookup(sheet, "ConflictConditions", "R255"), "(absent)");
}

TEST(RulesCache, IsBuiltOncePerSheet) {
    ScratchSheet sheet;
    sheet.UseRules("[ConflictConditions]\nKey0=first\n");
    WritePrivateProfileStringA("ConflictConditions", "Key0", "second", RulesFilePath());
    LoadRulesCache(sheet.context);
    EXPECT_EQ(Lookup(sheet, "ConflictConditions", "Key0"), "first");
    FreeRulesCaches(sheet.shared);
    LoadRulesCache(sheet.context);
    EXPECT_EQ(Lookup(sheet, "ConflictConditions", "Key0"), "second");
}

TEST(ConflictRules, EndAtTheFirstGapAndAtSixtyFour) {
    ScratchSheet sheet;
    sheet.UseRules("[ConflictConditions]\nComboStaple0=4,0,0\nComboStaple2=(1),0,0\n");
    EXPECT_EQ(CountConflictRules(sheet.context, IDC_COMBO_STAPLE), 1);
    EXPECT_EQ(CountConflictRules(sheet.context, IDC_COMBO_MEDIA_TYPE), 0);
    EXPECT_EQ(CountConflictRules(sheet.context, 999999), 0);

    std::string text = "[ConflictConditions]\n";
    for (int i = 0; i < 100; ++i) text += "ComboStaple" + std::to_string(i) + "=(1),0,0\n";
    sheet.UseRules(text);
    EXPECT_EQ(CountConflictRules(sheet.context, IDC_COMBO_STAPLE), 64);
}

TEST(GrayOutIndex, KeepsOnlyParenthesisedRulesOfKindOne) {
    ScratchSheet sheet;
    sheet.UseRules(
        "[ConflictConditions]\n"
        "A0=(1),0,1,(T1,0,0,(0),H)\n"
        "A1=1,0,1,(T2,0,0,(0),H)\n"
        "A2=(1),0,0,(T3,0,0,(0),0)\n"
        ";A3=(1),0,1,(T4,0,0,(0),H)\n"
        "A4=(5-6,8),1,1,(T1,0,0,(0,1),7,1001),(T5,0,0,(),-1)\n");
    const LockedBlock<GrayOutIndex> index(sheet.shared.rules.grayOutIndex);
    ASSERT_EQ(index->count, 2);
    const GrayOutEntry& first = index->entries[0];
    EXPECT_STREQ(first.targetName, "T1");
    EXPECT_EQ(first.recordCount, 2);
    EXPECT_EQ(first.forcedValue, 7);  // the last rule that names the target
    EXPECT_STREQ(first.records[1].ruleKey, "A4");
    EXPECT_EQ(first.records[1].negate, 1);
    EXPECT_EQ(first.records[1].additionalCondition, 1001);
    EXPECT_EQ(first.records[1].trigger.low, 5);
    EXPECT_EQ(first.records[1].trigger.count, 1);
    EXPECT_STREQ(index->entries[1].targetName, "T5");
    EXPECT_EQ(index->entries[1].forcedValue, kForcedNothing);
}

TEST(GrayOutIndex, SurplusTargetsAndRulesAreIgnored) {
    std::string text = "[ConflictConditions]\n";
    for (int i = 0; i < 80; ++i) {
        text += "A" + std::to_string(i) + "=(1),0,1,(Same,0,0,(0)," + std::to_string(i) + "),(T" +
                std::to_string(i) + ",0,0,(0),H)\n";
    }
    ScratchSheet sheet;
    sheet.UseRules(text);
    const LockedBlock<GrayOutIndex> index(sheet.shared.rules.grayOutIndex);
    EXPECT_EQ(index->count, kMaxGrayOutTargets);
    EXPECT_EQ(index->entries[0].recordCount, kMaxGrayOutRecords);
    EXPECT_EQ(index->entries[0].forcedValue, kMaxGrayOutRecords - 1);
}

// Reads everything that a sheet reads of its rules.
void UseEverything(ScratchSheet& sheet) {
    sheet.Set("MediaType", 2);
    sheet.Set("mdmStaple", 2);
    std::vector<CodeRecord> records(kMaxCodeRecords);
    ReadCodeRange("Watermark", records.data());
    for (const ControlItem& item : kCatalogue) {
        CountConflictRules(sheet.context, item.controlId);
        IsShownByOptions(sheet.context, item.optionKey);
        ApplyGrayOutIndex(sheet.context, nullptr, item);
        LONG length, low, high;
        ReadEditAttribute(item.controlName, &length, &low, &high);
    }
    for (const char* key : {"0", "1", "999", "1000", "1001", ""}) {
        EvaluateAddCondition(sheet.context, key);
    }
}

std::vector<std::string> HostileTexts() {
    const std::string conflicts = "[ConflictConditions]\n", rule = conflicts + "ComboStaple0=";
    std::string full = conflicts, targets = rule + "(1),0,0";
    std::string groups = rule + "(1),0,0,(ComboPunch,0,0,(";
    while (full.size() < 1 << 20)
        full += "ComboStaple0=(1),0,1,(T" + std::to_string(full.size()) + ",0,0,(0),H)\n";
    for (int i = 0; i < 100; ++i) targets += ",(A,0,0,(),1)";
    for (int i = 0; i < 200; ++i) groups += "1,";
    return {
        "",
        "[",
        "[ConflictConditions",
        std::string("\0\0[Conf\0lictConditions]\nA=\0", 27),
        full,
        targets + "\n",
        groups + "),1)\n",
        rule + "((((((((\nComboMediaType0=))))\n",
        rule + "(1\nComboMediaType0=(2),0,1,(EditScaling,0,0,(0\n",
        rule + "(2),0,1,(EditScaling,0,0\nComboMediaType0=(2),0,1,(\n",
        rule + "(2),0,1,(" + std::string(900, 'n') + ",0,0,(0),H)\n",
        conflicts + "=(1),0,1,(EditScaling,0,0,(0),H)\nComboStaple0=(2),0,1\n",
        rule + "(99999999999999999999),0,0,(ComboPunch,0,0,(1-99999999999),9)\n",
        "[AddCondition]\n1=AND,(1,1,1)\n1000=0,9,0,9,0,1001\n1001=0,9,0,9,0,1000\n999=,\n0=x\n",
    };
}

// Hostile texts, the model's rules with random bytes in them, no file, and a folder.
TEST(HostileRules, AnyContentIsReadWithoutHarm) {
    std::vector<std::string> texts = HostileTexts();
    const std::string model = kv::test::ScratchFolder::Read(KV_SOURCE_DIR "/models/KVUIMOD.ini");
    ASSERT_FALSE(model.empty());
    std::mt19937 random(7720);
    constexpr char kBytes[] = "(),-;=[]H09\n\r\0 ";
    for (int round = 0; round < 60; ++round) {
        std::string& text = texts.emplace_back(model);
        for (int i = 0; i < 200; ++i) {
            text[random() % text.size()] = kBytes[random() % (sizeof kBytes - 1)];
        }
    }
    ScratchSheet sheet;
    for (const std::string& text : texts) {
        sheet.UseRules(text);
        UseEverything(sheet);
    }
    for (const char* path : {"absent.ini", ""}) {
        sheet.UseRulesAt(sheet.scratch.Path(path));
        UseEverything(sheet);
    }
}

}  // namespace
}  // namespace kvui
