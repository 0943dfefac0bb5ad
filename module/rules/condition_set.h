// Conditions: sets of acceptable values of one setting, as rules spell them ("3-7", "-5", "20-",
// "4"), and the test of a value against them.
#pragma once

#include <windows.h>

#include "settings/item_catalogue.h"

namespace kvui {

constexpr int kMaxConditionValues = 32;

struct ConditionSet {
    LONG low;
    LONG high;   // a range is present when not 0
    LONG count;
    LONG values[kMaxConditionValues];
};

// Adds one condition item: a range replaces an earlier one, values beyond the limit are ignored.
void ParseConditionItem(ConditionSet& set, const char* text);

// Whether `value` satisfies the set, by the item's type and mask mode; `negate` non-zero turns it.
bool MatchCondition(LONG negate, LONG value, const ConditionSet& set, const ControlItem& item);

}  // namespace kvui
