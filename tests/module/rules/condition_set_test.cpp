// Condition items and the test of a value against a set.
#include "rules/condition_set.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace kvui {
namespace {

ConditionSet SetOf(const std::vector<const char*>& items) {
    ConditionSet set = {};
    for (const char* item : items) ParseConditionItem(set, item);
    return set;
}

ControlItem ItemOf(ItemType type, MaskMode mode) {
    ControlItem item = {};
    item.type = type;
    item.maskMode = mode;
    return item;
}

TEST(ConditionItem, IsAValueOrARange) {
    const struct { std::vector<const char*> items; LONG low, high, count, value; } rows[] = {
        {{"4"}, 0, 0, 1, 4},     {{""}, 0, 0, 1, 0},         {{"3-7"}, 3, 7, 0, 0},
        {{"-5"}, 0, 5, 0, 0},    {{"20-"}, 20, 32767, 0, 0}, {{"3-7-9"}, 3, 7, 0, 0},
        {{"-"}, 0, 32767, 0, 0}, {{" 12x"}, 0, 0, 1, 12},    {{"none"}, 0, 0, 1, 0},
        {{"7-0"}, 7, 0, 0, 0},   {{"+8"}, 0, 0, 1, 8},       {{" -5"}, 0, 5, 0, 0},
        {{" 3 - 7"}, 3, 7, 0, 0}, {{"2147483648"}, 0, 0, 1, static_cast<LONG>(0x80000000u)},
        // A later range replaces the first; values stay.
        {{"1-3", "9", "5-6"}, 5, 6, 1, 9},
    };
    for (const auto& row : rows) {
        const ConditionSet set = SetOf(row.items);
        EXPECT_EQ(set.low, row.low) << row.items[0];
        EXPECT_EQ(set.high, row.high) << row.items[0];
        EXPECT_EQ(set.count, row.count) << row.items[0];
        EXPECT_EQ(set.values[0], row.value) << row.items[0];
    }
}

TEST(ConditionItem, ThirtyThirdValueIsIgnored) {
    ConditionSet set = {};
    for (int i = 1; i <= 40; ++i) ParseConditionItem(set, std::to_string(i).c_str());
    EXPECT_EQ(set.count, kMaxConditionValues);
    EXPECT_EQ(set.values[kMaxConditionValues - 1], 32);
}

TEST(MatchCondition, FollowsTypeAndMaskMode) {
    const struct {
        ItemType type; MaskMode mode; std::vector<const char*> items; LONG value; bool satisfied;
    } cases[] = {
        {kItemCombo, kMaskWholeField, {"3-7"}, 3, true},
        {kItemCombo, kMaskWholeField, {"3-7"}, 8, false},
        {kItemCombo, kMaskWholeField, {"3-7", "9"}, 9, true},
        {kItemCheck, kMaskValues, {"1024"}, 1024, true},
        {kItemCheck, kMaskValues, {"10"}, 1024, false},
        {kItemRadio, kMaskWholeField, {}, 0, false},
        {kItemEdit, kMaskWholeField, {"0-1"}, -1, false},
        {kItemSavedCombo, kMaskWholeField, {"2"}, 2, true},
        // Bit numbers: any listed bit; a range is compared with the whole value and hides the list.
        {kItemCheck, kMaskBitNumbers, {"3"}, 8, true},
        {kItemCheck, kMaskBitNumbers, {"3"}, 3, false},
        {kItemList, kMaskBitNumbers, {"19", "20"}, 1 << 20, true},
        {kItemList, kMaskBitNumbers, {"35"}, 8, true},
        {kItemCheck, kMaskBitNumbers, {"31"}, static_cast<LONG>(0x80000000u), true},
        {kItemCheck, kMaskBitNumbers, {"3", "1-2"}, 8, false},
        {kItemCheck, kMaskBitNumbers, {}, 8, false},
        // Bit lists: any bit shared with the range's low end.
        {kItemMaskList, kMaskWholeField, {"6-9"}, 4, true},
        {kItemSavedList, kMaskWholeField, {"6-9"}, 8, false},
    };
    for (const auto& c : cases) {
        const ControlItem item = ItemOf(c.type, c.mode);
        const std::string where =
            "type " + std::to_string(c.type) + " value " + std::to_string(c.value);
        EXPECT_EQ(MatchCondition(0, c.value, SetOf(c.items), item), c.satisfied) << where;
        EXPECT_EQ(MatchCondition(1, c.value, SetOf(c.items), item), !c.satisfied) << where;
    }
}

TEST(MatchCondition, ControlsWithoutAValueNeverMatch) {
    for (const ItemType type : {kItemText, kItemButton, kItemSlider, kItemSavedButton}) {
        EXPECT_FALSE(MatchCondition(0, 1, SetOf({"1"}), ItemOf(type, kMaskWholeField)));
        EXPECT_FALSE(MatchCondition(1, 1, SetOf({"1"}), ItemOf(type, kMaskWholeField)));
    }
}

}  // namespace
}  // namespace kvui
